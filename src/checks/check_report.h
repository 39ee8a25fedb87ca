// Says what was found: a summary and the first findings of each kind on the console, all of them in a table.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checks/check.h"
#include "checks/line_list.h"
#include "core/new_files.h"
#include "core/text_output.h"
#include "sheets/workbook_writer.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// What a report of findings is about.
struct CheckReport {
  std::string data_file, table_file;
  ToolLanguage language = ToolLanguage::english;
  std::optional<FindingCode> wanted;  ///< only this kind, in full
  std::string export_name = {};       ///< the file whose lines are named; empty: the data file
  bool is_plain = false;              ///< cells that begin like a formula are written as they are
};

/// The message of a finding without its place, in UTF-8. Of findings with several lines it names the first few places.
std::string message_of(const Finding& finding, const CheckResult& result, ToolLanguage language,
                       std::size_t most_places = few_places);

/// The line with the names of the table's columns, with its end.
std::string_view table_heading_of(ToolLanguage language);

/// A line of the table, without its end. Cells that begin like a formula stand behind an apostrophe, unless it is
/// plain.
std::string table_row(const Finding& finding, const CheckResult& result, ToolLanguage language, bool is_plain = false);

/// A cell of the table.
struct FindingCell {
  std::string text;
  bool is_number = false;
};

/// The cells of a row of the table, in the order of its columns.
std::vector<FindingCell> table_cells(const Finding& finding, const CheckResult& result, ToolLanguage language);

/// Writes the table: line, column, id, code, severity, text and all lines, with tabs between them, in the order of the
/// lines.
/// Completely or not at all; yields false, with `problem`, when it cannot be written.
bool write_table(CheckResult& result, const CheckReport& report, FileProblem& problem);

/// Puts the findings in the order of lines, as the table has them.
void sort_by_line(Findings& findings);

/// The findings, in the order at hand, as the one sheet of a workbook, which `workbook` has afterwards but for its end.
void write_findings_sheet(const CheckResult& result, ToolLanguage language, WorkbookWriter& workbook);

/// Shows the findings grouped by kind, the most serious kinds first.
void show_findings(CheckResult& result, const CheckReport& report, TextOutput& console);

/// Whether anything is above "look".
bool has_serious_findings(const Findings& findings);

}  // namespace pedigreewatch
