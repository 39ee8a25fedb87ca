// What a board says of its breed, as it types it: the year of a rule, and its own limits.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "standing/standing.h"

namespace pedigreewatch {

/// A year of four digits; nothing for anything else.
std::optional<std::int32_t> read_rule_year(std::string_view text);

/// "5%", "6.25 %", "6,25": a part of 1. Nothing for anything else, and for what is not above 0 and at most 100.
std::optional<double> read_percentage(std::string_view text);

/// Takes --rule-year, --sire-share and --most-f; other options are passed over. Yields what is wrong with the value, in
/// English as all of the command line; empty: nothing.
std::string take_standing_option(std::string_view name, std::string_view value, StandingSettings& settings);

}  // namespace pedigreewatch
