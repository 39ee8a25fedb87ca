#include "reports/subpopulation_tables.h"

#include <string>

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 56;

constexpr Wording subpopulations_title = {"     SUBPOPULATIONs in population", "     SUBPOPULATIEs in populatie"};
constexpr std::string_view year_label = "  jaar  ";
constexpr Wording total_label = {" total  ", " totaal "};
constexpr Wording descent_title = {"     Descent of Breed varieties in population",
                                   "     Afstamming RASCODEs in populatie"};
constexpr Wording parents_heading = {"                           parents", "                           ouders"};

constexpr std::size_t kinship_rule_length = 73;
constexpr Wording within_title = {"     Inbreeding and Kinship within Subpopulations",
                                  "     Inteelt en Verwantschap binnen Subpopulaties"};
constexpr Wording kinship_year_label = {"  year  ", "  jaar  "};
constexpr Wording within_columns = {"inbreeding  kinship ", "inteelt verwantschap"};
constexpr Wording between_title = {"     Kinship between Subpopulations", "     Verwantschap tussen Subpopulaties"};
constexpr std::string_view wide_name_fields = "(A8,005A20) ";
constexpr std::string_view pair_fields = "(A8,005I10) ";
constexpr std::string_view mean_fields = "(I8,005F10.4) ";

std::vector<std::string_view> views_of(std::span<const SubpopulationName> names) {
  std::vector<std::string_view> views;
  for (const SubpopulationName& name : names) views.push_back(name.full());
  return views;
}

/// A row for each year, with four decimals.
void write_mean_rows(const ReportFrame& frame, const YearTable<float>& table, std::int64_t first, std::int64_t count) {
  write_year_rows(frame, table, first, count, mean_fields);
}

void write_within(const ReportFrame& frame, std::span<const SubpopulationName> names,
                  const YearTable<float>& kinship_table) {
  const std::int64_t count = static_cast<std::int64_t>(names.size());
  const std::string fields = with_column_count(wide_name_fields, count);
  write_blank_line(frame.report);
  write_heading(frame, within_title);
  write_rule(frame.report, kinship_rule_length);
  std::vector<LineItem> heading = {"        "};
  heading.insert(heading.end(), names.begin(), names.end());
  write_format_line(frame.report, fields, heading);
  std::vector<LineItem> columns = {kinship_year_label};
  columns.insert(columns.end(), names.size(), within_columns);
  write_format_line(frame.report, fields, columns);
  write_rule(frame.report, kinship_rule_length);
  write_mean_rows(frame, kinship_table, 1, 2 * count);
  write_rule(frame.report, kinship_rule_length);
}

void write_between(const ReportFrame& frame, std::span<const SubpopulationName> names,
                   const YearTable<float>& kinship_table) {
  const std::int64_t count = static_cast<std::int64_t>(names.size());
  write_blank_line(frame.report);
  write_heading(frame, between_title);
  std::vector<LineItem> first_of_pair = {" subpop1"}, second_of_pair = {" subpop2"};
  for (std::int64_t i = 1; i <= count; ++i) {
    write_free_line(frame.report, {i, "- ", names[static_cast<std::size_t>(i) - 1]});
    for (std::int64_t j = i + 1; j <= count; ++j) {
      first_of_pair.emplace_back(i);
      second_of_pair.emplace_back(j);
    }
  }
  const std::int64_t pair_count = static_cast<std::int64_t>(first_of_pair.size()) - 1;
  write_rule(frame.report, kinship_rule_length);
  write_format_line(frame.report, with_column_count(pair_fields, pair_count), first_of_pair);
  write_format_line(frame.report, with_column_count(pair_fields, pair_count), second_of_pair);
  write_rule(frame.report, kinship_rule_length);
  write_mean_rows(frame, kinship_table, 2 * count + 1, pair_count);
  write_rule(frame.report, kinship_rule_length);
}

}  // namespace

void write_subpopulation_tables(const ReportFrame& frame, std::span<const SubpopulationName> names,
                                const YearTable<std::int32_t>& year_table, const SubpopulationOverlap& overlap) {
  const std::vector<std::string_view> views = views_of(names);
  write_blank_line(frame.report);
  write_heading(frame, subpopulations_title);
  write_rule(frame.report, rule_length);
  write_column_names(frame.report, year_label, views);
  write_rule(frame.report, rule_length);
  write_count_rows(frame, year_table);
  write_rule(frame.report, rule_length);
  write_count_total(frame.report, total_label, column_sums(year_table));
  write_rule(frame.report, rule_length);
  write_blank_line(frame.report);
  write_heading(frame, descent_title);
  write_rule(frame.report, rule_length);
  write_heading(frame, parents_heading);
  write_column_names(frame.report, (frame.report.is_english ? frame.nouns.youngs : frame.nouns.young).full(), views);
  write_rule(frame.report, rule_length);
  for (std::int32_t k = 1; k <= overlap.size; ++k) {
    std::vector<std::int64_t> from;
    for (std::int32_t j = 1; j <= overlap.size; ++j) from.push_back(overlap.at(k, j));
    write_count_total(frame.report, views[static_cast<std::size_t>(k) - 1], from);
  }
  write_rule(frame.report, rule_length);
}

void write_subpopulation_kinship(const ReportFrame& frame, std::span<const SubpopulationName> names,
                                 const YearTable<float>& kinship_table) {
  write_within(frame, names, kinship_table);
  write_between(frame, names, kinship_table);
}

}  // namespace pedigreewatch
