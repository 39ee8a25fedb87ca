#include "core/text_output.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>

#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

/// Everything that has reached a file so far.
std::string bytes_in(std::FILE* file) {
  std::string bytes;
  std::rewind(file);
  for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file)) bytes.push_back(static_cast<char>(byte));
  std::fseek(file, 0, SEEK_END);
  return bytes;
}

TEST(TextOutput, StopRequestEndsTheRunBehindTheLine) {
  volatile std::sig_atomic_t request = 0;
  TextOutput console;
  console.stop_request = &request;
  append(console, "rex");
  end_line(console);
  request = 1;
  append(console, "saar");
  EXPECT_THROW(end_line(console), RunStopped);
  EXPECT_EQ(console.pending, "rex\nsaar\n");
  EXPECT_NO_THROW(flush(console)) << "what was printed still reaches its file";
}

TEST(TextOutput, WithoutAFileKeepsWhatIsPrinted) {
  TextOutput output;
  append(output, "rex");
  end_line(output);
  flush(output);
  close(output);
  EXPECT_EQ(output.pending, "rex\n");
  EXPECT_EQ(output.error, 0);
}

TEST(TextOutput, WithoutAFileKeepsMoreThanOnePiece) {
  TextOutput output;
  const std::string line(999, 'x');
  for (int i = 0; i < 200; ++i) {
    append(output, line);
    end_line(output);
  }
  EXPECT_EQ(output.pending.size(), 200000U);
}

TEST(TextOutput, LinesEndInOneLineFeed) {
  TextOutput output;
  end_line(output);
  append(output, "a");
  end_line(output);
  EXPECT_EQ(output.pending, "\na\n");
}

TEST(TextOutput, CollectsLinesBeforeTheyGoToTheFile) {
  TextOutput output;
  output.file = std::tmpfile();
  ASSERT_NE(output.file, nullptr);
  append(output, "rex");
  end_line(output);
  EXPECT_EQ(bytes_in(output.file), "");
  flush(output);
  EXPECT_EQ(bytes_in(output.file), "rex\n");
  EXPECT_TRUE(output.pending.empty());
  close(output);
}

TEST(TextOutput, LargePieceGoesToTheFileByItself) {
  TextOutput output;
  output.file = std::tmpfile();
  ASSERT_NE(output.file, nullptr);
  const std::string line(65535, 'x');
  append(output, line);
  end_line(output);
  EXPECT_TRUE(output.pending.empty());
  EXPECT_EQ(bytes_in(output.file), line + "\n");
  close(output);
}

TEST(TextOutput, SomebodyWatchingSeesEachLineAtOnce) {
  TextOutput output;
  output.file = std::tmpfile();
  ASSERT_NE(output.file, nullptr);
  output.shows_each_line = true;
  append(output, "rex");
  EXPECT_EQ(bytes_in(output.file), "");
  end_line(output);
  EXPECT_EQ(bytes_in(output.file), "rex\n");
  close(output);
}

TEST(TextOutput, ClosingWritesTheRest) {
  const std::string name = testing::TempDir() + "text_output_" + std::to_string(getpid());
  TextOutput output;
  output.file = std::fopen(name.c_str(), "wb");
  ASSERT_NE(output.file, nullptr);
  append(output, "last line without end");
  close(output);
  EXPECT_EQ(output.file, nullptr);
  EXPECT_EQ(output.error, 0);
  close(output);  // once more does no harm
  std::FILE* const written = std::fopen(name.c_str(), "rb");
  ASSERT_NE(written, nullptr);
  EXPECT_EQ(bytes_in(written), "last line without end");
  std::fclose(written);
  std::remove(name.c_str());
}

TEST(TextOutput, ByteForByte) {
  TextOutput output;
  output.file = std::tmpfile();
  ASSERT_NE(output.file, nullptr);
  const std::string bytes("vari\xEB\0\r\n\xFF", 9);
  append(output, bytes);
  flush(output);
  EXPECT_EQ(bytes_in(output.file), bytes);
  close(output);
}

/// The device that is always full; null where a system has none.
std::FILE* full_device() {
  return std::fopen("/dev/full", "wb");
}

TEST(FailedOutput, KeepsTheErrorNumber) {
  TextOutput output;
  output.file = full_device();
  if (output.file == nullptr) GTEST_SKIP() << "no device here that is always full";
  append(output, "rex\n");
  flush(output);
  EXPECT_EQ(output.error, ENOSPC);
  close(output);
  EXPECT_EQ(output.error, ENOSPC);
}

TEST(FailedOutput, DropsWhatFollows) {
  TextOutput output;
  output.file = full_device();
  if (output.file == nullptr) GTEST_SKIP() << "no device here that is always full";
  for (int i = 0; i < 300; ++i) {
    append(output, std::string(999, 'x'));
    end_line(output);
  }
  EXPECT_EQ(output.error, ENOSPC);
  EXPECT_LT(output.pending.size(), 100000U);
  flush(output);
  EXPECT_TRUE(output.pending.empty());
  close(output);
}

TEST(FailedOutput, ShowsAtClosingAtTheLatest) {
  TextOutput output;
  output.file = full_device();
  if (output.file == nullptr) GTEST_SKIP() << "no device here that is always full";
  append(output, "rex\n");
  EXPECT_EQ(output.error, 0);
  close(output);
  EXPECT_EQ(output.error, ENOSPC);
}

TEST(FailedOutput, StopsTheRunWhenTheStreamIsEssential) {
  TextOutput output;
  output.file = full_device();
  if (output.file == nullptr) GTEST_SKIP() << "no device here that is always full";
  output.is_essential = true;
  append(output, "rex\n");
  EXPECT_TRUE(stops([&] { flush(output); }));
  EXPECT_EQ(output.error, ENOSPC);
  close(output);
}

TEST(FailedOutput, AtClosingLeavesItToTheCaller) {
  TextOutput output;
  output.file = full_device();
  if (output.file == nullptr) GTEST_SKIP() << "no device here that is always full";
  output.is_essential = true;
  append(output, "rex\n");
  EXPECT_FALSE(stops([&] { close(output); }));
  EXPECT_EQ(output.error, ENOSPC);
}

}  // namespace
}  // namespace pedigreewatch::test
