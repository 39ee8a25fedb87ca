// Parents: those without a line, those that are father and mother, those of the wrong sex.
#pragma once

#include "checks/check_settings.h"
#include "checks/findings.h"
#include "checks/pedigree_columns.h"
#include "checks/reading_plan.h"

namespace pedigreewatch {

/// What an identification is as a parent.
struct ParentUse {
  std::int32_t sire_count = 0, dam_count = 0;        ///< its young
  std::int32_t first_as_sire = 0, first_as_dam = 0;  ///< the first of them
};

/// For each identification its use.
using ParentUses = ByNumber<ParentUse>;
ParentUses count_parent_uses(const PedigreeColumns& animals);

/// Finds parents without a line of their own, with the animal that is meant where one is near; and words for unknown
/// parents that count as animals.
void check_missing_parents(const PedigreeColumns& animals, const ParentUses& uses, const ReadingPlan& plan,
                           const CheckSettings& settings, Findings& findings);

/// Finds parents in both roles or of the wrong sex, and animals of which both parents are one.
void check_roles(const PedigreeColumns& animals, const ParentUses& uses, const ReadingPlan& plan, Findings& findings);

/// Finds animals with neither parents nor young, and founders born after half of all animals.
void check_founders(const PedigreeColumns& animals, const ParentUses& uses, Findings& findings);

/// Finds animals whose identification stands in an earlier line too.
void check_duplicates(const PedigreeColumns& animals, Findings& findings);

}  // namespace pedigreewatch
