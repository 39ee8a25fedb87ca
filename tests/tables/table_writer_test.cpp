#include "tables/table_writer.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

namespace pedigreewatch::test {
namespace {

/// A row of one cell.
std::string cell_of(std::string_view bytes, TableForm form = TableForm::tabs) {
  TableWriter writer{.form = form, .text = {}};
  add_text(writer, bytes);
  return writer.text;
}

TEST(TableWriter, PutsSeparatorsBetweenCellsAndEndsRows) {
  TableWriter writer;
  add_text(writer, "a");
  add_nothing(writer);
  add_integer(writer, -12);
  add_real(writer, 0.25F);
  end_row(writer);
  add_nothing(writer);
  add_plain(writer, "b");
  end_row(writer);
  EXPECT_EQ(writer.text, "a\t\t-12\t0.25\n\tb\n");
}

TEST(TableWriter, LeavesCellsEmptyThatHaveNoFiniteValue) {
  TableWriter writer{.form = TableForm::commas, .text = {}};
  add_real(writer, std::numeric_limits<float>::quiet_NaN());
  add_real(writer, -std::numeric_limits<float>::infinity());
  add_real(writer, std::numeric_limits<double>::infinity());
  add_cell(writer, Cell());
  add_cell(writer, Cell(0.5));
  EXPECT_EQ(writer.text, ",,,,0.5");
}

TEST(TableWriter, QuotesSeparatorsAndQuotationMarks) {
  EXPECT_EQ(cell_of("say \"moo\""), "\"say \"\"moo\"\"\"");
  EXPECT_EQ(cell_of("a,b"), "a,b");
  EXPECT_EQ(cell_of("a,b", TableForm::commas), "\"a,b\"");
  EXPECT_EQ(cell_of("\"", TableForm::commas), "\"\"\"\"");
}

TEST(TableWriter, NamesControlCharactersSoThatNoCellBreaksARow) {
  EXPECT_EQ(cell_of("a\tb"), "a<U+0009>b");
  EXPECT_EQ(cell_of(std::string_view("\x01\x00", 2)), "<U+0001><U+0000>");
  EXPECT_EQ(cell_of("a\x7F"), "a<U+007F>");
  EXPECT_EQ(cell_of("a\tb,c", TableForm::commas), "\"a<U+0009>b,c\"");
}

TEST(TableWriter, WritesUtf8) {
  EXPECT_EQ(cell_of("Zo\xEB"), "Zo\xC3\xAB");      // Windows-1252
  EXPECT_EQ(cell_of("Zo\xC3\xAB"), "Zo\xC3\xAB");  // UTF-8 already
  EXPECT_EQ(cell_of("\x80"), "\xE2\x82\xAC");      // the euro sign
}

TEST(TableWriter, LeavesTextsAloneThatASpreadsheetMightTakeForFormulas) {
  EXPECT_EQ(cell_of("=1+1"), "=1+1");
  EXPECT_EQ(cell_of("@x"), "@x");
}

}  // namespace
}  // namespace pedigreewatch::test
