#include "pedigree/population_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/numbered_store.h"
#include "support/pedigree_runs.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

using Numbers = std::vector<std::int32_t>;

/// Animals that differ in their day of birth only.
std::vector<AnimalRecord> born_on(const Numbers& days) {
  std::vector<AnimalRecord> animals(days.size(), unread_record());
  for (std::size_t i = 0; i < days.size(); ++i) {
    animals[i].id.assign("a" + std::to_string(i + 1));
    animals[i].birth_day = days[i];
  }
  return animals;
}

Numbers days_of(const PopulationStore& store) {
  Numbers days;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) days.push_back(store.birth_day(i));
  return days;
}

BirthYears years_of(const Numbers& years) {
  std::vector<AnimalRecord> animals(years.size(), unread_record());
  for (std::size_t i = 0; i < years.size(); ++i) animals[i].birth_year = years[i];
  return birth_years_of(store_of(animals));
}

/// The animals that stand at the positions 1, 2, ... from now on, by their positions until now.
ByNumber<std::int32_t> order_of(const Numbers& positions_before) {
  ByNumber<std::int32_t> order(positions_before.size());
  std::ranges::copy(positions_before, order.values.begin() + 1);
  return order;
}

/// A record with something in each of its fields.
AnimalRecord full_record() {
  AnimalRecord record;
  record.id.assign(std::string(29, 'i') + "d");
  record.name.assign(std::string(49, 'n') + "e");
  record.sire_id.assign("the father");
  record.dam_id.assign("the mother");
  record.birth_year = -2147483647 - 1;
  record.birth_month = 12;
  record.birth_day = 31;
  record.sex = male;
  record.colour.assign("red");
  record.breeder.assign("Smit");
  record.subpopulation.assign("rough");
  record.is_import = true;
  return record;
}

LookedUpNames names_to_look_up() {
  return {names_of<Subpopulations>({"smooth", "rough", ""}), names_of<Colours>({"black", "red", ""})};
}

// ---- records as they are read ------------------------------------------------------------------------------------

TEST(UnreadRecord, StandsForALineWithoutAnyField) {
  const AnimalRecord animal = unread_record();
  EXPECT_EQ(animal.name.full(), padded("- ", 50));
  EXPECT_TRUE(animal.id.is_blank());
  EXPECT_EQ(animal.sire_id, "0");
  EXPECT_EQ(animal.dam_id, "0");
  EXPECT_EQ(animal.sex, female);
  EXPECT_EQ(animal.birth_year, 0);
  EXPECT_EQ(animal.birth_month, 1);
  EXPECT_EQ(animal.birth_day, 1);
  EXPECT_TRUE(animal.colour.is_blank());
  EXPECT_TRUE(animal.breeder.is_blank());
  EXPECT_TRUE(animal.subpopulation.is_blank());
  EXPECT_FALSE(animal.is_import);
}

TEST(PrepareStore, IsEmptyWhateverTheNumberOfRecordsToCome) {
  PopulationStore store;
  prepare_store(store, 2, {Subpopulations(), Colours()});
  EXPECT_EQ(store.animal_count, 0);
  EXPECT_EQ(store.size(), 0U);
}

TEST(PrepareStore, NegativeCountGivesAnEmptyStore) {
  PopulationStore store;
  prepare_store(store, -1, {Subpopulations(), Colours()});
  EXPECT_EQ(store.animal_count, -1);
  EXPECT_EQ(store.size(), 0U);
  EXPECT_TRUE(all_positions(store).empty());
}

TEST(AppendRecord, AllFieldsAreThereAgain) {
  PopulationStore store = store_of(std::vector{unread_record(), full_record()}, names_to_look_up());
  store.kept.lines_before_records = 1;
  const AnimalRecord expected = full_record(), animal = store.at(2);
  EXPECT_EQ(animal.id, expected.id);
  EXPECT_EQ(animal.name, expected.name);
  EXPECT_EQ(animal.sire_id, expected.sire_id);
  EXPECT_EQ(animal.dam_id, expected.dam_id);
  EXPECT_EQ(animal.birth_year, expected.birth_year);
  EXPECT_EQ(animal.birth_month, 12);
  EXPECT_EQ(animal.birth_day, 31);
  EXPECT_EQ(animal.sex, male);
  EXPECT_EQ(animal.breeder, "Smit");
  EXPECT_EQ(animal.subpopulation, "rough");
  EXPECT_TRUE(animal.is_import);
  EXPECT_EQ(animal.number, 2);
  EXPECT_EQ(animal.line, 3);
  EXPECT_EQ(store.colour_no[2], 2);
  EXPECT_EQ(store.subpopulation_no(2), 2);
  const AnimalRecord other = store.at(1);
  EXPECT_TRUE(other.id.is_blank());
  EXPECT_TRUE(other.breeder.is_blank());
  EXPECT_TRUE(other.subpopulation.is_blank());
  EXPECT_FALSE(other.is_import);
}

