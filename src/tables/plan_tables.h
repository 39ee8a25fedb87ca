// The plan as tables: its pairs, and what every candidate gets.
#pragma once

#include "planning/plan.h"
#include "planning/plan_candidates.h"
#include "planning/planned_matings.h"
#include "tables/table_writer.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// What the tables are made from.
struct PlanTables {
  const PopulationStore& store;
  const Plan& plan;
  const PlannedMatings& matings;
  const CandidatePool& pool;
  std::int64_t wanted = 0;  ///< matings asked for
  ToolLanguage language = ToolLanguage::english;
};

/// A row for each pair.
void write_plan_table(const PlanTables& tables, TableWriter& writer);

/// A row for each candidate, males first, and for each animal that was left out.
void write_contributions_table(const PlanTables& tables, TableWriter& writer);

}  // namespace pedigreewatch
