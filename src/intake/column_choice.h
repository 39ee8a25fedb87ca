// The columns of an export that are used: those that the user names, and those that the header tells.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "intake/column_recognition.h"
#include "intake/export_records.h"
#include "intake/heading_lines.h"
#include "intake/prepare_options.h"
#include "intake/remark.h"
#include "intake/table_start.h"
#include "intake/text_style.h"

namespace pedigreewatch {

struct ColumnContents;

struct ColumnChoice {
  TableStart table;  ///< where the header stands, or the first animal
  bool has_header = false;
  std::vector<std::string> headings;  ///< of all columns; their numbers where there is no header
  std::array<std::optional<std::size_t>, field_count> place = {};  ///< for each field its column, counted from 0
  std::array<bool, field_count> is_by_content = {};                ///< the heading is unknown, or not the usual one
  ColumnPlaces further;                                            ///< columns that would fit too, and are not taken
  std::vector<Question> questions;                                 ///< what the user has to say
  TextStyle id_style;                                              ///< how ids are written
  std::int64_t count_line = 0;  ///< the last one, where it holds the number of animals and no more; 0: it does not
  std::vector<HeadingTexts> heading_lines;  ///< further lines of headings below the header
  std::vector<LineAnimal> animals_of_line;  ///< of a line that holds several; else none
};

/// Chooses among the columns of `first_record`, which is the header or, where there is none, the first animal; what it
/// looks like decides where no heading is known, and what stands in the columns where the headings leave them open.
ColumnChoice choose_columns(std::span<const std::string> first_record, const PrepareOptions& options,
                            FirstRecord looks = FirstRecord::unclear, const ColumnContents* contents = nullptr);

/// The columns with this heading: exactly, else in folded form; a number names a column where no heading is like it.
std::vector<std::size_t> find_columns(const std::string& wish, const ColumnChoice& choice);

/// Asks which of these columns holds the field. `contents`, where they are known, tell what speaks for each.
void ask_which(FieldCode code, std::span<const std::size_t> places, const ColumnContents* contents,
               ColumnChoice& choice);

/// Whether the column at this place, counted from 0, holds one of the fields.
bool holds_field(const ColumnChoice& columns, std::size_t place);

/// Whether several columns may be the identification of the animals, and the user has to say which.
bool has_open_id(const ColumnChoice& choice);

/// Whether a column that the program cannot run without is not decided on.
bool has_open_column(const ColumnChoice& choice);

/// Columns, by their places counted from 0, as a remark or a question names them.
ColumnList list_columns(std::span<const std::size_t> places, const ColumnChoice& choice);

/// What a field holds, for people: "id of the animal".
std::string_view description_of(FieldCode code, ToolLanguage language);

/// The fields that the data file holds, in the order of its columns.
std::span<const FieldCode> written_fields();

/// Whether the program cannot run without the field.
bool is_required(FieldCode code);

}  // namespace pedigreewatch
