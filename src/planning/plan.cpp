// The table of contents of a plan: shares, numbers, pairs, comparisons.

#include "planning/plan.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_map>

#include "diversity/generation_paths.h"

namespace pedigreewatch {
namespace {

constexpr std::array<Sex, 2> both_sexes = {male, female};

double inner(std::span<const double> a, std::span<const double> b) {
  return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
}

std::unordered_map<std::int32_t, std::size_t> places_of_positions(const PlanRequest& request) {
  std::unordered_map<std::int32_t, std::size_t> place_of;
  const std::vector<std::int32_t> candidates = candidates_of(request);
  for (std::size_t k = 0; k < candidates.size(); ++k) place_of.emplace(candidates[k], k);
  return place_of;
}

/// Everything that the steps of a plan share.
struct Planning {
  const PopulationStore& store;
  const PlanRequest& request;
  const PlanWatch& watch;
  CandidateKinship kinship;
  NumberLimits numbers;
  KinshipScratch scratch;
};

/// K c of shares.
std::vector<double> kinships_of(const CandidateKinship& kinship, std::span<const double> shares,
                                KinshipScratch& scratch) {
  std::vector<double> product(shares.size());
  multiply_kinship(kinship, shares, product, scratch);
  return product;
}

/// Mean kinship and use of some parents, and F if they are paired at random.
PlanComparison compare_shares(const CandidateKinship& kinship, std::span<const Sex> sex,
                              std::span<const double> shares) {
  constexpr double least_share = 1e-9;  // less comes from rounding
  PlanComparison result;
  std::vector<double> of_males(shares.begin(), shares.end());
  double of_females_kinship = 0.0;
  for (std::size_t k = 0; k < shares.size(); ++k) {
    if (sex[k] != male) of_males[k] = 0.0;
    if (shares[k] > least_share) ++(sex[k] == male ? result.males : result.females);
    if (sex[k] == male) result.top_male = std::max(result.top_male, shares[k] / share_of_sex);
  }
  KinshipScratch scratch = make_kinship_scratch(kinship);
  const std::vector<double> with_all = kinships_of(kinship, shares, scratch);
  const std::vector<double> with_males = kinships_of(kinship, of_males, scratch);
  for (std::size_t k = 0; k < shares.size(); ++k) {
    if (sex[k] != male) of_females_kinship += shares[k] * with_males[k];
  }
  result.mean_kinship = inner(shares, with_all);
  result.mean_f = of_females_kinship / (share_of_sex * share_of_sex);
  return result;
}

std::vector<double> equal_shares(std::span<const Sex> sex) {
  BySex<std::int64_t> counts;
  for (const Sex one : sex) ++counts.of(one);
  std::vector<double> shares;
  for (const Sex one : sex) shares.push_back(share_of_sex / static_cast<double>(counts.of(one)));
  return shares;
}

std::vector<double> shares_of_numbers(std::span<const std::int32_t> numbers, std::int64_t matings) {
  std::vector<double> shares;
  for (const std::int32_t number : numbers) {
    shares.push_back(share_of_sex * static_cast<double>(number) / static_cast<double>(matings));
  }
  return shares;
}

/// Values by place; one that is missing is the mean of its sex, or of all.
std::vector<double> complete_values(const PlanRequest& request, std::span<const Sex> sex) {
  BySex<double> sums, counts;
  for (std::size_t k = 0; k < request.values.size(); ++k) {
    if (!request.values[k]) continue;
    sums.of(sex[k]) += *request.values[k];
    counts.of(sex[k]) += 1.0;
  }
  const double all = counts.of_males + counts.of_females;
  const double mean_of_all = all > 0.0 ? (sums.of_males + sums.of_females) / all : 0.0;
  std::vector<double> values;
  for (std::size_t k = 0; k < request.values.size(); ++k) {
    const double count = counts.of(sex[k]);
    values.push_back(request.values[k].value_or(count > 0.0 ? sums.of(sex[k]) / count : mean_of_all));
  }
  return values;
}

/// The years of a generation, at least one.
std::int32_t generation_years(const PopulationStore& store) {
  constexpr double longest = 100.0;
  const double years = compute_generation_paths(store).all.mean_years.value_or(1.0);
  return static_cast<std::int32_t>(std::ceil(std::clamp(years, 1.0, longest)));
}

std::optional<PlanComparison> compare_parents(const PopulationStore& store, const ParentsUsed& use) {
  if (use.offspring == 0) return std::nullopt;
  PlanComparison result = compare_shares(make_candidate_kinship(store, use.positions), use.sex, use.shares);
  result.mean_f = use.mean_f;
  return result;
}

/// The bound of the mean kinship that the rate means.
void set_bound(const Planning& work, Plan& plan) {
  const std::int32_t last = last_full_year(work.store).value_or(work.store.birth_years.last);
  plan.interval_years = generation_years(work.store);
  const std::int64_t first = std::int64_t{last} - plan.interval_years + 1;
  const auto parents = compare_parents(
      work.store, parents_used(work.store, static_cast<std::int32_t>(first), last, work.request.subpopulation));
  // Without parents of known years the candidates themselves are the generation to begin from.
  const double alike = inner(equal_shares(plan.sex), plan.kinship_alike);
  if (parents) plan.parents_kinship = parents->mean_kinship;
  plan.most_kinship = kinship_at_rate(plan.parents_kinship.value_or(alike), work.request.rate);
}

void add_curve(const Planning& work, const ShareLimits& limits, Plan& plan) {
  const double alike = inner(equal_shares(plan.sex), plan.kinship_alike);
  for (const double rate : curve_rates) {
    CurvePoint point{rate, kinship_at_rate(plan.parents_kinship.value_or(alike), rate), {}};
    const ValueChoice choice =
        best_values(work.kinship, limits, plan.values, point.most_kinship, plan.least, work.watch);
    if (choice.is_possible) point.value = choice.value;
    plan.curve.push_back(point);
  }
}

/// Step 1: shares.
void find_shares(Planning& work, Plan& plan) {
  const std::size_t count = plan.candidates.size();
  plan.kinship_alike = kinships_of(work.kinship, equal_shares(plan.sex), work.scratch);
  const ShareLimits none{plan.sex, std::vector<double>(count, 0.0), std::vector<double>(count, share_of_sex)};
  plan.without_limits = best_contributions(work.kinship, none, {}, {}, work.watch);
  const ShareLimits limits = share_limits_of(work.numbers);
  plan.least = best_contributions(work.kinship, limits, {}, plan.without_limits.shares, work.watch);
  if (work.request.values.empty() || work.watch.is_stopped()) return;
  plan.values = complete_values(work.request, plan.sex);
  set_bound(work, plan);
  plan.valued = best_values(work.kinship, limits, plan.values, plan.most_kinship, plan.least, work.watch);
  if (!plan.valued->is_possible) {
    plan.obstacle = PlanObstacle::kinship_bound;
    return;
  }
  add_curve(work, limits, plan);
}

/// Step 2: whole numbers. With values the weight finds good ones, and the bound has the last word.
void find_numbers(Planning& work, Plan& plan) {
  if (!plan.valued) {
    plan.numbers = best_numbers(work.kinship, work.numbers, {}, plan.least.shares, work.watch);
    return;
  }
  const ContributionGoal goal = {plan.values, plan.valued->weight};
  const MatingNumbers first =
      best_numbers(work.kinship, work.numbers, {goal, {}}, plan.valued->contributions.shares, work.watch);
  const std::vector<double> shares = shares_of_numbers(first.numbers, work.numbers.matings);
  plan.numbers = best_numbers(work.kinship, work.numbers, {goal, plan.most_kinship}, shares, work.watch);
  plan.numbers.exchanges += first.exchanges;
}

/// Step 3: pairs.
void find_pairs(Planning& work, Plan& plan) {
  BySex<std::int64_t> used;
  for (std::size_t k = 0; k < plan.sex.size(); ++k) used.of(plan.sex[k]) += plan.numbers.numbers[k] > 0 ? 1 : 0;
  if (used.of_males * used.of_females > most_planned_pairs) {
    plan.obstacle = PlanObstacle::too_many_pairs;
    return;
  }
  PairingResult pairing = pair_up(work.kinship, work.request, plan.numbers.numbers, work.watch);
  for (const std::size_t k : pairing.stuck_females) plan.stuck_females.push_back(plan.candidates[k]);
  for (const std::size_t k : pairing.females_without_male) plan.females_without_male.push_back(plan.candidates[k]);
  for (const std::size_t k : pairing.their_males) plan.their_males.push_back(plan.candidates[k]);
  if (!plan.stuck_females.empty()) plan.obstacle = PlanObstacle::pairs;
  plan.stuck_matings = pairing.stuck_matings;
  plan.their_matings = pairing.their_matings;
  plan.pairs = std::move(pairing.pairs);
}

double mean_f_of(std::span<const PlannedPair> pairs) {
  double sum = 0.0, matings = 0.0;
  for (const PlannedPair& pair : pairs) {
    sum += pair.kinship * pair.matings;
    matings += pair.matings;
  }
  return sum / matings;
}

/// Side by side: what was done, what could be done, what is planned.
void compare(const Planning& work, Plan& plan) {
  const auto put = [&](PlanWay way, const PlanComparison& comparison, std::span<const double> shares) {
    auto& place = plan.comparisons[static_cast<std::size_t>(way)];
    place = comparison;
    if (!plan.values.empty() && !shares.empty()) place->value = inner(plan.values, shares);
  };
  plan.last_year = last_full_year(work.store).value_or(0);
  plan.is_of_subpopulation = work.request.subpopulation.has_value();
  if (const auto parents = compare_parents(
          work.store, parents_used(work.store, plan.last_year, plan.last_year, work.request.subpopulation))) {
    put(PlanWay::last_year, *parents, {});
  }
  const std::vector<double> alike = equal_shares(plan.sex);
  put(PlanWay::all_alike, compare_shares(work.kinship, plan.sex, alike), alike);
  put(PlanWay::optimum, compare_shares(work.kinship, plan.sex, plan.optimum().shares), plan.optimum().shares);
  if (plan.numbers.numbers.empty()) return;
  const std::vector<double> planned = shares_of_numbers(plan.numbers.numbers, work.numbers.matings);
  PlanComparison numbers = compare_shares(work.kinship, plan.sex, planned);
  put(PlanWay::random_pairs, numbers, planned);
  numbers.mean_f = plan.pairs.empty() ? std::nullopt : std::optional(mean_f_of(plan.pairs));
  if (!plan.pairs.empty()) put(PlanWay::plan, numbers, planned);
}

void tell_gain(const Planning& work, Plan& plan) {
  if (plan.last_year == 0 || !plan.of(PlanWay::last_year)) return;
  plan.loss_per_year = yearly_loss(work.store, plan.last_year, work.request.subpopulation);
  if (!plan.loss_per_year || !plan.loss_per_year->is_clear()) return;
  const auto& planned = plan.of(PlanWay::plan) ? plan.of(PlanWay::plan) : plan.of(PlanWay::optimum);
  const double before = std::log1p(-plan.of(PlanWay::last_year)->mean_kinship);
  plan.years_gained = (std::log1p(-planned->mean_kinship) - before) / plan.loss_per_year->rate;
}

/// The candidates that are used, as rows (females) and columns (males) of the pairing.
struct PairTable {
  std::vector<std::int32_t> males, females;  ///< candidates
  std::vector<std::size_t> row_of;           ///< of each candidate among those of its sex
  std::vector<double> kinships;              ///< a row a female
  PairProblem problem;

