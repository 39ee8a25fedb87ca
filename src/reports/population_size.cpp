// Unused animals and parents of both sexes and together, per year. A population with imports has a column more for
// each, and headings of its own throughout. The shares follow from seven years on: with fewer too little is left once
// the last years, whose animals have had no time to breed, are taken away.

#include "reports/population_size.h"

namespace pedigreewatch {
namespace {

constexpr Wording title_start = {"           POPULATIONSIZE: number of ", "           POPULATIEOMVANG: aantal "};
constexpr Wording import_title_start = {"          POPULATION SIZE: number of ", "           POPULATIEOMVANG: aantal "};
constexpr Wording title_end = {" born per year", " geboren per jaar"};

/// The first heading: text, males, text, females, text. Only the Dutch table with imports names the sexes in the
/// singular.
struct SexHeading {
  NounForms males, females;
  Wording before_males, before_females, behind_females;
};
constexpr SexHeading sex_heading = {{&SpeciesNouns::males, &SpeciesNouns::males},
                                    {&SpeciesNouns::females, &SpeciesNouns::females},
                                    {"  geb.      ", "  geb.      "},
                                    {"   |    ", "   |    "},
                                    {"   |      total     ", "   |     totaal     "}};
constexpr SexHeading import_sex_heading = {male_noun,
                                           female_noun,
                                           {"  geb.          ", "  geb.           "},
                                           {"       |        ", "      |         "},
                                           {"       |          total         ", "      |           totaal       "}};
constexpr Wording columns_heading = {"  jaar   unused fathers| unused mothers| unused parents ",
                                     "  jaar   nt.fok  vaders| nt.fok moeders| nt.fok  ouders "};
constexpr Wording import_columns_headings[] = {
    {"  jaar   total  fathers fathers|  total mothers mothers|  total parents parents ",
     "  jaar   totaal  vaders  vaders| totaal moeders moeders| totaal  ouders  ouders "},
    {"          own     own    other |   own    own    other |   own    own    other  ",
     "          in NL   in NL  import|  in NL   in NL  import|  in NL   in NL  import "},
};
constexpr Wording total_label = {" total ", " totaal "};
constexpr Wording animals_in_pedigree = {"total number of animals in pedigree ", "totaal aantal dieren in stamboom "};
constexpr Wording of_which = {" of which ", " waarvan "};
constexpr Wording without_year = {" without year of birth.", " zonder geboortejaar."};
constexpr Wording share_of_males = {"% of the male ", "% van de mannelijke "};
constexpr Wording become_father = {" will become father later in life", " wordt later vader"};
constexpr Wording share_of_females = {"% of the female ", "% van de vrouwelijke "};
constexpr Wording become_mother = {" will become mother later in life", " wordt later moeder"};
// "% of the female " has a character more than its field and loses its last blank.
constexpr Wording male_share_fields = {"F6.1,A14,A8,A33", "F6.1,A20,A8,A19"};
constexpr Wording female_share_fields = {"F6.1,A15,A8,A33", "F6.1,A21,A8,A19"};

constexpr std::size_t rule_length = 56, import_rule_length = 80;

void write_title(const ReportFrame& frame, bool has_import) {
  const Wording& start = has_import ? import_title_start : title_start;
  const SexHeading& heading = has_import ? import_sex_heading : sex_heading;
  const std::size_t length = has_import ? import_rule_length : rule_length;
  write_free_line(frame.report, {start, noun_of(frame, young_noun).trimmed(), title_end});
  write_rule(frame.report, length);
  write_free_line(frame.report, {heading.before_males, noun_of(frame, heading.males), heading.before_females,
                                 noun_of(frame, heading.females), heading.behind_females});
  if (has_import) {
    write_headings(frame, import_columns_headings);
  } else {
    write_heading(frame, columns_heading);
  }
  write_rule(frame.report, length);
}

/// The counts of both sexes as a line shows them: males, females, both together.
template <typename Count>
std::vector<LineItem> items_of(const BySex<ParentCount<Count>>& counts, bool has_import) {
  const ParentCount<Count>& males = counts.of(male);
  const ParentCount<Count>& females = counts.of(female);
  const ParentCount<Count> both = {males.unused + females.unused, males.native_parents + females.native_parents,
                                   males.imported_parents + females.imported_parents};
  std::vector<LineItem> items;
  for (const ParentCount<Count>* count : {&males, &females, &both}) {
    items.insert(items.end(), {count->unused, count->native_parents});
    if (has_import) items.emplace_back(count->imported_parents);
  }
  return items;
}

template <typename Count>
void write_counts(const ReportFrame& frame, std::string_view fields, const LineItem& label,
                  const BySex<ParentCount<Count>>& counts) {
  std::vector<LineItem> items = items_of(counts, frame.store.has_import);
  items.insert(items.begin(), label);
  write_format_line(frame.report, fields, items);
}

void write_shares(const ReportFrame& frame, const BySex<float>& shares) {
  const SpeciesWord& youngs = frame.nouns.youngs;
  write_free_line(frame.report, {"   "});
  write_plus_rule(frame.report);
  write_format_line(frame.report, male_share_fields, {shares.of(male), share_of_males, youngs, become_father});
  write_format_line(frame.report, female_share_fields, {shares.of(female), share_of_females, youngs, become_mother});
  write_plus_rule(frame.report);
}

}  // namespace

void write_population_size(const ReportFrame& frame, const Block& block) {
  constexpr std::int32_t fewest_years_for_shares = 7;
  const bool has_import = frame.store.has_import;
  const std::size_t length = has_import ? import_rule_length : rule_length;
  write_title(frame, has_import);
  for (Row row = 1; row <= frame.years().dated_row_count(); ++row) {
    write_counts(frame, "10I8", frame.years().year_of(row), block.tables.parent_counts.of(row));
  }
  write_rule(frame.report, length);
  write_counts(frame, "A8,9I8", total_label, block.totals);
  write_rule(frame.report, length);
  write_free_line(frame.report,
                  {animals_in_pedigree, frame.store.animal_count, of_which, block.without_birth_year, without_year});
  if (frame.years().count >= fewest_years_for_shares) write_shares(frame, block.shares_of_parents);
}

}  // namespace pedigreewatch
