#include "core/folder_lock.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "support/run_folder.h"

namespace pedigreewatch::test {
namespace {

using Clock = std::chrono::steady_clock;

int lock_by_another(const std::string& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  EXPECT_EQ(flock(descriptor, LOCK_EX), 0);
  return descriptor;
}

TEST(LockFolder, IsHeldByOneAtATimeAndLetGoOf) {
  const RunFolder folder({});
  {
    const FolderLock lock = lock_folder_of(folder.path("dogs.out"));
    EXPECT_TRUE(lock.is_held());
    EXPECT_FALSE(lock_folder_of(folder.path("cats.out")).is_held());
  }
  EXPECT_TRUE(lock_folder_of(folder.path("cats.out")).is_held());
}

TEST(LockFolder, WaitsForAnotherThatLetsGoInTime) {
  const RunFolder folder({});
  const int other = lock_by_another(folder.path());
  std::thread letting_go([&] {
    std::this_thread::sleep_for(lock_patience / 5);
    close(other);
  });
  EXPECT_TRUE(lock_folder_of(folder.path("dogs.out")).is_held());
  letting_go.join();
}

TEST(LockFolder, WaitsForNobodyForEver) {
  const RunFolder folder({});
  const int other = lock_by_another(folder.path());
  const Clock::time_point begin = Clock::now();
  EXPECT_FALSE(lock_folder_of(folder.path("dogs.out")).is_held());
  EXPECT_GE(Clock::now() - begin, lock_patience);
  close(other);
}

TEST(LockFolder, OfAFolderThatIsNotThereIsNotHeld) {
  EXPECT_FALSE(lock_folder_of("no such folder/dogs.out").is_held());
}

TEST(IsDeserted, TellsAFileThatIsBeingWritten) {
  const RunFolder folder(Files{{"left", "a part"}});
  EXPECT_TRUE(is_deserted(folder.path("left")));
  std::FILE* const file = std::fopen(folder.path("left").c_str(), "r+b");
  ASSERT_NE(file, nullptr);
  lock_file(file);
  EXPECT_FALSE(is_deserted(folder.path("left")));
  std::fclose(file);
  EXPECT_TRUE(is_deserted(folder.path("left")));
  EXPECT_FALSE(is_deserted(folder.path("gone")));
}

}  // namespace
}  // namespace pedigreewatch::test
