#include "statistics/missing_parents.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/numbered_store.h"
#include "support/pedigree_runs.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

constexpr std::string_view no_fathers = " no fathers found that were not in database\n";
constexpr std::string_view no_mothers = " no mothers found that were not in database\n";

/// Appends the missing parents and yields what the console says.
std::string append_to(PopulationStore& store) {
  TextOutput console;
  append_missing_parents(store, console);
  return console.pending;
}

std::string console_of(std::string_view text) {
  PopulationStore store = animals_from_text(text);
  return append_to(store);
}

/// The appended identifications, each with its sex behind it.
std::vector<std::string> appended_to(std::string_view text) {
  PopulationStore store = animals_from_text(text);
  const std::int32_t before = store.animal_count;
  append_to(store);
  std::vector<std::string> ids;
  for (std::int32_t i = before + 1; i <= store.animal_count; ++i) {
    const AnimalRecord& animal = store.at(i);
    EXPECT_EQ(animal.number, i);
    ids.push_back(std::string(animal.id.trimmed()) + (animal.sex == male ? " m" : " f"));
  }
  return ids;
}

using Ids = std::vector<std::string>;

TEST(AppendMissingParents, StandsInTheOrderOfFirstMentionFathersFirst) {
  EXPECT_EQ(appended_to("a p1 m1 m 2000\n"
                        "b p2 m1 m 2000\n"
                        "c p1 m2 m 2000\n"
                        "d p0 m0 m 2000\n"),
            (Ids{"p1 m", "p2 m", "p0 m", "m1 f", "m2 f", "m0 f"}));
}

TEST(AppendMissingParents, FatherOfManyIsOneRecord) {
  std::string text;
  for (int i = 1; i <= 100; ++i) text += "a" + std::to_string(i) + " rex 0 m 2000\n";
  EXPECT_EQ(appended_to(text), (Ids{"rex m"}));
}

TEST(AppendMissingParents, AnimalOfTheFileIsNeverAppendedWhicheverSexItHas) {
  EXPECT_EQ(appended_to("a    saar rex m 2000\n"
                        "saar 0    0   f 1998\n"
                        "rex  0    0   m 1998\n"),
            Ids{});
}

TEST(AppendMissingParents, IdentificationMissingInBothRolesGetsTwoRecords) {
  EXPECT_EQ(appended_to("a bo 0  m 2000\n"
                        "b 0  bo m 2000\n"),
            (Ids{"bo m", "bo f"}));
  EXPECT_EQ(appended_to("a bo bo m 2000\n"), (Ids{"bo m", "bo f"}));
}

TEST(AppendMissingParents, OnlyExactlyZeroIsUnknown) {
  EXPECT_EQ(appended_to("a 00 UNKNOWN m 2000\n"), (Ids{"00 m", "UNKNOWN f"}));
  std::vector<AnimalRecord> records = records_from_text("a 0 0 m 2000\n");
  records[0].sire_id.assign("0   ");
  records[0].dam_id.assign(" 0");
  PopulationStore store = store_of(records);
  append_to(store);
  ASSERT_EQ(store.animal_count, 2);
  EXPECT_EQ(store.at(2).id.full(), padded(" 0", 30));
}

TEST(AppendMissingParents, AnimalsWithTheSameIdentificationDoNotMatter) {
  EXPECT_EQ(appended_to("a 0 0 m 2000\n"
                        "a b 0 m 2000\n"
                        "c a 0 m 2000\n"),
            (Ids{"b m"}));
}

TEST(AppendMissingParents, NothingMissingLeavesTheStoreWhereItIs) {
  PopulationStore store = animals_from_text("a 0 0 m 2000\nb a 0 m 2003\n");
  const std::int32_t* const before = store.birth_year.values.data();
  EXPECT_EQ(append_to(store), std::string(no_fathers) + std::string(no_mothers));
  EXPECT_EQ(store.birth_year.values.data(), before);
  EXPECT_EQ(store.animal_count, 2);
}

