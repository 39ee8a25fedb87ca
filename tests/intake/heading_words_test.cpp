// Headings that stand in no table are understood word by word.

#include "intake/heading_words.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "intake/column_recognition.h"

namespace pedigreewatch::test {
namespace {

FieldCode field_read(std::string_view heading) {
  return field_of_heading(read_heading(heading));
}

TEST(ReadHeading, OwnerAndIdentificationInSixLanguages) {
  for (const char* const heading :
       {"Sire ear tag", "Sire's tag", "Sire\u2019s tag", "S. herd book no.", "Stamboeknr. vader", "Vader stb.nr",
        "Lebensnummer Vater", "Vater ZB-Nr.", "V-LOM", "N\u00B0 p\u00E8re", "Boucle du p\u00E8re", "P\u00E8re",
        "Crotal padre", "Matr\u00EDcula del padre", "Codice padre", "SireID"}) {
    EXPECT_EQ(field_read(heading), sire_column) << heading;
  }
  for (const char* const heading : {"Dam UELN", "D. herd book no.", "Levensnr. moeder", "M-LOM", "Mutter",
                                    "M\u00E8re N\u00B0 national", "N\u00BA madre", "Marca della madre"}) {
    EXPECT_EQ(field_read(heading), dam_column) << heading;
  }
  for (const char* const heading :
       {"Ear tag", "Life number", "Oormerk", "Ohrmarkennummer", "ZB-Nr.", "Matricule", "N\u00B0 national", "Crotal",
        "N\u00BA de crotal", "Marca auricolare", "Animal ID", "Nr", "Herd book no."}) {
    EXPECT_EQ(field_read(heading), id_column) << heading;
  }
}

TEST(ReadHeading, HerdbookNumbersInShort) {
  EXPECT_EQ(meaning_of("HB-Nr.").code, id_column);
  EXPECT_EQ(meaning_of("Vater HB").code, sire_column);
  EXPECT_EQ(meaning_of("Mutter HB-Nr.").code, dam_column);
  EXPECT_EQ(meaning_of("Vater HB").fit, WordFit::exact) << "before a plain Vater";
}

TEST(ReadHeading, BirthNamesAndSexes) {
  for (const char* const heading : {"Foaled", "Date born", "Geb. am", "Wurftag", "Geburtstag", "N\u00E9(e) le",
                                    "Fec. nac.", "Nacido el", "Nato/a il", "Jaar van geboorte"}) {
    EXPECT_EQ(field_read(heading), birthdate_column) << heading;
  }
  EXPECT_EQ(field_read("Registered Name"), name_column);
  EXPECT_EQ(field_read("Nombre del animal"), name_column);
  EXPECT_EQ(field_read("Vader naam"), sire_name_column);
  EXPECT_EQ(field_read("Nom de la m\u00E8re"), dam_name_column);
  EXPECT_EQ(field_read("Sexe animal"), sex_column);
}

TEST(ReadHeading, ImportsInSixLanguages) {
  for (const char* const heading : {"Import",
                                    "Imported",
                                    "Imported?",
                                    "Imported From",
                                    "IMPORTED FROM",
                                    "Importland",
                                    "Import country",
                                    "Country of import",
                                    "Land van import",
                                    "Ge\u00EFmporteerd",
                                    "Ge\u00EFmporteerd uit",
                                    "Importiert",
                                    "Importiert aus",
                                    "Import\u00E9",
                                    "Import\u00E9e",
                                    "Importado",
                                    "Importada de",
                                    "Importato",
                                    "Import J/N",
                                    "Import (yes/no)",
                                    "Import\u00E9 O/N"}) {
    EXPECT_EQ(field_read(heading), import_column) << heading;
  }
}

TEST(ReadHeading, WhatSaysMoreThanImportIsNone) {
  for (const char* const heading :
       {"Import date", "Datum import", "Import no.", "Importnummer", "Import colour", "Import breeder", "Importkz.",
        "Importe", "Import of sire", "Country", "Important"}) {
    EXPECT_NE(field_read(heading), import_column) << heading;
  }
}

TEST(ReadHeading, ColoursAndBreedersInSixLanguages) {
  for (const char* const heading :
       {"Coat Colour", "Coat color", "Colour of coat", "Vachtkleur", "Kleur vacht", "Fellfarbe", "Farbe", "Haarfarbe",
        "Robe", "Couleur de la robe", "Color de la capa", "Capa", "Mantello", "Colore del mantello"}) {
    EXPECT_EQ(field_read(heading), colour_column) << heading;
  }
  for (const char* const heading :
       {"Breeder's name", "Name of breeder", "Naam fokker", "Naam van de fokker", "Z\u00FCchter Name", "\u00C9leveur",
        "Nom de l'\u00E9leveur", "Naisseur", "Nombre del criador", "Allevatore", "Nome allevatore"}) {
    EXPECT_EQ(field_read(heading), breeder_column) << heading;
  }
}

TEST(ReadHeading, ColoursAndBreedersOfSomethingElse) {
  for (const char* const heading :
       {"Coat", "Coat type", "Tag colour", "Colour date", "Colour of sire", "Breeder no.", "Breeder's address",
        "Breeder country", "Date of breeder", "Breeder of dam", "Colour breeder", "Hair", "Breeder coat"}) {
    EXPECT_EQ(field_read(heading), unused_column) << heading;
  }
}

TEST(HasImportInIt, AnyHeadingButOneOfImportance) {
  EXPECT_TRUE(has_import_in_it("Import date"));
  EXPECT_TRUE(has_import_in_it("IMPORTKZ."));
  EXPECT_TRUE(has_import_in_it("Wiederimport"));
  EXPECT_FALSE(has_import_in_it("Important notes"));
  EXPECT_FALSE(has_import_in_it("Importance"));
  EXPECT_FALSE(has_import_in_it("Export"));
}

TEST(ReadHeading, WhatBelongsToNobodyOfTheThree) {
  for (const char* const heading : {"Sire's sire",
                                    "Paternal grandsire",
                                    "Vaders vader",
                                    "Vatersvater",
                                    "Padre del padre",
                                    "Nonno paterno",
                                    "Sire colour",
                                    "Birth weight",
                                    "Birth place",
                                    "Registration date",
                                    "Fecha de registro",
                                    "Date of death",
                                    "Registered",
                                    "Sire breed",
                                    "Owner no.",
                                    "Herd",
                                    "Index 1",
                                    "Status",
                                    "",
                                    "N.D.",
                                    "No\u00EBl, Dale"}) {
    EXPECT_EQ(field_read(heading), unused_column) << heading;
  }
}

TEST(ReadHeading, AWordThatNobodyKnowsLeavesItOpen) {
  EXPECT_FALSE(read_heading("Sire xyz").is_understood);
  EXPECT_EQ(read_heading("Sire xyz").owner, HeadingOwner::sire);
  EXPECT_TRUE(read_heading("Died").is_understood);
  EXPECT_EQ(read_heading("Died").thing, HeadingThing::other_date);
}

TEST(MeaningOf, WhoseIdGoesBeforeAPlainParent) {
  EXPECT_EQ(meaning_of("Sire ear tag").fit, WordFit::exact);
  EXPECT_EQ(meaning_of("Padre").fit, WordFit::office);
  EXPECT_EQ(meaning_of("Ear tag").fit, WordFit::office);
}

TEST(ReadHeading, PartsOfAWordHaveTwoLettersAtLeast) {
  EXPECT_EQ(field_read("Idtag"), id_column);
  EXPECT_FALSE(read_heading("Noel").is_understood) << "four letters are no \"no\" and \"el\"";
  EXPECT_FALSE(read_heading("Enelid").is_understood) << "nor is a letter a word";
}

TEST(ReadHeading, SixtyLettersAtMost) {
  const auto ear_tag_of = [](int filling_ofs, int filling_thes) {
    std::string heading = "ear tag";
    for (int k = 0; k < filling_ofs; ++k) heading += " of";
    for (int k = 0; k < filling_thes; ++k) heading += " the";
    return heading;
  };
  ASSERT_EQ(ear_tag_of(15, 2).size(), 60U);
  ASSERT_EQ(ear_tag_of(14, 3).size(), 61U);
  EXPECT_TRUE(read_heading(ear_tag_of(15, 2)).is_understood);
  EXPECT_FALSE(read_heading(ear_tag_of(14, 3)).is_understood);
}

}  // namespace
}  // namespace pedigreewatch::test
