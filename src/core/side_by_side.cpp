// Tasks are taken one after the other by whoever is free. A thread that cannot be had is done without.

#include "core/side_by_side.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <vector>

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

/// As many threads as can be had of so many; room for them was made before.
void begin_threads(SharedTasks& shared, std::size_t count, std::vector<std::thread>& threads) {
  try {
    while (threads.size() < count) threads.emplace_back(do_tasks, std::ref(shared));
  } catch (const std::system_error&) {  // the system has no more
  } catch (const std::bad_alloc&) {     // nor memory for one
  }
}

}  // namespace

std::int32_t threads_of_machine() {
  return static_cast<std::int32_t>(std::max(1U, std::thread::hardware_concurrency()));
}

void do_side_by_side(std::span<const Task> tasks, std::int32_t threads) {
  const std::size_t others =
      std::min(tasks.size(), static_cast<std::size_t>(std::max(threads, 1))) - (tasks.empty() ? 0 : 1);
  if (others == 0) {
    for (const Task& task : tasks) task();
    return;
  }
  SharedTasks shared{tasks};
  std::vector<std::thread> begun;
  begun.reserve(others);
  begin_threads(shared, others, begun);
  do_tasks(shared);
  for (std::thread& thread : begun) thread.join();
  if (shared.problem) std::rethrow_exception(shared.problem);
}

}  // namespace pedigreewatch
