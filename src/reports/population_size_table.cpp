#include "reports/population_size_table.h"

#include <vector>

namespace pedigreewatch {
namespace {

constexpr Wording title_start = {"           POPULATIONSIZE: number of ", "           POPULATIEOMVANG: aantal "};
constexpr Wording import_title_start = {"          POPULATION SIZE: number of ", "           POPULATIEOMVANG: aantal "};
constexpr Wording title_end = {" born per year", " geboren per jaar"};

/// The first heading: text, males, text, females, text.
struct SexHeading {
  Wording before_males, before_females, behind_females;
};
constexpr SexHeading sex_heading = {
    {"  geb.      ", "  geb.      "}, {"   |    ", "   |    "}, {"   |      total     ", "   |     totaal     "}};
constexpr SexHeading import_sex_heading = {{"  geb.          ", "  geb.           "},
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

void take_out_parents(YearTable<std::int32_t>& counts) {
  for (std::int64_t row = 1; row <= counts.row_count; ++row) {
    if (!counts.is_stored(row)) continue;  // a year without animals
    counts.at(row, native_males) -= counts.at(row, native_sires);
    counts.at(row, native_females) -= counts.at(row, native_dams);
  }
}

void write_title(const ReportFrame& frame, bool has_import) {
  const SpeciesNouns& nouns = frame.nouns;
  const std::string_view young = frame.report.is_english ? nouns.youngs.trimmed() : nouns.young.trimmed();
  const Wording& start = has_import ? import_title_start : title_start;
  const SexHeading& heading = has_import ? import_sex_heading : sex_heading;
  // The Dutch table with imports names the sexes in the singular.
  const bool is_plural = frame.report.is_english || !has_import;
  const std::size_t length = has_import ? import_rule_length : rule_length;
  write_free_line(frame.report, {start, young, title_end});
  write_rule(frame.report, length);
  write_free_line(frame.report, {heading.before_males, is_plural ? nouns.males : nouns.male, heading.before_females,
                                 is_plural ? nouns.females : nouns.female, heading.behind_females});
  if (has_import) {
    write_headings(frame, import_columns_headings);
  } else {
    write_heading(frame, columns_heading);
  }
  write_rule(frame.report, length);
}

void write_rows(const ReportFrame& frame, bool has_import, const YearTable<std::int32_t>& counts) {
  for (std::int64_t row = 1; row <= frame.years.dated_row_count(); ++row) {
    const auto c = [&](std::int64_t column) { return counts.value(row, column); };
    const std::int32_t year = frame.years.year_of(row);
    if (has_import) {
      write_format_line(frame.report, "10I8",
                        {year, c(1), c(2), c(3), c(4), c(5), c(6), c(1) + c(4), c(2) + c(5), c(3) + c(6)});
    } else {
      write_format_line(frame.report, "7I8", {year, c(1), c(2), c(4), c(5), c(1) + c(4), c(2) + c(5)});
    }
  }
}

void write_totals(const ReportFrame& frame, bool has_import, std::int32_t animal_count, const ReportTotals& r) {
  const std::int64_t t1 = r[0] + r[3], t2 = r[1] + r[4], t3 = r[2] + r[5];
  const Wording& label = total_label;
  if (has_import) {
    write_format_line(frame.report, "A8,9I8", {label, r[0], r[1], r[2], r[3], r[4], r[5], t1, t2, t3});
  } else {
    write_format_line(frame.report, "A8,9I8", {label, r[0], r[1], r[3], r[4], t1, t2});
  }
  write_rule(frame.report, has_import ? import_rule_length : rule_length);
  write_free_line(frame.report,
                  {animals_in_pedigree, animal_count, of_which, animal_count - t1 - t2 - t3, without_year});
}

/// The share of the animals born in the first years that became parents. The last four years are left out: their
/// animals have had no time to breed.
float parents_share(const YearTable<std::int32_t>& counts, std::int64_t years, std::int64_t others,
                    std::int64_t parents) {
  std::int64_t other_sum = 0, parent_sum = 0;
  for (std::int64_t row = 1; row <= years; ++row) {
    other_sum += counts.value(row, others);
    parent_sum += counts.value(row, parents);
  }
  return static_cast<float>(parent_sum) * 100.0F / static_cast<float>(other_sum + parent_sum);
}

void write_parents_shares(const ReportFrame& frame, const YearTable<std::int32_t>& counts) {
  constexpr std::int64_t years_left_out = 4;
  const std::int64_t years = frame.years.count - years_left_out;
  const SpeciesWord& youngs = frame.nouns.youngs;
  write_free_line(frame.report, {"   "});
  write_plus_rule(frame.report);
  write_format_line(frame.report, male_share_fields,
                    {parents_share(counts, years, native_males, native_sires), share_of_males, youngs, become_father});
  write_format_line(
      frame.report, female_share_fields,
      {parents_share(counts, years, native_females, native_dams), share_of_females, youngs, become_mother});
  write_plus_rule(frame.report);
}

}  // namespace

ReportTotals write_population_size(const ReportFrame& frame, bool has_import, std::int32_t animal_count,
                                   YearTable<std::int32_t>& parent_counts) {
  constexpr std::int32_t fewest_years_for_shares = 7;
  take_out_parents(parent_counts);
  const std::vector<std::int64_t> sums = column_sums(parent_counts);
  ReportTotals totals = {};
  std::copy(sums.begin(), sums.end(), totals.begin());
  write_title(frame, has_import);
  write_rows(frame, has_import, parent_counts);
  write_rule(frame.report, has_import ? import_rule_length : rule_length);
  write_totals(frame, has_import, animal_count, totals);
  if (frame.years.count >= fewest_years_for_shares) write_parents_shares(frame, parent_counts);
  return totals;
}

}  // namespace pedigreewatch
