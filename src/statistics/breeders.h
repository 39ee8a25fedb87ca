// Animals and parents that the top breeders bred, per birth year.
#pragma once

#include <cstddef>

#include "core/name_list.h"
#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"
#include "statistics/breeder_list.h"
#include "statistics/population_size.h"

namespace pedigreewatch {

/// The top breeders in the order of their columns. A name may stand there more than once.
struct TopBreeders {
  NameList<BreederName{}.bytes.size()> names;
  ByNumber<std::int32_t> top_no;  ///< by the number of a breeder in the store: his first column, 0 for all others
};

/// The top breeders, read from the list in pieces of `width` characters, entries of 20 or slots of 7, and looked up
/// among the breeders of the store.
TopBreeders find_top_breeders(const PopulationStore& store, const BreederList& list, std::size_t width);

/// Fills a row: for each top breeder his animals and those of them that became parents, two columns each; all others in
/// the last two columns. `parents` are the year's counts.
void breeder_statistics(const PopulationStore& store, YearAnimals animals, const TopBreeders& breeders,
                        const ParentCounts& parents, Row row, YearTable<std::int32_t>& top_breeders);

}  // namespace pedigreewatch
