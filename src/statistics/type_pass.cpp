// 1. The tables of the subpopulation, year by year, from its own animals.
// 2. The trend: its F and kinship from the KinshipTable, with their yearly changes and rates.
// 3. The block of the report.

#include "statistics/type_pass.h"

#include <vector>

#include "core/line_writer.h"
#include "core/wording.h"
#include "genetics/rates.h"
#include "pedigree/year_groups.h"
#include "reports/report.h"
#include "statistics/completeness.h"
#include "statistics/monitor_pass.h"
#include "statistics/parent_ages.h"
#include "statistics/year_statistics.h"

namespace pedigreewatch {
namespace {

constexpr Wording monitor_data = {"monitor data per year for ", "monitor gegevens per jaar voor "};
constexpr Wording no_animals = {"No animals present with breed code ", "Geen dieren aanwezig met rascode "};
constexpr Wording type_is = {"type ", "type "};
constexpr Wording year_is = {"year ", "jaar "};
constexpr Wording ages_determined = {"determined ages of parents, number of animals per colour type, etc.",
                                     "leeftijden ouders, aantallen per kleur, topfokker etc. bepaald"};

/// A subpopulation's pass reads the breeder list in slots of 7 characters.
std::vector<BreederName> top_breeder_slots(const BreederList& breeders) {
  std::vector<BreederName> slots;
  for (std::int32_t t = 1; t <= breeders.top_breeder_count; ++t) slots.emplace_back(breeders.slot(t));
  return slots;
}

void fill_tables(const PopulationStore& store, const SteerSettings& settings, const BreederList& breeders,
                 const SubpopulationName& name, std::span<const std::int32_t> members, MonitorTables& tables,
                 TextOutput& console) {
  const std::vector<BreederName> slots = top_breeder_slots(breeders);
  const std::vector<std::string_view> slot_texts = [&] {
    std::vector<std::string_view> texts;
    texts.reserve(slots.size());
    for (const BreederName& slot : slots) texts.push_back(slot.full());
    return texts;
  }();
  const ColumnFinder breeder_finder = make_column_finder(slot_texts);
  const ColumnFinder colour_finder = make_column_finder(listed_colours(settings));
  const YearGroups years = group_by_year(store, members);
  LitterScratch scratch(store);
  for (Row row = 1; row <= store.birth_years.dated_row_count(); ++row) {
    const YearAnimals animals = years.of_row(row);
    if (!animals.empty()) {
      parent_year_statistics(store, animals, row, tables.parent_counts, tables.parent_offspring);
      import_pair_statistics(store, animals, row, tables.import_pairs);
      litter_statistics(store, animals, row, scratch, tables.litters);
    }
    completeness_of_year(store, animals, row, tables.equivalent_generations, tables.complete_generation_shares);
    parent_age_statistics(store, animals, row, tables);
    colour_statistics(store, animals, row, colour_finder, tables.colour_counts);
    breeder_statistics(store, animals, row, breeder_finder, tables.parent_counts, tables.top_breeders);
    write_free_line(console, {type_is, name, year_is, store.birth_years.year_of(row), ages_determined});
  }
}

constexpr std::int64_t trend_columns = 7;
enum TrendColumn : std::int64_t { trend_F = 1, trend_f = 2, change_of_F = 3, change_of_f = 4 };

/// F and kinship of the subpopulation, as they stand in the KinshipTable, and their relative changes from year to
/// year; the changes are formed only in years with inbreeding.
YearTable<float> make_trend(const YearTable<float>& kinship_table, std::int32_t s) {
  YearTable<float> trend(kinship_table.row_count, trend_columns);
  for (std::int64_t row = 1; row <= trend.row_count; ++row) {
    const float F = kinship_table.value(row, 2 * std::int64_t{s} - 1);
    const float f = kinship_table.value(row, 2 * std::int64_t{s});
    if (F == 0.0F && f == 0.0F) continue;
    trend.at(row, trend_F) = F;
    trend.at(row, trend_f) = f;
    if (row == 1 || !(F > 0.0F)) continue;
    const float F_before = trend.value(row - 1, trend_F), f_before = trend.value(row - 1, trend_f);
    trend.at(row, change_of_F) = (F - F_before) / (1.0F - F_before);
    trend.at(row, change_of_f) = (f - f_before) / (1.0F - f_before);
  }
  return trend;
}

/// Unlike those of the whole population these slopes are taken on the plain values, and keep their sign.
float slope_of(const YearTable<float>& trend, std::int64_t column) {
  std::vector<std::int32_t> x;
  std::vector<float> y;
  for (std::int32_t row = 1; row <= trend.row_count; ++row) {
    x.push_back(row);
    y.push_back(trend.value(row, column));
  }
  return regression_slope(x, y);
}

RateSummary rates_of_trend(const YearTable<float>& trend, std::int32_t year_count) {
  const float exponent = 1.0F / static_cast<float>(year_count);
  const auto rate = [&](std::int64_t column) {
    return rate_between(trend.value(1, column), trend.value(year_count, column), exponent);
  };
  return {.delta_F_absolute = rate(trend_F),
          .delta_f_absolute = rate(trend_f),
          .delta_F_smoothed = slope_of(trend, trend_F),
          .delta_f_smoothed = slope_of(trend, trend_f)};
}

}  // namespace

void run_type_pass(const PopulationStore& store, const SteerSettings& settings, const BreederList& breeders,
                   std::int32_t s, std::span<const std::int32_t> members, const YearTable<float>& kinship_table,
                   RunStreams& streams) {
  TextOutput& console = streams.console;
  const SubpopulationName& name = settings.subpopulation_names[static_cast<std::size_t>(s) - 1];
  write_free_line(console, {monitor_data, name});
  if (members.empty()) return write_free_line(console, {no_animals, name});
  const OldestParents oldest = find_oldest_parents(store, members);
  write_free_line(console, {"maxages = ", oldest.sire, oldest.dam});
  MonitorTables tables =
      make_monitor_tables(store.birth_years, oldest, settings.colour_count, breeders.top_breeder_count);
  fill_tables(store, settings, breeders, name, members, tables, console);
  turn_days_into_years(tables.mean_sire_age);
  turn_days_into_years(tables.mean_dam_age);
  const YearTable<float> trend = make_trend(kinship_table, s);
  const RateSummary rates = rates_of_trend(trend, store.birth_years.count);
  const ReportFrame frame = {streams.report, store.birth_years, settings.nouns};
  write_type_report(frame, store, settings, name, tables, breeders, overall_parent_ages(store, members),
                    find_busiest_parents(store, members), trend, rates);
}

}  // namespace pedigreewatch
