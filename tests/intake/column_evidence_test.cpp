// What a question tells of the columns that may be meant.

#include "intake/column_evidence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace pedigreewatch {
namespace {

/// Columns whose headings say nothing: ids, names of few letters, fathers, mothers, sexes, dates.
struct Herd {
  std::string text = "A;B;C;D;E;F\n";
  ColumnChoice columns;
  ColumnContents contents;
};

Herd herd_of(int count) {
  Herd herd;
  for (int k = 0; k < count; ++k) {
    const std::string sire = k < 20 ? "" : "x" + std::to_string(k / 10),
                      dam = k < 20 ? "" : "x" + std::to_string(k / 5);
    herd.text += "x" + std::to_string(k) + ";n" + std::to_string(k % 50) + ";" + sire + ";" + dam + ";" +
                 (k % 2 == 0 ? "o" : "p") + ";" + std::to_string(1 + k % 28) + "-1-2001\n";
  }
  herd.columns.has_header = true;
  herd.columns.headings = {"A", "B", "C", "D", "E", "F"};
  herd.contents = {herd.text, ';', profile_columns(herd.text, ';', herd.columns)};
  return herd;
}

std::vector<std::string> candidates(FieldCode code, const Herd& herd) {
  std::vector<std::string> headings;
  for (const ColumnEvidence& column : list_candidates(code, herd.contents, herd.columns).columns) {
    headings.push_back(column.heading);
  }
  return headings;
}

TEST(ListCandidates, ByWhatStandsInTheColumns) {
  const Herd herd = herd_of(200);
  EXPECT_EQ(candidates(id_column, herd), std::vector<std::string>{"A"});
  EXPECT_EQ(candidates(dam_column, herd), (std::vector<std::string>{"D", "C"})) << "more different ones first";
  EXPECT_EQ(candidates(sex_column, herd), std::vector<std::string>{"E"});
  EXPECT_EQ(candidates(birthdate_column, herd), std::vector<std::string>{"F"});
}

TEST(ListCandidates, TellsCountsAndExamples) {
  const Herd herd = herd_of(200);
  const ColumnEvidenceList ids = list_candidates(id_column, herd.contents, herd.columns);
  const ColumnEvidence& id = ids.columns.at(0);
  EXPECT_EQ(id.number, 1U);
  EXPECT_EQ(id.texts, 200);
  EXPECT_EQ(id.different, 200);
  EXPECT_EQ(id.dates, 0);
  EXPECT_EQ(id.examples, (std::vector<std::string>{"x0", "x1", "x2"}));
  ASSERT_EQ(id.links.size(), 2U);
  EXPECT_EQ(id.links[0].heading, "D");
  EXPECT_EQ(id.links[0].found, 36);  // x4 to x39
  EXPECT_EQ(id.links[0].of, 36);
  const ColumnEvidenceList dates = list_candidates(birthdate_column, herd.contents, herd.columns);
  EXPECT_EQ(dates.columns.at(0).dates, 200);
  EXPECT_EQ(dates.columns.at(0).judged, 200);
}

TEST(ListCandidates, AColumnThatHasAFieldIsNone) {
  Herd herd = herd_of(200);
  herd.columns.place[dam_column] = 3;
  EXPECT_EQ(candidates(sire_column, herd), std::vector<std::string>{"C"});
}

TEST(ListCandidates, OfIdsNineInTenDiffer) {
  const auto is_id = [](int different) {
    std::string text = "A;B\n";
    for (int k = 0; k < 100; ++k) text += "x" + std::to_string(k < different ? k : 0) + ";same\n";
    ColumnChoice columns;
    columns.has_header = true;
    columns.headings = {"A", "B"};
    const ColumnContents contents = {text, ';', profile_columns(text, ';', columns)};
    return list_candidates(id_column, contents, columns).columns.size() == 1;  // else all are listed
  };
  EXPECT_TRUE(is_id(90));
  EXPECT_FALSE(is_id(89));
}

TEST(ListCandidates, WhereNoneFitsTheFirstOnesOfAll) {
  std::string text = "A;B;C;D;E;F;G\n";
  for (int k = 0; k < 30; ++k) text += "1;1;1;1;1;1;1\n";
  ColumnChoice columns;
  columns.has_header = true;
  columns.headings = {"A", "B", "C", "D", "E", "F", "G"};
  const ColumnContents contents = {text, ';', profile_columns(text, ';', columns)};
  const ColumnEvidenceList list = list_candidates(sex_column, contents, columns);
  EXPECT_EQ(list.columns.size(), 5U);
  EXPECT_EQ(list.more, 2U);
}

/// A column of these texts, one a line, and a second one that is "same" on each of them.
struct TwoColumns {
  std::string text = "A;B\n";
  ColumnChoice columns;
  ColumnContents contents;

  explicit TwoColumns(const std::vector<std::string>& texts) {
    for (const std::string& each : texts) text += each + ";same\n";
    columns.has_header = true;
    columns.headings = {"A", "B"};
    contents = {text, ';', profile_columns(text, ';', columns)};
  }
  /// Whether the first one is a candidate by what it holds; else both are listed.
  bool is_candidate(FieldCode code) const {
    const ColumnEvidenceList list = list_candidates(code, contents, columns);
    return list.columns.size() == 1 && list.columns[0].heading == "A";
  }
};

TEST(ListCandidates, OneTextInTenIsADate) {
  const auto with_dates = [](std::size_t dates, std::size_t texts) {
    std::vector<std::string> column(texts, "none yet");
    std::fill_n(column.begin(), dates, "14-3-2001");
    return TwoColumns(column).is_candidate(birthdate_column);
  };
  EXPECT_TRUE(with_dates(10, 100));
  EXPECT_FALSE(with_dates(10, 101));
  EXPECT_FALSE(with_dates(9, 99)) << "one in eleven";
}

TEST(ListCandidates, SexesAreFewWordsThatComeBack) {
  const auto with_words = [](std::size_t words, std::size_t texts) {
    std::vector<std::string> column;
    for (std::size_t k = 0; k < texts; ++k) column.push_back("word" + std::to_string(k % words));
    return TwoColumns(column).is_candidate(sex_column);
  };
  EXPECT_TRUE(with_words(2, 20)) << "each of them ten times";
  EXPECT_FALSE(with_words(2, 19));
  EXPECT_TRUE(with_words(12, 120));
  EXPECT_FALSE(with_words(13, 200));
}

TEST(ListCandidates, NamesThreeColumnsThatAnIdIsLinkedWith) {
  std::string text = "A;B;C;D;E\n";
  for (int k = 0; k < 60; ++k) {
    const auto id = [](int number) { return "x" + std::to_string(number); };
    text += id(k) + ";" + id(k % 6) + ";" + id(k % 7) + ";" + id(k % 8) + ";" + id(k % 9) + "\n";
  }
  ColumnChoice columns;
  columns.has_header = true;
  columns.headings = {"A", "B", "C", "D", "E"};
  const ColumnContents contents = {text, ';', profile_columns(text, ';', columns)};
  const ColumnEvidenceList list = list_candidates(id_column, contents, columns);
  ASSERT_EQ(list.columns.size(), 1U);
  ASSERT_EQ(list.columns[0].links.size(), 3U) << "of four";
  EXPECT_EQ(list.columns[0].links[0].heading, "E");
  EXPECT_EQ(list.columns[0].links[2].heading, "C");
}

}  // namespace
}  // namespace pedigreewatch
