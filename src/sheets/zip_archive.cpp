// Numbers in an archive are little-endian. The table of contents ends the file, but for a remark of at most 64 KB; the
// entries of it tell sizes and places, so that the headers in front of the parts are only skipped.

#include "sheets/zip_archive.h"

#include <algorithm>

namespace pedigreewatch {
namespace {

constexpr std::size_t end_size = 22, longest_remark = 65535, entry_size = 46, header_size = 30, long_end_size = 56;
constexpr std::size_t locator_size = 20;
constexpr std::string_view end_mark = "PK\x05\x06", entry_mark = "PK\x01\x02", header_mark = "PK\x03\x04";
constexpr std::string_view long_end_mark = "PK\x06\x06", locator_mark = "PK\x06\x07";
constexpr std::uint64_t unsaid_32 = 0xFFFFFFFF, unsaid_16 = 0xFFFF;  // stands where the real number is 64 bits wide
constexpr std::uint64_t most_parts = 20'000;

/// The number of `count` bytes at `place`; 0 beyond the end.
std::uint64_t number_at(std::string_view bytes, std::size_t place, std::size_t count) {
  std::uint64_t value = 0;
  if (place > bytes.size() || bytes.size() - place < count) return 0;
  for (std::size_t i = 0; i < count; ++i) {
    value |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[place + i])) << (8 * i);
  }
  return value;
}

bool has_mark(std::string_view bytes, std::uint64_t place, std::string_view mark) {
  return place <= bytes.size() && bytes.substr(static_cast<std::size_t>(place)).starts_with(mark);
}

struct Contents {
  std::uint64_t count = 0, size = 0, place = 0;
};

/// The same numbers 64 bits wide, where the end only points to them.
void widen(std::string_view bytes, std::size_t end, Contents& contents) {
  if (end < locator_size || !has_mark(bytes, end - locator_size, locator_mark)) return;
  const std::uint64_t place = number_at(bytes, end - locator_size + 8, 8);
  if (!has_mark(bytes, place, long_end_mark) || bytes.size() - place < long_end_size) return;
  const auto long_end = static_cast<std::size_t>(place);
  contents = {number_at(bytes, long_end + 32, 8), number_at(bytes, long_end + 40, 8),
              number_at(bytes, long_end + 48, 8)};
}

bool find_contents(std::string_view bytes, Contents& contents) {
  if (bytes.size() < end_size) return false;
  const std::size_t last = bytes.size() - end_size;
  const std::size_t first = last - std::min(last, longest_remark);
  const std::size_t found = bytes.rfind(end_mark, last);
  if (found == std::string_view::npos || found < first) return false;
  contents = {number_at(bytes, found + 10, 2), number_at(bytes, found + 12, 4), number_at(bytes, found + 16, 4)};
  if (contents.count == unsaid_16 || contents.size == unsaid_32 || contents.place == unsaid_32) {
    widen(bytes, found, contents);
  }
  return contents.place <= found && contents.size <= found - contents.place && contents.count <= most_parts;
}

/// Sizes and place of an entry; those that do not fit 32 bits stand in its extra field, in this order.
struct EntryNumbers {
  std::uint64_t size = 0, packed_size = 0, place = 0;
};

void widen(std::string_view extra, EntryNumbers& numbers) {
  constexpr std::uint64_t wide_numbers = 1;
  while (extra.size() >= 4) {
    const std::uint64_t kind = number_at(extra, 0, 2);
    const std::size_t length =
        std::min<std::size_t>(static_cast<std::size_t>(number_at(extra, 2, 2)), extra.size() - 4);
    std::string_view field = extra.substr(4, length);
    extra.remove_prefix(4 + length);
    if (kind != wide_numbers) continue;
    for (std::uint64_t* const number : {&numbers.size, &numbers.packed_size, &numbers.place}) {
      if (*number != unsaid_32 || field.size() < 8) continue;
      *number = number_at(field, 0, 8);
      field.remove_prefix(8);
    }
  }
}

/// Where the packed bytes of an entry begin: behind a header of its own. False when they are not all there.
bool find_bytes(std::string_view bytes, const EntryNumbers& numbers, ZipPart& part) {
  if (!has_mark(bytes, numbers.place, header_mark)) return false;
  const auto header = static_cast<std::size_t>(numbers.place);
  const std::uint64_t names = number_at(bytes, header + 26, 2) + number_at(bytes, header + 28, 2);
  const std::uint64_t first = numbers.place + header_size + names;
  if (first > bytes.size() || numbers.packed_size > bytes.size() - first) return false;
  part.bytes = bytes.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(numbers.packed_size));
  return true;
}

