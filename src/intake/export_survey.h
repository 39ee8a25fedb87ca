// What one reading of an export tells: how its records are made, and what stands in each column that is used. Nothing
// is decided here.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/progress_line.h"
#include "intake/animal_lines.h"
#include "intake/availability.h"
#include "intake/column_choice.h"
#include "intake/concluded_sexes.h"
#include "intake/damaged_numbers.h"
#include "intake/date_layout_recognition.h"
#include "intake/doubtful_parents.h"
#include "intake/export_lines.h"
#include "intake/export_records.h"
#include "intake/id_rules.h"
#include "intake/parent_links.h"
#include "intake/text_counts.h"
#include "text/windows_1252.h"

namespace pedigreewatch {

/// An identification that changes when it is cut to its width or written without letters that are lacking.
using ChangedIds = std::unordered_map<std::string, std::string>;  // what is written, and what stood there

/// A column that could hold a field: so many of its texts, or of the parents' texts, stand where they should.
struct ColumnMatch {
  std::size_t place = 0;  ///< counted from 0
  std::int64_t found = 0, of = 0;
};
/// The columns that could hold the parents or the identification instead of those that were surveyed.
struct ColumnMatches {
  std::vector<ColumnMatch> for_parents, for_id;
};

struct ExportSurvey {
  std::int64_t animal_count = 0;
  std::int64_t lines_with_animals = 0;  ///< fewer than the animals where a line holds several
  std::int64_t header_line = 0;         ///< 0: there is none
  std::int64_t blank_lines = 0;
  std::int64_t last_line = 0;          ///< of the export
  std::int64_t unterminated_line = 0;  ///< where a quotation mark is never closed; 0: nowhere
  std::int64_t swallowed_line = 0;     ///< the first whose text in quotation marks holds lines like the others; 0: none
  std::int64_t runaway_line = 0;       ///< the first whose quotation mark runs on into other lines; 0: there is none
  std::int64_t quoted_records = 0;
  std::vector<LineShift> shifts;
  NotedTexts other_field_counts;  ///< lines with more or fewer columns; the text is their number
  NotedTexts bad_quotes;
  NotedTexts headers_again, remark_lines;  ///< lines that hold no animal
  std::array<std::int64_t, field_count> filled = {};
  std::vector<std::int64_t> column_texts;  ///< how many lines have a text in each column, whether it is in use or not
  std::array<bool, 256> occurs = {};       ///< bytes that occur in the columns in use
  std::int64_t leading_blanks = 0;
  LetterCounts letters;
  std::array<NotedTexts, field_count> too_long;
  NotedTexts without_id;
  NotedTexts stillborn;                        ///< in the place of an id, where a line holds several animals
  NotedTexts odd_ids;                          ///< of animals without a sex: an id written unlike all others
  std::array<NotedTexts, 2> names_without_id;  ///< of fathers and mothers whose identification is empty or unknown
  TextCounts unknown_parents, unknown_ids, sexes, imports, subpopulations, colours, date_words;
  DateSurvey dates;
  ParentLinks links;
  ParentTexts parent_texts;
  std::vector<DoubtfulParent> doubtful_parents;
  ColumnMatches matches;  ///< only where most of the parents have no line of their own
  AvailabilitySurvey availability;
  std::vector<Question> import_questions;  ///< whether a column tells which animals are imports
  ConcludedSexes concluded_sexes;          ///< filled only where the sexes of some stand in no column
  ChangedIds changed_ids;
  std::array<NumberForms, field_count> numbers;  ///< of the identifications of animals and parents
  std::int64_t sheet_marks = 0;                  ///< records with texts that a spreadsheet has marked as such
  IdProposal id_proposal;                        ///< filled only where parents have no line, and no rule is wished
  IdSubstitutes id_substitutes;                  ///< filled only where a rule is wished
};

/// The widths of the texts in the data file, in bytes; 0 for fields that are no texts.
std::size_t width_of(FieldCode code);

/// A text as the data file holds it: Windows-1252, without blanks at its ends, cut to the width of its field. Yields
/// whether nothing was lost.
bool append_field_text(std::string& bytes, std::string_view text, FieldCode code, LetterCounts& letters);

/// Reads all of the export. `unknown` are texts that stand for an unknown parent besides the usual ones; `progress`
/// counts the lines.
ExportSurvey survey_export(std::string_view text, char delimiter, const ColumnChoice& columns,
                           std::span<const std::string> unknown, ProgressLine& progress);

/// Two identifications that would be written alike, with the line where it is noticed.
struct IdClash {
  std::int64_t line = 0;
  std::string id, other_id, written;
};

/// Reads the export again when identifications change, and finds those that would become equal. At most 20.
std::vector<IdClash> find_id_clashes(std::string_view text, char delimiter, const ColumnChoice& columns,
                                     const ChangedIds& changed);

}  // namespace pedigreewatch
