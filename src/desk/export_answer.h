// What the desk says of an export: what was recognised with its evidence, the first lines, and everything that its user
// can choose, with counts.
#pragma once

#include <optional>
#include <string>

#include "desk/desk.h"

namespace pedigreewatch {

/// An object; `refusal` is what stands in the way.
std::string export_answer(const Desk& desk, const std::optional<Refusal>& refusal);

/// Everything that was decided, with the words of the report's language instead of the desk's.
PreparePlan plan_of_report(const Desk& desk);

}  // namespace pedigreewatch
