// Long passes show one line at an interval that grows with the population.
#pragma once

#include <cstdint>

namespace pedigreewatch {

/// The interval of a pass: `small` up to 10,000 animals, `medium` up to 25,000, `large` above.
constexpr std::int32_t progress_interval(std::int32_t animal_count, std::int32_t small, std::int32_t medium,
                                         std::int32_t large) {
  if (animal_count <= 10000) return small;
  return animal_count <= 25000 ? medium : large;
}

/// The interval of the passes that deal with the lines of the data file one by one.
constexpr std::int32_t record_interval(std::int32_t animal_count) {
  if (animal_count <= 4000) return 100;
  if (animal_count <= 10000) return 500;
  return animal_count <= 25000 ? 1000 : 5000;
}

/// Counts the animals of a pass. `is_due` is asked before an animal is dealt with: it is true after every `interval`
/// animals, and never behind the last one.
struct ProgressCounter {
  std::int32_t interval = 0;
  std::int32_t counter = 0;

  bool is_due() {
    const bool due = counter == interval;
    counter = due ? 1 : counter + 1;
    return due;
  }
};

}  // namespace pedigreewatch
