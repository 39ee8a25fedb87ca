// Tasks are taken one after the other by whoever is free. A thread that cannot be had is done without.

#include "core/side_by_side.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <iterator>
#include <mutex>
#include <new>
#include <system_error>

namespace pedigreewatch {
namespace {

struct SharedTasks {
  std::span<const Task> tasks;
  std::atomic<std::size_t> next = 0;
  std::atomic<bool> has_failed = false;
  std::mutex guard = {};
  std::size_t failed = 0;  ///< the first of those that threw
  std::exception_ptr problem = nullptr;
};

void note_problem(SharedTasks& shared, std::size_t task) {
  const std::lock_guard lock(shared.guard);
  if (!shared.problem || task < shared.failed) {
    shared.failed = task;
    shared.problem = std::current_exception();
  }
  shared.has_failed = true;
}

void do_tasks(SharedTasks& shared) {
  for (std::size_t task = shared.next++; task < shared.tasks.size(); task = shared.next++) {
    if (shared.has_failed) return;
    try {
      shared.tasks[task]();
    } catch (...) {
      note_problem(shared, task);
    }
  }
}

}  // namespace

std::int32_t threads_of_machine() {
  return static_cast<std::int32_t>(std::max(1U, std::thread::hardware_concurrency()));
}

std::vector<std::thread> begin_threads(std::int32_t count, const Task& task) {
  std::vector<std::thread> threads;
  try {
    threads.reserve(static_cast<std::size_t>(count));
    while (std::ssize(threads) < count) threads.emplace_back(task);
  } catch (const std::system_error&) {  // the system has no more
  } catch (const std::bad_alloc&) {     // nor memory for one
  }
  return threads;
}

void do_side_by_side(std::span<const Task> tasks, std::int32_t threads) {
  const auto others = static_cast<std::int32_t>(std::min(std::ssize(tasks), std::ptrdiff_t{threads}) - 1);
  if (others < 1) {
    for (const Task& task : tasks) task();
    return;
  }
  SharedTasks shared{tasks};
  std::vector<std::thread> begun = begin_threads(others, [&shared] { do_tasks(shared); });
  do_tasks(shared);
  for (std::thread& thread : begun) thread.join();
  if (shared.problem) std::rethrow_exception(shared.problem);
}

}  // namespace pedigreewatch
