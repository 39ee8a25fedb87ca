#include "intake/export_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

TEST(ExportLineOf, CountsOnFromTheLastShift) {
  const std::vector<LineShift> shifts = {{4, 3}, {10, 8}};
  EXPECT_EQ(export_line_of(shifts, 2), 2);
  EXPECT_EQ(export_line_of(shifts, 3), 4);
  EXPECT_EQ(export_line_of(shifts, 7), 8);
  EXPECT_EQ(export_line_of(shifts, 8), 10);
  EXPECT_EQ(export_line_of(shifts, 9), 11);
  EXPECT_EQ(export_line_of({}, 9), 9);
}

TEST(NoteShift, NotesOnlyWhatIsNotClearFromTheLinesBefore) {
  std::vector<LineShift> shifts;
  note_shift(shifts, 1, 1);
  EXPECT_TRUE(shifts.empty());
  note_shift(shifts, 3, 2);
  note_shift(shifts, 4, 3);
  note_shift(shifts, 4, 4);  // two animals on one line of the export
  ASSERT_EQ(shifts.size(), 2U);
  EXPECT_EQ(shifts[1].export_line, 4);
  EXPECT_EQ(shifts[1].data_line, 4);
}

ExportLines some_lines() {
  ExportLines lines;
  lines.export_name = "herd book.csv";
  lines.data_bytes = 812;
  lines.field_count = 9;
  lines.shifts = {{4, 3}, {4, 4}};
  note_export_text(lines, ExportNoteKind::sex, 3, "geld\ting\n");
  note_export_text(lines, ExportNoteKind::date, 3, "spring 1998");
  note_export_text(lines, ExportNoteKind::fields, 7, "8");
  note_left_out(lines, 9, "Total:\t6");
  return lines;
}

TEST(ExportLines, ComeBackAsTheyWereKept) {
  const std::string text = text_of_export_lines(some_lines());
  EXPECT_EQ(text,
            "# lines of the export 1\nexport\therd book.csv\ndata\t812\t9\nline\t3\t4\nline\t4\t4\n"
            "sex\t3\tgeld ing \ndate\t3\tspring 1998\nfields\t7\t8\nout\t9\tTotal: 6\n");
  const std::optional<ExportLines> read = read_export_lines(text);
  ASSERT_TRUE(read);
  EXPECT_EQ(text_of_export_lines(*read), text);
  EXPECT_EQ(read->notes[1].text, "spring 1998");
}

TEST(ExportLines, ThatAreLeftOutAreKeptUpToAThousand) {
  ExportLines lines = some_lines();
  for (int line = 10; line < 2000; ++line) note_left_out(lines, line, "x");
  ASSERT_EQ(lines.left_out.size(), 1000U);
  EXPECT_EQ(lines.left_out.back().export_line, 1008);
  const std::string text = text_of_export_lines(lines);
  const std::optional<ExportLines> read = read_export_lines(text);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->left_out.size(), 1000U);
  EXPECT_FALSE(read_export_lines(text + "out\t1009\tx\n"));
}

TEST(ExportLines, OfAnotherKindOrDamagedAreNone) {
  const std::string head = "# lines of the export 1\n";
  EXPECT_TRUE(read_export_lines(head + "export\ta.csv\n"));
  for (const std::string& text :
       {std::string(), std::string("id;sex\n"), head, head + "export\ta.csv\nline\t3\n",
        head + "export\ta.csv\nline\tx\t4\n", head + "export\ta.csv\nline\t-3\t4\n",
        head + "export\ta.csv\nline\t3\t9\nline\t2\t9\n", head + "export\ta.csv\nsex\t4\tx\nsex\t3\tx\n",
        head + "export\ta.csv\ncolour\t4\tx\n", head + "export\ta.csv\nsex\t4\n", head + "export\ta.csv\nout\t4\n",
        head + "export\ta.csv\nout\t4\tx\nout\t3\tx\n"}) {
    EXPECT_FALSE(read_export_lines(text)) << text;
  }
}

TEST(NameOfExportLines, StandsBesideTheDataFile) {
  EXPECT_EQ(name_of_export_lines("herd.txt"), "herd.lines");
  EXPECT_EQ(name_of_export_lines("dogs"), "dogs.lines");
}

TEST(ExportLines, KeepTwoHundredBytesOfAText) {
  ExportLines lines;
  for (const std::size_t size : {200U, 201U}) {
    note_export_text(lines, ExportNoteKind::date, 3, std::string(size, 'x'));
    note_left_out(lines, 9, std::string(size, 'y'));
  }
  EXPECT_EQ(lines.notes[0].text, std::string(200, 'x'));
  EXPECT_EQ(lines.notes[1].text, std::string(200, 'x'));
  EXPECT_EQ(lines.left_out[0].text, std::string(200, 'y'));
  EXPECT_EQ(lines.left_out[1].text, std::string(200, 'y'));
}

}  // namespace
}  // namespace pedigreewatch::test
