// Says on the console what was recognised in an export, with the counts that speak for it.
#pragma once

#include <string_view>

#include "core/text_output.h"
#include "intake/delimiter_recognition.h"
#include "intake/export_survey.h"
#include "intake/finding_lists.h"
#include "intake/prepare_plan.h"
#include "text/encoding.h"

namespace pedigreewatch {

/// What was recognised before the columns were known.
struct ReadingFindings {
  EncodingEvidence encoding;
  Encoding used_encoding = Encoding::plain;
  std::int64_t mended_bytes = 0, broken_letters = 0;
  bool ends_in_half_letter = false;
  std::string letter_example;  ///< a text with an accent
  char delimiter = ';';        ///< of the export
  DelimiterEvidence delimiter_evidence;
};

void show_reading(const ReadingFindings& findings, const PrepareOptions& options, TextOutput& console);
void show_columns(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console);
void show_contents(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console);
void show_repairs(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console);

/// A character as people call it: "; (semicolon)".
std::string name_of_delimiter(char delimiter, ToolLanguage language);

}  // namespace pedigreewatch
