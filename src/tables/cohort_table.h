// The table of the figures of diversity over time: a row for each cohort.
#pragma once

#include <span>

#include "diversity/cohorts.h"
#include "tables/table_writer.h"

namespace pedigreewatch {

/// A header and a row for each cohort, in their order. `store` is the one that they come from.
void write_cohorts(const PopulationStore& store, std::span<const Cohort> cohorts, TableWriter& writer);

}  // namespace pedigreewatch
