// Lists whose entries are known by a number. On paper everything is counted from 1; such a number becomes a place in
// memory in accessors only: in those of this file and of the year tables, and in those of the few records that keep
// their entries in a way of their own (the store, texts cut into pieces of one width, square tables, lanes).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "core/memory_hints.h"

namespace pedigreewatch {

/// Values by the number of an animal or ancestor. Entry 0 is that of the unknown one, so that no test is needed for it.
template <typename Value>
struct ByNumber {
  std::vector<Value> values;

  ByNumber() = default;
  /// Entries 0 to `last`, all alike.
  explicit ByNumber(std::size_t last, const Value& value = {}) {
    reserve_large(values, last + 1);
    values.assign(last + 1, value);
  }
  explicit ByNumber(std::int32_t last, const Value& value = {}) : ByNumber(static_cast<std::size_t>(last), value) {}

  Value& operator[](std::int32_t number) { return values[static_cast<std::size_t>(number)]; }
  const Value& operator[](std::int32_t number) const { return values[static_cast<std::size_t>(number)]; }
  /// Lets go of all entries and their memory.
  void release() { std::vector<Value>().swap(values); }
  /// The highest number; -1 when not even entry 0 is there.
  std::int32_t last() const { return static_cast<std::int32_t>(values.size()) - 1; }
};

/// Entries numbered from 1 in the order in which they were added.
template <typename Entry>
struct NumberedList {
  std::vector<Entry> entries;

  Entry& at(std::int32_t number) { return entries[static_cast<std::size_t>(number) - 1]; }
  const Entry& at(std::int32_t number) const { return entries[static_cast<std::size_t>(number) - 1]; }
  std::int32_t count() const { return static_cast<std::int32_t>(entries.size()); }
  /// Adds an entry at the end and yields its number.
  std::int32_t add(Entry entry) {
    entries.push_back(std::move(entry));
    return count();
  }
};

/// The same for a list of which the program knows the length: months, species.
template <typename Entry, std::size_t Count>
struct NumberedArray {
  std::array<Entry, Count> entries;

  constexpr const Entry& at(std::int32_t number) const { return entries[static_cast<std::size_t>(number) - 1]; }
};

}  // namespace pedigreewatch
