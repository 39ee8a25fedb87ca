// An exchange of q matings from i to j changes the mean kinship by 2 q d (k_j - k_i) + q^2 d^2 (K_ii + K_jj - 2 K_ij),
// d being the share of one mating and k the kinships with all parents. The columns K_i come in batches; k follows each
// exchange. Sweeps over all animals in use go on until one of them finds nothing.

#include "planning/mating_numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numeric>

namespace pedigreewatch {
namespace {

/// Smaller gains come from rounding.
constexpr double least_gain = 1e-14;

double share_of_mating(std::int64_t matings) {
  return share_of_sex / static_cast<double>(matings);
}

/// Males that may be left out, or get at least so many.
bool is_optional(const NumberLimits& limits, std::size_t k) {
  return limits.sex[k] == male && limits.least_if_used > 1 && limits.least[k] == 0 && limits.has_own[k] == 0;
}

std::vector<std::size_t> places_of(const NumberLimits& limits, Sex sex) {
  std::vector<std::size_t> places;
  for (std::size_t k = 0; k < limits.sex.size(); ++k) {
    if (limits.sex[k] == sex) places.push_back(k);
  }
  return places;
}

/// What the numbers of a sex can add up to when so many of its optional animals are used, which all have the same
/// limits.
struct SumRange {
  std::int64_t least = 0, most = 0;
};

SumRange sums_with(const NumberLimits& limits, Sex sex, std::int64_t used_optionals) {
  SumRange range;
  for (const std::size_t k : places_of(limits, sex)) {
    if (!is_optional(limits, k)) {
      range.least += limits.least[k];
      range.most += limits.most[k];
    } else if (limits.most[k] >= limits.least_if_used && used_optionals-- > 0) {
      range.least += limits.least_if_used;
      range.most += limits.most[k];
    }
  }
  return range;
}

std::int64_t count_optionals(const NumberLimits& limits, Sex sex) {
  const std::vector<std::size_t> places = places_of(limits, sex);
  return std::count_if(places.begin(), places.end(),
                       [&](std::size_t k) { return is_optional(limits, k) && limits.most[k] >= limits.least_if_used; });
}

/// The smallest number of optional animals that is enough, not below `wanted` where that fits; -1: none fits.
std::int64_t fitting_optionals(const NumberLimits& limits, Sex sex, std::int64_t wanted) {
  const SumRange none = sums_with(limits, sex, 0);
  const std::int64_t count = count_optionals(limits, sex);
  const SumRange all = sums_with(limits, sex, count);
  if (count == 0) return none.least <= limits.matings && limits.matings <= none.most ? 0 : -1;
  const std::int64_t each_least = (all.least - none.least) / count, each_most = (all.most - none.most) / count;
  const auto fits = [&](std::int64_t used) {
    return none.least + used * each_least <= limits.matings && limits.matings <= none.most + used * each_most;
  };
  // Those that fit stand in one row: both bounds rise with the number.
  std::int64_t best = -1;
  for (std::int64_t used = 0; used <= count; ++used) {
    if (fits(used) && (best < 0 || std::abs(used - wanted) < std::abs(best - wanted))) best = used;
  }
  return best;
}

/// Everything that the search for exchanges works on.
struct NumberSearch {
  const CandidateKinship& kinship;
  const NumberLimits& limits;
  const NumberGoal& goal;
  const PlanWatch& watch;
  double unit = 0.0;  ///< the share of one mating
  KinshipScratch scratch;
  MatingNumbers result;
  BySex<std::vector<std::size_t>> places;
  std::vector<double> change, change_kinships;  ///< of an exchange
  std::vector<double> with_itself;              ///< kinships, made exact where an exchange hangs on them
  BySex<double> lowest_slope;                   ///< what the best animals of a sex could at most lower the goal by