TEST(AppendMissingParents, TellsOneMissingParent) {
  EXPECT_EQ(console_of("a rex 0 m 2000\n"), " one father found that were not in database\n" + std::string(no_mothers));
  EXPECT_EQ(console_of("a 0 saar m 2000\n"), std::string(no_fathers) + " one mother found that were not in database\n");
}

TEST(AppendMissingParents, TellsHowManyParentsAreMissing) {
  EXPECT_EQ(console_of("a p1 m1 m 2000\nb p2 m2 m 2000\nc 0 m3 m 2000\n"),
            "           2 fathers found that were not in database\n"
            "           3 mothers found that were not in database\n");
}

TEST(AppendMissingParents, EmptyStoreHasNothingMissing) {
  PopulationStore store;
  EXPECT_EQ(append_to(store), std::string(no_fathers) + std::string(no_mothers));
  EXPECT_EQ(store.animal_count, 0);
}

/// One red import of 25-1-2000, bred by Smit, whose father has no line.
PopulationStore red_import(Sex sex) {
  std::vector<AnimalRecord> records = records_from_text("a rex 0 f 2000 rough import\n");
  records[0].sex = sex;
  records[0].birth_day = 25;
  records[0].colour.assign("red");
  records[0].breeder.assign("Smit");
  return store_of(records, {names_of<Subpopulations>({"rough", "smooth"}), names_of<Colours>({"red", "black"})});
}

TEST(AppendMissingParents, AppendedRecordsAreBlank) {
  PopulationStore store = red_import(male);
  append_to(store);
  ASSERT_EQ(store.animal_count, 2);
  const AnimalRecord& rex = store.at(2);
  EXPECT_EQ(rex.id, "rex");
  EXPECT_TRUE(rex.name.is_blank());
  EXPECT_EQ(rex.sire_id.full(), padded("0", 30));
  EXPECT_EQ(rex.dam_id.full(), padded("0", 30));
  EXPECT_EQ(rex.birth_year, 0);
  EXPECT_EQ(rex.birth_month, 1);
  EXPECT_EQ(rex.birth_day, 1);
  EXPECT_EQ(rex.sex, male);
  EXPECT_EQ(store.colour_no[2], 0);
  EXPECT_EQ(store.breeder_no[2], 0);
  EXPECT_TRUE(rex.breeder.is_blank());
  EXPECT_TRUE(rex.subpopulation.is_blank());
  EXPECT_FALSE(rex.is_import);
  EXPECT_FALSE(rex.is_native_parent);
  EXPECT_FALSE(rex.is_parent);
  EXPECT_EQ(rex.line, 0);
  EXPECT_EQ(rex.number, 2);
  EXPECT_EQ(rex.sire_no, 0);
  EXPECT_EQ(rex.dam_no, 0);
  EXPECT_EQ(rex.dam_age_days, 0);
  EXPECT_EQ(rex.sire_age_days, 0);
  EXPECT_EQ(rex.native_offspring_count, 0);
  EXPECT_EQ(rex.generation_equivalents, 0.0F);
  EXPECT_EQ(rex.complete_generations, 0);
  EXPECT_EQ(rex.inbreeding, 0.0F);
}

TEST(AppendMissingParents, AnimalsOfTheFileStayAsTheyAre) {
  PopulationStore store = red_import(female);
  append_to(store);
  const AnimalRecord& a = store.at(1);
  EXPECT_EQ(a.id, "a");
  EXPECT_EQ(a.name, "a");
  EXPECT_EQ(a.sire_id, "rex");
  EXPECT_EQ(a.birth_year, 2000);
  EXPECT_EQ(a.birth_day, 25);
  EXPECT_EQ(a.sex, female);
  EXPECT_EQ(store.colour_no[1], 1);
  EXPECT_EQ(a.breeder, "Smit");
  EXPECT_EQ(a.subpopulation, "rough");
  EXPECT_TRUE(a.is_import);
}

TEST(AppendMissingParents, BirthYearsAreNotLookedAtAgain) {
  PopulationStore store = animals_from_text("a rex saar m 2000\nb 0 0 m 2004\n");
  append_to(store);
  EXPECT_EQ(store.birth_years.first, 2000);
  EXPECT_EQ(store.birth_years.last, 2004);
  EXPECT_EQ(store.birth_years.count, 5);
}

