// A workbook on its way into the desk: the core has nothing to unpack with, the browser has.
#pragma once

#include <string>

#include "desk/desk.h"

namespace pedigreewatch {

/// What the browser has to unpack of this file before it is opened. Yields an object: messages, and parts (name, begin,
/// packedSize, size, checksum, isPacked), places and sizes in bytes of the file; those that hold no table are not
/// among them. No parts: the file is no workbook, or nothing is to be done.
std::string packed_parts_of(const Desk& desk, const std::string& name);

}  // namespace pedigreewatch
