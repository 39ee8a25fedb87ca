// Animals and parents of each birth year.
#pragma once

#include <cstdint>

#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// The animals of one sex, by their own year of birth.
template <typename Count>
struct ParentCount {
  Count unused = 0;            ///< no import, and without native offspring
  Count native_parents = 0;    ///< no import, with native offspring
  Count imported_parents = 0;  ///< imports with native offspring; other imports are counted nowhere
};

using ParentCounts = BySex<ParentCount<std::int32_t>>;

/// The sums over all years.
using ReportTotals = BySex<ParentCount<std::int64_t>>;

/// Counts the animals of one year.
ParentCounts parent_year_statistics(const PopulationStore& store, YearAnimals animals);

ReportTotals total_of_years(const YearRows<ParentCounts>& parent_counts);

/// The share, in percent, of the animals born in the first years that became parents. The last four years are left out:
/// their animals have had no time to breed. Not a number without any animal.
BySex<float> shares_of_parents(const YearRows<ParentCounts>& parent_counts, std::int32_t year_count);

}  // namespace pedigreewatch
