// Powers above 1 make much used sires be used more yet. Trial herds are of the same random numbers, so that they differ
// by the powers alone.

#include "forecast/model_fit.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "forecast/use_evenness.h"

namespace pedigreewatch {
namespace {

/// Trial herds go on for so many years, in as many replicates as give so many sires in use.
constexpr std::int32_t trial_years = 10;
constexpr double trial_sires = 8000.0, most_trials = 24.0;
/// The powers are looked for between these, in so many steps.
constexpr double least_use_power = 0.5, most_use_power = 2.0, most_life_power = 1.0;
constexpr int steps = 4;

std::vector<SireLitters> litters_of_herd(const ModelHerd& herd) {
  std::vector<SireLitters> groups(static_cast<std::size_t>(herd.basis.records.groups));
  for (const ModelParent& sire : herd.parents.of_males) {
    if (sire.litters > 0) groups[static_cast<std::size_t>(sire.group)][sire.animal] = sire.litters;
  }
  return groups;
}

std::int32_t trials_of(const BasePeriod& base) {
  double sires = 1.0;
  for (const GroupYear& group : base.years.back()) sires += group.in_use.of_males;
  return static_cast<std::int32_t>(std::clamp(trial_sires / (sires * trial_years), 1.0, most_trials));
}

/// Counts the trial years.
struct FitWatch {
  const ForecastProgress& progress;
  std::int64_t all_years = 0;
  std::int64_t done_years = 0;
  bool is_stopped = false;

  bool goes_on() {
    ++done_years;
    if (progress && !progress(done_years, all_years)) is_stopped = true;
    return !is_stopped;
  }
};

/// The evenness of trial herds with the powers that the basis has.
std::optional<UseEvenness> try_herds(const ModelBasis& basis, std::uint64_t seed, AncestorWalk* walk, FitWatch& watch) {
  const BreedingRules present;
  EvennessSums sums;
  for (std::int32_t trial = 0; trial < trials_of(basis.base) && !watch.is_stopped; ++trial) {
    ModelHerd herd = begin_herd(basis, present, seed, -1 - trial, walk);
    UseYears years;
    for (std::int32_t year = 1; year <= trial_years; ++year) {
      if (!watch.goes_on() || !live_year(herd, basis.base.last_year + year)) break;
      years.push_back(litters_of_herd(herd));
    }
    sums.add(years);
    if (walk != nullptr) shorten_walk(*walk, basis.pedigree.count());
  }
  return sums.mean();
}

/// Brings the powers nearer. The logarithms of both chances go up about as fast as the power of the use in a year; that
/// of the use in life moves them apart.
void move_powers(ModelBasis& basis, const UseEvenness& observed, const UseEvenness& tried) {
  constexpr double use_for_life = 0.7;
  const double year_gap = std::log(observed.in_year / tried.in_year);
  const bool has_lives = observed.in_life > 0.0 && tried.in_life > 0.0;
  const double more_life = has_lives ? std::log(observed.in_life / tried.in_life) - year_gap : 0.0;
  basis.life_power = std::clamp(basis.life_power + more_life, -most_life_power, most_life_power);
  basis.use_power = std::clamp(basis.use_power + year_gap - use_for_life * more_life, least_use_power, most_use_power);
}

/// Of the year that the herd has lived last.
std::optional<double> nearness_of_year(const ModelHerd& herd) {
  std::vector<ModelPair> pairs;
  for (std::size_t k = herd.first_of_year; k < herd.families.size(); ++k) {
    const ModelFamily& family = herd.families[k];
    if (family.sire != 0 && family.dam != 0) pairs.push_back({family.sire, family.dam, double{family.f}});
  }
  return measure_nearness(herd.pedigree, pairs);
}

/// How much years differ in herds whose breeders choose mates as they do now: what is seen beyond that may come again.
void fit_nearness(ModelBasis& basis, std::uint64_t seed, AncestorWalk* walk, FitWatch& watch) {
  if (basis.nearness_seen.paths.empty()) return;
  const BreedingRules present;
  const auto base = static_cast<std::size_t>(basis.base.length());
  double squares = 0.0, count = 0.0;
  for (std::int32_t trial = 0; trial < trials_of(basis.base) && !watch.is_stopped; ++trial) {
    ModelHerd herd = begin_herd(basis, present, seed, -1 - trial, walk);
    std::vector<std::optional<double>> years;
    for (std::int32_t year = 1; year <= basis.base.length() + trial_years; ++year) {
      if (!watch.goes_on() || !live_year(herd, basis.base.last_year + year)) break;
      years.push_back(nearness_of_year(herd));
    }
    const std::span<const std::optional<double>> all = years;
    if (all.size() > base) {
      for (const double difference : nearness_behind(all.first(base), all.subspan(base))) {
        squares += difference * difference;
        count += 1.0;
      }
    }
    if (walk != nullptr) shorten_walk(*walk, basis.pedigree.count());
  }
  if (count > 0.0) basis.nearness = beyond_chance(basis.nearness_seen, squares / count);
}

}  // namespace

bool fit_use(ModelBasis& basis, std::uint64_t seed, const ForecastProgress& progress) {
  const auto observed = measure_evenness(basis.records, basis.base.first_alike, basis.base.last_year);
  if (!observed) return true;
  std::unique_ptr<AncestorWalk> walk;
  if (!basis.has_table()) walk = std::make_unique<AncestorWalk>(make_basis_walk(basis));
  FitWatch watch = {progress, std::int64_t{steps} * trials_of(basis.base) * trial_years};
  const std::int64_t years_of_nearness = basis.nearness_seen.paths.empty() ? 0 : basis.base.length() + trial_years;
  watch.all_years += trials_of(basis.base) * years_of_nearness;
  for (int step = 0; step < steps; ++step) {
    const auto tried = try_herds(basis, seed, walk.get(), watch);
    if (watch.is_stopped) return false;
    if (!tried) return true;
    move_powers(basis, *observed, *tried);
  }
  fit_nearness(basis, seed, walk.get(), watch);
  return !watch.is_stopped;
}

}  // namespace pedigreewatch
