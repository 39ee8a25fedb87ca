// Parents stand before their offspring, so that one pass in store order meets both parents' figures finished.

#include "statistics/completeness.h"

#include <algorithm>

#include "core/by_number.h"
#include "core/integers.h"

namespace pedigreewatch {

void determine_completeness(PopulationStore& store) {
  for (AnimalRecord& animal : store.animals) {
    fetch_later_parents(store, animal);
    animal.generation_equivalents = 0.0F;
    animal.complete_generations = 0;
    if (animal.sire_no != 0) {
      animal.generation_equivalents = 0.5F * store.at(animal.sire_no).generation_equivalents + 0.5F;
    }
    if (animal.dam_no != 0) {
      animal.generation_equivalents =
          animal.generation_equivalents + 0.5F + 0.5F * store.at(animal.dam_no).generation_equivalents;
    }
    if (animal.sire_no != 0 && animal.dam_no != 0) {
      animal.complete_generations =
          1 + std::min(store.at(animal.sire_no).complete_generations, store.at(animal.dam_no).complete_generations);
    }
  }
}

CompletenessRow completeness_of_year(const PopulationStore& store, YearAnimals animals) {
  CompletenessRow row;
  if (animals.empty()) return row;
  constexpr std::int32_t most_generations = static_cast<std::int32_t>(row.generation_shares.size());
  ByNumber<std::int32_t> counts(row.generation_shares.size());
  float sum = 0.0F;
  for (const std::int32_t position : animals) {
    const AnimalRecord& animal = store.at(position);
    sum += animal.generation_equivalents;
    ++counts[std::min(animal.complete_generations, most_generations)];
  }
  const float n = real(std::ssize(animals));
  row.equivalent_generations = sum / n;
  std::int32_t generations = 0;
  for (float& share : row.generation_shares) share = real(counts[++generations]) / n;
  return row;
}

}  // namespace pedigreewatch