  double value(std::size_t k) const { return goal.goal.value.empty() ? 0.0 : goal.goal.value[k]; }
};

/// So many matings go from one animal to another.
struct Exchange {
  std::size_t from = 0, to = 0;
  std::int32_t matings = 0;
  double kinship = 0.0, value = 0.0;  ///< changes of c'Kc and of value'c
  double gain = 0.0;                  ///< above 0: it helps
};

/// What an exchange is worth: see NumberGoal.
double gain_of(const NumberSearch& search, double kinship, double value) {
  const double lowers_goal = search.goal.goal.weight * value - kinship;
  if (!search.goal.most_kinship) return lowers_goal;
  const double room = *search.goal.most_kinship - search.result.mean_kinship;
  if (room < 0.0) return kinship < 0.0 ? -kinship : 0.0;  // first of all back below the bound
  return kinship <= room ? value : 0.0;
}

/// The exchange of so many matings; `column` is that of `from`.
Exchange examine(const NumberSearch& search, std::span<const double> column, const Exchange& asked) {
  Exchange exchange = asked;
  const std::vector<double>& self = search.with_itself;
  const double part = search.unit * exchange.matings;
  const double spread = self[exchange.from] + self[exchange.to] - 2.0 * column[exchange.to];
  const double slope = search.result.kinships[exchange.to] - search.result.kinships[exchange.from];
  exchange.kinship = part * (2.0 * slope + part * spread);
  exchange.value = part * (search.value(exchange.to) - search.value(exchange.from));
  exchange.gain = gain_of(search, exchange.kinship, exchange.value);
  return exchange;
}

/// How many matings may go from an animal at once: one, what a male must have, all.
std::array<std::int32_t, 3> steps_from(const NumberSearch& search, std::size_t from) {
  const std::int32_t number = search.result.numbers[from];
  const std::int32_t least = search.limits.least_if_used;
  if (search.limits.sex[from] != male || least <= 1) return {1, 0, 0};
  return {1, least != number && least > 1 ? least : 0, number > 1 ? number : 0};
}

/// What the goal rises by with each share of an animal, but for its square.
double slope_of(const NumberSearch& search, std::size_t k) {
  return 2.0 * search.result.kinships[k] - search.goal.goal.weight * search.value(k);
}

void find_lowest_slopes(NumberSearch& search) {
  for (const Sex sex : {male, female}) {
    double lowest = INFINITY;
    for (const std::size_t k : search.places.of(sex)) {
      if (search.result.numbers[k] < search.limits.most[k]) lowest = std::min(lowest, slope_of(search, k));
    }
    search.lowest_slope.of(sex) = lowest;
  }
}

/// Whether an exchange from this animal could help: K_ii + K_jj - 2 K_ij is never below 0, so that the slopes tell.
bool may_help(const NumberSearch& search, std::size_t from) {
  return search.goal.most_kinship.has_value() ||
         search.lowest_slope.of(search.limits.sex[from]) < slope_of(search, from);
}

/// The best exchange from one animal; gain 0 where none helps.
Exchange best_exchange(const NumberSearch& search, std::size_t from, std::span<const double> column) {
  Exchange best;
  const std::vector<std::int32_t>& numbers = search.result.numbers;
  for (const std::int32_t step : steps_from(search, from)) {
    if (step == 0 || step > numbers[from] || !is_permitted(search.limits, from, numbers[from] - step)) continue;
    const double own_slope = slope_of(search, from);
    const bool has_bound = search.goal.most_kinship.has_value();
    for (const std::size_t to : search.places.of(search.limits.sex[from])) {
      if (!has_bound && slope_of(search, to) >= own_slope) continue;
      if (to == from || !is_permitted(search.limits, to, numbers[to] + step)) continue;
      const Exchange exchange = examine(search, column, {from, to, step, 0.0, 0.0, 0.0});
      if (exchange.gain > least_gain && exchange.gain > best.gain) best = exchange;
    }
  }
  return best;
}

/// Works the exchange out exactly: F of the report, from which the kinship of an animal with itself comes, has single
/// precision, and what looks like a gain both ways would go on for ever. Yields whether it helps all the same.
bool confirm(NumberSearch& search, std::span<const double> column, Exchange& exchange) {
  const double part = search.unit * exchange.matings;
  std::fill(search.change.begin(), search.change.end(), 0.0);
  search.change[exchange.from] = -part;
  search.change[exchange.to] = part;
  multiply_kinship(search.kinship, search.change, search.change_kinships, search.scratch);
  search.with_itself[exchange.to] = search.change_kinships[exchange.to] / part + column[exchange.to];
  exchange = examine(search, column, exchange);
  return exchange.gain > least_gain;
}

/// Carries out what has just been confirmed.
void carry_out(NumberSearch& search, const Exchange& exchange) {
  for (std::size_t k = 0; k < search.change.size(); ++k) search.result.kinships[k] += search.change_kinships[k];
  search.result.numbers[exchange.from] -= exchange.matings;
  search.result.numbers[exchange.to] += exchange.matings;
  search.result.mean_kinship += exchange.kinship;
  ++search.result.exchanges;
  find_lowest_slopes(search);
}

/// Looks for exchanges from the animals of a batch until none of them has any; yields whether there was one.
bool exchange_from(NumberSearch& search, std::span<const std::int32_t> batch) {
  const std::vector<double> columns = kinship_columns(search.kinship, batch);
  const std::size_t size = search.kinship.candidates();
  bool has_changed = false, goes_on = true;
  while (goes_on && !search.watch.is_stopped()) {
    goes_on = false;
    for (std::size_t k = 0; k < batch.size(); ++k) {
      const auto from = static_cast<std::size_t>(batch[k]);
      if (search.result.numbers[from] == 0 || !may_help(search, from)) continue;
      const std::span<const double> column = std::span(columns).subspan(k * size, size);
      search.with_itself[from] = column[from];
      Exchange best = best_exchange(search, from, column);
      if (best.gain <= least_gain) continue;
      goes_on = true;  // also where it does not stand the test: another one may
      if (!confirm(search, column, best)) continue;
      carry_out(search, best);
      has_changed = true;
    }
  }
  return has_changed;
}

/// Recomputes what exchanges have carried along.
void refresh(NumberSearch& search) {
  std::vector<double> shares(search.result.numbers.size());
  for (std::size_t k = 0; k < shares.size(); ++k) shares[k] = search.unit * search.result.numbers[k];
  multiply_kinship(search.kinship, shares, search.result.kinships, search.scratch);
  search.result.mean_kinship = std::inner_product(shares.begin(), shares.end(), search.result.kinships.begin(), 0.0);
}

/// One look at all animals in use that may give something away; yields whether anything was exchanged.
bool sweep(NumberSearch& search) {
  find_lowest_slopes(search);
  std::vector<std::int32_t> in_use;
  for (std::size_t k = 0; k < search.result.numbers.size(); ++k) {
    const std::int32_t number = search.result.numbers[k];
    if (number > search.limits.least[k] && may_help(search, k)) in_use.push_back(static_cast<std::int32_t>(k));
  }
  bool has_changed = false;
  for (std::size_t first = 0; first < in_use.size() && !search.watch.is_stopped(); first += kinship_lanes) {
    const std::size_t count = std::min(kinship_lanes, in_use.size() - first);
    has_changed = exchange_from(search, std::span(in_use).subspan(first, count)) || has_changed;
  }
  refresh(search);
  return has_changed;
}

/// Optional animals of a sex with a share that is nearer to what they must have than to nothing.
std::int64_t wanted_optionals(const NumberLimits& limits, std::span<const double> shares, Sex sex) {
  const double half = 0.5 * share_of_mating(limits.matings) * limits.least_if_used;
  const std::vector<std::size_t> places = places_of(limits, sex);
  return std::count_if(places.begin(), places.end(),
                       [&](std::size_t k) { return is_optional(limits, k) && shares[k] >= half; });
}

/// Gives every animal of one sex a plain range from its least to its most: of the optional animals so many are used as
/// fit and are nearest to `wanted`, those with the largest shares.
void settle_optionals(const NumberLimits& limits, std::span<const double> shares, Sex sex, std::int64_t wanted,
                      NumberLimits& settled) {
  std::vector<std::size_t> optionals;
  for (const std::size_t k : places_of(limits, sex)) {
    if (is_optional(limits, k)) optionals.push_back(k);
  }
  std::stable_sort(optionals.begin(), optionals.end(),
                   [&](std::size_t a, std::size_t b) { return shares[a] > shares[b]; });
  std::int64_t used = fitting_optionals(limits, sex, wanted);
  for (const std::size_t k : optionals) {
    const bool is_used = limits.most[k] >= limits.least_if_used && used-- > 0;
    settled.least[k] = is_used ? limits.least_if_used : 0;
    settled.most[k] = is_used ? limits.most[k] : 0;
  }
}

/// Rounds the shares of one sex: whole matings first, then one more for those with the largest remainders. The limits
/// are settled.
void round_shares(const NumberLimits& limits, std::span<const double> shares, Sex sex,
                  std::vector<std::int32_t>& numbers) {
  const std::vector<std::int32_t>&least = limits.least, &most = limits.most;
  const std::vector<std::size_t> places = places_of(limits, sex);
  const double scale = 1.0 / share_of_mating(limits.matings);
  std::int64_t left = limits.matings;
  for (const std::size_t k : places) {
    const auto whole = static_cast<std::int32_t>(std::min(std::floor(scale * shares[k]), double{most[k] * 1.0}));
    numbers[k] = std::clamp(whole, least[k], most[k]);
    left -= numbers[k];
  }
  const auto remainder = [&](std::size_t k) { return scale * shares[k] - numbers[k]; };
  while (left != 0) {  // as a rule once
    std::vector<std::size_t> order;
    for (const std::size_t k : places) {
      if (left > 0 ? numbers[k] < most[k] : numbers[k] > least[k]) order.push_back(k);
    }
    if (order.empty()) return;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
      return left > 0 ? remainder(a) > remainder(b) : remainder(a) < remainder(b);
    });
    const std::int64_t step = left > 0 ? 1 : -1;
    for (const std::size_t k : order) {
      if (left == 0) break;
      numbers[k] += static_cast<std::int32_t>(step);
      left -= step;
    }
  }
}

