// The mean of the equivalent generations and the shares of animals with 1, 2, 3, 4 and more complete generations, from
// `MonitorTables`. Oddities that stay: the heading announces percentages, but the shares are fractions; its last column
// says >5 and counts 5 too; the closing rule is shorter than those above.

#include "reports/completeness.h"

namespace pedigreewatch {
namespace {

constexpr Wording title = {"           PEDIGREE COMPLETENESS", "           COMPLEETHEID stamboom"};
constexpr Wording headings[] = {
    {"  Y of   average    | percentage animals with # of generations ",
     "  geb.   gemiddeld    | percentage dieren met aantal generaties "},
    {"  birth  generation | in pedigree completely known ", "  jaar   generatie    | in stamboom compleet bekend "},
    {"         equivalent   |    1       2       3       4    >5  ",
     "         equivalent   |    1       2       3       4    >5  "},
};
constexpr std::size_t rule_length = 64, closing_rule_length = 48;

}  // namespace

void write_completeness(const ReportFrame& frame, const YearRows<CompletenessRow>& completeness) {
  write_blank_line(frame.report);
  write_heading(frame, title);
  write_rule(frame.report, rule_length);
  write_headings(frame, headings);
  write_rule(frame.report, rule_length);
  for (Row row = 1; row <= frame.years().dated_row_count(); ++row) {
    const CompletenessRow animals = completeness.of(row);
    std::vector<LineItem> items = {frame.years().year_of(row), animals.equivalent_generations};
    items.insert(items.end(), animals.generation_shares.begin(), animals.generation_shares.end());
    write_format_line(frame.report, "I8,F10.2,F12.2,4F8.2", items);
  }
  write_rule(frame.report, closing_rule_length);
}

}  // namespace pedigreewatch
