// What page, tables and matings begin with: the steer file and the data file of the folder, and everything computed
// from them as a report run does it.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "control/population_analysis.h"
#include "core/tool_streams.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Yields nothing after a message: a file is missing, or its data stop a run.
std::optional<AnalysedPopulation> analyse_folder(ToolStreams& streams);

/// The language of the steer file.
ToolLanguage language_of(const SteerSettings& settings);

/// A file beside the report: its name with `ending` in place of what stands behind the last full stop ("_years.tsv").
std::string name_beside_report(const SteerSettings& settings, std::string_view ending);

/// What stands in the way of a file of some name; an older file of its kind does not.
enum class NameObstacle {
  none,
  no_file,    ///< a folder, a device, a link that leads nowhere
  read_file,  ///< one of the files that the run reads
};

/// Looks whether a file may be written under `name`. Beside the steer file and the data file the run reads `lists`;
/// empty names among them are none.
NameObstacle find_obstacle(const std::string& name, const SteerSettings& settings, std::span<const std::string> lists);

}  // namespace pedigreewatch
