#include "core/tool_streams.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(Refuse, SaysTheTextBehindWhatWasShownAndYieldsTheStatus) {
  ToolStreams streams;
  say(streams.console, "dogs.txt: 12 animals");
  EXPECT_EQ(refuse(streams, {"no tables\nno page", wrong_arguments}), 2);
  EXPECT_EQ(streams.console.pending, "dogs.txt: 12 animals\n");
  EXPECT_EQ(streams.messages.pending, "no tables\nno page\n");
  EXPECT_EQ(refuse(streams, {"nothing"}), 1);
}

TEST(Refuse, TakesTheProgressOffTheScreen) {
  ToolStreams streams;
  streams.progress.terminal = &streams.messages;
  begin_progress(streams.progress, "pairs");
  count_progress(streams.progress, progress_step);
  refuse(streams, {"stopped"});
  EXPECT_EQ(streams.messages.pending, "\rpairs: 100000\r             \rstopped\n");
  EXPECT_EQ(streams.progress.width, 0U);
}

TEST(IsStopRequested, IsFalseWhereNobodyCanStopAnything) {
  ToolStreams streams;
  EXPECT_FALSE(is_stop_requested(streams));
  volatile std::sig_atomic_t request = 0;
  streams.stop_request = &request;
  EXPECT_FALSE(is_stop_requested(streams));
  request = 1;
  EXPECT_TRUE(is_stop_requested(streams));
}

}  // namespace
}  // namespace pedigreewatch::test