/// Reads one entry and steps behind it.
bool take_entry(std::string_view bytes, std::size_t& place, ZipPart& part) {
  if (!has_mark(bytes, place, entry_mark) || bytes.size() - place < entry_size) return false;
  const auto name_length = static_cast<std::size_t>(number_at(bytes, place + 28, 2));
  const auto extra_length = static_cast<std::size_t>(number_at(bytes, place + 30, 2));
  const auto remark_length = static_cast<std::size_t>(number_at(bytes, place + 32, 2));
  if (bytes.size() - place - entry_size < name_length + extra_length + remark_length) return false;
  part.name = bytes.substr(place + entry_size, name_length);
  std::replace(part.name.begin(), part.name.end(), '\\', '/');
  part.is_protected = (number_at(bytes, place + 8, 2) & 1) != 0;
  part.method = static_cast<std::uint16_t>(number_at(bytes, place + 10, 2));
  part.checksum = static_cast<std::uint32_t>(number_at(bytes, place + 16, 4));
  EntryNumbers numbers = {number_at(bytes, place + 24, 4), number_at(bytes, place + 20, 4),
                          number_at(bytes, place + 42, 4)};
  widen(bytes.substr(place + entry_size + name_length, extra_length), numbers);
  part.size = numbers.size;
  place += entry_size + name_length + extra_length + remark_length;
  return find_bytes(bytes, numbers, part);
}

bool is_same_letter(char a, char b) {
  const auto lower = [](char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; };
  return lower(a) == lower(b);
}

/// Bytes of a part that is stored as it is.
std::size_t copy_piece(PartReader& reader, std::span<char> room) {
  const std::size_t count = std::min(room.size(), reader.rest.size());
  std::copy_n(reader.rest.begin(), count, room.begin());
  reader.rest.remove_prefix(count);
  reader.is_at_end = reader.rest.empty();
  return count;
}

std::size_t unpack_piece(PartReader& reader, std::span<char> room) {
  std::size_t count = 0;
  const InflateState state = inflate_piece(*reader.inflater, room, count);
  if (state == InflateState::broken) reader.fault = WorkbookFault::broken_packing;
  reader.is_at_end = state != InflateState::more;
  return count;
}

}  // namespace

bool list_parts(std::string_view bytes, ZipArchive& archive, WorkbookProblem& problem) {
  Contents contents;
  archive.parts.clear();
  problem.fault = WorkbookFault::cut_off;
  if (!find_contents(bytes, contents)) return false;
  auto place = static_cast<std::size_t>(contents.place);
  for (std::uint64_t i = 0; i < contents.count; ++i) {
    ZipPart part;
    if (!take_entry(bytes, place, part)) return false;
    archive.parts.push_back(std::move(part));
  }
  problem.fault = WorkbookFault::none;
  return true;
}

const ZipPart* find_part(const ZipArchive& archive, std::string_view name) {
  if (name.starts_with('/')) name.remove_prefix(1);
  const auto found = std::find_if(archive.parts.begin(), archive.parts.end(), [&](const ZipPart& part) {
    return std::equal(part.name.begin(), part.name.end(), name.begin(), name.end(), is_same_letter);
  });
  return found == archive.parts.end() ? nullptr : &*found;
}

PartReader open_part(const ZipPart& part, ZipArchive& archive) {
  PartReader reader;
  reader.name = part.name;
  reader.size = part.size;
  reader.wanted_checksum = part.checksum;
  reader.bytes_left = &archive.bytes_left;
  if (part.is_protected) {
    reader.fault = WorkbookFault::is_protected;
  } else if (part.method == method_stored) {
    reader.rest = part.bytes;
  } else if (part.method == method_deflated) {
    reader.inflater = begin_inflating(part.bytes);
    if (reader.inflater == nullptr) reader.fault = WorkbookFault::unknown_packing;
  } else {
    reader.fault = WorkbookFault::unknown_packing;
  }
  return reader;
}

std::size_t read_piece(PartReader& reader, std::span<char> room) {
  if (reader.fault != WorkbookFault::none || reader.is_at_end || room.empty()) return 0;
  const std::size_t count = reader.inflater == nullptr ? copy_piece(reader, room) : unpack_piece(reader, room);
  if (reader.fault != WorkbookFault::none) return 0;
  if (count > *reader.bytes_left) {
    reader.fault = WorkbookFault::too_large;
    return 0;
  }
  *reader.bytes_left -= count;
  reader.delivered += count;
  reader.checksum = checksum_of(reader.checksum, std::string_view(room.data(), count));
  const bool is_whole = reader.delivered == reader.size && reader.checksum == reader.wanted_checksum;
  if (reader.is_at_end && !is_whole) {
    reader.fault = WorkbookFault::broken_packing;
    return 0;
  }
  return count;
}

}  // namespace pedigreewatch
