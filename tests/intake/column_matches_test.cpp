// Columns of parents and identifications that do not belong together are asked about, with the columns that would.

#include "intake/column_matches.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/console_words.h"

namespace pedigreewatch::test {
namespace {

std::vector<std::string> questions_on(const std::string& text, const PrepareOptions& options = {}) {
  RecordReader reader = read_records(text, ';');
  ExportRecord record;
  next_filled_record(reader, record);
  const std::vector<std::string> header(record.fields.begin(), record.fields.end());
  const ColumnChoice columns = choose_columns(header, options);
  ProgressLine unwatched;
  ExportSurvey survey = survey_export(text, ';', columns, {}, unwatched);
  survey.matches = match_columns(text, ';', columns);
  std::vector<std::string> questions;
  for (const Question& question : ask_for_linked_columns(survey, columns, options)) {
    questions.push_back(words_of(question, ToolLanguage::english));
  }
  return questions;
}

/// Five fathers, five mothers and ten young. Parents are named in the plain columns, their ids stand in others.
std::string names_for_parents() {
  std::string text = "ID;Name;Sire;SX;Dam;DX;Sex;Born\n";
  for (int i = 0; i < 5; ++i) {
    const std::string n = std::to_string(i);
    text += "s" + n + ";Sam " + n + ";;;;;m;2001\nd" + n + ";Dot " + n + ";;;;;f;2001\n";
    for (const char* const young : {"x", "y"}) {
      text += young + n + ";" + young + n + " Y;Sam " + n + ";s" + n + ";Dot " + n + ";d" + n + ";f;2003\n";
    }
  }
  return text;
}

TEST(LackLines, MoreThanHalfOfFiveOrMore) {
  EXPECT_TRUE(lack_lines({5, 2}));
  EXPECT_FALSE(lack_lines({4, 0}));
  EXPECT_FALSE(lack_lines({6, 3}));
  EXPECT_TRUE(lack_lines({7, 3}));
  EXPECT_FALSE(lack_lines({0, 0}));
}

TEST(AskForLinkedColumns, NamesInTheColumnsOfParents) {
  const std::vector<std::string> questions = questions_on(names_for_parents());
  ASSERT_EQ(questions.size(), 3U);
  EXPECT_EQ(
      questions[0],
      "Of 5 parents in \"Sire\" (column 3), taken as the id of the father, only so many have a line of their "
      "own, with that id in \"ID\" (column 1): 0. Columns whose texts do stand there: \"SX\" (column 4: 5 of 5), \"DX\" "
      "(column 6: 5 of 5). Say which column holds the id of the father: --column sire=NUMBER, also if the "
      "one taken is right.");
  EXPECT_EQ(questions[2],
            "Most parents do not stand in \"ID\" (column 1), taken as the id of the animal. Columns in which most of "
            "them stand: \"Name\" (column 2: 10 of 10). Say which column holds the id of the animal: --column "
            "id=NUMBER, also if the one taken is right.");
}

TEST(AskForLinkedColumns, WhatTheUserNamesIsNotAskedAgain) {
  PrepareOptions options;
  options.columns = {{sire_column, "3"}, {dam_column, "5"}};
  EXPECT_EQ(questions_on(names_for_parents(), options).size(), 1U);
  options.columns.push_back({id_column, "1"});
  EXPECT_TRUE(questions_on(names_for_parents(), options).empty());
  options.columns = {{sire_column, "4"}, {dam_column, "6"}};
  EXPECT_TRUE(questions_on(names_for_parents(), options).empty()) << "they have lines";
}

TEST(AskForLinkedColumns, ParentsInTheTagsOfAnotherColumn) {
  std::string text = "ID;Ear tag;Sire;Dam;Sex;Born\n";
  for (int i = 0; i < 6; ++i) {
    const std::string n = std::to_string(i);
    text += "1" + n + ";NL-" + n + ";;;m;2001\n2" + n + ";NL-9" + n + ";NL-" + n + ";;f;2003\n";
  }
  const std::vector<std::string> questions = questions_on(text);
  ASSERT_EQ(questions.size(), 2U);
  EXPECT_NE(questions[1].find("most of them stand: \"Ear tag\" (column 2: 6 of 6)."), std::string::npos)
      << questions[1];
}

TEST(AskForLinkedColumns, NothingWhereMostParentsHaveALine) {
  std::string text = "ID;Sire;Dam;Sex;Born\n";
  for (int i = 0; i < 6; ++i)
    text += std::to_string(i) + ";;;m;2001\n" + "y" + std::to_string(i) + ";" + std::to_string(i) + ";;f;2003\n";
  EXPECT_TRUE(questions_on(text).empty());
}

TEST(MatchColumns, NamesTheFiveBest) {
  // Every column but that of the fathers holds ids; column k holds those from k on.
  std::string text = "ID;Sire;A;B;C;D;E;F\n";
  ColumnChoice columns = choose_columns(std::vector<std::string>{"ID", "Sire", "A", "B", "C", "D", "E", "F"}, {});
  for (int i = 0; i < 20; ++i) {
    text += "x" + std::to_string(i) + ";x" + std::to_string(i);
    for (int k = 0; k < 6; ++k) text += ";x" + std::to_string(i + k);
    text += "\n";
  }
  const ColumnMatches matches = match_columns(text, ';', columns);
  ASSERT_EQ(matches.for_parents.size(), 5U) << "of six";
  EXPECT_EQ(matches.for_parents.back().place, 6U);
  ASSERT_EQ(matches.for_id.size(), 5U);
  EXPECT_EQ(matches.for_id.back().place, 6U);
}

}  // namespace
}  // namespace pedigreewatch::test
