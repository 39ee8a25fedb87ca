// For every kind of finding its name and title, how serious it is, what it falsifies, and what it says in both
// languages.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "checks/findings.h"
#include "core/wording.h"
#include "text/phrases.h"

namespace pedigreewatch {

enum class Severity : std::uint8_t { stops, falsifies, look };

/// The figures of the report that a finding falsifies, one bit each.
enum ReportPart : std::uint32_t {
  no_part = 0,
  part_inbreeding = 1U << 0U,
  part_effective_size = 1U << 1U,
  part_population_size = 1U << 2U,
  part_offspring = 1U << 3U,
  part_litters = 1U << 4U,
  part_parent_ages = 1U << 5U,
  part_interval = 1U << 6U,
  part_completeness = 1U << 7U,
  part_top_sires = 1U << 8U,
  part_breeders = 1U << 9U,
  part_colours = 1U << 10U,
  part_subpopulations = 1U << 11U,
  part_imports = 1U << 12U,
  every_part = (1U << 13U) - 1,
};

/// What is filled in where a message names it in braces: the texts, the other line and the numbers of a finding,
/// "father" or "mother" and the same with a capital, the sex that such a parent does not have, and "1 animal", "2
/// animals" by the first number, as "1 day", "1 young" and "1 column"; young by the other number too. A message that
/// names anything else does not compile.
inline constexpr auto finding_places =
    std::to_array<std::string_view>({"text", "other_text", "line", "number", "other_number", "parent", "Parent",
                                     "wrong_sex", "animals", "days", "young", "other_young", "columns"});

struct FindingKind {
  FindingCode code = FindingCode::utf_16;
  std::string_view name;  ///< as --code takes it
  Severity severity = Severity::look;
  std::uint32_t parts = no_part;  ///< bits of ReportPart
  Wording title;                  ///< the kind in a few words, without figures of a finding
  Wording message;
};

const FindingKind& kind_of(FindingCode code);

/// The kind that a user names; nothing for a name that is none.
std::optional<FindingCode> finding_code_named(std::string_view name);

/// "S", "W" or "L".
std::string_view letter_of(Severity severity);

/// "The run stops" and the like.
std::string heading_of(Severity severity, ToolLanguage language);

/// "inbreeding and kinship, litters"; empty for none.
std::string list_parts(std::uint32_t parts, ToolLanguage language);

}  // namespace pedigreewatch
