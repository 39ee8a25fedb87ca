// Fixed texts with figures between them, from `PopulationSummary`: litters per year, the breeding animals of both sexes
// each with an explanation behind a margin, the most used sires, then the two distributions. The field lists of the
// explanation differ by language, because each text stands in a field of just its own length.

#include "reports/population_summary.h"

#include <iterator>
#include <optional>

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 73;

constexpr Wording title = {"     Summary population data", "     Samenvatting populatie data"};
constexpr Wording based_on = {"     based on", "     gebaseerd op"};
constexpr std::string_view to_year = " - ";
constexpr Wording litters_per_year = {"Number litters per year ", "Aantal worpen per jaar"};
constexpr Wording most_popular_sires = {"Contribution of the 4 most popular sires ",
                                        "Bijdrage van de 4 populairste mannetjes aan totaal aantal jongen"};
constexpr Wording litter_size = {"Litter size ", "Worpgrootte "};
constexpr Wording number_of_sizes = {"  Number of sizes: ", "  Aantal groottes: "};
constexpr Wording sizes_heading = {"  Litter size    Fraction  ", "  Worpgrootte    Fractie  "};
constexpr Wording parents_age = {"Age parents ", "Leeftijd ouders "};
constexpr Wording number_of_ages = {"  Number of ages: ", "  Aantal leeftijden: "};
constexpr Wording ages_headings[] = {
    {"  Age    Fraction  Fraction", "  Leef   Fractie   Fractie"},
    {"         fathers   mothers", "  tijd   vaders    moeders"},
};

/// The explanation of the number of animals available for breeding.
constexpr Wording explanation = {"       |  explanation derivation:", "       |  uitleg afleiding"};
constexpr Wording explanation_based_on = {"       |  based on", "       |  gebaseerd op"};
constexpr std::string_view margin = "       | ";
constexpr Wording giving_total = {"       |  giving a total of ", "       |  geeft een totaal van "};
constexpr Wording and_available = {"       |  and ", "       |  en "};
constexpr Wording excluding_young = {"excluding those young animals", "exclusief nog niet fokkende dieren"};
constexpr Wording and_fields = {"A15,F6.0,A29", "A13,F6.0,A34"};

/// The words of one sex, and the field lists that go with them.
struct BreedingWording {
  Wording title;
  Wording born, born_fields;
  Wording replaced, replaced_fields;
  Wording including, including_fields;
  Wording not_yet, not_yet_fields;
};
constexpr BreedingWording dam_wording = {
    .title = {"Number dams available for breeding per year ", "Aantal wijfjes beschikbaarvoor fokkerij per jaar "},
    .born = {" females are born per year that later will become mother",
             " wijfjes geboren per jaar die later moeder zullen worden"},
    .born_fields = {"A9,I5,A56", "A9,I5,A56"},
    .replaced = {"% of breeding females are replaced each year",
                 "% van vrouwelijke fokdieren worden elk jaar vervangen"},
    .replaced_fields = {"A9,F5.1,A44", "A9,F5.1,A53"},
    .including = {"breeding females including those ", "vrouwelijke fokdieren inclusief dieren"},
    .including_fields = {"A29,F6.0,A33", "A31,F6.0,A38"},
    .not_yet = {"       |                 that will not yet breed, but will in later years",
                "       |    die nog te jong zijn om nu te fokken, maar later wel moeder zullen worden"},
    .not_yet_fields = {"A73", "A85"},
};
constexpr BreedingWording sire_wording = {
    .title = {"Number sires available for breeding per year ", "Aantal mannetjes beschikbaarvoor fokkerij per jaar "},
    .born = {" males are born per year that later will become father",
             " mannetjes geboren per jaar die later vader zullen worden"},
    .born_fields = {"A9,I5,A54", "A9,I5,A57"},
    .replaced = {"% of breeding males are replaced each year", "% van mannelijke fokdieren worden elk jaar vervangen"},
    .replaced_fields = {"A9,F5.1,A42", "A9,F5.1,A52"},
    .including = {"breeding males including those ", "mannelijke fokdieren inclusief dieren"},
    .including_fields = {"A29,F6.0,A31", "A31,F6.0,A37"},
    .not_yet = {"       |                 that will not yet breed, but will in later years",
                "       |    die nog te jong zijn om nu te fokken, maar later wel vader zullen worden"},
    .not_yet_fields = {"A73", "A84"},
};

