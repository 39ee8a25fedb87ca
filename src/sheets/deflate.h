// Packing of what zip archives hold (deflate, RFC 1951), piece by piece: the counterpart of inflate.h, with the same
// zlib behind it. For browsers there is none, and archives hold their parts as they are.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace pedigreewatch {

struct Deflater;

struct EndDeflater {
  void operator()(Deflater* deflater) const;
};

using DeflaterHandle = std::unique_ptr<Deflater, EndDeflater>;

/// Begins to pack. Null in a build that cannot pack.
DeflaterHandle begin_deflating();

/// Packs `bytes` behind those before and adds to `packed` what is ready; with the last ones all that is left.
void deflate_piece(Deflater& deflater, std::string_view bytes, bool is_last, std::string& packed);

}  // namespace pedigreewatch
