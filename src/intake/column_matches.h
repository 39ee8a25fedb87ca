// Whether the columns of the parents and that of the identification belong together: where they do not, which other
// columns would.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "intake/column_choice.h"
#include "intake/content_choice.h"
#include "intake/export_survey.h"
#include "intake/remark.h"

namespace pedigreewatch {

/// Whether more than half of the parents have no line of their own.
bool lack_lines(const LinkCount& parents);

/// Reads the export again and finds out, for the parents of each sex that lack lines, which columns hold them (as the
/// identification would) and which columns hold texts that are identifications (as that of the parents would). Large
/// exports are judged by a sample.
ColumnMatches match_columns(std::string_view text, char delimiter, const ColumnChoice& columns);

/// Asks for the columns of father, mother and identification where the parents lack lines, but for those that the user
/// has named.
std::vector<Question> ask_for_linked_columns(const ExportSurvey& survey, const ColumnChoice& columns,
                                             const PrepareOptions& options);

/// Asks for the columns of father and mother where more than one in ten is of the wrong sex, but for those that the
/// user has named.
void ask_for_parents_of_wrong_sex(const ExportSurvey& survey, const ColumnChoice& columns,
                                  const PrepareOptions& options, std::vector<Question>& questions);

}  // namespace pedigreewatch
