// A table of limits, and the reader of a file that changes them.

#include "checks/check_limits.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/fixed_text.h"
#include "text/phrases.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t species_count = 8;

constexpr std::array<CheckLimits, species_count> species_limits = {{
    {210, 423, 8, 14, 110, 110, 15},   // dog
    {170, 300, 12, 15, 80, 80, 10},    // cat
    {400, 600, 20, 15, 210, 273, 3},   // cattle
    {270, 330, 15, 13, 130, 130, 5},   // sheep
    {600, 1000, 25, 30, 300, 300, 2},  // horse
    {130, 150, 10, 10, 0, 0, 0},       // poultry
    {220, 290, 8, 8, 110, 125, 22},    // pig
    {0, 100, 60, 80, 0, 0, 20},        // other
}};

struct LimitName {
  std::string_view name;
  std::int32_t CheckLimits::*limit;
};

constexpr auto limit_names = std::to_array<LimitName>({
    {"youngest_parent_days", &CheckLimits::youngest_parent_days},
    {"young_parent_days", &CheckLimits::young_parent_days},
    {"oldest_dam_years", &CheckLimits::oldest_dam_years},
    {"oldest_sire_years", &CheckLimits::oldest_sire_years},
    {"births_apart_days", &CheckLimits::births_apart_days},
    {"births_apart_look_days", &CheckLimits::births_apart_look_days},
    {"largest_litter", &CheckLimits::largest_litter},
});

/// One line without its comment. Yields false when it makes no sense.
bool read_limit(std::string_view line, CheckLimits& limits) {
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos) return false;
  const std::string_view name = without_blanks(line.substr(0, sign)), value = without_blanks(line.substr(sign + 1));
  const auto* const found =
      std::find_if(limit_names.begin(), limit_names.end(), [&](const LimitName& each) { return each.name == name; });
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  constexpr std::int32_t largest = 1'000'000;
  if (found == limit_names.end() || error != std::errc() || end != value.data() + value.size()) return false;
  if (number < 0 || number > largest) return false;
  limits.*(found->limit) = number;
  return true;
}

}  // namespace

CheckLimits limits_of_species(std::int32_t species_index) {
  const std::size_t row = static_cast<std::size_t>(std::clamp(species_index, 1, 16) - 1);
  return species_limits[row % species_count];
}

std::string read_limits(std::string_view text, std::string_view file_name, CheckLimits& limits) {
  std::int64_t line_number = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = without_blanks(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    ++line_number;
    const std::string_view setting = without_blanks(line.substr(0, line.find('#')));
    if (setting.empty() || read_limit(setting, limits)) continue;
    std::string names;
    for (const LimitName& each : limit_names) names += (names.empty() ? "" : ", ") + std::string(each.name);
    return shown(file_name) + ", line " + std::to_string(line_number) + ": " + in_quotes(line) +
           ": NAME = NUMBER was expected, with a number up to 1000000 and one of the names " + names;
  }
  return {};
}

}  // namespace pedigreewatch
