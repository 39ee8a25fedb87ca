// Titles and "sep=" above the header, and headers that are told by what stands below them.

#include "intake/table_start.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "intake/delimiter_recognition.h"

namespace pedigreewatch::test {
namespace {

constexpr const char* animals =
    "rex;;;M;14-03-1990\n"
    "saar;;;F;15-03-1990\n"
    "bram;rex;saar;M;16-03-1993\n"
    "tess;rex;saar;F;17-03-1993\n"
    "puck;bram;tess;M;18-03-1996\n"
    "ties;bram;tess;F;19-03-1996\n"
    "bas;bram;tess;M;20-03-1997\n"
    "does;bram;tess;F;21-03-1997\n";

TEST(FindTableStart, TheFirstLineWhereNothingStandsAbove) {
  const TableStart start = find_table_start(std::string("ID;Sire;Dam;Sex;Born\n") + animals, ';');
  EXPECT_EQ(start.begin, 0U);
  EXPECT_EQ(start.line, 1);
  EXPECT_EQ(start.above.count, 0);
}

TEST(FindTableStart, BehindTitlesAndBlankLines) {
  const std::string above = "Herd book, all animals\n\nPrinted;1-2-2020\n";
  const TableStart start = find_table_start(above + "ID;Sire;Dam;Sex;Born\n" + animals, ';');
  EXPECT_EQ(start.begin, above.size());
  EXPECT_EQ(start.line, 4);
  ASSERT_EQ(start.above.count, 2);
  EXPECT_EQ(start.above.first[0].text, "Herd book, all animals");
  EXPECT_EQ(start.above.first[1].line, 3);
}

TEST(FindTableStart, BehindLettersOrNumbersOfTheColumns) {
  for (const std::string above : {"A;B;C;D;E\n", "1;2;3;4;5\n", "Title\nF1;F2;F3;F4;F5\n"}) {
    EXPECT_EQ(find_table_start(above + "ID;Sire;Dam;Sex;Born\n" + animals, ';').begin, above.size()) << above;
  }
  EXPECT_EQ(find_table_start(std::string("A;B;C;D;X\nID;Sire;Dam;Sex;Born\n") + animals, ';').begin, 0U);
}

TEST(FindTableStart, BehindATitleOverHeadingsThatNobodyKnows) {
  const TableStart start = find_table_start(std::string("Our animals;;;;\nAA;BB;CC;DD;EE\n") + animals, ';');
  EXPECT_EQ(start.line, 2);
}

TEST(FindTableStart, ATitleFillsTwoFieldsAtMost) {
  const std::string table = "AA;BB;CC;DD;EE\nrex;x;y;z;1\n";
  EXPECT_EQ(find_table_start("Our;animals;;;\n" + table, ';').line, 2);
  EXPECT_EQ(find_table_start("Our;fine;animals;;\n" + table, ';').line, 1);
}

TEST(FindTableStart, AFounderWithFewFieldsIsNoTitle) {
  EXPECT_EQ(find_table_start("rex;;\nsaar;;\nbram;rex;saar\n", ';').line, 1);
}

TEST(FindTableStart, AnAnimalWithTextsLikeHeadingsLeavesNoneOut) {
  // "Id" and "Nr" are headings, and names.
  const std::string text = std::string("rex;;bram;M;14-03-1990\nId;Nr;Sire;F;15-03-1990\n") + animals;
  EXPECT_EQ(find_table_start(text, ';').line, 1);
  EXPECT_EQ(find_table_start("rex;;;M;1990\nID;Sire;Dam;Sex;Born\n", ';').line, 2);       // three fields above
  EXPECT_EQ(find_table_start("a;b;c;d;\nID;Sire;Dam;Sex;Born;Coat;x;y\n", ';').line, 2);  // four, and eight
  EXPECT_EQ(find_table_start("a;b;c;d;\nID;Sire;Dam;Sex;Born;Coat;x\n", ';').line, 1);
}

TEST(FindTableStart, WithoutAHeaderOnlyLinesOfFewerColumnsStandAbove) {
  const std::string text = std::string("Herd book\nPrinted;1-2-2020\nsaar;;;;\nID;Sire;Dam;Sex;Born\n") + animals;
  EXPECT_EQ(find_table_start(text, ';').line, 4);
  const TableStart start = find_table_start(text, ';', false);
  EXPECT_EQ(start.line, 3);
  EXPECT_EQ(start.above.count, 2);
  EXPECT_EQ(find_table_start("one;;\ntwo;;\n", ';', false).line, 1);
}

TEST(DelimiterTold, OnlyByALineOfItsOwn) {
  EXPECT_EQ(delimiter_told("sep=;\nID;Sire\n"), ';');
  EXPECT_EQ(delimiter_told("\xEF\xBB\xBFSEP=,\r\nID,Sire\r\n"), ',');
  EXPECT_EQ(delimiter_told("\"sep=;\"\nID;Sire\n"), ';');
  EXPECT_EQ(delimiter_told("sep=;x\n"), std::nullopt);
  EXPECT_EQ(delimiter_told("sepa;rate\n"), std::nullopt);
  EXPECT_EQ(delimiter_told("sep="), std::nullopt);
}

TEST(RecogniseDelimiter, AToldOneGoesBeforeOthersThatFit) {
  EXPECT_EQ(recognise_delimiter("sep=,\n1;2,3;4\n1;2,3;4\n1;2,3;4\n1;2,3;4\n").delimiter, ',');
}

TEST(RecogniseDelimiter, DecimalCommasDoNotDivide) {
  std::string text = "aa;bb;cc;dd;ee\n";
  for (int i = 0; i < 50; ++i) text += "x" + std::to_string(i) + ";y;z;m;41,5\n";
  EXPECT_EQ(recognise_delimiter(text).delimiter, ';');
}

TEST(LookAtFirstRecord, AHeaderIsWrittenUnlikeTheRest) {
  const std::string with_header = std::string("AA;BB;CC;DD;EE\n") + animals;
  EXPECT_EQ(look_at_first_record(with_header, ';', {}), FirstRecord::header);
  EXPECT_EQ(look_at_first_record(animals, ';', {}), FirstRecord::animal);
  EXPECT_EQ(look_at_first_record("AA;BB\nx;y\n", ';', {}), FirstRecord::unclear);
}

TEST(FindTableStart, ThirtyLinesMayStandAbove) {
  const auto line_behind = [](int titles) {
    std::string text;
    for (int i = 0; i < titles; ++i) text += "A title\n";
    return find_table_start(text + "ID;Sire;Dam;Sex;Born\n" + animals, ';').line;
  };
  EXPECT_EQ(line_behind(30), 31);
  EXPECT_EQ(line_behind(31), 1);
}

/// A first record above these lines, of two columns each.
FirstRecord first_above(const std::string& first, const std::vector<std::string>& lines) {
  std::string text = first + "\n";
  for (const std::string& line : lines) text += line + "\n";
  return look_at_first_record(text, ';', {});
}

TEST(LookAtFirstRecord, FiveTextsBelowAreEnough) {
  EXPECT_EQ(first_above("x;y", std::vector<std::string>(5, "a;b")), FirstRecord::header);
  EXPECT_EQ(first_above("x;y", std::vector<std::string>(4, "a;b")), FirstRecord::unclear);
}

TEST(LookAtFirstRecord, EightWordsMayBeThoseOfASex) {
  const auto with_words = [](int words, int lines) {
    std::vector<std::string> below;
    for (int i = 0; i < lines; ++i) {
      const std::string word(1, static_cast<char>('a' + i % words));
      below.push_back(word + ";" + word);
    }
    return first_above("a;a", below);
  };
  EXPECT_EQ(with_words(8, 24), FirstRecord::animal);
  EXPECT_EQ(with_words(8, 23), FirstRecord::unclear) << "they come back less than three times";
  EXPECT_EQ(with_words(9, 90), FirstRecord::unclear);
}

TEST(LookAtFirstRecord, FiveHundredRecordsAreCompared) {
  // Words that stand far below first are those of no animal above.
  std::vector<std::string> lines(600, "a;b");
  lines[499] = "x;y";
  EXPECT_EQ(first_above("x;y", lines), FirstRecord::animal);
  std::swap(lines[499], lines[500]);
  EXPECT_EQ(first_above("x;y", lines), FirstRecord::header);
}

TEST(FindTableStart, ATableOfFourColumnsHasNoTitle) {
  EXPECT_EQ(find_table_start("Our animals;;;;\nAA;BB;CC;DD;EE\nrex;x;y;z;1\n", ';').line, 2);
  EXPECT_EQ(find_table_start("Our animals;;;\nAA;BB;CC;DD\nrex;x;y;z\n", ';').line, 1);
}

}  // namespace
}  // namespace pedigreewatch::test
