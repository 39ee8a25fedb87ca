// Animals that are their own ancestors.
#pragma once

#include "checks/findings.h"
#include "checks/pedigree_columns.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Finds every group of animals that are ancestors of each other, once, and shows a shortest loop in it as a chain. The
/// groups are the strongly connected components of the pedigree (Tarjan, 1972), found without recursion.
void check_loops(const PedigreeColumns& animals, ToolLanguage language, Findings& findings);

}  // namespace pedigreewatch
