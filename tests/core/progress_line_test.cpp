#include "core/progress_line.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(ProgressLine, ShowsEveryStepOverTheOneBefore) {
  TextOutput terminal;
  ProgressLine line = {.terminal = &terminal};
  begin_progress(line, "reading lines");
  for (std::int64_t count = 1; count <= 250'000; ++count) count_progress(line, count);
  EXPECT_EQ(terminal.pending, "\rreading lines: 100000\rreading lines: 200000");
}

TEST(ProgressLine, ShowsNothingOfShortWork) {
  TextOutput terminal;
  ProgressLine line = {.terminal = &terminal};
  begin_progress(line, "reading lines");
  for (std::int64_t count = 1; count < 100'000; ++count) count_progress(line, count);
  erase_progress(line);
  EXPECT_EQ(terminal.pending, "");
}

TEST(ProgressLine, RoundsCountsThatJumpOverAStep) {
  TextOutput terminal;
  ProgressLine line = {.terminal = &terminal};
  begin_progress(line, "lines");
  for (const std::int64_t count : {99'999, 116'000, 132'000, 199'999, 431'000, 499'999}) count_progress(line, count);
  EXPECT_EQ(terminal.pending, "\rlines: 100000\rlines: 400000");
}

TEST(ProgressLine, IsErasedOnceAtTheEnd) {
  TextOutput terminal;
  ProgressLine line = {.terminal = &terminal};
  begin_progress(line, "ab");
  count_progress(line, 100'000);
  terminal.pending.clear();
  erase_progress(line);
  erase_progress(line);
  EXPECT_EQ(terminal.pending, "\r          \r") << "ten letters: ab: 100000";
}

TEST(ProgressLine, AShorterTextLeavesNothingOfALongerOne) {
  TextOutput terminal;
  ProgressLine line = {.terminal = &terminal};
  begin_progress(line, "abcd");
  count_progress(line, 100'000);
  begin_progress(line, "x");
  count_progress(line, 99'999);
  count_progress(line, 100'000);
  erase_progress(line);
  EXPECT_EQ(terminal.pending, "\rabcd: 100000\rx: 100000   \r            \r");
}

TEST(ProgressLine, NothingIsWrittenWhenNobodyWatches) {
  ProgressLine line;
  begin_progress(line, "reading lines");
  count_progress(line, 300'000);
  EXPECT_EQ(line.width, 0U);
  erase_progress(line);
  EXPECT_EQ(line.next_count, 400'000) << "counts go on unseen";
}

}  // namespace
}  // namespace pedigreewatch::test
