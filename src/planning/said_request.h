// What lists say of a plan: candidates, numbers of matings, breeding values and pairs become its request.
#pragma once

#include <string>

#include "planning/plan.h"
#include "planning/plan_candidates.h"
#include "planning/said_lists.h"

namespace pedigreewatch {

/// Names of files, or of texts of a PlanInput; empty: there is none.
struct SaidLists {
  std::string females, males, exclude, numbers, forbidden, wished, values;
};

/// Candidates by lists, and who is excluded.
void read_said_candidates(PlanInput& input, const SaidLists& lists, CandidateRules& rules);

/// Numbers, values, and pairs. The request has its candidates and limits.
void read_said_request(PlanInput& input, const SaidLists& lists, PlanRequest& request);

}  // namespace pedigreewatch
