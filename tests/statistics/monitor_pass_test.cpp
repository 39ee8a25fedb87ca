#include "statistics/monitor_pass.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "statistics/completeness.h"
#include "statistics/parent_ages.h"
#include "support/numbered_store.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Lines = std::vector<std::string>;
using Counts = std::vector<std::int32_t>;
using Reals = std::vector<float>;

BreederList breeders_with(std::string text, std::int32_t breeder_count, std::int32_t top_breeder_count) {
  BreederList breeders;
  breeders.text = std::move(text);
  breeders.breeder_count = breeder_count;
  breeders.top_breeder_count = top_breeder_count;
  return breeders;
}

Colours colours_of(std::initializer_list<std::string_view> names) {
  return names_of<Colours>(names);
}

struct Monitored {
  MonitorTables tables;
  Lines console;
};

/// Ages, then the pass: the one place where these tests call it. The store knows the colours already.
Monitored monitored(PopulationStore store, const Colours& colours = colours_of({"Onbekend"}),
                    const BreederList& breeders = no_breeders(), bool english = true) {
  TextOutput ignored, console = output_in(english);
  const OldestParents oldest = determine_parent_ages(store, ignored);
  determine_completeness(store);
  MonitorTables tables = monitor_population(store, group_by_year(store), colours, breeders, oldest, console);
  return {std::move(tables), lines_of(console)};
}

/// The males without native offspring, native and imported sires of a year, and the same of the females.
Counts parents_of(const MonitorTables& tables, Row row) {
  const ParentCounts counts = tables.parent_counts.of(row);
  Counts cells;
  for (const Sex sex : {male, female}) {
    cells.push_back(counts.of(sex).unused);
    cells.push_back(counts.of(sex).native_parents);
    cells.push_back(counts.of(sex).imported_parents);
  }
  return cells;
}

/// Mean, standard deviation and maximum of the offspring of a year's sires, then of its dams.
Reals offspring_of(const MonitorTables& tables, Row row) {
  const ParentOffspring offspring = tables.parent_offspring.of(row);
  Reals cells;
  for (const Sex sex : {male, female}) {
    cells.push_back(offspring.of(sex).mean);
    cells.push_back(offspring.of(sex).deviation);
    cells.push_back(offspring.of(sex).maximum);
  }
  return cells;
}

Counts import_pairs_of(const MonitorTables& tables, Row row) {
  const ImportPairs pairs = tables.import_pairs.of(row);
  return {pairs.both_native, pairs.sire_imported, pairs.dam_imported, pairs.both_imported};
}

// Father 1 (1998), mother 2 (1999, imported), 3 and 4 of 2001, 5 of 2003 from 3 and 2; 6 without a year.
constexpr auto small_kennel =
    "1998-1-1 m breeder=Smit colour=red\n"
    "1999-7-1 import breeder=Vos colour=black\n"
    "2001-1-1 s=1 d=2 m breeder=Smit colour=red\n"
    "2001-6-1 s=1 d=2 breeder=Smit colour=grey\n"
    "2003-1-1 s=3 d=2 breeder=Vos\n"
    "s=3 d=2 m colour=red breeder=Vos\n";

TEST(MonitorPopulation, ConsoleInBothLanguages) {
  EXPECT_EQ(
      monitored(numbered_store("1999 m\n2001\n")).console,
      (Lines{" monitor data per jaar", " year         1999 determined ages parents, etc.",
             " year         2000 determined ages parents, etc.", " year         2001 determined ages parents, etc."}));
  EXPECT_EQ(monitored(numbered_store("1999 m\n"), colours_of({"Onbekend"}), no_breeders(), false).console,
            (Lines{" monitor gegevens per jaar", " jaar         1999 leeftijden ouders,  etc. bepaald"}));
}

TEST(MonitorPopulation, AnEmptyStorePrintsTheFirstLineOnly) {
  EXPECT_EQ(monitored(numbered_store("")).console, Lines{" monitor data per jaar"});
}

