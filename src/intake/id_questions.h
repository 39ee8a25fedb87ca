// What has to be asked about the identifications.
#pragma once

#include <vector>

#include "intake/column_choice.h"
#include "intake/export_survey.h"
#include "intake/prepare_options.h"
#include "intake/remark.h"

namespace pedigreewatch {

/// Identifications that a spreadsheet has destroyed, and a rule by which parents without a line would have one; nothing
/// when the user has said how identifications are to be taken.
std::vector<Question> ask_for_ids(const ExportSurvey& survey, const ColumnChoice& columns,
                                  const PrepareOptions& options);

/// Whether the signs between thousands are left out: where all identifications, those of parents too, are numbers
/// written with them.
bool leaves_out_thousands_signs(const ExportSurvey& survey, const PrepareOptions& options);

}  // namespace pedigreewatch
