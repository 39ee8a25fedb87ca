// Computes the population as a run does, finds the animals that mates are looked for, works out their matings and
// writes them beside the report.

#include "tools/matings_command.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "checks/readable_text.h"
#include "core/line_reader.h"
#include "matings/candidates.h"
#include "matings/mating_table.h"
#include "matings/ranking.h"
#include "tools/command_line.h"
#include "tools/folder_analysis.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help =
    "usage: pedigreewatch-tools matings [OPTION...]\n"
    "  Run it in the folder with pedigreewatch.ini. It works out F of the offspring of females with males, exactly as "
    "a\n"
    "  run would show it, and writes it with the common ancestors of each pair to NAME_matings.tsv, the lowest F "
    "first.\n"
    "\n"
    "  --females FILE        the females, one identification a line\n"
    "  --males FILE          the males, likewise\n"
    "  --years N             where no file is given: the animals born in the last N years (10)\n"
    "  --best K              for each female only the K males with the lowest F\n"
    "  --limit F             only pairs with F at most that: 0.0625 or 6.25%\n"
    "  --csv                 write NAME_matings.csv, with commas, instead\n"
    "  --help                shows this text\n"
    "\n"
    "  Exit status: 0 done, 1 something stands in the way, or animals of a file were left out, 2 wrong arguments.\n";

constexpr auto rules =
    std::to_array<OptionRule>({{"--females"}, {"--males"}, {"--years"}, {"--best"}, {"--limit"}, {"--csv", false}});

constexpr Wording females_word = {"females", "vrouwelijke dieren"}, males_word = {"males", "mannelijke dieren"};
constexpr Wording born_between = {"{2} born {3} to {4}: {1}", "{2} geboren {3} tot en met {4}: {1}"};
constexpr Wording listed_in = {"{2} of {3}: {1}", "{2} uit {3}: {1}"};
constexpr Wording no_birth_years = {"no animal has a year of birth; name the {1} with {2} FILE",
                                    "van geen dier is het geboortejaar bekend; noem de {1} met {2} BESTAND"};
constexpr Wording none_born = {
    "no {1} were born from {2} to {3}; give more --years, or name the {1} with {4} FILE",
    "er zijn geen {1} geboren van {2} tot en met {3}; geef meer --years, of noem de {1} met {4} BESTAND"};
constexpr Wording not_opened = {"{1}: the file of {2} could not be opened",
                                "{1}: het bestand van {2} kon niet geopend worden"};
constexpr Wording no_text = {
    "{1}: one identification a line was expected, in UTF-8 or Windows-1252; this file is neither (UTF-16?)",
    "{1}: per regel werd een identificatie verwacht, in UTF-8 of Windows-1252; dit bestand is dat niet (UTF-16?)"};
constexpr Wording too_many_ids = {"{1}: more than {2} lines; name fewer animals",
                                  "{1}: meer dan {2} regels; noem minder dieren"};
constexpr Wording unreadable = {"{1}: {2}", "{1}: {2}"};
constexpr Wording empty_list = {"{1}: no identification stands in this file", "{1}: in dit bestand staat geen dier"};
constexpr Wording none_usable = {"{1}: none of its animals can be used", "{1}: geen van de dieren is bruikbaar"};
constexpr Wording unknown_id = {"{1}, line {2}: {3}: no animal has this identification; left out",
                                "{1}, regel {2}: {3}: geen dier heeft deze identificatie; weggelaten"};
constexpr Wording is_male = {"{1}, line {2}: {3}: a female was expected, this animal is male; left out",
                             "{1}, regel {2}: {3}: een vrouwelijk dier werd verwacht, dit is mannelijk; weggelaten"};
constexpr Wording is_female = {"{1}, line {2}: {3}: a male was expected, this animal is female; left out",
                               "{1}, regel {2}: {3}: een mannelijk dier werd verwacht, dit is vrouwelijk; weggelaten"};
