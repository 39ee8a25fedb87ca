// Rules and blank lines are free-form lines, with a blank in front; the rule of plus signs is a format line without
// one.

#include "reports/report_lines.h"

#include <iterator>
#include <string>

namespace pedigreewatch {

const SpeciesWord& noun_of(const ReportFrame& frame, const NounForms& forms) {
  return frame.nouns.*(frame.report.is_english ? forms.english : forms.dutch);
}

void write_blank_line(TextOutput& report, std::size_t blanks) {
  write_free_line(report, {std::string(blanks, ' ')});
}

void write_rule(TextOutput& report, std::size_t length) {
  write_free_line(report, {std::string(length, '_')});
}

void write_plus_rule(TextOutput& report) {
  write_format_line(report, "A86", {std::string(86, '+')});
}

void write_heading(const ReportFrame& frame, const Wording& heading) {
  write_free_line(frame.report, {heading});
}

void write_headings(const ReportFrame& frame, std::span<const Wording> headings) {
  for (const Wording& heading : headings) write_heading(frame, heading);
}

std::vector<std::int64_t> column_sums(const YearTable<std::int32_t>& table) {
  std::vector<std::int64_t> sums(static_cast<std::size_t>(table.column_count), 0);
  for (const std::vector<std::int32_t>& row : table.stored) {
    for (std::size_t i = 0; i < row.size(); ++i) sums[i] += row[i];
  }
  return sums;
}

void write_column_numbers(TextOutput& report, std::string_view label, std::int64_t count) {
  std::vector<LineItem> items = {label};
  for (std::int64_t number = 1; number <= count; ++number) items.emplace_back(number);
  write_format_line(report, row_fields("A8", count, "I8"), items);
}

void write_count_rows(const ReportFrame& frame, const YearTable<std::int32_t>& table) {
  write_year_rows(frame, table, 1, table.column_count, "I8");
}

void write_count_total(TextOutput& report, const LineItem& label, std::span<const std::int64_t> totals) {
  std::vector<LineItem> items = {label};
  items.insert(items.end(), totals.begin(), totals.end());
  write_format_line(report, row_fields("A8", std::ssize(totals), "I8"), items);
}

}  // namespace pedigreewatch
