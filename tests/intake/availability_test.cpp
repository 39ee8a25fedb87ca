#include "intake/availability.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "intake/animal_lines.h"

namespace pedigreewatch::test {
namespace {

/// What is decided about an export with the columns id, sex and those of a test.
struct DecidedGone {
  ColumnChoice columns;
  AvailabilitySurvey survey;
  AvailabilityPlan plan;
  std::vector<Question> questions;
  std::vector<std::string> gone;  ///< ids
};

DecidedGone decide_availability(const std::string& text, PrepareOptions options = {}) {
  DecidedGone decided;
  RecordReader reader = read_records(text, ';');
  ExportRecord record;
  next_record(reader, record);
  const std::vector<std::string> words(record.fields.begin(), record.fields.end());
  options.this_year = 2026;
  decided.columns = choose_columns(words, options);
  decided.survey = survey_availability(text, ';', decided.columns, options);
  TextCounts sexes;
  RecordReader animals = read_animals(text, ';', decided.columns);
  while (next_animal(animals, record, decided.columns)) {
    count_text(sexes, trimmed(field_of(record, decided.columns, sex_column)), record.line);
  }
  decided.plan = plan_availability(decided.survey, sexes, decided.columns, options, decided.questions);
  animals = read_animals(text, ';', decided.columns);
  while (next_animal(animals, record, decided.columns)) {
    if (gone_by(decided.plan, record, decided.columns)) decided.gone.emplace_back(record.fields[0]);
  }
  return decided;
}

/// An export of so many animals 1, 2, ... of which the first have these texts in one further column, others none.
std::string export_of_column(const std::string& heading, const std::vector<std::string>& texts, int count = 60) {
  std::string text = "id;sex;" + heading + "\n";
  for (int k = 0; k < count; ++k) {
    const auto place = static_cast<std::size_t>(k);
    text += std::to_string(k + 1) + ";" + (k % 2 == 0 ? "m" : "f") + ";" + (place < texts.size() ? texts[place] : "") +
            "\n";
  }
  return text;
}

std::vector<std::string> repeated(int count, const std::string& text) {
  return std::vector<std::string>(static_cast<std::size_t>(count), text);
}

std::vector<std::string> joined_texts(std::vector<std::string> texts, const std::vector<std::string>& more) {
  texts.insert(texts.end(), more.begin(), more.end());
  return texts;
}

using GoneIds = std::vector<std::string>;

TEST(Availability, ADateOfDeathSaysWhoHasGone) {
  const DecidedGone decided =
      decide_availability(export_of_column("Date of death", {"12-3-2019", "", "2020", "31-12-9999"}));
  EXPECT_TRUE(decided.questions.empty());
  EXPECT_EQ(decided.gone, (GoneIds{"1", "3"}));
}

TEST(Availability, YesMeansWhatTheHeadingSays) {
  EXPECT_EQ(decide_availability(export_of_column("Castrated", {"yes", "no", "no", "yes"})).gone, (GoneIds{"1", "4"}));
  EXPECT_EQ(decide_availability(export_of_column("Alive", joined_texts({"no"}, repeated(59, "yes")))).gone,
            (GoneIds{"1"}));
  // A tick for those that are there, and nothing for the others.
  EXPECT_EQ(decide_availability(export_of_column("Breeding", repeated(58, "x"))).gone, (GoneIds{"59", "60"}));
  EXPECT_EQ(decide_availability(export_of_column("Breeding", joined_texts(repeated(58, "x"), {"-"}))).gone,
            (GoneIds{"59", "60"}));
  // Where no is said too, nothing says nothing.
  EXPECT_EQ(decide_availability(export_of_column("Breeding", joined_texts({"no"}, repeated(57, "yes")))).gone,
            (GoneIds{"1"}));
}

TEST(Availability, AStatusCountsWhereItsWordsAreKnown) {
  EXPECT_EQ(
      decide_availability(export_of_column("Status", joined_texts({"dead", "sold"}, repeated(58, "active")))).gone,
      (GoneIds{"1", "2"}));
  // A status of something else is not spoken of.
  const DecidedGone other = decide_availability(export_of_column("Status", repeated(60, "registered")));
  EXPECT_TRUE(other.questions.empty());
  EXPECT_FALSE(tells_gone(other.plan));
}

TEST(Availability, OneTextInFiftyMayBeOdd) {
  const DecidedGone used = decide_availability(
      export_of_column("Status", joined_texts({"odd"}, joined_texts({"dead"}, repeated(48, "alive")))));
  EXPECT_TRUE(used.questions.empty());
  EXPECT_EQ(used.gone, (GoneIds{"2"}));
  const DecidedGone asked = decide_availability(
      export_of_column("Status", joined_texts({"odd"}, joined_texts({"dead"}, repeated(47, "alive")))));
  ASSERT_EQ(asked.questions.size(), 1U);
  EXPECT_EQ(asked.questions[0].kind, QuestionKind::gone_unclear);
  EXPECT_EQ(asked.questions[0].answers[0].value, "odd");
}

TEST(Availability, IsAskedWhereHeadingAndTextsDoNotAgree) {
  const auto is_asked = [](const std::string& heading, const std::vector<std::string>& texts) {
    const DecidedGone decided = decide_availability(export_of_column(heading, texts));
    return decided.questions.size() == 1 && decided.questions[0].kind == QuestionKind::availability_unclear;
  };
  EXPECT_TRUE(is_asked("Sold", repeated(10, "Smith")));  // the buyers?
  EXPECT_TRUE(is_asked("XY", joined_texts(repeated(2, "dead"), repeated(18, "alive"))));
  EXPECT_FALSE(is_asked("XY", joined_texts(repeated(2, "dead"), repeated(17, "alive"))));  // too few to tell
  EXPECT_FALSE(is_asked("XY", repeated(40, "alive")));
  EXPECT_FALSE(is_asked("Breeding", repeated(40, "of Smith")));  // the word means something else
  EXPECT_FALSE(is_asked("Weight", repeated(40, "dead")));        // the heading says something else
}

TEST(Availability, WhereNobodyWouldBeLeftThatIsAsked) {
  const auto kinds = [](int count) {
    std::vector<QuestionKind> asked;
    for (const Question& question :
         decide_availability(export_of_column("Died", repeated(count, "12-3-2019"))).questions) {
      asked.push_back(question.kind);
    }
    return asked;
  };
  EXPECT_EQ(kinds(60), std::vector{QuestionKind::availability_all_gone});
  EXPECT_TRUE(kinds(59).empty());
}

/// The kind of the only question on a column of these texts; none where there is no question.
std::optional<QuestionKind> question_on(const std::string& heading, const std::vector<std::string>& texts,
                                        PrepareOptions options = {}) {
  const DecidedGone decided = decide_availability(export_of_column(heading, texts), std::move(options));
  return decided.questions.size() == 1 ? std::optional(decided.questions[0].kind) : std::nullopt;
}

std::vector<std::string> numbered(int count) {
  std::vector<std::string> texts;
  for (int k = 0; k < 60; ++k) texts.push_back("C" + std::to_string(k % count));
  return texts;
}

TEST(Availability, StatesOfFewTextsAreAskedAbout) {
  const std::vector<std::string> codes =
      joined_texts(repeated(30, "A"), joined_texts(repeated(20, "D"), repeated(10, "V")));
  EXPECT_EQ(question_on("Status", codes), QuestionKind::gone_unclear);
  EXPECT_EQ(question_on("Status", joined_texts(repeated(10, "D"), repeated(10, "V"))), QuestionKind::gone_unclear);
  EXPECT_EQ(question_on("Status", joined_texts(repeated(10, "D"), repeated(9, "V"))), std::nullopt)
      << "too few to tell";
  EXPECT_EQ(question_on("Status", numbered(12)), QuestionKind::gone_unclear);
  EXPECT_EQ(question_on("Status", numbered(13)), std::nullopt) << "too many to be states";
  EXPECT_EQ(question_on("Status", joined_texts(repeated(20, "A"), joined_texts(repeated(20, "B"), repeated(20, "C")))),
            std::nullopt)
      << "classes";
  EXPECT_EQ(question_on("Status", joined_texts(repeated(30, "B"), repeated(30, "C"))), QuestionKind::gone_unclear);
  PrepareOptions said;
  said.gone = {"D", "V"};
  said.present = {"all"};
  const DecidedGone decided = decide_availability(export_of_column("Status", codes), said);
  EXPECT_TRUE(decided.questions.empty());
  EXPECT_EQ(decided.gone.size(), 30U);
  said.gone.clear();
  const DecidedGone none = decide_availability(export_of_column("Status", codes), said);
  EXPECT_TRUE(none.questions.empty());
  EXPECT_FALSE(tells_gone(none.plan));
}

TEST(Availability, AnyReasonSaysThatAnAnimalHasGone) {
  const DecidedGone decided =
      decide_availability(export_of_column("Reden afvoer", {"mastitis", "", "-", "ouderdom", "nee"}));
  EXPECT_TRUE(decided.questions.empty());
  EXPECT_EQ(decided.gone, (GoneIds{"1", "4"}));
  EXPECT_EQ(question_on("Cause of death", repeated(60, "age")), QuestionKind::availability_all_gone);
}

TEST(Availability, APlaceCountsWhereAWordSaysGone) {
  const DecidedGone decided = decide_availability(export_of_column("Locatie", {"Stal 1", "Slachthuis", "Wei", "dood"}));
  EXPECT_TRUE(decided.questions.empty());
  EXPECT_EQ(decided.gone, (GoneIds{"2", "4"}));
  EXPECT_FALSE(tells_gone(decide_availability(export_of_column("Location", repeated(60, "Barn"))).plan));
}

TEST(Availability, AHeadingThatNobodyKnowsIsTriedByTwoThousandLines) {
  const auto questions = [](int before) {
    return decide_availability(export_of_column("XY", joined_texts(repeated(before, "alive"), {"dead"}), 2100))
        .questions.size();
  };
  EXPECT_EQ(questions(1999), 1U);
  EXPECT_EQ(questions(2000), 0U);
}

TEST(Availability, RemarksCountWhereTheySayNothingElse) {
  const DecidedGone decided = decide_availability(
      export_of_column("Remarks", {"sold to Smith", "her dam died", "nice", "overleden", "champion 2019"}));
  EXPECT_TRUE(decided.questions.empty());
  EXPECT_EQ(decided.gone, (GoneIds{"1", "4"}));
  const AvailabilityReading& reading = decided.plan.columns.front();
  EXPECT_TRUE(reading.not_counted.contains("her dam died"));
  EXPECT_FALSE(reading.not_counted.contains("nice"));
  EXPECT_FALSE(tells_gone(decide_availability(export_of_column("Remarks", {"nice", "her dam died"})).plan));
}

TEST(Availability, WhatTheUserSaysGoesFirst) {
  const std::string text = export_of_column("Status", {"A", "D", "dead", "A", "x y"}, 5);
  PrepareOptions options;
  options.availability = {.is_given = true, .leaves_out = false, .names = {"Status"}};
  const DecidedGone open = decide_availability(text, options);
  ASSERT_EQ(open.questions.size(), 1U);
  EXPECT_EQ(open.questions[0].kind, QuestionKind::gone_unclear);
  EXPECT_EQ(open.questions[0].answers.size(), 4U);  // A, D, x y, and all others are there
  options.gone = {"d"};
  options.present = {"all"};
  const DecidedGone told = decide_availability(text, options);
  EXPECT_TRUE(told.questions.empty());
  EXPECT_EQ(told.gone, (GoneIds{"2", "3"}));
  options.present = {"dead", "A"};
  options.gone = {"all"};
  EXPECT_EQ(decide_availability(text, options).gone, (GoneIds{"2", "5"}));
  options.availability = {.is_given = true, .leaves_out = true, .names = {}};
  EXPECT_FALSE(tells_gone(decide_availability(text, options).plan));
}

TEST(Availability, AColumnOfAnUnknownHeadingThatIsNamedSaysWhoHasGone) {
  PrepareOptions options;
  options.availability = {.is_given = true, .leaves_out = false, .names = {"XY"}};
  EXPECT_EQ(decide_availability(export_of_column("XY", {"12-3-2019", "", "yes", "no"}), options).gone,
            (GoneIds{"1", "3"}));
  options.availability.names = {"Nothing"};
  const DecidedGone missing = decide_availability(export_of_column("XY", {"dead"}), options);
  ASSERT_EQ(missing.questions.size(), 1U);
  EXPECT_EQ(missing.questions[0].kind, QuestionKind::no_such_availability);
}

TEST(Availability, CastratedMalesHaveGoneWithoutAnyColumn) {
  const std::string text = "id;sex\na;Ram\nb;Wether\nc;Ewe\n";
  EXPECT_EQ(decide_availability(text).gone, (GoneIds{"b"}));
  PrepareOptions options;
  options.present = {"wether"};
  EXPECT_FALSE(tells_gone(decide_availability(text, options).plan));
}

TEST(Availability, WhatSaysThatAnAnimalHasGoneIsKeptOnce) {
  ColumnChoice columns;
  columns.has_header = true;
  columns.headings = {"id", "Died"};
  AvailableIds ids = {.ids = {}, .gone = {}, .keeps_reasons = true};
  for (const char* const id : {"a", "b"}) add_gone(ids, id, {1, "12-03-2021"}, columns);
  add_gone(ids, "c", {1, ""}, columns);
  EXPECT_EQ(ids.gone, (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(ids.reasons, (std::vector<std::string>{"Died: 12-03-2021", "Died"}));
  EXPECT_EQ(ids.reason_of_gone, (std::vector<std::int32_t>{0, 0, 1}));
}

TEST(Availability, AnAnimalThatHasGoneByOneLineIsNotInTheList) {
  AvailableIds ids = {{"a", "b", "", "a", "c"}, {"a"}};
  EXPECT_EQ(text_of_available(ids), "b\nc\n");
  EXPECT_EQ(ids.ids.size(), 2U);
}

}  // namespace
}  // namespace pedigreewatch::test
