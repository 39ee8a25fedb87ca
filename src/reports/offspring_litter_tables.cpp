#include "reports/offspring_litter_tables.h"

#include <algorithm>

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
constexpr std::size_t litters_first_rule_english = 47;
constexpr std::string_view litters_total_label = " totaal ";

/// Young born in the litters of a year.
std::int64_t young_in_litters(const YearTable<std::int32_t>& litters, std::int64_t row) {
  std::int64_t young = 0;
  for (std::int64_t size = 1; size <= largest_litter; ++size) {
    young += size * litters.value(row, before_litter_sizes + size);
  }
  return young;
}

float ratio(std::int64_t dividend, std::int64_t divisor) {
  return static_cast<float>(dividend) / static_cast<float>(divisor);
}

void write_litters_of_year(const ReportFrame& frame, const YearTable<std::int32_t>& litters, std::int64_t row) {
  const std::int32_t count = litters.value(row, litter_count);
  const std::int32_t fathers = litters.value(row, father_count);
  const std::int64_t young = young_in_litters(litters, row);
  write_format_line(frame.report, "2I8,F8.2,I8,2F8.2",
                    {frame.years.year_of(row), count, count == 0 ? 0.0F : ratio(young, count), fathers,
                     fathers == 0 ? 0.0F : ratio(count, fathers), fathers == 0 ? 0.0F : ratio(young, fathers)});
}

// ---- litter sizes ----------------------------------------------------------------------------------------------

constexpr std::size_t sizes_rule_length = 56;
constexpr Wording sizes_title = {"                Litter Sizes", "     Worpgrootte"};
constexpr Wording sizes_heading = {"  born                     Litter size                     ",
                                   "  geb.                     worpgrootte                     "};
constexpr Wording sizes_total_label = {"total  ", "totaal "};

/// The litter sizes as a table of their own, up to the largest size that occurs.
YearTable<std::int32_t> litter_sizes_of(const YearTable<std::int32_t>& litters, std::int64_t max_litter_size) {
  YearTable<std::int32_t> sizes(litters.row_count, max_litter_size);
  for (std::int64_t row = 1; row <= litters.row_count; ++row) {
    for (std::int64_t size = 1; size <= max_litter_size; ++size) {
      const std::int32_t count = litters.value(row, before_litter_sizes + size);
      if (count != 0) sizes.at(row, size) = count;
    }
  }
  return sizes;
}

std::int64_t find_max_litter_size(const YearTable<std::int32_t>& litters) {
  const std::vector<std::int64_t> sums = column_sums(litters);
  for (std::int64_t size = largest_litter; size > 0; --size) {
    if (sums[static_cast<std::size_t>(before_litter_sizes + size - 1)] > 0) return size;
  }
  return 0;
}

// ---- offspring -------------------------------------------------------------------------------------------------

constexpr std::size_t offspring_rule_length = 56;
constexpr Wording offspring_title = {"     total number OFFSPRING/PARENT per year of birth of parents",
                                     "     totaal aantal NAKOMELINGEN/OUDER per geboortejaar ouder"};
constexpr Wording offspring_before_males = {"  Y of           ", "  geb.           "};
constexpr Wording offspring_before_females = {"          |        ", "         |         "};
constexpr Wording offspring_behind_females = {"        |", "         |"};
constexpr Wording offspring_heading_2 = {" birth   mean   st.dev.    max.|  mean  st.dev.    max.|",
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

void write_busiest(const ReportFrame& frame, const Wording& title, const AnimalRecord& animal, const AnimalId& id) {
  write_heading(frame, title);
  write_free_line(frame.report, {name_is, animal.name});
  write_free_line(frame.report, {id_is, id});
  write_free_line(frame.report, {born_in, animal.birth_year});
  write_free_line(frame.report, {offspring_is, animal.native_offspring_count});
}

void write_offspring_headings(const ReportFrame& frame) {
  const SpeciesWord& males = frame.report.is_english ? frame.nouns.males : frame.nouns.male;
  const SpeciesWord& females = frame.report.is_english ? frame.nouns.females : frame.nouns.female;
  write_heading(frame, offspring_title);
  write_rule(frame.report, offspring_rule_length);
  write_free_line(frame.report, {offspring_before_males, males.trimmed(), offspring_before_females, females.trimmed(),
                                 offspring_behind_females});
  write_heading(frame, offspring_heading_2);
  write_rule(frame.report, offspring_rule_length);
}

}  // namespace

