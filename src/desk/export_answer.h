// What the desk says of an export: what was recognised with its evidence, the first lines, and everything that its user
// can choose, with counts.
#pragma once

#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// An object; `messages` are lines that stand in the way.
std::string export_answer(const Desk& desk, std::string_view messages);

/// Everything that was decided, with the words of the report's language instead of the desk's.
PreparePlan plan_of_report(const Desk& desk);

}  // namespace pedigreewatch
