// Puts corrections into the text of an export, before anything is counted in it. Lines keep their numbers.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "corrections/correction_list.h"
#include "intake/column_choice.h"
#include "intake/export_records.h"

namespace pedigreewatch {

enum class CorrectionFate : std::uint8_t {
  applied,
  already_so,  ///< the export says already what the correction would make of it
  differs,     ///< something else stands there now
  no_animal,   ///< no line has the identification
  no_column,   ///< the export has no column for the field
  id_taken,    ///< another animal has the new identification
  no_other,    ///< the animal that it shall be has no line, or is in the end the animal itself
  has_new_id,  ///< the line that had the identification got another one by an earlier correction
  has_gone,    ///< the line that had it was left out by an earlier correction
};

/// What became of a correction.
struct CorrectionOutcome {
  CorrectionFate fate = CorrectionFate::no_animal;
  /// Of the export, counted from 1: the line that was corrected, or was found instead; that of the animal that has the
  /// new identification.
  std::int64_t line = 0;
  /// What stands there where it differs; the name of the animal that has the new identification; the new identification
  /// of one that has it by an earlier correction.
  std::string now;
};

/// Applies the corrections in their order, each where the text still is what it was, and yields what became of each. An
/// identification that another animal has by then is not given. A line that is left out becomes blank. `text` is left
/// as it is where nothing applies.
std::vector<CorrectionOutcome> apply_corrections(std::string& text, char delimiter, const ColumnChoice& columns,
                                                 std::span<const Correction> corrections);

/// The columns that say something of the first animal of a line, or of the only one: all but those of the others.
std::vector<std::size_t> columns_of_first_animal(const ColumnChoice& columns);

/// The fields of a record as a correction keeps a whole line: trimmed, with " | " between them.
std::string line_text(const ExportRecord& record);

}  // namespace pedigreewatch