TEST(AppendMissingParents, NumbersTheRecordsAndForgetsOldParents) {
  std::vector<AnimalRecord> records = records_from_text("a 0 0 m 2000\nb 0 0 m 2000\n");
  records[1].number = records[1].sire_no = records[1].dam_no = 9;
  PopulationStore store = store_of(records);
  append_to(store);
  EXPECT_EQ(store.at(1).number, 1);
  const AnimalRecord& b = store.at(2);
  EXPECT_EQ(b.number, 2);
  EXPECT_EQ(b.sire_no, 0);
  EXPECT_EQ(b.dam_no, 0);
}

TEST(AppendMissingParents, HoldsTheParentsThatHaveALine) {
  // The parents of c and its litter mate have lines; those of a have none, and are linked later.
  PopulationStore store = animals_from_text("a rex saar m 2000\nb 0 0 f 2000\nc a b m 2003\nd a b f 2003\n");
  append_to(store);
  for (const std::int32_t position : {3, 4}) {
    EXPECT_EQ(store.at(position).sire_no, 1);
    EXPECT_EQ(store.at(position).dam_no, 2);
  }
  EXPECT_EQ(store.at(1).sire_no, 0);
  EXPECT_EQ(store.at(1).dam_no, 0);
}

TEST(AppendMissingParents, AppendedRecordsHaveTheNumbersOfABlankText) {
  PopulationStore store = animals_from_text(
      "a rex 0 m 2000 rough\n", {names_of<Subpopulations>({"rough", ""}), names_of<Colours>({"red", "black", ""})});
  append_to(store);
  ASSERT_EQ(store.animal_count, 2);
  EXPECT_EQ(store.subpopulation_no(2), 2);
  EXPECT_EQ(store.colour_no[2], 3);
}

TEST(AppendMissingParents, PendingParentsGetTheFirstRecordAppendedForThem) {
  PopulationStore store = animals_from_text("a bo bo m 2000\nb a 0 m 2003\nc b kid f 2004\nkid 0 0 f 2001\n");
  append_to(store);
  ASSERT_EQ(store.animal_count, 6);  // bo twice
  ASSERT_EQ(store.index.pending_record.count(), 2);
  EXPECT_EQ(store.sire_no[1], -1);
  EXPECT_EQ(store.dam_no[1], -1);
  EXPECT_EQ(store.index.pending_record.at(1), 5);
  EXPECT_EQ(store.dam_no[3], -2);
  EXPECT_EQ(store.index.pending_record.at(2), 4);  // kid had its line after it was mentioned
}

TEST(AppendMissingParents, AgreesWithAPlainSearchOnRandomParents) {
  RandomNumbers random{12};
  std::string text;
  for (int i = 0; i < 700; ++i) {
    const auto draw = [&] { return "x" + std::to_string(random.below(900)); };
    text += "x" + std::to_string(random.below(900)) + " " + draw() + " " + draw() + " m 2000\n";
  }
  const PopulationStore store = animals_from_text(text);
  const auto has = [](const Ids& ids, std::string_view id) {
    for (const std::string& other : ids) {
      if (other == id) return true;
    }
    return false;
  };
  Ids animals, fathers, mothers;
  for (const AnimalRecord& animal : records_of(store)) animals.emplace_back(animal.id.trimmed());
  for (const AnimalRecord& animal : records_of(store)) {
    const std::string sire(animal.sire_id.trimmed()), dam(animal.dam_id.trimmed());
    if (!has(animals, sire) && !has(fathers, sire)) fathers.push_back(sire);
    if (!has(animals, dam) && !has(mothers, dam)) mothers.push_back(dam);
  }
  Ids expected;
  for (const std::string& id : fathers) expected.push_back(id + " m");
  for (const std::string& id : mothers) expected.push_back(id + " f");
  EXPECT_GT(expected.size(), 100U);
  EXPECT_EQ(appended_to(text), expected);
}

}  // namespace
}  // namespace pedigreewatch::test
