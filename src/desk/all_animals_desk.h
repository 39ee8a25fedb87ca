// All animals of the results as a table: which of them, in which order, and a window of its rows.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// Chooses animals and orders them. `wishes` has lines of NAME=VALUE, all of which may be missing: text (parts of an
/// identification or a name), firstYear, lastYear, sex (male or female), subpopulation (its number), leastF, mostF,
/// leastKinship and mostKinship (in per cent), order (id, name, year, f, kinship, generations or offspring) and
/// isDescending (1). Animals of which a figure is not known fall out where there is a bound for it, and stand last
/// where it is the order. Yields an object: count.
std::string choose_animals(Desk& desk, std::string_view wishes);

/// `count` of the chosen animals from the one at `first` on. Yields an object: rows (those of `add_animal`,
/// meanKinship, generations, offspring, subpopulation).
std::string list_animals(const Desk& desk, std::size_t first, std::size_t count);

}  // namespace pedigreewatch
