// A list of names that is searched for every animal: subpopulations, colours, breeders. A name is found by its hash,
// so that a long list costs no more than a short one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "core/by_number.h"
#include "core/fixed_text.h"
#include "core/text_index.h"

namespace pedigreewatch {

/// Names of one width, numbered from 1. A name may stand in the list more than once: it is found by its first number.
template <std::size_t Width>
struct NameList {
  using Name = FixedText<Width>;

  NumberedList<Name> names;
  NumberedList<std::int32_t> first_numbers;  ///< of each name: its own, unless the name stands in the list before
  NumberedList<std::uint8_t> lengths;        ///< of each name without its trailing blanks
  TextIndex index;

  NameList() = default;
  explicit NameList(std::span<const Name> all) {
    for (const Name& name : all) add(name);
  }

  void add(const Name& name) {
    static_assert(Width <= UINT8_MAX);
    const std::int32_t number = names.add(name);
    lengths.add(static_cast<std::uint8_t>(name.trimmed().size()));
    first_numbers.add(find_or_add_text(index, name.trimmed(), number, [&](std::int32_t k) { return text_of(k); }));
  }
  /// The first number of the name, which is added when it is not in the list.
  std::int32_t number_or_add(std::string_view name) {
    const std::int32_t number = number_of(name);
    if (number != 0) return number;
    add(Name(name));
    return count();
  }
  /// The first number of the name; 0 when it is not in the list. It has no trailing blanks and fits the width.
  std::int32_t number_of(std::string_view name) const {
    return find_text(index, name, [&](std::int32_t k) { return text_of(k); });
  }
  std::int32_t number_of(const Name& name) const { return number_of(name.trimmed()); }
  std::int32_t count() const { return names.count(); }
  /// Without trailing blanks.
  std::string_view text_of(std::int32_t number) const { return {names.at(number).bytes.data(), lengths.at(number)}; }
};

}  // namespace pedigreewatch
