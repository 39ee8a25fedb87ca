// Second young of a line under headings that do not say so ("Calf;Twin"): a column of texts that are written as the
// identifications are and are none of them, and that most lines leave empty.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "intake/column_choice.h"
#include "intake/column_profiles.h"

namespace pedigreewatch {

/// Columns that may hold the ids of further young of a line.
struct RareYoung {
  std::vector<std::size_t> places;  ///< counted from 0, in the order of the export
  std::int64_t parents = 0;         ///< that stand in them, and not in the column of the id
  bool are_named = false;           ///< all of their headings say young or twin
};

/// Whether a heading says young, twin, triplet, ... and nothing else that a column of ids does not hold.
bool names_further_young(std::string_view heading);

/// The columns whose first texts are written as the ids are and stand in less than nine of ten lines, but for those
/// whose headings tell that they hold something else. Of a large export pieces are looked at.
std::vector<std::size_t> columns_like_ids(std::string_view text, char delimiter, const ColumnChoice& columns);

/// Those of them whose texts nearly all differ and are no ids of the column of the id: some of them are parents, or
/// there are three texts or more, or one under a heading that names further young, at most half as many as ids. Names
/// in the place of numbers tell nothing unless one is a parent.
RareYoung find_rare_young(std::span<const std::size_t> candidates, std::span<const ColumnProfile> profiles,
                          const ColumnChoice& columns);

}  // namespace pedigreewatch
