#include "tools/plan_options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>

#include "text/phrases.h"
#include "tools/command_line.h"
#include "tools/plan_command.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help = R"(usage: pedigreewatch-tools plan [OPTION...]
  Run it in the folder with pedigreewatch.ini. It works out which males and females should breed, how often, and
  who with whom, so that the breed loses as little diversity as possible, and writes NAME_plan.tsv,
  NAME_contributions.tsv and NAME_plan.html, a page to hand out.

  Candidates (without an option: animals of the ages at which parents were used in the last ten years)
  --females FILE        the females, one identification a line
  --males FILE          the males, likewise
  --years N             for a sex without a list: the animals born in the last N birth years
  --exclude FILE        leaves out the animals of a list, also of the one that the desk keeps (NAME_left_out.tsv)
  --all-animals         also animals that NAME_available.txt does not name (it stands beside the data where the export
                        told who is dead, sold or castrated)
  --subpopulation NAME  only animals of that subpopulation
  --known-parents       only animals of which both parents are known
  --least-generations G only animals with at least G equivalent generations of known ancestors

  Matings
  --matings N           how many (litters of the last full birth year)
  --most-per-male K     matings of a male at most
  --most-per-female K   matings of a female at most (1)
  --least-per-male K    matings of a male that is used at all at least
  --numbers FILE        numbers that are fixed: an identification and 3, or 2-5, a line
  --contributions-only  no whole numbers and no pairs

  Pairs
  --most-f F            no pair whose offspring have an F above: 0.0625 or 6.25%
  --forbidden FILE      pairs that may not be: two identifications a line
  --wished FILE         pairs that are made whatever their F

  Breeding values
  --values FILE         an identification and its breeding value a line: the highest mean value is looked for
  --rate R              while inbreeding rises by at most R per cent a generation (0.5)

  --workbook            one workbook, NAME_plan.xlsx, instead of the two tables
  --plain               write texts that begin with = + - @ as they are (else: behind an apostrophe)
  --help                shows this text

  Exit status: 0 done, 1 something stands in the way (nothing was written), 2 wrong arguments.
)";

constexpr auto rules = std::to_array<OptionRule>({{"--females"},
                                                  {"--males"},
                                                  {"--years"},
                                                  {"--exclude"},
                                                  {"--subpopulation"},
                                                  {"--known-parents", false},
                                                  {"--all-animals", false},
                                                  {"--least-generations"},
                                                  {"--matings"},
                                                  {"--most-per-male"},
                                                  {"--most-per-female"},
                                                  {"--least-per-male"},
                                                  {"--numbers"},
                                                  {"--contributions-only", false},
                                                  {"--most-f"},
                                                  {"--forbidden"},
                                                  {"--wished"},
                                                  {"--values"},
                                                  {"--rate"},
                                                  {"--workbook", false},
                                                  {"--plain", false}});

struct FileOption {
  std::string_view name;
  std::string SaidLists::*file;
};
constexpr auto file_options = std::to_array<FileOption>({{"--females", &SaidLists::females},
                                                         {"--males", &SaidLists::males},
                                                         {"--exclude", &SaidLists::exclude},
                                                         {"--numbers", &SaidLists::numbers},
                                                         {"--forbidden", &SaidLists::forbidden},
                                                         {"--wished", &SaidLists::wished},
                                                         {"--values", &SaidLists::values}});

struct CountOption {
  std::string_view name;
  std::optional<std::int32_t> PlanOptions::*count;
};
constexpr auto count_options = std::to_array<CountOption>({{"--years", &PlanOptions::years},
                                                           {"--matings", &PlanOptions::matings},
                                                           {"--most-per-male", &PlanOptions::most_per_male},
                                                           {"--most-per-female", &PlanOptions::most_per_female},
                                                           {"--least-per-male", &PlanOptions::least_per_male}});

/// More matings of each sex than a plan is for.
constexpr std::int32_t most_matings = 1'000'000;

std::optional<std::int32_t> read_count(std::string_view text) {
  std::int32_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_count =
      error == std::errc() && stop == text.data() + text.size() && number > 0 && number <= most_matings;
  return is_count ? std::optional(number) : std::nullopt;
}

