#include "statistics/year_statistics.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numeric>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

using Counts = std::vector<std::int32_t>;
using Reals = std::vector<float>;

Counts from_to(std::int32_t first, std::int32_t last) {
  Counts positions(static_cast<std::size_t>(last - first + 1));
  std::iota(positions.begin(), positions.end(), first);
  return positions;
}

// Each of the following calls one routine for one group, on a table of one row.

std::pair<Counts, Reals> parents_of(const PopulationStore& store, const Counts& group) {
  YearTable<std::int32_t> counts(1, parent_count_columns);
  YearTable<float> offspring(1, parent_offspring_columns);
  parent_year_statistics(store, group, 1, counts, offspring);
  return {row_of(counts, 1), row_of(offspring, 1)};
}

Counts import_pairs_of(const PopulationStore& store, const Counts& group) {
  YearTable<std::int32_t> pairs(1, import_pair_columns);
  import_pair_statistics(store, group, 1, pairs);
  return row_of(pairs, 1);
}

Counts litters_of(const PopulationStore& store, const Counts& group) {
  YearTable<std::int32_t> litters(1, litter_columns);
  LitterScratch scratch(store);
  litter_statistics(store, group, 1, scratch, litters);
  for (const std::int32_t size : scratch.litter_size) EXPECT_EQ(size, 0);
  for (const char seen : scratch.is_seen) EXPECT_EQ(seen, 0);
  return row_of(litters, 1);
}

/// A litter row: litters, fathers, and the numbers of litters of size 1, 2 ...; zeros behind them.
Counts litter_row(std::int32_t litters, std::int32_t fathers, Counts sizes) {
  Counts row = {litters, fathers};
  row.insert(row.end(), sizes.begin(), sizes.end());
  row.resize(102, 0);
  return row;
}

MonitorTables ages_of(PopulationStore store, const std::vector<std::int32_t>& sire_ages,
                      const std::vector<std::int32_t>& dam_ages, OldestParents oldest) {
  for (std::size_t i = 0; i < store.animals.size(); ++i) {
    store.animals[i].sire_age_days = sire_ages[i];
    store.animals[i].dam_age_days = dam_ages[i];
  }
  MonitorTables tables = make_monitor_tables({.first = 2000, .last = 2000, .count = 1}, oldest, 1, 0);
  parent_age_statistics(store, from_to(1, store.animal_count), 1, tables);
  return tables;
}

// ---------------------------------------------------------------------------------------------------------------

TEST(ParentYearStatistics, CountsParentsBySexAndOrigin) {
  // Group 1 to 9. Males: 1 and 2 native sires, 3 native without offspring, 4 native with imported offspring only, 5
  // imported sire, 6 import without offspring. Females: 7 native dam, 8 native without offspring, 9 imported dam.
  const PopulationStore store = numbered_store(
      "m\nm\nm\nm\nm import\nm import\n.\n.\nimport\n"
      "s=1 d=7\ns=1 d=7\ns=2 d=9\ns=5 d=9\ns=4 import\n");
  EXPECT_EQ(parents_of(store, from_to(1, 9)).first, (Counts{4, 2, 1, 2, 1, 1}));
}

TEST(ParentYearStatistics, OffspringPerParentImportsIncluded) {
  // Sires: 1 with 4 offspring, 2 with 2, imported 3 with 3; male 4 has none. Mean 3, deviation sqrt(2 / 2) = 1.
  // Dams: 5 with 6, 6 with 3: mean 4.5, deviation sqrt(2 * 2.25 / 1).
  const PopulationStore store = numbered_store(
      "m\nm\nm import\nm\n.\n.\n"
      "s=1 d=5\ns=1 d=5\ns=1 d=5\ns=1 d=5\ns=2 d=5\ns=2 d=5\ns=3 d=6\ns=3 d=6\ns=3 d=6\n");
  EXPECT_EQ(parents_of(store, from_to(1, 6)).second, (Reals{3.0F, 1.0F, 4.0F, 4.5F, std::sqrt(4.5F), 6.0F}));
}

TEST(ParentYearStatistics, ImportedOffspringDoNotCount) {
  // 1 has one native and one imported child; 2 has an imported child only and is no parent here.
  const PopulationStore store = numbered_store("m\nm\ns=1\ns=1 import\ns=2 import\n");
  EXPECT_EQ(parents_of(store, from_to(1, 2)).first, (Counts{2, 1, 0, 0, 0, 0}));
  EXPECT_EQ(parents_of(store, from_to(1, 2)).second, (Reals{1.0F, 0, 1.0F, 0, 0, 0}));
}

