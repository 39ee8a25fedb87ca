#include "statistics/parent_ages.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <vector>

#include "core/integers.h"
#include "core/line_writer.h"
#include "core/progress.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

constexpr Wording animal_no = {"animal no. ", "dier nr. "};
constexpr Wording age_determined = {"age parents determined", "leeftijd ouders bepaald"};
constexpr Wording oldest_parents = {"oldest parents; ", "oudste ouders; "};

constexpr std::array<std::int32_t, 12> days_before_month = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

std::int64_t day_of_year(const AnimalRecord& animal) {
  return std::int64_t{days_before_month[static_cast<std::size_t>(animal.birth_month) - 1]} + animal.birth_day;
}

std::int32_t age_at_birth(const PopulationStore& store, std::int32_t parent_no, const AnimalRecord& animal) {
  if (parent_no == 0 || animal.birth_year <= 0) return unknown_age;
  const AnimalRecord& parent = store.at(parent_no);
  if (parent.birth_year == 0) return unknown_age;
  const std::int64_t years = std::int64_t{animal.birth_year} - parent.birth_year;
  return wrapped(days_per_year * years + day_of_year(animal) - day_of_year(parent));
}

/// The largest ages found so far; the start value shows in an empty store.
struct LargestAges {
  std::int32_t sire = std::numeric_limits<std::int32_t>::min();
  std::int32_t dam = std::numeric_limits<std::int32_t>::min();

  void look_at(const AnimalRecord& animal) {
    sire = std::max(sire, animal.sire_age_days);
    dam = std::max(dam, animal.dam_age_days);
  }
  OldestParents in_years() const { return {sire / days_per_year, dam / days_per_year}; }
};

// Unguarded on purpose: a population without any known age shows "NaN" in the report.
float mean_in_years(const AgeTotal& total) {
  return total.mean_days() / static_cast<float>(days_per_year);
}

}  // namespace

OldestParents determine_parent_ages(PopulationStore& store, TextOutput& console) {
  ProgressCounter progress{progress_interval(store.animal_count, 100, 200, 500)};
  LargestAges largest;
  std::int32_t position = 0;
  for (AnimalRecord& animal : store.animals) {
    ++position;
    if (progress.is_due()) write_free_line(console, {animal_no, position - 1, age_determined});
    fetch_later_parents(store, animal);
    animal.sire_age_days = age_at_birth(store, animal.sire_no, animal);
    animal.dam_age_days = age_at_birth(store, animal.dam_no, animal);
    largest.look_at(animal);
  }
  const OldestParents oldest = largest.in_years();
  write_free_line(console, {oldest_parents, oldest.sire, oldest.dam});
  return oldest;
}

OldestParents find_oldest_parents(const PopulationStore& store, std::span<const std::int32_t> positions) {
  LargestAges largest;
  for (const std::int32_t position : positions) largest.look_at(store.at(position));
  return largest.in_years();
}

OverallParentAges overall_parent_ages(const PopulationStore& store, std::span<const std::int32_t> positions) {
  AgeTotal sires, dams;
  for (const std::int32_t position : positions) {
    sires.add(store.at(position).sire_age_days);
    dams.add(store.at(position).dam_age_days);
  }
  return {mean_in_years(sires), mean_in_years(dams)};
}

BusiestParents find_busiest_parents(const PopulationStore& store, std::span<const std::int32_t> positions) {
  BusiestParents busiest;
  std::int32_t most_of_sire = -1, most_of_dam = -1;
  for (const std::int32_t position : positions) {
    const AnimalRecord& animal = store.at(position);
    std::int32_t& most = animal.sex == male ? most_of_sire : most_of_dam;
    if (animal.native_offspring_count <= most) continue;
    most = animal.native_offspring_count;
    (animal.sex == male ? busiest.sire : busiest.dam) = position;
  }
  return {std::max(busiest.sire, 1), std::max(busiest.dam, 1)};
}

void turn_days_into_years(YearTable<float>& mean_ages) {
  for (float& age : mean_ages.cells) age /= static_cast<float>(days_per_year);
}

}  // namespace pedigreewatch
