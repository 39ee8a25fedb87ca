// Births per subpopulation and year, then for each subpopulation where the parents of its animals come from. Names are
// cut to the width of their columns.

#include "reports/subpopulation_scan.h"

#include <iterator>

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 56;

constexpr Wording subpopulations_title = {"     SUBPOPULATIONs in population", "     SUBPOPULATIEs in populatie"};
constexpr std::string_view year_label = "  jaar  ";
constexpr Wording total_label = {" total  ", " totaal "};
constexpr Wording descent_title = {"     Descent of Breed varieties in population",
                                   "     Afstamming RASCODEs in populatie"};
constexpr Wording parents_heading = {"                           parents", "                           ouders"};

/// A heading row: the label, then each name cut or right-justified in 8 columns.
void write_names(const ReportFrame& frame, std::string_view label) {
  std::vector<LineItem> items = {label};
  items.insert(items.end(), frame.subpopulation_names.begin(), frame.subpopulation_names.end());
  write_format_line(frame.report, row_fields("A8", std::ssize(frame.subpopulation_names), "A8"), items);
}

void write_births(const ReportFrame& frame, const YearTable<std::int32_t>& births) {
  write_blank_line(frame.report);
  write_heading(frame, subpopulations_title);
  write_rule(frame.report, rule_length);
  write_names(frame, year_label);
  write_rule(frame.report, rule_length);
  write_count_rows(frame, births);
  write_rule(frame.report, rule_length);
  write_count_total(frame.report, total_label, column_sums(births));
  write_rule(frame.report, rule_length);
}

void write_descent(const ReportFrame& frame, const SubpopulationOverlap& overlap) {
  write_blank_line(frame.report);
  write_heading(frame, descent_title);
  write_rule(frame.report, rule_length);
  write_heading(frame, parents_heading);
  write_names(frame, noun_of(frame, young_noun).full());
  write_rule(frame.report, rule_length);
  std::int32_t k = 0;
  for (const SubpopulationName& name : frame.subpopulation_names) {
    ++k;
    std::vector<std::int64_t> from;
    for (std::int32_t j = 1; j <= overlap.size; ++j) from.push_back(overlap.at(k, j));
    write_count_total(frame.report, name, from);
  }
  write_rule(frame.report, rule_length);
}

}  // namespace

void write_subpopulation_tables(const ReportFrame& frame, const SubpopulationScan& scan) {
  write_births(frame, scan.births);
  write_descent(frame, scan.overlap);
}

}  // namespace pedigreewatch
