// The lines that many tables of the report share: blank lines, rules, headings, and tables of counts with a column
// for each colour, age, litter size, breeder or subpopulation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "control/species.h"
#include "core/line_writer.h"
#include "core/wording.h"
#include "core/year_table.h"

namespace pedigreewatch {

/// What every table writer needs to know of the run.
struct ReportFrame {
  TextOutput& report;
  const BirthYears& years;
  const SpeciesNouns& nouns;
  bool english = false;
};

/// A line of blanks, behind the blank with which every free-form line begins.
void write_blank_line(TextOutput& report, std::size_t blanks = 11);

/// A free-form rule of underscores.
void write_rule(TextOutput& report, std::size_t length);

/// A rule of 86 plus signs, without a leading blank.
void write_plus_rule(TextOutput& report);

/// One free-form line for each wording.
void write_headings(const ReportFrame& frame, std::span<const Wording> headings);
void write_heading(const ReportFrame& frame, const Wording& heading);

/// The sum of each column over all years.
std::vector<std::int64_t> column_sums(const YearTable<std::int32_t>& table);

/// A heading row: the label in 8 columns, then the numbers 1 to `count` in 8 columns each.
void write_column_numbers(TextOutput& report, std::string_view label, std::int64_t count);

/// A heading row: the label, then each text cut or right-justified in 8 columns.
void write_column_names(TextOutput& report, std::string_view label, std::span<const std::string_view> names);

/// A row for each year from first to last: the year, then all columns of the table, in 8 columns each.
void write_count_rows(const ReportFrame& frame, const YearTable<std::int32_t>& table);

/// A total row: the label, then the values, in 8 columns each.
void write_count_total(TextOutput& report, std::string_view label, std::span<const std::int64_t> totals);

}  // namespace pedigreewatch
