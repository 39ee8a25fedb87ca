// zlib's inflate and checksum.

#include "sheets/inflate.h"

#include <zlib.h>

#include <algorithm>
#include <limits>

namespace pedigreewatch {

struct Inflater {
  z_stream stream = {};
  std::string_view rest;  ///< packed bytes that the stream has not been given
};

namespace {

constexpr std::size_t most_at_once = std::numeric_limits<uInt>::max();
constexpr int raw_deflate = -MAX_WBITS;  // without the header and checksum of zlib

/// Hands over packed bytes when the stream has none left.
void feed(Inflater& inflater) {
  if (inflater.stream.avail_in > 0) return;
  const std::size_t count = std::min(inflater.rest.size(), most_at_once);
  // zlib does not change what it reads, but its interface is older than const.
  inflater.stream.next_in = const_cast<Bytef*>(
      reinterpret_cast<const Bytef*>(inflater.rest.data()));  // NOLINT(*-const-cast,*-reinterpret-cast)
  inflater.stream.avail_in = static_cast<uInt>(count);
  inflater.rest.remove_prefix(count);
}

}  // namespace

void EndInflater::operator()(Inflater* inflater) const {
  if (inflater == nullptr) return;
  inflateEnd(&inflater->stream);
  std::default_delete<Inflater>()(inflater);
}

InflaterHandle begin_inflating(std::string_view packed) {
  auto inflater = std::make_unique<Inflater>();
  inflater->rest = packed;
  if (inflateInit2(&inflater->stream, raw_deflate) != Z_OK) return nullptr;
  return InflaterHandle(inflater.release());
}

InflateState inflate_piece(Inflater& inflater, std::span<char> room, std::size_t& filled) {
  room = room.first(std::min(room.size(), most_at_once));
  z_stream& stream = inflater.stream;
  stream.next_out = reinterpret_cast<Bytef*>(room.data());  // NOLINT(*-reinterpret-cast)
  stream.avail_out = static_cast<uInt>(room.size());
  int result = Z_OK;
  while (result == Z_OK && stream.avail_out > 0) {
    feed(inflater);
    result = inflate(&stream, Z_NO_FLUSH);
  }
  filled = room.size() - stream.avail_out;
  if (result == Z_STREAM_END) return InflateState::ended;
  return result == Z_OK ? InflateState::more : InflateState::broken;
}

std::uint32_t checksum_of(std::uint32_t so_far, std::string_view bytes) {
  uLong checksum = so_far;
  while (!bytes.empty()) {
    const std::size_t count = std::min(bytes.size(), most_at_once);
    checksum = crc32(checksum, reinterpret_cast<const Bytef*>(bytes.data()),  // NOLINT(*-reinterpret-cast)
                     static_cast<uInt>(count));
    bytes.remove_prefix(count);
  }
  return static_cast<std::uint32_t>(checksum);
}

}  // namespace pedigreewatch
