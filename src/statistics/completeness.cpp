#include "statistics/completeness.h"

#include <algorithm>
#include <array>

#include "statistics/monitor_tables.h"

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

void completeness_of_year(const PopulationStore& store, std::span<const std::int32_t> year_animals, std::int64_t row,
                          YearTable<float>& equivalent_generations, YearTable<float>& complete_generation_shares) {
  if (year_animals.empty()) return;
  float sum = 0.0F;
  std::array<std::int32_t, completeness_columns + 1> counts = {};
  for (const std::int32_t position : year_animals) {
    const AnimalRecord& animal = store.at(position);
    sum += animal.generation_equivalents;
    ++counts[static_cast<std::size_t>(std::min(animal.complete_generations, completeness_columns))];
  }
  const float n = static_cast<float>(year_animals.size());
  equivalent_generations.at(row, 1) = sum / n;
  for (std::int32_t k = 1; k <= completeness_columns; ++k) {
    complete_generation_shares.at(row, k) = static_cast<float>(counts[static_cast<std::size_t>(k)]) / n;
  }
}

}  // namespace pedigreewatch
