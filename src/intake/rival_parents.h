// A second column of fathers or mothers beside the one in use: the genetic mother beside the one that reared, the
// corrected sire beside the recorded one. Nobody but the user knows which of them is the parent.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "intake/column_choice.h"
#include "intake/export_survey.h"
#include "intake/id_matches.h"
#include "intake/prepare_options.h"

namespace pedigreewatch {

/// A rival whose heading does not name the parent says the same as the column in use on so many of a hundred lines, and
/// more, that have both: sires of mothers are male ids too.
inline constexpr std::int64_t agreeing_percent = 50;

/// The columns, by their places counted from 0, that hold this parent as well as the chosen column does, by heading
/// and content, and name another one on a line at least. None where the user has named the column.
std::vector<std::size_t> find_rival_parents(const ExportTable& table, const ExportSurvey& survey, FieldCode parent,
                                            const PrepareOptions& options);

}  // namespace pedigreewatch
