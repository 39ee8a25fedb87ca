#include "reports/import_table.h"

namespace pedigreewatch {

void write_imports(const ReportFrame& frame, const YearTable<std::int32_t>& import_pairs) {
  constexpr std::size_t upper_rule = 52, lower_rule = 53;
  TextOutput& report = frame.report;
  write_free_line(report, {"           IMPORT: aantal pups geboren uit nederlandse of importouders"});
  write_rule(report, upper_rule);
  write_free_line(report, {"  geb.   NL x NL  imp. x NL  NL x imp imp. x imp.   "});
  write_free_line(report, {" jaar "});
  write_rule(report, upper_rule);
  for (std::int64_t row = 1; row <= frame.years.dated_row_count(); ++row) {
    const auto count = [&](ImportPairColumn column) { return import_pairs.value(row, column); };
    write_format_line(report, "5I10",
                      {frame.years.year_of(row), count(both_native), count(sire_imported), count(dam_imported),
                       count(both_imported)});
  }
  write_rule(report, lower_rule);
  const std::vector<std::int64_t> sums = column_sums(import_pairs);
  write_format_line(report, "A8,4I10", {" totaal ", sums[0], sums[1], sums[2], sums[3]});
  write_rule(report, lower_rule);
}

}  // namespace pedigreewatch
