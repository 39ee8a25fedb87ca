// Two tables from the same counts. The means of the litters stand in both kinds of block, the sizes in that of the
// whole population only. The young and the fathers in the total line of the means come from the population size, not
// from the lines above.

#include "reports/litters.h"

namespace pedigreewatch {
namespace {

// ---- parents and litters ---------------------------------------------------------------------------------------

constexpr Wording litters_title = {"     Number of parents and litter size per year",
                                   "           aantal ouders en nestgrootte per jaar"};
constexpr Wording litters_before_first_noun = {"  Y of   number   ", "  geb.   aantal   "};
constexpr Wording litters_before_second_noun = {"/  number   nests  ", "/  aantal  nesten  "};
constexpr std::string_view litters_behind_noun = "/ ";
constexpr Wording litters_heading_2 = {" birth   nests     nest fathers /father father ",
                                       "  jaar   nesten    nest  vaders  /vader  vader "};
constexpr std::size_t litters_rule_length = 48;
/// The English rule below the title is one shorter than all others.
constexpr Wording litters_first_rule = {"_______________________________________________",
                                        "________________________________________________"};
constexpr std::string_view litters_total_label = " totaal ";

void write_means(TextOutput& report, std::string_view fields, const LineItem& label, const LitterMeans& means) {
  write_format_line(
      report, fields,
      {label, means.litters, means.young_per_litter, means.fathers, means.litters_per_father, means.young_per_father});
}

// ---- litter sizes ----------------------------------------------------------------------------------------------

constexpr std::size_t sizes_rule_length = 56;
constexpr Wording sizes_title = {"                Litter Sizes", "     Worpgrootte"};
constexpr Wording sizes_heading = {"  born                     Litter size                     ",
                                   "  geb.                     worpgrootte                     "};
constexpr Wording sizes_total_label = {"total  ", "totaal "};

}  // namespace

void write_parents_and_litters(const ReportFrame& frame, const Block& block) {
  constexpr std::int32_t most_years_without_gap = 6;  // with more a line of three blanks follows
  const std::string_view youngs = frame.nouns.youngs.trimmed();
  write_blank_line(frame.report);
  write_heading(frame, litters_title);
  write_heading(frame, litters_first_rule);
  write_free_line(frame.report,
                  {litters_before_first_noun, youngs, litters_before_second_noun, youngs, litters_behind_noun});
  write_heading(frame, litters_heading_2);
  write_rule(frame.report, litters_rule_length);
  for (Row row = 1; row <= frame.years().dated_row_count(); ++row) {
    write_means(frame.report, "2I8,F8.2,I8,2F8.2", frame.years().year_of(row), block.litter_means.of(row));
  }
  write_rule(frame.report, litters_rule_length);
  write_means(frame.report, "A8,I8,F8.2,I8,2F8.2", litters_total_label, block.all_litters);
  write_rule(frame.report, litters_rule_length);
  if (frame.years().count > most_years_without_gap) write_free_line(frame.report, {"   "});
}

void write_litter_sizes(const ReportFrame& frame, const YearTable<std::int32_t>& sizes) {
  if (sizes.column_count == 0) {
    write_free_line(frame.report, {" No littersizes known"});
    return write_blank_line(frame.report);
  }
  write_heading(frame, sizes_title);
  write_rule(frame.report, sizes_rule_length);
  write_heading(frame, sizes_heading);
  write_column_numbers(frame.report, "  jaar  ", sizes.column_count);
  write_rule(frame.report, sizes_rule_length);
  write_count_rows(frame, sizes);
  write_rule(frame.report, sizes_rule_length);
  write_count_total(frame.report, sizes_total_label, column_sums(sizes));
  write_rule(frame.report, sizes_rule_length);
}

}  // namespace pedigreewatch
