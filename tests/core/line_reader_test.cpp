#include "core/line_reader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "core/text_output.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

constexpr std::size_t reader_buffer = std::size_t{256} * 1024;

std::vector<std::string> rest_of_lines(LineReader& reader) {
  std::vector<std::string> lines;
  std::string_view line;
  while (read_line(reader, line)) {
    lines.emplace_back(line);
    EXPECT_EQ(reader.line_number, static_cast<std::int64_t>(lines.size()));
  }
  EXPECT_EQ(reader.error, 0);
  return lines;
}

std::vector<std::string> lines_from_text(std::string_view text) {
  LineReader reader;
  reader.text = text;
  return rest_of_lines(reader);
}

/// A file of the test's own that is gone after it.
struct TestFile {
  std::string name = testing::TempDir() + "lines_" + std::to_string(getpid()) + "_" +
                     testing::UnitTest::GetInstance()->current_test_info()->name();

  explicit TestFile(std::string_view bytes) {
    std::FILE* const file = std::fopen(name.c_str(), "wb");
    EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
    std::fclose(file);
  }
  TestFile(const TestFile&) = delete;
  TestFile& operator=(const TestFile&) = delete;
  ~TestFile() { std::remove(name.c_str()); }
};

std::vector<std::string> lines_from_file(std::string_view text) {
  const TestFile file(text);
  LineReader reader;
  EXPECT_TRUE(open_for_reading(reader, file.name));
  const std::vector<std::string> lines = rest_of_lines(reader);
  return lines;
}

using Lines = std::vector<std::string>;

/// Reads `text` from a file and from memory.
void expect_lines(std::string_view text, const Lines& expected) {
  EXPECT_EQ(lines_from_text(text), expected);
  EXPECT_EQ(lines_from_file(text), expected);
}

std::string many(char byte, std::size_t count) {
  return std::string(count, byte);
}

// ---- line ends -------------------------------------------------------------------------------------------------

TEST(ReadLine, EndsAtALineFeed) {
  expect_lines("rex\nsaar\n", {"rex", "saar"});
}

TEST(ReadLine, CarriageReturnBeforeTheLineFeedIsNoText) {
  expect_lines("rex\r\nsaar\nbram\r\n", {"rex", "saar", "bram"});
}

TEST(ReadLine, LastLineNeedsNoEnd) {
  expect_lines("rex\nsaar", {"rex", "saar"});
  expect_lines("rex", {"rex"});
}

TEST(ReadLine, CarriageReturnAtTheEndOfTheFileIsNoText) {
  expect_lines("rex\r\nsaar\r", {"rex", "saar"});
  expect_lines("\r", {""});
}

TEST(ReadLine, OtherCarriageReturnsAreText) {
  expect_lines("re\rx\n\rsaar\nbram\r\r\n", {"re\rx", "\rsaar", "bram\r"});
}

TEST(ReadLine, EmptyLinesAreLines) {
  expect_lines("\n", {""});
  expect_lines("rex\n\n", {"rex", ""});
  expect_lines("\n\r\n\nrex\n", {"", "", "", "rex"});
}

TEST(ReadLine, EmptyFileHasNoLine) {
  expect_lines("", {});
}

TEST(ReadLine, StaysAtTheEnd) {
  LineReader reader;
  reader.text = "rex\n";
  std::string_view line;
  EXPECT_TRUE(read_line(reader, line));
  EXPECT_FALSE(read_line(reader, line));
  EXPECT_FALSE(read_line(reader, line));
  EXPECT_EQ(reader.line_number, 1);
}

TEST(ReadLine, BlanksAndTabsAreText) {
  expect_lines("  rex \t\n", {"  rex \t"});
}

TEST(ReadLine, NulBytesAreText) {
  const std::string text("r\0x\n\0\n\0", 7);
  expect_lines(text, {std::string("r\0x", 3), std::string("\0", 1), std::string("\0", 1)});
}

TEST(ReadLine, BytesAboveAsciiAreNotChanged) {
  expect_lines("vari\xEBteit\xFF\n", {"vari\xEBteit\xFF"});
}

// ---- byte order mark -------------------------------------------------------------------------------------------

TEST(ByteOrderMark, IsSkippedAtTheStartOfTheFile) {
  expect_lines("\xEF\xBB\xBFid;sire\nrex\n", {"id;sire", "rex"});
}

TEST(ByteOrderMark, AloneIsAnEmptyFile) {
  expect_lines("\xEF\xBB\xBF", {});
}

TEST(ByteOrderMark, BeforeAnEmptyLine) {
  expect_lines("\xEF\xBB\xBF\n", {""});
}