void write_parents_and_litters(const ReportFrame& frame, const YearTable<std::int32_t>& litters,
                               const ReportTotals& totals) {
  constexpr std::int32_t most_years_without_gap = 6;
  const std::string_view youngs = frame.nouns.youngs.trimmed();
  write_blank_line(frame.report);
  write_heading(frame, litters_title);
  write_rule(frame.report, frame.report.is_english ? litters_first_rule_english : litters_rule_length);
  write_free_line(frame.report,
                  {litters_before_first_noun, youngs, litters_before_second_noun, youngs, litters_behind_noun});
  write_heading(frame, litters_heading_2);
  write_rule(frame.report, litters_rule_length);
  for (std::int64_t row = 1; row <= frame.years.dated_row_count(); ++row) write_litters_of_year(frame, litters, row);
  write_rule(frame.report, litters_rule_length);
  // Young and fathers come from the population size, in which the parents have been taken out of the animals.
  const std::int64_t all_litters = column_sums(litters)[litter_count - 1];
  const std::int64_t young = totals[0] + totals[3], fathers = totals[1] + totals[2];
  write_format_line(frame.report, "A8,I8,F8.2,I8,2F8.2",
                    {litters_total_label, all_litters, ratio(young, all_litters), fathers, ratio(all_litters, fathers),
                     ratio(young, fathers)});
  write_rule(frame.report, litters_rule_length);
  if (frame.years.count > most_years_without_gap) write_free_line(frame.report, {"   "});
}

void write_litter_sizes(const ReportFrame& frame, const YearTable<std::int32_t>& litters) {
  const std::int64_t max_litter_size = find_max_litter_size(litters);
  if (max_litter_size == 0) {
    write_free_line(frame.report, {" No littersizes known"});
    return write_blank_line(frame.report);
  }
  const YearTable<std::int32_t> sizes = litter_sizes_of(litters, max_litter_size);
  write_heading(frame, sizes_title);
  write_rule(frame.report, sizes_rule_length);
  write_heading(frame, sizes_heading);
  write_column_numbers(frame.report, "  jaar  ", max_litter_size);
  write_rule(frame.report, sizes_rule_length);
  write_count_rows(frame, sizes);
  write_rule(frame.report, sizes_rule_length);
  write_count_total(frame.report, sizes_total_label, column_sums(sizes));
  write_rule(frame.report, sizes_rule_length);
}

void write_offspring(const ReportFrame& frame, const YearTable<float>& parent_offspring,
                     const AnimalRecord& busiest_sire, const AnimalRecord& busiest_dam) {
  write_blank_line(frame.report);
  write_offspring_headings(frame);
  for (std::int64_t row = 1; row <= frame.years.dated_row_count(); ++row) {
    const auto value = [&](std::int64_t column) { return parent_offspring.value(row, column); };
    write_format_line(frame.report, "I8,2F8.2,F8.0,2F8.2,F8.0",
                      {frame.years.year_of(row), value(1), value(2), value(3), value(4), value(5), value(6)});
  }
  write_free_line(frame.report, {"   "});
  write_plus_rule(frame.report);
  write_blank_line(frame.report);
  write_busiest(frame, busiest_male, busiest_sire, busiest_sire.id);
  write_blank_line(frame.report);
  // The Dutch report gives the top female the id-code of the top male.
  write_busiest(frame, busiest_female, busiest_dam, frame.report.is_english ? busiest_dam.id : busiest_sire.id);
  write_plus_rule(frame.report);
}

}  // namespace pedigreewatch
