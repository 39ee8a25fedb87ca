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
  std::int64_t corrections = 0;  ///< of the export, that the data contain; sheets tell them
};

/// A row for each pair.
void write_plan_table(const PlanTables& tables, TableWriter& writer);

/// A row for each candidate, males first, and for each animal that was left out.
void write_contributions_table(const PlanTables& tables, TableWriter& writer);

/// A row for each way to use parents that the plan is held against, and for the plan.
void write_comparison_table(const PlanTables& tables, TableWriter& writer);

/// All of them as the sheets of a workbook, but for its end; of the pairs only where there are any.
void write_plan_sheets(const PlanTables& tables, WorkbookWriter& workbook);

}  // namespace pedigreewatch
