// Texts of the data file in a table that a spreadsheet opens: some begin like a formula, which it would work out.
#pragma once

#include <string>
#include <string_view>

namespace pedigreewatch {

/// Whether a spreadsheet may take the text for a formula: it begins with =, +, -, @, a tab or a return, and is no
/// number such as -1, +2.5 or -1,5e3.
bool begins_a_formula(std::string_view text);

/// The text as a cell; one that begins a formula stands behind an apostrophe, by which spreadsheets know a text.
std::string as_text_cell(std::string_view text);

}  // namespace pedigreewatch
