// One animal that stands in the file with two identifications.
#pragma once

#include <string_view>

#include "checks/findings.h"
#include "checks/pedigree_columns.h"

namespace pedigreewatch {

/// Finds animals of the same date, sex and parents whose names are the same but for capitals, blanks, accents and
/// signs, or, with a known parent, but for the affix of a kennel or stud in front or behind.
void check_same_animals(const PedigreeColumns& animals, Findings& findings);

/// Whether two names can be those of one animal: "Bello", "BELLO" and "Bello van de Hoeve".
bool are_same_name(std::string_view a, std::string_view b);

}  // namespace pedigreewatch
