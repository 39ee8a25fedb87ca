// The list for the office: what is to be changed in the office program, so that next year's export needs no
// corrections.
#pragma once

#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// Whether an identification stands before another one in a list: numbers in them count as numbers, so that "S9" stands
/// before "S10".
bool stands_before(std::string_view one, std::string_view other);

/// The corrections that the export does not say yet, by animal, as a workbook with one sheet: identification, field,
/// what stands there, what it becomes, why. Empty without an export.
std::string office_workbook(const Desk& desk);

}  // namespace pedigreewatch
