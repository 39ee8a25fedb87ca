// For WebAssembly: nothing is packed here.

#include "sheets/deflate.h"

namespace pedigreewatch {

struct Deflater {};

void EndDeflater::operator()(Deflater* deflater) const {
  std::default_delete<Deflater>()(deflater);
}

DeflaterHandle begin_deflating() {
  return nullptr;
}

void deflate_piece(Deflater& /*deflater*/, std::string_view /*bytes*/, bool /*is_last*/, std::string& /*packed*/) {}

}  // namespace pedigreewatch