  [[nodiscard]] double kinship_at(std::size_t female, std::size_t male) const {
    return kinships[female * problem.males + male];
  }
};

PairTable table_of_used(const PlanRequest& request, std::span<const std::int32_t> numbers) {
  PairTable table;
  table.row_of.assign(numbers.size(), 0);
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    if (numbers[k] == 0) continue;
    const bool is_male = k < request.males.size();
    std::vector<std::int32_t>& used = is_male ? table.males : table.females;
    table.row_of[k] = used.size();
    used.push_back(static_cast<std::int32_t>(k));
    (is_male ? table.problem.of_male : table.problem.of_female).push_back(numbers[k]);
  }
  table.problem.males = table.males.size();
  table.problem.females = table.females.size();
  return table;
}

/// The kinships of all pairs, row by row, some males at a time so that somebody who waits can end it; less than that
/// when somebody did.
std::vector<double> pair_kinships(const CandidateKinship& kinship, std::span<const std::int32_t> females,
                                  std::span<const std::int32_t> males, const PlanWatch& watch) {
  constexpr std::size_t most_males = 4 * kinship_lanes;
  std::vector<double> table(females.size() * males.size());
  for (std::size_t first = 0; first < males.size() && !watch.is_stopped(); first += most_males) {
    const auto some = males.subspan(first, std::min(most_males, males.size() - first));
    const std::vector<double> part = kinship_table(kinship, females, some);
    for (std::size_t f = 0; f < females.size(); ++f) {
      std::copy_n(part.begin() + static_cast<std::ptrdiff_t>(f * some.size()), some.size(),
                  table.begin() + static_cast<std::ptrdiff_t>(f * males.size() + first));
    }
  }
  return table;
}

/// A pair costs its kinship, unless a limit or a list forbids it.
void price_pairs(const PlanRequest& request, std::span<const std::int32_t> numbers, PairTable& table) {
  for (const double f : table.kinships) {
    const bool is_refused = request.most_f && is_beyond(static_cast<float>(f), *request.most_f);
    table.problem.costs.push_back(is_refused ? forbidden_pair : cost_of_kinship(f));
  }
  const auto place_of = places_of_positions(request);
  for (const SaidPair& pair : request.forbidden) {
    const auto f = place_of.find(pair.female), m = place_of.find(pair.male);
    if (f == place_of.end() || m == place_of.end() || numbers[f->second] == 0 || numbers[m->second] == 0) continue;
    table.problem.costs[table.row_of[f->second] * table.problem.males + table.row_of[m->second]] = forbidden_pair;
  }
}

/// Wished pairs stand before the others are sought.
void take_wished_pairs(const PlanRequest& request, PairTable& table, PairingResult& result) {
  const auto place_of = places_of_positions(request);
  for (const SaidPair& pair : request.wished) {
    const std::size_t f = place_of.at(pair.female), m = place_of.at(pair.male);
    --table.problem.of_female[table.row_of[f]];
    --table.problem.of_male[table.row_of[m]];
    result.pairs.push_back({f, m, 1, table.kinship_at(table.row_of[f], table.row_of[m]), true});
  }
}

/// Females for which too few matings are left, and the males that they could have.
void tell_stuck(const PairAssignment& assignment, const PairTable& table, PairingResult& result) {
  for (const std::size_t f : assignment.stuck_females) {
    result.stuck_females.push_back(static_cast<std::size_t>(table.females[f]));
    const auto row = std::span(table.problem.costs).subspan(f * table.problem.males, table.problem.males);
    const bool has_male = std::any_of(row.begin(), row.end(), [](PairCost cost) { return cost != forbidden_pair; });
    result.stuck_matings += table.problem.of_female[f];
    if (!has_male) result.females_without_male.push_back(static_cast<std::size_t>(table.females[f]));
  }
  for (const std::size_t m : assignment.their_males) {
    result.their_males.push_back(static_cast<std::size_t>(table.males[m]));
    result.their_matings += table.problem.of_male[m];
  }
}

}  // namespace

