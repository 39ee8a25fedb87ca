// Native animals by the origin of their parents.
#pragma once

#include <cstdint>

#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// Native animals of one year with two known parents.
struct ImportPairs {
  std::int32_t both_native = 0, sire_imported = 0, dam_imported = 0, both_imported = 0;
};

ImportPairs import_pair_statistics(const PopulationStore& store, YearAnimals animals);

}  // namespace pedigreewatch
