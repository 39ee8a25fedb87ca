// Levels are means of as many years as a base period has, so that a year with few births by chance is no change.

#include "forecast/number_paths.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "core/shares.h"

namespace pedigreewatch {
namespace {

struct YearNumbers {
  std::int32_t litters = 0;
  std::vector<std::int32_t> sires;  ///< each once, in order
};

YearNumbers numbers_of(std::span<const Family> families) {
  YearNumbers numbers;
  for (const Family& family : families) {
    if (family.dam != 0) ++numbers.litters;
    if (family.sire != 0) numbers.sires.push_back(family.sire);
  }
  std::sort(numbers.sires.begin(), numbers.sires.end());
  numbers.sires.erase(std::unique(numbers.sires.begin(), numbers.sires.end()), numbers.sires.end());
  return numbers;
}

/// Means of some years.
struct NumberLevel {
  double litters = 0.0, sires = 0.0;  ///< a year

  double sires_per_litter() const { return litters > 0.0 ? sires / litters : 0.0; }
};

NumberLevel level_of_numbers(std::span<const YearNumbers> years) {
  NumberLevel level;
  const auto count = static_cast<double>(years.size());
  for (const YearNumbers& year : years) {
    level.litters += year.litters / count;
    level.sires += static_cast<double>(year.sires.size()) / count;
  }
  return level;
}

double limited(double change) {
  return std::clamp(change, 1.0 / most_change, most_change);
}

/// The path behind a base period. Empty where one of the two has no litters or no sires.
NumberPath path_behind(std::span<const YearNumbers> base, std::span<const YearNumbers> years) {
  const NumberLevel before = level_of_numbers(base);
  NumberPath path;
  for (std::size_t k = 0; k < years.size(); ++k) {
    const std::size_t half = base.size() / 2;
    const std::size_t first = k < half ? 0 : k - half, last = std::min(k + half, years.size() - 1);
    const NumberLevel now = level_of_numbers(years.subspan(first, last - first + 1));
    if (before.sires_per_litter() <= 0.0 || now.sires_per_litter() <= 0.0) return {};
    path.push_back({years[k].litters / before.litters, limited(now.litters / before.litters),
                    limited(now.sires_per_litter() / before.sires_per_litter())});
  }
  return path;
}

std::int32_t count_different_sires(std::span<const YearNumbers> years) {
  std::vector<std::int32_t> sires;
  for (const YearNumbers& year : years) sires.insert(sires.end(), year.sires.begin(), year.sires.end());
  return count_different(std::move(sires));
}

/// Two counts of so many sires differ by chance, which the model herd does by itself: only what they differ by beyond
/// that is a change.
void leave_changes(std::vector<NumberPath>& paths, double sires) {
  double squares = 0.0, count = 0.0;
  for (const NumberPath& path : paths) {
    for (const NumberYear& year : path) {
      squares += std::log(year.sires_per_litter) * std::log(year.sires_per_litter);
      count += 1.0;
    }
  }
  const double by_chance = sires > 0.0 ? 2.0 / sires : 0.0;
  const double part = squares > 0.0 ? std::sqrt(std::max(0.0, 1.0 - by_chance * count / squares)) : 0.0;
  for (NumberPath& path : paths) {
    for (NumberYear& year : path) year.sires_per_litter = std::pow(year.sires_per_litter, part);
  }
}

/// What grew shrinks as much; a year that differed from those around it differs from them as before.
NumberYear turned_round(const NumberYear& year) {
  return {year.litters / (year.litter_level * year.litter_level), 1.0 / year.litter_level, 1.0 / year.sires_per_litter};
}

}  // namespace

std::vector<NumberPath> list_number_paths(const FamilyRecords& records, std::int32_t base_years) {
  // In the first generation of a herdbook parents become known: that is not how their numbers change.
  const std::int32_t first = std::max(records.first_year + base_years, records.last_year - years_of_paths + 1);
  std::vector<YearNumbers> years;
  for (std::int32_t year = first; year <= records.last_year; ++year) years.push_back(numbers_of(records.of_year(year)));
  const auto base = static_cast<std::size_t>(base_years), length = static_cast<std::size_t>(years_of_path);
  const std::span<const YearNumbers> all = years;
  std::vector<NumberPath> paths;
  double sires = 0.0;
  for (std::size_t origin = base; origin + length <= all.size(); ++origin) {
    const auto before = all.subspan(origin - base, base);
    NumberPath path = path_behind(before, all.subspan(origin, length));
    if (path.empty()) continue;
    paths.push_back(std::move(path));
    sires += count_different_sires(before);
  }
  if (paths.size() < least_paths) return {};
  leave_changes(paths, mean_over(sires, paths.size()));
  return paths;
}

NumberYear follow_paths(const std::vector<NumberPath>& paths, std::int32_t year_ahead, RandomStream random) {
  NumberYear reached;
  if (paths.empty()) return reached;
  for (std::int32_t rest = year_ahead;; rest -= years_of_path) {
    const NumberPath& path = pick(random, paths);
    const bool is_turned = random.chance(0.5);
    const auto place = static_cast<std::size_t>(std::min(rest, years_of_path) - 1);
    const NumberYear year = is_turned ? turned_round(path[place]) : path[place];
    const NumberYear before = reached;
    reached.litter_level = limited(before.litter_level * year.litter_level);
    reached.sires_per_litter = limited(before.sires_per_litter * year.sires_per_litter);
    reached.litters = year.litters / year.litter_level * reached.litter_level;
    if (rest <= years_of_path) return reached;
  }
}

}  // namespace pedigreewatch
