// Which animal is meant by a parent that has no line of its own.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "checks/check_limits.h"
#include "checks/findings.h"
#include "checks/near_ids.h"
#include "checks/pedigree_columns.h"

namespace pedigreewatch {

/// A parent without a line, in the role in which it is named first.
struct MissingParent {
  std::int32_t id = 0;  ///< number of the identification
  ParentRole role = ParentRole::none;
};

/// The animal that is meant.
struct MeantParent {
  std::int32_t animal = 0;  ///< 0: nothing speaks for one animal alone
  Slip slip = Slip::none;
  /// The share of the evidence that speaks for the animal for which most does, also where that is not enough.
  double sureness = 0;
};

/// For each of these parents the animal that is meant by it, when nearly all of the evidence speaks for one: how likely
/// such a slip is, sex and age, other young at that time, young with the same mate, and the parents of litter mates;
/// against the other animals that are near, and against a parent that is rightly named and has no line. How common each
/// is, is estimated from all of them together (expectation and maximisation; Dempster and others, 1977). `male_letters`
/// are those of the sexes of males. The search is shared out to so many threads.
std::vector<MeantParent> find_meant_parents(const PedigreeColumns& animals, std::span<const MissingParent> missing,
                                            const CheckLimits& limits, std::string_view male_letters,
                                            std::int32_t threads);

}  // namespace pedigreewatch
