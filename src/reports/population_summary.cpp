#include "reports/population_summary.h"

#include <algorithm>
#include <array>

#include "core/integers.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 73;
constexpr float percent = 100.0F;

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

/// The years on which the summary rests, as rows counted from 1. Without any birth year the year count is negative,
/// and these numbers wrap around with it.
struct Span {
  std::int32_t first = 1;
  std::int32_t last = 0;
  std::int32_t last_parents = 1;  ///< the parents' counts stop here, and are divided by the same length
  std::int32_t length = 0;        ///< 0 when there is one year only

  explicit Span(std::int32_t year_count)
      : first(std::max(1, wrapped(std::int64_t{year_count} - 6))),
        last(wrapped(std::int64_t{year_count} - 1)),
        last_parents(std::max(1, wrapped(std::int64_t{year_count} - 2))),
        length(wrapped(std::int64_t{last} - first + 1)) {}
  float real_length() const { return static_cast<float>(length); }
};

std::int64_t sum_of_rows(const YearTable<std::int32_t>& table, std::int64_t column, std::int64_t first,
                         std::int64_t last) {
  std::int64_t sum = 0;
  for (std::int64_t row = first; row <= last; ++row) sum += table.value(row, column);
  return sum;
}

/// For each age from 1 on the share of the parents of that age; not a number when no age is known.
std::vector<float> age_fractions(const YearTable<std::int32_t>& classes, const Span& span) {
  std::vector<std::int64_t> counts;
  std::int64_t total = 0;
  for (std::int64_t age = 1; age <= classes.column_count; ++age) {
    counts.push_back(sum_of_rows(classes, age, span.first, span.last));
    total += counts.back();
  }
  std::vector<float> fractions;
  fractions.reserve(counts.size());
  for (const std::int64_t count : counts) fractions.push_back(static_cast<float>(count) / static_cast<float>(total));
  return fractions;
}

/// How many animals of one sex can be used for breeding in a year.
struct BreedingStock {
  std::int64_t later_parents = 0;  ///< animals of the span that became parents
  float replacement = 0.0F;        ///< share of the breeding animals that is replaced each year
  float total = 0.0F;              ///< including those that do not breed yet
  float available = 0.0F;
};

/// The fractions are made never to rise with age. Nothing here is guarded: without known ages all is not a number.
BreedingStock derive_breeding_stock(std::vector<float> fractions, std::int64_t later_parents, const Span& span) {
  for (std::size_t age = fractions.size(); age-- > 1;) {
    fractions[age - 1] = std::max(fractions[age - 1], fractions[age]);
  }
  float sum = 0.0F;
  for (const float fraction : fractions) sum += fraction;
  BreedingStock stock;
  stock.later_parents = later_parents;
  stock.replacement = (fractions.empty() ? 0.0F : fractions.front()) / sum;
  stock.total = static_cast<float>(later_parents) / span.real_length() / stock.replacement;
  stock.available = stock.total / sum;
  return stock;
}

LineItem truncated_quotient(std::int64_t dividend, std::int64_t divisor) {
  return divisor == 0 ? LineItem(UndefinedInteger{}) : LineItem(dividend / divisor);
}

void write_breeding_stock(const ReportFrame& frame, const BreedingWording& wording, const BreedingStock& stock,
                          float replacement_shown, const Span& span) {
  TextOutput& report = frame.report;
  write_heading(frame, wording.title);
  write_format_line(report, "F13.0", {stock.available});
  write_blank_line(report);
  write_heading(frame, explanation);
  write_free_line(
      report, {explanation_based_on, frame.years.year_of(span.first), to_year, frame.years.year_of(span.last_parents)});
  write_format_line(report, wording.born_fields,
                    {margin, truncated_quotient(stock.later_parents, span.length), wording.born});
  write_format_line(report, wording.replaced_fields, {margin, replacement_shown * percent, wording.replaced});
  write_format_line(report, wording.including_fields, {giving_total, stock.total, wording.including});
  write_format_line(report, wording.not_yet_fields, {wording.not_yet});
  write_format_line(report, and_fields, {and_available, stock.available, excluding_young});
  write_blank_line(report);
}

/// The sum of the four largest shares over the span, year by year, divided by its length.
float mean_share_of_four(const YearTable<float>& shares, const Span& span) {
  constexpr std::int64_t popular_sires = 4;
  float sum = 0.0F;
  for (std::int64_t row = span.first; row <= span.last; ++row) {
    for (std::int64_t column = 1; column <= popular_sires; ++column) sum += shares.value(row, column);
  }
  return sum / span.real_length();
}

