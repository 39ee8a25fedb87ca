#include "pedigree/population_store.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/pedigree_runs.h"

namespace pedigreewatch::test {
namespace {

std::vector<AnimalRecord> born_in(const std::vector<std::int32_t>& years) {
  std::vector<AnimalRecord> animals(years.size());
  for (std::size_t i = 0; i < years.size(); ++i) animals[i].birth_year = years[i];
  return animals;
}

TEST(AllocateRecords, RecordsStartAsBeforeTheirLineIsRead) {
  PopulationStore store;
  allocate_records(store, 2);
  ASSERT_EQ(store.animals.size(), 2U);
  EXPECT_EQ(store.animal_count, 2);
  for (const AnimalRecord& animal : store.animals) {
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
}

TEST(AllocateRecords, NegativeCountGivesAnEmptyStore) {
  PopulationStore store;
  allocate_records(store, -1);
  EXPECT_TRUE(store.animals.empty());
  EXPECT_EQ(store.animal_count, -1);
}

TEST(BirthYearsOf, YearZeroIsUnknown) {
  const BirthYears years = birth_years_of(born_in({0, 2003, 1998, 0, 2001}));
  EXPECT_EQ(years.first, 1998);
  EXPECT_EQ(years.last, 2003);
  EXPECT_EQ(years.count, 6);
}

TEST(BirthYearsOf, TwoDigitYearsAreYears) {
  const BirthYears years = birth_years_of(born_in({98, 2003}));
  EXPECT_EQ(years.first, 98);
  EXPECT_EQ(years.count, 1906);
}

TEST(BirthYearsOf, EmptyStoreHasTwoRowsByWrapping) {
  EXPECT_EQ(birth_years_of({}).count, 2);
}

TEST(BirthYearsOf, OnlyUnknownYears) {
  const BirthYears years = birth_years_of(born_in({0, 0}));
  EXPECT_EQ(years.first, 2147483647);
  EXPECT_EQ(years.last, 0);
  EXPECT_EQ(years.count, -2147483646);
}

TEST(AllocateRecords, BlankTextsHaveTheNumbersOfBlankNames) {
  PopulationStore store;
  allocate_records(store, 1, {.subpopulation = 2, .colour = 3});
  EXPECT_EQ(store.at(1).subpopulation_no, 2);
  EXPECT_EQ(store.at(1).colour_no, 3);
  allocate_records(store, 1);
  EXPECT_EQ(store.at(1).subpopulation_no, 0);
  EXPECT_EQ(store.at(1).colour_no, 0);
}

TEST(AppendParent, HasNoNameNoParentsAndNoBirth) {
  PopulationStore store;
  allocate_records(store, 1, {.subpopulation = 2, .colour = 3});
  append_parent(store, AnimalId("NL-7"), male);
  ASSERT_EQ(store.animal_count, 2);
  const AnimalRecord& parent = store.at(2);
  EXPECT_EQ(parent.id, "NL-7");
  EXPECT_TRUE(parent.name.is_blank());
  EXPECT_EQ(parent.sire_id, "0");
  EXPECT_EQ(parent.dam_id, "0");
  EXPECT_EQ(parent.sex, male);
  EXPECT_EQ(parent.birth_year, 0);
  EXPECT_EQ(parent.number, 2);
  EXPECT_EQ(parent.line, 0);
  EXPECT_EQ(parent.subpopulation_no, 2);
  EXPECT_EQ(parent.colour_no, 3);
}

TEST(AllPositions, CountFromOne) {
  PopulationStore store;
  EXPECT_TRUE(all_positions(store).empty());
  allocate_records(store, 3);
  EXPECT_EQ(all_positions(store), (std::vector<std::int32_t>{1, 2, 3}));
}

}  // namespace
}  // namespace pedigreewatch::test
