// Who goes with whom: the pairs of least total F for given numbers of matings, exactly. A transportation problem,
// solved by shortest augmenting paths (Tomizawa, 1971, Networks 1: 173-194; Edmonds and Karp, 1972, J. ACM 19:
// 248-264). The prices that it ends with prove that no other pairs have a lower total.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "planning/contributions.h"

namespace pedigreewatch {

/// What a pair costs: its kinship in units of 2^-40, so that totals are exact.
using PairCost = std::int64_t;
inline constexpr double cost_scale = 1099511627776.0;  // 2^40
inline constexpr PairCost forbidden_pair = -1;

PairCost cost_of_kinship(double kinship);

/// Costs of all pairs: that of female f with male m at f * males + m.
struct PairProblem {
  std::size_t females = 0, males = 0;
  std::vector<PairCost> costs;
  std::vector<std::int32_t> of_female, of_male;  ///< matings; both have the same sum

  PairCost cost(std::size_t f, std::size_t m) const { return costs[f * males + m]; }
};

/// A pair, by places in the problem, and how often.
struct AssignedPair {
  std::size_t female = 0, male = 0;
  std::int32_t matings = 0;
};

struct PairAssignment {
  std::vector<AssignedPair> pairs;  ///< by female, then by male
  PairCost total = 0;
  /// The proof: no pair that is permitted costs less than its two prices, and the prices times the numbers of matings
  /// add up to the total.
  std::vector<PairCost> female_price, male_price;
  /// Where it is impossible: females that are left with fewer matings of males than they need, and all males that any
  /// of them may go with.
  std::vector<std::size_t> stuck_females, their_males;
  bool is_stopped = false;  ///< then the rest has no meaning

  bool is_possible() const { return stuck_females.empty(); }
};

PairAssignment assign_pairs(const PairProblem& problem, const PlanWatch& watch = {});

/// Whether the prices prove that the pairs are the cheapest ones, and the pairs have the numbers asked for.
bool is_proven(const PairProblem& problem, const PairAssignment& assignment);

}  // namespace pedigreewatch
