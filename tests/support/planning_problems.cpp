#include "support/planning_problems.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {

DenseProblem dense_problem(PopulationStore store, std::vector<std::int32_t> males, std::vector<std::int32_t> females) {
  DenseProblem problem{std::move(store), std::move(males), {}, {}};
  problem.sex.assign(problem.positions.size(), male);
  problem.positions.insert(problem.positions.end(), females.begin(), females.end());
  problem.sex.resize(problem.positions.size(), female);
  problem.kinships = plain_kinships(problem.store, problem.positions);
  return problem;
}

DenseProblem random_problem(std::uint64_t seed, std::int32_t animals, std::int32_t males, std::int32_t females) {
  RandomNumbers random{seed * 7919 + 1};
  PopulationStore store = random_population(seed, animals);
  std::vector<std::int32_t> young;
  for (std::int32_t i = animals - std::max(animals / 3, males + females) + 1; i <= animals; ++i) young.push_back(i);
  for (std::size_t k = young.size(); k > 1; --k) {
    std::swap(young[k - 1], young[static_cast<std::size_t>(random.below(static_cast<std::int32_t>(k)))]);
  }
  const auto middle = young.begin() + males;
  return dense_problem(std::move(store), {young.begin(), middle}, {middle, middle + females});
}

double dense_kinship(const DenseProblem& problem, const std::vector<double>& shares) {
  double sum = 0.0;
  for (std::size_t i = 0; i < shares.size(); ++i) {
    for (std::size_t j = 0; j < shares.size(); ++j) sum += shares[i] * shares[j] * problem.kinships[i][j];
  }
  return sum;
}

double worst_condition(const DenseProblem& problem, const ShareLimits& limits, const std::vector<double>& shares,
                       const std::vector<double>& values, double weight) {
  constexpr double at_limit = 1e-9;
  double worst = 0.0;
  for (const Sex sex : {male, female}) {
    double highest_lowerable = -INFINITY, lowest_raisable = INFINITY;
    for (std::size_t i = 0; i < shares.size(); ++i) {
      if (problem.sex[i] != sex) continue;
      double gradient = values.empty() ? 0.0 : -weight * values[i];
      for (std::size_t j = 0; j < shares.size(); ++j) gradient += 2.0 * problem.kinships[i][j] * shares[j];
      if (shares[i] > limits.least[i] + at_limit) highest_lowerable = std::max(highest_lowerable, gradient);
      if (shares[i] < limits.most[i] - at_limit) lowest_raisable = std::min(lowest_raisable, gradient);
    }
    worst = std::max(worst, highest_lowerable - lowest_raisable);
  }
  return worst;
}

std::vector<double> shares_of(const std::vector<std::int32_t>& numbers, std::int64_t matings) {
  std::vector<double> shares;
  for (const std::int32_t number : numbers) shares.push_back(0.5 * number / static_cast<double>(matings));
  return shares;
}

double least_of_all_numbers(const DenseProblem& problem, const NumberLimits& limits) {
  double least = INFINITY;
  std::vector<std::int32_t> numbers(problem.positions.size(), 0);
  const auto left_of = [&](Sex sex) {
    std::int64_t left = limits.matings;
    for (std::size_t k = 0; k < numbers.size(); ++k) left -= problem.sex[k] == sex ? numbers[k] : 0;
    return left;
  };
  const std::function<void(std::size_t)> fill = [&](std::size_t k) {
    if (k == numbers.size()) {
      if (left_of(male) == 0 && left_of(female) == 0) {
        least = std::min(least, dense_kinship(problem, shares_of(numbers, limits.matings)));
      }
      return;
    }
    numbers[k] = 0;
    const auto most = static_cast<std::int32_t>(left_of(problem.sex[k]));
    for (std::int32_t number = 0; number <= most; ++number) {
      if (!is_permitted(limits, k, number)) continue;
      numbers[k] = number;
      fill(k + 1);
    }
    numbers[k] = 0;
  };
  fill(0);
  return least;
}

double best_single_exchange(const DenseProblem& problem, const NumberLimits& limits,
                            const std::vector<std::int32_t>& numbers) {
  const double before = dense_kinship(problem, shares_of(numbers, limits.matings));
  double best = 0.0;
  for (std::size_t from = 0; from < numbers.size(); ++from) {
    for (std::size_t to = 0; to < numbers.size(); ++to) {
      if (to == from || problem.sex[to] != problem.sex[from] || numbers[from] == 0) continue;
      if (!is_permitted(limits, from, numbers[from] - 1) || !is_permitted(limits, to, numbers[to] + 1)) continue;
      std::vector<std::int32_t> after = numbers;
      --after[from];
      ++after[to];
      best = std::max(best, before - dense_kinship(problem, shares_of(after, limits.matings)));
    }
  }
  return best;
}

PairCost least_of_all_pairings(const PairProblem& problem) {
  std::vector<std::size_t> females;
  for (std::size_t f = 0; f < problem.females; ++f) {
    for (std::int32_t k = 0; k < problem.of_female[f]; ++k) females.push_back(f);
  }
  std::vector<std::int32_t> room = problem.of_male;
  PairCost least = -1;
  const std::function<void(std::size_t, PairCost)> go_on = [&](std::size_t k, PairCost total) {
    if (least >= 0 && total >= least) return;
    if (k == females.size()) {
      least = total;
      return;
    }
    for (std::size_t m = 0; m < problem.males; ++m) {
      const PairCost cost = problem.cost(females[k], m);
      if (room[m] == 0 || cost == forbidden_pair) continue;
      --room[m];
      go_on(k + 1, total + cost);
      ++room[m];
    }
  };
  go_on(0, 0);
  return least;
}

}  // namespace pedigreewatch::test
