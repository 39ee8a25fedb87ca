// Work of the companions that is shared out to several threads. Each task has values of its own to write to, so that
// the results are the same whatever the number of threads. `pedigreewatch` itself computes on one thread.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <thread>
#include <vector>

namespace pedigreewatch {

/// How many threads the machine runs at once; 1 where that is not known.
std::int32_t threads_of_machine();

using Task = std::function<void()>;

/// Does all tasks, at most `threads` of them at once; with one thread, or where no more can be had, in their order on
/// that of the caller, who always has a part in it. Comes back when none is being done any more. When tasks throw, no
/// further one is begun, and what the first of them threw goes on to the caller.
void do_side_by_side(std::span<const Task> tasks, std::int32_t threads);

/// Begins at most so many threads that each do this; fewer where the system has no more, or no memory for one. The
/// caller joins them.
std::vector<std::thread> begin_threads(std::int32_t count, const Task& task);

/// A part of some work, from `begin` up to `end`, which is not part of it.
struct WorkPart {
  std::int64_t begin = 0, end = 0;
};

/// Part `number` of `parts` parts, counted from 0, of work from `first` to `last`.
constexpr WorkPart part_of_work(std::int64_t first, std::int64_t last, std::int64_t number, std::int64_t parts) {
  const std::int64_t count = last - first + 1;
  return {first + count * number / parts, first + count * (number + 1) / parts};
}

}  // namespace pedigreewatch
