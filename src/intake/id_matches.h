// Parents that would have a line of their own if their identification were written as that of an animal: whether one
// rule explains them, and which animal each of them is then.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "intake/column_choice.h"
#include "intake/id_rules.h"
#include "intake/parent_links.h"

namespace pedigreewatch {

/// Fewer parents without a line ask for no rule: `check` tells each of them.
inline constexpr std::int64_t fewest_explained_parents = 3;
/// A rule is proposed when it leaves at most one in so many of them without a line.
inline constexpr std::int64_t tolerated_unexplained = 10;

/// Whether the rules explain nearly all of the parents without a line.
bool is_worth_asking(const IdProposal& proposal);

/// The export, and what is said of it.
struct ExportTable {
  std::string_view text;
  char delimiter = ';';
  const ColumnChoice& columns;
  std::span<const std::string> unknown;  ///< texts for unknown parents besides the usual ones
};

/// Tries each rule on the parents without a line that the survey has found, or some of them where they are many, and
/// reads the export again for it. A rule counts for a parent only where it points to one animal.
IdProposal propose_id_rules(const ExportTable& table, const ParentLinks& links);

/// The animals that parents without a line are by the rules, each with exactly one.
IdSubstitutes find_substitutes(const ExportTable& table, IdRules rules);

/// The examples that a question shows.
inline constexpr std::size_t most_id_examples = 4;

}  // namespace pedigreewatch
