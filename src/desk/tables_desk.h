// The tables of the desk: those of `pedigreewatch-tools tables`, as texts with tabs.
#pragma once

#include <string>

#include "desk/desk.h"

namespace pedigreewatch {

/// Empty before a run; that of the subpopulations also where there are fewer than two.
std::string years_table(const Desk& desk);
std::string subpopulations_table(const Desk& desk);
std::string animals_table(const Desk& desk);
std::string diversity_table(const Desk& desk);

}  // namespace pedigreewatch
