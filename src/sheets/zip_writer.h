// Writes a zip archive (APPNOTE 6.3, without its wide numbers): parts one behind the other, then the table of contents.
// All times are the first that zip knows, so that the same parts make the same bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/new_files.h"
#include "sheets/deflate.h"

namespace pedigreewatch {

/// What the table of contents tells of a part.
struct WrittenPart {
  std::string name;
  std::uint64_t place = 0, size = 0, packed_size = 0;
  std::uint32_t checksum = 0;
  bool is_packed = false, comes_in_pieces = false;
};

struct ZipWriter {
  NewFile* file = nullptr;  ///< null: the archive stays in `bytes`
  std::string bytes;        ///< what has not gone to the file yet
  std::uint64_t gone = 0;   ///< bytes that have
  DeflaterHandle deflater;  ///< of the part at hand
  std::string content;      ///< of the part at hand, in a build that packs nothing
  std::vector<WrittenPart> parts;
};

/// Numbers of 32 bits end here: neither an archive nor a part may be larger.
inline constexpr std::uint64_t most_archive_bytes = 0xFFFFFFFE;

/// Begins a part; the one before it must have ended.
void begin_part(ZipWriter& writer, std::string_view name);
void extend_part(ZipWriter& writer, std::string_view content);
void end_part(ZipWriter& writer);

/// A part that is there as a whole.
void add_part(ZipWriter& writer, std::string_view name, std::string_view content);

/// Bytes of the archive so far.
std::uint64_t size_of(const ZipWriter& writer);

/// Adds the table of contents. False when the archive is too large for one: it is then worth nothing.
bool finish_archive(ZipWriter& writer);

}  // namespace pedigreewatch
