// Litters of which one young has another mother than its mates.
#pragma once

#include "checks/findings.h"
#include "checks/pedigree_columns.h"

namespace pedigreewatch {

/// Finds the young of one sire and one day, standing together in the file, of which one alone has another dam; only in
/// a file in which such young nearly always have one dam, so that another one is no other litter of that day.
void check_litter_dams(const PedigreeColumns& animals, Findings& findings);

}  // namespace pedigreewatch