/// The sizes that occur more often than the mean of all hundred.
void write_litter_size_fractions(const ReportFrame& frame, const YearTable<std::int32_t>& litters) {
  const std::vector<std::int64_t> sums = column_sums(litters);
  const std::span<const std::int64_t> by_size = std::span(sums).subspan(before_litter_sizes, largest_litter);
  std::int64_t all = 0;
  for (const std::int64_t count : by_size) all += count;
  const float mean = static_cast<float>(all) / static_cast<float>(largest_litter);
  const auto is_kept = [&](std::int64_t count) { return static_cast<float>(count) > mean; };
  std::int64_t largest_kept = 0, kept_litters = 0;
  for (std::int64_t size = 1; size <= largest_litter; ++size) {
    const std::int64_t count = by_size[static_cast<std::size_t>(size) - 1];
    if (!is_kept(count)) continue;
    largest_kept = size;
    kept_litters += count;
  }
  write_heading(frame, litter_size);
  write_free_line(frame.report, {number_of_sizes, largest_kept});
  write_heading(frame, sizes_heading);
  for (std::int64_t size = 1; size <= largest_kept; ++size) {
    const std::int64_t count = by_size[static_cast<std::size_t>(size) - 1];
    const float fraction = is_kept(count) ? static_cast<float>(count) / static_cast<float>(kept_litters) : 0.0F;
    write_format_line(frame.report, "5X,I3,8X,F8.0", {size, fraction * percent});
  }
  write_blank_line(frame.report);
}

std::size_t largest_kept_age(const std::vector<float>& fractions) {
  constexpr float least_fraction = 0.01F;
  std::size_t age = fractions.size();
  while (age > 0 && !(fractions[age - 1] > least_fraction)) --age;
  return age;
}

void write_age_fractions(const ReportFrame& frame, const std::vector<float>& of_sires,
                         const std::vector<float>& of_dams) {
  const std::size_t ages = std::max(largest_kept_age(of_sires), largest_kept_age(of_dams));
  write_heading(frame, parents_age);
  write_free_line(frame.report, {number_of_ages, static_cast<std::int64_t>(ages)});
  write_headings(frame, ages_headings);
  for (std::size_t age = 1; age <= ages; ++age) {
    // Above the oldest sire both columns show 0, the mothers' too.
    const bool has_sires = age <= of_sires.size();
    const float sires = has_sires ? of_sires[age - 1] : 0.0F;
    const float dams = has_sires && age <= of_dams.size() ? of_dams[age - 1] : 0.0F;
    write_format_line(frame.report, "I6,3X,F7.0,3X,F7.0",
                      {static_cast<std::int64_t>(age), sires * percent, dams * percent});
  }
}

}  // namespace

void write_summary(const ReportFrame& frame, const MonitorTables& tables, const YearTable<float>& shares) {
  constexpr float rounding = 0.5F;  // added before the field rounds
  const Span span(frame.years.count);
  TextOutput& report = frame.report;
  write_rule(report, rule_length);
  write_blank_line(report);
  write_heading(frame, title);
  write_free_line(report, {based_on, frame.years.year_of(span.first), to_year, frame.years.year_of(span.last)});
  write_rule(report, rule_length);

  write_heading(frame, litters_per_year);
  const std::int64_t litters = sum_of_rows(tables.litters, litter_count, span.first, span.last);
  write_format_line(report, "F13.0", {static_cast<float>(litters) / span.real_length() + rounding});
  write_blank_line(report);

  const std::vector<float> sire_ages = age_fractions(tables.sire_age_classes, span);
  const std::vector<float> dam_ages = age_fractions(tables.dam_age_classes, span);
  const auto later_parents = [&](ParentCountColumn column) {
    return sum_of_rows(tables.parent_counts, column, span.first, span.last_parents);
  };
  const BreedingStock dams = derive_breeding_stock(dam_ages, later_parents(native_dams), span);
  const BreedingStock sires = derive_breeding_stock(sire_ages, later_parents(native_sires), span);
  write_breeding_stock(frame, dam_wording, dams, dams.replacement, span);
  // The Dutch report shows the females' share for the males.
  write_breeding_stock(frame, sire_wording, sires, frame.report.is_english ? sires.replacement : dams.replacement,
                       span);

  write_heading(frame, most_popular_sires);
  write_format_line(report, "F13.0,A1", {mean_share_of_four(shares, span) + rounding, "%"});
  write_blank_line(report);
  write_litter_size_fractions(frame, tables.litters);
  write_age_fractions(frame, sire_ages, dam_ages);
  write_blank_line(report);
  write_rule(report, rule_length);
}

}  // namespace pedigreewatch
