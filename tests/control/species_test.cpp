#include "control/species.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <string_view>

namespace pedigreewatch::test {
namespace {

struct ExpectedRow {
  std::string_view species, male, female, young, males, females, youngs;
};

// Eight characters each, trailing blanks and all.
constexpr ExpectedRow expected_rows[] = {
    {"hond    ", "reu     ", "teef    ", "pup     ", "reuen   ", "teven   ", "pups    "},
    {"kat     ", "kater   ", "poes    ", "kitten  ", "katers  ", "poezen  ", "kittens "},
    {"rund    ", "stier   ", "koe     ", "kalf    ", "stieren ", "koeien  ", "kalveren"},
    {"schaap  ", "ram     ", "ooi     ", "lam     ", "rammen  ", "ooien   ", "lammeren"},
    {"paard   ", "hengst  ", "merrie  ", "veulen  ", "hengsten", "merries ", "veulens "},
    {"pluimvee", "haan    ", "hen     ", "kuiken  ", "hanen   ", "hennen  ", "kuikens "},
    {"varken  ", "beer    ", "zeug    ", "big     ", "beren   ", "zeugen  ", "biggen  "},
    {"overig  ", "vader   ", "moeder  ", "jong    ", "dogs    ", "moeders ", "jongen  "},
    {"dog     ", "dog     ", "bitch   ", "pup     ", "dog     ", "bitches ", "pups    "},
    {"cat     ", "tomcat  ", "mother  ", "kitten  ", "tomcats ", "mothers ", "kitten  "},
    {"cattle  ", "bull    ", "cow     ", "calf    ", "bulls   ", "cows    ", "calves  "},
    {"sheep   ", "ram     ", "ewe     ", "lamb    ", "rams    ", "ewes    ", "lambs   "},
    {"horse   ", "stallion", "mare    ", "foal    ", "stallion", "mares   ", "foals   "},
    {"poultry ", "cock    ", "hen     ", "chicken ", "cocks   ", "hen     ", "chicken "},
    {"pig     ", "boar    ", "sow     ", "piglet  ", "boars   ", "sows    ", "piglets "},
    {"other   ", "father  ", "mother  ", "young   ", "fathers ", "mothers ", "young   "},
};

TEST(SpeciesRow, HoldsTheWordsOfAllSixteenRows) {
  ASSERT_EQ(std::size(expected_rows), 16U);
  std::int32_t index = 0;
  for (const ExpectedRow& expected : expected_rows) {
    const SpeciesNouns nouns = species_row(++index);
    EXPECT_EQ(nouns.male.full(), expected.male) << "row " << index;
    EXPECT_EQ(nouns.female.full(), expected.female) << "row " << index;
    EXPECT_EQ(nouns.young.full(), expected.young) << "row " << index;
    EXPECT_EQ(nouns.males.full(), expected.males) << "row " << index;
    EXPECT_EQ(nouns.females.full(), expected.females) << "row " << index;
    EXPECT_EQ(nouns.youngs.full(), expected.youngs) << "row " << index;
  }
}

TEST(SpeciesIndex, EachWordInADutchRunGivesItsOwnRow) {
  std::int32_t row = 0;
  for (const ExpectedRow& expected : expected_rows) {
    ++row;
    EXPECT_EQ(species_index_of(SpeciesWord(expected.species), false), row) << expected.species;
  }
}

TEST(SpeciesIndex, DutchWordInAnEnglishRunGivesTheEnglishRowOfItsSpecies) {
  std::int32_t row = 0;
  for (const ExpectedRow& expected : expected_rows) {
    ++row;
    EXPECT_EQ(species_index_of(SpeciesWord(expected.species), true), row <= 8 ? row + 8 : row) << expected.species;
  }
}

TEST(SpeciesIndex, UnknownWordGivesTheLastRowInEitherLanguage) {
  for (const std::string_view word : {"geit", "", "goat", "dogs", "do", "other"}) {
    EXPECT_EQ(species_index_of(SpeciesWord(word), false), 16) << word;
    EXPECT_EQ(species_index_of(SpeciesWord(word), true), 16) << word;
  }
}

TEST(SpeciesIndex, CapitalsAndLeadingBlanksMatchNothing) {
  for (const std::string_view word : {"HOND", "Hond", "DOG", "Dog", " dog", " hond"}) {
    EXPECT_EQ(species_index_of(SpeciesWord(word), false), 16) << word;
    EXPECT_EQ(species_index_of(SpeciesWord(word), true), 16) << word;
  }
}

TEST(SpeciesIndex, OnlyEightCharactersCount) {
  EXPECT_EQ(species_index_of(SpeciesWord("pluimveehouderij"), false), 6);
  EXPECT_EQ(species_index_of(SpeciesWord("hond    x"), false), 1);
  EXPECT_EQ(species_index_of(SpeciesWord("hond   x"), false), 16);
}

}  // namespace
}  // namespace pedigreewatch::test
