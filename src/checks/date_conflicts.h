// Dates of relatives that cannot all be right.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "checks/check_limits.h"
#include "checks/findings.h"
#include "checks/pedigree_columns.h"
#include "checks/reading_plan.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Two animals whose dates do not fit together, and what is said of them if each is told by itself.
struct DateConflict {
  std::array<std::int32_t, 2> animals = {};  ///< the young, or the later one, first
  Finding finding;
};

/// Tells the conflicts. An animal whose date stands against those of several relatives, more of them than theirs
/// against others, has a wrong date itself: that is one finding, with the years that would fit and the lines of the
/// relatives. Sires and dams that are merely old at several births are one finding too.
void report_conflicts(const PedigreeColumns& animals, std::vector<DateConflict>& conflicts, const CheckLimits& limits,
                      ToolLanguage language, Findings& findings);

}  // namespace pedigreewatch
