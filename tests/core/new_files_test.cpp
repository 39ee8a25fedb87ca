#include "core/new_files.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
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

TEST_F(FilePair, OlderTemporaryFilesAreLeftAlone) {
  put("a.txt.new", "somebody's");
  EXPECT_TRUE(write_pair(false));
  EXPECT_EQ(bytes_of("a.txt.new"), "somebody's");
}

TEST_F(FilePair, ALinkThatLeadsNowhereIsTaken) {
  fs::create_symlink(path("nowhere"), path("a.txt"));
  EXPECT_TRUE(is_taken(path("a.txt")));
  EXPECT_FALSE(write_pair(false));
}

}  // namespace
}  // namespace pedigreewatch::test
