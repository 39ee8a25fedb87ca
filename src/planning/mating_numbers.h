// How many matings each candidate gets, in whole numbers: the shares that were found to be best are rounded, and then
// matings are moved from one animal to another as long as a single move helps.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "planning/contributions.h"

namespace pedigreewatch {

/// What is permitted; by place of the candidates.
struct NumberLimits {
  std::int64_t matings = 0;  ///< of each sex
  std::vector<Sex> sex;
  std::vector<std::int32_t> least, most;
  /// A male whose `least` is 0 gets either none or so many; `has_own` excepts those whose number was said.
  std::int32_t least_if_used = 1;
  std::vector<Flag> has_own;
};

/// Whether an animal may get so many.
bool is_permitted(const NumberLimits& limits, std::size_t place, std::int32_t number);

/// Why there are no such numbers for a sex.
enum class NumberObstacle : std::uint8_t {
  none,
  too_few,   ///< all at their most are fewer matings than wanted
  too_many,  ///< all at their least are more
  no_sum,    ///< each used male at its least, or more, never adds up to the number wanted
};
NumberObstacle find_number_obstacle(const NumberLimits& limits, Sex sex);

/// The limits of shares that those of numbers mean.
ShareLimits share_limits_of(const NumberLimits& limits);

struct MatingNumbers {
  std::vector<std::int32_t> numbers;  ///< by place
  std::vector<double> kinships;       ///< by place, with the parents as chosen
  double mean_kinship = 0.0;          ///< of the offspring
  std::int64_t exchanges = 0;         ///< that helped
  bool is_stopped = false;            ///< then the rest has no meaning
};

/// What an exchange must achieve: a lower c'Kc - weight * value'c, or, with a bound on the mean kinship, a higher value
/// without passing it.
struct NumberGoal {
  ContributionGoal goal;
  std::optional<double> most_kinship;
};

/// Numbers near `shares`, which are within the limits, such that no exchange helps: moving one mating, as many as a
/// male must have, or all of one animal, to another animal of its sex. `limits` have no obstacle.
MatingNumbers best_numbers(const CandidateKinship& kinship, const NumberLimits& limits, const NumberGoal& goal,
                           std::span<const double> shares, const PlanWatch& watch = {});

/// Any numbers of the same sum for both sexes, looked at.
MatingNumbers examine_numbers(const CandidateKinship& kinship, std::span<const std::int32_t> numbers);

}  // namespace pedigreewatch
