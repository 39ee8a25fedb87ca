// Animals and parents that the top breeders bred, per birth year.
#pragma once

#include "core/name_list.h"
#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"
#include "statistics/population_size.h"

namespace pedigreewatch {

using TopBreeders = NameList<BreederName{}.bytes.size()>;

/// Fills a row: for each top breeder his animals and those of them that became parents, two columns each; all others in
/// the last two columns. `parents` are the year's counts.
void breeder_statistics(const PopulationStore& store, YearAnimals animals, const TopBreeders& breeders,
                        const ParentCounts& parents, Row row, YearTable<std::int32_t>& top_breeders);

}  // namespace pedigreewatch
