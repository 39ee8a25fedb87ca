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
std::string cohorts_table(const Desk& desk);
std::string kinship_table(const Desk& desk);
std::string most_inbred_table(const Desk& desk);
std::string used_sires_table(const Desk& desk);
std::string division_table(const Desk& desk);  ///< empty with fewer than two subpopulations

/// Drops the founders' genes when it is asked for.
std::string founders_table(const Desk& desk);

/// All of these tables but the founders as one workbook (.xlsx); empty before a run.
std::string tables_workbook(const Desk& desk);

}  // namespace pedigreewatch
