// A second column of identifications is told by its heading, by texts that nearly all differ, by the parents in it, and
// by a line that differs.

#include "intake/rival_ids.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/export_survey.h"

namespace pedigreewatch::test {
namespace {

/// How the second column differs from "ID".
struct SecondIds {
  std::string heading = "Ear tag";
  int lacking = 0;   ///< of the ten parents so many do not stand there
  int repeated = 0;  ///< of the thirty animals so many have the text of the first young
  bool is_copy = false;
  int parents = 10;  ///< different ones that are named
};

/// Ten parents, twenty young; ids from 1 to 30, and the same numbers turned by one as the second column.
std::vector<std::size_t> rival_ids_of(const SecondIds& second, const PrepareOptions& options = {}) {
  std::string text = "ID;" + second.heading + ";Sire;Dam;Sex;Born\n";
  for (int i = 1; i <= 30; ++i) {
    const auto turned = [&](int id) {
      if (second.is_copy) return id;
      const int other = id % 30 + 1;
      if (other <= second.lacking) return other + 100;
      return id > 10 && id <= 10 + second.repeated ? 30 : other;
    };
    const bool is_young = i > 10;
    const int sire = i % second.parents + 1;
    text += std::to_string(i) + ";" + std::to_string(turned(i)) + ";" + (is_young ? std::to_string(sire) : "") + ";;" +
            (i % 2 == 1 ? "M" : "F") + ";13-04-20" + (is_young ? "13" : "10") + "\n";
  }
  const ColumnChoice columns =
      choose_columns(std::vector<std::string>{"ID", second.heading, "Sire", "Dam", "Sex", "Born"}, options);
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(text, ';', columns, {}, unwatched);
  return find_rival_ids({text, ';', columns, {}}, survey.links, options);
}

const std::vector<std::size_t> none_of_them, the_second = {1};

TEST(RivalIds, NumbersThatAreThoseOfOtherAnimals) {
  EXPECT_EQ(rival_ids_of({}), the_second);
  EXPECT_EQ(rival_ids_of({"col2"}), the_second) << "a heading that nobody knows";
}

TEST(RivalIds, ACopyIsNone) {
  EXPECT_EQ(rival_ids_of({.is_copy = true}), none_of_them);
}

TEST(RivalIds, NineInTenOfTheParentsStandThere) {
  EXPECT_EQ(rival_ids_of({.lacking = 1}), the_second);
  EXPECT_EQ(rival_ids_of({.lacking = 2}), none_of_them);
}

TEST(RivalIds, ItsTextsNearlyAllDiffer) {
  EXPECT_EQ(rival_ids_of({.repeated = 3}), the_second);
  EXPECT_EQ(rival_ids_of({.repeated = 4}), none_of_them);
}

TEST(RivalIds, ThreeParentsAreEnough) {
  EXPECT_EQ(rival_ids_of({.parents = 3}), the_second);
  EXPECT_EQ(rival_ids_of({.parents = 2}), none_of_them);
}

/// A hundred animals with numbers, and chips that these first ones lack; herdbook numbers that all but the first `gaps`
/// have. The parents are named by their chips.
std::vector<std::size_t> rivals_of_chips(int without_chip, int gaps, const std::string& heading = "Herdbook no.",
                                         const std::string& same = "") {
  std::string text = "Chip;" + heading + ";Sire;Dam;Sex;Born\n";
  for (int i = 0; i < 100; ++i) {
    text += (i < without_chip ? "" : "98100" + std::to_string(i)) + ";" +
            (i < gaps       ? ""
             : same.empty() ? "HB" + std::to_string(i)
                            : same) +
            ";" + (i > 50 ? "98100" + std::to_string(20 + i % 5) : "") + ";;M;13-04-2010\n";
  }
  PrepareOptions chips;
  chips.columns = {{id_column, "Chip"}};
  const ColumnChoice chosen =
      choose_columns(std::vector<std::string>{"Chip", heading, "Sire", "Dam", "Sex", "Born"}, chips);
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(text, ';', chosen, {}, unwatched);
  return find_rival_ids({text, ';', chosen, {}}, survey.links, {});
}

TEST(RivalIds, NumbersOfAnimalsThatLackTheirId) {
  EXPECT_EQ(rivals_of_chips(3, 0), the_second) << "three in a hundred";
  EXPECT_EQ(rivals_of_chips(2, 0), none_of_them);
  EXPECT_EQ(rivals_of_chips(10, 4), the_second) << "six of ten";
  EXPECT_EQ(rivals_of_chips(10, 5), none_of_them) << "five of ten";
  EXPECT_EQ(rivals_of_chips(10, 0, "Weight"), none_of_them);
  EXPECT_EQ(rivals_of_chips(10, 0, "Tier"), the_second);
  EXPECT_EQ(rivals_of_chips(10, 0, "col2"), the_second) << "nobody knows the heading";
  EXPECT_EQ(rivals_of_chips(10, 0, "Tier", "HB-5.28E+14"), the_second) << "they are destroyed";
  EXPECT_EQ(rivals_of_chips(10, 0, "col2", "HB-5.28E+14"), none_of_them) << "the same text in all lines";
}

TEST(RivalIds, OtherThingsAreNone) {
  for (const char* const heading : {"Weight", "Name", "Sire's number", "Dam's ear tag", "Grandsire id", "Owner"}) {
    EXPECT_EQ(rival_ids_of({heading}), none_of_them) << heading;
  }
}

TEST(RivalIds, WhatTheUserNamesIsNotAsked) {
  PrepareOptions options;
  options.columns = {{id_column, "1"}};
  EXPECT_EQ(rival_ids_of({}, options), none_of_them);
}

/// Young with a tag of their own each, named by the second column only, above three fathers whose tags are the ids of
/// one another.
std::vector<std::size_t> rivals_below(int young) {
  std::string text = "ID;Ear tag;Sire;Dam;Sex;Born\n";
  for (int i = 0; i < young; ++i) {
    const std::string number = std::to_string(i);
    text += "Y" + number + ";T" + number + ";S" + std::to_string(i % 3) + ";;F;13-04-2013\n";
  }
  text += "S0;S1;;;M;13-04-2010\nS1;S2;;;M;13-04-2010\nS2;S0;;;M;13-04-2010\n";
  const ColumnChoice columns =
      choose_columns(std::vector<std::string>{"ID", "Ear tag", "Sire", "Dam", "Sex", "Born"}, {});
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(text, ';', columns, {}, unwatched);
  return find_rival_ids({text, ';', columns, {}}, survey.links, {});
}

TEST(RivalIds, FiveHundredTextsThatAreNoParentAreEnough) {
  EXPECT_EQ(rivals_below(499), the_second);
  EXPECT_EQ(rivals_below(500), none_of_them);
}

}  // namespace
}  // namespace pedigreewatch::test
