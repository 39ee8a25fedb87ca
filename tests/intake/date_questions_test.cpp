// What is asked about dates and identifications, in the words of the console.

#include "intake/date_questions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/console_words.h"
#include "intake/id_matches.h"
#include "intake/id_questions.h"
#include "intake/short_years.h"

namespace pedigreewatch::test {
namespace {

struct Surveyed {
  ColumnChoice columns;
  ExportSurvey survey;
};

Surveyed surveyed(const std::string& text, const PrepareOptions& options) {
  RecordReader reader = read_records(text, ';');
  ExportRecord record;
  next_filled_record(reader, record);
  const std::vector<std::string> header(record.fields.begin(), record.fields.end());
  Surveyed result = {choose_columns(header, options), {}};
  ProgressLine unwatched;
  result.survey = survey_export(text, ';', result.columns, {}, unwatched);
  result.survey.dates.short_years = compare_short_years(text, ';', result.columns);
  result.survey.id_proposal = propose_id_rules({text, ';', result.columns, {}}, result.survey.links);
  return result;
}

std::vector<std::string> questions_on(const std::string& text, PrepareOptions options = {}, std::int32_t year = 2026) {
  options.this_year = year;
  const Surveyed herd = surveyed(text, options);
  const DatePlan plan =
      plan_dates(herd.survey.dates, {options.dates, options.serials, options.century, options.this_year});
  std::vector<std::string> texts;
  for (const Question& question : ask_for_dates(herd.survey, plan, herd.columns, options)) {
    texts.push_back(words_of(question, ToolLanguage::english));
  }
  for (const Question& question : ask_for_ids(herd.survey, herd.columns, options)) {
    texts.push_back(words_of(question, ToolLanguage::english));
  }
  return texts;
}

std::string herd_with_dates(const std::vector<std::string>& dates) {
  std::string text = "id;sire;dam;sex;born\n";
  for (std::size_t i = 0; i < dates.size(); ++i) text += "a" + std::to_string(i) + ";;;m;" + dates[i] + "\n";
  return text;
}

TEST(AskForDates, MoreThanOneInFiftyThatIsNoDate) {
  std::vector<std::string> dates(49, "31-12-2005");
  dates.emplace_back("31-o2-2005");
  EXPECT_TRUE(questions_on(herd_with_dates(dates)).empty()) << "1 of 50";
  dates.pop_back();
  dates.back() = "31-o2-2005";
  ASSERT_EQ(questions_on(herd_with_dates(dates)).size(), 1U) << "1 of 49";
  EXPECT_EQ(
      questions_on(herd_with_dates(dates))[0],
      "In \"born\" (column 5), taken as the date of birth, texts that are no date that can be read: 1 of 49: line 50 "
      "\"31-o2-2005\". Say which column holds the date of birth: --column birthdate=NUMBER, also if the one taken "
      "is right; those texts then stay as they are.");
  PrepareOptions options;
  options.columns = {{birthdate_column, "5"}};
  EXPECT_TRUE(questions_on(herd_with_dates(dates), options).empty());
}

TEST(AskForDates, NotOneDate) {
  const std::string question =
      "\"born\" (column 5), taken as the date of birth, holds not one date that can be read. Say which column holds the "
      "date of birth: --column birthdate=NUMBER, also if the one taken is right.";
  EXPECT_EQ(questions_on(herd_with_dates({"", "", "?"})), std::vector{question});
  PrepareOptions named;
  named.columns = {{birthdate_column, "5"}};
  EXPECT_TRUE(questions_on(herd_with_dates({"", "", "?"}), named).empty());
  EXPECT_TRUE(questions_on(herd_with_dates({"Rex", "2005"})).size() == 1) << "half of them are none";
  EXPECT_TRUE(questions_on(herd_with_dates({"2005", ""})).empty());
}

TEST(AskForDates, NoAnswerMakesTextsDates) {
  const std::string question =
      "In \"born\" (column 5), taken as the date of birth, not one of 2 texts is a date that can be read: line 2 \"Rex\", "
      "line 3 \"Saar\". Without dates nothing can be calculated. Choose another column (--column birthdate=NUMBER), or "
      "another order if one was said (--dates LAYOUT), or export the file anew with dates such as 2019-03-31.";
  EXPECT_EQ(questions_on(herd_with_dates({"Rex", "Saar"})), std::vector{question});
  PrepareOptions options;
  options.columns = {{birthdate_column, "5"}};
  EXPECT_EQ(questions_on(herd_with_dates({"Rex", "Saar"}), options), std::vector{question});
  options.dates = DateOrder::day_month_year;
  EXPECT_EQ(questions_on(herd_with_dates({"Rex", "Saar"}), options), std::vector{question});
}

TEST(AskForDates, AnOrderInWhichMostAreNoDate) {
  const auto in_order = [](DateOrder order, const std::vector<std::string>& dates) {
    PrepareOptions options;
    options.dates = order;
    options.century = 1925;
    return questions_on(herd_with_dates(dates), options).size();
  };
  EXPECT_EQ(in_order(DateOrder::month_day_year, {"31-12-2005", "01-02-2005"}), 0U) << "one of two";
  EXPECT_EQ(in_order(DateOrder::month_day_year, {"31-12-2005", "01-02-2005", "30-12-2005"}), 1U) << "two of three";
  EXPECT_EQ(in_order(DateOrder::day_month_year, {"31-12-2005", "01-02-2005", "30-12-2005"}), 0U);
  // As ddmmyyyy the first would be in the year 1231.
  EXPECT_EQ(in_order(DateOrder::compact_day_month_year, {"20051231", "20051130"}), 1U);
  EXPECT_EQ(in_order(DateOrder::compact_year_month_day, {"20051231", "20051130"}), 0U);
  EXPECT_EQ(in_order(DateOrder::month_day_year, {"31-12-05", "30-11-05"}), 1U);
  EXPECT_EQ(in_order(DateOrder::day_month_year, {"31-12-05", "30-11-05"}), 0U);
  EXPECT_EQ(in_order(DateOrder::year_month_day, {"25-12-33", "25-12-34"}), 1U);
}

TEST(AskForDates, WhatASpreadsheetShowsOfADateIsNamed) {
  const auto questions = questions_on(herd_with_dates({"31-12-2005", "########"}));
  ASSERT_EQ(questions.size(), 1U);
  EXPECT_NE(questions[0].find("line 3 \"########\""), std::string::npos);
}

TEST(AskForDates, TheHundredOfYearsOfTwoDigits) {
  const auto questions = questions_on(herd_with_dates({"31-12-98", "30-11-99"}));
  EXPECT_EQ(questions, std::vector<std::string>{
                           "Dates with a year of two digits: 2; parents and young do not tell which hundred years are "
                           "meant: line 2 \"31-12-98\", line 3 \"30-11-99\". Say the first year of the hundred: "
                           "--century 1927 if all are from 1927 to 2026."});
  std::string text = "id;sire;dam;sex;born\n";
  for (int i = 0; i < 14; ++i) {
    const std::string year = std::to_string(85 + i);
    text += "a" + year + ";" + (i < 2 ? "" : "a" + std::to_string(83 + i)) + ";;m;31-12-" + year + "\n";
  }
  EXPECT_TRUE(questions_on(text).empty()) << "parents and young tell it";
}

TEST(AskForDates, WhereNobodyKnowsTheYearOfTodayTheHundredYearsAreThoseFrom2000) {
  const auto questions = questions_on(herd_with_dates({"31-12-98", "30-11-99"}), {}, 0);
  ASSERT_EQ(questions.size(), 1U);
  EXPECT_NE(questions[0].find("--century 2000 if all are from 2000 to 2099."), std::string::npos) << questions[0];
}

TEST(AskForDates, FromWhichDaySpreadsheetsCount) {
  const auto questions = questions_on(herd_with_dates({"43536"}));
  EXPECT_EQ(questions,
            std::vector<std::string>{
                "Dates that are numbers of days, as a spreadsheet keeps them: 1; 43536 is 2019-03-12 where days are "
                "counted from 1900 (usual), and 2023-03-13 where they are counted from 1904 (older Macs). Look "
                "one animal up, and say --dates serial-1900 or --dates serial-1904."});
}

std::string herd_with_parents(const std::vector<std::string>& ids, const std::vector<std::string>& parents) {
  std::string text = "id;sire;dam;sex;born\n";
  for (const std::string& id : ids) text += id + ";;;m;31-12-2001\n";
  for (std::size_t i = 0; i < parents.size(); ++i) {
    text += "young" + std::to_string(i) + ";" + parents[i] + ";;m;31-12-2005\n";
  }
  return text;
}

TEST(AskForIds, ARuleThatGivesParentsALine) {
  const std::string text = herd_with_parents({"NL-12", "NL-13", "NL-14"}, {"NL 12", "NL 13", "NL 14"});
  EXPECT_EQ(
      questions_on(text),
      std::vector<std::string>{
          "Of 3 parents without a line of their own 3 would have one if ids were compared without blanks, hyphens, "
          "dots and slashes: line 5 \"NL 12\" -> \"NL-12\", line 6 \"NL 13\" -> \"NL-13\", line 7 \"NL 14\" -> "
          "\"NL-14\". Say --ids separators if they are the same animals, or --ids keep if not."});
  PrepareOptions options;
  options.ids = IdRules{};
  EXPECT_TRUE(questions_on(text, options).empty());
}

TEST(AskForIds, NumbersThatASpreadsheetHasDestroyed) {
  const std::string text = herd_with_parents({"528000000132884", "5,28000E+14"}, {"5,28000E+14"});
  EXPECT_EQ(
      questions_on(text),
      std::vector<std::string>{
          "In \"id\" (column 1), \"sire\" (column 2) a spreadsheet has destroyed identifications: it took them for "
          "numbers and kept only their first digits: 2: line 3 \"5,28000E+14\", line 4 \"5,28000E+14\". Export the "
          "file anew and do not open it in a spreadsheet in between, or format the column as text before the "
          "numbers are put in. To take them as they stand, so that different animals have one id: --ids keep."});
}

}  // namespace
}  // namespace pedigreewatch::test
