// Only animals with native offspring are described; the others are no parents, whatever the mean would be with them.

#include "statistics/offspring.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/integers.h"

namespace pedigreewatch {
namespace {

/// Mean, standard deviation and maximum, in single precision.
OffspringMoments describe_counts(std::span<const std::int32_t> counts) {
  if (counts.empty()) return {};
  std::int64_t sum = 0;
  for (const std::int32_t count : counts) sum += count;
  const float size = real(std::ssize(counts));
  const float mean = real(sum) / size;
  float squares = 0.0F;
  for (const std::int32_t count : counts) {
    const float deviation = real(count) - mean;
    squares += deviation * deviation;
  }
  return {.mean = mean,
          .deviation = counts.size() < 2 ? 0.0F : std::sqrt(squares / (size - 1.0F)),
          .maximum = real(*std::max_element(counts.begin(), counts.end()))};
}

}  // namespace

ParentOffspring offspring_year_statistics(const PopulationStore& store, YearAnimals animals) {
  BySex<std::vector<std::int32_t>> counts;
  for (const std::int32_t position : animals) {
    const std::int32_t offspring = store.native_offspring_count[position];
    if (offspring != 0) counts.of(store.sex[position]).push_back(offspring);
  }
  return {describe_counts(counts.of(male)), describe_counts(counts.of(female))};
}

BusiestParents find_busiest_parents(const PopulationStore& store, std::span<const std::int32_t> positions) {
  BusiestParents busiest;
  BySex<std::int32_t> most{-1, -1};
  for (const std::int32_t position : positions) {
    const Sex sex = store.sex[position];
    if (store.native_offspring_count[position] <= most.of(sex)) continue;
    most.of(sex) = store.native_offspring_count[position];
    busiest.of(sex) = position;
  }
  return {std::max(busiest.of(male), 1), std::max(busiest.of(female), 1)};
}

}  // namespace pedigreewatch
