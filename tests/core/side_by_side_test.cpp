#include "core/side_by_side.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace pedigreewatch {
namespace {

TEST(DoSideBySide, DoesEachTaskOnceWithAnyNumberOfThreads) {
  for (const std::int32_t threads : {-1, 0, 1, 2, 4, 30}) {
    for (const std::size_t count : {0U, 1U, 2U, 7U, 20U}) {
      std::vector<int> done(count);
      std::vector<Task> tasks;
      for (int& each : done) tasks.emplace_back([&each] { ++each; });
      do_side_by_side(tasks, threads);
      EXPECT_EQ(done, std::vector<int>(count, 1)) << threads << " threads";
    }
  }
}

TEST(DoSideBySide, DoesThemInOrderOnTheThreadOfTheCallerWithOneThread) {
  std::string order;
  std::vector<Task> tasks;
  for (const char letter : {'a', 'b', 'c'}) {
    tasks.emplace_back([&order, letter] { order += std::this_thread::get_id() == std::thread::id() ? '?' : letter; });
  }
  const std::thread::id caller = std::this_thread::get_id();
  tasks.emplace_back([&] { order += std::this_thread::get_id() == caller ? "!" : "?"; });
  do_side_by_side(tasks, 1);
  EXPECT_EQ(order, "abc!");
}

// Each waits for the other, which ends only when both are done at once.
TEST(DoSideBySide, DoesTwoAtOnce) {
  std::atomic<int> met = 0;
  const auto meet = [&met] {
    ++met;
    for (int turn = 0; met < 2 && turn < 100'000; ++turn) std::this_thread::sleep_for(std::chrono::microseconds(100));
  };
  const std::vector<Task> tasks = {meet, meet};
  do_side_by_side(tasks, 2);
  EXPECT_EQ(met, 2);
}

TEST(DoSideBySide, HandsTheFirstProblemOnWhenAllHaveEnded) {
  for (const std::int32_t threads : {1, 2, 4}) {
    std::atomic<int> running = 0;
    const auto slow = [&running] {
      ++running;
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      --running;
    };
    const std::vector<Task> tasks = {slow, [] { throw std::bad_alloc(); }, slow};
    EXPECT_THROW(do_side_by_side(tasks, threads), std::bad_alloc) << threads;
    EXPECT_EQ(running, 0);
  }
}

TEST(DoSideBySide, OfTwoProblemsTheEarlierTaskCounts) {
  std::atomic<bool> has_thrown = false;
  const std::vector<Task> tasks = {[&] {
                                     while (!has_thrown) std::this_thread::yield();
                                     std::this_thread::sleep_for(std::chrono::milliseconds(50));  // it is noted by now
                                     throw std::runtime_error("first");
                                   },
                                   [&] {
                                     has_thrown = true;
                                     throw std::runtime_error("second");
                                   }};
  try {
    do_side_by_side(tasks, 2);
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "first");
  }
}

TEST(PartOfWork, PartsFollowEachOtherAndMissNothing) {
  for (const std::int64_t count : {0, 1, 2, 7, 100}) {
    std::int64_t next = 1;
    for (std::int64_t part = 0; part < 4; ++part) {
      const WorkPart work = part_of_work(1, count, part, 4);
      EXPECT_EQ(work.begin, next);
      next = work.end;
    }
    EXPECT_EQ(next, count + 1);
  }
}

}  // namespace
}  // namespace pedigreewatch
