// Animals found by parts of an identification or a name.
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
  int year = 0;
};

PopulationStore store_with(const std::vector<Animal>& animals) {
  std::vector<AnimalRecord> records;
  for (const Animal& animal : animals) {
    AnimalRecord record;
    record.id.assign(animal.id);
    record.name.assign(animal.name);
    record.sire_id.assign(animal.sire);
    record.dam_id.assign("0");
    record.birth_year = animal.year;
    records.push_back(record);
  }
  PopulationStore store = store_of(records);
  RunStreams streams;
  link_and_sort(store, streams);
  return store;
}

std::vector<std::string> found(const PopulationStore& store, const AnimalSearch& search) {
  std::vector<std::string> ids;
  for (const std::int32_t position : find_animals(store, search).positions) ids.emplace_back(store.id(position));
  return ids;
}

std::vector<std::string> found(const PopulationStore& store, std::string_view text, std::size_t most = 10) {
  return found(store, AnimalSearch{text, most, {}, nullptr});
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
  EXPECT_EQ(found(herd(), "hs", 1), (Ids{"HS2"}));
}

TEST(FindAnimals, PartsOfIdentificationsAndNamesAreFoundBehindTheirBeginnings) {
  const PopulationStore store = store_with(
      {{"NL-123", "", "0"}, {"BE-1234", "", "0"}, {"1239", "", "0"}, {"X", "van 123", "0"}, {"91234", "", "0"}});
  EXPECT_EQ(found(store, "123"), (Ids{"NL-123", "BE-1234", "1239", "X", "91234"}));
  EXPECT_EQ(found(store, "l-12"), (Ids{"NL-123"}));
  EXPECT_EQ(found(store, "van"), (Ids{"X"}));
  EXPECT_EQ(found(store, "an"), (Ids{"X"}));
}

TEST(FindAnimals, EveryWordMustBeThere) {
  const PopulationStore store =
      store_with({{"1", "Bram van de Berg", "0"}, {"2", "Bram van Dijk", "0"}, {"3", "Anna van de Berg", "0"}});
  EXPECT_EQ(found(store, "berg bram"), (Ids{"1"}));
  EXPECT_EQ(found(store, "bram  2"), (Ids{"2"})) << "one in the name, one in the identification";
  EXPECT_EQ(found(store, "bram van de berg x"), Ids{});
}

TEST(FindAnimals, AccentsMakeNoDifference) {
  const PopulationStore store = store_with({{"1", "Zo\xEB", "0"}, {"2", "Zoe", "0"}, {"3", "zo", "0"}});
  EXPECT_EQ(found(store, "zoe"), (Ids{"1", "2"}));
  EXPECT_EQ(found(store, "Zo\xC3\x8B"), (Ids{"1", "2"}));
  EXPECT_EQ(found(store, "zoe\xCC\x88"), (Ids{"1", "2"})) << "an accent behind its letter";
}

TEST(FindAnimals, QuotationMarksAndDashesOfAnyFormAreTheSame) {
  // Windows-1252: a curly apostrophe, an en dash.
  const PopulationStore store = store_with({{"1", "O\x92Hara", "0"}, {"2", "O'Hara", "0"}, {"3", "Ann\x96Lou", "0"}});
  EXPECT_EQ(found(store, "o'hara"), (Ids{"1", "2"}));
  EXPECT_EQ(found(store, "O\xE2\x80\x99Hara"), (Ids{"1", "2"})) << "U+2019";
  EXPECT_EQ(found(store, "O`Hara"), (Ids{"1", "2"}));
  EXPECT_EQ(found(store, "ann-lou"), (Ids{"3"}));
  EXPECT_EQ(found(store, "ann\xE2\x80\x94lou"), (Ids{"3"})) << "an em dash";
}

TEST(FindAnimals, ThoseThatMayLiveComeFirstThenTheYoungest) {
  const PopulationStore store = store_with({{"Ann", "", "0", 2001},
                                            {"x Ann", "", "0", 2009},
                                            {"Ann 2", "", "0", 2008},
                                            {"Ann 3", "", "0", 2009},
                                            {"Ann 4", "", "0", 0}});
  ByNumber<Flag> may_live(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) may_live[i] = store.birth_year[i] > 2005 ? 1 : 0;
  EXPECT_EQ(found(store, {"ann ", 10, {}, &may_live}), (Ids{"Ann", "x Ann", "Ann 3", "Ann 2", "Ann 4"}))
      << "exactly this one, the youngest, those of one year in their order";
  EXPECT_EQ(found(store, {"nn", 10, {}, &may_live}), (Ids{"x Ann", "Ann 3", "Ann 2", "Ann", "Ann 4"}));
}

TEST(FindAnimals, OfOneSexAndWithTheNumberOfAll) {
  const PopulationStore store = pedigree_from_text("a1 0 0 m 2001\na2 0 0 f 2001\na3 a1 a2 m 2002\n");
  const FoundAnimals males = find_animals(store, {"a", 1, male, nullptr});
  EXPECT_EQ(males.count, 2);
  ASSERT_EQ(males.positions.size(), 1U);
  EXPECT_EQ(store.id(males.positions.front()), "a3");
  EXPECT_EQ(find_animals(store, {"a", 10, {}, nullptr}).count, 3);
}

TEST(FindAnimals, ThoseOfUntoldSexAreOfEitherUnlessTheirYoungTellIt) {
  PopulationStore store = pedigree_from_text("a1 0 0 f 2001\na2 0 0 f 2001\na3 a1 a2 m 2002\na4 a1 a2 f 2003\n");
  for (const std::string_view id : {"a1", "a4"}) {
    store.kept.records_without_sex.push_back(store.record_no(animal_named(store, id).number));
  }
  EXPECT_EQ(find_animals(store, {"a", 10, male, nullptr}).count, 3) << "a2 alone is no male";
  EXPECT_EQ(find_animals(store, {"a", 10, female, nullptr}).count, 2) << "a1 was a sire";
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
