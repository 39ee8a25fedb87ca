// Year by year, the animals are gone through once for each table, so that every table keeps an operation of its own.

#include "statistics/monitor_pass.h"

#include "core/wording.h"
#include "statistics/colours.h"

namespace pedigreewatch {
namespace {

constexpr Wording monitor_data = {"monitor data per jaar", "monitor gegevens per jaar"};
constexpr Wording year_is = {"year ", "jaar "};
constexpr Wording ages_determined = {"determined ages parents, etc.", "leeftijden ouders,  etc. bepaald"};

MonitorTables make_tables(const PopulationStore& store, const CountedNames& names, const OldestParents& oldest) {
  const Row rows = store.birth_years.row_count();
  constexpr std::int64_t others = 1;
  MonitorTables tables;
  tables.parent_counts = YearRows<ParentCounts>(rows);
  tables.parent_offspring = YearRows<ParentOffspring>(rows);
  tables.import_pairs = YearRows<ImportPairs>(rows);
  tables.litters = YearRows<LitterCounts>(rows);
  tables.age_classes = make_age_classes(store.birth_years, oldest);
  tables.parent_ages = YearRows<MeanParentAges>(rows);
  tables.completeness = YearRows<CompletenessRow>(rows);
  tables.colour_counts = {rows, store.has_colour ? names.colours.count() + others : others};
  tables.top_breeders = {rows, 2 * (names.breeders.names.count() + others)};
  return tables;
}

/// Only what the report will show is counted: a population without imports has no table of them.
void count_year(const PopulationStore& store, YearAnimals animals, const CountedNames& names, Row row,
                LitterScratch& scratch, MonitorTables& tables) {
  const ParentCounts parents = parent_year_statistics(store, animals);
  tables.parent_counts.at(row) = parents;
  tables.parent_offspring.at(row) = offspring_year_statistics(store, animals);
  if (store.has_import) tables.import_pairs.at(row) = import_pair_statistics(store, animals);
  tables.litters.at(row) = litter_statistics(store, animals, scratch);
  parent_age_statistics(store, animals, row, tables.age_classes);
  tables.parent_ages.at(row) = mean_parent_ages(store, animals);
  tables.completeness.at(row) = completeness_of_year(store, animals);
  if (store.has_colour) colour_statistics(store, animals, names.colours, row, tables.colour_counts);
  if (store.has_breeder) breeder_statistics(store, animals, names.breeders, parents, row, tables.top_breeders);
}

}  // namespace

MonitorTables count_years(const PopulationStore& store, const YearGroups& years, const CountedNames& names,
                          const OldestParents& oldest, const YearLine& line, TextOutput& console) {
  MonitorTables tables = make_tables(store, names, oldest);
  LitterScratch scratch(store);
  for (Row row = 1; row <= store.birth_years.dated_row_count(); ++row) {
    const YearAnimals animals = years.of_row(row);
    if (!animals.empty()) count_year(store, animals, names, row, scratch, tables);
    std::vector<LineItem> items = line.before;
    items.insert(items.end(), {store.birth_years.year_of(row), line.behind});
    write_free_line(console, items);
  }
  return tables;
}

MonitorTables monitor_population(const PopulationStore& store, const YearGroups& years, const Colours& colours,
                                 const BreederList& breeders, const OldestParents& oldest, TextOutput& console) {
  const CountedNames names{colours, find_top_breeders(store, breeders, breeder_entry_width)};
  write_free_line(console, {monitor_data});
  return count_years(store, years, names, oldest, {{year_is}, ages_determined}, console);
}

}  // namespace pedigreewatch
