// The pairs of a plan as matings: F of their offspring as a run shows it, and what the parents have in common.
#pragma once

#include <span>
#include <vector>

#include "matings/common_ancestors.h"
#include "matings/ranking.h"
#include "planning/plan.h"

namespace pedigreewatch {

struct PlannedMatings {
  std::vector<MatingPair> pairs;    ///< in the order of the plan
  std::vector<KinshipParts> parts;  ///< of each pair; empty when it was stopped
};

PlannedMatings describe_plan(const PopulationStore& store, std::span<const std::int32_t> candidates,
                             std::span<const PlannedPair> pairs, const PlanWatch& watch = {});

}  // namespace pedigreewatch
