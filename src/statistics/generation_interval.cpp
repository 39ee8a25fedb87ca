// A year without known ages has means of 0; over all years nothing is guarded.

#include "statistics/generation_interval.h"

#include <cstdint>

#include "core/integers.h"
#include "statistics/parent_ages.h"

namespace pedigreewatch {
namespace {

/// The known ages among some. Their sum may pass 32 bits merely because a population is large: it is kept wider.
struct AgeTotal {
  std::int64_t days = 0, count = 0;

  void add(std::int32_t age) {
    if (age == unknown_age) return;
    days += age;
    ++count;
  }
  /// In years; not a number when no age is known.
  float mean() const {
    const float mean_days = quotient(days, count);
    return mean_days / real(days_per_year);
  }
  float mean_or_zero() const { return count > 0 ? mean() : 0.0F; }
};

BySex<AgeTotal> total_ages(const PopulationStore& store, std::span<const std::int32_t> positions) {
  BySex<AgeTotal> totals;
  for (const std::int32_t position : positions) {
    totals.of(male).add(store.sire_age_days[position]);
    totals.of(female).add(store.dam_age_days[position]);
  }
  return totals;
}

float mean_of_parents(float sire_age, float dam_age) {
  constexpr float least_known_age = 0.1F;
  const float known = sire_age > least_known_age && dam_age > least_known_age ? 2.0F : 1.0F;
  return (sire_age + dam_age) / known;
}

}  // namespace

MeanParentAges mean_parent_ages(const PopulationStore& store, YearAnimals animals) {
  const BySex<AgeTotal> totals = total_ages(store, animals);
  const float sires = totals.of(male).mean_or_zero(), dams = totals.of(female).mean_or_zero();
  return {sires, dams, mean_of_parents(sires, dams)};
}

// Unguarded on purpose: a population without any known age shows "NaN" in the report.
GenerationInterval overall_generation_interval(const PopulationStore& store, std::span<const std::int32_t> positions) {
  const BySex<AgeTotal> totals = total_ages(store, positions);
  const float sires = totals.of(male).mean(), dams = totals.of(female).mean();
  return {sires, dams, (sires + dams) * 0.5F};
}

}  // namespace pedigreewatch
