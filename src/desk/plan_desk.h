// The breeding plan of the fifth step: made from three fields, and changed by hand.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// Makes a plan and keeps it. `settings` are lines of name and value: years (born in so many last years; blank: by the
/// ages of parents), matings (blank: as many as litters), mostPerMale, mostPerFemale, leastPerMale, mostF and rate (per
/// cent); and lists, whose lines are divided by the control character 1E: males, females, exclude, numbers, values,
/// forbidden, wished. Yields an object: messages (what stands in the way), candidates, lines, warnings (sentences),
/// headings and ways (the comparison, a list of cells each), count (of matings), meanF.
std::string make_desk_plan(Desk& desk, std::string_view settings);

/// `count` matings from the one at `first` on, females in their order. Yields an object: rows (female, male as animals,
/// f, isFixed).
std::string list_plan(const Desk& desk, std::size_t first, std::size_t count);

/// Changes the plan by hand, by places of matings; F and totals follow. "fix": keeps a mating whatever else changes, or
/// lets go of it again. "forbid": finds other pairs without this one. "swap": two females change males, and both
/// matings are fixed. The answer is that of `make_desk_plan`; with messages nothing has changed.
std::string change_plan(Desk& desk, std::string_view change, std::size_t place, std::size_t other);

/// NAME_plan.tsv, NAME_contributions.tsv and NAME_plan.html of the plan at hand.
std::string plan_table(const Desk& desk);
std::string contributions_table(const Desk& desk);
std::string plan_page(const Desk& desk);

/// The tables as one workbook (.xlsx).
std::string plan_workbook(const Desk& desk);

}  // namespace pedigreewatch