std::vector<std::int32_t> candidates_of(const PlanRequest& request) {
  std::vector<std::int32_t> candidates = request.males;
  candidates.insert(candidates.end(), request.females.begin(), request.females.end());
  return candidates;
}

NumberLimits number_limits_of(const PlanRequest& request) {
  NumberLimits limits;
  limits.matings = request.matings;
  limits.least_if_used = request.least_per_male;
  const auto all = static_cast<std::int32_t>(std::min<std::int64_t>(request.matings, INT32_MAX));
  const std::size_t count = request.males.size() + request.females.size();
  limits.sex.assign(count, female);
  std::fill_n(limits.sex.begin(), request.males.size(), male);
  limits.least.assign(count, 0);
  limits.has_own.assign(count, 0);
  for (const Sex sex : limits.sex) {
    limits.most.push_back(std::min(all, sex == male ? request.most_per_male.value_or(all) : request.most_per_female));
  }
  const auto place_of = places_of_positions(request);
  for (const FixedNumber& fixed : request.fixed) {
    const std::size_t k = place_of.at(fixed.position);
    limits.least[k] = fixed.least;
    limits.most[k] = fixed.most;
    limits.has_own[k] = 1;
  }
  std::vector<std::int32_t> wished(count, 0);
  for (const SaidPair& pair : request.wished) {
    ++wished[place_of.at(pair.female)];
    ++wished[place_of.at(pair.male)];
  }
  for (std::size_t k = 0; k < count; ++k) {
    if (wished[k] == 0) continue;
    limits.least[k] = std::max(limits.least[k], wished[k]);
    if (limits.sex[k] == male && limits.has_own[k] == 0) {
      limits.least[k] = std::max(limits.least[k], std::min(limits.least_if_used, limits.most[k]));
    }
  }
  return limits;
}

