// A herd that goes on from the real one, year by year, in one replicate of one scenario.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "forecast/breeding_rules.h"
#include "forecast/model_basis.h"
#include "forecast/model_walk.h"

namespace pedigreewatch {

/// A parent in use, or between two uses.
struct ModelParent {
  std::int32_t animal = 0;  ///< in the pedigree
  GroupNo group = 0;
  Descent descent = Descent::known;
  CareerPoint point;       ///< whose career it follows, and the year of it that ended last
  std::int32_t pause = 0;  ///< years without use up to now
  std::int32_t years = 0;  ///< since the first use
  double clock = 0.0;      ///< part of a year of the career that has passed already
  std::int32_t ahead = 0;  ///< years that it is older than those were who stood where it stands
  double sum_use = 0.0;
  double use = 0.0;                               ///< this year's, before it is fitted to the litters that there are
  std::int32_t litters = 0, litters_in_life = 0;  ///< families; this year's, and those up to it
};

/// Young of one pair. Parents are animals of the pedigree.
struct ModelFamily {
  std::int32_t sire = 0, dam = 0;
  float f = 0.0F;
  GroupNo group = 0;
  std::int32_t young = 0;
};

/// What the rules have refused, in numbers of a year.
struct RefusedCounts {
  std::int64_t litters = 0;   ///< that sires would have had above their limits
  std::int64_t sires = 0;     ///< that would have had such litters
  std::int64_t pairs = 0;     ///< pairs that were not made
  std::int64_t entrants = 0;  ///< animals that were not taken into use
  std::int64_t lost = 0;      ///< litters that were not born, there being no permitted parent
};

/// What is kept of a year of a replicate.
struct ModelYear {
  YearKinship kinship;
  std::int32_t sires = 0, litters = 0;
  std::optional<double> parent_age;  ///< mean of sires and dams at births, years
  RefusedCounts refused;
};

struct ModelHerd {
  const ModelBasis& basis;
  const BreedingRules& rules;
  std::uint64_t seed = 1;
  std::int32_t replicate = 0;

  ModelPedigree pedigree;
  KinshipTable table;
  AncestorWalk* walk = nullptr;     ///< null: the table has the kinships; knows the basis' ancestors, and is put back
  std::vector<NewRow> new_parents;  ///< whose kinships are not in table or walk yet
  BySex<std::vector<ModelParent>> parents;
  /// By group: places of the parents who go on, and of this year's imports.
  BySex<std::vector<std::vector<std::size_t>>> members;
  ByNumber<std::int32_t> last_litter;     ///< by animal of the pedigree: year
  ByNumber<std::int32_t> birth_year;      ///< likewise; a guess where it is unknown, 0 where nobody needs it
  std::vector<ModelFamily> families;      ///< of all years
  std::size_t first_of_year = 0;          ///< family
  std::vector<CandidateYear> candidates;  ///< by birth year
  std::vector<YoungOf> youngest;          ///< of the last year
  ByNumber<double> mean_kinship;          ///< with the youngest, by animal; with a rule on it
  std::vector<double> most_kinship;       ///< by birth year and sex, what that rule permits; below 0: not known yet
  ByNumber<double> weights;               ///< by animal; all 0
  BySex<std::vector<double>> owed;        ///< by group: parts of parents that are still to come into use
  ModelYear year;                         ///< the year at hand

  bool has_table() const { return walk == nullptr; }
  RandomStream stream(std::int32_t of_year, DrawPurpose purpose) const {
    return make_stream(seed, replicate, of_year, purpose);
  }
};

/// Whether the kinships of a herd under these rules stand in a table; otherwise it needs a walk. Rules that make it
/// grow may make it too large for one, though the basis has a table.
bool has_table(const ModelBasis& basis, const BreedingRules& rules, std::int32_t years);

/// A herd with more parents than this has no table, which would need a gigabyte or more.
inline constexpr double most_rows_of_herd = 8192.0;

ModelHerd begin_herd(const ModelBasis& basis, const BreedingRules& rules, std::uint64_t seed, std::int32_t replicate,
                     AncestorWalk* walk);

/// One year: parents go on or stop, others come into use, they are mated and have young. False when the population
/// has died out: no family was born.
bool live_year(ModelHerd& herd, std::int32_t year);

}  // namespace pedigreewatch
