// Which columns hold identification, parents, sex and date of birth by what stands in them, where the headings leave it
// open: the identification holds the parents, fathers are male and mothers female.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "intake/column_profiles.h"

namespace pedigreewatch {

/// An export whose columns are compared.
struct ColumnContents {
  std::string_view text;
  char delimiter = ';';
  std::vector<ColumnProfile> profiles;
};

/// Fewer different parents tell nothing about their column.
inline constexpr std::int64_t fewest_judged_parents = 5;

/// Narrows `best`, the columns that the headings allow for each field, to those whose texts fit, and fills in columns
/// whose headings nobody knows where one alone fits. What the user has chosen stands in `choice` already; `further` are
/// columns that the headings allow too. What stays open is asked for.
void narrow_by_content(const ColumnContents& contents, const ColumnPlaces& further, ColumnChoice& choice,
                       ColumnPlaces& best);

}  // namespace pedigreewatch