PairingResult pair_up(const CandidateKinship& kinship, const PlanRequest& request,
                      std::span<const std::int32_t> numbers, const PlanWatch& watch) {
  PairTable table = table_of_used(request, numbers);
  table.kinships = pair_kinships(kinship, table.females, table.males, watch);
  price_pairs(request, numbers, table);
  PairingResult result;
  take_wished_pairs(request, table, result);
  const PairAssignment assignment = assign_pairs(table.problem, watch);
  result.is_stopped = assignment.is_stopped;
  tell_stuck(assignment, table, result);
  for (const AssignedPair& pair : assignment.pairs) {
    result.pairs.push_back({static_cast<std::size_t>(table.females[pair.female]),
                            static_cast<std::size_t>(table.males[pair.male]), pair.matings,
                            table.kinship_at(pair.female, pair.male), false});
  }
  std::stable_sort(result.pairs.begin(), result.pairs.end(), [](const PlannedPair& a, const PlannedPair& b) {
    return a.female != b.female ? a.female < b.female : a.male < b.male;
  });
  return result;
}

Plan make_plan(const PopulationStore& store, const PlanRequest& request, const PlanWatch& watch) {
  Plan plan;
  plan.candidates = candidates_of(request);
  Planning work{store, request, watch, make_candidate_kinship(store, plan.candidates), number_limits_of(request), {}};
  plan.sex = work.numbers.sex;
  for (const std::int32_t most : work.numbers.most) plan.is_fixed_at_none.push_back(most == 0 ? 1 : 0);
  for (const Sex sex : both_sexes) {
    plan.number_obstacle.of(sex) = find_number_obstacle(work.numbers, sex);
    if (plan.number_obstacle.of(sex) != NumberObstacle::none) plan.obstacle = PlanObstacle::numbers;
  }
  if (plan.obstacle != PlanObstacle::none) return plan;
  work.scratch = make_kinship_scratch(work.kinship);
  find_shares(work, plan);
  if (plan.obstacle == PlanObstacle::none && request.wants_pairs && !watch.is_stopped()) find_numbers(work, plan);
  if (plan.obstacle == PlanObstacle::none && request.wants_pairs && !watch.is_stopped()) find_pairs(work, plan);
  if (plan.obstacle == PlanObstacle::none && !watch.is_stopped()) {
    compare(work, plan);
    tell_gain(work, plan);
  }
  if (watch.is_stopped()) plan.obstacle = PlanObstacle::stopped;
  return plan;
}

