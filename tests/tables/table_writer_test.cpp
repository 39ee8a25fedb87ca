#include "tables/table_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <new>
#include <string>
#include <string_view>

#include "support/written_workbook.h"

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

TEST(TableWriter, TellsInTheLastColumnHowManyCorrectionsTheDataContain) {
  TableWriter writer{.text = {}, .threads = 2, .corrections = 3};
  add_plain(writer, "id");
  end_row(writer);
  const RowsWriter write = [](TableWriter& part, WorkPart rows) {
    for (std::int64_t row = rows.begin; row < rows.end; ++row) {
      add_integer(part, row);
      end_row(part);
    }
  };
  write_many_rows(writer, {1, 3}, write);
  EXPECT_EQ(writer.text, "id\tcorrections_in_data\n1\t3\n2\t3\n");
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

TEST(TableWriter, PutsWhatASpreadsheetMightTakeForAFormulaBehindAnApostrophe) {
  EXPECT_EQ(cell_of("=1+1"), "'=1+1");
  EXPECT_EQ(cell_of("@x"), "'@x");
  EXPECT_EQ(cell_of("=a,b", TableForm::commas), "\"'=a,b\"");
  EXPECT_EQ(cell_of("=Zo\xEB"), "'=Zo\xC3\xAB");
  EXPECT_EQ(cell_of("-5"), "-5");
  TableWriter plain;
  plain.is_plain = true;
  add_text(plain, "=1+1");
  EXPECT_EQ(plain.text, "=1+1");
}

TEST(TableWriter, CellsOfAWorkbookAreTextsNumbersAndDays) {
  WorkbookWriter workbook;
  TableWriter writer{.workbook = &workbook, .text = {}};
  begin_sheet(workbook, "table");
  for (const char* const name : {"a", "b", "c", "d", "e", "f", "g"}) add_plain(writer, name);
  end_row(writer);
  add_text(writer, "0\xEB\t1");
  add_number(writer, "0.1");
  add_day(writer, "2004-02-29");
  add_nothing(writer);
  add_integer(writer, -7);
  add_real(writer, 0.5F);
  add_cell(writer, Cell(std::numeric_limits<double>::quiet_NaN()));
  end_row(writer);
  end_sheet(workbook);
  ASSERT_TRUE(finish_workbook(workbook));
  EXPECT_EQ(writer.text, "");
  const std::string sheet = part_of(workbook.zip.bytes, "xl/worksheets/sheet1.xml");
  EXPECT_NE(sheet.find("<row r=\"2\"><c r=\"A2\" s=\"2\" t=\"inlineStr\"><is><t>0\xC3\xAB&lt;U+0009&gt;1</t></is></c>"
                       "<c r=\"B2\"><v>0.1</v></c><c r=\"C2\" s=\"4\"><v>38046</v></c><c r=\"E2\"><v>-7</v></c>"
                       "<c r=\"F2\"><v>0.5</v></c></row>"),
            std::string::npos)
      << sheet;
}

/// Rows of their number and what it is divided by 7, which threads write.
std::string many_rows(std::int64_t count, std::int32_t threads) {
  TableWriter writer;
  writer.threads = threads;
  add_text(writer, "number");
  end_row(writer);
  write_many_rows(writer, {0, count}, [](TableWriter& out, WorkPart rows) {
    for (std::int64_t row = rows.begin; row < rows.end; ++row) {
      add_integer(out, row);
      add_real(out, static_cast<float>(row) / 7.0F);
      end_row(out);
    }
  });
  return writer.text;
}

TEST(WriteManyRows, WritesThemInOrderWithAnyNumberOfThreads) {
  EXPECT_EQ(many_rows(2, 4), "number\n0\t0\n1\t0.14285715\n");
  for (const std::int64_t count : {0, 1, 4095, 4096, 4097, 8192, 40'000}) {
    const std::string alone = many_rows(count, 1);
    EXPECT_EQ(std::count(alone.begin(), alone.end(), '\n'), count + 1);
    for (const std::int32_t threads : {2, 4, 100}) EXPECT_EQ(many_rows(count, threads), alone) << count;
  }
}

TEST(WriteManyRows, WhatAThreadThrowsReachesTheCaller) {
  TableWriter writer;
  writer.threads = 2;
  const auto write = [](TableWriter&, WorkPart rows) {
    if (rows.end > 8'000) throw std::bad_alloc();
  };
  EXPECT_THROW(write_many_rows(writer, {0, 20'000}, write), std::bad_alloc);
}

}  // namespace
}  // namespace pedigreewatch::test