TEST(AppendRecord, FieldsOfLaterPhasesAreZeroUntilTheirPhaseHasRun) {
  const AnimalRecord animal = store_of(std::vector{full_record()}).at(1);
  EXPECT_EQ(animal.sire_no, 0);  // pending
  EXPECT_EQ(animal.dam_no, 0);
  EXPECT_FALSE(animal.is_parent);
  EXPECT_FALSE(animal.is_native_parent);
  EXPECT_EQ(animal.native_offspring_count, 0);
  EXPECT_EQ(animal.sire_age_days, 0);
  EXPECT_EQ(animal.dam_age_days, 0);
  EXPECT_EQ(animal.generation_equivalents, 0.0F);
  EXPECT_EQ(animal.complete_generations, 0);
  EXPECT_EQ(animal.inbreeding, 0.0F);
}

TEST(AppendRecord, FieldsOfLaterPhasesAreThoseOfTheirColumns) {
  AnimalRecord parent = unread_record(), young = unread_record();
  parent.is_parent = true;
  parent.native_offspring_count = 7;
  young.sire_no = 1;
  young.dam_no = 1;
  young.sire_age_days = 730;
  young.dam_age_days = -1;
  young.generation_equivalents = 1.5F;
  young.complete_generations = 1;
  young.inbreeding = 0.25F;
  const PopulationStore store = finished_store_of(std::vector{parent, young});
  EXPECT_TRUE(store.at(1).is_parent);
  EXPECT_TRUE(store.at(1).is_native_parent);
  EXPECT_TRUE(store.is_native_parent(1));
  EXPECT_EQ(store.at(1).native_offspring_count, 7);
  const AnimalRecord animal = store.at(2);
  EXPECT_FALSE(animal.is_parent);
  EXPECT_FALSE(store.is_native_parent(2));
  EXPECT_EQ(animal.sire_no, 1);
  EXPECT_EQ(animal.dam_no, 1);
  EXPECT_EQ(animal.sire_age_days, 730);
  EXPECT_EQ(animal.dam_age_days, -1);
  EXPECT_EQ(animal.generation_equivalents, 1.5F);
  EXPECT_EQ(animal.complete_generations, 1);
  EXPECT_EQ(animal.inbreeding, 0.25F);
}

TEST(AppendRecord, OnlyZeroIsNoParentAndPendingOnesAreKnownByName) {
  const PopulationStore store = animals_from_text("a 0 00 m 2000\nb a 0 m 2000\nc b late m 2000\nlate 0 0 f 2000\n");
  EXPECT_EQ(store.sire_no.values, (Numbers{0, 0, 1, 2, 0}));
  EXPECT_EQ(store.dam_no.values, (Numbers{0, -1, 0, -2, 0}));
  EXPECT_EQ(store.at(1).sire_id, "0");
  EXPECT_EQ(store.at(1).dam_id, "00");
  EXPECT_EQ(store.at(2).sire_id, "a");
  EXPECT_EQ(store.at(3).dam_id, "late");
  EXPECT_EQ(store.index.pending_record.entries, (Numbers{0, 4}));
}

TEST(AppendRecord, DaysThatFitIntoNoByteAreKept) {
  const Numbers days = {1,
                        31,
                        -1,
                        0,
                        126,
                        127,
                        128,
                        -126,
                        -127,
                        -128,
                        -129,
                        255,
                        256,
                        -256,
                        12,
                        2147483647,
                        -2147483647,
                        99,
                        -2147483647 - 1,
                        -1000000,
                        31};
  EXPECT_EQ(days_of(store_of(born_on(days))), days);
}

TEST(AppendRecord, WithoutAColumnOfNamesEveryNameIsADash) {
  PopulationStore store;
  prepare_store(store, 1, {Subpopulations(), Colours()});
  append_animal(store, full_record(), 0);
  EXPECT_EQ(store.at(1).name.full(), padded("- ", 50));
  EXPECT_EQ(store.kept.names.count(), 0);
}

TEST(AppendRecord, FieldsWithoutAColumnTakeNoMemory) {
  const LookedUpNames names = names_to_look_up();
  PopulationStore store;
  prepare_store(store, 2, {names.subpopulations, names.colours});
  append_animal(store, full_record(), 2);
  append_parent(store, "the father", male);
  EXPECT_TRUE(store.colour_no.values.empty());
  EXPECT_TRUE(store.breeder_no.values.empty());
  EXPECT_TRUE(store.kept.subpopulation_text.values.empty());
  EXPECT_EQ(store.breeders.count(), 0);
  EXPECT_TRUE(store.at(1).breeder.is_blank());
  EXPECT_TRUE(store.at(1).subpopulation.is_blank());
  EXPECT_EQ(store.subpopulation_no(1), 3);  // that of a blank text
  EXPECT_EQ(store.subpopulation_no(2), 3);
}

