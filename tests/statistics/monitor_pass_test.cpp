#include "statistics/monitor_pass.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "statistics/parent_ages.h"
#include "support/numbered_store.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Lines = std::vector<std::string>;
using Counts = std::vector<std::int32_t>;
using Reals = std::vector<float>;

SteerSettings settings_with(std::initializer_list<std::string_view> colours) {
  SteerSettings settings;
  settings.english = true;
  for (const std::string_view colour : colours) settings.colour_names.emplace_back(colour);
  settings.colour_count = static_cast<std::int32_t>(colours.size());
  return settings;
}

BreederList breeders_with(std::string text, std::int32_t breeder_count, std::int32_t top_breeder_count) {
  BreederList breeders;
  breeders.text = std::move(text);
  breeders.breeder_count = breeder_count;
  breeders.top_breeder_count = top_breeder_count;
  return breeders;
}

struct Monitored {
  MonitorTables tables;
  Lines console;
};

/// Ages, then the pass: the one place where these tests call it.
Monitored monitored(PopulationStore store, SteerSettings settings = settings_with({"Onbekend", "niet erkend"}),
                    const BreederList& breeders = no_breeders()) {
  TextOutput ignored, console = output_in(settings.english);
  const OldestParents oldest = determine_parent_ages(store, ignored);
  if (!store.has_colour) settings.colour_count = 1;
  MonitorTables tables =
      make_monitor_tables(store.birth_years, oldest, settings.colour_count, breeders.top_breeder_count);
  monitor_population(store, settings, group_by_year(store), breeders, tables, console);
  return {std::move(tables), lines_of(console)};
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
  SteerSettings settings = settings_with({"Onbekend", "niet erkend"});
  EXPECT_EQ(
      monitored(numbered_store("1999 m\n2001\n"), settings).console,
      (Lines{" monitor data per jaar", " year         1999 determined ages parents, etc.",
             " year         2000 determined ages parents, etc.", " year         2001 determined ages parents, etc."}));
  settings.english = false;
  EXPECT_EQ(monitored(numbered_store("1999 m\n"), settings).console,
            (Lines{" monitor gegevens per jaar", " jaar         1999 leeftijden ouders,  etc. bepaald"}));
}

TEST(MonitorPopulation, AnEmptyStorePrintsTheFirstLineOnly) {
  EXPECT_EQ(monitored(numbered_store("")).console, Lines{" monitor data per jaar"});
}

TEST(MonitorPopulation, FillsTheRowOfEachYear) {
  const MonitorTables tables = monitored(numbered_store(small_kennel)).tables;
  // 1 has two native offspring, 3 two (one without a year), 2 four.
  EXPECT_EQ(row_of(tables.parent_counts, 1), (Counts{1, 1, 0, 0, 0, 0}));
  EXPECT_EQ(row_of(tables.parent_counts, 2), (Counts{0, 0, 0, 0, 0, 1}));
  EXPECT_EQ(row_of(tables.parent_counts, 4), (Counts{1, 1, 0, 1, 0, 0}));
  EXPECT_EQ(row_of(tables.parent_counts, 6), (Counts{0, 0, 0, 1, 0, 0}));
  EXPECT_EQ(row_of(tables.parent_offspring, 2), (Reals{0, 0, 0, 4.0F, 0, 4.0F}));
  EXPECT_EQ(row_of(tables.parent_offspring, 4), (Reals{2.0F, 0, 2.0F, 0, 0, 0}));
  EXPECT_EQ(tables.litters.value(4, litter_count), 1);
  EXPECT_EQ(tables.litters.value(4, before_litter_sizes + 2), 1);
  EXPECT_EQ(tables.litters.value(6, before_litter_sizes + 1), 1);
}

TEST(MonitorPopulation, AYearWithoutAnimalsIsZeroInAllTables) {
  PopulationStore store = numbered_store(small_kennel);
  store.has_import = store.has_colour = store.has_breeder = true;
  const Monitored run = monitored(store, settings_with({"red", "Onbekend", "niet erkend"}),
                                  breeders_with("Smit                Vos                 ", 2, 2));
  constexpr std::int64_t row = 5;  // 2002
  EXPECT_EQ(row_of(run.tables.parent_counts, row), Counts(6, 0));
  EXPECT_EQ(row_of(run.tables.parent_offspring, row), Reals(6, 0.0F));
  EXPECT_EQ(row_of(run.tables.import_pairs, row), Counts(4, 0));
  EXPECT_EQ(row_of(run.tables.litters, row), Counts(102, 0));
  EXPECT_EQ(row_of(run.tables.sire_age_classes, row), Counts(3, 0));
  EXPECT_EQ(row_of(run.tables.mean_sire_age, row), Reals{0.0F});
  EXPECT_EQ(row_of(run.tables.colour_counts, row), Counts(3, 0));
  EXPECT_EQ(row_of(run.tables.top_breeders, row), Counts(6, 0));
  EXPECT_EQ(run.console[row], " year         2002 determined ages parents, etc.");
}