TEST(ParentYearStatistics, ASingleParentHasNoDeviation) {
  const PopulationStore store = numbered_store(".\nm\nd=1\nd=1\nd=1\n");
  EXPECT_EQ(parents_of(store, from_to(1, 2)).second, (Reals{0, 0, 0, 3.0F, 0, 3.0F}));
}

TEST(ParentYearStatistics, WithoutParentsAllIsZero) {
  const PopulationStore store = numbered_store("m\n.\nimport\n");
  EXPECT_EQ(parents_of(store, from_to(1, 3)).first, (Counts{1, 0, 0, 1, 0, 0}));
  EXPECT_EQ(parents_of(store, from_to(1, 3)).second, Reals(6, 0.0F));
}

TEST(ParentYearStatistics, DeviationIsWorkedOutAroundTheMeanInSinglePrecision) {
  // Sires with 1, 2 and 4 offspring: mean 7/3; squares in store order.
  const PopulationStore store = numbered_store("m\nm\nm\ns=1\ns=2\ns=2\ns=3\ns=3\ns=3\ns=3\n");
  const float mean = 7.0F / 3.0F;
  float squares = 0.0F;
  for (const float x : {1.0F, 2.0F, 4.0F}) squares += (x - mean) * (x - mean);
  const Reals row = parents_of(store, from_to(1, 3)).second;
  EXPECT_EQ(row[0], mean);
  EXPECT_FLOAT_EQ(row[1], std::sqrt(squares / 2.0F));
  EXPECT_NEAR(row[1], 1.5275252F, 1e-6F);
}

// ---------------------------------------------------------------------------------------------------------------

// Males 1 native, 2 imported; females 3 native, 4 imported; then one child of each kind.
constexpr auto pair_parents = "m\nm import\n.\nimport\n";

TEST(ImportPairStatistics, OneColumnForEachKindOfPair) {
  const PopulationStore store = numbered_store(std::string(pair_parents) +
                                               "s=1 d=3\ns=2 d=3\ns=2 d=3\ns=1 d=4\ns=1 d=4\ns=1 d=4\n"
                                               "s=2 d=4\ns=2 d=4\ns=2 d=4\ns=2 d=4\n");
  EXPECT_EQ(import_pairs_of(store, from_to(5, 14)), (Counts{1, 2, 3, 4}));
}

TEST(ImportPairStatistics, ImportsAndAnimalsWithAnUnknownParentDoNotCount) {
  const PopulationStore store =
      numbered_store(std::string(pair_parents) + "s=1 d=3 import\ns=2 d=4 import\ns=2\nd=4\n.\n");
  EXPECT_EQ(import_pairs_of(store, from_to(1, 9)), (Counts{0, 0, 0, 0}));
}

// ---------------------------------------------------------------------------------------------------------------

// Fathers 1 to 3, mothers 4 to 6.
constexpr auto litter_parents = "m\nm\nm\n.\n.\n.\n";

PopulationStore litter_store(std::string_view offspring) {
  return numbered_store(litter_parents + std::string(offspring));
}

TEST(LitterStatistics, OneLitterIsCountedWithoutItsFather) {
  const PopulationStore store = litter_store("s=1 d=4\ns=1 d=4\ns=1 d=4\n");
  EXPECT_EQ(litters_of(store, from_to(7, 9)), litter_row(1, 0, {0, 0, 1}));
}

TEST(LitterStatistics, TheFatherOfTheFirstAnimalIsNeverCounted) {
  // Father 1 comes back with another mother: still not counted. Fathers 2 and 3 are.
  const PopulationStore store = litter_store("s=1 d=4\ns=2 d=5\ns=1 d=5\ns=3 d=6\ns=1 d=6\n");
  EXPECT_EQ(litters_of(store, from_to(7, 11)), litter_row(3, 2, {1, 2}));
}

TEST(LitterStatistics, WithoutKnownFatherOfTheFirstAnimalAllFathersCount) {
  const PopulationStore store = litter_store("d=4\ns=1 d=4\ns=2 d=5\ns=1 d=5\n");
  EXPECT_EQ(litters_of(store, from_to(7, 10)), litter_row(2, 2, {0, 2}));
}