constexpr Wording is_repeated = {"{1}, line {2}: {3}: stands in line {4} already; taken once",
                                 "{1}, regel {2}: {3}: staat al in regel {4}; eenmaal meegenomen"};
constexpr Wording further_notes = {"{1}: and {2} more of this kind", "{1}: en nog {2} van deze soort"};
constexpr Wording too_many_pairs = {
    "{1} females with {2} males are {3} pairs, and at most {4} are worked out; name fewer animals with --females and "
    "--males, or give fewer --years",
    "{1} vrouwelijke met {2} mannelijke dieren zijn {3} paren; er worden er hoogstens {4} berekend; noem minder dieren "
    "met --females en --males, of geef minder --years"};
constexpr Wording too_many_rows = {
    "the table would have {1} lines, and at most {2} are written; give --best K, or a lower --limit F",
    "de tabel zou {1} regels hebben; er worden er hoogstens {2} geschreven; geef --best K, of een lagere --limit F"};
constexpr Wording counting_pairs = {"working out pairs", "paren berekenen"};
constexpr Wording finding_ancestors = {"common ancestors of pairs", "gemeenschappelijke voorouders van paren"};
constexpr Wording was_stopped = {"stopped; nothing was written", "afgebroken; er is niets geschreven"};
constexpr Wording not_written = {"{1}: {2}; the table was not written", "{1}: {2}; de tabel is niet geschreven"};
constexpr Wording is_no_table = {"there is something of this name that is no file",
                                 "er is al iets met deze naam dat geen bestand is"};
constexpr Wording is_in_use = {"a table of this name would replace a file that this run reads",
                               "een tabel met deze naam zou een bestand vervangen dat hier gelezen wordt"};
constexpr Wording lowest_line = {"lowest F of the offspring: {1} %, {2} x {3}",
                                 "laagste F van de nakomelingen: {1} %, {2} x {3}"};
constexpr Wording highest_line = {"highest F of the offspring: {1} %, {2} x {3}",
                                  "hoogste F van de nakomelingen: {1} %, {2} x {3}"};
constexpr Wording beyond_line = {"F beyond 6.25 % (as of first cousins): {1} of {2} pairs",
                                 "F boven 6.25 % (zoals van neef en nicht): {1} van {2} paren"};
constexpr Wording table_line = {"pairs written to {1}: {2}", "paren geschreven in {1}: {2}"};

constexpr int stands_in_the_way = 1, wrong_arguments = 2;

struct MatingOptions {
  std::string females_file, males_file;
  std::int32_t years = 10;
  std::optional<std::int64_t> best;
  std::optional<double> limit;
  MatingTableForm form = MatingTableForm::tabs;
};

/// A number from 1 to 2147483647; none for any other text.
std::optional<std::int32_t> read_count(std::string_view text) {
  std::int32_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_count = error == std::errc() && stop == text.data() + text.size() && number > 0;
  return is_count ? std::optional(number) : std::nullopt;
}

/// A fraction from 0 to 1, or per cent with the sign; none for any other text.
std::optional<double> read_limit(std::string_view text) {
  const bool is_percent = text.ends_with('%');
  if (is_percent) text.remove_suffix(1);
  const bool has_digit = text.find_first_of("0123456789") != std::string_view::npos;
  const bool has_others = text.find_first_not_of("0123456789.") != std::string_view::npos;
  if (!has_digit || has_others || std::count(text.begin(), text.end(), '.') > 1) return std::nullopt;
  double number = std::strtod(std::string(text).c_str(), nullptr);
  if (is_percent) number /= 100.0;
  return number >= 0.0 && number <= 1.0 ? std::optional(number) : std::nullopt;
}