TEST(MonitorPopulation, AgesByYear) {
  // At the birth of 3 the father is 3 * 365 days, of 4 151 more; the mother 181 days less than two years and so on.
  const MonitorTables tables = monitored(numbered_store(small_kennel)).tables;
  EXPECT_EQ(row_of(tables.sire_age_classes, 4), (Counts{0, 1, 1}));  // 1095 and 1246 days
  EXPECT_EQ(row_of(tables.dam_age_classes, 4), (Counts{2, 0, 0}));   // 549 and 700 days
  EXPECT_EQ(tables.mean_sire_age.value(4, 1), 1170.5F);
  EXPECT_EQ(tables.mean_dam_age.value(4, 1), 624.5F);
  EXPECT_EQ(row_of(tables.sire_age_classes, 6), (Counts{1, 0, 0}));  // 730 days
  EXPECT_EQ(row_of(tables.dam_age_classes, 6), (Counts{0, 0, 1}));   // 4 * 365 - 181 = 1279 days
}

TEST(MonitorPopulation, ImportPairsOnlyWithAnImportColumn) {
  PopulationStore store = numbered_store(small_kennel);
  EXPECT_EQ(row_of(monitored(store).tables.import_pairs, 4), (Counts{0, 0, 0, 0}));
  store.has_import = true;
  EXPECT_EQ(row_of(monitored(store).tables.import_pairs, 4), (Counts{0, 0, 2, 0}));
}

TEST(MonitorPopulation, ColoursOnlyWithAColourColumn) {
  PopulationStore store = numbered_store(small_kennel);
  const SteerSettings settings = settings_with({"red", "black", "Onbekend", "niet erkend"});
  EXPECT_EQ(row_of(monitored(store, settings).tables.colour_counts, 4), (Counts{0}));
  store.has_colour = true;
  const MonitorTables tables = monitored(store, settings).tables;
  EXPECT_EQ(row_of(tables.colour_counts, 1), (Counts{1, 0, 0, 0}));
  EXPECT_EQ(row_of(tables.colour_counts, 2), (Counts{0, 1, 0, 0}));
  EXPECT_EQ(row_of(tables.colour_counts, 4), (Counts{1, 0, 0, 1}));
  EXPECT_EQ(row_of(tables.colour_counts, 6), (Counts{0, 0, 0, 1}));
}

TEST(MonitorPopulation, AnAnimalOfTheLastRowsOwnNameStillCountsThereOnly) {
  PopulationStore store = numbered_store("2000 colour=niet_erkend\n2000 colour=Onbekend\n");
  store.has_colour = true;
  EXPECT_EQ(row_of(monitored(store).tables.colour_counts, 1), (Counts{1, 1}));
}

TEST(MonitorPopulation, TopBreedersAreEntriesOfTwentyCharacters) {
  // Read as slots of 7 the list would begin with "Smit   ", blank and "      V".
  PopulationStore store = numbered_store(small_kennel);
  store.has_breeder = true;
  const MonitorTables tables = monitored(store, settings_with({"Onbekend", "niet erkend"}),
                                         breeders_with("Smit                Vos                 ", 2, 2))
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
  const MonitorTables tables = monitored(store, settings_with({"Onbekend", "niet erkend"}),
                                         breeders_with("       Smit         Vos                 ", 2, 2))
                                   .tables;
  EXPECT_EQ(row_of(tables.top_breeders, 4), (Counts{0, 0, 0, 0, 2, 1}));
}

TEST(MonitorPopulation, WithoutTopBreedersTheTwoColumnsHoldAllAnimalsAndNativeParents) {
  PopulationStore store = numbered_store(small_kennel);
  store.has_breeder = true;
  const MonitorTables tables =
      monitored(store, settings_with({"Onbekend", "niet erkend"}), breeders_with("", 0, 0)).tables;
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
  EXPECT_EQ(row_of(tables.parent_counts, 1), (Counts{1, 0, 0, 0, 0, 0}));
  EXPECT_EQ(row_of(tables.parent_counts, 2), (Counts{0, 0, 0, 1, 0, 0}));
}

TEST(MonitorPopulation, YearZeroHasARowOnlyBetweenKnownYears) {
  const PopulationStore store = numbered_store("-1 m\n1\n.\n.\n");
  ASSERT_EQ(store.birth_years.first, -1);
  EXPECT_EQ(row_of(monitored(store).tables.parent_counts, 2), (Counts{0, 0, 0, 2, 0, 0}));
}

TEST(ListedColours, AreAllRowsButTheLast) {
  const SteerSettings settings = settings_with({"red", "Onbekend", "niet erkend"});
  const std::vector<std::string_view> colours = listed_colours(settings);
  ASSERT_EQ(colours.size(), 2U);
  EXPECT_EQ(colours[0], "red" + std::string(37, ' '));
  EXPECT_EQ(colours[1], "Onbekend" + std::string(32, ' '));
}

TEST(ListedColours, WithoutAColourColumnThereAreNone) {
  SteerSettings settings = settings_with({"red", "Onbekend", "niet erkend"});
  settings.colour_count = 1;
  EXPECT_TRUE(listed_colours(settings).empty());
}

}  // namespace
}  // namespace pedigreewatch::test
