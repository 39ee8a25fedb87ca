#include "core/line_reader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace pedigreewatch {
namespace {

constexpr std::size_t buffer_size = std::size_t{1} << 18;
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

/// Moves the unread bytes to the front of the buffer and reads behind them; false when nothing was added.
bool read_more(LineReader& reader) {
  if (reader.error != 0) return false;  // a wait that was stopped is not begun again
  if (reader.buffer.empty()) reader.buffer.resize(buffer_size);
  const std::size_t unread = reader.filled - reader.next;
  if (reader.next > 0) std::memmove(reader.buffer.data(), reader.buffer.data() + reader.next, unread);
  reader.next = 0;
  reader.filled = unread;
  const std::size_t room = reader.buffer.size() - unread;
  std::size_t added = 0;
  if (reader.file != nullptr) {
    errno = 0;
    added = std::fread(reader.buffer.data() + unread, 1, room, reader.file.get());
    if (added < room && std::ferror(reader.file.get()) != 0) reader.error = errno != 0 ? errno : EIO;
  } else {
    const std::string_view rest = reader.text.substr(reader.text_taken, room);
    std::copy(rest.begin(), rest.end(), reader.buffer.begin() + static_cast<std::ptrdiff_t>(unread));
    added = rest.size();
    reader.text_taken += added;
  }
  reader.filled += added;
  return added > 0;
}

void skip_byte_order_mark(LineReader& reader) {
  reader.at_start = false;
  while (reader.filled - reader.next < byte_order_mark.size() && read_more(reader)) {
  }
  const std::string_view start(reader.buffer.data() + reader.next, reader.filled - reader.next);
  if (start.starts_with(byte_order_mark)) reader.next += byte_order_mark.size();
}

const char* find_line_feed(const char* from, std::size_t length) {
  return length == 0 ? nullptr : static_cast<const char*>(std::memchr(from, '\n', length));
}

/// A carriage return at the very end of a line belongs to the line's end.
std::string_view kept_part(LineReader& reader, const char* start, std::size_t length) {
  if (length > 0 && start[length - 1] == '\r') --length;
  reader.line_length = static_cast<std::int64_t>(length);
  return {start, std::min(length, kept_line_length)};
}

/// Reads over the rest of a line that is longer than the buffer.
void skip_rest_of_line(LineReader& reader) {
  bool ends_in_return = false;
  for (;;) {
    const char* const start = reader.buffer.data() + reader.next;
    const std::size_t available = reader.filled - reader.next;
    const char* const end = find_line_feed(start, available);
    const std::size_t length = end == nullptr ? available : static_cast<std::size_t>(end - start);
    if (length > 0) ends_in_return = start[length - 1] == '\r';
    reader.line_length += static_cast<std::int64_t>(length);
    reader.next += end == nullptr ? length : length + 1;
    if (end != nullptr || !read_more(reader)) break;
  }
  if (ends_in_return) --reader.line_length;
}

}  // namespace

bool open_for_reading(LineReader& reader, const std::string& name) {
  reader = LineReader{};
  reader.name = name;
  const auto fail = [&](int reason) {
    reader.error = reason;
    return false;
  };
  if (name.find('\0') != std::string::npos) return fail(ENOENT);  // what stands before it would be taken for the name
  std::error_code ignored;
  if (std::filesystem::is_directory(name, ignored)) return fail(EISDIR);
  errno = 0;
  reader.file.reset(std::fopen(name.c_str(), "rb"));
  if (reader.file == nullptr) return fail(errno != 0 ? errno : EIO);
  reader.state = state_of_file(name);
  std::setvbuf(reader.file.get(), nullptr, _IONBF, 0);  // the reader has a buffer of its own
  return true;
}

bool read_line(LineReader& reader, std::string_view& line) {
  if (reader.at_start) skip_byte_order_mark(reader);
  std::size_t searched = 0;
  for (;;) {
    const char* const start = reader.buffer.data() + reader.next;
    const std::size_t available = reader.filled - reader.next;
    const char* const end = find_line_feed(start + searched, available - searched);
    if (end != nullptr) {
      const std::size_t length = static_cast<std::size_t>(end - start);
      line = kept_part(reader, start, length);
      reader.next += length + 1;
      break;
    }
    if (available == reader.buffer.size() && available > 0) {  // longer than the buffer: its start is all that counts
      static_assert(buffer_size > kept_line_length);
      // The kept bytes must outlive the search for the line's end, which fills the buffer anew.
      reader.long_line.assign(start, start + kept_line_length);
      line = {reader.long_line.data(), reader.long_line.size()};
      reader.line_length = 0;
      skip_rest_of_line(reader);
      break;
    }
    searched = available;
    if (!read_more(reader)) {
      if (available == 0) return false;
      const char* const last = reader.buffer.data() + reader.next;
      line = kept_part(reader, last, available);
      reader.next = reader.filled;
      break;
    }
  }
  ++reader.line_number;
  return true;
}

bool skip_line(LineReader& reader) {
  std::string_view ignored;
  return read_line(reader, ignored);
}

std::string_view upcoming_bytes(LineReader& reader) {
  while (reader.filled - reader.next < buffer_size && read_more(reader)) {
  }
  return {reader.buffer.data() + reader.next, reader.filled - reader.next};
}

void rewind(LineReader& reader) {
  errno = 0;
  const bool has_failed = reader.file != nullptr && std::fseek(reader.file.get(), 0, SEEK_SET) != 0;
  if (has_failed) reader.error = errno != 0 ? errno : EIO;
  reader.next = reader.filled = reader.text_taken = 0;
  reader.at_start = true;
  reader.line_number = 0;
}

bool has_changed(const LineReader& reader) {
  return reader.file != nullptr && !(state_of_file(reader.name) == reader.state);
}

void note_change(LineReader& reader) {
  if (reader.error == 0 && has_changed(reader)) reader.error = input_has_changed;
}

void stop_if_changed(const LineReader& reader, RunStreams& streams) {
  if (!has_changed(reader)) return;
  streams.has_changed_input = true;
  stop_on_file(streams, reader.name, error_text(input_has_changed));
}

void stop_if_unreadable(const LineReader& reader, RunStreams& streams) {
  if (reader.error != 0) stop_on_file(streams, reader.name, error_text(reader.error));
}

}  // namespace pedigreewatch
