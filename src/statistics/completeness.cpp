// Parents stand before their offspring, so that one pass in store order meets both parents' figures finished.

#include "statistics/completeness.h"

#include <algorithm>

#include "core/by_number.h"
#include "core/integers.h"

namespace pedigreewatch {

void determine_completeness(PopulationStore& store) {
  store.generation_equivalents = ByNumber<float>(store.size());
  store.complete_generations = ByNumber<std::uint16_t>(store.size());
  constexpr int most_generations = UINT16_MAX;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    fetch_later_parents(store, i, store.generation_equivalents);
    fetch_later_parents(store, i, store.complete_generations);
    const std::int32_t sire_no = store.sire_no[i], dam_no = store.dam_no[i];
    float& equivalents = store.generation_equivalents[i];
    if (sire_no != 0) equivalents = 0.5F * store.generation_equivalents[sire_no] + 0.5F;
    if (dam_no != 0) equivalents = equivalents + 0.5F + 0.5F * store.generation_equivalents[dam_no];
    if (sire_no == 0 || dam_no == 0) continue;
    const int of_parents = std::min(store.complete_generations[sire_no], store.complete_generations[dam_no]);
    store.complete_generations[i] = static_cast<std::uint16_t>(std::min(of_parents + 1, most_generations));
  }
}

CompletenessRow completeness_of_year(const PopulationStore& store, YearAnimals animals) {
  CompletenessRow row;
  if (animals.empty()) return row;
  constexpr std::int32_t most_generations = static_cast<std::int32_t>(row.generation_shares.size());
  ByNumber<std::int32_t> counts(row.generation_shares.size());
  float sum = 0.0F;
  for (const std::int32_t position : animals) {
    sum += store.generation_equivalents[position];
    ++counts[std::min<std::int32_t>(store.complete_generations[position], most_generations)];
  }
  const float n = real(std::ssize(animals));
  row.equivalent_generations = sum / n;
  std::int32_t generations = 0;
  for (float& share : row.generation_shares) share = real(counts[++generations]) / n;
  return row;
}

}  // namespace pedigreewatch
