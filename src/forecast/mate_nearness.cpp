// Kinships of all sires with all dams of a year come from one pass up and one down the pedigree (Colleau, 2002).

#include "forecast/mate_nearness.h"

#include <algorithm>
#include <cmath>

#include "forecast/number_paths.h"
#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

/// Mean kinship of the sires and dams of these pairs, each as often as it was used. `parents_of` yields the parents of
/// an animal, which have lower numbers, and `f` its F; -1 for 0.
template <typename Parents, typename Inbreeding>
double kinship_at_random(std::span<const ModelPair> pairs, const Parents& parents_of, const Inbreeding& f) {
  std::int32_t last = 0;
  for (const ModelPair& pair : pairs) last = std::max({last, pair.sire, pair.dam});
  ByNumber<double> genes(last);
  for (const ModelPair& pair : pairs) genes[pair.dam] += 1.0;
  for (std::int32_t j = last; j > 0; --j) {
    const auto [sire, dam] = parents_of(j);
    genes[sire] += 0.5 * genes[j];
    genes[dam] += 0.5 * genes[j];
  }
  genes[0] = 0.0;
  for (std::int32_t j = 1; j <= last; ++j) {
    const auto [sire, dam] = parents_of(j);
    const double variance = 0.5 - 0.25 * (f(sire) + f(dam));
    genes[j] = 0.5 * (genes[sire] + genes[dam]) + 0.5 * variance * genes[j];
  }
  double sum = 0.0;
  for (const ModelPair& pair : pairs) sum += genes[pair.sire];
  const auto count = static_cast<double>(pairs.size());
  return sum / (count * count);
}

std::optional<double> nearness_of(std::span<const ModelPair> pairs, double random) {
  const auto count = static_cast<double>(pairs.size());
  double mean = 0.0;
  for (const ModelPair& pair : pairs) mean += pair.f / count;
  return random < 1.0 ? std::optional((mean - random) / (1.0 - random)) : std::nullopt;
}

constexpr std::size_t least_pairs = 2;

/// Takes the straight line through the years away: relationships build up in young pedigrees, and what goes one way
/// only is no change that comes back.
void take_trend_away(std::span<std::optional<double>> years) {
  double count = 0.0, mean = 0.0, middle = 0.0;
  for (std::size_t k = 0; k < years.size(); ++k) {
    if (!years[k]) continue;
    count += 1.0;
    mean += *years[k];
    middle += static_cast<double>(k);
  }
  if (count == 0.0) return;
  mean /= count;
  middle /= count;
  double products = 0.0, squares = 0.0;
  for (std::size_t k = 0; k < years.size(); ++k) {
    if (!years[k]) continue;
    const double distance = static_cast<double>(k) - middle;
    products += distance * (*years[k] - mean);
    squares += distance * distance;
  }
  const double slope = squares > 0.0 ? products / squares : 0.0;
  for (std::size_t k = 0; k < years.size(); ++k) {
    if (years[k]) *years[k] -= slope * (static_cast<double>(k) - middle);
  }
}

}  // namespace

std::optional<double> measure_nearness(const FamilyRecords& records, std::int32_t year) {
  const PopulationStore& store = records.store;
  std::vector<ModelPair> pairs;
  for (const Family& family : records.of_year(year)) {
    if (family.descent() != Descent::known) continue;
    pairs.push_back({family.sire, family.dam, double{store.inbreeding[family.first]}});
  }
  if (pairs.size() < least_pairs) return std::nullopt;
  const auto parents_of = [&](std::int32_t position) { return known_parents(store, position); };
  const auto f = [&](std::int32_t position) { return position == 0 ? -1.0 : double{store.inbreeding[position]}; };
  return nearness_of(pairs, kinship_at_random(pairs, parents_of, f));
}

std::optional<double> measure_nearness(const ModelPedigree& pedigree, std::span<const ModelPair> pairs) {
  if (pairs.size() < least_pairs) return std::nullopt;
  const auto parents_of = [&](std::int32_t j) { return KnownParents{pedigree.sire[j], pedigree.dam[j]}; };
  const auto f = [&](std::int32_t j) { return double{pedigree.f[j]}; };
  return nearness_of(pairs, kinship_at_random(pairs, parents_of, f));
}

NearnessPath nearness_behind(std::span<const std::optional<double>> base,
                             std::span<const std::optional<double>> years) {
  double before = 0.0, count = 0.0;
  for (const std::optional<double>& year : base) {
    before += year.value_or(0.0);
    count += year ? 1.0 : 0.0;
  }
  NearnessPath path;
  if (count == 0.0) return path;
  before /= count;
  for (const std::optional<double>& year : years) path.push_back(year.value_or(before) - before);
  return path;
}

SeenNearness list_nearness_paths(const FamilyRecords& records, std::int32_t base_years) {
  const std::int32_t first = std::max(records.first_year + 2 * base_years, records.last_year - years_of_paths + 1);
  std::vector<std::optional<double>> years;
  SeenNearness seen;
  for (std::int32_t year = first; year <= records.last_year; ++year) {
    years.push_back(measure_nearness(records, year));
    seen.periods += years.back() ? 1.0 / base_years : 0.0;
  }
  take_trend_away(years);
  const std::span<const std::optional<double>> all = years;
  const auto base = static_cast<std::size_t>(base_years), length = static_cast<std::size_t>(years_of_path);
  double differences = 0.0;
  for (std::size_t origin = base; origin + length <= all.size(); ++origin) {
    NearnessPath path = nearness_behind(all.subspan(origin - base, base), all.subspan(origin, length));
    if (path.empty()) continue;
    for (const double difference : path) seen.mean_square += difference * difference;
    differences += static_cast<double>(path.size());
    seen.paths.push_back(std::move(path));
  }
  if (seen.paths.size() < least_paths) return {};
  seen.mean_square /= differences;
  return seen;
}

std::vector<NearnessPath> beyond_chance(const SeenNearness& seen, double by_chance) {
  const double error = std::sqrt(2.0 / std::max(seen.periods, 1.0));
  if (seen.paths.empty() || seen.mean_square <= by_chance * (1.0 + errors_of_nearness * error)) return {};
  const double part = std::sqrt(1.0 - by_chance / seen.mean_square);
  std::vector<NearnessPath> paths = seen.paths;
  for (NearnessPath& path : paths) {
    for (double& difference : path) difference *= part;
  }
  return paths;
}

double follow_nearness(const std::vector<NearnessPath>& paths, std::int32_t year_ahead, RandomStream random) {
  if (paths.empty()) return 0.0;
  for (std::int32_t rest = year_ahead;; rest -= years_of_path) {
    const NearnessPath& path = pick(random, paths);
    const double sign = random.chance(0.5) ? -1.0 : 1.0;
    if (rest <= years_of_path) return sign * path[static_cast<std::size_t>(rest - 1)];
  }
}

}  // namespace pedigreewatch
