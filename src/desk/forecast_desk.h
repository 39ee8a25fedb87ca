// The forecast of the fifth step: the present practice beside rules that are typed, made replicate by replicate.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// Yields an object: fields, each an object with name, label and choices (value and text; none: something is typed):
/// one for each rule, then a heading, which has no name, then one for each figure of the practice.
std::string forecast_fields(const Desk& desk);

/// Measures the practice and begins a forecast. `settings` are lines of name and value: years, rules and figures
/// of the practice by the names of the file of rules (blank: no such rule, as measured). Yields an object: messages
/// (what stands in the way), replicates (wanted).
std::string begin_desk_forecast(Desk& desk, std::string_view settings);

/// Makes replicates for so long, one at least. Yields an object: messages, done (replicates so far), replicates, html
/// (sentences and charts of what there is).
std::string grow_desk_forecast(Desk& desk, std::int32_t milliseconds);

/// NAME_forecast.tsv and NAME_forecast.html of the replicates so far.
std::string forecast_table(const Desk& desk);
std::string forecast_page(const Desk& desk);

}  // namespace pedigreewatch