LineItem item_of(const std::optional<std::int64_t>& count) {
  return count ? LineItem(*count) : LineItem(UndefinedInteger{});
}

void write_breeding_stock(const ReportFrame& frame, const BreedingWording& wording, const BreedingStock& stock,
                          float replacement_percent, const SummaryYears& years) {
  TextOutput& report = frame.report;
  write_heading(frame, wording.title);
  write_format_line(report, "F13.0", {stock.available});
  write_blank_line(report);
  write_heading(frame, explanation);
  write_free_line(report, {explanation_based_on, frame.years().year_of(years.first), to_year,
                           frame.years().year_of(years.last_parents)});
  write_format_line(report, wording.born_fields, {margin, item_of(stock.later_parents_per_year), wording.born});
  write_format_line(report, wording.replaced_fields, {margin, replacement_percent, wording.replaced});
  write_format_line(report, wording.including_fields, {giving_total, stock.total, wording.including});
  write_format_line(report, wording.not_yet_fields, {wording.not_yet});
  write_format_line(report, and_fields, {and_available, stock.available, excluding_young});
  write_blank_line(report);
}

void write_litter_sizes(const ReportFrame& frame, const NumberedList<float>& percentages) {
  write_heading(frame, litter_size);
  write_free_line(frame.report, {number_of_sizes, percentages.count()});
  write_heading(frame, sizes_heading);
  for (std::int32_t size = 1; size <= percentages.count(); ++size) {
    write_format_line(frame.report, "5X,I3,8X,F8.0", {size, percentages.at(size)});
  }
  write_blank_line(frame.report);
}

void write_ages(const ReportFrame& frame, const std::vector<AgeRow>& rows) {
  write_heading(frame, parents_age);
  write_free_line(frame.report, {number_of_ages, std::int64_t{std::ssize(rows)}});
  write_headings(frame, ages_headings);
  for (const AgeRow& row : rows) write_format_line(frame.report, "I6,3X,F7.0,3X,F7.0", {row.age, row.sires, row.dams});
}

}  // namespace

void write_summary(const ReportFrame& frame, const PopulationSummary& summary) {
  // Two figures have a half added before the field rounds them, so that 10.2 is shown as 11.
  constexpr float half = 0.5F;
  const SummaryYears& years = summary.years;
  TextOutput& report = frame.report;
  write_rule(report, rule_length);
  write_blank_line(report);
  write_heading(frame, title);
  write_free_line(report, {based_on, frame.years().year_of(years.first), to_year, frame.years().year_of(years.last)});
  write_rule(report, rule_length);

  write_heading(frame, litters_per_year);
  write_format_line(report, "F13.0", {summary.litters_per_year + half});
  write_blank_line(report);

  const BreedingStock& dams = summary.stock.of(female);
  const BreedingStock& sires = summary.stock.of(male);
  write_breeding_stock(frame, dam_wording, dams, dams.replacement_percent, years);
  // The Dutch report shows the females' share for the males.
  const float shown_for_sires = report.is_english ? sires.replacement_percent : dams.replacement_percent;
  write_breeding_stock(frame, sire_wording, sires, shown_for_sires, years);

  write_heading(frame, most_popular_sires);
  write_format_line(report, "F13.0,A1", {summary.share_of_four + half, "%"});
  write_blank_line(report);
  write_litter_sizes(frame, summary.litter_percentages);
  write_ages(frame, summary.ages);
  write_blank_line(report);
  write_rule(report, rule_length);
}

}  // namespace pedigreewatch
