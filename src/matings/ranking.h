// Which matings to make: F of the offspring of females with males, and the ancestors that the parents have in common.
//
// F is to the last bit what a run shows for the offspring when it stands in the last line of the data file. It is the
// kinship of its parents (Malecot, 1948), which is also worked out in double precision, ancestor by ancestor.
#pragma once

#include <csignal>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/progress_line.h"
#include "matings/common_ancestors.h"
#include "matings/mating_work.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// More pairs than these take too long, and a table of more rows no spreadsheet opens.
inline constexpr std::int64_t most_pairs = 10'000'000;
inline constexpr std::int64_t most_rows = 1'000'000;

/// F of the offspring of first cousins, 6.25 %: what many herdbooks set as their bound.
inline constexpr float usual_bound = 0.0625F;

/// With fewer generation equivalents known of a male F of his offspring says little: he stands behind those with more.
inline constexpr float enough_equivalents = 3.0F;

/// Generation equivalents of an animal; 0 where completeness has not been worked out.
float known_generations(const PopulationStore& store, std::int32_t position);

/// Whether so little is known of the ancestors of an animal.
bool is_shallow(const PopulationStore& store, std::int32_t position);

/// Its age at the end of the last birth year, in years; none without a birth year.
std::optional<std::int32_t> age_of(const PopulationStore& store, std::int32_t position);

/// Whether F is above a bound. Rounding, which stays below a millionth, does not make it so.
bool is_beyond(float f, double bound);

/// What is asked for. Positions in the store, each once.
struct MatingPlan {
  std::vector<std::int32_t> females, males;
  std::optional<std::int64_t> best;              ///< so many males for each female; none: all
  std::optional<double> limit;                   ///< only pairs with F at most that
  double most_inbreeding = double{usual_bound};  ///< the limit of the board
};

/// Pairs of a plan; at most 10^18 of them.
std::int64_t pair_count(const MatingPlan& plan);

/// All animals of a plan.
std::vector<std::int32_t> candidates_of(const MatingPlan& plan);

/// Two positions in the store, and F of their offspring.
struct MatingPair {
  std::int32_t female = 0, male = 0;
  float f = 0.0F;
};

/// Counts pairs for somebody who watches, and ends early when somebody wants that.
struct MatingWatch {
  ProgressLine* progress = nullptr;  ///< null: nobody watches
  StopRequest stop_request = nullptr;
};

/// The pairs that were chosen, and what all of them were like.
struct MatingChoice {
  /// Males of whom much is known first, then by F in millionths; of equal ones the male of lower mean kinship with the
  /// youngest animals first, then in the order of the plan. With a number of best males each female's together, in the
  /// order of the plan.
  std::vector<MatingPair> pairs;
  std::int64_t examined = 0;        ///< all pairs of the plan
  std::int64_t beyond = 0;          ///< those with F beyond the limit of the board
  std::int64_t females_beyond = 0;  ///< females of whom every pair is beyond it
  MatingPair lowest, highest;       ///< of all; the first of several
  bool is_stopped = false;          ///< then the rest has no meaning
};

/// Works out F of all pairs, a walk for each 16 males. `work` is that of all candidates; the caller keeps their number
/// below `most_pairs`.
MatingChoice choose_matings(const MatingWork& work, const MatingPlan& plan, const MatingWatch& watch = {});

/// The common ancestors of each pair, in the order of the pairs; nothing when it was stopped.
std::vector<KinshipParts> describe_matings(const MatingWork& work, std::span<const MatingPair> pairs,
                                           const MatingWatch& watch = {});

/// One pair with everything that is known of it.
struct DescribedMating {
  MatingPair pair;
  KinshipParts parts;
  std::optional<double> female_mean_kinship, male_mean_kinship;  ///< with the youngest animals; none without any
};

/// The mating of two animals, of whatever sex: with itself too, which is selfing. None for a position that no animal
/// has.
std::optional<DescribedMating> mating_of(const PopulationStore& store, std::int32_t sire, std::int32_t dam);

/// A male for a female.
struct RankedMale {
  std::int32_t male = 0;  ///< position
  float f = 0.0F;         ///< of the offspring
  std::optional<double> mean_kinship;
};

/// All males born from `first_year` to `last_year` for one female: those of whom much is known first, then by F and by
/// mean kinship. Empty for a position
/// that no animal has and for years without males. `mating_of` names the common ancestors of any of them.
std::vector<RankedMale> males_for(const PopulationStore& store, std::int32_t dam, std::int32_t first_year,
                                  std::int32_t last_year);

}  // namespace pedigreewatch
