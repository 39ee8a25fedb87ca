#include "pedigree/subpopulation_membership.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

using Numbers = std::vector<std::int32_t>;

std::vector<SubpopulationName> names(std::initializer_list<std::string_view> texts) {
  std::vector<SubpopulationName> result;
  for (const std::string_view text : texts) result.emplace_back(text);
  return result;
}

constexpr std::string_view five_animals =
    "a 0 0 m 2000 rough\n"
    "b 0 0 m 2000 smooth\n"
    "c 0 0 m 2000 -\n"
    "d 0 0 m 2000 Rough\n"
    "e 0 0 m 2000 rough\n";

Numbers numbers_of(std::span<const std::int32_t> values) {
  return {values.begin(), values.end()};
}

TEST(FindMembership, EachAnimalBelongsToTheGroupOfItsText) {
  const PopulationStore store = animals_from_text(five_animals);
  const SubpopulationMembership membership = find_membership(store, names({"smooth", "rough", "wire"}));
  EXPECT_EQ(membership.group_of_name, (Numbers{1, 2, 3}));
  EXPECT_EQ(membership.group_of_animal, (Numbers{2, 1, 0, 0, 2}));
  EXPECT_EQ(membership.of_animal(1), 2);
  EXPECT_EQ(numbers_of(membership.names_of(2)), (Numbers{2}));
}

TEST(FindMembership, NameThatStandsTwiceIsOneGroupWithTwoNames) {
  const PopulationStore store = animals_from_text(five_animals);
  const SubpopulationMembership membership = find_membership(store, names({"rough", "smooth", "rough"}));
  EXPECT_EQ(membership.group_of_name, (Numbers{1, 2, 1}));
  EXPECT_EQ(membership.group_of_animal, (Numbers{1, 2, 0, 0, 1}));
  EXPECT_EQ(numbers_of(membership.names_of(1)), (Numbers{1, 3}));
  EXPECT_EQ(numbers_of(membership.names_of(2)), (Numbers{2}));
  EXPECT_TRUE(membership.names_of(3).empty());
}

TEST(FindMembership, BlankNameTakesTheAnimalsWithoutSubpopulation) {
  const PopulationStore store = animals_from_text(five_animals);
  EXPECT_EQ(find_membership(store, names({"rough", ""})).group_of_animal, (Numbers{1, 0, 2, 0, 1}));
}

TEST(FindMembership, WithoutNamesNobodyBelongsAnywhere) {
  const SubpopulationMembership membership = find_membership(animals_from_text(five_animals), {});
  EXPECT_EQ(membership.group_of_animal, (Numbers{0, 0, 0, 0, 0}));
  EXPECT_EQ(animals_by_group(membership), (std::vector<Numbers>{{}}));
}

TEST(AnimalsByGroup, ListsThePositionsOfEachGroupAscending) {
  const PopulationStore store = animals_from_text(five_animals);
  const SubpopulationMembership membership = find_membership(store, names({"rough", "smooth", "rough"}));
  EXPECT_EQ(animals_by_group(membership), (std::vector<Numbers>{{}, {1, 5}, {2}, {}}));
}

}  // namespace
}  // namespace pedigreewatch::test
