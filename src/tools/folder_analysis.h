// What check, page, tables and matings begin with: the steer file and the data file of the folder, and everything
// computed from them as a report run does it.
#pragma once

#include <optional>

#include "control/population_analysis.h"
#include "control/steer_file.h"
#include "core/line_reader.h"
#include "core/tool_streams.h"

namespace pedigreewatch {

/// Reads the steer file in this folder. Refuses when it is missing, or when a list in it is too long for any report.
std::optional<ToolRefusal> read_settings_of_folder(SteerSettings& settings);

/// Opens the data file that the settings name; refuses when that cannot be done.
std::optional<ToolRefusal> open_data_file(const SteerSettings& settings, LineReader& data);

/// What of a population is used. Its subpopulations and all pairs of them are computed only for who shows them, and
/// refused where they are too many for a report.
enum class FolderUse { animals, subpopulations_too };

/// Computes the population of this folder. Refuses when a file is missing, its data stop a run, or somebody wants it to
/// end.
std::optional<ToolRefusal> analyse_folder(FolderUse use, StopRequest stop_request, AnalysedPopulation& population);

}  // namespace pedigreewatch
