// Exports that name the parents beside their identifications: where the two disagree one of them is wrong, and nothing
// else tells.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "intake/column_choice.h"
#include "intake/export_records.h"

namespace pedigreewatch {

/// A column of parents' names is compared when of so many names and more whose animal is known ...
inline constexpr std::int64_t fewest_compared_names = 20;
/// ... not one in so many is that of another animal: else they are names of another kind.
inline constexpr std::int64_t tolerated_other_names = 10;

/// The columns of the fathers' and of the mothers' names, counted from 0, where the headings name just one and it is in
/// no other use; none without a header, and where a line holds several animals.
std::array<std::optional<std::size_t>, 2> parent_name_places(const ColumnChoice& columns);

/// The name that stands in such a column of a parent without an identification; empty when there is none.
std::string_view name_without_id(const ExportRecord& record, const ColumnChoice& columns,
                                 const std::array<std::optional<std::size_t>, 2>& places, std::size_t parent);

/// The names of animals by their identifications. Views of the text of the export, which outlives them.
struct ParentNames {
  std::array<std::optional<std::size_t>, 2> places;  ///< of the fathers' names, of the mothers'; none: not compared
  std::unordered_map<std::string_view, std::string_view> name_of;
  std::unordered_set<std::uint64_t> names;  ///< all names, folded, as hashes
};

/// Reads the names of all animals, where the headings name columns of parents' names, and the columns fit.
ParentNames find_parent_names(std::string_view text, char delimiter, const ColumnChoice& columns);

/// The name of the father (0) or the mother (1) where it is not that of the parent's own line but exactly that of
/// another animal; else empty. A name that is part of the other one contradicts nothing.
std::string_view contradicting_name(const ParentNames& names, const ExportRecord& record, const ColumnChoice& columns,
                                    std::size_t parent);

}  // namespace pedigreewatch
