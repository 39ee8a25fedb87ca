#include "statistics/type_pass.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "genetics/subpopulation_kinship.h"
#include "pedigree/subpopulation_scan.h"
#include "statistics/breeder_list.h"
#include "statistics/completeness.h"
#include "statistics/parent_ages.h"
#include "support/numbered_store.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Lines = std::vector<std::string>;
using Counts = std::vector<std::int32_t>;
using Reals = std::vector<float>;

/// Parents 1 to 4 are Polled, all offspring but the last Horned; every parent is two years old at the births. Horned
/// animal 6 is the father of Polled 8, after one year.
constexpr auto cattle =
    "2000 m sub=Polled\n2000 sub=Polled\n2001 m sub=Polled\n2001 sub=Polled\n"
    "2002 s=1 d=2 sub=Horned breeder=Bakker colour=red\n"
    "2002 s=1 d=2 m sub=Horned breeder=Jansen\n"
    "2003 s=3 d=4 sub=Horned breeder=Bakker colour=blue\n"
    "2003 s=6 sub=Polled breeder=Bakker\n";

constexpr std::int32_t polled = 1, horned = 2, highland = 3;

/// What a store of these tests looks up.
LookedUpNames cattle_names() {
  return {names_of<Subpopulations>({"Polled", "Horned", "Highland"}), names_of<Colours>({"red", "Onbekend"})};
}

struct TypeRun {
  Lines console;
  std::optional<Block> block;
};

/// What one run is made of, besides the store.
struct TypeCase {
  std::int32_t number = horned;
  Reals F = Reals(4, 0.1F), f = Reals(4, 0.1F);  ///< of the subpopulation, by year; all others have 0.9
  BreederList breeders = no_breeders();
  bool english = true;
};

YearTable<float> kinship_with(const BirthYears& years, const TypeCase& c) {
  YearTable<float> kinship(years.row_count(), kinship_column_count(3));
  for (std::size_t i = 0; i < c.F.size(); ++i) {
    const Row row = static_cast<Row>(i) + 1;
    for (std::int64_t column = 1; column <= kinship.column_count; ++column) kinship.at(row, column) = 0.9F;
    kinship.at(row, inbreeding_column(c.number)) = c.F[i];
    kinship.at(row, kinship_column(c.number)) = c.f[i];
  }
  return kinship;
}

/// The one place where these tests call the pass.
TypeRun run_type(PopulationStore store, const TypeCase& c) {
  const auto [subpopulations, colours] = cattle_names();
  TextOutput ignored, console = output_in(c.english);
  determine_parent_ages(store, ignored);
  determine_completeness(store);
  const auto members = animals_by_subpopulation(store, subpopulations);
  const BreedType type = {c.number, subpopulations.names.at(c.number), members[c.number]};
  std::optional<Block> block =
      run_type_pass(store, type, colours, c.breeders, kinship_with(store.birth_years, c), console);
  return {lines_of(console), std::move(block)};
}

TypeRun run_cattle(std::int32_t number, bool english = true) {
  return run_type(numbered_store(cattle, cattle_names()), {.number = number, .english = english});
}

TEST(TypePassConsole, English) {
  // Years without animals of the type, 2000 and 2001, have their lines too.
  const std::string ages = " determined ages of parents, number of animals per colour type, etc.";
  EXPECT_EQ(run_cattle(horned).console,
            (Lines{" monitor data per year for Horned              ", " maxages =            2           2",
                   " type Horned              year         2000", ages, " type Horned              year         2001",
                   ages, " type Horned              year         2002", ages,
                   " type Horned              year         2003", ages}));
}

TEST(TypePassConsole, Dutch) {
  const std::string ages = " leeftijden ouders, aantallen per kleur, topfokker etc. bepaald";
  EXPECT_EQ(run_cattle(polled, false).console,
            (Lines{" monitor gegevens per jaar voor Polled              ", " maxages =            1           0",
                   " type Polled              jaar         2000", ages, " type Polled              jaar         2001",
                   ages, " type Polled              jaar         2002", ages,
                   " type Polled              jaar         2003", ages}));
}

