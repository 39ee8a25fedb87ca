#include "statistics/monitor_pass.h"

#include "core/line_writer.h"
#include "core/wording.h"
#include "statistics/completeness.h"
#include "statistics/year_statistics.h"

namespace pedigreewatch {
namespace {

constexpr Wording monitor_data = {"monitor data per jaar", "monitor gegevens per jaar"};
constexpr Wording year_is = {"year ", "jaar "};
constexpr Wording ages_determined = {"determined ages parents, etc.", "leeftijden ouders,  etc. bepaald"};

/// The whole population's pass reads the breeder list in entries of 20 characters.
std::vector<std::string_view> top_breeder_entries(const BreederList& breeders) {
  std::vector<std::string_view> entries;
  for (std::int32_t t = 1; t <= breeders.top_breeder_count; ++t) entries.push_back(breeders.entry(t));
  return entries;
}

}  // namespace

std::vector<std::string_view> listed_colours(const SteerSettings& settings) {
  std::vector<std::string_view> colours;
  for (std::int32_t i = 0; i + 1 < settings.colour_count; ++i) {
    colours.push_back(settings.colour_names[static_cast<std::size_t>(i)].full());
  }
  return colours;
}

void summarise_completeness(const PopulationStore& store, const YearGroups& years, MonitorTables& tables) {
  for (Row row = 1; row <= store.birth_years.dated_row_count(); ++row) {
    completeness_of_year(store, years.of_row(row), row, tables.equivalent_generations,
                         tables.complete_generation_shares);
  }
}

void monitor_population(const PopulationStore& store, const SteerSettings& settings, const YearGroups& years,
                        const BreederList& breeders, MonitorTables& tables, TextOutput& console) {
  const std::vector<std::string_view> entries = top_breeder_entries(breeders);
  const ColumnFinder breeder_finder = make_column_finder(entries);
  const std::vector<std::string_view> colours = listed_colours(settings);
  const ColumnFinder colour_finder = make_column_finder(colours);
  LitterScratch scratch(store);
  write_free_line(console, {monitor_data});
  for (Row row = 1; row <= store.birth_years.dated_row_count(); ++row) {
    const YearAnimals animals = years.of_row(row);
    if (!animals.empty()) {
      parent_year_statistics(store, animals, row, tables.parent_counts, tables.parent_offspring);
      if (store.has_import) import_pair_statistics(store, animals, row, tables.import_pairs);
      litter_statistics(store, animals, row, scratch, tables.litters);
    }
    parent_age_statistics(store, animals, row, tables);
    if (store.has_colour) colour_statistics(store, animals, row, colour_finder, tables.colour_counts);
    if (store.has_breeder) {
      breeder_statistics(store, animals, row, breeder_finder, tables.parent_counts, tables.top_breeders);
    }
    write_free_line(console, {year_is, store.birth_years.year_of(row), ages_determined});
  }
}

}  // namespace pedigreewatch
