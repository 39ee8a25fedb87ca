// Only native animals with both parents known are counted.

#include "statistics/imports.h"

namespace pedigreewatch {

ImportPairs import_pair_statistics(const PopulationStore& store, YearAnimals animals) {
  ImportPairs pairs;
  for (const std::int32_t position : animals) {
    const AnimalRecord& animal = store.at(position);
    if (animal.is_import || animal.sire_no == 0 || animal.dam_no == 0) continue;
    const bool dam_is_import = store.at(animal.dam_no).is_import;
    if (store.at(animal.sire_no).is_import) {
      ++(dam_is_import ? pairs.both_imported : pairs.sire_imported);
    } else {
      ++(dam_is_import ? pairs.dam_imported : pairs.both_native);
    }
  }
  return pairs;
}

}  // namespace pedigreewatch
