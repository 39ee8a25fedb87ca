#include "core/file_state.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "core/line_reader.h"
#include "support/run_folder.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

TEST(StateOfFile, ChangesWithSizeAndTime) {
  const RunFolder folder(Files{{"dogs.txt", "id\n"}});
  const std::string name = folder.path("dogs.txt");
  const FileState before = state_of_file(name);
  EXPECT_EQ(before.size, 3);
  EXPECT_EQ(state_of_file(name), before);
  std::filesystem::last_write_time(name, std::filesystem::last_write_time(name) + std::chrono::seconds(1));
  const FileState later = state_of_file(name);
  EXPECT_NE(later, before) << "written with as many bytes";
  std::ofstream(name, std::ios::app) << "a1\n";
  std::filesystem::last_write_time(
      name, std::filesystem::file_time_type(std::filesystem::file_time_type::duration(later.changed_at)));
  EXPECT_NE(state_of_file(name), later) << "larger, and of the same time";
}

TEST(StateOfFile, OfAFolderAndOfNothingIsTheSame) {
  const RunFolder folder({});
  EXPECT_EQ(state_of_file(folder.path()), FileState{});
  EXPECT_EQ(state_of_file(folder.path("gone")), FileState{});
}

TEST(StopIfChanged, StopsOnAFileThatGrew) {
  const RunFolder folder(Files{{"dogs.txt", "id\n"}});
  LineReader reader;
  ASSERT_TRUE(open_for_reading(reader, folder.path("dogs.txt")));
  RunStreams streams;
  stop_if_changed(reader, streams);
  EXPECT_FALSE(streams.has_changed_input);
  std::ofstream(folder.path("dogs.txt"), std::ios::app) << "a1\n";
  EXPECT_TRUE(stops([&] { stop_if_changed(reader, streams); }));
  EXPECT_TRUE(streams.has_changed_input);
  EXPECT_TRUE(streams.messages.pending.ends_with(
      "dogs.txt: the file has changed while it was read; run again when nobody writes it\n"));
}

TEST(NoteChange, KeepsThatTheFileGrewAndNoOtherError) {
  const RunFolder folder(Files{{"list", "a1\n"}});
  LineReader reader;
  ASSERT_TRUE(open_for_reading(reader, folder.path("list")));
  note_change(reader);
  EXPECT_EQ(reader.error, 0);
  std::ofstream(folder.path("list"), std::ios::app) << "a2\n";
  note_change(reader);
  EXPECT_EQ(error_text(reader.error), "the file has changed while it was read; run again when nobody writes it");
  reader.error = EIO;
  note_change(reader);
  EXPECT_EQ(reader.error, EIO);
}

TEST(StopIfChanged, ATextWithoutAFileDoesNotChange) {
  LineReader reader;
  reader.text = "id\n";
  EXPECT_FALSE(has_changed(reader));
}

}  // namespace
}  // namespace pedigreewatch::test
