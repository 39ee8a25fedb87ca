#include "tools/forecast_options.h"

#include <array>
#include <charconv>
#include <limits>
#include <vector>

#include "forecast/rule_reading.h"
#include "text/phrases.h"
#include "tools/folder_command.h"
#include "tools/forecast_command.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help = R"(usage: pedigreewatch-tools forecast [OPTION...]
  Run it in the folder with pedigreewatch.ini. It continues the population, animal by animal, as it was bred in the
  last generation interval and under rules, and writes NAME_forecast.tsv (inbreeding and kinship of the years to
  come, with what 5 and 95 in 100 of the replicates lie below), NAME_forecast_summary.tsv and NAME_forecast.html.

  --years N       years to forecast (25)
  --replicates N  how often each of them is gone through (100)
  --seed N        begins the random numbers: the same number, the same results (1)
  --from YEAR     forgets everything after that year, forecasts up to the last full one, and puts what really
                  happened beside it
  --threads N     processors to work with (all); the results are the same
  --rules FILE    scenarios to compare with the present practice, such as forecast.ini: a name in square brackets,
                  and rules below it, "most-litters-a-year = 5"

  Rules, which may stand on the command line too and then are one scenario more:
  --most-litters-a-year N, --most-litters-in-life N   of a sire at most
  --sires N|+N|-N|P%, --litters N|+N|-N|P%            in a year
  --litters-trend P%                                  more or fewer litters each year
  --most-f F                                          no mating whose young have a higher F
  --most-offspring-matings N                          between two offspring of the same animal, a year
  --kinship-below P%     parents come into use whose mean kinship is below that of P % of their age mates
  --least-age-sires N, --least-age-dams N             at the first litter, in years
  --import-sires N, --import-dams N                   more imports come into use each year
  --import-kinship K                                  of these with each other (0)
  --one-litter-a-dam yes                              in her life
  --plan yes                                          the matings of each year are those of a plan
  --exchange open|closed|rotation                     of sires between subpopulations

  Figures of the practice, in place of what was measured; they go for all scenarios:
  --young-a-litter N, --males P%                      mean number, and share of males
  --litters-without-sire P%, --young-without-parents P%   unknown sires, and young of no known parent
  --sires-from-outside P%, --dams-from-outside P%     of those that come into use
  --sires-of-others P%                                of the litters: the sire is of another subpopulation
  --first-age-sires N, --first-age-dams N             mean age at the first litter, in years
  --years-in-use-sires N, --years-in-use-dams N       mean, from the first litter to the last
  --same-sire-in-year P%, --same-sire-in-life P%      of two litters of a year, or one to three years apart
  --close-matings P%                                  of sibs, half sibs, or parent and offspring

  --plain         write names of scenarios that begin with = + - @ as they are (else: behind an apostrophe)
  --help          shows this text

  Exit status: 0 done, 1 something stands in the way (nothing was written), 2 wrong arguments.
)";

constexpr auto plain_options = std::to_array<OptionRule>(
    {{"--years"}, {"--replicates"}, {"--seed"}, {"--from"}, {"--threads"}, {"--rules"}, {"--plain", false}});

std::optional<std::int64_t> read_whole(std::string_view text, std::int64_t least, std::int64_t most) {
  std::int64_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_number = error == std::errc() && stop == text.data() + text.size();
  return is_number && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

constexpr std::int64_t most_years = 200, most_replicates = 10'000, most_threads = 256;

std::string take_rule_option(const GivenOption& given, ForecastOptions& options) {
  constexpr std::size_t hyphens = 2;
  const std::string_view name = given.name.substr(hyphens);
  const RuleProblem problem = take_rule(name, given.value, is_figure(name) ? options.present : options.rules);
  if (problem.reason.english.empty()) return {};
  return std::string(given.name) + " " + in_quotes(given.value) + ": " + reason_of(problem, ToolLanguage::english);
}

std::string take_option(const GivenOption& given, ForecastOptions& options) {
  if (given.name == "--years") {
    const auto number = read_whole(given.value, 1, most_years);
    if (!number) return wrong_value(given, "a number of years from 1 to 200");
    options.years = static_cast<std::int32_t>(*number);
  } else if (given.name == "--replicates") {
    const auto number = read_whole(given.value, 1, most_replicates);
    if (!number) return wrong_value(given, "a number from 1 to 10000");
    options.settings.replicates = static_cast<std::int32_t>(*number);
  } else if (given.name == "--seed") {
    const auto number = read_whole(given.value, 0, std::numeric_limits<std::int64_t>::max());
    if (!number) return wrong_value(given, "a whole number from 0 on");
    options.settings.seed = static_cast<std::uint64_t>(*number);
  } else if (given.name == "--from") {
    constexpr std::int64_t last_of_years = 999'999;
    const auto number = read_whole(given.value, -last_of_years, last_of_years);
    if (!number) return wrong_value(given, "a year such as 2010");
    options.from = static_cast<std::int32_t>(*number);
  } else if (given.name == "--threads") {
    const auto number = read_whole(given.value, 1, most_threads);
    if (!number) return wrong_value(given, "a number from 1 to 256");
    options.settings.threads = static_cast<std::int32_t>(*number);
  } else if (given.name == "--rules") {
    if (given.value.empty()) return wrong_value(given, "the name of a file");
    options.rules_file = given.value;
  } else if (given.name == "--plain") {
    options.is_plain = true;
  } else {
    return take_rule_option(given, options);
  }
  return {};
}

}  // namespace

std::string_view forecast_help() {
  return help;
}

std::string read_forecast_options(std::span<const std::string_view> arguments, ForecastOptions& options) {
  options.settings.threads = 0;
  std::vector<std::string> names;
  for (const RuleForm& form : rule_forms()) names.push_back("--" + std::string(form.name));
  std::vector<OptionRule> known(plain_options.begin(), plain_options.end());
  for (const std::string& name : names) known.push_back({name});
  options.rules.name = options_scenario;
  return read_options(arguments, known, [&](const GivenOption& given) { return take_option(given, options); });
}

}  // namespace pedigreewatch
