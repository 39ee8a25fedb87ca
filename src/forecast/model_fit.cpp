// Powers above 1 make much used sires be used more yet. Trial herds are of the same random numbers, so that they differ
// by the powers alone.

#include "forecast/model_fit.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "forecast/said_lives.h"
#include "forecast/use_evenness.h"

namespace pedigreewatch {
namespace {

/// Trial herds go on for so many years, in as many replicates as give so many sires in use.
constexpr std::int32_t trial_years = 10;
constexpr double trial_sires = 8000.0, most_trials = 24.0;
/// The powers are looked for between these, in so many steps.
constexpr double least_use_power = 0.5, most_use_power = 2.0, most_life_power = 1.0;
constexpr int steps = 4;
/// What is said may be far from what is measured: powers go further, in more steps.
constexpr double most_said_use_power = 8.0, most_said_life_power = 4.0;
constexpr int said_steps = 16, life_steps = 3, close_steps = 12;
/// With more than this, hardly any but the nearest, or the least near, of those looked at are taken.
constexpr double most_lean = 4.0;
/// The power of the use in life moves the chance in a year too, by so much.
constexpr double use_for_life = 0.7;

std::vector<SireLitters> litters_of_herd(const ModelHerd& herd) {
  std::vector<SireLitters> groups(herd.basis.records.groups);
  for (const ModelParent& sire : herd.parents.of_males) {
    if (sire.litters > 0) groups[sire.group][sire.animal] = sire.litters;
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

/// A fit and what it is for.
struct Fit {
  ModelBasis& basis;
  const BreedingRules& present;
  std::uint64_t seed = 1;
  AncestorWalk* walk = nullptr;
  FitWatch& watch;
};

/// The evenness of trial herds with the powers that the basis has.
std::optional<UseEvenness> try_herds(const Fit& fit) {
  const auto& [basis, present, seed, walk, watch] = fit;
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
  const double year_gap = std::log(observed.in_year / tried.in_year);
  const bool has_lives = observed.in_life > 0.0 && tried.in_life > 0.0;
  const double more_life = has_lives ? std::log(observed.in_life / tried.in_life) - year_gap : 0.0;
  basis.life_power = std::clamp(basis.life_power + more_life, -most_life_power, most_life_power);
  basis.use_power = std::clamp(basis.use_power + year_gap - use_for_life * more_life, least_use_power, most_use_power);
}

/// The first and the last trial year in which somebody had litters; 0: none.
struct LitterYears {
  std::int32_t first = 0, last = 0;
};

/// Notes the litters of the year that the herd has lived last, by animal of the pedigree.
void note_litters(const ModelHerd& herd, Sex sex, std::int32_t year, ByNumber<LitterYears>& seen) {
  seen.values.resize(static_cast<std::size_t>(herd.pedigree.count()) + 1);
  for (std::size_t k = herd.first_of_year; k < herd.families.size(); ++k) {
    const std::int32_t parent = sex == male ? herd.families[k].sire : herd.families[k].dam;
    if (parent <= herd.basis.pedigree.count()) continue;
    LitterYears& years = seen[parent];
    if (years.first == 0) years.first = year;
    years.last = year;
  }
}

/// Years until those are out of use who come into use in the first trial years.
std::int32_t years_of_lives(double said_years) {
  constexpr double lives_to_wait = 2.5;  // few live so much longer than the mean
  return trial_years + static_cast<std::int32_t>(std::ceil(lives_to_wait * said_years));
}

/// How long those stay in use who come into use in the first trial years, by the litters that they have.
std::optional<double> try_lives(const Fit& fit, Sex sex, double said_years) {
  const std::int32_t years = years_of_lives(said_years);
  double sum = 0.0, count = 0.0;
  for (std::int32_t trial = 0; trial < trials_of(fit.basis.base) && !fit.watch.is_stopped; ++trial) {
    ModelHerd herd = begin_herd(fit.basis, fit.present, fit.seed, -1 - trial, fit.walk);
    ByNumber<LitterYears> seen;
    for (std::int32_t year = 1; year <= years; ++year) {
      if (!fit.watch.goes_on() || !live_year(herd, fit.basis.base.last_year + year)) break;
      note_litters(herd, sex, year, seen);
    }
    for (const LitterYears& of_parent : seen.values) {
      if (of_parent.first == 0 || of_parent.first > trial_years) continue;
      sum += of_parent.last - of_parent.first + 1;
      count += 1.0;
    }
    if (fit.walk != nullptr) shorten_walk(*fit.walk, fit.basis.pedigree.count());
  }
  return count > 0.0 && !fit.watch.is_stopped ? std::optional(sum / count) : std::nullopt;
}

/// Lengths of use as they are said. In a herd some go on longer, for want of others, and some stop: what trial herds
/// come to corrects what is aimed at.
void fit_lives(const Fit& fit, Sex sex, double said_years) {
  const std::vector<std::vector<GroupYear>> measured = fit.basis.base.years;
  double aim = said_years;
  for (int step = 0; step < life_steps; ++step) {
    fit.basis.base.years = measured;
    set_years_in_use(sex, aim, fit.seed, fit.basis);
    if (step + 1 == life_steps) break;
    const std::optional<double> tried = try_lives(fit, sex, said_years);
    if (!tried) return;
    aim = std::max(1.0, aim * said_years / *tried);
  }
}

/// How far a trial was from what is wanted, as logarithms of ratios.
struct EvennessGap {
  double year = 0.0, life = 0.0;

  double size() const { return std::abs(year) + std::abs(life); }
};

EvennessGap gap_of(const UseEvenness& wanted, const UseEvenness& tried) {
  const double year = std::log(wanted.in_year / tried.in_year);
  const bool has_lives = wanted.in_life > 0.0 && tried.in_life > 0.0;
  return {year, has_lives ? std::log(wanted.in_life / tried.in_life) : year};
}

/// What trial herds come to, beside what was wanted of them.
struct ReachedEvenness {
  UseEvenness wanted, reached;
};

/// Moves the powers until trial herds are as even as is said, in smaller steps where a step led away. Where only the
/// chance in a year is said, that in life goes along; where only that in life is, the one in a year stays. None without
/// any use to go by, or when it was told to stop.
std::optional<ReachedEvenness> reach_evenness(const Fit& fit) {
  const SaidFigures& said = fit.present.said;
  double &use = fit.basis.use_power, &life = fit.basis.life_power, size = 1.0;
  const std::optional<UseEvenness> first = try_herds(fit);
  if (!first || fit.watch.is_stopped) return std::nullopt;
  ReachedEvenness best = {{said.same_sire_in_year.value_or(first->in_year), said.same_sire_in_life.value_or(0.0)},
                          *first};
  EvennessGap gap = gap_of(best.wanted, best.reached);
  constexpr double near = 0.005;
  for (int step = 1; step < said_steps && gap.size() > near; ++step) {
    const double best_use = use, best_life = life, more_life = gap.life - gap.year;
    life = std::clamp(life + size * more_life, -most_said_life_power, most_said_life_power);
    use = std::clamp(use + size * (gap.year - use_for_life * more_life), 0.0, most_said_use_power);
    // Both powers are 0 where all are used alike.
    if (!said.same_sire_in_life && use < best_use) life *= use / best_use;
    const std::optional<UseEvenness> tried = try_herds(fit);
    if (!tried || fit.watch.is_stopped) return std::nullopt;
    const EvennessGap next = gap_of(best.wanted, *tried);
    if (next.size() < gap.size()) {
      gap = next;
      best.reached = *tried;
    } else {
      use = best_use;
      life = best_life;
      size *= 0.5;
    }
  }
  return best;
}

/// Whether the young of two parents would be those of sibs, half sibs, or parent and offspring.
bool is_close(const ModelHerd& herd, const ModelFamily& family) {
  const ModelPedigree& pedigree = herd.pedigree;
  const auto is_parent_of = [&](std::int32_t parent, std::int32_t of) {
    return parent != 0 && parent != herd.basis.origin && (pedigree.sire[of] == parent || pedigree.dam[of] == parent);
  };
  return is_parent_of(family.sire, family.dam) || is_parent_of(family.dam, family.sire) ||
         is_parent_of(pedigree.sire[family.sire], family.dam) || is_parent_of(pedigree.dam[family.sire], family.dam);
}

/// The share of close matings in trial herds, among those with known parents; none where there are none.
std::optional<double> try_close_matings(const Fit& fit) {
  double close = 0.0, all = 0.0;
  for (std::int32_t trial = 0; trial < trials_of(fit.basis.base) && !fit.watch.is_stopped; ++trial) {
    ModelHerd herd = begin_herd(fit.basis, fit.present, fit.seed, -1 - trial, fit.walk);
    for (std::int32_t year = 1; year <= trial_years; ++year) {
      if (!fit.watch.goes_on() || !live_year(herd, fit.basis.base.last_year + year)) break;
      for (std::size_t k = herd.first_of_year; k < herd.families.size(); ++k) {
        if (herd.families[k].sire == 0 || herd.families[k].dam == 0) continue;
        all += 1.0;
        if (is_close(herd, herd.families[k])) close += 1.0;
      }
    }
    if (fit.walk != nullptr) shorten_walk(*fit.walk, fit.basis.pedigree.count());
  }
  return all > 0.0 && !fit.watch.is_stopped ? std::optional(close / all) : std::nullopt;
}

/// The ranks of mates, with nearer ones by so much more often than the one below each.
MateRanks leaning(const MateRanks& ranks, double lean) {
  MateRanks leant = {};
  double sum = 0.0;
  for (std::size_t rank = 0; rank < looked_at; ++rank) {
    leant[rank] = ranks[rank] * std::exp(lean * static_cast<double>(rank));
    sum += leant[rank];
  }
  for (double& share : leant) share /= sum;
  return leant;
}

/// Leans the ranks of mates until trial herds have so many close matings. Yields what they come to.
std::optional<double> reach_close_matings(const Fit& fit, double wanted) {
  const MateRanks measured = fit.basis.mate_ranks;
  double low = -most_lean, high = most_lean;
  std::optional<double> tried;
  for (int step = 0; step < close_steps; ++step) {
    const double middle = 0.5 * (low + high);
    fit.basis.mate_ranks = leaning(measured, middle);
    tried = try_close_matings(fit);
    if (!tried) return std::nullopt;
    (*tried < wanted ? low : high) = middle;
  }
  return tried;
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

/// Years of the herds that are tried for what is said, at most.
std::int64_t years_of_said_fit(const SaidFigures& said, std::int32_t trials) {
  std::int64_t years = said.same_sire_in_year || said.same_sire_in_life ? std::int64_t{said_steps} * trial_years : 0;
  if (said.close_matings) years += std::int64_t{close_steps} * trial_years;
  for (const Sex sex : {male, female}) {
    if (said.years_in_use.of(sex)) years += std::int64_t{life_steps - 1} * years_of_lives(*said.years_in_use.of(sex));
  }
  return years * trials;
}

}  // namespace

bool fit_use(ModelBasis& basis, std::uint64_t seed, const ForecastProgress& progress) {
  const auto observed = measure_evenness(basis.records, basis.base.first_alike, basis.base.last_year);
  if (!observed) return true;
  std::unique_ptr<AncestorWalk> walk;
  if (!basis.has_table()) walk = std::make_unique<AncestorWalk>(make_basis_walk(basis));
  FitWatch watch = {progress, std::int64_t{steps} * trials_of(basis.base) * trial_years};
  const BreedingRules present;
  const Fit fit = {basis, present, seed, walk.get(), watch};
  const std::int64_t years_of_nearness = basis.nearness_seen.paths.empty() ? 0 : basis.base.length() + trial_years;
  watch.all_years += trials_of(basis.base) * years_of_nearness;
  for (int step = 0; step < steps; ++step) {
    const auto tried = try_herds(fit);
    if (watch.is_stopped) return false;
    if (!tried) return true;
    move_powers(basis, *observed, *tried);
  }
  fit_nearness(basis, seed, walk.get(), watch);
  return !watch.is_stopped;
}

SaidFit fit_as_said(ModelBasis& basis, const BreedingRules& present, std::uint64_t seed,
                    const ForecastProgress& progress) {
  const SaidFigures& said = present.said;
  const bool has_lives = said.years_in_use.of_males || said.years_in_use.of_females;
  const bool has_evenness = said.same_sire_in_year || said.same_sire_in_life;
  SaidFit result;
  if (!has_lives && !has_evenness && !said.close_matings) return result;
  std::unique_ptr<AncestorWalk> walk;
  if (!has_table(basis, present, trial_years)) walk = std::make_unique<AncestorWalk>(make_basis_walk(basis));
  FitWatch watch = {progress, years_of_said_fit(said, trials_of(basis.base))};
  const Fit fit = {basis, present, seed, walk.get(), watch};
  for (const Sex sex : {male, female}) {
    if (said.years_in_use.of(sex)) fit_lives(fit, sex, *said.years_in_use.of(sex));
  }
  const std::optional<ReachedEvenness> fitted = has_evenness ? reach_evenness(fit) : std::nullopt;
  const auto close = said.close_matings ? reach_close_matings(fit, *said.close_matings) : std::nullopt;
  result.is_stopped = watch.is_stopped;
  const auto check = [&](bool is_said, std::string_view name, double wanted, double reached) {
    if (!is_said || std::abs(reached - wanted) <= said_evenness_reached * wanted) return;
    result.problems.push_back(out_of_reach(present, name, reached));
  };
  if (fitted) {
    const auto& [wanted, reached] = *fitted;
    check(said.same_sire_in_year.has_value(), "same-sire-in-year", wanted.in_year, reached.in_year);
    check(said.same_sire_in_life.has_value(), "same-sire-in-life", wanted.in_life, reached.in_life);
  }
  if (close) check(true, "close-matings", *said.close_matings, *close);
  return result;
}

}  // namespace pedigreewatch
