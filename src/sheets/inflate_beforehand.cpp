// For WebAssembly: the browser unpacks the parts of a workbook itself and hands over an archive of unpacked ones, so
// that nothing is left to unpack here.

#include <array>

#include "sheets/inflate.h"

namespace pedigreewatch {

struct Inflater {};

namespace {

constexpr std::array<std::uint32_t, 256> make_checksums() {
  constexpr std::uint32_t polynomial = 0xEDB88320U;
  std::array<std::uint32_t, 256> table = {};
  for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
    std::uint32_t value = byte;
    for (int bit = 0; bit < 8; ++bit) value = (value & 1U) != 0 ? (value >> 1) ^ polynomial : value >> 1;
    table[byte] = value;
  }
  return table;
}

constexpr std::array<std::uint32_t, 256> checksums = make_checksums();

}  // namespace

void EndInflater::operator()(Inflater* inflater) const {
  std::default_delete<Inflater>()(inflater);
}

InflaterHandle begin_inflating(std::string_view /*packed*/) {
  return nullptr;
}

InflateState inflate_piece(Inflater& /*inflater*/, std::span<char> /*room*/, std::size_t& filled) {
  filled = 0;
  return InflateState::broken;
}

std::uint32_t checksum_of(std::uint32_t so_far, std::string_view bytes) {
  std::uint32_t value = ~so_far;
  for (const char byte : bytes) value = checksums[(value ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (value >> 8);
  return ~value;
}

}  // namespace pedigreewatch
