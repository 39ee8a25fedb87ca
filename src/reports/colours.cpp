// The animals of each colour per year, from `MonitorTables`. The colours are listed by number first, because their
// names are too long to stand over the columns.

#include "reports/colours.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 56;

constexpr Wording title = {"     COLOUR VARIETIES present in population", "     KLEURSLAGEN aanwezig in populatie"};
constexpr Wording total_label = {" total  ", " totaal "};

}  // namespace

void write_colours(const ReportFrame& frame, const YearTable<std::int32_t>& colour_counts) {
  write_blank_line(frame.report);
  write_heading(frame, title);
  write_rule(frame.report, rule_length);
  std::int32_t number = 0;
  for (const ColourName& name : frame.colour_names) {
    write_format_line(frame.report, "I8,A2,A40", {++number, "  ", name});
  }
  write_rule(frame.report, rule_length);
  write_column_numbers(frame.report, "  jaar  ", colour_counts.column_count);
  write_rule(frame.report, rule_length);
  write_count_rows(frame, colour_counts);
  write_rule(frame.report, rule_length);
  write_count_total(frame.report, total_label, column_sums(colour_counts));
  write_rule(frame.report, rule_length);
}

}  // namespace pedigreewatch
