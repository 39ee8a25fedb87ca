// A part that is packed piece by piece tells its sizes behind its bytes, for they are not known before. All others have
// them in front, as readers want it.

#include "sheets/zip_writer.h"

#include <algorithm>

#include "sheets/inflate.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t piece_size = 1'000'000;
constexpr std::uint64_t needed_version = 20, sizes_follow = 8, names_are_utf_8 = 0x800, method_deflated = 8;
constexpr std::uint64_t no_time = 0, first_day = 0x21;  // the 1st of January 1980
constexpr std::string_view end_mark = "PK\x05\x06", entry_mark = "PK\x01\x02", header_mark = "PK\x03\x04",
                           sizes_mark = "PK\x07\x08";

void add_number(std::string& bytes, std::uint64_t number, int count) {
  for (int i = 0; i < count; ++i) bytes += static_cast<char>((number >> (8 * i)) & 0xFFU);
}

void add_sizes(std::string& bytes, const WrittenPart& part) {
  add_number(bytes, part.checksum, 4);
  add_number(bytes, part.packed_size, 4);
  add_number(bytes, part.size, 4);
}

/// What header and table of contents have in common.
void add_description(std::string& bytes, const WrittenPart& part, bool has_sizes) {
  add_number(bytes, needed_version, 2);
  add_number(bytes, names_are_utf_8 | (part.comes_in_pieces ? sizes_follow : 0), 2);
  add_number(bytes, part.is_packed ? method_deflated : 0, 2);
  add_number(bytes, no_time, 2);
  add_number(bytes, first_day, 2);
  if (has_sizes) {
    add_sizes(bytes, part);
  } else {
    bytes.append(12, '\0');
  }
  add_number(bytes, part.name.size(), 2);
  add_number(bytes, 0, 2);
}

void add_header(ZipWriter& writer, const WrittenPart& part) {
  writer.bytes += header_mark;
  add_description(writer.bytes, part, !part.comes_in_pieces);
  writer.bytes += part.name;
}

void hand_over(ZipWriter& writer) {
  if (writer.file == nullptr) return;
  write_bytes(*writer.file, writer.bytes);
  writer.gone += writer.bytes.size();
  writer.bytes.clear();
}

void pack(ZipWriter& writer, std::string_view content, bool is_last) {
  const std::size_t before = writer.bytes.size();
  deflate_piece(*writer.deflater, content, is_last, writer.bytes);
  writer.parts.back().packed_size += writer.bytes.size() - before;
  if (writer.bytes.size() >= piece_size) hand_over(writer);
}

/// Ends a part whose bytes are all in `content`.
void add_content(ZipWriter& writer) {
  WrittenPart& part = writer.parts.back();
  part.packed_size = writer.content.size();
  add_header(writer, part);
  writer.bytes += writer.content;
  writer.content.clear();
  if (writer.bytes.size() >= piece_size) hand_over(writer);
}

}  // namespace

void begin_part(ZipWriter& writer, std::string_view name) {
  writer.deflater = begin_deflating();
  WrittenPart part;
  part.name = name;
  part.place = size_of(writer);
  part.is_packed = part.comes_in_pieces = writer.deflater != nullptr;
  writer.parts.push_back(std::move(part));
  writer.content.clear();
  if (writer.parts.back().comes_in_pieces) add_header(writer, writer.parts.back());
}

void extend_part(ZipWriter& writer, std::string_view content) {
  WrittenPart& part = writer.parts.back();
  part.checksum = checksum_of(part.checksum, content);
  part.size += content.size();
  if (part.comes_in_pieces) {
    pack(writer, content, false);
  } else {
    writer.content += content;
  }
}

void end_part(ZipWriter& writer) {
  WrittenPart& part = writer.parts.back();
  if (!part.comes_in_pieces) return add_content(writer);
  pack(writer, {}, true);
  writer.bytes += sizes_mark;
  add_sizes(writer.bytes, part);
  writer.deflater.reset();
}

void add_part(ZipWriter& writer, std::string_view name, std::string_view content) {
  WrittenPart part;
  part.name = name;
  part.place = size_of(writer);
  part.size = content.size();
  part.checksum = checksum_of(0, content);
  writer.content = content;
  if (const DeflaterHandle deflater = begin_deflating()) {
    writer.content.clear();
    deflate_piece(*deflater, content, true, writer.content);
    part.is_packed = true;
  }
  writer.parts.push_back(std::move(part));
  add_content(writer);
}

std::uint64_t size_of(const ZipWriter& writer) {
  return writer.gone + writer.bytes.size();
}

bool finish_archive(ZipWriter& writer) {
  const std::uint64_t place = size_of(writer);
  std::string contents;
  for (const WrittenPart& part : writer.parts) {
    contents += entry_mark;
    add_number(contents, needed_version, 2);
    add_description(contents, part, true);
    contents.append(10, '\0');  // no remark, one disk, no attributes
    add_number(contents, part.place, 4);
    contents += part.name;
  }
  writer.bytes += contents;
  writer.bytes += end_mark;
  add_number(writer.bytes, 0, 4);
  add_number(writer.bytes, writer.parts.size(), 2);
  add_number(writer.bytes, writer.parts.size(), 2);
  add_number(writer.bytes, contents.size(), 4);
  add_number(writer.bytes, place, 4);
  add_number(writer.bytes, 0, 2);
  hand_over(writer);
  return size_of(writer) <= most_archive_bytes &&
         std::all_of(writer.parts.begin(), writer.parts.end(),
                     [](const WrittenPart& part) { return part.size <= most_archive_bytes; });
}

}  // namespace pedigreewatch
