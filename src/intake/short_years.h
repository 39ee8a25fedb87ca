// Compares the years of two digits of animals with those of their parents.
#pragma once

#include <string_view>

#include "intake/birth_circle.h"
#include "intake/column_choice.h"

namespace pedigreewatch {

/// Reads the export once more and compares the animals whose year has two digits with their parents. Large exports are
/// judged by a sample of the parents.
ShortYears compare_short_years(std::string_view text, char delimiter, const ColumnChoice& columns);

}  // namespace pedigreewatch
