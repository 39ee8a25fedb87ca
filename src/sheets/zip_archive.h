// The table of contents of a zip archive, and its parts, unpacked piece by piece and within bounds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sheets/inflate.h"
#include "sheets/workbook_problem.h"

namespace pedigreewatch {

/// How a part is packed: not at all, or by deflate. No other way is known.
inline constexpr std::uint16_t method_stored = 0, method_deflated = 8;

struct ZipPart {
  std::string name;        ///< with "/" between folders
  std::string_view bytes;  ///< as they stand in the archive
  std::uint64_t size = 0;  ///< unpacked
  std::uint32_t checksum = 0;
  std::uint16_t method = 0;
  bool is_protected = false;
};

struct ZipArchive {
  std::vector<ZipPart> parts;
  std::uint64_t bytes_left = most_unpacked_bytes;  ///< how much may still be unpacked, of all parts together
};

/// Reads the table of contents at the end of `bytes`, into which the parts point; sizes beyond 32 bits are
/// understood. False, with the fault, when the archive is not complete.
bool list_parts(std::string_view bytes, ZipArchive& archive, WorkbookProblem& problem);

/// The part of that name, without regard to capitals; null when there is none.
const ZipPart* find_part(const ZipArchive& archive, std::string_view name);

/// A part on its way out of the archive.
struct PartReader {
  std::string name;
  std::string_view rest;  ///< of a part that is not packed
  InflaterHandle inflater;
  std::uint64_t size = 0, delivered = 0;
  std::uint32_t wanted_checksum = 0, checksum = 0;
  std::uint64_t* bytes_left = nullptr;
  WorkbookFault fault = WorkbookFault::none;
  bool is_at_end = false;
};

/// Begins to read a part.
PartReader open_part(const ZipPart& part, ZipArchive& archive);

/// Fills `room` and yields how far: 0 at the end, or when something is wrong, which `fault` tells. Size and checksum
/// are compared at the end.
std::size_t read_piece(PartReader& reader, std::span<char> room);

}  // namespace pedigreewatch
