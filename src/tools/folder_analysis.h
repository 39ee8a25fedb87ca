// What page, tables and matings begin with: the steer file and the data file of the folder, and everything computed
// from them as a report run does it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "control/population_analysis.h"
#include "intake/phrases.h"
#include "intake/prepare.h"

namespace pedigreewatch {

/// Yields nothing after a message: a file is missing, or its data stop a run.
std::optional<AnalysedPopulation> analyse_folder(ToolStreams& streams);

/// The language of the steer file.
ToolLanguage language_of(const SteerSettings& settings);

/// A file beside the report: its name with `ending` in place of what stands behind the last full stop ("_years.tsv").
std::string name_beside_report(const SteerSettings& settings, std::string_view ending);

}  // namespace pedigreewatch