NumberSearch make_number_search(const CandidateKinship& kinship, const NumberLimits& limits, const NumberGoal& goal,
                                const PlanWatch& watch) {
  const std::vector<double> zeros(kinship.candidates(), 0.0);
  NumberSearch search{kinship,
                      limits,
                      goal,
                      watch,
                      share_of_mating(limits.matings),
                      make_kinship_scratch(kinship),
                      {},
                      {},
                      zeros,
                      zeros,
                      kinship.with_itself,
                      {}};
  search.result.numbers.assign(kinship.candidates(), 0);
  search.result.kinships = zeros;
  for (const Sex sex : {male, female}) search.places.of(sex) = places_of(limits, sex);
  return search;
}

/// What numbers are looked for.
struct NumberTask {
  const CandidateKinship& kinship;
  const NumberLimits& limits;
  const NumberGoal& goal;
  std::span<const double> shares;
  const PlanWatch& watch;
};

/// Limits with so many of the optional males, or as near to that as fits.
NumberLimits settle(const NumberTask& task, std::int64_t wanted) {
  NumberLimits settled = task.limits;
  for (const Sex sex : {male, female}) settle_optionals(task.limits, task.shares, sex, wanted, settled);
  settled.least_if_used = 1;
  return settled;
}

/// Exchanges from these shares on, rounded with so many of the optional males.
MatingNumbers numbers_from(const NumberTask& task, std::span<const double> shares, std::int64_t wanted) {
  NumberSearch search = make_number_search(task.kinship, task.limits, task.goal, task.watch);
  const NumberLimits settled = settle(task, wanted);
  for (const Sex sex : {male, female}) round_shares(settled, shares, sex, search.result.numbers);
  refresh(search);
  while (!task.watch.is_stopped() && sweep(search)) {
  }
  search.result.is_stopped = task.watch.is_stopped();
  return std::move(search.result);
}

