// The columns of an export that are used: those that the user names, and those that the header tells.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "intake/column_recognition.h"
#include "intake/prepare_options.h"
#include "intake/remark.h"

namespace pedigreewatch {

struct ColumnChoice {
  bool has_header = false;
  std::vector<std::string> headings;  ///< of all columns; their numbers where there is no header
  std::array<std::optional<std::size_t>, field_count> place = {};  ///< for each field its column, counted from 0
  ColumnPlaces further;                                            ///< columns that would fit too, and are not taken
  std::vector<Question> questions;                                 ///< what the user has to say
};

/// Chooses among the columns of `first_record`, which is the header or, where there is none, the first animal.
ColumnChoice choose_columns(std::span<const std::string> first_record, const PrepareOptions& options);

/// Columns, by their places counted from 0, as a remark or a question names them.
ColumnList list_columns(std::span<const std::size_t> places, const ColumnChoice& choice);

/// What a field holds, for people: "id of the animal".
std::string_view description_of(FieldCode code, ToolLanguage language);

/// The fields that the data file holds, in the order of its columns.
std::span<const FieldCode> written_fields();

/// Whether the program cannot run without the field.
bool is_required(FieldCode code);

}  // namespace pedigreewatch