TEST(LitterStatistics, DatesWithinTheYearPlayNoPart) {
  const PopulationStore store = litter_store("2000-1-5 s=1 d=4\n2000-2-1 d=5\n2000-12-24 s=1 d=4\n");
  EXPECT_EQ(litters_of(store, from_to(7, 9)), litter_row(2, 0, {1, 1}));
}

TEST(LitterStatistics, AnimalsWithoutMotherAreInNoLitter) {
  const PopulationStore store = litter_store("s=1\ns=2\ns=3\ns=2\n");
  EXPECT_EQ(litters_of(store, from_to(7, 10)), litter_row(0, 2, {}));
}

TEST(LitterStatistics, AnImportedFirstMemberTakesTheWholeLitterOut) {
  // 7 is an import with mother 4: mother and father 1 count as seen, so 8 adds neither.
  const PopulationStore store = litter_store("s=1 d=4 import\ns=1 d=4\ns=2 d=5\n");
  EXPECT_EQ(litters_of(store, from_to(7, 9)), litter_row(1, 1, {1}));
}

TEST(LitterStatistics, AnImportedLaterMemberCountsInTheSize) {
  const PopulationStore store = litter_store("s=1 d=4\ns=1 d=4 import\n");
  EXPECT_EQ(litters_of(store, from_to(7, 8)), litter_row(1, 0, {0, 1}));
}

TEST(LitterStatistics, AnImportInTheMiddleMakesMotherAndFatherSeen) {
  // 8, an import, has mother 5 and father 2: 9 with the same parents adds nothing; 10 adds father 3.
  const PopulationStore store = litter_store("s=1 d=4\ns=2 d=5 import\ns=2 d=5\ns=3 d=4\n");
  EXPECT_EQ(litters_of(store, from_to(7, 10)), litter_row(1, 1, {0, 1}));
}

TEST(LitterStatistics, OnlyTheGroupCounts) {
  // The litter mate at position 8 is not in the group.
  const PopulationStore store = litter_store("s=1 d=4\ns=1 d=4\ns=2 d=4\n");
  EXPECT_EQ(litters_of(store, {7, 9}), litter_row(1, 1, {0, 1}));
}

PopulationStore large_litter(int size) {
  std::string text;
  for (int i = 0; i < size; ++i) text += "d=4\n";
  return litter_store(text);
}

TEST(LitterStatistics, ALitterOf150StandsInTheLastColumn) {
  const Counts row = litters_of(large_litter(150), from_to(7, 156));
  EXPECT_EQ(row[0], 1);
  EXPECT_EQ(row[101], 1);
  EXPECT_EQ(std::accumulate(row.begin() + 2, row.end(), 0), 1);
}

TEST(LitterStatistics, LittersOf99And100And101) {
  EXPECT_EQ(litters_of(large_litter(99), from_to(7, 105))[100], 1);
  EXPECT_EQ(litters_of(large_litter(100), from_to(7, 106))[101], 1);
  EXPECT_EQ(litters_of(large_litter(101), from_to(7, 107))[101], 1);
}

/// The plain way, animal by animal, with a look at all earlier ones.
Counts plain_litters(const PopulationStore& store, const Counts& group) {
  Counts row(102, 0);
  const auto size_of = [&](std::int32_t dam) {
    std::int32_t size = 0;
    for (const std::int32_t position : group) size += store.at(position).dam_no == dam ? 1 : 0;
    return std::min(size, 100);
  };
  std::set<std::int32_t> dams, sires;
  for (std::size_t i = 0; i < group.size(); ++i) {
    const AnimalRecord& animal = store.at(group[i]);
    if (animal.is_import == 0) {
      if (animal.dam_no != 0 && dams.count(animal.dam_no) == 0) {
        ++row[0];
        ++row[static_cast<std::size_t>(1 + size_of(animal.dam_no))];
      }
      if (i > 0 && animal.sire_no != 0 && sires.count(animal.sire_no) == 0) ++row[1];
    }
    dams.insert(animal.dam_no);
    sires.insert(animal.sire_no);
  }
  return row;
}

