// An export on its way to a data file: read and decoded, its columns chosen, surveyed, and everything decided about it.
// What the user says in between makes some steps be taken again, not all.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/file_state.h"
#include "core/tool_streams.h"
#include "intake/answers_file.h"
#include "intake/column_choice.h"
#include "intake/corrected_text.h"
#include "intake/delimiter_recognition.h"
#include "intake/export_survey.h"
#include "intake/prepare_plan.h"
#include "intake/remark.h"
#include "sheets/sheet_table.h"
#include "sheets/workbook.h"
#include "text/encoding.h"

namespace pedigreewatch {

/// What was recognised before the columns were known.
struct ReadingEvidence {
  EncodingEvidence encoding;
  Encoding used_encoding = Encoding::plain;
  std::int64_t mended_bytes = 0, broken_letters = 0;
  bool ends_in_half_letter = false;
  std::int64_t doubled_letters = 0;   ///< that were turned into UTF-8 twice
  bool are_doubled_mended = false;    ///< or else were left as they stand
  std::vector<IdPair> doubled_words;  ///< the first two: as they stand, and as they are meant
  std::string letter_example;         ///< a text with an accent
  char delimiter = ';';               ///< of the export
  DelimiterEvidence delimiter_evidence;
  std::optional<SheetTable> sheet;       ///< of a workbook: what was noted of it; its text is that of the preparation
  std::vector<std::string> sheet_names;  ///< all sheets of the workbook
  std::vector<AlikeSheet> alike_sheets;  ///< with the headings of the one that is read, which nobody has named
};

struct Preparation {
  FileState export_state;  ///< when it was opened: somebody may write it while it is read
  std::string text;        ///< the export in UTF-8, corrected
  ReadingEvidence reading;
  ColumnChoice columns;  ///< those that were surveyed
  ExportSurvey survey;
  PreparePlan plan;
  std::vector<CorrectionOutcome> corrections;  ///< what became of those of the options
  SavedAnswers answers;                        ///< those of an earlier export that were used
};

/// All bytes of a file. Yields 0, or the number of the system's error, or `input_has_changed`.
int read_file_bytes(const std::string& name, std::string& bytes);

/// Reads the export and finds out its encoding and its delimiter. Yields why that is impossible.
std::optional<Refusal> read_and_recognise(const PrepareOptions& options, Preparation& result);

/// Chooses the columns and surveys what stands in them. Yields why that is impossible.
std::optional<Refusal> survey_columns(const PrepareOptions& options, ProgressLine& progress, Preparation& result);

/// Applies the corrections to the text that was surveyed, and surveys it again where that changes anything. Yields why
/// that is impossible.
std::optional<Refusal> correct_export(const PrepareOptions& options, ProgressLine& progress, Preparation& result);

/// Decides everything; what stays open are the questions of the plan.
void decide(const PrepareOptions& options, Preparation& result);

/// What the survey shows that cannot be written at all.
std::optional<Refusal> refusal_of_survey(const Preparation& read, const PrepareOptions& options);

}  // namespace pedigreewatch
