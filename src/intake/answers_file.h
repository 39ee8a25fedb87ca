// What was asked about an export, or chosen, kept for the next one with the same headings: NAME.answers beside the
// written files. It holds the options of `prepare`, one a line, and may be edited.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "intake/column_choice.h"
#include "intake/date_layout_recognition.h"
#include "intake/export_survey.h"
#include "intake/prepare_options.h"

namespace pedigreewatch {

struct AnswerLine {
  std::int64_t line = 0;
  std::string option, value;  ///< "--male", "Ram"
};

struct SavedAnswers {
  std::string file;      ///< empty: there are none
  std::string headings;  ///< of the exports that they are about, as `headings_text` writes them
  std::vector<AnswerLine> lines;
  std::vector<AnswerLine> unfit;  ///< lines that cannot be read, or do not fit the export at hand
  bool give_sexes = false;        ///< what they say of the sexes is used: nothing else was said of them
};

/// The headings of an export as they stand in a file of answers.
std::string headings_text(std::span<const std::string> headings);

/// Reads the text of such a file. Lines that are no option about an export are unfit.
SavedAnswers read_answers(std::string_view text);

/// The text of such a file: everything that the options say about the export, with columns by their headings where
/// these differ from each other.
std::string answers_text(const PrepareOptions& options, const ColumnChoice& columns);

/// The options as they are kept: "all" for parents or for texts of animals that are still there is the texts that it
/// meant in this export, up to a hundred, so that a text of a later one is asked about.
PrepareOptions kept_options(const PrepareOptions& options, const ExportSurvey& survey);

/// Adds what the answers say to the options that say nothing about it. A column whose heading the export lacks is
/// unfit.
void add_answers(SavedAnswers& answers, std::span<const std::string> headings, PrepareOptions& options);

/// Takes out of the options what the answers say of texts that the export does not hold, and of sexes that its parents
/// contradict; such lines are unfit.
void leave_out_unfit_answers(SavedAnswers& answers, const ExportSurvey& survey, PrepareOptions& options);

}  // namespace pedigreewatch
