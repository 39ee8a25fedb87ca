#include "intake/column_choice.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/console_words.h"

namespace pedigreewatch::test {
namespace {

const std::vector<std::string> header = {"Reg. no", "Key", "Sire", "Dam", "Sex", "Born", "Name", "Naam"};

ColumnChoice choose(std::vector<ColumnWish> wishes, const std::vector<std::string>& record = header) {
  PrepareOptions options;
  options.columns = std::move(wishes);
  return choose_columns(record, options);
}

std::string words(const Question& question) {
  return words_of(question, ToolLanguage::english);
}

TEST(ChooseColumns, WhatIsNotClearIsAskedForWithTheOption) {
  const ColumnChoice choice = choose({});
  EXPECT_EQ(choice.place[id_column], 0U);
  EXPECT_FALSE(choice.place[name_column].has_value());
  ASSERT_EQ(choice.questions.size(), 1U);
  EXPECT_EQ(words(choice.questions[0]),
            "Several columns could hold the name of the animal: \"Name\" (column 7), \"Naam\" (column 8). Choose one: "
            "--column name=NUMBER (or --column name=none).");
  const Question& question = choice.questions[0];
  EXPECT_EQ(question.setting, Setting::column);
  EXPECT_EQ(question.field, name_column);
  ASSERT_EQ(question.answers.size(), 3U);
  EXPECT_EQ(question.answers[1].value, "8");
  EXPECT_EQ(question.answers[1].text, "Naam");
  EXPECT_EQ(question.answers[2].value, "none");
}

TEST(ChooseColumns, TheUserChoosesByHeadingOrNumberOrNone) {
  EXPECT_EQ(choose({{name_column, "Naam"}}).place[name_column], 7U);
  EXPECT_EQ(choose({{name_column, "naam"}}).place[name_column], 7U);
  EXPECT_EQ(choose({{name_column, "7"}}).place[name_column], 6U);
  EXPECT_FALSE(choose({{name_column, "none"}}).place[name_column].has_value());
  EXPECT_TRUE(choose({{name_column, "none"}}).questions.empty());
}

TEST(ChooseColumns, AColumnThatTheUserGivesAwayIsNotTakenTwice) {
  const ColumnChoice choice = choose({{name_column, "none"}, {id_column, "Key"}, {breeder_column, "Reg. no"}});
  EXPECT_EQ(choice.place[id_column], 1U);
  EXPECT_EQ(choice.place[breeder_column], 0U);
}

TEST(ChooseColumns, AColumnThatDoesNotExistIsTold) {
  const ColumnChoice choice = choose({{name_column, "none"}, {id_column, "Chip"}, {colour_column, "9"}});
  ASSERT_EQ(choice.questions.size(), 2U);
  EXPECT_EQ(words(choice.questions[0]),
            "--column id=\"Chip\": there is no column of that heading or number (there are 8 columns).");
}

TEST(ChooseColumns, AHeadingThatStandsTwiceNeedsItsNumber) {
  const ColumnChoice choice = choose({{id_column, "Id"}}, {"Id", "Id", "Sire", "Dam", "Sex", "Born"});
  ASSERT_EQ(choice.questions.size(), 1U);
  EXPECT_NE(words(choice.questions[0]).find("\"Id\" (column 1), \"Id\" (column 2)"), std::string::npos);
}

TEST(ChooseColumns, WithoutKnownHeadingsTheFirstLineIsAnAnimalAndAllIsAskedFor) {
  const ColumnChoice choice = choose({}, {"rex", "0", "0", "m", "2001"});
  EXPECT_FALSE(choice.has_header);
  EXPECT_EQ(choice.questions.size(), 6U);
  EXPECT_NE(words(choice.questions[0]).find("--header yes"), std::string::npos);
}

TEST(ChooseColumns, AHeadingThatTheUserNamesMakesAHeader) {
  EXPECT_TRUE(choose({{id_column, "Ki\xC5\x9Fi"}}, {"Ki\xC5\x9Fi", "Baba", "Anne"}).has_header);
}

}  // namespace
}  // namespace pedigreewatch::test
