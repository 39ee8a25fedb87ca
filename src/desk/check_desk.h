// The third step of the desk: what a check of the data file finds, and the lines that it speaks of as they stand in the
// file that the user brought.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// Checks the data file. Yields an object: messages, animals, canRun, isFromExport (whether lines are
/// those of an export), count, kinds (name, title, severity,
/// severityText, parts, advice, count, canDropDates, canDropParents).
std::string check_files(Desk& desk);

/// Chooses the findings of one kind ("" for all), with `filter` in their identification or their text, capitals alike;
/// those that stop the run first, then those that falsify, in the order of lines. Yields an object: count.
std::string choose_findings(Desk& desk, std::string_view kind, std::string_view filter);

/// `count` of the chosen findings from the one at `first` on. Yields an object: rows (line, column, id, kind: its
/// title, severity, text, original: the line itself).
std::string list_findings(const Desk& desk, std::size_t first, std::size_t count);

/// All findings as a table: the one of `pedigreewatch-tools check`.
std::string findings_table(const Desk& desk);

/// The same as a workbook.
std::string findings_workbook(const Desk& desk);

}  // namespace pedigreewatch
