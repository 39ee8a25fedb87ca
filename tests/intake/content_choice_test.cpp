// Columns are found by what stands in them where headings leave them open.

#include "intake/content_choice.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "intake/animal_lines.h"

namespace pedigreewatch::test {
namespace {

/// One export, written column by column: 10 fathers, 10 mothers and 40 young.
struct Herd {
  std::vector<std::string> headings;
  std::vector<std::vector<std::string>> rows;
};

std::string tag(int number) {
  return "NL" + std::to_string(100 + number);
}

/// The cells: tag, name, tag of the father, of the mother, sex, date of birth, and a second date a year later.
Herd herd_with(std::vector<std::string> headings) {
  Herd herd = {std::move(headings), {}};
  for (int i = 0; i < 60; ++i) {
    const bool is_young = i >= 20, is_male = i % 2 == 0;
    const int sire = 2 * (i % 10), dam = 2 * (i % 10) + 1;
    const std::string date = std::to_string(1 + i % 28) + "-3-";
    herd.rows.push_back({tag(i), "Name " + std::to_string(i), is_young ? tag(sire) : "", is_young ? tag(dam) : "",
                         is_male ? "Ram" : "Ewe", date + (is_young ? "2003" : "2001"), is_young ? "x" : "y"});
  }
  return herd;
}

ColumnChoice choose_in(const Herd& herd, const PrepareOptions& options = {}) {
  std::string text;
  for (const std::string& heading : herd.headings) text += (text.empty() ? "" : ";") + heading;
  text += '\n';
  for (const auto& row : herd.rows) {
    for (std::size_t k = 0; k < row.size(); ++k) text += (k > 0 ? ";" : "") + row[k];
    text += '\n';
  }
  const ColumnChoice by_heading = choose_columns(herd.headings, options, FirstRecord::header);
  const ColumnContents contents = {text, ';', profile_columns(text, ';', by_heading)};
  return choose_columns(herd.headings, options, FirstRecord::header, &contents);
}

using Place = std::optional<std::size_t>;

TEST(NarrowByContent, FindsAllFiveUnderHeadingsThatNobodyKnows) {
  const ColumnChoice choice = choose_in(herd_with({"Q1", "Name", "Q2", "Q3", "Q4", "Q5", "Q6"}));
  EXPECT_TRUE(choice.questions.empty());
  EXPECT_EQ(choice.place[id_column], Place(0));
  EXPECT_EQ(choice.place[sire_column], Place(2));
  EXPECT_EQ(choice.place[dam_column], Place(3));
  EXPECT_EQ(choice.place[sex_column], Place(4));
  EXPECT_EQ(choice.place[birthdate_column], Place(5));
  EXPECT_TRUE(choice.is_by_content[id_column]);
  EXPECT_FALSE(choice.is_by_content[name_column]);
}

TEST(NarrowByContent, TheTagThatHoldsTheParentsGoesBeforeARunningNumber) {
  Herd herd = herd_with({"Ear tag", "Name", "Sire", "Dam", "Sex", "Born", "No"});
  for (std::size_t i = 0; i < herd.rows.size(); ++i) herd.rows[i][6] = std::to_string(5000 + i);
  const ColumnChoice choice = choose_in(herd);
  EXPECT_TRUE(choice.questions.empty());
  EXPECT_EQ(choice.place[id_column], Place(0));
}

TEST(NarrowByContent, ParentsOfBothSexesAreNoColumnOfFathers) {
  Herd herd = herd_with({"Q1", "Name", "Q2", "Dam", "Sex", "Born", "Q6"});
  for (std::size_t i = 20; i < herd.rows.size(); ++i) herd.rows[i][2] = tag(static_cast<int>(i) % 20);
  const ColumnChoice choice = choose_in(herd);
  EXPECT_FALSE(choice.place[sire_column].has_value());
}

TEST(NarrowByContent, LettersThatDifferFromHerdbookToHerdbookTellNoParents) {
  Herd herd = herd_with({"Q1", "Name", "Q2", "Q3", "Sex", "Born", "Q6"});
  for (auto& row : herd.rows) row[4] = row[4] == "Ram" ? "M" : "F";
  EXPECT_EQ(choose_in(herd).place[sire_column], Place(2));
  for (auto& row : herd.rows) row[4] = row[4] == "M" ? "V" : "M";  // vader, moeder
  EXPECT_FALSE(choose_in(herd).place[sire_column].has_value());
}

TEST(NarrowByContent, TwoColumnsThatFitAreAskedFor) {
  Herd herd = herd_with({"Q1", "Name", "Q2", "Q3", "Sex", "Q5", "Q6"});
  for (auto& row : herd.rows) row[6] = row[5];
  const ColumnChoice dates = choose_in(herd);
  EXPECT_FALSE(dates.place[birthdate_column].has_value());
  EXPECT_EQ(dates.questions.front().kind, QuestionKind::columns_alike);
  for (auto& row : herd.rows) row[6] = row[2];
  const ColumnChoice sires = choose_in(herd);
  EXPECT_FALSE(sires.place[sire_column].has_value());
  EXPECT_EQ(sires.place[dam_column], Place(3));
}

TEST(NarrowByContent, ADateOfSomethingElseIsNoDateOfBirth) {
  EXPECT_FALSE(choose_in(herd_with({"ID", "Name", "Sire", "Dam", "Sex", "Died", "Q"})).place[birthdate_column]);
  EXPECT_EQ(choose_in(herd_with({"ID", "Name", "Sire", "Dam", "Sex", "Day", "Q"})).place[birthdate_column], Place(5));
}

TEST(NarrowByContent, AYearOfBirthIsTakenWhereNoDateIs) {
  const auto place_of_birth = [](const std::string& heading, const std::string& other, int odd_years,
                                 const std::string& odd = "spring") {
    Herd herd = herd_with({"Ear tag", "Name", "Sire", "Dam", "Sex", heading, other});
    for (std::size_t i = 0; i < herd.rows.size(); ++i) {
      herd.rows[i][6] = herd.rows[i][5];
      herd.rows[i][5] = static_cast<int>(i) < odd_years ? odd : herd.rows[i][5].substr(herd.rows[i][5].size() - 4);
      if (other.empty()) herd.rows[i][6] = "x";
    }
    return choose_in(herd).place[birthdate_column];
  };
  for (const char* const heading : {"Jg.", "Jahrgang", "JG"}) EXPECT_EQ(place_of_birth(heading, "", 0), Place(5));
  EXPECT_EQ(place_of_birth("Jahr", "", 0), std::nullopt) << "of what";
  EXPECT_EQ(place_of_birth("Jg.", "", 3), Place(5)) << "one in twenty";
  EXPECT_EQ(place_of_birth("Jg.", "", 4), std::nullopt);
  EXPECT_EQ(place_of_birth("Jg.", "", 4, "1800"), Place(5));
  EXPECT_EQ(place_of_birth("Jg.", "", 4, "2199"), Place(5));
  EXPECT_EQ(place_of_birth("Jg.", "", 4, "1799"), std::nullopt);
  EXPECT_EQ(place_of_birth("Jg.", "", 4, "2200"), std::nullopt);
  EXPECT_EQ(place_of_birth("Jg.", "Wurfdatum", 0), Place(6));
  EXPECT_EQ(place_of_birth("Jg.", "Q", 0), Place(6)) << "whole dates under a heading that nobody knows";
  EXPECT_EQ(place_of_birth("Geburtsjahr", "Geburtsdatum", 0), Place(6));
}

TEST(NarrowByContent, NamesUnderTheHeadingsOfParentsLeaveItOpen) {
  Herd herd = herd_with({"ID", "Name", "Q2", "Q3", "Sex", "Born", "Sire"});
  for (std::size_t i = 20; i < herd.rows.size(); ++i) herd.rows[i][6] = "Name " + std::to_string(2 * (i % 10));
  const ColumnChoice choice = choose_in(herd);
  EXPECT_EQ(choice.place[sire_column], Place(6));  // asked for once the parents are seen to lack lines
  EXPECT_EQ(choice.place[id_column], Place(0));
}

TEST(NarrowByContent, WhatTheUserSaysStays) {
  PrepareOptions options;
  options.columns = {{sire_column, "Q3"}, {dam_column, "Q2"}};
  const ColumnChoice choice = choose_in(herd_with({"ID", "Name", "Q2", "Q3", "Sex", "Born", "Q6"}), options);
  EXPECT_EQ(choice.place[sire_column], Place(3));
  EXPECT_EQ(choice.place[dam_column], Place(2));
}

/// The dates of `count` rows are spoilt.
bool is_birth_found_with(std::size_t count, const std::string& text) {
  Herd herd = herd_with({"ID", "Name", "Sire", "Dam", "Sex", "Q5", "Q6"});
  for (std::size_t i = 0; i < count; ++i) herd.rows[i][5] = text;
  return choose_in(herd).place[birthdate_column].has_value();
}

TEST(NarrowByContent, OneTextInTwentyMayBeNoDate) {
  EXPECT_TRUE(is_birth_found_with(3, "spring"));   // 3 of 60
  EXPECT_FALSE(is_birth_found_with(4, "spring"));  // 4 of 60
}

TEST(NarrowByContent, OneTextInFiftyMayBeNoSex) {
  Herd herd = herd_with({"ID", "Name", "Sire", "Dam", "Q4", "Born", "Q6"});
  herd.rows[0][4] = "ill";
  EXPECT_EQ(choose_in(herd).place[sex_column], Place(4));
  herd.rows[1][4] = "ill";
  EXPECT_FALSE(choose_in(herd).place[sex_column].has_value());
}

TEST(NarrowByContent, OneIdInFiftyMayStandTwice) {
  Herd herd = herd_with({"Q1", "Name", "Sire", "Dam", "Sex", "Born", "Q6"});
  herd.rows[59][0] = herd.rows[58][0];
  EXPECT_EQ(choose_in(herd).place[id_column], Place(0));
  herd.rows[57][0] = herd.rows[58][0];
  EXPECT_FALSE(choose_in(herd).place[id_column].has_value());
}

/// Only the first `count` texts of a column of sixty are there.
std::optional<std::size_t> place_with(std::size_t count, std::size_t column, FieldCode code) {
  Herd herd = herd_with({"ID", "Name", "Sire", "Dam", "Sex", "Born", "Q6"});
  herd.headings[column] = "Q";
  for (std::size_t i = count; i < herd.rows.size(); ++i) herd.rows[i][column].clear();
  return choose_in(herd).place[static_cast<std::size_t>(code)];
}

TEST(NarrowByContent, FewerThanTwentyTextsTellNoColumn) {
  EXPECT_EQ(place_with(20, 0, id_column), Place(0));
  EXPECT_EQ(place_with(19, 0, id_column), std::nullopt);
  EXPECT_EQ(place_with(20, 4, sex_column), Place(4));
  EXPECT_EQ(place_with(19, 4, sex_column), std::nullopt);
  EXPECT_EQ(place_with(20, 5, birthdate_column), Place(5));
  EXPECT_EQ(place_with(19, 5, birthdate_column), std::nullopt);
}

/// Only `count` texts of a column are there, of which the last `odd` ones are this text instead.
std::optional<std::size_t> place_among(std::size_t count, std::size_t column, FieldCode code, const std::string& odd,
                                       std::size_t odd_count = 1) {
  Herd herd = herd_with({"ID", "Name", "Sire", "Dam", "Sex", "Born", "Q6"});
  herd.headings[column] = "Q";
  for (std::size_t i = 0; i < herd.rows.size(); ++i) {
    if (i >= count) herd.rows[i][column].clear();
    if (i < count && i + odd_count >= count) herd.rows[i][column] = odd;
  }
  return choose_in(herd).place[static_cast<std::size_t>(code)];
}

TEST(NarrowByContent, OneOddTextInFiftyOrTwentyAndNoMore) {
  EXPECT_EQ(place_among(50, 4, sex_column, "ill"), Place(4));
  EXPECT_EQ(place_among(49, 4, sex_column, "ill"), std::nullopt);
  EXPECT_EQ(place_among(50, 0, id_column, tag(0)), Place(0));
  EXPECT_EQ(place_among(49, 0, id_column, tag(0)), std::nullopt);
  EXPECT_EQ(place_among(40, 5, birthdate_column, "spring", 2), Place(5));
  EXPECT_EQ(place_among(39, 5, birthdate_column, "spring", 2), std::nullopt);
}

TEST(NarrowByContent, OneFatherInTwentyMayBeAFemale) {
  // Twenty rams and twenty ewes in turn, and forty young: of so many of the rams, and one of an ewe.
  const auto place_with_rams = [](int rams) {
    Herd herd = {{"Q1", "Name", "Q2", "Dam", "Sex", "Born", "Q6"}, {}};
    for (int i = 0; i < 80; ++i) {
      const int sire = i == 40 ? 1 : 2 * (i % rams), dam = 2 * (i % 20) + 1;
      const bool is_young = i >= 40;
      herd.rows.push_back({tag(i), "Name", is_young ? tag(sire) : "", is_young ? tag(dam) : "",
                           i % 2 == 0 ? "Ram" : "Ewe", is_young ? "1-3-2003" : "1-3-2001", "x"});
    }
    return choose_in(herd).place[sire_column];
  };
  EXPECT_EQ(place_with_rams(19), Place(2));
  EXPECT_EQ(place_with_rams(18), std::nullopt);
}

}  // namespace
}  // namespace pedigreewatch::test
