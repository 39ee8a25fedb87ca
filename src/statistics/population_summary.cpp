// Figures rest on the years before the last one, but for the litter sizes, which are counted in all years. Fractions
// become percentages once everything that follows from them has been derived.

#include "statistics/population_summary.h"

#include <algorithm>

#include "core/integers.h"

namespace pedigreewatch {
namespace {

constexpr float percent = 100.0F;

SummaryYears years_of_summary(std::int32_t year_count) {
  SummaryYears years;
  years.first = std::max(1, wrapped(std::int64_t{year_count} - 6));
  years.last = wrapped(std::int64_t{year_count} - 1);
  years.last_parents = std::max(1, wrapped(std::int64_t{year_count} - 2));
  years.length = wrapped(std::int64_t{years.last} - years.first + 1);
  return years;
}

std::int64_t parents_born(const YearRows<ParentCounts>& counts, Sex sex, const SummaryYears& years) {
  std::int64_t sum = 0;
  for (Row row = years.first; row <= years.last_parents; ++row) sum += counts.of(row).of(sex).native_parents;
  return sum;
}

std::int64_t litters_born(const YearRows<LitterCounts>& litters, const SummaryYears& years) {
  std::int64_t sum = 0;
  for (Row row = years.first; row <= years.last; ++row) sum += litters.of(row).litters;
  return sum;
}

NumberedList<float> fractions_of_ages(const YearTable<std::int32_t>& classes, const SummaryYears& years) {
  std::vector<std::int64_t> counts;
  std::int64_t total = 0;
  for (std::int64_t age = 1; age <= classes.column_count; ++age) {
    std::int64_t count = 0;
    for (Row row = years.first; row <= years.last; ++row) count += classes.value(row, age);
    counts.push_back(count);
    total += count;
  }
  NumberedList<float> fractions;
  for (const std::int64_t count : counts) fractions.add(quotient(count, total));
  return fractions;
}

/// Works on fractions that are made never to rise with age.
BreedingStock derive_breeding_stock(NumberedList<float> fractions, std::int64_t later_parents,
                                    const SummaryYears& years) {
  for (std::int32_t age = fractions.count() - 1; age >= 1; --age) {
    fractions.at(age) = std::max(fractions.at(age), fractions.at(age + 1));
  }
  float sum = 0.0F;
  for (const float fraction : fractions.entries) sum += fraction;
  BreedingStock stock;
  const float replacement = (fractions.count() == 0 ? 0.0F : fractions.at(1)) / sum;
  if (years.length != 0) stock.later_parents_per_year = later_parents / years.length;
  stock.replacement_percent = replacement * percent;
  stock.total = quotient(later_parents, years.length) / replacement;
  stock.available = stock.total / sum;
  return stock;
}

/// The highest age that is worth a line.
std::int32_t largest_kept_age(const NumberedList<float>& fractions) {
  constexpr float least_fraction = 0.01F;
  std::int32_t age = fractions.count();
  while (age > 0 && !(fractions.at(age) > least_fraction)) --age;
  return age;
}

std::vector<AgeRow> rows_of_ages(const BySex<NumberedList<float>>& fractions) {
  const NumberedList<float>& of_sires = fractions.of(male);
  const NumberedList<float>& of_dams = fractions.of(female);
  const std::int32_t ages = std::max(largest_kept_age(of_sires), largest_kept_age(of_dams));
  std::vector<AgeRow> rows;
  for (std::int32_t age = 1; age <= ages; ++age) {
    const bool has_sires = age <= of_sires.count();
    const float sires = has_sires ? of_sires.at(age) : 0.0F;
    const float dams = has_sires && age <= of_dams.count() ? of_dams.at(age) : 0.0F;
    rows.push_back({age, sires * percent, dams * percent});
  }
  return rows;
}

/// The sum of the four largest shares, year by year, divided by the number of years.
float mean_share_of_four(const YearRows<TopSireRow>& top_sires, const SummaryYears& years) {
  constexpr std::size_t popular_sires = 4;
  float sum = 0.0F;
  for (Row row = years.first; row <= years.last; ++row) {
    const TopSireRow sires = top_sires.of(row);
    for (std::size_t r = 0; r < popular_sires; ++r) sum += sires.shares[r];
  }
  return sum / real(years.length);
}

NumberedList<float> percentages_of_sizes(const YearRows<LitterCounts>& litters) {
  NumberedList<std::int64_t> by_size;
  std::int64_t all = 0;
  for (std::int32_t size = 1; size <= largest_litter; ++size) {
    std::int64_t count = 0;
    for (const LitterCounts& counts : litters.records) count += counts.of_size(size);
    by_size.add(count);
    all += count;
  }
  const float mean = quotient(all, largest_litter);
  const auto is_kept = [&](std::int64_t count) { return real(count) > mean; };
  std::int64_t kept_litters = 0;
  for (const std::int64_t count : by_size.entries) kept_litters += is_kept(count) ? count : 0;
  NumberedList<float> percentages;
  for (const std::int64_t count : by_size.entries) {
    percentages.add((is_kept(count) ? quotient(count, kept_litters) : 0.0F) * percent);
  }
  while (percentages.count() > 0 && !is_kept(by_size.at(percentages.count()))) percentages.entries.pop_back();
  return percentages;
}

}  // namespace

PopulationSummary summarise_population(const BirthYears& birth_years, const MonitorTables& tables,
                                       const YearRows<TopSireRow>& top_sires) {
  PopulationSummary summary;
  const SummaryYears& years = summary.years = years_of_summary(birth_years.count);
  const std::int64_t litters = litters_born(tables.litters, years);
  summary.litters_per_year = quotient(litters, years.length);
  BySex<NumberedList<float>> age_fractions;
  for (const Sex sex : {female, male}) {
    age_fractions.of(sex) = fractions_of_ages(tables.age_classes.of(sex), years);
    summary.stock.of(sex) =
        derive_breeding_stock(age_fractions.of(sex), parents_born(tables.parent_counts, sex, years), years);
  }
  summary.share_of_four = mean_share_of_four(top_sires, years);
  summary.litter_percentages = percentages_of_sizes(tables.litters);
  summary.ages = rows_of_ages(age_fractions);
  return summary;
}

}  // namespace pedigreewatch
