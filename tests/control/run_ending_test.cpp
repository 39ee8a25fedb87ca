#include "control/run_ending.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <new>
#include <stdexcept>
#include <string>

#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

RunEnding ending_of(void (*phases)(RunStreams&)) {
  RunStreams streams;
  return run_to_its_end(phases, streams);
}

TEST(RunToItsEnd, TellsHowThePhasesEnded) {
  EXPECT_EQ(ending_of([](RunStreams&) {}), RunEnding::complete);
  EXPECT_EQ(ending_of([](RunStreams&) { stop_run(); }), RunEnding::stopped_on_input);
  EXPECT_EQ(ending_of([](RunStreams&) { throw std::bad_alloc(); }), RunEnding::out_of_memory);
  EXPECT_EQ(ending_of([](RunStreams&) { throw std::length_error("too many"); }), RunEnding::out_of_memory);
  EXPECT_EQ(ending_of([](RunStreams& streams) {
              streams.report.error = ENOSPC;
              stop_run();
            }),
            RunEnding::report_not_written);
}

TEST(RunToItsEnd, StopThatWasAskedForIsNoFaultOfTheInput) {
  const volatile std::sig_atomic_t request = 1;
  RunStreams streams;
  streams.console.stop_request = &request;
  EXPECT_EQ(run_to_its_end([](RunStreams& each) { end_line(each.console); }, streams), RunEnding::stopped_from_outside);
}

/// The exit status and the messages of an end before a report was opened.
void expect_end_without_report(RunEnding ending, int exit_status, const std::string& messages) {
  RunStreams streams;
  EXPECT_EQ(finish_run(ending, streams), exit_status);
  EXPECT_EQ(streams.messages.pending, messages);
}

TEST(FinishRun, WithoutAReportSpeaksOfNone) {
  expect_end_without_report(RunEnding::complete, 0, "");
  expect_end_without_report(RunEnding::stopped_on_input, 1, "");
  expect_end_without_report(RunEnding::stopped_from_outside, 1, "");
  expect_end_without_report(RunEnding::out_of_memory, 1, "not enough memory for a population of this size\n");
}

/// The messages when the report of this name, which is not there to be removed, is not complete.
std::string messages_about_a_report(RunEnding ending) {
  RunStreams streams;
  streams.report.name = "no such folder/dogs.out";
  streams.report.error = ENOSPC;
  EXPECT_EQ(finish_run(ending, streams), 1);
  return streams.messages.pending;
}

TEST(FinishRun, SaysWhyTheReportIsNotComplete) {
  const auto message = [](const std::string& reason) {
    return "no such folder/dogs.out: the report could not be written: " + reason +
           "; what there is of it is not complete\n";
  };
  EXPECT_EQ(messages_about_a_report(RunEnding::report_not_written), message(error_text(ENOSPC)));
  EXPECT_EQ(messages_about_a_report(RunEnding::stopped_from_outside), message("the run was stopped from outside"));
  EXPECT_EQ(messages_about_a_report(RunEnding::out_of_memory),
            "not enough memory for a population of this size\n" + message(error_text(ENOMEM)));
  // The last piece failed when the phases had ended.
  EXPECT_EQ(messages_about_a_report(RunEnding::complete), message(error_text(ENOSPC)));
  EXPECT_EQ(messages_about_a_report(RunEnding::stopped_on_input), message(error_text(ENOSPC)));
}

TEST(FinishRun, LostConsoleIsToldButIsNoStop) {
  RunStreams streams;
  streams.console.error = EPIPE;
  EXPECT_EQ(finish_run(RunEnding::complete, streams), 1);
  EXPECT_EQ(streams.messages.pending, "the console could not be written: " + error_text(EPIPE) + "\n");
}

}  // namespace
}  // namespace pedigreewatch::test