TEST(LitterStatistics, AgreeWithThePlainWayOnRandomPedigrees) {
  for (std::uint64_t seed = 1; seed <= 3; ++seed) {
    const PopulationStore store = random_pedigree(seed, 600, 10);
    for (std::int32_t year = 2000; year < 2010; ++year) {
      Counts group;
      for (std::int32_t position = 1; position <= store.animal_count; ++position) {
        if (store.at(position).birth_year == year) group.push_back(position);
      }
      EXPECT_EQ(litters_of(store, group), plain_litters(store, group));
    }
  }
}

// ---------------------------------------------------------------------------------------------------------------

TEST(ParentAgeStatistics, ClassesBeginOneDayAfterAWholeYear) {
  // 365 days and less are in no class; class 1 is 366 to 730, class 2 731 to 1095.
  const PopulationStore store = numbered_store(".\n.\n.\n.\n.\n.\n.\n.\n");
  const MonitorTables tables = ages_of(store, {365, 366, 730, 731, 1095, -1, 0, -400},
                                       {1095, 1095, 731, 365, 364, -1, -1, 1}, {.sire = 3, .dam = 3});
  EXPECT_EQ(row_of(tables.sire_age_classes, 1), (Counts{2, 2, 0}));
  EXPECT_EQ(row_of(tables.dam_age_classes, 1), (Counts{0, 3, 0}));
}

TEST(ParentAgeStatistics, TheOldestParentOfAWholeNumberOfYearsStandsOneClassLower) {
  const MonitorTables tables = ages_of(numbered_store(".\n.\n"), {1460, 1461}, {-1, -1}, {.sire = 4, .dam = 0});
  EXPECT_EQ(row_of(tables.sire_age_classes, 1), (Counts{0, 0, 1, 1}));
  EXPECT_EQ(tables.dam_age_classes.column_count, 0);
}

TEST(ParentAgeStatistics, AnAgeAboveTheLastClassIsInNone) {
  const MonitorTables tables = ages_of(numbered_store(".\n.\n"), {731, 400}, {-1, -1}, {.sire = 1, .dam = 0});
  EXPECT_EQ(row_of(tables.sire_age_classes, 1), (Counts{1}));
}

TEST(ParentAgeStatistics, MeanAgesOfAllKnownAgesInDays) {
  // Young and negative ages count in the mean although they are in no class.
  const MonitorTables tables =
      ages_of(numbered_store(".\n.\n.\n.\n"), {1000, -1, 300, -50}, {-1, -1, -1, 731}, {.sire = 2, .dam = 2});
  EXPECT_EQ(tables.mean_sire_age.value(1, 1), 1250.0F / 3.0F);
  EXPECT_EQ(tables.mean_dam_age.value(1, 1), 731.0F);
}

TEST(ParentAgeStatistics, WithoutKnownAgesTheMeanIsZero) {
  const MonitorTables tables = ages_of(numbered_store(".\n"), {-1}, {-1}, {});
  EXPECT_EQ(tables.mean_sire_age.value(1, 1), 0.0F);
  EXPECT_EQ(tables.mean_dam_age.value(1, 1), 0.0F);
}

// ---------------------------------------------------------------------------------------------------------------

/// Texts in the width of their field.
template <std::size_t Width>
Counts counted_colours(std::string_view numbered, std::vector<std::string_view> listed) {
  const PopulationStore store = numbered_store(numbered);
  std::vector<FixedText<Width>> names(listed.begin(), listed.end());
  std::vector<std::string_view> texts;
  for (const FixedText<Width>& name : names) texts.push_back(name.full());
  YearTable<std::int32_t> counts(1, static_cast<std::int64_t>(listed.size()) + 1);
  colour_statistics(store, from_to(1, store.animal_count), 1, make_column_finder(texts), counts);
  return row_of(counts, 1);
}

Counts colours_of(std::string_view numbered, std::vector<std::string_view> listed) {
  return counted_colours<40>(numbered, std::move(listed));
}

TEST(ColourStatistics, TheLastColumnGathersTheRest) {
  EXPECT_EQ(colours_of("colour=red\ncolour=black\ncolour=red\ncolour=Red\n.\n", {"red", "black", "Onbekend"}),
            (Counts{2, 1, 0, 2}));
}

TEST(ColourStatistics, UnknownCountsOnlyAnimalsWhoseColourSaysSo) {
  EXPECT_EQ(colours_of("colour=Onbekend\n.\n.\n", {"red", "Onbekend"}), (Counts{0, 1, 2}));
}

