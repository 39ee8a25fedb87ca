#include "core/new_files.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <string>

namespace pedigreewatch::test {
namespace {

namespace fs = std::filesystem;

class FilePair : public testing::Test {
 protected:
  FilePair() : folder_(testing::TempDir() + "pedigreewatch_pair_XXXXXX") {
    EXPECT_NE(mkdtemp(folder_.data()), nullptr);
  }
  ~FilePair() override { fs::remove_all(folder_); }

  std::string path(const std::string& name) const { return folder_ + "/" + name; }
  void put(const std::string& name, std::string_view bytes) const { std::ofstream(path(name)) << bytes; }
  std::string bytes_of(const std::string& name) const {
    std::ifstream file(path(name));
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  std::ptrdiff_t file_count() const { return std::distance(fs::directory_iterator(folder_), fs::directory_iterator()); }

  bool write_pair(bool may_overwrite) {
    NewFile first, second;
    if (!begin_file(first, path("a.txt"), problem) || !begin_file(second, path("b.ini"), problem)) {
      abandon(first);
      return false;
    }
    write_bytes(first, "new a");
    write_bytes(second, "new b");
    return finish_both(first, second, may_overwrite, problem);
  }

  std::string folder_;
  FileProblem problem;
};

TEST_F(FilePair, BothGetTheirNames) {
  EXPECT_TRUE(write_pair(false));
  EXPECT_EQ(bytes_of("a.txt"), "new a");
  EXPECT_EQ(bytes_of("b.ini"), "new b");
  EXPECT_EQ(file_count(), 2);
}

TEST_F(FilePair, AFileThatIsThereStaysAndTheOtherIsNotWritten) {
  put("b.ini", "old b");
  EXPECT_FALSE(write_pair(false));
  EXPECT_EQ(problem.name, path("b.ini"));
  EXPECT_EQ(problem.reason, "");
  EXPECT_EQ(bytes_of("b.ini"), "old b");
  EXPECT_EQ(file_count(), 1);
}

TEST_F(FilePair, BothAreReplacedWhenThatIsAllowed) {
  put("a.txt", "old a");
  put("b.ini", "old b");
  EXPECT_TRUE(write_pair(true));
  EXPECT_EQ(bytes_of("a.txt"), "new a");
  EXPECT_EQ(bytes_of("b.ini"), "new b");
  EXPECT_EQ(file_count(), 2);
}

TEST_F(FilePair, OlderFilesAreBackWhenTheLastOfSeveralCannotHaveItsName) {
  put("a.tsv", "old a");
  put("c.tsv", "old c");
  NewFile a, b, c;
  ASSERT_TRUE(begin_file(a, path("a.tsv"), problem) && begin_file(b, path("b.tsv"), problem) &&
              begin_file(c, path("c.tsv"), problem));
  write_bytes(a, "new a");
  fs::remove(c.temporary);  // somebody tidied up meanwhile
  EXPECT_FALSE(finish_all(std::array{&a, &b, &c}, true, problem));
  EXPECT_EQ(problem.name, path("c.tsv"));
  EXPECT_EQ(bytes_of("a.tsv"), "old a");
  EXPECT_EQ(bytes_of("c.tsv"), "old c");
  EXPECT_EQ(file_count(), 2);
}

TEST_F(FilePair, AMissingFolderIsTold) {
  folder_ += "/missing";
  EXPECT_FALSE(write_pair(false));
  EXPECT_EQ(problem.reason, "No such file or directory");
  folder_.resize(folder_.size() - 8);
}

TEST_F(FilePair, FilesOfOthersAreLeftAlone) {
  put("a.txt.new", "somebody's");
  put("c.txt.pedigreewatch-new", "of another file");
  EXPECT_TRUE(write_pair(false));
  EXPECT_EQ(bytes_of("a.txt.new"), "somebody's");
  EXPECT_EQ(bytes_of("c.txt.pedigreewatch-new"), "of another file");
}

TEST_F(FilePair, WhatKilledRunsLeftIsTakenAway) {
  for (const std::string left : {"a.txt.pedigreewatch-new", "a.txt.pedigreewatch-new2", "a.txt.pedigreewatch-new16",
                                 "b.ini.pedigreewatch-old"}) {
    put(left, "a part");
  }
  put("b.ini", "old b");
  put("a.txt.pedigreewatch-new17", "too many");
  EXPECT_TRUE(write_pair(true));
  EXPECT_EQ(bytes_of("b.ini"), "new b");
  EXPECT_EQ(file_count(), 3) << "the two files, and one leftover too many";
}

TEST_F(FilePair, AnOlderFileThatAKilledRunTookItsNameComesBack) {
  put("a.txt.pedigreewatch-old", "old a");
  NewFile file;
  ASSERT_TRUE(begin_file(file, path("a.txt"), problem));
  EXPECT_EQ(bytes_of("a.txt"), "old a");
  abandon(file);
  EXPECT_EQ(file_count(), 1);
}

TEST_F(FilePair, AFileThatAnotherRunIsWritingStays) {
  NewFile other, file;
  ASSERT_TRUE(begin_file(other, path("a.txt"), problem));
  ASSERT_TRUE(begin_file(file, path("a.txt"), problem));
  EXPECT_NE(file.temporary, other.temporary);
  write_bytes(other, "the other's");
  EXPECT_TRUE(finish_file(other, problem));
  EXPECT_EQ(bytes_of("a.txt"), "the other's");
  write_bytes(file, "this one's");
  EXPECT_TRUE(finish_file(file, problem));
  EXPECT_EQ(bytes_of("a.txt"), "this one's");
  EXPECT_EQ(file_count(), 1);
}

TEST_F(FilePair, NothingIsLeftWhenMemoryRunsOut) {
  put("a.txt", "old a");
  try {
    NewFile file;
    ASSERT_TRUE(begin_file(file, path("a.txt"), problem));
    write_bytes(file, "new");
    throw std::bad_alloc();
  } catch (const std::bad_alloc&) {
  }
  EXPECT_EQ(bytes_of("a.txt"), "old a");
  EXPECT_EQ(file_count(), 1);
}

TEST_F(FilePair, AFolderOfTheNameStandsInTheWay) {
  fs::create_directory(path("a.txt"));
  put("b.ini", "old b");
  EXPECT_FALSE(write_pair(true));
  EXPECT_EQ(problem.reason, "Is a directory");
  EXPECT_TRUE(fs::is_directory(path("a.txt")));
  EXPECT_EQ(bytes_of("b.ini"), "old b");
  EXPECT_EQ(file_count(), 2);
}

TEST_F(FilePair, RightsOfTheOlderFileArePassedOn) {
  put("a.txt", "old a");
  constexpr auto owner_alone = fs::perms::owner_read | fs::perms::owner_write;
  fs::permissions(path("a.txt"), owner_alone);
  NewFile file;
  ASSERT_TRUE(begin_file(file, path("a.txt"), problem));
  EXPECT_EQ(fs::status(file.temporary).permissions(), owner_alone) << "nobody else reads it meanwhile";
  EXPECT_TRUE(finish_file(file, problem));
  EXPECT_EQ(fs::status(path("a.txt")).permissions(), owner_alone);
}

TEST_F(FilePair, ALinkThatLeadsNowhereIsTaken) {
  fs::create_symlink(path("nowhere"), path("a.txt"));
  EXPECT_TRUE(is_taken(path("a.txt")));
  EXPECT_FALSE(write_pair(false));
}

}  // namespace
}  // namespace pedigreewatch::test
