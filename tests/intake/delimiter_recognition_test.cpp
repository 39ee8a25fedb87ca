#include "intake/delimiter_recognition.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch::test {
namespace {

TEST(RecogniseDelimiter, TheOneThatGivesAllLinesTheSameColumns) {
  EXPECT_EQ(recognise_delimiter("id;sire;dam\n1;2;3\n4;5;6\n").delimiter, ';');
  EXPECT_EQ(recognise_delimiter("id,sire,dam\n1,2,3\n").delimiter, ',');
  EXPECT_EQ(recognise_delimiter("id\tsire\n1\t2\n").delimiter, '\t');
  EXPECT_EQ(recognise_delimiter("id|sire\n1|2\n").delimiter, '|');
}

TEST(RecogniseDelimiter, DelimitersInsideQuotesDoNotCount) {
  EXPECT_EQ(recognise_delimiter("\"id\",\"name\"\n1,\"a;b;c\"\n2,\"d;e;f\"\n3,\"g;h;i\"\n").delimiter, ',');
}

TEST(RecogniseDelimiter, KnownHeadingsDecideAmongSeveral) {
  // Every line has a decimal comma.
  EXPECT_EQ(recognise_delimiter("id;sire;weight, kg\n1;2;3,5\n4;5;6,5\n").delimiter, ';');
}

TEST(RecogniseDelimiter, TwoThatFitAlikeAreNotDecided) {
  const DelimiterChoice choice = recognise_delimiter("a;1,5\nb;2,5\n");
  EXPECT_FALSE(choice.delimiter.has_value());
  EXPECT_EQ(choice.evidence[0].field_count, 2U);
  EXPECT_EQ(choice.evidence[1].agreeing_count, 2);
}

TEST(RecogniseDelimiter, OneColumnHasNone) {
  EXPECT_FALSE(recognise_delimiter("id\n1\n2\n").delimiter.has_value());
  EXPECT_FALSE(recognise_delimiter("").delimiter.has_value());
}

TEST(RecogniseDelimiter, AFewLinesMayBeTornBlankOnesDoNotCount) {
  EXPECT_EQ(recognise_delimiter("id;sire\n1;2\n\n3;4\n\n5;6\n7\n8;9\n").delimiter, ';');
}

TEST(DelimiterNamed, CharactersAndWords) {
  EXPECT_EQ(delimiter_named(";"), ';');
  EXPECT_EQ(delimiter_named("tab"), '\t');
  EXPECT_EQ(delimiter_named("\\t"), '\t');
  EXPECT_EQ(delimiter_named("Comma"), ',');
  EXPECT_EQ(delimiter_named(" "), ' ');
  EXPECT_FALSE(delimiter_named("\"").has_value());
  EXPECT_FALSE(delimiter_named("").has_value());
  EXPECT_FALSE(delimiter_named(";;").has_value());
}

TEST(Fits, FourFifthsOfTheLinesAgreeOnTwoColumnsOrMore) {
  const auto is_fit = [](std::size_t fields, std::int64_t agreeing) {
    DelimiterEvidence evidence;
    evidence.field_count = fields;
    evidence.agreeing_count = agreeing;
    evidence.record_count = 100;
    return fits(evidence);
  };
  EXPECT_TRUE(is_fit(2, 80));
  EXPECT_FALSE(is_fit(2, 79));
  EXPECT_FALSE(is_fit(1, 100));
}

TEST(RecogniseDelimiter, AThousandLinesAreLookedAt) {
  std::string text;
  for (int k = 0; k < 999; ++k) text += "1;2\n";
  const auto lines = [](const std::string& export_text) {
    return recognise_delimiter(export_text).evidence.front().record_count;
  };
  EXPECT_EQ(lines(text), 999);
  EXPECT_EQ(lines(text + "1;2\n"), 1000);
  EXPECT_EQ(lines(text + "1;2\n1;2\n"), 1000);
}

TEST(RecogniseDelimiter, TwoKnownHeadingsDecide) {
  // Every line fits both delimiters; the comma gives one known heading or two.
  EXPECT_FALSE(recognise_delimiter("id,x;y\n1,2;3\n").delimiter.has_value());
  EXPECT_FALSE(recognise_delimiter("id;x,y\n1;2,3\n").delimiter.has_value());
  EXPECT_EQ(recognise_delimiter("id,sire,x;y\n1,2,3;4\n").delimiter, ',');
}

TEST(RecogniseDelimiter, AQuoteThatIsNeverClosedIsToldWhereTheWholeExportWasRead) {
  constexpr std::size_t read_bytes = 4 * 1024 * 1024;
  std::string text = "id;name\n1;\"Rex\n";
  text.resize(read_bytes, 'x');
  EXPECT_EQ(recognise_delimiter(text).evidence[0].unterminated_line, 2);
  text += 'x';
  EXPECT_EQ(recognise_delimiter(text).evidence[0].unterminated_line, 0) << "it may be closed further below";
}

TEST(RecogniseDelimiter, HeadingsDecideBelowThirtyTitles) {
  const auto delimiter_below = [](int titles) {
    std::string text;
    for (int i = 0; i < titles; ++i) text += "1,2,3;4\n";
    return recognise_delimiter(text + "id,sire,x;y\n1,2,3;4\n").delimiter;
  };
  EXPECT_EQ(delimiter_below(30), ',');
  EXPECT_EQ(delimiter_below(31), std::nullopt);
}

TEST(RecogniseDelimiter, ATableHasFiveColumns) {
  // Decimal commas cut each line in two.
  EXPECT_EQ(recognise_delimiter("aa;bb;cc;dd;1,5\nx;y;z;m;2,5\n").delimiter, ';');
  EXPECT_EQ(recognise_delimiter("aa;bb;cc;1,5\nx;y;z;2,5\n").delimiter, std::nullopt);
}

}  // namespace
}  // namespace pedigreewatch::test
