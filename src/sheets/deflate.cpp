#include "sheets/deflate.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <new>

namespace pedigreewatch {

struct Deflater {
  z_stream stream = {};
};

namespace {

constexpr std::size_t most_at_once = std::numeric_limits<uInt>::max();
constexpr int raw_deflate = -MAX_WBITS;  // without the header and checksum of zlib
constexpr int usual_memory = 8;
// Tables repeat themselves so much that more effort makes them hardly smaller.
constexpr int effort = 3;

}  // namespace

void EndDeflater::operator()(Deflater* deflater) const {
  if (deflater == nullptr) return;
  deflateEnd(&deflater->stream);
  std::default_delete<Deflater>()(deflater);
}

DeflaterHandle begin_deflating() {
  auto deflater = std::make_unique<Deflater>();
  if (deflateInit2(&deflater->stream, effort, Z_DEFLATED, raw_deflate, usual_memory, Z_DEFAULT_STRATEGY) != Z_OK) {
    throw std::bad_alloc();  // the one thing that can be missing
  }
  return DeflaterHandle(deflater.release());
}

void deflate_piece(Deflater& deflater, std::string_view bytes, bool is_last, std::string& packed) {
  z_stream& stream = deflater.stream;
  std::array<char, 65536> room;
  do {
    const std::size_t count = std::min(bytes.size(), most_at_once);
    // zlib does not change what it reads, but its interface is older than const.
    stream.next_in =
        const_cast<Bytef*>(reinterpret_cast<const Bytef*>(bytes.data()));  // NOLINT(*-const-cast,*-reinterpret-cast)
    stream.avail_in = static_cast<uInt>(count);
    bytes.remove_prefix(count);
    const int flush = is_last && bytes.empty() ? Z_FINISH : Z_NO_FLUSH;
    do {
      stream.next_out = reinterpret_cast<Bytef*>(room.data());  // NOLINT(*-reinterpret-cast)
      stream.avail_out = static_cast<uInt>(room.size());
      deflate(&stream, flush);
      packed.append(room.data(), room.size() - stream.avail_out);
    } while (stream.avail_out == 0);
  } while (!bytes.empty());
}

}  // namespace pedigreewatch
