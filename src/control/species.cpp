#include "control/species.h"

#include "core/by_number.h"

namespace pedigreewatch {
namespace {

struct SpeciesRow {
  std::string_view species, male, female, young, males, females, youngs;
};

// The plurals of rows 8, 9, 10, 13 and 14 are the ones that reports have always shown.
constexpr NumberedArray<SpeciesRow, 16> species_table = {{{
    // clang-format off
    {"hond",      "reu",       "teef",      "pup",       "reuen",     "teven",     "pups"},
    {"kat",       "kater",     "poes",      "kitten",    "katers",    "poezen",    "kittens"},
    {"rund",      "stier",     "koe",       "kalf",      "stieren",   "koeien",    "kalveren"},
    {"schaap",    "ram",       "ooi",       "lam",       "rammen",    "ooien",     "lammeren"},
    {"paard",     "hengst",    "merrie",    "veulen",    "hengsten",  "merries",   "veulens"},
    {"pluimvee",  "haan",      "hen",       "kuiken",    "hanen",     "hennen",    "kuikens"},
    {"varken",    "beer",      "zeug",      "big",       "beren",     "zeugen",    "biggen"},
    {"overig",    "vader",     "moeder",    "jong",      "dogs",      "moeders",   "jongen"},
    {"dog",       "dog",       "bitch",     "pup",       "dog",       "bitches",   "pups"},
    {"cat",       "tomcat",    "mother",    "kitten",    "tomcats",   "mothers",   "kitten"},
    {"cattle",    "bull",      "cow",       "calf",      "bulls",     "cows",      "calves"},
    {"sheep",     "ram",       "ewe",       "lamb",      "rams",      "ewes",      "lambs"},
    {"horse",     "stallion",  "mare",      "foal",      "stallion",  "mares",     "foals"},
    {"poultry",   "cock",      "hen",       "chicken",   "cocks",     "hen",       "chicken"},
    {"pig",       "boar",      "sow",       "piglet",    "boars",     "sows",      "piglets"},
    {"other",     "father",    "mother",    "young",     "fathers",   "mothers",   "young"},
    // clang-format on
}}};

constexpr std::int32_t first_english_row = 9;
constexpr std::int32_t unknown_species_row = 16;

}  // namespace

SpeciesNouns species_row(std::int32_t species_index) {
  const SpeciesRow& row = species_table.at(species_index);
  return {SpeciesWord(row.male),  SpeciesWord(row.female),  SpeciesWord(row.young),
          SpeciesWord(row.males), SpeciesWord(row.females), SpeciesWord(row.youngs)};
}

std::int32_t species_index_of(const SpeciesWord& word, bool english) {
  std::int32_t index = 1;
  while (index < unknown_species_row && !(word == SpeciesWord(species_table.at(index).species))) ++index;
  constexpr std::int32_t species_per_language = first_english_row - 1;
  return english && index < first_english_row ? index + species_per_language : index;
}

}  // namespace pedigreewatch
