#include "control/missing_file.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <string>
#include <vector>

#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

constexpr MissingFileMessages missing_herdbook = {
    .english_error = "ERROR no herdbook ",
    .english_reason = "it is needed",
    .dutch_error = "ERROR geen stamboek ",
    .dutch_error_end = " gevonden",
    .dutch_reason = "het is nodig",
};

LineReader unopened() {
  LineReader reader;
  EXPECT_FALSE(open_for_reading(reader, "no such file.txt"));
  return reader;
}

TEST(StopOnMissingFile, PrintsNineLinesInBothLanguages) {
  RunStreams streams;
  const LineReader herdbook = unopened();
  EXPECT_TRUE(stops([&] { stop_on_missing_file(streams, missing_herdbook, "dogs.txt  ", herdbook); }));
  const std::vector<std::string> expected = {
      " ERROR no herdbook dogs.txt  ",
      " it is needed",
      "            ***PROGRAM TERMINATED***",
      " End of program. Press RETURN to exit.",
      " __________________________________________________",
      " ERROR geen stamboek dogs.txt   gevonden",
      " het is nodig",
      "            ***PROGRAMMA BEEINDIGD***",
      " Einde programma. Druk op Enter om uit het programma te gaan.",
  };
  EXPECT_EQ(lines_of(streams.console), expected);
  EXPECT_EQ(streams.messages.pending, "\"no such file.txt\": " + error_text(ENOENT) + "\n");
}

TEST(StopOnMissingFile, WaitsForOneLineOnTheKeyboard) {
  RunStreams streams;
  const LineReader herdbook = unopened();
  streams.keyboard = keyboard_with("yes\nnext");
  EXPECT_TRUE(stops([&] { stop_on_missing_file(streams, missing_herdbook, {}, herdbook); }));
  EXPECT_EQ(std::fgetc(streams.keyboard), 'n');
  std::fclose(streams.keyboard);
}

TEST(StopOnMissingFile, ShowsItsLinesBeforeItWaits) {
  RunStreams streams;
  const LineReader herdbook = unopened();
  streams.console.file = std::tmpfile();
  ASSERT_NE(streams.console.file, nullptr);
  EXPECT_TRUE(stops([&] { stop_on_missing_file(streams, missing_herdbook, {}, herdbook); }));
  EXPECT_TRUE(streams.console.pending.empty());
  EXPECT_GT(std::ftell(streams.console.file), 200);
  close(streams.console);
}

}  // namespace
}  // namespace pedigreewatch::test
