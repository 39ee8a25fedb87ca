// A breeding plan: shares, whole numbers and pairs for some candidates, and how it compares with what was done so far.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "matings/mating_work.h"
#include "matings/ranking.h"
#include "planning/breeding_values.h"
#include "planning/contributions.h"
#include "planning/mating_numbers.h"
#include "planning/pair_assignment.h"
#include "planning/parent_use.h"

namespace pedigreewatch {

/// A number that was said: exactly, or within bounds.
struct FixedNumber {
  std::int32_t position = 0;  ///< of a candidate
  std::int32_t least = 0, most = 0;
};

/// A pair that was said. Positions.
struct SaidPair {
  std::int32_t female = 0, male = 0;
};

/// What is asked for. Positions in the store, each once.
struct PlanRequest {
  std::vector<std::int32_t> males, females;
  std::int64_t matings = 0;
  std::optional<std::int32_t> most_per_male;  ///< none: as many as there are
  std::int32_t most_per_female = 1;
  std::int32_t least_per_male = 1;  ///< of a male that is used at all
  std::vector<FixedNumber> fixed;
  std::vector<SaidPair> forbidden, wished;    ///< a pair that is wished for twice is made twice
  std::optional<double> most_f;               ///< of a pair that is not wished for
  std::vector<std::optional<double>> values;  ///< breeding values, males first; empty: kinship alone counts
  double rate = 0.005;                        ///< of inbreeding, as a fraction a generation; with values
  std::optional<std::string> subpopulation;   ///< with whose parents of today the plan is compared; none: with all
  bool wants_pairs = true;
};

/// Candidates by place: males first.
std::vector<std::int32_t> candidates_of(const PlanRequest& request);
NumberLimits number_limits_of(const PlanRequest& request);

/// A pair of the plan.
struct PlannedPair {
  std::size_t female = 0, male = 0;  ///< places of candidates
  std::int32_t matings = 1;
  double kinship = 0.0;  ///< F of the offspring in double precision
  bool is_wished = false;
};

/// One way to use parents.
struct PlanComparison {
  double mean_kinship = 0.0;            ///< of the offspring
  std::optional<double> mean_f;         ///< of the matings
  std::int64_t males = 0, females = 0;  ///< that are used
  double top_male = 0.0;                ///< share of the matings that the most used male has
  std::optional<double> value;          ///< mean breeding value of the offspring
};

enum class PlanWay : std::uint8_t { last_year, all_alike, optimum, random_pairs, plan };
inline constexpr std::size_t plan_ways = 5;

/// A point of the curve of value against kinship.
struct CurvePoint {
  double rate = 0.0, most_kinship = 0.0;
  std::optional<double> value;  ///< none where nothing is permitted
};

enum class PlanObstacle : std::uint8_t { none, stopped, numbers, kinship_bound, pairs, too_many_pairs };

/// More pairs of animals that are used than these do not fit into memory.
inline constexpr std::int64_t most_planned_pairs = 25'000'000;

struct Plan {
  PlanObstacle obstacle = PlanObstacle::none;  ///< whatever comes behind it is not there
  BySex<NumberObstacle> number_obstacle;
  std::vector<std::int32_t> candidates;  ///< positions, males first
  std::vector<Sex> sex;
  std::vector<double> kinship_alike;      ///< mean kinship of each candidate with all, both sexes having half
  Contributions without_limits;           ///< least kinship whatever the numbers
  Contributions least;                    ///< least kinship within the limits
  std::optional<ValueChoice> valued;      ///< with breeding values: the optimum
  std::optional<double> parents_kinship;  ///< of the parents in the last generation interval; with values
  std::int32_t interval_years = 0;
  double most_kinship = 0.0;  ///< with values: the bound
  std::vector<CurvePoint> curve;
  std::vector<double> values;  ///< by place; those that were missing are the mean of their sex
  MatingNumbers numbers;
  std::vector<Flag> is_fixed_at_none;                    ///< by place: its number was said to be 0
  std::vector<PlannedPair> pairs;                        ///< by female, then by male
  PairAssignment stuck;                                  ///< with the obstacle `pairs`
  std::vector<std::int32_t> stuck_females, their_males;  ///< positions, likewise
  std::vector<std::int32_t> females_without_male;        ///< of them those with whom no male at all may go
  std::int64_t stuck_matings = 0, their_matings = 0;  ///< beside wishes: what they are to have, what their males have
  std::array<std::optional<PlanComparison>, plan_ways> comparisons;
  std::int32_t last_year = 0;               ///< whose parents the plan is compared with
  bool is_of_subpopulation = false;         ///< they are those of young of a subpopulation
  std::optional<YearlyLoss> loss_per_year;  ///< of the breed or subpopulation
  std::optional<double> years_gained;       ///< at that loss, where it is clear

  const Contributions& optimum() const { return valued ? valued->contributions : least; }
  const std::optional<PlanComparison>& of(PlanWay way) const { return comparisons[static_cast<std::size_t>(way)]; }
};

/// Makes the plan. Every sex has a candidate, and there is a mating. F of all animals must be final.
Plan make_plan(const PopulationStore& store, const PlanRequest& request, const PlanWatch& watch = {});

/// Which pairs, for numbers that are given: by place of the candidates.
struct PairingResult {
  std::vector<PlannedPair> pairs;
  std::vector<std::size_t> stuck_females, their_males;  ///< places; where it is impossible
  std::vector<std::size_t> females_without_male;        ///< of them those with whom no male at all may go
  std::int64_t stuck_matings = 0, their_matings = 0;    ///< of both, beside wishes
  bool is_stopped = false;
};
PairingResult pair_up(const CandidateKinship& kinship, const PlanRequest& request,
                      std::span<const std::int32_t> numbers, const PlanWatch& watch = {});

/// Candidates that look unrelated because hardly any of their ancestors is known.
inline constexpr float few_generations = 2.0F;
/// What the three most used males together must have of the matings for a warning.
inline constexpr double share_of_three_males = 0.5;

struct PlanWarnings {
  std::int64_t little_known = 0;       ///< candidates with fewer equivalent generations than `few_generations`
  double share_of_little_known = 0.0;  ///< in the offspring of the plan
  std::optional<double> three_males;   ///< share of the three most used males, where it is large
  std::int64_t males_named = 0;        ///< how many of these three are used
  bool has_other_males = false;        ///< candidates beside these
  bool has_few_values = false;         ///< breeding values of less than half of the candidates
  std::int64_t valued_candidates = 0;
};
PlanWarnings find_warnings(const PopulationStore& store, const PlanRequest& request, const Plan& plan);

}  // namespace pedigreewatch
