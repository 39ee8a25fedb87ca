// An age is a difference of days in years of 365, so that equal dates are a whole number of years apart. A span beyond
// 32 bits of days wraps round.

#include "statistics/parent_ages.h"

#include <algorithm>
#include <limits>

#include "core/by_number.h"
#include "core/integers.h"
#include "core/line_writer.h"
#include "core/progress.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

constexpr Wording animal_no = {"animal no. ", "dier nr. "};
constexpr Wording age_determined = {"age parents determined", "leeftijd ouders bepaald"};
constexpr Wording oldest_parents = {"oldest parents; ", "oudste ouders; "};

constexpr NumberedArray<std::int32_t, 12> days_before_month = {{0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334}};

std::int64_t day_of_year(const PopulationStore& store, std::int32_t position) {
  return std::int64_t{days_before_month.at(store.birth_month[position])} + store.birth_day(position);
}

std::int32_t age_at_birth(const PopulationStore& store, std::int32_t parent_no, std::int32_t position) {
  const std::int32_t birth_year = store.birth_year[position];
  if (parent_no == 0 || birth_year <= 0) return unknown_age;
  const std::int32_t parents_year = store.birth_year[parent_no];
  if (parents_year == 0) return unknown_age;
  const std::int64_t years = std::int64_t{birth_year} - parents_year;
  return wrapped(days_per_year * years + day_of_year(store, position) - day_of_year(store, parent_no));
}

/// The largest ages found so far; the start value shows in an empty store.
struct LargestAges {
  std::int32_t sire = std::numeric_limits<std::int32_t>::min();
  std::int32_t dam = std::numeric_limits<std::int32_t>::min();

  void look_at(const PopulationStore& store, std::int32_t position) {
    sire = std::max(sire, store.sire_age_days[position]);
    dam = std::max(dam, store.dam_age_days[position]);
  }
  OldestParents in_years() const { return {sire / days_per_year, dam / days_per_year}; }
};

/// Counts an age in its class of 365 days.
void count_age(std::int32_t age_days, Row row, YearTable<std::int32_t>& classes) {
  if (age_days <= days_per_year) return;
  const std::int32_t column = (age_days - 1) / days_per_year;
  if (column <= classes.column_count) ++classes.at(row, column);
}

}  // namespace

OldestParents determine_parent_ages(PopulationStore& store, TextOutput& console) {
  ProgressCounter progress{progress_interval(store.animal_count, 100, 200, 500)};
  LargestAges largest;
  store.sire_age_days = ByNumber<std::int32_t>(store.size());
  store.dam_age_days = ByNumber<std::int32_t>(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (progress.is_due()) write_free_line(console, {animal_no, i - 1, age_determined});
    fetch_later_parents(store, i, store.birth_year);
    fetch_later_parents(store, i, store.birth_month);
    fetch_later_parents(store, i, store.kept.day_of_month);
    store.sire_age_days[i] = age_at_birth(store, store.sire_no[i], i);
    store.dam_age_days[i] = age_at_birth(store, store.dam_no[i], i);
    largest.look_at(store, i);
  }
  const OldestParents oldest = largest.in_years();
  write_free_line(console, {oldest_parents, oldest.of(male), oldest.of(female)});
  return oldest;
}

OldestParents find_oldest_parents(const PopulationStore& store, std::span<const std::int32_t> positions) {
  LargestAges largest;
  for (const std::int32_t position : positions) largest.look_at(store, position);
  return largest.in_years();
}

ParentAgeClasses make_age_classes(const BirthYears& years, const OldestParents& oldest) {
  const auto table_for = [&](Sex sex) {
    return YearTable<std::int32_t>(years.row_count(), std::max(oldest.of(sex), 0));
  };
  return {table_for(male), table_for(female)};
}

void parent_age_statistics(const PopulationStore& store, YearAnimals animals, Row row, ParentAgeClasses& classes) {
  for (const std::int32_t position : animals) {
    count_age(store.sire_age_days[position], row, classes.of(male));
    count_age(store.dam_age_days[position], row, classes.of(female));
  }
}

}  // namespace pedigreewatch