TEST(AppendRecord, SubpopulationsAreKeptOnlyWhereThereAreTwoToTellApart) {
  for (const bool has_two : {false, true}) {
    LookedUpNames names = {names_of<Subpopulations>({"rough"}), {}};
    if (has_two) names.subpopulations.add(SubpopulationName("smooth"));
    const PopulationStore store = store_of(std::vector{full_record()}, names);
    EXPECT_EQ(store.at(1).subpopulation, has_two ? "rough" : "");
    EXPECT_EQ(store.subpopulation_no(1), has_two ? 1 : 0);
  }
}

TEST(AppendRecord, SubpopulationsThatAreNotAllowedKeepTheirTexts) {
  std::vector<AnimalRecord> animals(4, unread_record());
  for (const std::size_t i : {0U, 2U}) animals[i].subpopulation.assign("wire");
  animals[1].subpopulation.assign("curl");
  animals[3].subpopulation.assign("smooth");
  const PopulationStore store = store_of(animals, {.subpopulations = names_of<Subpopulations>({"rough", "smooth"})});
  for (std::int32_t i = 1; i <= 4; ++i) {
    EXPECT_EQ(store.subpopulation(i), animals[static_cast<std::size_t>(i) - 1].subpopulation);
    EXPECT_EQ(store.subpopulation_no(i), i == 4 ? 2 : 0);
  }
}

TEST(AppendRecord, BreedersAreNumberedInTheOrderOfFirstAppearance) {
  const PopulationStore store =
      numbered_store("breeder=Vos\n.\nbreeder=Smit\nbreeder=Vos\nbreeder=vos\nbreeder=Smit\n");
  EXPECT_EQ(store.breeder_no.values, (Numbers{0, 1, 0, 2, 1, 3, 2}));
  ASSERT_EQ(store.breeders.count(), 3);
  EXPECT_EQ(store.breeders.names.at(2), "Smit");
  EXPECT_EQ(store.at(5).breeder, "vos");
}

// ---- appended parents --------------------------------------------------------------------------------------------

TEST(AppendParent, HasNoNameNoParentsAndNoBirth) {
  for (const bool has_name : {true, false}) {
    PopulationStore store = store_of(std::vector{full_record()}, names_to_look_up());
    store.has_name = has_name;
    store.kept.lines_before_records = 1;
    EXPECT_EQ(append_parent(store, "NL-7", male), 2);
    ASSERT_EQ(store.animal_count, 2);
    const AnimalRecord parent = store.at(2);
    EXPECT_EQ(parent.id, "NL-7");
    EXPECT_TRUE(parent.name.is_blank());
    EXPECT_EQ(parent.sire_id, "0");
    EXPECT_EQ(parent.dam_id, "0");
    EXPECT_EQ(parent.sex, male);
    EXPECT_EQ(parent.birth_year, 0);
    EXPECT_EQ(parent.birth_month, 1);
    EXPECT_EQ(parent.birth_day, 1);
    EXPECT_FALSE(parent.is_import);
    EXPECT_EQ(parent.number, 2);
    EXPECT_EQ(parent.line, 0);
    EXPECT_TRUE(parent.breeder.is_blank());
    EXPECT_EQ(store.subpopulation_no(2), 3);
    EXPECT_EQ(store.colour_no[2], 3);
    EXPECT_EQ(store.at(1).line, 2);
  }
}

// ---- another order -----------------------------------------------------------------------------------------------

TEST(ReorderAnimals, RenumbersTheParents) {
  PopulationStore store = animals_from_text("kid pa ma m 2003\nma 0 opa f 2000\npa opa 0 m 2000\nopa 0 0 m 1990\n");
  store.sire_no = order_of({3, 0, 4, 0});
  store.dam_no = order_of({2, 4, 0, 0});
  reorder_animals(store, order_of({4, 3, 2, 1}));
  EXPECT_EQ(store.sire_no.values, (Numbers{0, 0, 1, 0, 2}));
  EXPECT_EQ(store.dam_no.values, (Numbers{0, 0, 0, 1, 3}));
  EXPECT_EQ(store.at(4).id, "kid");
  EXPECT_EQ(store.at(4).sire_id, "pa");
  EXPECT_EQ(store.at(4).dam_id, "ma");
  EXPECT_EQ(store.at(3).dam_id, "opa");
  EXPECT_EQ(store.at(4).number, 4);
}

