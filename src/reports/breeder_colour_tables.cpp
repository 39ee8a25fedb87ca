#include "reports/breeder_colour_tables.h"

#include <string>

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 56;

constexpr Wording colours_title = {"     COLOUR VARIETIES present in population",
                                   "     KLEURSLAGEN aanwezig in populatie"};
constexpr Wording colours_total_label = {" total  ", " totaal "};

constexpr Wording breeders_title = {"     Main Breeders  ", "     belangrijkste Fokkers  "};
constexpr Wording others = {"  others ", "  overige"};
constexpr Wording first_column_is = {"for each breeder 1st colomn number of ", "per fokker 1ste kolom aantal "};
constexpr Wording second_column_is = {" bred, 2nd colomn number of parents bred",
                                      " gefokt, 2de kolom aantal ouderdieren gefokt"};
constexpr std::string_view breeders_total_label = " totaal ";  // in either language
constexpr std::string_view breeder_number_fields = "(A8,005I16) ";

constexpr std::string_view year_label = "  jaar  ";

void write_breeder_numbers(TextOutput& report, std::int64_t count) {
  std::vector<LineItem> items = {year_label};
  for (std::int64_t number = 1; number <= count; ++number) items.emplace_back(number);
  write_format_line(report, with_column_count(breeder_number_fields, count), items);
}

}  // namespace

void write_colours(const ReportFrame& frame, std::span<const ColourName> colour_names,
                   const YearTable<std::int32_t>& colour_counts) {
  write_blank_line(frame.report);
  write_heading(frame, colours_title);
  write_rule(frame.report, rule_length);
  std::int32_t number = 0;
  for (const ColourName& name : colour_names) write_format_line(frame.report, "I8,A2,A40", {++number, "  ", name});
  write_rule(frame.report, rule_length);
  write_column_numbers(frame.report, year_label, colour_counts.column_count);
  write_rule(frame.report, rule_length);
  write_count_rows(frame, colour_counts);
  write_rule(frame.report, rule_length);
  write_count_total(frame.report, colours_total_label, column_sums(colour_counts));
  write_rule(frame.report, rule_length);
}

void write_breeders(const ReportFrame& frame, const BreederList& breeders,
                    const YearTable<std::int32_t>& top_breeders) {
  const std::int32_t count = breeders.top_breeder_count;
  write_blank_line(frame.report);
  write_heading(frame, breeders_title);
  write_rule(frame.report, rule_length);
  for (std::int32_t t = 1; t <= count; ++t) {
    write_format_line(frame.report, "I8,A2,A7", {t, "  ", breeders.slot(t)});
  }
  write_format_line(frame.report, "I8,A9", {count + 1, others});
  write_free_line(frame.report, {first_column_is, frame.nouns.youngs, second_column_is});
  write_rule(frame.report, rule_length);
  write_breeder_numbers(frame.report, count + 1);
  write_rule(frame.report, rule_length);
  write_count_rows(frame, top_breeders);
  write_rule(frame.report, rule_length);
  write_count_total(frame.report, breeders_total_label, column_sums(top_breeders));
  write_rule(frame.report, rule_length);
}

}  // namespace pedigreewatch