/// What is to be low.
double goal_of(const NumberTask& task, const MatingNumbers& found) {
  double value = 0.0;
  for (std::size_t k = 0; k < task.goal.goal.value.size(); ++k) {
    value += share_of_mating(task.limits.matings) * found.numbers[k] * task.goal.goal.value[k];
  }
  return found.mean_kinship - task.goal.goal.weight * value;
}

/// How many optional males to use no exchange of two animals finds out: starts with different numbers of them do, each
/// from the best shares with as many.
struct StartSearch {
  const NumberTask& task;
  std::map<std::int64_t, double> tried;  ///< goals by the number of males
  std::int64_t best_used = 0;
  MatingNumbers best;
};

void try_start(StartSearch& search, std::int64_t used) {
  if (search.task.watch.is_stopped() || search.tried.contains(used)) return;
  const NumberLimits settled = settle(search.task, used);
  const Contributions shares =
      best_contributions(search.task.kinship, share_limits_of(settled), search.task.goal.goal, {}, search.task.watch);
  if (search.task.watch.is_stopped()) return;
  MatingNumbers found = numbers_from(search.task, shares.shares, used);
  const double goal = goal_of(search.task, found);
  search.tried.emplace(used, goal);
  if (!search.best.numbers.empty() && goal >= search.tried.at(search.best_used)) return;
  search.best_used = used;
  search.best = std::move(found);
}