TEST(ColourStatistics, AColourListedTwiceCountsTwice) {
  // The last column loses both: 3 - (2 + 2 + 1).
  EXPECT_EQ(colours_of("colour=red\ncolour=red\ncolour=blue\n", {"red", "blue", "red"}), (Counts{2, 1, 2, -2}));
}

TEST(ColourStatistics, ABlankListedColourCountsAnimalsWithoutColour) {
  EXPECT_EQ(colours_of("colour=red\n.\n", {"", "red"}), (Counts{1, 1, 0}));
}

TEST(ColourStatistics, WithoutListedColoursTheOnlyColumnHoldsAll) {
  EXPECT_EQ(colours_of("colour=red\n.\n", {}), (Counts{2}));
}

// ---------------------------------------------------------------------------------------------------------------

struct BreederCase {
  std::string_view numbered;
  std::int32_t group_end;  ///< the group is 1 to this position
  std::vector<std::string_view> names;
};

Counts breeders_of(const BreederCase& c) {
  const PopulationStore store = numbered_store(c.numbered);
  std::vector<FixedText<20>> names(c.names.begin(), c.names.end());
  std::vector<std::string_view> texts;
  for (const FixedText<20>& name : names) texts.push_back(name.full());
  YearTable<std::int32_t> counts(1, parent_count_columns);
  YearTable<float> offspring(1, parent_offspring_columns);
  YearTable<std::int32_t> breeders(1, 2 * static_cast<std::int64_t>(names.size()) + 2);
  const Counts group = from_to(1, c.group_end);
  parent_year_statistics(store, group, 1, counts, offspring);
  breeder_statistics(store, group, 1, make_column_finder(texts), counts, breeders);
  return row_of(breeders, 1);
}

// 1 and 4 are sires, 2 a dam; 3 an imported dam; 5 without offspring.
constexpr auto bred_animals =
    "m breeder=Smit\nbreeder=Smit\nbreeder=Smit import\nm breeder=Vos\nbreeder=Vos\n"
    "s=1 d=2\ns=4 d=3\n";

TEST(BreederStatistics, AnimalsAndParentsOfEachBreederAndTheRest) {
  // Smit bred 3 animals, all parents, the import too; Vos is not listed. The rest: 5 - 3 animals; native sires 2 and
  // dams 1, less 3.
  EXPECT_EQ(breeders_of({bred_animals, 5, {"Smit"}}), (Counts{3, 3, 2, 0}));
  EXPECT_EQ(breeders_of({bred_animals, 5, {"Vos", "Smit"}}), (Counts{2, 1, 3, 3, 0, -1}));
}

TEST(BreederStatistics, WithoutTopBreedersAllAnimalsAreTheRest) {
  // Native sires and dams: 1, 4 and 2. The imported dam is in neither column of native parents.
  EXPECT_EQ(breeders_of({bred_animals, 5, {}}), (Counts{5, 3}));
}

TEST(BreederStatistics, ABlankNameCountsAnimalsWithoutBreeder) {
  EXPECT_EQ(breeders_of({"m\n.\nbreeder=Smit\ns=1\n", 3, {"", "Smit"}}), (Counts{2, 1, 1, 0, 0, 0}));
}

TEST(BreederStatistics, ANameListedTwiceCountsTwice) {
  EXPECT_EQ(breeders_of({"m\nm\nbreeder=Smit\ns=1\ns=2\n", 3, {"", ""}}), (Counts{2, 2, 2, 2, -1, -2}));
}

// ---------------------------------------------------------------------------------------------------------------

TEST(ColumnFinder, FindsAllColumnsOfAText) {
  const std::vector<std::string_view> texts = {"red ", "blue", "red ", "    "};
  const ColumnFinder finder = make_column_finder(texts);
  const auto columns = [&](std::string_view text) {
    const auto found = find_columns(finder, text);
    return Counts(found.begin(), found.end());
  };
  EXPECT_EQ(columns("red "), (Counts{1, 3}));
  EXPECT_EQ(columns("blue"), (Counts{2}));
  EXPECT_EQ(columns("    "), (Counts{4}));
  EXPECT_EQ(columns("grey"), (Counts{}));
}

TEST(ColumnFinder, AnEmptyListFindsNothing) {
  EXPECT_TRUE(find_columns(make_column_finder({}), "red ").empty());
}

}  // namespace
}  // namespace pedigreewatch::test
