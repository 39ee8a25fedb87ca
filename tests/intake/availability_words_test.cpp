#include "intake/availability_words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/value_words.h"

namespace pedigreewatch::test {
namespace {

using SaidTexts = std::vector<std::string>;

void expect_headings(const SaidTexts& written, AvailabilityHeading meaning) {
  for (const std::string& heading : written) EXPECT_EQ(read_availability_heading(heading), meaning) << heading;
}

void expect_texts(const SaidTexts& written, AvailabilityText meaning) {
  for (const std::string& text : written) EXPECT_EQ(read_availability(text, 2026), meaning) << text;
}

TEST(AvailabilityHeading, NamesColumnsOfTheDeadAndSold) {
  expect_headings({"Date of death",
                   "Died",
                   "Sold",
                   "Export date",
                   "Culled on",
                   "Castrated",
                   "Overleden",
                   "Sterfdatum",
                   "Afvoerdatum",
                   "Datum afvoer",
                   "Verkocht",
                   "Gecastreerd",
                   "Todesdatum",
                   "Abgang",
                   "Verkauft am",
                   "D\xC3\xA9"
                   "c\xC3\xA8s",
                   "Date de vente",
                   "Fecha de muerte",
                   "Baja",
                   "Data di morte",
                   "Macellazione"},
                  AvailabilityHeading::gone);
}

TEST(AvailabilityHeading, NamesColumnsOfTheLiving) {
  expect_headings({"Alive", "In leven", "Levend", "Breeding animal", "Breeding", "Fokdier", "Lebt", "Zuchttier",
                   "Vivant", "Vivo", "Attivo"},
                  AvailabilityHeading::here);
}

TEST(AvailabilityHeading, NamesStatusAndRemarks) {
  expect_headings({"Status", "Toestand", "Zustand", "Statut", "Estado", "Stato", "Animal status", "Breeding status"},
                  AvailabilityHeading::status);
  expect_headings({"Remarks", "Notes", "Opmerkingen", "Bemerkung", "Remarques", "Observaciones", "Osservazioni"},
                  AvailabilityHeading::remarks);
}

TEST(AvailabilityHeading, NamesReasonsPlacesAndAnswers) {
  expect_headings({"Reden afvoer", "Reason of disposal", "Cause of death", "Todesursache", "Abgangsgrund",
                   "Afvoerreden", "Motif de sortie", "Causa de muerte", "Causa del decesso"},
                  AvailabilityHeading::reason);
  expect_headings({"Location", "Locatie", "Standort", "Emplacement", "Ubicaci\u00F3n", "Ubicazione"},
                  AvailabilityHeading::remarks);
  expect_headings({"Died (y/n)", "Overleden (j/n)", "Sold [yes/no]", "Verkauft (ja/nein)"}, AvailabilityHeading::gone);
  expect_headings({"Alive (y/n)"}, AvailabilityHeading::here);
  expect_headings({"Reason", "Reden van inschrijving", "Died (kg)"}, AvailabilityHeading::none);
}

TEST(AvailabilityHeading, IsReadUpToSixtyLetters) {
  EXPECT_EQ(read_availability_heading("Died" + std::string(56, ' ')), AvailabilityHeading::gone);
  EXPECT_EQ(read_availability_heading("Died" + std::string(57, ' ')), AvailabilityHeading::none);
}

TEST(AvailabilityHeading, IsNoneForWhatIsAboutSomethingElse) {
  expect_headings({"Dam died", "Vader overleden", "Sale price", "Breeding value", "Left ear", "Live weight", "Breeder",
                   "Slaughter weight", "Colour", "Levensnummer", ""},
                  AvailabilityHeading::none);
}

TEST(AvailabilityText, SaysThatAnAnimalHasGone) {
  expect_texts({"dead",
                "DEAD",
                "Died 12-3-2019",
                "died in March 2019",
                "sold",
                "Sold to Smith, Leeds",
                "exported to France",
                "overleden",
                "Overleden op 3 maart 2020",
                "verkocht aan Jansen",
                "ge\xC3\xABxporteerd",
                "gecastreerd",
                "geslacht",
                "tot",
                "verkauft nach Bayern",
                "gestorben am 3.4.2018",
                "kastriert",
                "mort",
                "d\xC3\xA9"
                "c\xC3\xA9"
                "d\xC3\xA9",
                "vendu",
                "muerto",
                "vendida",
                "morto",
                "venduto",
                "\xE2\x80\xA0 12-3-2019",
                "\xE2\x80\xA0",
                "no longer available",
                "niet actief",
                "no longer present",
                "nicht mehr vorhanden",
                "non attivo",
                "died of old age"},
               AvailabilityText::gone);
}

TEST(AvailabilityText, SaysThatAnAnimalIsThere) {
  expect_texts({"alive", "Active", "levend", "in leven en actief", "fokdier", "lebt", "lebt noch", "vivant", "vivo",
                "attivo", "not dead", "niet verkocht", "not castrated"},
               AvailabilityText::here);
}

TEST(AvailabilityText, DoesNotGuessWhereOtherWordsStandBesideIt) {
  expect_texts({"her dam died", "dead lamb", "half dead", "sold and alive", "dead?", "nog niet verkocht",
                "sold to a living history museum, alive", "died or sold, ask Tim"},
               AvailabilityText::mixed);
  expect_texts({"for sale", "te koop", "champion", "A", "kennel Morten", "to be weighed"}, AvailabilityText::other);
}

TEST(AvailabilityText, KnowsYesNoDatesAndNothing) {
  expect_texts({"yes", "Ja", "x", "1", "true", "s\xC3\xAC"}, AvailabilityText::yes);
  expect_texts({"no", "Nee", "0", "false", "nein", "not available", "niet beschikbaar"}, AvailabilityText::no);
  expect_texts({"12-3-2019", "2019-03-12", "2019", "March 2019", "31-12-2026", "12-3-19"}, AvailabilityText::date);
  expect_texts({"", "-", "?", "00-00-0000", "unknown", "onbekend"}, AvailabilityText::nothing);
}

TEST(AvailabilityText, TakesNoDateThatIsStillToCome) {
  EXPECT_EQ(read_availability("31-12-9999", 2026), AvailabilityText::nothing);
  EXPECT_EQ(read_availability("1-1-2027", 2026), AvailabilityText::nothing);
  EXPECT_EQ(read_availability("31-12-2026", 2026), AvailabilityText::date);
  // Where nobody knows which year it is.
  EXPECT_EQ(read_availability("1-1-2100", 0), AvailabilityText::date);
  EXPECT_EQ(read_availability("1-1-2101", 0), AvailabilityText::nothing);
}

TEST(AvailabilityText, ReadsLongTextsNoFurther) {
  const std::string to_many = "sold to " + std::string(192, 'a');
  EXPECT_EQ(read_availability(to_many, 2026), AvailabilityText::gone);
  EXPECT_EQ(read_availability(to_many + "a", 2026), AvailabilityText::mixed);
}

TEST(NamesCastrated, TheWordsForCastratedMales) {
  for (const char* word : {"Gelding", "wether", "ruin", "Wallach", "hongre", "castraat", "os", "barrow", "Hammel"}) {
    EXPECT_TRUE(names_castrated(word)) << word;
    EXPECT_EQ(sex_named(word), SexMeaning::male) << word;
  }
  for (const char* word : {"ram", "stallion", "colt", "m", "", "mare"}) EXPECT_FALSE(names_castrated(word)) << word;
}

}  // namespace
}  // namespace pedigreewatch::test
