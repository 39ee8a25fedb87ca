#include "intake/column_recognition.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/folded_words.h"

namespace pedigreewatch::test {
namespace {

TEST(Folded, CapitalsAccentsAndPunctuationMakeNoDifference) {
  EXPECT_EQ(folded("Reg. No"), "regno");
  EXPECT_EQ(folded("reg_no"), "regno");
  EXPECT_EQ(folded("P\xC3\x88RE"), "pere");
  EXPECT_EQ(folded("G\xC3\xA9nisse N\xC2\xB0 3"), "genissen3");
  EXPECT_EQ(folded("..."), "");
}

TEST(MeaningOf, EveryWordOfTheDataFileInAnyCase) {
  for (const HeaderWord& entry : all_header_words()) {
    std::string capitals;
    for (const char byte : entry.word)
      capitals.push_back(byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte);
    EXPECT_EQ(meaning_of(entry.word).code, entry.code) << entry.word;
    EXPECT_EQ(meaning_of(capitals).code, entry.code) << capitals;
  }
}

TEST(MeaningOf, WordsOfPackagesAndOffices) {
  for (const char* const word :
       {"Indiv", "ID", "Reg. no", "Diernummer", "Stamboeknummer", "Lebensnummer", "Num\xC3\xA9ro"}) {
    EXPECT_EQ(meaning_of(word).code, id_column) << word;
  }
  for (const char* const word : {"Sire", "FATHER", "Vater", "P\xC3\xA8re", "SireID", "Vader_ID", "id father"}) {
    EXPECT_EQ(meaning_of(word).code, sire_column) << word;
  }
  for (const char* const word : {"Dam", "Mother", "Mutter", "M\xC3\xA8re", "DamID", "Moeder-ID"}) {
    EXPECT_EQ(meaning_of(word).code, dam_column) << word;
  }
  for (const char* const word : {"Sex", "Gender", "Geschlecht", "Sexe"}) EXPECT_EQ(meaning_of(word).code, sex_column);
  for (const char* const word : {"Born", "Date of birth", "Geburtsdatum", "Date de naissance", "Geboren op", "DOB"}) {
    EXPECT_EQ(meaning_of(word).code, birthdate_column) << word;
  }
  EXPECT_EQ(meaning_of("Breed").code, subpopulation_column);
  EXPECT_EQ(meaning_of("import").code, import_column);
  EXPECT_EQ(meaning_of("Weight").code, unused_column);
  EXPECT_EQ(meaning_of("").code, unused_column);
}

TEST(MeaningOf, BreedsAndHerdsAreSubpopulations) {
  for (const char* const word : {"Ras", "Rasse", "Race", "Raza", "Razza", "Flock", "Herde", "Troupeau", "Reba\xC3\xB1o",
                                 "Gregge", "Zuchtgruppe", "Vari\xC3\xA9t\xC3\xA9", "Schlag"}) {
    EXPECT_EQ(meaning_of(word).code, subpopulation_column) << word;
    EXPECT_EQ(meaning_of(word).fit, WordFit::office) << word;
  }
  EXPECT_EQ(meaning_of("Herd name").code, subpopulation_column) << "no name of an animal";
}

TEST(RecogniseColumns, AFarmIsAHerdWhereNothingElseIs) {
  ColumnPlaces further;
  const std::vector<std::string> both = {"ID", "Betrieb", "Rasse", "Elevage", "Naisseur"};
  EXPECT_EQ(recognise_columns(both, further)[subpopulation_column], std::vector<std::size_t>{2});
  EXPECT_EQ(further[subpopulation_column], std::vector<std::size_t>{1});
  EXPECT_EQ(recognise_columns(both, further)[breeder_column], std::vector<std::size_t>{4});
  const std::vector<std::string> one = {"ID", "Betrieb", "\xC3\x89levage"};
  EXPECT_EQ(recognise_columns(one, further)[subpopulation_column], std::vector<std::size_t>{1});
  EXPECT_EQ(recognise_columns(one, further)[breeder_column], std::vector<std::size_t>{2});
}

TEST(RecogniseColumns, AnIdentificationGoesBeforeAPlainWord) {
  ColumnPlaces further;
  const std::vector<std::string> header = {"ID", "Father", "Father ID", "Reg. no"};
  const ColumnPlaces places = recognise_columns(header, further);
  EXPECT_EQ(places[sire_column], std::vector<std::size_t>{2});
  EXPECT_EQ(further[sire_column], std::vector<std::size_t>{1});
  EXPECT_EQ(places[id_column], std::vector<std::size_t>{0});
  EXPECT_EQ(further[id_column], std::vector<std::size_t>{3});
}

TEST(RecogniseColumns, WordsOfEqualWeightAreAllNamed) {
  ColumnPlaces further;
  const std::vector<std::string> header = {"Sire", "Father"};
  EXPECT_EQ(recognise_columns(header, further)[sire_column], (std::vector<std::size_t>{0, 1}));
}

TEST(IsHeader, TwoKnownWordsOrOneWithoutDigits) {
  EXPECT_TRUE(is_header(std::vector<std::string>{"id", "sire", "weight 1"}));
  EXPECT_TRUE(is_header(std::vector<std::string>{"id", "code"}));
  EXPECT_FALSE(is_header(std::vector<std::string>{"Dad", "123", "m"}));
  EXPECT_FALSE(is_header(std::vector<std::string>{"rex", "saar", "m"}));
}

TEST(FieldNamed, OptionNamesAndHeaderWords) {
  EXPECT_EQ(field_named("id"), id_column);
  EXPECT_EQ(field_named("birthdate"), birthdate_column);
  EXPECT_EQ(field_named("vader"), sire_column);
  EXPECT_EQ(field_named("weight"), unused_column);
  EXPECT_EQ(field_named(""), unused_column);
}

}  // namespace
}  // namespace pedigreewatch::test
