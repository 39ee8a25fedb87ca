#include "intake/value_words.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch::test {
namespace {

TEST(MeansUnknown, UsualSpellingsInAnyCase) {
  for (const char* const text :
       {"",        "0", "000", "NA", "n/a", "N.A.", "unknown", "UNKNOWN", "Onbekend", "unbekannt",
        "inconnu", "?", "-",   "--", "...", "null", "NaN",     "n.v.t.",  "xx",       "#N/A"}) {
    EXPECT_TRUE(means_unknown(text)) << text;
  }
}

TEST(MeansUnknown, IdentificationsAreNone) {
  for (const char* const text : {"Rex", "10", "NA1", "X", "HS-0", "0-1", "Nanda", "Unknown Soldier of Moor"}) {
    EXPECT_FALSE(means_unknown(text)) << text;
  }
}

TEST(MeansNoImport, WordsForNo) {
  for (const char* const text : {"", "0", "n", "No", "NEE", "nein", "non", "false", "F", "NA", "-"}) {
    EXPECT_TRUE(means_no_import(text)) << text;
  }
  for (const char* const text : {"1", "y", "ja", "Germany", "DE", "true"}) EXPECT_FALSE(means_no_import(text)) << text;
}

TEST(SexNamed, WordsOfFourLanguages) {
  for (const char* const text : {"m", "M", "male", "Mannelijk", "M\xC3\xA4nnlich",
                                 "m\xC3\xA2"
                                 "le",
                                 "ram", "Stier", "\xE2\x99\x82"}) {
    EXPECT_EQ(sex_named(text), SexMeaning::male) << text;
  }
  for (const char* const text : {"f", "V", "w", "Female", "vrouwelijk", "weiblich", "femelle", "ooi", "\xE2\x99\x80"}) {
    EXPECT_EQ(sex_named(text), SexMeaning::female) << text;
  }
  for (const char* const text : {"", "1", "2", "?", "r", "hermaphrodite"}) {
    EXPECT_EQ(sex_named(text), SexMeaning::unknown) << text;
  }
}

TEST(SpeciesOfSexWord, OnlyWordsThatBelongToOneSpecies) {
  EXPECT_EQ(species_of_sex_word("Ooi"), "sheep");
  EXPECT_EQ(species_of_sex_word("reu"), "dog");
  EXPECT_EQ(species_of_sex_word("male"), "");
}

TEST(MeansUnknown, InTextsOfUpTo24Letters) {
  EXPECT_TRUE(means_unknown("unknown" + std::string(17, '!')));
  EXPECT_FALSE(means_unknown("unknown" + std::string(18, '!')));
}

TEST(MeansUnknownParent, WordsOfOfficesAndErrorsOfSpreadsheets) {
  for (const char* const text : {"",
                                 "WILD",
                                 "N.N.",
                                 "Wildfang",
                                 "wild caught",
                                 "n.b.",
                                 "k.A.",
                                 "N.C.",
                                 "N.D.",
                                 "desconocido",
                                 "Sconosciuto",
                                 "ignoto",
                                 "non connu",
                                 "sin datos",
                                 "not recorded",
                                 "Unregistered",
                                 "Unknown sire",
                                 "onbekende vader",
                                 "Founder",
                                 "Import",
                                 "fremd",
                                 "U",
                                 "x",
                                 "-1",
                                 "99999",
                                 "999999999",
                                 "#N/A",
                                 "#N/B",
                                 "#NV",
                                 "#VERW!",
                                 "#REF!",
                                 "#BEZUG!",
                                 "#DIV/0!"}) {
    EXPECT_TRUE(means_unknown_parent(text)) << text;
  }
  for (const char* const text : {"Wilda", "N1", "9999", "99998", "-2", "#12", "Import 7", "Rex"}) {
    EXPECT_FALSE(means_unknown_parent(text)) << text;
  }
}

TEST(RepeatsLineAbove, WordsAndSigns) {
  for (const char* const text : {"s.o.", "Idem", "dito", "do.", "zie boven", "see above", "\"", "''", "- \" -", "-||-",
                                 "\xE2\x80\x9E", "\xE3\x80\x83"}) {
    EXPECT_TRUE(repeats_line_above(text)) << text;
  }
  for (const char* const text : {"", "-", "?", "NL12", "unknown", "Dora", "\"Rex\"", "s.o. NL1"}) {
    EXPECT_FALSE(repeats_line_above(text)) << text;
  }
}

TEST(MeansStillborn, WordsOfSixLanguagesAndCrosses) {
  for (const char* const text :
       {"dead",          "DEAD",          "born dead",   "stillborn",    "still-born",
        "Dead at birth", "dood",          "Doodgeboren", "dood geb.",    "tot",
        "Totgeburt",     "tot geboren",   "mort",        "mort-n\u00E9", "mort \u00E0 la naissance",
        "muerto",        "nacido muerto", "morto",       "nato morto",   "+",
        "\u2020",        "dead lamb"}) {
    EXPECT_TRUE(means_stillborn(text)) << text;
  }
  for (const char* const text :
       {"", "born", "lamb", "Totilas", "Mortimer", "dead 2", "NL1", "-", "sold", "dead or sold"}) {
    EXPECT_FALSE(means_stillborn(text)) << text;
  }
}

}  // namespace
}  // namespace pedigreewatch::test
