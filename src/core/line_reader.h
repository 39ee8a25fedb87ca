// Reads a text file line by line, in one buffered pass without an allocation per line. A line ends in a line feed,
// with or without a carriage return before it, or at the end of the file; neither byte is part of the text. A UTF-8
// byte order mark at the start of the file is skipped. No other byte is changed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/file_state.h"
#include "core/run_streams.h"

namespace pedigreewatch {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

/// Its file is closed with it, also when a message stops the run.
struct LineReader {
  std::unique_ptr<std::FILE, CloseFile> file = {};  ///< none: the bytes come from `text` alone (tests)
  std::string name = {};                            ///< the file's name, for messages
  std::string_view text = {};                       ///< the whole text to read when there is no file
  std::size_t text_taken = 0;                       ///< how much of `text` has gone into the buffer
  std::vector<char> buffer = {};
  std::vector<char> long_line = {};  ///< the kept start of a line that is longer than the buffer
  std::size_t next = 0, filled = 0;  ///< the bytes of the buffer that have not been read yet
  bool at_start = true;
  std::int64_t line_number = 0;  ///< of the line last read, counted from 1
  std::int64_t line_length = 0;  ///< its bytes without the line's end, also those that are not kept
  FileState state = {};          ///< of the file when it was opened
  int error = 0;  ///< errno of an opening or a read that failed, where the file then ends; or of `note_change`
};

/// The longest part of a line that is kept: what stands behind it is read over.
inline constexpr std::size_t kept_line_length = 600;

/// Opens `name` for reading. Folders do not count as files. Yields false, with the reason in `error`, when it
/// cannot be opened.
bool open_for_reading(LineReader& reader, const std::string& name);

/// Yields the next line in `line`, at most its first 600 bytes, valid until the next call; false at the end.
bool read_line(LineReader& reader, std::string_view& line);

/// Reads on to the end of the next line without keeping it; false at the end.
bool skip_line(LineReader& reader);

/// Yields bytes that are read next, as many as the buffer holds at the start of the file, and takes none of them. Valid
/// until the next call.
std::string_view upcoming_bytes(LineReader& reader);

/// Goes back to the start of the file. A failure is kept in `error`.
void rewind(LineReader& reader);

/// Whether the file has been written to, replaced or removed since it was opened.
bool has_changed(const LineReader& reader);

/// Keeps in `error` that the file has changed since it was opened. For files that are read once, when they are read.
void note_change(LineReader& reader);

/// Stops the run when the file has changed since it was opened; the report of an earlier run stays then.
void stop_if_changed(const LineReader& reader, RunStreams& streams);

/// Stops the run when a read has failed.
void stop_if_unreadable(const LineReader& reader, RunStreams& streams);

}  // namespace pedigreewatch
