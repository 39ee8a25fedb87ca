// Native animals by which of their parents are imports, from `MonitorTables`. The texts are Dutch and speak of pups in
// any report. The rules around the totals are one longer than those above.

#include "reports/imports.h"

namespace pedigreewatch {

void write_imports(const ReportFrame& frame, const YearRows<ImportPairs>& import_pairs) {
  constexpr std::size_t upper_rule = 52, lower_rule = 53;
  TextOutput& report = frame.report;
  write_free_line(report, {"           IMPORT: aantal pups geboren uit nederlandse of importouders"});
  write_rule(report, upper_rule);
  write_free_line(report, {"  geb.   NL x NL  imp. x NL  NL x imp imp. x imp.   "});
  write_free_line(report, {" jaar "});
  write_rule(report, upper_rule);
  std::int64_t both_native = 0, sire_imported = 0, dam_imported = 0, both_imported = 0;
  for (Row row = 1; row <= frame.years().dated_row_count(); ++row) {
    const ImportPairs pairs = import_pairs.of(row);
    write_format_line(
        report, "5I10",
        {frame.years().year_of(row), pairs.both_native, pairs.sire_imported, pairs.dam_imported, pairs.both_imported});
    both_native += pairs.both_native;
    sire_imported += pairs.sire_imported;
    dam_imported += pairs.dam_imported;
    both_imported += pairs.both_imported;
  }
  write_rule(report, lower_rule);
  write_format_line(report, "A8,4I10", {" totaal ", both_native, sire_imported, dam_imported, both_imported});
  write_rule(report, lower_rule);
}

}  // namespace pedigreewatch
