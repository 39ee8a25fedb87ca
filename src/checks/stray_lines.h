// Lines that were taken for animals and are none, as the whole file shows.
#pragma once

#include "checks/findings.h"
#include "checks/pedigree_columns.h"

namespace pedigreewatch {

/// Finds lines with nothing but one text that is written like no identification and that no animal has as a parent:
/// totals and remarks at the end of a file. They get the mark of a line that is no animal.
void check_stray_lines(PedigreeColumns& animals, Findings& findings);

}  // namespace pedigreewatch