/// All numbers of males when they are few; otherwise some, then those around the best of them.
MatingNumbers best_of_starts(const NumberTask& task, std::int64_t wanted) {
  constexpr std::int64_t first_starts = 16;
  const std::int64_t fewest = fitting_optionals(task.limits, male, 0);
  const std::int64_t most = fitting_optionals(task.limits, male, count_optionals(task.limits, male));
  std::int64_t step = std::max<std::int64_t>(1, (most - fewest + first_starts) / first_starts);
  StartSearch search{task, {}, 0, {}};
  try_start(search, std::clamp(wanted, fewest, most));
  for (std::int64_t used = fewest; used <= most; used += step) try_start(search, used);
  while (step > 1) {
    step /= 2;
    const std::int64_t middle = search.best_used;
    try_start(search, std::max(fewest, middle - step));
    try_start(search, std::min(most, middle + step));
  }
  search.best.is_stopped = task.watch.is_stopped();
  if (search.best.is_stopped) search.best.numbers.assign(task.kinship.candidates(), 0);
  return std::move(search.best);
}

}  // namespace

bool is_permitted(const NumberLimits& limits, std::size_t place, std::int32_t number) {
  if (number == 0 && is_optional(limits, place)) return true;
  const std::int32_t least = is_optional(limits, place) ? limits.least_if_used : limits.least[place];
  return number >= least && number <= limits.most[place];
}

NumberObstacle find_number_obstacle(const NumberLimits& limits, Sex sex) {
  if (limits.least_if_used > 1) {
    // What would do without the least of a male fails by it alone.
    NumberLimits without = limits;
    without.least_if_used = 1;
    const NumberObstacle obstacle = find_number_obstacle(without, sex);
    if (obstacle != NumberObstacle::none) return obstacle;
    return fitting_optionals(limits, sex, 0) < 0 ? NumberObstacle::no_sum : NumberObstacle::none;
  }
  const SumRange all = sums_with(limits, sex, count_optionals(limits, sex));
  if (all.most < limits.matings) return NumberObstacle::too_few;
  if (sums_with(limits, sex, 0).least > limits.matings) return NumberObstacle::too_many;
  return fitting_optionals(limits, sex, 0) < 0 ? NumberObstacle::no_sum : NumberObstacle::none;
}

ShareLimits share_limits_of(const NumberLimits& limits) {
  ShareLimits result{limits.sex, {}, {}};
  const double unit = share_of_mating(limits.matings);
  for (std::size_t k = 0; k < limits.sex.size(); ++k) {
    result.least.push_back(unit * limits.least[k]);
    result.most.push_back(unit * static_cast<double>(std::min<std::int64_t>(limits.most[k], limits.matings)));
  }
  return result;
}

MatingNumbers best_numbers(const CandidateKinship& kinship, const NumberLimits& limits, const NumberGoal& goal,
                           std::span<const double> shares, const PlanWatch& watch) {
  const NumberTask task = {kinship, limits, goal, shares, watch};
  const std::int64_t wanted = wanted_optionals(limits, shares, male);
  // Within a bound only what has been found already is improved.
  if (limits.least_if_used <= 1 || goal.most_kinship) return numbers_from(task, shares, wanted);
  return best_of_starts(task, wanted);
}

MatingNumbers examine_numbers(const CandidateKinship& kinship, std::span<const std::int32_t> numbers) {
  NumberLimits limits;
  limits.matings = std::max<std::int64_t>(1, std::accumulate(numbers.begin(), numbers.end(), std::int64_t{0}) / 2);
  const PlanWatch watch;
  const NumberGoal goal;
  NumberSearch search = make_number_search(kinship, limits, goal, watch);
  search.result.numbers.assign(numbers.begin(), numbers.end());
  refresh(search);
  return std::move(search.result);
}

}  // namespace pedigreewatch
