#include "core/run_streams.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

std::string message_on(const InputProblem& problem) {
  RunStreams streams;
  EXPECT_TRUE(stops([&] { stop_on_input(streams, problem); }));
  EXPECT_TRUE(streams.console.pending.empty());
  EXPECT_TRUE(streams.report.pending.empty());
  return streams.messages.pending;
}

TEST(StopRun, EndsTheRun) {
  EXPECT_TRUE(stops([] { stop_run(); }));
}

TEST(StopOnInput, NamesFileLineColumnTextAndWhatWasExpected) {
  EXPECT_EQ(
      message_on(
          {.file = "dogs.txt", .line = 812, .column = 5, .text = "31-o2-1998", .expected = "a number was expected"}),
      "dogs.txt, line 812, column 5: \"31-o2-1998\": a number was expected\n");
}

TEST(StopOnInput, NamesTheFieldAndItsHeadingBesideTheCharacter) {
  InputProblem problem = {.file = "dogs.txt",
                          .line = 812,
                          .column = 23,
                          .text = "31-o2-1998",
                          .expected = "a date was expected",
                          .field = 4,
                          .heading = "birthdate"};
  EXPECT_EQ(message_on(problem),
            "dogs.txt, line 812, field 4 (birthdate), character 23: \"31-o2-1998\": a date was expected\n");
  problem.heading = "";
  EXPECT_EQ(message_on(problem), "dogs.txt, line 812, field 4, character 23: \"31-o2-1998\": a date was expected\n");
  problem.heading = "a\x1B[2J\tb";
  EXPECT_EQ(message_on(problem),
            "dogs.txt, line 812, field 4 (a.[2J.b), character 23: \"31-o2-1998\": a date was expected\n");
}

TEST(StopOnInput, OfALongHeadingItsStartIsShown) {
  const std::string forty(40, 'h');
  InputProblem problem = {.file = "dogs.txt", .line = 2, .column = 1, .text = "x", .expected = "a date was expected"};
  problem.field = 1;
  problem.heading = forty;
  EXPECT_EQ(message_on(problem),
            "dogs.txt, line 2, field 1 (" + forty + "), character 1: \"x\": a date was expected\n");
  const std::string longer = forty + "i";
  problem.heading = longer;
  EXPECT_EQ(message_on(problem),
            "dogs.txt, line 2, field 1 (" + forty + "...), character 1: \"x\": a date was expected\n");
}

TEST(StopOnInput, WithoutAColumn) {
  EXPECT_EQ(message_on({.file = "dogs.txt", .line = 1, .text = "x", .expected = "a header was expected"}),
            "dogs.txt, line 1: \"x\": a header was expected\n");
}

TEST(StopOnInput, WithoutALine) {
  EXPECT_EQ(message_on({.file = "dogs.txt", .text = "", .expected = "the file is empty"}),
            "dogs.txt: the file is empty\n");
}

TEST(StopOnInput, ControlBytesOfTheTextDoNotReachTheTerminal) {
  EXPECT_EQ(message_on({.file = "dogs.txt",
                        .line = 2,
                        .column = 3,
                        .text = std::string_view("a\x1B[2J\tb\0c\x7F \xEB", 11),
                        .expected = "a number was expected"}),
            "dogs.txt, line 2, column 3: \"a.[2J.b.c. \": a number was expected\n");
}

TEST(StopOnInput, AccentedLettersOfTheTextAreShown) {
  EXPECT_EQ(message_on({.file = "dogs.txt", .line = 2, .text = "vari\xEB", .expected = "a number was expected"}),
            "dogs.txt, line 2: \"vari\xEB\": a number was expected\n");
}

TEST(StopOnInput, VeryLongTextIsCut) {
  EXPECT_EQ(message_on({.file = "a", .line = 2, .text = std::string(80, 'x'), .expected = "b"}),
            "a, line 2: \"" + std::string(80, 'x') + "\": b\n");
  EXPECT_EQ(message_on({.file = "a", .line = 2, .text = std::string(81, 'x'), .expected = "b"}),
            "a, line 2: \"" + std::string(80, 'x') + "...\": b\n");
}

TEST(StopOnFile, NamesTheFileAndTheProblem) {
  RunStreams streams;
  EXPECT_TRUE(stops([&] { stop_on_file(streams, "dogs.out", "No space left on device"); }));
  EXPECT_EQ(streams.messages.pending, "dogs.out: No space left on device\n");
}

TEST(ErrorText, IsTheSystemsWord) {
  EXPECT_FALSE(error_text(ENOSPC).empty());
  EXPECT_NE(error_text(ENOSPC), error_text(ENOENT));
}

/// A keyboard on which `typed` has been typed.
TEST(WaitForReturn, TakesOneLineAndNoMore) {
  RunStreams streams;
  streams.keyboard = keyboard_with("any words\nnext");
  wait_for_return(streams);
  EXPECT_EQ(std::fgetc(streams.keyboard), 'n');
  std::fclose(streams.keyboard);
}

TEST(WaitForReturn, EmptyLineIsEnough) {
  RunStreams streams;
  streams.keyboard = keyboard_with("\nnext");
  wait_for_return(streams);
  EXPECT_EQ(std::fgetc(streams.keyboard), 'n');
  std::fclose(streams.keyboard);
}

TEST(WaitForReturn, EndOfTheKeyboardEndsTheWait) {
  RunStreams streams;
  streams.keyboard = keyboard_with("");
  wait_for_return(streams);
  EXPECT_NE(std::feof(streams.keyboard), 0);
  std::fclose(streams.keyboard);
}

TEST(WaitForReturn, WithoutAKeyboardGoesOn) {
  RunStreams streams;
  append(streams.console, "rex\n");
  wait_for_return(streams);
  EXPECT_EQ(streams.console.pending, "rex\n");
}

TEST(WaitForReturn, ShowsEverythingBefore) {
  RunStreams streams;
  for (TextOutput* output : {&streams.console, &streams.report, &streams.messages}) {
    output->file = std::tmpfile();
    ASSERT_NE(output->file, nullptr);
    append(*output, "rex\n");
  }
  wait_for_return(streams);
  for (TextOutput* output : {&streams.console, &streams.report, &streams.messages}) {
    EXPECT_TRUE(output->pending.empty());
    EXPECT_EQ(std::ftell(output->file), 4);
    close(*output);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
