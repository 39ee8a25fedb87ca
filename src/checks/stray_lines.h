// Lines that were taken for animals and are none, as the whole file shows.
#pragma once

#include <string_view>

#include "checks/findings.h"
#include "checks/pedigree_columns.h"

namespace pedigreewatch {

/// Finds lines with nothing but one text that is written like no identification and that no animal has as a parent:
/// totals and remarks at the end of a file. They get the mark of a line that is no animal.
void check_stray_lines(PedigreeColumns& animals, Findings& findings);

/// Whether a text has a word that totals, headers and footers have and identifications have not.
bool has_remark_word(std::string_view text);

}  // namespace pedigreewatch