TEST(ByteOrderMark, IsTextAnywhereElse) {
  expect_lines("id\n\xEF\xBB\xBFrex\n", {"id", "\xEF\xBB\xBFrex"});
  expect_lines("\xEF\xBB\xBF\xEF\xBB\xBFrex\n", {"\xEF\xBB\xBFrex"});
  expect_lines(" \xEF\xBB\xBFrex\n", {" \xEF\xBB\xBFrex"});
}

TEST(ByteOrderMark, PartOfItIsText) {
  expect_lines("\xEF\xBB", {"\xEF\xBB"});
  expect_lines("\xEF\xBBrex\n", {"\xEF\xBBrex"});
  expect_lines("\xEF\n", {"\xEF"});
}

TEST(ByteOrderMark, DoesNotCountAmongThe600Bytes) {
  expect_lines("\xEF\xBB\xBF" + many('x', 600) + "\n", {many('x', 600)});
}

// ---- lines longer than what is kept ----------------------------------------------------------------------------

TEST(LongLine, Of600BytesIsKeptWhole) {
  expect_lines(many('x', 600) + "\nrex\n", {many('x', 600), "rex"});
  expect_lines(many('x', 600) + "\r\nrex\r\n", {many('x', 600), "rex"});
  expect_lines(many('x', 600) + "\r", {many('x', 600)});
  expect_lines(many('x', 599) + "y", {many('x', 599) + "y"});
}

TEST(LongLine, Of601BytesLosesItsLast) {
  expect_lines(many('x', 600) + "y\nrex\n", {many('x', 600), "rex"});
  expect_lines(many('x', 600) + "y\r\nrex\n", {many('x', 600), "rex"});
  expect_lines(many('x', 600) + "y", {many('x', 600)});
  expect_lines(many('x', 600) + "y\r", {many('x', 600)});
}

TEST(LongLine, CarriageReturnAsItsLastKeptByteIsText) {
  expect_lines(many('x', 599) + "\ry\n", {many('x', 599) + "\r"});
}

TEST(LongLine, LongerThanTheBufferIsReadOver) {
  for (const std::size_t length : {reader_buffer - 2, reader_buffer - 1, reader_buffer, reader_buffer + 1,
                                   2 * reader_buffer, 2 * reader_buffer + 1, 5 * reader_buffer + 77}) {
    for (const std::string_view line_end : {"\n", "\r\n"}) {
      const std::string long_line = many('x', 500) + many('y', length - 500);
      const std::string kept = many('x', 500) + many('y', 100);
      const std::string end(line_end);
      expect_lines(long_line + end + "rex" + end, {kept, "rex"});
      expect_lines("rex" + end + long_line + end + "saar" + end, {"rex", kept, "saar"});
      expect_lines("rex" + end + long_line, {"rex", kept});
      expect_lines(long_line + end + long_line + end + end, {kept, kept, ""});
    }
  }
}

TEST(LongLine, IsOneLineForItsNumber) {
  LineReader reader;
  const std::string text = many('x', 3 * reader_buffer) + "\nrex\n";
  reader.text = text;
  EXPECT_TRUE(skip_line(reader));
  EXPECT_TRUE(skip_line(reader));
  EXPECT_EQ(reader.line_number, 2);
  EXPECT_FALSE(skip_line(reader));
}

// ---- the buffer's ends -----------------------------------------------------------------------------------------

TEST(ManyLines, AreCutAtTheSamePlacesWhateverTheBufferHolds) {
  RandomNumbers random{262144};
  std::string text;
  Lines expected;
  for (int i = 0; i < 40000; ++i) {  // about a megabyte: several buffers
    std::string line = many(static_cast<char>('a' + i % 26), static_cast<std::size_t>(random.below(50)));
    if (random.below(50) == 0) line += many('-', 590);
    text += line + (random.below(3) == 0 ? "\r\n" : "\n");
    expected.push_back(line.substr(0, 600));
  }
  ASSERT_GT(text.size(), 3 * reader_buffer);
  EXPECT_TRUE(lines_from_text(text) == expected);
  EXPECT_TRUE(lines_from_file(text) == expected);
}

TEST(ManyLines, LineEndOnEitherSideOfTheBuffersEnd) {
  for (std::size_t first = reader_buffer - 4; first <= reader_buffer + 1; ++first) {
    std::string text;
    Lines expected;
    while (text.size() < first - 600) {  // short lines up to the last 600 bytes of the buffer
      text += many('a', 99) + "\n";
      expected.push_back(many('a', 99));
    }
    const std::size_t length = first - text.size();
    text += many('b', length) + "\r\nrex\r\n";
    expected.push_back(many('b', std::min<std::size_t>(length, 600)));
    expected.push_back("rex");
    EXPECT_TRUE(lines_from_text(text) == expected) << first;
    EXPECT_TRUE(lines_from_file(text) == expected) << first;
  }
}

// ---- skipping and starting again -------------------------------------------------------------------------------

