// A report has a line for each birth year and a column for each year of a parent's age. One mistyped date can ask for
// more of them than anybody can read or any disk holds: such a run ends with a message that names the animals.
#pragma once

#include <string_view>

#include "core/report_shape.h"
#include "core/run_streams.h"
#include "pedigree/population_store.h"
#include "statistics/parent_ages.h"

namespace pedigreewatch {

/// Stops the run when the first and the last birth year are 100,000 years apart or more.
void check_year_span(const PopulationStore& store, std::string_view data_file, RunStreams& streams);

/// Stops the run when the tables of the parents' ages would have more than twenty million figures. The message names
/// the dates that may be wrong, with their lines: those of the oldest parent and its young and, when the birth years
/// are more than 1000, those of an animal of the first year and one of the last.
void check_parent_ages(const PopulationStore& store, const OldestParents& oldest, std::string_view data_file,
                       RunStreams& streams);

/// Stops the run when the report would have more than 1 GB, or a line of more than 1 MB. The message gives the size,
/// the counts that make it, and what to do.
void check_report_bytes(const ReportBytes& bytes, const ReportShape& shape, std::string_view data_file,
                        RunStreams& streams);

}  // namespace pedigreewatch