/// Takes one option; yields what is wrong with it, empty: nothing.
std::string take_option(const GivenOption& given, MatingOptions& options) {
  const auto refusal = [&](std::string_view expected) {
    return std::string(given.name) + " " + in_quotes(given.value) + ": " + std::string(expected) + " was expected";
  };
  if (given.name == "--csv") options.form = MatingTableForm::commas;
  if (given.name == "--females" || given.name == "--males") {
    if (given.value.empty()) return refusal("the name of a file");
    (given.name == "--females" ? options.females_file : options.males_file) = given.value;
  }
  if (given.name == "--years" || given.name == "--best") {
    const std::optional<std::int32_t> count = read_count(given.value);
    if (!count) return refusal("a number from 1 on");
    if (given.name == "--years") {
      options.years = *count;
    } else {
      options.best = *count;
    }
  }
  if (given.name == "--limit") {
    options.limit = read_limit(given.value);
    if (!options.limit) return refusal("an F such as 0.0625 or 6.25%");
  }
  return {};
}

/// Yields what is wrong with the arguments; empty: nothing.
std::string read_options(std::span<const std::string_view> arguments, MatingOptions& options) {
  const CommandLine line = read_command_line(arguments, rules);
  if (!line.problem.empty()) return line.problem;
  if (!line.operands.empty()) return in_quotes(line.operands.front()) + ": an option was expected";
  bool has_years = false;
  for (const GivenOption& given : line.options) {
    std::string problem = take_option(given, options);
    if (!problem.empty()) return problem;
    has_years = has_years || given.name == "--years";
  }
  if (has_years && !options.females_file.empty() && !options.males_file.empty()) {
    return "--years has no meaning when all animals are named with --females and --males";
  }
  return {};
}

void say(TextOutput& output, std::string_view text) {
  append(output, text);
  end_line(output);
}

int refuse(ToolStreams& streams, std::string_view text, int status = stands_in_the_way) {
  erase_progress(streams.progress);
  flush(streams.console);
  say(streams.messages, text);
  return status;
}

/// What the lists and the figures are made of, and where they are told.
struct MatingRun {
  const AnalysedPopulation& population;
  const MatingOptions& options;
  ToolStreams& streams;
  ToolLanguage language;
  bool has_left_out = false;  ///< animals of a list
};

/// The words that differ between the two lists.
struct ListWording {
  Sex sex;
  Wording animals;
  std::string_view option;
};
constexpr ListWording females_list = {female, females_word, "--females"};
constexpr ListWording males_list = {male, males_word, "--males"};

