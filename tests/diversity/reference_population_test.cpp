#include "diversity/reference_population.h"

#include <gtest/gtest.h>

#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

using Positions = std::vector<std::int32_t>;

struct Listed {
  Positions positions;
  std::vector<ListedId> unknown;
};

Listed listed(const PopulationStore& store, const std::vector<std::string>& lines) {
  Listed result;
  std::vector<ListedId> ids;
  for (const std::string& line : lines) ids.push_back({std::ssize(ids) + 1, line});
  const ReferencePopulation reference = listed_animals(store, ids, result.unknown);
  EXPECT_EQ(reference.choice, ReferenceChoice::listed);
  result.positions = reference.positions;
  return result;
}

TEST(ReferencePopulation, TheYoungestAreOfTenYearsWithBothParents) {
  // The last year is 2012: from 2003 on. Animal 4 is a year too old, 6 and 7 lack a parent.
  const PopulationStore store =
      numbered_store("1990 m\n1990\n2003 s=1 d=2\n2002 s=1 d=2\n2012 s=1 d=2\n2012 s=1\n2012 d=2\ns=1 d=2\n2010\n");
  const ReferencePopulation reference = youngest_animals(store);
  EXPECT_EQ(reference.choice, ReferenceChoice::youngest);
  EXPECT_EQ(reference.positions, (Positions{3, 5}));
  EXPECT_EQ(reference.first_year, 2003);
  EXPECT_EQ(reference.last_year, 2012);
  EXPECT_EQ(reference.born, 5);
}

TEST(ReferencePopulation, TheYoungestOfAFewYearsAreOfThose) {
  const ReferencePopulation reference = youngest_animals(numbered_store("2008 m\n2009\n2011 s=1 d=2\n"));
  EXPECT_EQ(reference.first_year, 2008);
  EXPECT_EQ(reference.positions, (Positions{3}));
}

TEST(ReferencePopulation, WithoutBirthYearsThereAreNoYoungest) {
  const ReferencePopulation reference = youngest_animals(numbered_store("m\n\ns=1 d=2\n"));
  EXPECT_TRUE(reference.positions.empty());
  EXPECT_EQ(reference.first_year, 0);
  EXPECT_EQ(reference.last_year, 0);
}

TEST(ReferencePopulation, OfGivenYearsAllAnimalsCount) {
  const PopulationStore store = numbered_store("2000 m\n2001\n2002 s=1 d=2\n2003 s=1\n\n");
  const ReferencePopulation reference = animals_born(store, 2001, 2002);
  EXPECT_EQ(reference.choice, ReferenceChoice::years);
  EXPECT_EQ(reference.positions, (Positions{2, 3}));
  EXPECT_EQ(reference.born, 2);
  EXPECT_EQ(animals_born(store, -5, 2000).positions, (Positions{1}));  // not those without a year
  EXPECT_TRUE(animals_born(store, 2002, 2001).positions.empty());
  EXPECT_TRUE(animals_born(store, 1900, 1950).positions.empty());
}

TEST(ReferencePopulation, AListNamesItsAnimals) {
  const PopulationStore store = pedigree_from_text("a 0 0 m 2000\nb 0 0 f 2000\nc a b m 2001\n");
  const Listed result = listed(store, {"\xEF\xBB\xBF"
                                       "c\r",
                                       "", " a\t", "c", "  "});
  EXPECT_EQ(result.positions, (Positions{1, 3}));
  EXPECT_TRUE(result.unknown.empty());
}

TEST(ReferencePopulation, UnknownIdsOfAListAreTold) {
  const PopulationStore store = pedigree_from_text("a 0 0 m 2000\nb 0 0 f 2000\n");
  const Listed result = listed(store, {"x y", "b", "A", "x y", "0"});
  EXPECT_EQ(result.positions, (Positions{2}));
  ASSERT_EQ(result.unknown.size(), 4U);
  EXPECT_EQ(result.unknown[0].line, 1);
  EXPECT_EQ(result.unknown[0].id, "x y");
  EXPECT_EQ(result.unknown[1].line, 3);
  EXPECT_EQ(result.unknown[2].line, 4);
  EXPECT_EQ(result.unknown[3].line, 5);
}

TEST(ReferencePopulation, AListMayBeInAnotherEncodingThanTheData) {
  const PopulationStore windows = pedigree_from_text("zo\xEB 0 0 f 2000\n");
  EXPECT_EQ(listed(windows, {"zo\xC3\xAB"}).positions, (Positions{1}));
  EXPECT_EQ(listed(windows, {"zo\xEB"}).positions, (Positions{1}));
  const PopulationStore utf_8 = pedigree_from_text("zo\xC3\xAB 0 0 f 2000\n");
  EXPECT_EQ(listed(utf_8, {"zo\xEB"}).positions, (Positions{1}));
}

TEST(ReferencePopulation, LongIdsAreCutAsInTheData) {
  const std::string thirty(30, 'k');
  const PopulationStore store = pedigree_from_text(thirty + "tail 0 0 f 2000\n");
  EXPECT_EQ(listed(store, {thirty + "tail"}).positions, (Positions{1}));
  EXPECT_TRUE(listed(store, {thirty.substr(1)}).positions.empty());
}

TEST(ReferencePopulation, AnEmptyListHasNoAnimals) {
  EXPECT_TRUE(listed(pedigree_from_text("a 0 0 m 2000\n"), {}).positions.empty());
}

}  // namespace
}  // namespace pedigreewatch::test