TEST(ReadLine, DoesNotGoOnBehindAnError) {
  LineReader reader;
  reader.text = "rex\n";
  reader.error = EINTR;
  std::string_view line;
  EXPECT_FALSE(read_line(reader, line));
}

TEST(SkipLine, CountsWhatReadLineReads) {
  LineReader reader;
  reader.text = "\xEF\xBB\xBFid\r\n\nrex\nlast";
  std::int64_t count = 0;
  while (skip_line(reader)) ++count;
  EXPECT_EQ(count, 4);
  EXPECT_EQ(reader.line_number, 4);
}

TEST(Rewind, StartsAgainAtTheFirstLine) {
  const TestFile file("\xEF\xBB\xBFid\nrex\nsaar");
  LineReader reader;
  ASSERT_TRUE(open_for_reading(reader, file.name));
  const Lines expected = {"id", "rex", "saar"};
  EXPECT_EQ(rest_of_lines(reader), expected);
  rewind(reader);
  EXPECT_EQ(reader.line_number, 0);
  EXPECT_EQ(rest_of_lines(reader), expected);
  rewind(reader);
  EXPECT_TRUE(skip_line(reader));
  rewind(reader);  // in the middle of the file
  EXPECT_EQ(rest_of_lines(reader), expected);
}

TEST(Rewind, StartsAgainAfterALineLongerThanTheBuffer) {
  const std::string text = "id\n" + many('x', 2 * reader_buffer) + "\nrex\n";
  LineReader reader;
  reader.text = text;
  const Lines expected = {"id", many('x', 600), "rex"};
  EXPECT_EQ(rest_of_lines(reader), expected);
  rewind(reader);
  EXPECT_EQ(rest_of_lines(reader), expected);
}

// ---- files -----------------------------------------------------------------------------------------------------

TEST(OpenForReading, RefusesAFileThatDoesNotExist) {
  LineReader reader;
  EXPECT_FALSE(open_for_reading(reader, testing::TempDir() + "no_such_file.txt"));
  EXPECT_FALSE(open_for_reading(reader, ""));
}

TEST(OpenForReading, RefusesAFolder) {
  LineReader reader;
  EXPECT_FALSE(open_for_reading(reader, testing::TempDir()));
  EXPECT_FALSE(open_for_reading(reader, "."));
}

TEST(OpenForReading, KeepsTheNameForMessages) {
  const TestFile file("rex\n");
  LineReader reader;
  ASSERT_TRUE(open_for_reading(reader, file.name));
  EXPECT_EQ(reader.name, file.name);
}

/// Files that this process has open; -1 where the system does not tell.
std::ptrdiff_t count_open_files() {
  std::error_code error;
  const std::filesystem::directory_iterator files("/proc/self/fd", error);
  return error ? -1 : std::distance(begin(files), end(files));
}

TEST(OpenForReading, FileIsClosedWithTheReaderWhenAMessageStopsTheRun) {
  if (count_open_files() < 0) GTEST_SKIP() << "this system does not tell which files are open";
  const TestFile file("rex\n");
  const std::ptrdiff_t before = count_open_files();
  const auto stopped_run = [&] {
    LineReader reader;
    ASSERT_TRUE(open_for_reading(reader, file.name));
    EXPECT_EQ(count_open_files(), before + 1);
    throw RunStopped{};
  };
  EXPECT_THROW(stopped_run(), RunStopped);
  EXPECT_EQ(count_open_files(), before);
}

TEST(OpenForReading, ReaderThatIsOpenedAgainClosesItsFirstFile) {
  if (count_open_files() < 0) GTEST_SKIP() << "this system does not tell which files are open";
  const TestFile file("rex\n");
  LineReader reader;
  ASSERT_TRUE(open_for_reading(reader, file.name));
  const std::ptrdiff_t before = count_open_files();
  ASSERT_TRUE(open_for_reading(reader, file.name));
  EXPECT_EQ(count_open_files(), before);
}

TEST(OpenForReading, StartsAfresh) {
  const TestFile file("rex\n");
  LineReader reader;
  reader.text = "saar\nbram\n";
  EXPECT_TRUE(skip_line(reader));
  ASSERT_TRUE(open_for_reading(reader, file.name));
  EXPECT_EQ(rest_of_lines(reader), Lines{"rex"});
}

TEST(ReadFailure, EndsTheFileAndKeepsItsErrorNumber) {
  LineReader reader;
  // The first page of a program's own memory can be opened on Linux, but not read.
  if (!open_for_reading(reader, "/proc/self/mem")) GTEST_SKIP() << "no file here that cannot be read";
  std::string_view line;
  EXPECT_FALSE(read_line(reader, line));
  EXPECT_EQ(reader.error, EIO);
}

}  // namespace
}  // namespace pedigreewatch::test
