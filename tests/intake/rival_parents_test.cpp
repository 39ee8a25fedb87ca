// A second column of mothers or fathers is told by its heading, its animals and their sexes, and by a line that
// differs.

#include "intake/rival_parents.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

/// How the second column of mothers differs from "Dam".
struct Second {
  std::string heading;
  int differing = 0;       ///< of the twenty young, so many name the next mother there
  bool is_male = false;    ///< or the father instead
  bool is_sparse = false;  ///< only the differing ones are filled
};

/// Five rams, ten ewes and twenty young.
std::vector<std::size_t> rivals_of(const Second& second, const PrepareOptions& options = {}) {
  std::string text = "ID;Sire;Dam;" + second.heading + ";Sex;Born\n";
  for (int i = 0; i < 5; ++i) text += "R" + std::to_string(i) + ";;;;M;01-03-2010\n";
  for (int i = 0; i < 10; ++i) text += "E" + std::to_string(i) + ";;;;F;02-03-2010\n";
  for (int i = 0; i < 20; ++i) {
    const bool differs = i < second.differing;
    const std::string sire = "R" + std::to_string(i % 5), dam = "E" + std::to_string(i % 10);
    const std::string other = second.is_male ? sire : "E" + std::to_string((i + 1) % 10);
    const std::string same = second.is_sparse ? "" : dam;
    text += "Y" + std::to_string(i) + ";" + sire + ";" + dam + ";" + (differs ? other : same) + ";F;13-04-2013\n";
  }
  const ColumnChoice columns =
      choose_columns(std::vector<std::string>{"ID", "Sire", "Dam", second.heading, "Sex", "Born"}, options);
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(text, ';', columns, {}, unwatched);
  return find_rival_parents({text, ';', columns, {}}, survey, dam_column, options);
}

const std::vector<std::size_t> no_rival, fourth = {3};

TEST(RivalParents, HeadingsThatNameTheMotherInTheirOwnWay) {
  for (const char* const heading :
       {"Genetic mother", "Dam (DNA)", "Genetische moeder", "Corrected dam", "Donor dam", "Biologische Mutter"}) {
    EXPECT_EQ(rivals_of({heading, 20}), fourth) << heading;
    EXPECT_EQ(rivals_of({heading, 1}), fourth) << heading;
    EXPECT_EQ(rivals_of({heading, 1, false, true}), fourth) << heading;
  }
}

TEST(RivalParents, ACopyIsNone) {
  EXPECT_EQ(rivals_of({"Genetic mother", 0}), no_rival);
  EXPECT_EQ(rivals_of({"col9", 0}), no_rival);
}

TEST(RivalParents, OtherRelativesAreNone) {
  for (const char* const heading : {"Foster dam", "Recipient dam", "Surrogate dam", "Dam's dam", "Pleegmoeder",
                                    "Genetic sire", "Dam weight", "Draagmoeder"}) {
    EXPECT_EQ(rivals_of({heading, 5}), no_rival) << heading;
  }
}

TEST(RivalParents, MostHaveToBeOfTheRightSex) {
  EXPECT_EQ(rivals_of({"Genetic mother", 20, true}), no_rival);
  EXPECT_EQ(rivals_of({"Genetic mother", 1, true}), fourth);  // one ram beside ten ewes
  EXPECT_EQ(rivals_of({"Genetic mother", 2, true}), no_rival);
}

TEST(RivalParents, AnUnknownHeadingHasToAgreeOnMostLines) {
  EXPECT_EQ(rivals_of({"col9", 1}), fourth);
  EXPECT_EQ(rivals_of({"col9", 9}), fourth);
  EXPECT_EQ(rivals_of({"col9", 10}), no_rival);
  EXPECT_EQ(rivals_of({"MGS", 20}), no_rival);
}

TEST(RivalParents, WhatTheUserNamesIsNotAsked) {
  PrepareOptions options;
  options.columns = {{dam_column, "3"}};
  EXPECT_EQ(rivals_of({"Genetic mother", 20}, options), no_rival);
}

/// Ten ewes, and young of which the second column names the same mother ('s') or the next one ('d').
std::vector<std::size_t> rivals_with(const std::string& young) {
  std::string text = "ID;Sire;Dam;col9;Sex;Born\n";
  for (int i = 0; i < 10; ++i) text += "E" + std::to_string(i) + ";;;;F;02-03-2010\n";
  for (std::size_t i = 0; i < young.size(); ++i) {
    const std::size_t other = young[i] == 's' ? i : i + 1;
    text += "Y" + std::to_string(i) + ";;E" + std::to_string(i % 10) + ";E" + std::to_string(other % 10) +
            ";F;13-04-2013\n";
  }
  const ColumnChoice columns = choose_columns(std::vector<std::string>{"ID", "Sire", "Dam", "col9", "Sex", "Born"}, {});
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(text, ';', columns, {}, unwatched);
  return find_rival_parents({text, ';', columns, {}}, survey, dam_column, {});
}

TEST(RivalParents, TwoThousandLinesTellThatAColumnSaysSomethingElse) {
  // In all, more than half of the lines agree; of the first two thousand 1,001 do, or 1,000 with the last one against.
  EXPECT_EQ(rivals_with(std::string(999, 'd') + std::string(1011, 's')), fourth);
  EXPECT_EQ(rivals_with(std::string(999, 'd') + std::string(1000, 's') + 'd' + std::string(10, 's')), no_rival);
}

}  // namespace
}  // namespace pedigreewatch::test
