// Two tables from the KinshipTable. Within: F and f of each subpopulation, under one name of twenty columns. Between: a
// column for each pair, whose two numbers stand in heading rows of their own; these values are relationships.

#include "reports/subpopulation_kinship.h"

#include <iterator>

#include "genetics/subpopulation_kinship.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 73;
constexpr Wording within_title = {"     Inbreeding and Kinship within Subpopulations",
                                  "     Inteelt en Verwantschap binnen Subpopulaties"};
constexpr Wording year_label = {"  year  ", "  jaar  "};
constexpr Wording within_columns = {"inbreeding  kinship ", "inteelt verwantschap"};
constexpr Wording between_title = {"     Kinship between Subpopulations", "     Verwantschap tussen Subpopulaties"};
constexpr std::string_view mean_field = "F10.4";

void write_within(const ReportFrame& frame, const YearTable<float>& kinship_table) {
  const std::span<const SubpopulationName> names = frame.subpopulation_names;
  const std::string fields = row_fields("A8", std::ssize(names), "A20");
  write_blank_line(frame.report);
  write_heading(frame, within_title);
  write_rule(frame.report, rule_length);
  std::vector<LineItem> heading = {"        "};
  heading.insert(heading.end(), names.begin(), names.end());
  write_format_line(frame.report, fields, heading);
  std::vector<LineItem> columns = {year_label};
  columns.insert(columns.end(), names.size(), within_columns);
  write_format_line(frame.report, fields, columns);
  write_rule(frame.report, rule_length);
  write_year_rows(frame, kinship_table, inbreeding_column(1), kinship_column(std::ssize(names)), mean_field);
  write_rule(frame.report, rule_length);
}

/// The two heading rows with the numbers of the pairs; yields how many pairs there are.
std::int64_t write_pair_numbers(const ReportFrame& frame) {
  const std::int64_t count = std::ssize(frame.subpopulation_names);
  std::vector<LineItem> first_of_pair = {" subpop1"}, second_of_pair = {" subpop2"};
  for (std::int64_t i = 1; i <= count; ++i) {
    for (std::int64_t j = i + 1; j <= count; ++j) {
      first_of_pair.emplace_back(i);
      second_of_pair.emplace_back(j);
    }
  }
  const std::int64_t pair_count = std::ssize(first_of_pair) - 1;
  write_format_line(frame.report, row_fields("A8", pair_count, "I10"), first_of_pair);
  write_format_line(frame.report, row_fields("A8", pair_count, "I10"), second_of_pair);
  return pair_count;
}

void write_between(const ReportFrame& frame, const YearTable<float>& kinship_table) {
  write_blank_line(frame.report);
  write_heading(frame, between_title);
  std::int32_t number = 0;
  for (const SubpopulationName& name : frame.subpopulation_names) {
    write_free_line(frame.report, {++number, "- ", name});
  }
  write_rule(frame.report, rule_length);
  const std::int64_t pair_count = write_pair_numbers(frame);
  write_rule(frame.report, rule_length);
  write_year_rows(frame, kinship_table, first_pair_column(number), pair_count, mean_field);
  write_rule(frame.report, rule_length);
}

}  // namespace

void write_subpopulation_kinship(const ReportFrame& frame, const YearTable<float>& kinship_table) {
  write_within(frame, kinship_table);
  write_between(frame, kinship_table);
}

}  // namespace pedigreewatch
