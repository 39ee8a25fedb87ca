// Fathers, then mothers, by their age at the births of each year, from `MonitorTables`. The columns are numbered by
// age, and the mothers' numbers stand twice: their heading has always had that line a second time. The messages in
// place of a table are English in either language.

#include "reports/parent_ages.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 56;

constexpr Wording sire_ages_title = {"                AGE fathers", "     LEEFTIJD vaders"};
constexpr Wording dam_ages_title = {"                AGE mothers", "     LEEFTIJD moeders"};
constexpr Wording ages_heading = {"  born                     age                     ",
                                  "  geb.                     leeftijd                     "};
constexpr std::string_view ages_label = "  jaar  ";
constexpr Wording ages_total_label = {"total  ", "totaal "};

void write_ages(const ReportFrame& frame, const Wording& title, int heading_lines,
                const YearTable<std::int32_t>& classes) {
  write_heading(frame, title);
  write_rule(frame.report, rule_length);
  write_heading(frame, ages_heading);
  for (int line = 0; line < heading_lines; ++line) {
    write_column_numbers(frame.report, ages_label, classes.column_count);
  }
  write_rule(frame.report, rule_length);
  write_count_rows(frame, classes);
  write_rule(frame.report, rule_length);
  write_count_total(frame.report, ages_total_label, column_sums(classes));
  write_rule(frame.report, rule_length);
}

/// A message takes the place of a table without any age.
void write_no_ages(TextOutput& report, std::string_view message) {
  write_free_line(report, {message});
  write_blank_line(report);
}

}  // namespace

void write_age_tables(const ReportFrame& frame, const ParentAgeClasses& classes) {
  write_blank_line(frame.report);
  if (classes.of(male).column_count < 1) {
    write_no_ages(frame.report, " No fathers with Date of birth known");
  } else {
    write_ages(frame, sire_ages_title, 1, classes.of(male));
  }
  if (classes.of(female).column_count < 1) {
    write_no_ages(frame.report, " No mothers with Date of birth known");
  } else {
    write_blank_line(frame.report);
    write_ages(frame, dam_ages_title, 2, classes.of(female));  // the mothers' heading stands twice
  }
}

}  // namespace pedigreewatch
