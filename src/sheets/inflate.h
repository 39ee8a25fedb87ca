// Unpacking of what zip archives hold (deflate, RFC 1951), piece by piece. The one thing here for which zlib is linked:
// by the companions, never by `pedigreewatch`. A browser has unpacked everything before the core sees it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace pedigreewatch {

struct Inflater;

struct EndInflater {
  void operator()(Inflater* inflater) const;
};

using InflaterHandle = std::unique_ptr<Inflater, EndInflater>;

/// Begins to unpack `packed`, which must stay where it is. Null in a build that cannot unpack.
InflaterHandle begin_inflating(std::string_view packed);

enum class InflateState { more, ended, broken };

/// Fills `room` as far as there is something; `filled` is how far. Bytes behind the end of the packed stream are left
/// alone.
InflateState inflate_piece(Inflater& inflater, std::span<char> room, std::size_t& filled);

/// The CRC-32 of zip of `bytes` behind those whose checksum is `so_far`; that of nothing is 0.
std::uint32_t checksum_of(std::uint32_t so_far, std::string_view bytes);

}  // namespace pedigreewatch
