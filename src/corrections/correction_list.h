// Corrections of an export: what stands in it, what shall stand there instead, and why. The export itself is never
// changed; a list of corrections is kept beside it and applied whenever it is read, next year's export too.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pedigree/header_words.h"

namespace pedigreewatch {

enum class CorrectionKind : std::uint8_t {
  value,      ///< another text in a field
  leave_out,  ///< the animal's line is left out
  same_as,    ///< it is another animal: its line is left out, and its offspring get the other one as their parent
};

/// Texts are UTF-8 without tabs and line ends.
struct Correction {
  std::string id;  ///< of the animal, as the export has it
  CorrectionKind kind = CorrectionKind::value;
  FieldCode field = unused_column;  ///< of a value
  std::string was;      ///< the text of the field; of a line that is left out its fields, as `line_text` yields them
  std::string becomes;  ///< the new text, empty for unknown; the other animal's identification
  std::string why, when;

  friend bool operator==(const Correction&, const Correction&) = default;
};

/// Lines of a list that could not be read.
struct CorrectionFault {
  std::int64_t line = 0;  ///< of the list, counted from 1
  std::string text;       ///< the field or the line that is not understood
  bool is_field = false;  ///< the name of the field is not known; otherwise the line has too few columns
};

struct CorrectionList {
  std::vector<Correction> corrections;
  std::vector<CorrectionFault> faults;
};

/// Reads a list: a heading (another one further down, where lists were joined, is read over), and a line for each
/// correction with tabs between id, field, was, becomes, why and when; the last two may be missing. A byte order mark,
/// blank lines, and quotation marks that a spreadsheet has put around a cell are read over.
CorrectionList read_corrections(std::string_view text);

/// The list as text: what `read_corrections` reads.
std::string corrections_text(std::span<const Correction> corrections);

/// The name of a field in the list: "birthdate", and "leave out" or "same as" for the animal as a whole.
std::string_view field_name(const Correction& correction);

/// Adds a correction. One of the same field of the same animal whose new text this one corrects again is changed
/// instead; what comes back to where it was is dropped.
void add_correction(std::vector<Correction>& corrections, Correction correction);

/// Cells as one text, as a correction keeps a line that is left out: with " | " between them.
std::string joined_cells(std::span<const std::string> cells);

/// A text without what would begin another cell or line, and without blanks around it.
std::string correction_cell(std::string_view text);

}  // namespace pedigreewatch
