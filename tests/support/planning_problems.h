// Planning problems on random populations, and their solutions by the plainest possible ways: a dense table of
// kinships, the conditions that an optimum obeys, and going through all possibilities.
#pragma once

#include <cstdint>
#include <vector>

#include "pedigree/population_store.h"
#include "planning/contributions.h"
#include "planning/mating_numbers.h"
#include "planning/pair_assignment.h"

namespace pedigreewatch::test {

/// Candidates of a population: the youngest animals of each sex, males first.
struct DenseProblem {
  PopulationStore store;
  std::vector<std::int32_t> positions;
  std::vector<Sex> sex;
  std::vector<std::vector<double>> kinships;
};

DenseProblem dense_problem(PopulationStore store, std::vector<std::int32_t> males, std::vector<std::int32_t> females);

/// A random population of `animals` with so many males and females of its youngest third; sexes are dealt anew.
DenseProblem random_problem(std::uint64_t seed, std::int32_t animals, std::int32_t males, std::int32_t females);

/// c'Kc from the table.
double dense_kinship(const DenseProblem& problem, const std::vector<double>& shares);

/// By how much the conditions of an optimum (Karush, Kuhn and Tucker) fail: within each sex no share that may be
/// lowered has a higher gradient than one that may be raised.
double worst_condition(const DenseProblem& problem, const ShareLimits& limits, const std::vector<double>& shares,
                       const std::vector<double>& values = {}, double weight = 0.0);

/// The shares that numbers of matings mean.
std::vector<double> shares_of(const std::vector<std::int32_t>& numbers, std::int64_t matings);

/// The least c'Kc of all permitted numbers, by going through them.
double least_of_all_numbers(const DenseProblem& problem, const NumberLimits& limits);

/// The most that moving one mating lowers c'Kc by.
double best_single_exchange(const DenseProblem& problem, const NumberLimits& limits,
                            const std::vector<std::int32_t>& numbers);

/// The least total cost of all ways to pair up, -1 where there is none.
PairCost least_of_all_pairings(const PairProblem& problem);

}  // namespace pedigreewatch::test
