// Only native animals with both parents known are counted.

#include "statistics/imports.h"

namespace pedigreewatch {

ImportPairs import_pair_statistics(const PopulationStore& store, YearAnimals animals) {
  ImportPairs pairs;
  for (const std::int32_t position : animals) {
    const std::int32_t sire_no = store.sire_no[position], dam_no = store.dam_no[position];
    if (store.is_import[position] != 0 || sire_no == 0 || dam_no == 0) continue;
    const bool dam_is_import = store.is_import[dam_no] != 0;
    if (store.is_import[sire_no] != 0) {
      ++(dam_is_import ? pairs.both_imported : pairs.sire_imported);
    } else {
      ++(dam_is_import ? pairs.dam_imported : pairs.both_native);
    }
  }
  return pairs;
}

}  // namespace pedigreewatch
