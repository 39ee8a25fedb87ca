// Animals found by the beginning of an identification or a name.
#include "matings/animal_search.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/pedigree_runs.h"
#include "support/pedigrees.h"
#include "support/store_builder.h"

namespace pedigreewatch::test {
namespace {

struct Animal {
  std::string_view id, name, sire;
};

PopulationStore store_with(const std::vector<Animal>& animals) {
  std::vector<AnimalRecord> records;
  for (const Animal& animal : animals) {
    AnimalRecord record;
    record.id.assign(animal.id);
    record.name.assign(animal.name);
    record.sire_id.assign(animal.sire);
    record.dam_id.assign("0");
    records.push_back(record);
  }
  PopulationStore store = store_of(records);
  RunStreams streams;
  link_and_sort(store, streams);
  return store;
}

std::vector<std::string> found(const PopulationStore& store, std::string_view beginning, std::size_t most = 10) {
  std::vector<std::string> ids;
  for (const std::int32_t position : find_animals(store, beginning, most)) ids.emplace_back(store.id(position));
  return ids;
}

using Ids = std::vector<std::string>;

// The father of HS2 stands behind it, so that the sort moves both.
PopulationStore herd() {
  return store_with({{"HS2", "Bram", "HS20"},
                     {"HS20", "Rex", "0"},
                     {"hs3", "hsv van Zo\xEB", "0"},
                     {"X9", "HS2 junior", "0"},
                     {"\xC9l\xE9", "Ann", "0"}});
}

TEST(FindAnimals, ExactFirstThenByIdentificationThenByName) {
  EXPECT_EQ(found(herd(), "HS2"), (Ids{"HS2", "HS20", "X9"}));
  EXPECT_EQ(found(herd(), "HS20"), (Ids{"HS20"}));
  EXPECT_EQ(found(herd(), "hs"), (Ids{"HS2", "HS20", "hs3", "X9"})) << "an animal is found once";
}

TEST(FindAnimals, CapitalsAndBlanksAroundMakeNoDifference) {
  EXPECT_EQ(found(herd(), " rEx "), (Ids{"HS20"}));
  EXPECT_EQ(found(herd(), "HSV van ZO\xC3\x8B"), (Ids{"hs3"}));
  EXPECT_EQ(found(herd(), "\xC3\xA9L"), (Ids{"\xC9l\xE9"}));
  EXPECT_EQ(found(herd(), "\xC3\xA9l\xC3\x89"), (Ids{"\xC9l\xE9"}));
}

TEST(FindAnimals, SmallLettersOfOtherAlphabets) {
  // Sigma, small and capital; Zhe; I with breve of the extended Latin letters; Z with caron; Y with diaeresis.
  const PopulationStore store = store_with({{"\xCE\xA3x", "", "0"},
                                            {"\xD0\x96x", "", "0"},
                                            {"\xC4\xACx", "", "0"},
                                            {"\xC5\xBDx", "", "0"},
                                            {"\xC5\xB8x", "", "0"},
                                            {"\xD0\x81x", "", "0"}});
  EXPECT_EQ(found(store, "\xCF\x83X").size(), 1U);
  EXPECT_EQ(found(store, "\xD0\xB6X").size(), 1U);
  EXPECT_EQ(found(store, "\xC4\xADX").size(), 1U);
  EXPECT_EQ(found(store, "\xC5\xBEX").size(), 1U);
  EXPECT_EQ(found(store, "\xC3\xBFX").size(), 1U);
  EXPECT_EQ(found(store, "\xD1\x91X").size(), 1U);
}

TEST(FindAnimals, YieldsAtMostTheNumberAskedFor) {
  EXPECT_EQ(found(herd(), "h", 2), (Ids{"HS2", "HS20"}));
  EXPECT_EQ(found(herd(), "h", 0), Ids{});
  // The exact one is found although enough others stand before it.
  EXPECT_EQ(found(store_with({{"a1", "", "0"}, {"a2", "", "0"}, {"a", "", "0"}}), "a", 2), (Ids{"a", "a1"}));
}

TEST(FindAnimals, NothingForABlankTextOrAnUnknownOne) {
  EXPECT_EQ(found(herd(), ""), Ids{});
  EXPECT_EQ(found(herd(), "  "), Ids{});
  EXPECT_EQ(found(herd(), "HS2000"), Ids{});
  EXPECT_EQ(found(herd(), std::string(600, 'h')), Ids{});
}

TEST(FindAnimals, ParentsWithoutALineHaveNoName) {
  EXPECT_EQ(found(store_with({{"b", "Bob", "a"}}), "A"), (Ids{"a"}));
}

}  // namespace
}  // namespace pedigreewatch::test