TEST(TypePassConsole, ASubpopulationWithoutAnimals) {
  const TypeRun english = run_cattle(highland), dutch = run_cattle(highland, false);
  EXPECT_EQ(english.console, (Lines{" monitor data per year for Highland            ",
                                    " No animals present with breed code Highland            "}));
  EXPECT_EQ(dutch.console, (Lines{" monitor gegevens per jaar voor Highland            ",
                                  " Geen dieren aanwezig met rascode Highland            "}));
  EXPECT_FALSE(english.block);
  EXPECT_FALSE(dutch.block);
}

TEST(TypePassConsole, NamesMustBeExactlyEqual) {
  const TypeRun run = run_type(numbered_store("2000 sub=polled\n2000 sub=Polled_x\n2000 sub=_Polled\n", cattle_names()),
                               {.number = polled, .F = {0.0F}, .f = {0.0F}});
  EXPECT_EQ(run.console.back(), " No animals present with breed code Polled              ");
}

TEST(TypePassConsole, OldestParentsMayBeYoungerThanAYear) {
  const TypeRun run = run_type(numbered_store("2000 m\n2000-12-1 s=1 sub=Polled\n", cattle_names()),
                               {.number = polled, .F = {0.0F}, .f = {0.0F}});
  EXPECT_EQ(run.console[1], " maxages =            0           0");
}

TEST(TypePass, TheBlockHasTheNameWithItsBlanks) {
  EXPECT_EQ(run_cattle(horned).block->name, "Horned              ");
}

TEST(TypePass, InbreedingAndRatesAreThoseOfTheSubpopulationsOwnColumns) {
  // Generation interval 2. F: 1 - (0.6 / 0.9)^(1/4) = 0.0963980; f: 1 - (0.75 / 0.8)^(1/4) = 0.0160052. Slopes on the
  // plain values with x mean 10 / 4 = 2: 0.5 / 6 and 0.175 / 6, with their sign.
  const TypeRun run =
      run_type(numbered_store(cattle, cattle_names()), {.F = {0.1F, 0.2F, 0.3F, 0.4F}, .f = {0.2F, 0.1F, 0.3F, 0.25F}});
  const Block& block = *run.block;
  EXPECT_EQ(block.inbreeding.of(2).F, 0.2F);
  EXPECT_EQ(block.inbreeding.of(2).f_with_self, 0.1F);
  EXPECT_NEAR(block.inbreeding.of(2).f_without_self, 0.1F / 0.9F, 2e-7F);
  EXPECT_NEAR(block.inbreeding.of(2).f_of_parents, -0.1F / 0.8F, 2e-7F);
  EXPECT_NEAR(block.rates.F_absolute.percent_per_generation, 19.27960F, 1e-4F);
  EXPECT_NEAR(block.rates.F_smoothed.percent_per_generation, 16.66667F, 1e-4F);
  EXPECT_NEAR(block.rates.f_absolute.percent_per_generation, 3.201040F, 1e-4F);
  EXPECT_NEAR(block.rates.f_smoothed.percent_per_generation, 5.833333F, 1e-4F);
  EXPECT_TRUE(block.periods.periods.empty());
}

BreederList slots_of(std::string text, std::int32_t breeder_count, std::int32_t top_breeder_count) {
  BreederList breeders;
  breeders.text = std::move(text);
  breeders.breeder_count = breeder_count;
  breeders.top_breeder_count = top_breeder_count;
  return breeders;
}

TEST(TypePassTables, TopBreedersAreSlotsOfSevenCharacters) {
  // Slots: blank, "Bakker ", "      D". As entries of 20 the first would be "       Bakker".
  PopulationStore store = numbered_store(cattle, cattle_names());
  store.has_breeder = true;
  const TypeRun run =
      run_type(store, {.breeders = slots_of("       Bakker       De Groot            Jansen              ", 3, 3)});
  const YearTable<std::int32_t>& counts = run.block->tables.top_breeders;
  EXPECT_EQ(row_of(counts, 1), Counts(8, 0));
  // 2002: 5 of Bakker, 6 of Jansen, who is a sire.
  EXPECT_EQ(row_of(counts, 3), (Counts{0, 0, 1, 0, 0, 0, 1, 1}));
  EXPECT_EQ(row_of(counts, 4), (Counts{0, 0, 1, 0, 0, 0, 0, 0}));
}