TEST(MonitorPopulation, FillsTheRowOfEachYear) {
  const MonitorTables tables = monitored(numbered_store(small_kennel)).tables;
  // 1 has two native offspring, 3 two (one without a year), 2 four.
  EXPECT_EQ(parents_of(tables, 1), (Counts{0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(parents_of(tables, 2), (Counts{0, 0, 0, 0, 0, 1}));
  EXPECT_EQ(parents_of(tables, 4), (Counts{0, 1, 0, 1, 0, 0}));
  EXPECT_EQ(parents_of(tables, 6), (Counts{0, 0, 0, 1, 0, 0}));
  EXPECT_EQ(offspring_of(tables, 2), (Reals{0, 0, 0, 4.0F, 0, 4.0F}));
  EXPECT_EQ(offspring_of(tables, 4), (Reals{2.0F, 0, 2.0F, 0, 0, 0}));
  EXPECT_EQ(tables.litters.of(4).litters, 1);
  EXPECT_EQ(tables.litters.of(4).of_size(2), 1);
  EXPECT_EQ(tables.litters.of(6).of_size(1), 1);
  // 5 of 2003: 0.5 + 0.5 and half of the father's 1.
  EXPECT_EQ(tables.completeness.of(4).equivalent_generations, 1.0F);
  EXPECT_EQ(tables.completeness.of(6).equivalent_generations, 1.5F);
  EXPECT_EQ(tables.completeness.of(6).generation_shares[0], 1.0F);
}

TEST(MonitorPopulation, TablesHaveARowForEachYearAndTheirColumns) {
  const Colours colours = colours_of({"red", "black", "grey", "Onbekend"});
  PopulationStore store = numbered_store(small_kennel, {.colours = colours});
  store.has_colour = true;
  const MonitorTables tables =
      monitored(store, colours, breeders_with("Smit                Vos                 ", 2, 2)).tables;
  for (const Row rows :
       {tables.parent_counts.row_count(), tables.parent_offspring.row_count(), tables.import_pairs.row_count(),
        tables.litters.row_count(), tables.age_classes.of(male).row_count(), tables.age_classes.of(female).row_count(),
        tables.parent_ages.row_count(), tables.completeness.row_count(), tables.colour_counts.row_count(),
        tables.top_breeders.row_count()}) {
    EXPECT_EQ(rows, 6);
  }
  EXPECT_EQ(tables.age_classes.of(male).column_count, 3);
  EXPECT_EQ(tables.age_classes.of(female).column_count, 3);
  EXPECT_EQ(tables.colour_counts.column_count, 5);
  EXPECT_EQ(tables.top_breeders.column_count, 6);
}

TEST(MonitorPopulation, AnEmptyStoreHasTablesOfTwoYears) {
  const MonitorTables tables = monitored(numbered_store("")).tables;
  EXPECT_EQ(tables.litters.row_count(), 2);
  EXPECT_EQ(tables.age_classes.of(male).column_count, 0);
}

TEST(MonitorPopulation, AYearWithoutAnimalsIsZeroInAllTables) {
  const Colours colours = colours_of({"red", "Onbekend"});
  PopulationStore store = numbered_store(small_kennel, {.colours = colours});
  store.has_import = store.has_colour = store.has_breeder = true;
  const Monitored run = monitored(store, colours, breeders_with("Smit                Vos                 ", 2, 2));
  constexpr Row row = 5;  // 2002
  EXPECT_EQ(parents_of(run.tables, row), Counts(6, 0));
  EXPECT_EQ(offspring_of(run.tables, row), Reals(6, 0.0F));
  EXPECT_EQ(import_pairs_of(run.tables, row), Counts(4, 0));
  EXPECT_EQ(run.tables.litters.of(row).litters, 0);
  EXPECT_EQ(run.tables.litters.of(row).fathers, 0);
  EXPECT_EQ(run.tables.litters.of(row).sizes, LitterCounts{}.sizes);
  EXPECT_EQ(row_of(run.tables.age_classes.of(male), row), Counts(3, 0));
  EXPECT_EQ(run.tables.parent_ages.of(row).sires, 0.0F);
  EXPECT_EQ(run.tables.completeness.of(row).equivalent_generations, 0.0F);
  EXPECT_EQ(row_of(run.tables.colour_counts, row), Counts(3, 0));
  EXPECT_EQ(row_of(run.tables.top_breeders, row), Counts(6, 0));
  EXPECT_EQ(run.console[row], " year         2002 determined ages parents, etc.");
}

TEST(MonitorPopulation, AgesByYear) {
  // At the birth of 3 the father is 3 * 365 days, of 4 151 more; the mother 181 days less than two years and so on.
  const MonitorTables tables = monitored(numbered_store(small_kennel)).tables;
  EXPECT_EQ(row_of(tables.age_classes.of(male), 4), (Counts{0, 1, 1}));    // 1095 and 1246 days
  EXPECT_EQ(row_of(tables.age_classes.of(female), 4), (Counts{2, 0, 0}));  // 549 and 700 days
  EXPECT_EQ(tables.parent_ages.of(4).sires, 1170.5F / 365.0F);
  EXPECT_EQ(tables.parent_ages.of(4).dams, 624.5F / 365.0F);
  EXPECT_EQ(row_of(tables.age_classes.of(male), 6), (Counts{1, 0, 0}));    // 730 days
  EXPECT_EQ(row_of(tables.age_classes.of(female), 6), (Counts{0, 0, 1}));  // 4 * 365 - 181 = 1279 days
}

TEST(MonitorPopulation, ImportPairsOnlyWithAnImportColumn) {
  PopulationStore store = numbered_store(small_kennel);
  EXPECT_EQ(import_pairs_of(monitored(store).tables, 4), (Counts{0, 0, 0, 0}));
  store.has_import = true;
  EXPECT_EQ(import_pairs_of(monitored(store).tables, 4), (Counts{0, 0, 2, 0}));
}

TEST(MonitorPopulation, ColoursOnlyWithAColourColumn) {
  const Colours colours = colours_of({"red", "black", "Onbekend"});
  PopulationStore store = numbered_store(small_kennel, {.colours = colours});
  EXPECT_EQ(row_of(monitored(store, colours).tables.colour_counts, 4), (Counts{0}));
  store.has_colour = true;
  const MonitorTables tables = monitored(store, colours).tables;
  EXPECT_EQ(row_of(tables.colour_counts, 1), (Counts{1, 0, 0, 0}));
  EXPECT_EQ(row_of(tables.colour_counts, 2), (Counts{0, 1, 0, 0}));
  EXPECT_EQ(row_of(tables.colour_counts, 4), (Counts{1, 0, 0, 1}));
  EXPECT_EQ(row_of(tables.colour_counts, 6), (Counts{0, 0, 0, 1}));
}

TEST(MonitorPopulation, AColourThatIsNotListedCountsInTheLastColumnOnly) {
  const Colours colours = colours_of({"Onbekend"});
  PopulationStore store = numbered_store("2000 colour=niet_erkend\n2000 colour=Onbekend\n", {.colours = colours});
  store.has_colour = true;
  EXPECT_EQ(row_of(monitored(store, colours).tables.colour_counts, 1), (Counts{1, 1}));
}

TEST(MonitorPopulation, TopBreedersAreEntriesOfTwentyCharacters) {
  // Read as slots of 7 the list would begin with "Smit   ", blank and "      V".
  PopulationStore store = numbered_store(small_kennel);
  store.has_breeder = true;
  const MonitorTables tables =
      monitored(store, colours_of({"Onbekend"}), breeders_with("Smit                Vos                 ", 2, 2))
          .tables;
  EXPECT_EQ(row_of(tables.top_breeders, 1), (Counts{1, 1, 0, 0, 0, 0}));
  // The imported dam of 1999 is Vos' parent, but not among the native parents: the last column is one short.
  EXPECT_EQ(row_of(tables.top_breeders, 2), (Counts{0, 0, 1, 1, 0, -1}));
  EXPECT_EQ(row_of(tables.top_breeders, 4), (Counts{2, 1, 0, 0, 0, 0}));
  EXPECT_EQ(row_of(tables.top_breeders, 6), (Counts{0, 0, 1, 0, 0, 0}));
}

TEST(MonitorPopulation, AShiftedEntryMatchesNobody) {
  // As the list looks once a blank slot has been put in front: "       Smit" is no breeder's name.
  PopulationStore store = numbered_store(small_kennel);
  store.has_breeder = true;
  const MonitorTables tables =
      monitored(store, colours_of({"Onbekend"}), breeders_with("       Smit         Vos                 ", 2, 2))
          .tables;
  EXPECT_EQ(row_of(tables.top_breeders, 4), (Counts{0, 0, 0, 0, 2, 1}));
}

TEST(MonitorPopulation, WithoutTopBreedersTheTwoColumnsHoldAllAnimalsAndNativeParents) {
  PopulationStore store = numbered_store(small_kennel);
  store.has_breeder = true;
  const MonitorTables tables = monitored(store, colours_of({"Onbekend"}), breeders_with("", 0, 0)).tables;
  EXPECT_EQ(row_of(tables.top_breeders, 1), (Counts{1, 1}));
  EXPECT_EQ(row_of(tables.top_breeders, 2), (Counts{1, 0}));
  EXPECT_EQ(row_of(tables.top_breeders, 4), (Counts{2, 1}));
}

TEST(MonitorPopulation, WithoutABreederColumnTheTableStaysZero) {
  const MonitorTables tables = monitored(numbered_store(small_kennel)).tables;
  for (std::int64_t row = 1; row <= 6; ++row) EXPECT_EQ(row_of(tables.top_breeders, row), (Counts{0, 0}));
}

TEST(MonitorPopulation, AnimalsWithoutBirthYearAreInNoRow) {
  const MonitorTables tables = monitored(numbered_store("2000 m\n.\nm\n2001\n")).tables;
  EXPECT_EQ(parents_of(tables, 1), (Counts{1, 0, 0, 0, 0, 0}));
  EXPECT_EQ(parents_of(tables, 2), (Counts{0, 0, 0, 1, 0, 0}));
}

TEST(MonitorPopulation, YearZeroHasARowOnlyBetweenKnownYears) {
  const PopulationStore store = numbered_store("-1 m\n1\n.\n.\n");
  ASSERT_EQ(store.birth_years.first, -1);
  EXPECT_EQ(parents_of(monitored(store).tables, 2), (Counts{0, 0, 0, 2, 0, 0}));
}

TEST(CountYears, ShowsItsLineForEachYearAndCountsOnlyTheAnimalsGiven) {
  PopulationStore store = numbered_store("2000 m\n2000\n2002 m\n");
  TextOutput console = output_in(true);
  const std::vector<std::int32_t> chosen = {1, 3};
  const Colours colours;
  const MonitorTables tables = count_years(store, group_by_year(store, chosen), {colours, {}}, {0, 0},
                                           {{"herd ", Wording{"born ", "geboren "}}, {"counted", "geteld"}}, console);
  EXPECT_EQ(lines_of(console), (Lines{" herd born         2000 counted", " herd born         2001 counted",
                                      " herd born         2002 counted"}));
  EXPECT_EQ(parents_of(tables, 1), (Counts{1, 0, 0, 0, 0, 0}));
  EXPECT_EQ(parents_of(tables, 3), (Counts{1, 0, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace pedigreewatch::test
