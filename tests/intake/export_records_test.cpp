#include "intake/export_records.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

struct Read {
  std::vector<std::vector<std::string>> records;
  std::vector<std::int64_t> lines;
  ExportRecord last;
};

Read read_all(std::string_view text, char delimiter = ',') {
  Read result;
  RecordReader reader = read_records(text, delimiter);
  while (next_record(reader, result.last)) {
    result.records.emplace_back(result.last.fields.begin(), result.last.fields.end());
    result.lines.push_back(result.last.line);
  }
  return result;
}

using Records = std::vector<std::vector<std::string>>;

TEST(NextRecord, CutsLinesAtTheDelimiter) {
  EXPECT_EQ(read_all("a,b\n1,\n,2\n").records, (Records{{"a", "b"}, {"1", ""}, {"", "2"}}));
}

TEST(NextRecord, TheLastLineNeedsNoLineEnd) {
  EXPECT_EQ(read_all("a,b\n1,2").records, (Records{{"a", "b"}, {"1", "2"}}));
}

TEST(NextRecord, AllKindsOfLineEnds) {
  const Records expected = {{"a", "b"}, {"1", "2"}};
  EXPECT_EQ(read_all("a,b\r\n1,2\r\n").records, expected);
  EXPECT_EQ(read_all("a,b\r1,2\r").records, expected);
  EXPECT_EQ(read_all("a,b\r1,2").records, expected);
  EXPECT_EQ(read_all("a,b\n1,2\r\n").records, expected);
}

TEST(NextRecord, ALoneCarriageReturnAmongLineFeedsIsText) {
  EXPECT_EQ(read_all("a\rx,b\n1,2\n").records, (Records{{"a\rx", "b"}, {"1", "2"}}));
}

TEST(NextRecord, QuotedFieldsHoldDelimitersAndDoubledQuotes) {
  EXPECT_EQ(read_all("\"a,b\",\"say \"\"hi\"\"\",c\n\"\",\"\"\"\"\n").records,
            (Records{{"a,b", "say \"hi\"", "c"}, {"", "\""}}));
}

TEST(NextRecord, LineEndsInsideQuotesBelongToTheField) {
  const Read result = read_all("a,\"x\ny\r\nz\",b\r\n1,2,3\r\n");
  EXPECT_EQ(result.records, (Records{{"a", "x\ny\r\nz", "b"}, {"1", "2", "3"}}));
  EXPECT_EQ(result.lines, (std::vector<std::int64_t>{1, 4}));
}

TEST(NextRecord, LineFeedsInsideQuotesOfAFileOfCarriageReturns) {
  EXPECT_EQ(read_all("a,\"x\ny\"\r1,2\r").records, (Records{{"a", "x\ny"}, {"1", "2"}}));
}

TEST(NextRecord, AQuoteInsideAPlainFieldIsText) {
  EXPECT_EQ(read_all("O\"Brien,5\"\n").records, (Records{{"O\"Brien", "5\""}}));
  EXPECT_FALSE(read_all("O\"Brien,5\"\n").last.has_quotes);
}

TEST(NextRecord, TextBehindAClosingQuoteIsKeptAndTold) {
  const Read result = read_all("\"Rex\" van de Hoek,1\n");
  EXPECT_EQ(result.records, (Records{{"Rex van de Hoek", "1"}}));
  EXPECT_TRUE(result.last.has_bad_quotes);
  EXPECT_FALSE(read_all("\"Rex\" ,1\n").last.has_bad_quotes) << "a blank is no text";
}

TEST(NextRecord, AQuoteThatIsNeverClosedReachesToTheEndAndIsTold) {
  const Read result = read_all("a,b\n1,\"x\n2,y\n");
  EXPECT_EQ(result.records, (Records{{"a", "b"}, {"1", "x\n2,y\n"}}));
  EXPECT_TRUE(result.last.is_unterminated);
  EXPECT_EQ(result.last.line, 2);
}

TEST(NextRecord, RewrittenFieldsOfARecordDoNotDisturbEachOther) {
  const std::string longest(5000, 'x');
  EXPECT_EQ(read_all("\"a\"\"\",\"" + longest + "\"\"\",\"c\"\"\"\n").records,
            (Records{{"a\"", longest + "\"", "c\""}}));
}

TEST(NextRecord, FieldsBeyondTheLimitAreCountedAsOne) {
  EXPECT_EQ(read_all(std::string(5000, ',')).records[0].size(), most_fields + 1);
  std::string quoted;
  for (int i = 0; i < 3000; ++i) quoted += "\"a\"\"b\",";
  EXPECT_EQ(read_all(quoted).records[0].size(), most_fields + 1);
}

TEST(NextRecord, LinesMayHaveAnyLength) {
  const std::string longest(3000000, 'x');
  EXPECT_EQ(read_all("1," + longest + "\n2,y\n").records, (Records{{"1", longest}, {"2", "y"}}));
}

TEST(NextRecord, TextsThatASpreadsheetHasMarkedAsSuch) {
  const std::string text =
      "=\"001\";'002;\"=\"\"003\"\"\";=\"\";'NL12;'NL-12;'t Hof;'s-Gravenhage;'Rex';'KING';=A1;'T Hof;'\nplain;2\n";
  RecordReader reader = read_records(text, ';');
  ExportRecord record;
  ASSERT_TRUE(next_record(reader, record));
  EXPECT_TRUE(record.has_sheet_marks);
  const std::vector<std::string_view> expected = {
      "001", "002", "003", "", "NL12", "NL-12", "'t Hof", "'s-Gravenhage", "'Rex'", "'KING'", "=A1", "'T Hof", "'"};
  EXPECT_EQ(record.fields, expected);
  ASSERT_TRUE(next_record(reader, record));
  EXPECT_FALSE(record.has_sheet_marks);
}

TEST(NextFilledRecord, PassesLinesWithoutText) {
  RecordReader reader = read_records("\n , ,\n;;\n", ',');
  ExportRecord record;
  ASSERT_TRUE(next_filled_record(reader, record));
  EXPECT_EQ(record.line, 3);
  EXPECT_FALSE(next_filled_record(reader, record));
}

TEST(Trimmed, TakesBlanksOfAllKindsFromBothEnds) {
  EXPECT_EQ(trimmed(" \t\xC2\xA0Rex 2\xC2\xA0 \r"), "Rex 2");
  EXPECT_EQ(trimmed("\xC2\xA0"), "");
  EXPECT_EQ(trimmed("Zo\xC3\xAB"), "Zo\xC3\xAB");
  EXPECT_EQ(trimmed("\x1A"), "");
}

}  // namespace
}  // namespace pedigreewatch::test
