// Subpopulations and colours that are written in two ways, and colours with a name that the report gives itself.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "checks/findings.h"
#include "intake/text_counts.h"

namespace pedigreewatch {

/// What is told of the names of a column.
struct SpellingKinds {
  FindingCode same;  ///< they differ in capitals, accents, blanks and signs only
  FindingCode near;  ///< they differ in one letter
};

/// Finds names that are another, more frequent one in another spelling. Where names are `listed` only those count: all
/// others are told as not listed.
void check_spellings(const TextCounts& names, std::span<const std::string> listed, std::uint16_t column,
                     const SpellingKinds& kinds, Findings& findings);

/// Finds colours that are `listed` and called as a column that the report adds: "Onbekend", "niet erkend".
void check_reserved_colours(const TextCounts& colours, std::span<const std::string> listed, std::uint16_t column,
                            Findings& findings);

}  // namespace pedigreewatch
