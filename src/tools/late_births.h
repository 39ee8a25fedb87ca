// Animals whose date of birth lies after today, or alone after years without births: said by what goes by the last
// birth year.
#pragma once

#include "standing/verdict.h"
#include "tools/folder_command.h"

namespace pedigreewatch {

/// Of the data file that the settings name, before the population is in memory. None when it cannot be read.
LateBirths find_late_births(const SteerSettings& settings, ToolStreams& streams);

/// Names them on the console with what they do, in one line; says nothing where there are none.
void say_late_births(const FolderRun& run, const LateBirths& births);

/// As `run_in_folder`, such animals being named before the step is taken.
int run_with_late_births(std::string_view subcommand, std::string_view problem, ToolStreams& streams,
                         const FolderStep& step);

}  // namespace pedigreewatch
