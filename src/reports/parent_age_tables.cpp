#include "reports/parent_age_tables.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 56;

constexpr Wording sire_ages_title = {"                AGE fathers", "     LEEFTIJD vaders"};
constexpr Wording dam_ages_title = {"                AGE mothers", "     LEEFTIJD moeders"};
constexpr Wording ages_heading = {"  born                     age                     ",
                                  "  geb.                     leeftijd                     "};
constexpr std::string_view ages_label = "  jaar  ";
constexpr Wording ages_total_label = {"total  ", "totaal "};

constexpr Wording interval_title = {"     GENERATION INTERVAL  mean age parents at birth ",
                                    "     GENERATIEINTERVAL  gemiddelde leeftijd ouders bij geboorte"};
constexpr Wording interval_headings[] = {
    {" Y. of        mean age      ", "  geb.      gemiddelde leeftijd      "},
    {" birth   fathers  mothers   parents", "  jaar   vaders   moeders   ouders"},
};
constexpr Wording interval_total_label = {" total  ", " totaal "};

constexpr Wording completeness_title = {"           PEDIGREE COMPLETENESS", "           COMPLEETHEID stamboom"};
constexpr Wording completeness_headings[] = {
    {"  Y of   average    | percentage animals with # of generations ",
     "  geb.   gemiddeld    | percentage dieren met aantal generaties "},
    {"  birth  generation | in pedigree completely known ", "  jaar   generatie    | in stamboom compleet bekend "},
    {"         equivalent   |    1       2       3       4    >5  ",
     "         equivalent   |    1       2       3       4    >5  "},
};
constexpr std::size_t completeness_rule = 64, completeness_closing_rule = 48;

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

/// The mean of two mean ages; one that is missing does not halve it.
float mean_of_parents(float sire_age, float dam_age) {
  constexpr float least_known_age = 0.1F;
  const float known = sire_age > least_known_age && dam_age > least_known_age ? 2.0F : 1.0F;
  return (sire_age + dam_age) / known;
}

}  // namespace

void write_age_tables(const ReportFrame& frame, const YearTable<std::int32_t>& sire_age_classes,
                      const YearTable<std::int32_t>& dam_age_classes) {
  write_blank_line(frame.report);
  if (sire_age_classes.column_count < 1) {
    write_free_line(frame.report, {" No fathers with Date of birth known"});
    write_blank_line(frame.report);
  } else {
    write_ages(frame, sire_ages_title, 1, sire_age_classes);
  }
  if (dam_age_classes.column_count < 1) {
    write_free_line(frame.report, {" No mothers with Date of birth known"});
    write_blank_line(frame.report);
  } else {
    write_blank_line(frame.report);
    write_ages(frame, dam_ages_title, 2, dam_age_classes);  // the mothers' heading stands twice
  }
}

float write_generation_interval(const ReportFrame& frame, const YearTable<float>& mean_sire_age,
                                const YearTable<float>& mean_dam_age, const OverallParentAges& overall) {
  const SpeciesWord& noun = frame.report.is_english ? frame.nouns.youngs : frame.nouns.young;
  write_blank_line(frame.report);
  write_free_line(frame.report, {interval_title, noun.trimmed()});
  write_rule(frame.report, rule_length);
  write_headings(frame, interval_headings);
  write_rule(frame.report, rule_length);
  for (std::int64_t row = 1; row <= frame.years.dated_row_count(); ++row) {
    const float sire_age = mean_sire_age.value(row, 1), dam_age = mean_dam_age.value(row, 1);
    write_format_line(frame.report, "I8,3F8.2",
                      {frame.years.year_of(row), sire_age, dam_age, mean_of_parents(sire_age, dam_age)});
  }
  write_rule(frame.report, rule_length);
  const float generation_interval = (overall.sire + overall.dam) * 0.5F;
  write_format_line(frame.report, "A8,3F8.2", {interval_total_label, overall.sire, overall.dam, generation_interval});
  write_rule(frame.report, rule_length);
  return generation_interval;
}

void write_completeness(const ReportFrame& frame, const YearTable<float>& equivalent_generations,
                        const YearTable<float>& complete_generation_shares) {
  write_blank_line(frame.report);
  write_heading(frame, completeness_title);
  write_rule(frame.report, completeness_rule);
  write_headings(frame, completeness_headings);
  write_rule(frame.report, completeness_rule);
  for (std::int64_t row = 1; row <= frame.years.dated_row_count(); ++row) {
    const auto share = [&](std::int64_t column) { return complete_generation_shares.value(row, column); };
    write_format_line(frame.report, "I8,F10.2,F12.2,4F8.2",
                      {frame.years.year_of(row), equivalent_generations.value(row, 1), share(1), share(2), share(3),
                       share(4), share(5)});
  }
  write_rule(frame.report, completeness_closing_rule);
}

}  // namespace pedigreewatch
