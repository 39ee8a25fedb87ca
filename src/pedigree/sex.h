// The two sexes, and what is kept for each of them.
#pragma once

#include <cstdint>

namespace pedigreewatch {

enum Sex : std::uint8_t { male = 1, female = 2 };

/// The same thing for the males and for the females, or for the sires and for the dams.
template <typename Thing>
struct BySex {
  Thing of_males{}, of_females{};

  Thing& of(Sex sex) { return sex == male ? of_males : of_females; }
  const Thing& of(Sex sex) const { return sex == male ? of_males : of_females; }
};

}  // namespace pedigreewatch
