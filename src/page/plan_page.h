// The plan as a page to hand out: what it achieves, who goes with whom by female and by male, and two charts.
#pragma once

#include <string>

#include "planning/plan.h"
#include "planning/plan_candidates.h"
#include "planning/plan_words.h"
#include "planning/planned_matings.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// What the page is made from. All of it outlives the making.
struct PlanPageInput {
  const PopulationStore& store;
  const PlanRequest& request;
  const Plan& plan;
  const PlannedMatings& matings;
  const CandidatePool& pool;
  std::string_view population_name;  ///< bytes of the steer file
  ToolLanguage language = ToolLanguage::english;
  bool is_changed = false;                     ///< by hand: its pairs are not said to be the best
  PlanSpeaker speaker = PlanSpeaker::console;  ///< whose words limits are called by
  std::int64_t corrections = 0;                ///< of the export, that the data contain
};

/// The whole page in UTF-8. It asks for nothing from anywhere.
std::string make_plan_page(const PlanPageInput& input);

}  // namespace pedigreewatch