PlanWarnings find_warnings(const PopulationStore& store, const PlanRequest& request, const Plan& plan) {
  PlanWarnings warnings;
  const bool has_numbers = !plan.numbers.numbers.empty();
  const std::vector<double> shares =
      has_numbers ? shares_of_numbers(plan.numbers.numbers, request.matings) : plan.optimum().shares;
  std::vector<double> of_males;
  for (std::size_t k = 0; k < shares.size(); ++k) {
    if (store.generation_equivalents[plan.candidates[k]] < few_generations) {
      ++warnings.little_known;
      warnings.share_of_little_known += shares[k];
    }
    if (plan.sex[k] == male) of_males.push_back(shares[k] / share_of_sex);
  }
  std::sort(of_males.begin(), of_males.end(), std::greater<>());
  of_males.resize(std::min<std::size_t>(of_males.size(), 3));
  const double three = std::accumulate(of_males.begin(), of_males.end(), 0.0);
  if (three >= share_of_three_males) warnings.three_males = three;
  warnings.males_named = std::count_if(of_males.begin(), of_males.end(), [](double share) { return share > 0.0; });
  warnings.has_other_males = std::count(plan.sex.begin(), plan.sex.end(), male) > warnings.males_named;
  warnings.valued_candidates =
      std::count_if(request.values.begin(), request.values.end(), [](const auto& value) { return value.has_value(); });
  warnings.has_few_values = !request.values.empty() && 2 * warnings.valued_candidates < std::ssize(request.values);
  return warnings;
}

}  // namespace pedigreewatch