/// Digits with at most one decimal point; none for any other text.
std::optional<double> read_plain_number(std::string_view text) {
  const bool has_digit = text.find_first_of("0123456789") != std::string_view::npos;
  const bool has_others = text.find_first_not_of("0123456789.") != std::string_view::npos;
  if (!has_digit || has_others || std::count(text.begin(), text.end(), '.') > 1) return std::nullopt;
  return std::strtod(std::string(text).c_str(), nullptr);
}

/// A fraction up to 1, or per cent with the sign.
std::optional<double> read_fraction(std::string_view text) {
  const bool is_percent = text.ends_with('%');
  if (is_percent) text.remove_suffix(1);
  const std::optional<double> number = read_plain_number(text);
  const double fraction = number.value_or(2.0) / (is_percent ? 100.0 : 1.0);
  return fraction <= 1.0 ? std::optional(fraction) : std::nullopt;
}

/// Per cent, with or without the sign.
std::optional<double> read_rate(std::string_view text) {
  if (text.ends_with('%')) text.remove_suffix(1);
  const std::optional<double> number = read_plain_number(text);
  constexpr double most = 100.0;
  return number && *number <= most ? std::optional(*number / 100.0) : std::nullopt;
}

/// Takes an option with a number that is no count.
std::string take_number(const GivenOption& given, PlanOptions& options) {
  if (given.name == "--most-f") {
    options.most_f = read_fraction(given.value);
    if (!options.most_f) return wrong_value(given, "an F such as 0.0625 or 6.25%");
  } else if (given.name == "--rate") {
    options.rate = read_rate(given.value);
    if (!options.rate) return wrong_value(given, "a per cent of inbreeding a generation, such as 0.5,");
  } else if (given.name == "--least-generations") {
    const std::optional<double> number = read_plain_number(given.value);
    if (!number) return wrong_value(given, "a number of generations such as 3 or 2.5");
    options.least_generations = *number;
  }
  return {};
}

std::string take_option(const GivenOption& given, PlanOptions& options) {
  for (const FileOption& option : file_options) {
    if (given.name != option.name) continue;
    if (given.value.empty()) return wrong_value(given, "the name of a file");
    options.lists.*option.file = given.value;
    return {};
  }
  for (const CountOption& option : count_options) {
    if (given.name != option.name) continue;
    options.*option.count = read_count(given.value);
    return options.*option.count ? std::string() : wrong_value(given, "a number from 1 to 1000000");
  }
  if (given.name == "--all-animals") options.takes_all_animals = true;
  if (given.name == "--known-parents") options.needs_known_parents = true;
  if (given.name == "--contributions-only") options.wants_pairs = false;
  if (given.name == "--workbook") options.wants_workbook = true;
  if (given.name == "--plain") options.is_plain = true;
  if (given.name == "--subpopulation") options.subpopulation = std::string(given.value);
  return take_number(given, options);
}

/// Options that have no meaning together.
std::string find_conflict(const PlanOptions& options) {
  if (options.years && !options.lists.females.empty() && !options.lists.males.empty()) {
    return "--years has no meaning when all animals are named with --females and --males";
  }
  if (options.rate && options.lists.values.empty()) return "--rate has no meaning without --values FILE";
  if (options.most_per_male && options.least_per_male && *options.least_per_male > *options.most_per_male) {
    return "--least-per-male is above --most-per-male";
  }
  const bool speaks_of_pairs = options.most_f || !options.lists.forbidden.empty() || !options.lists.wished.empty();
  if (!options.wants_pairs && speaks_of_pairs)
    return "--contributions-only makes no pairs: leave out the options for them";
  return {};
}

}  // namespace

std::string_view plan_help() {
  return help;
}

std::string read_plan_options(std::span<const std::string_view> arguments, PlanOptions& options) {
  const CommandLine line = read_command_line(arguments, rules);
  if (!line.problem.empty()) return line.problem;
  if (!line.operands.empty()) return in_quotes(line.operands.front()) + ": an option was expected";
  for (const GivenOption& given : line.options) {
    std::string problem = take_option(given, options);
    if (!problem.empty()) return problem;
  }
  return find_conflict(options);
}

}  // namespace pedigreewatch
