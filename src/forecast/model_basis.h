// What every replicate begins with, made once: the pedigree of the real animals that may still have young, the parents
// that are in use, the animals that may become parents, and how near mates were related.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "forecast/base_period.h"
#include "forecast/kinship_table.h"
#include "forecast/mate_nearness.h"
#include "forecast/model_pedigree.h"
#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {

/// So many males are looked at for a mating. Which of them, by how near they are to the female, is the practice.
inline constexpr std::size_t looked_at = 8;
using MateRanks = std::array<double, looked_at>;  ///< shares by rank from the least related, adding up to 1

/// With more parents than this, kinships of pairs are walked for and not kept in a table.
inline constexpr std::size_t most_table_rows = 4096;

/// Animals that may become parents, by number: a family of the model herd, or minus the position of a real animal.
using Candidates = std::vector<std::int32_t>;

/// Candidates of one birth year by sex, group and descent.
struct CandidateYear {
  std::vector<Candidates> lists;   ///< that have not come into use
  std::vector<std::int32_t> born;  ///< by list, with those that have
};

/// The lists of a candidate year, for so many groups.
inline std::size_t lists_of(GroupNo groups) {
  return std::size_t{groups} * 2 * descents;
}

/// The list of a candidate year: `groups` as in the FamilyRecords.
inline std::size_t list_of(GroupNo group, Sex sex, Descent descent) {
  return (std::size_t{group} * 2 + (sex == male ? 0 : 1)) * descents + static_cast<std::size_t>(descent);
}

/// A parent that was in use.
struct ActiveParent {
  std::int32_t animal = 0;       ///< in the pedigree
  std::int32_t career = 0;       ///< its own
  std::int32_t last_litter = 0;  ///< year
};

/// A career of the practice, by number, that began in a group.
struct GroupEntry {
  GroupNo group = 0;
  std::int32_t career = 0;
};

/// The model herd's first state. It refers to the records of the families, which stay.
struct ModelBasis {
  const FamilyRecords& records;
  BasePeriod base;
  AncestorPedigree ancestors;  ///< real parents, and everybody they descend from
  ModelPedigree pedigree;      ///< the same by ancestor number
  std::int32_t origin = 0;     ///< of imports that are related to each other, in the pedigree
  KinshipTable table;          ///< empty: kinships are walked for
  MateRanks mate_ranks = {};
  SeenNearness nearness_seen = {};          ///< how much nearer, or less near, mates came to be in the past
  std::vector<NearnessPath> nearness = {};  ///< and may come to be; none before the fit (model_fit.h)
  /// To which the use of a sire in a year, and its mean in life, are raised before litters are shared.
  double use_power = 1.0, life_power = 0.0;
  std::vector<std::vector<GroupEntry>> sire_entries;  ///< by year of the practice, within a year by group
  BySex<std::vector<double>> going_on;  ///< by group: parents of a year of the practice that were in use before, mean
  BySex<double> pace = {1.0, 1.0};      ///< years of a career that pass in a year; others than 1 are said, not measured
  BySex<std::vector<ActiveParent>> active;
  ByNumber<std::int32_t> last_litter;  ///< by animal of the pedigree: the year of its last family
  std::int32_t first_candidate_year = 0;
  std::vector<CandidateYear> candidates;  ///< by birth year, up to the last one

  bool has_table() const { return table.capacity > 0; }
  /// Where a birth year stands among the candidates; it is not before the first one.
  std::size_t row_of(std::int32_t birth_year) const {
    return static_cast<std::size_t>(birth_year - first_candidate_year);
  }
};

/// F of all animals must be final.
ModelBasis make_model_basis(const FamilyRecords& records, BasePeriod base, std::uint64_t seed = 1);

/// Counts `going_on` from the years of the practice.
void count_going_on(ModelBasis& basis);

/// Imports that are related to each other descend from one animal that nobody else descends from: with it as both
/// parents, two of them have its kinship with itself, and F of 0. Yields the F that stands for it.
inline float f_of_origin(double import_kinship) {
  return static_cast<float>(4.0 * import_kinship - 1.0);
}

}  // namespace pedigreewatch
