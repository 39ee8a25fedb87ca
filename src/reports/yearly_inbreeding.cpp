// F and the kinships of each year, then the rates that follow. In the block of a subpopulation the columns behind f
// hold the relative changes of F and f from year to year, under the same headings.

#include "reports/yearly_inbreeding.h"

#include "reports/rates.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 64;

constexpr Wording title = {"           INBREEDING", "           INTEELT"};
constexpr Wording headings[] = {
    {" Yr.of     F       f       f       f       f     f    ",
     "  geb.     F       f       f       f       f     f    "},
    {" birth    all     incl.  excl. parents fathers mothers",
     "  jaar    alle    incl.  excl.   ouders  vaders moeders         "},
    {"   -    animals   self   self        ", "         dieren   zelf   zelf                 \t\t\t      "},
};

}  // namespace

void write_inbreeding(const ReportFrame& frame, const Block& block) {
  write_blank_line(frame.report);
  write_heading(frame, title);
  write_rule(frame.report, rule_length);
  write_headings(frame, headings);
  write_rule(frame.report, rule_length);
  for (Row row = 1; row <= frame.years().dated_row_count(); ++row) {
    const InbreedingRow means = block.inbreeding.of(row);
    write_format_line(frame.report, "I8,6F8.4",
                      {frame.years().year_of(row), means.F, means.f_with_self, means.f_without_self, means.f_of_parents,
                       means.f_of_fathers, means.f_of_mothers});
  }
  write_rule(frame.report, rule_length);
  write_blank_line(frame.report);
  write_rates(frame, block.rates);
  if (!block.periods.periods.empty()) write_periods(frame, block.periods);
}

}  // namespace pedigreewatch
