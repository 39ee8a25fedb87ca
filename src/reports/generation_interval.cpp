// Mean ages of the parents per year, from `MonitorTables`, and in the total line the generation interval of the block,
// from which its rates per generation follow.

#include "reports/generation_interval.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 56;

constexpr Wording title = {"     GENERATION INTERVAL  mean age parents at birth ",
                           "     GENERATIEINTERVAL  gemiddelde leeftijd ouders bij geboorte"};
constexpr Wording headings[] = {
    {" Y. of        mean age      ", "  geb.      gemiddelde leeftijd      "},
    {" birth   fathers  mothers   parents", "  jaar   vaders   moeders   ouders"},
};
constexpr Wording total_label = {" total  ", " totaal "};

}  // namespace

void write_generation_interval(const ReportFrame& frame, const Block& block) {
  write_blank_line(frame.report);
  write_free_line(frame.report, {title, noun_of(frame, young_noun).trimmed()});
  write_rule(frame.report, rule_length);
  write_headings(frame, headings);
  write_rule(frame.report, rule_length);
  for (Row row = 1; row <= frame.years().dated_row_count(); ++row) {
    const MeanParentAges ages = block.tables.parent_ages.of(row);
    write_format_line(frame.report, "I8,3F8.2", {frame.years().year_of(row), ages.sires, ages.dams, ages.parents});
  }
  write_rule(frame.report, rule_length);
  const GenerationInterval& overall = block.interval;
  write_format_line(frame.report, "A8,3F8.2",
                    {total_label, overall.overall_sire_age, overall.overall_dam_age, overall.generation_interval});
  write_rule(frame.report, rule_length);
}

}  // namespace pedigreewatch
