#include "pedigree/header_words.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

struct WordsOfField {
  FieldCode code;
  std::vector<std::string> words;
};

const std::vector<WordsOfField> words_of_fields = {
    {id_column, {"id", "Id", "ID", "animal", "Animal", "dier", "Dier"}},
    {sire_column, {"dad",      "sire",   "father",  "vader",    "id_dad",   "id_sire", "id-dad",  "id-sire", "id-vader",
                   "id_vader", "id dad", "id sire", "id vader", "Dad",      "Sire",    "Father",  "Vader",   "Id_dad",
                   "Id_sire",  "Id-dad", "Id-sire", "Id-vader", "Id_vader", "Id dad",  "Id sire", "Id vader"}},
    {dam_column,
     {"mum",       "dam",    "mother", "moeder",    "id_mum",    "id_dam",    "id-mum", "id-dam", "id-moeder",
      "id_moeder", "id mum", "id dam", "id moeder", "id moeder", "Mum",       "Dam",    "Mother", "Moeder",
      "Id_mum",    "Id_dam", "Id-mum", "Id-dam",    "Id-moeder", "Id_moeder", "Id mum", "Id dam", "Id moeder"}},
    {name_column, {"name", "naam", "Name", "Naam"}},
    {sire_name_column, {"name_dad",    "name-dad",    "name dad",    "name_sire",  "name-sire",  "name sire",
                        "name_father", "name-father", "name father", "naam_vader", "naam-vader", "naam vader",
                        "Name_dad",    "Name-dad",    "Name dad",    "Name_sire",  "Name-sire",  "Name sire",
                        "Name_father", "Name-father", "Name father", "Naam_vader", "Naam-vader", "Naam vader"}},
    {dam_name_column, {"name_mum",    "name-mum",    "name mum",    "name_dam",    "name-dam",    "name dam",
                       "name_mother", "name-mother", "name mother", "naam_moeder", "naam-moeder", "naam moeder",
                       "Name_mum",    "Name-mum",    "Name mum",    "Name_dam",    "Name-dam",    "Name dam",
                       "Name_mother", "Name-mother", "Name mother", "Naam_moeder", "Naam-moeder", "Naam moeder"}},
    {sex_column, {"sex", "sexe", "sekse", "geslacht", "Sex", "Sexe", "Sekse", "Geslacht"}},
    {birthdate_column,
     {"birthdate", "Birthdate", "dob", "DoB", "DOB", "geboortedatum", "gebdatum", "geb_datum", "geb-datum",
      "Geboortedatum", "Gebdatum", "Geb_datum", "Geb_datum", "Geb datum"}},
    {colour_column, {"colour", "color", "kleur", "kleurslag", "Colour", "Color", "Kleur", "Kleurslag"}},
    {breeder_column, {"breeder", "fokker", "Breeder", "Fokker"}},
    {subpopulation_column,
     {"breedtype", "variety", "herd", "subpopulation", "rastype", "varieteit", "kudde", "subpopulatie", "Breedtype",
      "Variety", "Herd", "Subpopulation", "Rastype", "Varieteit", "Kudde", "Subpopulatie"}},
    {import_column, {"Import"}},
};

std::set<std::string> all_words() {
  std::set<std::string> words;
  for (const WordsOfField& field : words_of_fields) words.insert(field.words.begin(), field.words.end());
  return words;
}

TEST(FieldCodeOf, KnowsAllWordsOfTheTable) {
  std::size_t word_count = 0;
  for (const WordsOfField& field : words_of_fields) {
    for (const std::string& word : field.words) {
      EXPECT_EQ(field_code_of(word), field.code) << word;
      ++word_count;
    }
  }
  EXPECT_EQ(word_count, 163U);
  EXPECT_EQ(all_words().size(), 161U);  // "id moeder" and "Geb_datum" stand twice
}

TEST(FieldCodeOf, IgnoresTrailingBlanks) {
  for (const WordsOfField& field : words_of_fields) {
    for (const std::string& word : field.words) {
      std::string fixed = word;
      fixed.resize(16, ' ');
      EXPECT_EQ(field_code_of(fixed), field.code) << word;
    }
  }
}

TEST(FieldCodeOf, KnowsNoOtherFormOfAWord) {
  const std::set<std::string> known = all_words();
  const auto expect_unknown = [&](const std::string& word) {
    if (!known.contains(word)) {
      EXPECT_EQ(field_code_of(word), unused_column) << word;
    }
  };
  for (const std::string& word : known) {
    std::string capitals = word, swapped_first = word;
    for (char& letter : capitals) letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    const auto first = static_cast<unsigned char>(word.front());
    swapped_first.front() = static_cast<char>(std::islower(first) != 0 ? std::toupper(first) : std::tolower(first));
    expect_unknown(capitals);
    expect_unknown(swapped_first);
    expect_unknown(" " + word);
    expect_unknown(word + "s");
    expect_unknown(word.substr(0, word.size() - 1));
  }
}

TEST(FieldCodeOf, HasTheGapsOfTheTable) {
  EXPECT_EQ(field_code_of("Geb-datum"), unused_column);
  EXPECT_EQ(field_code_of("geb datum"), unused_column);
  EXPECT_EQ(field_code_of("import"), unused_column);
  EXPECT_EQ(field_code_of("IMPORT"), unused_column);
  EXPECT_EQ(field_code_of("id_father"), unused_column);
  EXPECT_EQ(field_code_of("id_mother"), unused_column);
  EXPECT_EQ(field_code_of(""), unused_column);
  EXPECT_EQ(field_code_of("                "), unused_column);
}

}  // namespace
}  // namespace pedigreewatch::test
