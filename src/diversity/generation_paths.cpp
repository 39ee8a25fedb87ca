// One pass tells whether birthdays on the first of January are dates, one over the parents' numbers who was used as
// what; a third one adds up the ages.

#include "diversity/generation_paths.h"

#include "checks/calendar.h"

namespace pedigreewatch {
namespace {

/// A year alone is read as the first of January. Where more animals have that birthday than chance and a season of
/// births give, it stands for a year.
bool is_new_year_a_date(const PopulationStore& store) {
  std::int64_t dated = 0, on_new_year = 0;
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (store.birth_year[position] == 0) continue;
    ++dated;
    if (store.birth_month[position] == 1 && store.birth_day(position) == 1) ++on_new_year;
  }
  constexpr std::int64_t one_in = 50;
  return on_new_year * one_in <= dated;
}

struct Births {
  const PopulationStore& store;
  bool is_new_year_a_date = true;

  /// A date of which the day was not given has day 0.
  bool is_full_date(std::int32_t position) const {
    const std::int32_t day = store.birth_day(position);
    return day > 1 || (day == 1 && (is_new_year_a_date || store.birth_month[position] > 1));
  }
  std::int64_t day_of(std::int32_t position) const {
    return day_number({store.birth_year[position], store.birth_month[position], store.birth_day(position)});
  }
};

double years_between(const Births& births, std::int32_t parent, std::int32_t young) {
  constexpr double days_per_mean_year = 365.25;
  if (births.is_full_date(parent) && births.is_full_date(young)) {
    return static_cast<double>(births.day_of(young) - births.day_of(parent)) / days_per_mean_year;
  }
  return static_cast<double>(std::int64_t{births.store.birth_year[young]} - births.store.birth_year[parent]);
}

/// Adds the age of a parent; `mean_years` has the sum as long as the pass goes on.
void add_interval(const Births& births, std::int32_t parent, std::int32_t young, PathInterval& path) {
  if (parent == 0 || births.store.birth_year[parent] == 0) return;
  const double years = years_between(births, parent, young);
  ++path.count;
  if (years <= 0.0) ++path.not_positive;
  path.mean_years = path.mean_years.value_or(0.0) + years;
}

PathInterval& path_of(GenerationPaths& result, Path path) {
  return result.paths[static_cast<std::size_t>(path)];
}

/// Makes means of the sums.
void complete_means(GenerationPaths& result) {
  for (PathInterval& path : result.paths) {
    if (path.count == 0) continue;
    result.all.count += path.count;
    result.all.not_positive += path.not_positive;
    result.all.mean_years = result.all.mean_years.value_or(0.0) + *path.mean_years;
    *path.mean_years /= static_cast<double>(path.count);
  }
  if (result.all.count > 0) *result.all.mean_years /= static_cast<double>(result.all.count);
}

}  // namespace

BySex<ByNumber<Flag>> mark_uses(const PopulationStore& store) {
  BySex<ByNumber<Flag>> uses{ByNumber<Flag>(store.size()), ByNumber<Flag>(store.size())};
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    uses.of_males[store.sire_no[position]] = 1;
    uses.of_females[store.dam_no[position]] = 1;
  }
  return uses;
}

GenerationPaths compute_generation_paths(const PopulationStore& store) {
  const BySex<ByNumber<Flag>> uses = mark_uses(store);
  const Births births{store, is_new_year_a_date(store)};
  GenerationPaths result;
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    const bool is_sire = uses.of_males[position] != 0, is_dam = uses.of_females[position] != 0;
    if ((!is_sire && !is_dam) || store.birth_year[position] == 0) continue;
    const bool is_son = is_sire && (!is_dam || store.sex[position] == male);
    add_interval(births, store.sire_no[position], position,
                 path_of(result, is_son ? Path::sire_son : Path::sire_daughter));
    add_interval(births, store.dam_no[position], position,
                 path_of(result, is_son ? Path::dam_son : Path::dam_daughter));
  }
  complete_means(result);
  return result;
}

std::optional<double> mean_of_paths(const GenerationPaths& paths) {
  double sum = 0.0;
  int count = 0;
  for (const PathInterval& path : paths.paths) {
    if (!path.mean_years) continue;
    sum += *path.mean_years;
    ++count;
  }
  if (count == 0) return std::nullopt;
  return sum / count;
}

}  // namespace pedigreewatch