TEST(ReorderAnimals, EveryFieldGoesWithItsAnimal) {
  AnimalRecord first = full_record(), second = unread_record();
  first.sire_id = first.dam_id = AnimalId("0");
  second.id.assign("b");
  second.name.assign("the other");
  second.colour.assign("black");
  second.breeder.assign("Vos");
  second.subpopulation.assign("smooth");
  PopulationStore store = store_of(std::vector{first, second}, names_to_look_up());
  store.kept.lines_before_records = 10;
  append_parent(store, "c", male);
  store.native_offspring_count = order_of({1, 2, 3});
  store.is_parent = ByNumber<Flag>(3);
  store.is_parent[3] = 1;
  reorder_animals(store, order_of({3, 1, 2}));
  const AnimalRecord animal = store.at(2);
  EXPECT_EQ(animal.id, first.id);
  EXPECT_EQ(animal.name, first.name);
  EXPECT_EQ(animal.birth_year, first.birth_year);
  EXPECT_EQ(animal.birth_month, 12);
  EXPECT_EQ(animal.birth_day, 31);
  EXPECT_EQ(animal.sex, male);
  EXPECT_TRUE(animal.is_import);
  EXPECT_EQ(animal.breeder, "Smit");
  EXPECT_EQ(animal.subpopulation, "rough");
  EXPECT_EQ(animal.line, 11);
  EXPECT_EQ(animal.number, 2);
  EXPECT_EQ(animal.native_offspring_count, 1);
  EXPECT_EQ(store.colour_no.values, (Numbers{0, 3, 2, 1}));
  EXPECT_EQ(store.subpopulation_no(3), 1);
  EXPECT_EQ(store.at(3).name, "the other");
  EXPECT_EQ(store.at(3).breeder, "Vos");
  EXPECT_EQ(store.at(3).line, 12);
  const AnimalRecord appended = store.at(1);
  EXPECT_EQ(appended.id, "c");
  EXPECT_TRUE(appended.name.is_blank());
  EXPECT_EQ(appended.line, 0);
  EXPECT_TRUE(appended.is_parent);
  EXPECT_FALSE(animal.is_parent);
}

TEST(ReorderAnimals, DaysThatFitIntoNoByteGoWithTheirAnimals) {
  PopulationStore store = store_of(born_on({-128, 5, 128, 127, -129, 2147483647, -128, 6}));
  reorder_animals(store, order_of({8, 5, 1, 6, 2, 7, 3, 4}));
  EXPECT_EQ(days_of(store), (Numbers{6, -129, -128, 2147483647, 5, -128, 128, 127}));
}

TEST(ReorderAnimals, ColumnsThatAreNotThereStayAway) {
  PopulationStore store;
  prepare_store(store, 2, {Subpopulations(), Colours()});
  for (int i = 0; i < 2; ++i) append_animal(store, unread_record(), 0);
  reorder_animals(store, order_of({2, 1}));
  EXPECT_TRUE(store.colour_no.values.empty());
  EXPECT_TRUE(store.breeder_no.values.empty());
  EXPECT_TRUE(store.kept.subpopulation_text.values.empty());
  EXPECT_TRUE(store.native_offspring_count.values.empty());
  EXPECT_EQ(store.at(1).name.full(), padded("- ", 50));
}

// ---- positions and years -----------------------------------------------------------------------------------------

TEST(BirthYearsOf, YearZeroIsUnknown) {
  const BirthYears years = years_of({0, 2003, 1998, 0, 2001});
  EXPECT_EQ(years.first, 1998);
  EXPECT_EQ(years.last, 2003);
  EXPECT_EQ(years.count, 6);
}

TEST(BirthYearsOf, TwoDigitYearsAreYears) {
  const BirthYears years = years_of({98, 2003});
  EXPECT_EQ(years.first, 98);
  EXPECT_EQ(years.count, 1906);
}

TEST(BirthYearsOf, EmptyStoreHasTwoRowsByWrapping) {
  EXPECT_EQ(years_of({}).count, 2);
}

TEST(BirthYearsOf, OnlyUnknownYears) {
  const BirthYears years = years_of({0, 0});
  EXPECT_EQ(years.first, 2147483647);
  EXPECT_EQ(years.last, 0);
  EXPECT_EQ(years.count, -2147483646);
}

TEST(AllPositions, CountFromOne) {
  EXPECT_TRUE(all_positions(PopulationStore()).empty());
  EXPECT_EQ(all_positions(store_of(born_on({1, 1, 1}))), (Numbers{1, 2, 3}));
}

}  // namespace
}  // namespace pedigreewatch::test
