#include "tools/forecast_options.h"

#include <array>
#include <charconv>
#include <limits>

#include "text/phrases.h"
#include "tools/folder_command.h"
#include "tools/forecast_command.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help =
    "usage: pedigreewatch-tools forecast [OPTION...]\n"
    "  Run it in the folder with pedigreewatch.ini. It continues the population, animal by animal, as it was bred in the\n"
    "  last generation interval, and writes NAME_forecast.tsv: inbreeding and kinship of the years to come, with what 5\n"
    "  and 95 in 100 of the replicates lie below.\n"
    "\n"
    "  --years N       years to forecast (25)\n"
    "  --replicates N  how often each of them is gone through (100)\n"
    "  --seed N        begins the random numbers: the same number, the same results (1)\n"
    "  --from YEAR     forgets everything after that year, and forecasts up to the last full one\n"
    "  --threads N     processors to work with (all); the results are the same\n"
    "  --help          shows this text\n"
    "\n"
    "  Exit status: 0 done, 1 something stands in the way (nothing was written), 2 wrong arguments.\n";

constexpr auto rules =
    std::to_array<OptionRule>({{"--years"}, {"--replicates"}, {"--seed"}, {"--from"}, {"--threads"}});

std::optional<std::int64_t> read_whole(std::string_view text, std::int64_t least, std::int64_t most) {
  std::int64_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_number = error == std::errc() && stop == text.data() + text.size();
  return is_number && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

constexpr std::int64_t most_years = 200, most_replicates = 10'000, most_threads = 256;

std::string refusal(const GivenOption& given, std::string_view expected) {
  return std::string(given.name) + " " + in_quotes(given.value) + ": " + std::string(expected) + " was expected";
}

std::string take_option(const GivenOption& given, ForecastOptions& options) {
  if (given.name == "--years") {
    const auto number = read_whole(given.value, 1, most_years);
    if (!number) return refusal(given, "a number of years from 1 to 200");
    options.years = static_cast<std::int32_t>(*number);
  } else if (given.name == "--replicates") {
    const auto number = read_whole(given.value, 1, most_replicates);
    if (!number) return refusal(given, "a number from 1 to 10000");
    options.settings.replicates = static_cast<std::int32_t>(*number);
  } else if (given.name == "--seed") {
    const auto number = read_whole(given.value, 0, std::numeric_limits<std::int64_t>::max());
    if (!number) return refusal(given, "a whole number from 0 on");
    options.settings.seed = static_cast<std::uint64_t>(*number);
  } else if (given.name == "--from") {
    constexpr std::int64_t last_of_years = 999'999;
    const auto number = read_whole(given.value, -last_of_years, last_of_years);
    if (!number) return refusal(given, "a year such as 2010");
    options.from = static_cast<std::int32_t>(*number);
  } else if (given.name == "--threads") {
    const auto number = read_whole(given.value, 1, most_threads);
    if (!number) return refusal(given, "a number from 1 to 256");
    options.settings.threads = static_cast<std::int32_t>(*number);
  }
  return {};
}

}  // namespace

std::string_view forecast_help() {
  return help;
}

std::string read_forecast_options(std::span<const std::string_view> arguments, ForecastOptions& options) {
  options.settings.threads = 0;
  return read_options(arguments, rules, [&](const GivenOption& given) { return take_option(given, options); });
}

}  // namespace pedigreewatch
