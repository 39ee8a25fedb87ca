// Which cells of the export a finding says are wrong: those that are given up when the user goes on without them, and
// the one that is marked when the finding is mended. What a finding cannot tell is accused of nothing.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "checks/check.h"
#include "pedigree/header_words.h"

namespace pedigreewatch {

/// What can be given up of the animals of a finding so that the others can be computed.
struct WaysOn {
  bool dates = false, parents = false;
};
/// Of a kind of findings; one of the kind may still accuse no parent.
WaysOn ways_on(FindingCode code);

/// Of a finding. Of a parent in both roles the rarer one is given up, and nothing where both are as frequent.
WaysOn ways_on(const Finding& finding);

/// The parent that a finding speaks of as the wrong one; none where it is about no parent or cannot tell.
ParentRole accused_parent(const Finding& finding);
/// The field of a parent; `unused_column` for none.
FieldCode field_of_parent(ParentRole role);

/// Whether a finding is about a text wherever it stands; otherwise other lines with the same text may be right.
bool is_about_text(FindingCode code);

/// A cell that is given up.
struct AccusedCell {
  FindingCode code = FindingCode::utf_16;  ///< of the finding
  FieldCode field = unused_column;
  std::int64_t line = 0;  ///< of the export, counted from 1
  std::string id;         ///< of the animal; empty for all animals of the line
};

/// The dates, or else the parents, that these findings accuse. One pass over the animals at most.
std::vector<AccusedCell> accused_cells(const CheckResult& check, std::span<const Finding* const> findings, bool dates);

/// Whether father and mother of the line seem exchanged: both are named in this role in this line alone, the one the
/// wrong sex for it or known more often in the other role, and so is the other.
bool are_parents_exchanged(const Findings& findings, std::int32_t line);

}  // namespace pedigreewatch
