// The offspring that the parents born in each year have had so far, then the two busiest parents. The heading of the
// maxima has fields without decimals, so that they end in a point.

#include "reports/offspring.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 56;
constexpr Wording title = {"     total number OFFSPRING/PARENT per year of birth of parents",
                           "     totaal aantal NAKOMELINGEN/OUDER per geboortejaar ouder"};
constexpr Wording before_males = {"  Y of           ", "  geb.           "};
constexpr Wording before_females = {"          |        ", "         |         "};
constexpr Wording behind_females = {"        |", "         |"};
constexpr Wording heading_2 = {" birth   mean   st.dev.    max.|  mean  st.dev.    max.|",
                               "  jaar   gemid. st.dev.    max.| gemid. st.dev.    max.|"};

// The Dutch titles name dogs whatever the species.
constexpr Wording busiest_male = {"Male with the highest number of offspring in the population",
                                  "reu met de meeste nakomelingen in de populatie"};
constexpr Wording busiest_female = {"Female with the highest number of offspring in the population",
                                    "teef met de meeste nakomelingen in de populatie"};
constexpr Wording name_is = {"name: ", "naam: "};
constexpr Wording id_is = {"id-code: ", "id-code: "};
constexpr Wording born_in = {"Year of birth: ", "geboortejaar: "};
constexpr Wording offspring_is = {"Number of offspring: ", "aantal nakomelingen: "};

/// The record at a position; one of blanks and zeros when the store has none there.
AnimalRecord record_at(const PopulationStore& store, std::int32_t position) {
  return position <= store.animal_count ? store.at(position) : AnimalRecord{};
}

void write_busiest(const ReportFrame& frame, const Wording& heading, const AnimalRecord& animal, const AnimalId& id) {
  write_heading(frame, heading);
  write_free_line(frame.report, {name_is, animal.name});
  write_free_line(frame.report, {id_is, id});
  write_free_line(frame.report, {born_in, animal.birth_year});
  write_free_line(frame.report, {offspring_is, animal.native_offspring_count});
}

void write_title(const ReportFrame& frame) {
  const std::string_view males = noun_of(frame, male_noun).trimmed();
  const std::string_view females = noun_of(frame, female_noun).trimmed();
  write_heading(frame, title);
  write_rule(frame.report, rule_length);
  write_free_line(frame.report, {before_males, males, before_females, females, behind_females});
  write_heading(frame, heading_2);
  write_rule(frame.report, rule_length);
}

}  // namespace

void write_offspring(const ReportFrame& frame, const Block& block) {
  write_blank_line(frame.report);
  write_title(frame);
  for (Row row = 1; row <= frame.years().dated_row_count(); ++row) {
    const ParentOffspring moments = block.tables.parent_offspring.of(row);
    const OffspringMoments& sires = moments.of(male);
    const OffspringMoments& dams = moments.of(female);
    write_format_line(frame.report, "I8,2F8.2,F8.0,2F8.2,F8.0",
                      {frame.years().year_of(row), sires.mean, sires.deviation, sires.maximum, dams.mean,
                       dams.deviation, dams.maximum});
  }
  write_free_line(frame.report, {"   "});
  write_plus_rule(frame.report);
  write_blank_line(frame.report);
  const AnimalRecord sire = record_at(frame.store, block.busiest.of(male));
  const AnimalRecord dam = record_at(frame.store, block.busiest.of(female));
  write_busiest(frame, busiest_male, sire, sire.id);
  write_blank_line(frame.report);
  // The Dutch report gives the top female the id-code of the top male.
  write_busiest(frame, busiest_female, dam, frame.report.is_english ? dam.id : sire.id);
  write_plus_rule(frame.report);
}

}  // namespace pedigreewatch
