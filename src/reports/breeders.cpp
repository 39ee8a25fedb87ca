// The top breeders by number, then for each the animals and the parents that he bred, from `MonitorTables`. The names
// are slots of seven characters, in the block of the whole population too, where the figures belong to entries of
// twenty. The label of the totals is Dutch in either language, and so is the label of the years here and in other
// tables.

#include "reports/breeders.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 56;

constexpr Wording title = {"     Main Breeders  ", "     belangrijkste Fokkers  "};
constexpr Wording others = {"  others ", "  overige"};
constexpr Wording first_column_is = {"for each breeder 1st colomn number of ", "per fokker 1ste kolom aantal "};
constexpr Wording second_column_is = {" bred, 2nd colomn number of parents bred",
                                      " gefokt, 2de kolom aantal ouderdieren gefokt"};
constexpr std::string_view total_label = " totaal ";  // in either language

/// A number stands over the two columns of each breeder.
void write_breeder_numbers(TextOutput& report, std::int64_t count) {
  std::vector<LineItem> items = {"  jaar  "};
  for (std::int64_t number = 1; number <= count; ++number) items.emplace_back(number);
  write_format_line(report, row_fields("A8", count, "I16"), items);
}

}  // namespace

void write_breeders(const ReportFrame& frame, const YearTable<std::int32_t>& top_breeders) {
  const std::int32_t count = frame.breeders.top_breeder_count;
  write_blank_line(frame.report);
  write_heading(frame, title);
  write_rule(frame.report, rule_length);
  for (std::int32_t t = 1; t <= count; ++t) {
    write_format_line(frame.report, "I8,A2,A7", {t, "  ", frame.breeders.slot(t)});
  }
  write_format_line(frame.report, "I8,A9", {count + 1, others});
  write_free_line(frame.report, {first_column_is, frame.nouns.youngs, second_column_is});
  write_rule(frame.report, rule_length);
  write_breeder_numbers(frame.report, count + 1);
  write_rule(frame.report, rule_length);
  write_count_rows(frame, top_breeders);
  write_rule(frame.report, rule_length);
  write_count_total(frame.report, total_label, column_sums(top_breeders));
  write_rule(frame.report, rule_length);
}

}  // namespace pedigreewatch