TEST(TypePassTables, ABlankSlotCountsTheMembersWithoutBreeder) {
  PopulationStore store = numbered_store(cattle, cattle_names());
  store.has_breeder = true;
  const TypeRun run = run_type(
      store,
      {.number = polled, .breeders = slots_of("       Bakker       De Groot            Jansen              ", 3, 1)});
  // Polled 1 and 2 of 2000, both parents; 8 of 2003 is Bakker's.
  EXPECT_EQ(row_of(run.block->tables.top_breeders, 1), (Counts{2, 2, 0, 0}));
  EXPECT_EQ(row_of(run.block->tables.top_breeders, 4), (Counts{0, 0, 1, 0}));
}

TEST(TypePassTables, ColoursOfTheMembersOnly) {
  PopulationStore store = numbered_store(cattle, cattle_names());
  store.has_colour = true;
  const TypeRun run = run_type(store, {});
  const YearTable<std::int32_t>& counts = run.block->tables.colour_counts;
  EXPECT_EQ(row_of(counts, 1), (Counts{0, 0, 0}));
  EXPECT_EQ(row_of(counts, 3), (Counts{1, 0, 1}));
  EXPECT_EQ(row_of(counts, 4), (Counts{0, 0, 1}));
}

TEST(TypePassTables, CompletenessAndAgesAreThoseOfTheWholePopulation) {
  // The parents of the Horned animals are Polled; they count all the same.
  const TypeRun run = run_cattle(horned);
  const MonitorTables& tables = run.block->tables;
  EXPECT_EQ(tables.completeness.of(1).equivalent_generations, 0.0F);
  EXPECT_EQ(tables.completeness.of(1).generation_shares[0], 0.0F);
  EXPECT_EQ(tables.completeness.of(3).equivalent_generations, 1.0F);
  EXPECT_EQ(tables.completeness.of(3).generation_shares[0], 1.0F);
  EXPECT_EQ(tables.parent_ages.of(1).parents, 0.0F);
  EXPECT_EQ(tables.parent_ages.of(3).sires, 2.0F);
  EXPECT_EQ(tables.parent_ages.of(3).dams, 2.0F);
  EXPECT_EQ(tables.parent_ages.of(3).parents, 2.0F);
  EXPECT_EQ(run.block->interval.overall_sire_age, 2.0F);
  EXPECT_EQ(run.block->interval.overall_dam_age, 2.0F);
  EXPECT_EQ(run.block->interval.generation_interval, 2.0F);
}

TEST(TypePassTables, AgeClassesHaveTheWidthOfTheMembersOldestParents) {
  // 730 days are class 1 of the two.
  const TypeRun run = run_cattle(horned);
  const YearTable<std::int32_t>& sires = run.block->tables.age_classes.of(male);
  EXPECT_EQ(row_of(sires, 3), (Counts{2, 0}));
  EXPECT_EQ(row_of(sires, 4), (Counts{1, 0}));
}

TEST(TypePassTables, ImportPairsOfMembersWithParentsElsewhere) {
  std::vector<AnimalRecord> animals = numbered_records(cattle);
  animals[0].is_import = true;
  PopulationStore store = finished_store_of(animals, cattle_names());
  store.has_import = true;
  const TypeRun run = run_type(store, {});
  const ImportPairs pairs = run.block->tables.import_pairs.of(3);
  EXPECT_EQ(pairs.both_native, 0);
  EXPECT_EQ(pairs.sire_imported, 2);
  EXPECT_EQ(pairs.dam_imported, 0);
  EXPECT_EQ(pairs.both_imported, 0);
}

TEST(TypePassTables, BusiestParentsAndTotalsAreThoseOfTheMembers) {
  // Of the Horned animals 6 has one young, which is Polled; no female of them has any: the first one stands.
  const TypeRun run = run_cattle(horned);
  EXPECT_EQ(run.block->busiest.of(male), 6);
  EXPECT_EQ(run.block->busiest.of(female), 5);
  EXPECT_EQ(run.block->totals.of(male).native_parents, 1);
  EXPECT_EQ(run.block->totals.of(female).unused, 2);
}

}  // namespace
}  // namespace pedigreewatch::test
