// How long and how wide a report may become: one mistyped date can ask for more than anybody can read or any disk
// holds.
#pragma once

#include <cstdint>

namespace pedigreewatch {

/// From the first to the last birth year there are fewer years than this.
inline constexpr std::int64_t year_limit = 100'000;

/// The most figures that the tables of the parents' ages have: birth years x whole years of the oldest parents.
inline constexpr std::int64_t figure_limit = 20'000'000;

/// The most breeders that have columns of their own; all others have one together.
inline constexpr std::int32_t most_top_breeders = 30;

/// The most bytes of a report, and of one of its lines.
inline constexpr std::int64_t report_byte_limit = 1'000'000'000, line_byte_limit = 1'000'000;

}  // namespace pedigreewatch