std::string_view without_blanks(std::string_view text) {
  constexpr std::string_view blanks = " \t";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Yields what stands in the way of reading the list; empty: nothing.
std::string read_list(const std::string& name, std::string_view option, ToolLanguage language,
                      std::vector<ListedId>& ids) {
  constexpr std::size_t most_lines = 1'000'000;
  LineReader reader;
  if (!open_for_reading(reader, name)) return phrase(not_opened, language, {in_quotes(name), option});
  std::string_view line;
  while (read_line(reader, line)) {
    if (line.find('\0') != std::string_view::npos || (reader.line_number == 1 && line.starts_with("\xFF\xFE"))) {
      return phrase(no_text, language, {shown(name)});
    }
    const std::string_view id = without_blanks(line);
    if (!id.empty()) ids.push_back({reader.line_number, std::string(id)});
    if (ids.size() > most_lines) return phrase(too_many_ids, language, {shown(name), std::to_string(most_lines)});
  }
  if (reader.error != 0) return phrase(unreadable, language, {shown(name), error_text(reader.error)});
  return ids.empty() ? phrase(empty_list, language, {shown(name)}) : std::string();
}

/// What is said of an animal that was left out or repeated.
std::string note_text(const ListNote& note, const std::string& name, Sex wanted, ToolLanguage language) {
  const Wording& wrong_sex = wanted == female ? is_male : is_female;
  const Wording& wording = note.fault == ListFault::unknown_id  ? unknown_id
                           : note.fault == ListFault::wrong_sex ? wrong_sex
                                                                : is_repeated;
  return phrase(
      wording, language,
      {shown(name), std::to_string(note.line), in_quotes(readable(note.id)), std::to_string(note.first_line)});
}

/// Says what was left out of a list, of each kind of fault the first ones.
void say_notes(MatingRun& run, const CandidateList& list, const std::string& name, Sex wanted) {
  constexpr std::int64_t most_said = 20;
  std::array<std::int64_t, 3> counts = {};
  for (const ListNote& note : list.notes) {
    const std::int64_t count = ++counts[static_cast<std::size_t>(note.fault)];
    if (note.fault != ListFault::repeated) run.has_left_out = true;
    if (count <= most_said) say(run.streams.messages, note_text(note, name, wanted, run.language));
  }
  for (const std::int64_t count : counts) {
    if (count <= most_said) continue;
    say(run.streams.messages, phrase(further_notes, run.language, {shown(name), std::to_string(count - most_said)}));
  }
}

/// The animals of a list; none after a message.
std::vector<std::int32_t> take_listed(MatingRun& run, const ListWording& wording, const std::string& name) {
  std::vector<ListedId> ids;
  const std::string problem = read_list(name, wording.option, run.language, ids);
  if (!problem.empty()) {
    refuse(run.streams, problem);
    return {};
  }
  CandidateList list = candidates_listed(run.population.store, ids, wording.sex);
  say_notes(run, list, name, wording.sex);
  if (list.positions.empty()) {
    refuse(run.streams, phrase(none_usable, run.language, {shown(name)}));
    return {};
  }
  say(run.streams.console,
      phrase(listed_in, run.language,
             {std::to_string(list.positions.size()), words_of(wording.animals, run.language), shown(name)}));
  return list.positions;
}

/// The animals born in the last years; none after a message.
std::vector<std::int32_t> take_born(MatingRun& run, const ListWording& wording) {
  const BirthYears& years = run.population.store.birth_years;
  const std::string_view animals = words_of(wording.animals, run.language);
  if (years.dated_row_count() == 0) {
    refuse(run.streams, phrase(no_birth_years, run.language, {animals, wording.option}));
    return {};
  }
  const std::int64_t first = std::max(std::int64_t{years.last} - run.options.years + 1, std::int64_t{years.first});
  std::vector<std::int32_t> positions =
      candidates_born(run.population.store, static_cast<std::int32_t>(first), years.last, wording.sex);
  const std::string first_text = std::to_string(first), last_text = std::to_string(years.last);
  if (positions.empty()) {
    refuse(run.streams, phrase(none_born, run.language, {animals, first_text, last_text, wording.option}));
  } else {
    say(run.streams.console,
        phrase(born_between, run.language, {std::to_string(positions.size()), animals, first_text, last_text}));
  }
  return positions;
}

std::vector<std::int32_t> take_candidates(MatingRun& run, const ListWording& wording, const std::string& name) {
  return name.empty() ? take_born(run, wording) : take_listed(run, wording, name);
}

std::string percent_text(float f) {
  std::array<char, 32> text{};
  constexpr double least = 0.00005;  // what rounding leaves of 0 has no sign
  const int length = std::snprintf(text.data(), text.size(), "%.2f", double{f} < least ? 0.0 : 100.0 * double{f});
  return {text.data(), static_cast<std::size_t>(length)};
}

void say_summary(const MatingRun& run, const MatingChoice& choice, const std::string& table_name) {
  TextOutput& console = run.streams.console;
  const auto id_of = [&](std::int32_t position) { return shown(readable(run.population.store.id(position))); };
  const auto say_pair = [&](const Wording& wording, const MatingPair& pair) {
    say(console, phrase(wording, run.language, {percent_text(pair.f), id_of(pair.female), id_of(pair.male)}));
  };
  say_pair(lowest_line, choice.lowest);
  say_pair(highest_line, choice.highest);
  say(console, phrase(beyond_line, run.language, {std::to_string(choice.beyond), std::to_string(choice.examined)}));
  say(console, phrase(table_line, run.language, {shown(table_name), std::to_string(choice.pairs.size())}));
}

/// Yields what is too many; empty: nothing.
std::string refuse_size(const MatingPlan& plan, ToolLanguage language) {
  const auto text = [](auto number) { return std::to_string(number); };
  if (pair_count(plan) > most_pairs) {
    return phrase(too_many_pairs, language,
                  {text(plan.females.size()), text(plan.males.size()), text(pair_count(plan)), text(most_pairs)});
  }
  const std::int64_t of_female = static_cast<std::int64_t>(plan.males.size());
  const std::int64_t rows =
      static_cast<std::int64_t>(plan.females.size()) * std::min(of_female, plan.best.value_or(of_female));
  if (rows <= most_rows || plan.limit) return {};
  return phrase(too_many_rows, language, {text(rows), text(most_rows)});
}

std::string table_name(const MatingRun& run) {
  return name_beside_report(run.population.settings,
                            run.options.form == MatingTableForm::tabs ? "_matings.tsv" : "_matings.csv");
}

/// Yields why no table of this name can be written; empty: it can.
std::string refuse_name(const MatingRun& run, const std::string& name) {
  const std::array<std::string, 2> lists = {run.options.females_file, run.options.males_file};
  const NameObstacle obstacle = find_obstacle(name, run.population.settings, lists);
  if (obstacle == NameObstacle::none) return {};
  const Wording& reason = obstacle == NameObstacle::no_file ? is_no_table : is_in_use;
  return phrase(not_written, run.language, {shown(name), words_of(reason, run.language)});
}

/// Works the matings out and writes the table.
int write_plan(MatingRun& run, const MatingPlan& plan) {
  ToolStreams& streams = run.streams;
  const MatingWork work = make_mating_work(run.population.store, candidates_of(plan));
  const MatingWatch watch = {&streams.progress, streams.stop_request};
  begin_progress(streams.progress, words_of(counting_pairs, run.language));
  const MatingChoice choice = choose_matings(work, plan, watch);
  if (choice.is_stopped) return refuse(streams, words_of(was_stopped, run.language));
  const auto rows = static_cast<std::int64_t>(choice.pairs.size());
  if (rows > most_rows) {
    return refuse(streams, phrase(too_many_rows, run.language, {std::to_string(rows), std::to_string(most_rows)}));
  }
  begin_progress(streams.progress, words_of(finding_ancestors, run.language));
  const std::vector<KinshipParts> parts = describe_matings(work, choice.pairs, watch);
  const std::string name = table_name(run);
  FileProblem problem;
  const bool is_written = parts.size() == choice.pairs.size() &&
                          write_matings({work, choice.pairs, parts, run.options.form}, name, watch, problem);
  if (!is_written && problem.name.empty()) return refuse(streams, words_of(was_stopped, run.language));
  if (!is_written) return refuse(streams, phrase(not_written, run.language, {shown(problem.name), problem.reason}));
  erase_progress(streams.progress);
  say_summary(run, choice, name);
  return run.has_left_out ? stands_in_the_way : 0;
}

}  // namespace

std::string_view matings_help() {
  return help;
}

int run_matings(std::span<const std::string_view> arguments, ToolStreams& streams) {
  MatingOptions options;
  const std::string mistake = read_options(arguments, options);
  if (!mistake.empty()) {
    return refuse(streams, "pedigreewatch-tools matings: " + mistake + "\nTry: pedigreewatch-tools matings --help",
                  wrong_arguments);
  }
  const std::optional<AnalysedPopulation> population = analyse_folder(streams);
  if (!population) return stands_in_the_way;
  MatingRun run{*population, options, streams, language_of(population->settings)};
  MatingPlan plan = {{}, {}, options.best, options.limit};
  plan.females = take_candidates(run, females_list, options.females_file);
  if (plan.females.empty()) return stands_in_the_way;
  plan.males = take_candidates(run, males_list, options.males_file);
  if (plan.males.empty()) return stands_in_the_way;
  std::string problem = refuse_size(plan, run.language);
  if (problem.empty()) problem = refuse_name(run, table_name(run));
  return problem.empty() ? write_plan(run, plan) : refuse(streams, problem);
}

}  // namespace pedigreewatch
