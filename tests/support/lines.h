// What is printed, line by line: taking texts apart and finding lines in them, and the pieces from which expected
// lines are put together.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch::test {

/// Splits printed bytes into lines, without their line feeds.
std::vector<std::string> lines_of(std::string_view printed);

/// The bytes of `lines`, each ended by one line feed.
std::string joined(const std::vector<std::string>& lines);

/// `text` filled up with blanks to `width`, or cut to it.
std::string padded(std::string_view text, std::size_t width);

/// An integer as a free-form line shows it: right-justified in 12 columns.
std::string number(std::int64_t value);

/// The end of a long text: enough to see in what way a run went wrong.
std::string_view end_of(std::string_view text);

/// Whether `piece` stands anywhere in `text`; if not, the answer shows the end of the text.
testing::AssertionResult has(std::string_view text, std::string_view piece);

/// Whether one of the lines is exactly `line`. Of a text, lines that are ended by a line feed count.
bool has_line(const std::vector<std::string>& lines, const std::string& line);
testing::AssertionResult has_line(std::string_view text, std::string_view line);

/// Position of the first line that holds `text`, counted from 0; the number of lines when there is none.
std::size_t line_with(const std::vector<std::string>& lines, std::string_view text);

/// The lines of `printed` that begin with `start`.
std::vector<std::string> lines_starting(std::string_view printed, std::string_view start);

/// The lines of `printed` behind the first one equal to `line`; the test fails when there is none.
std::vector<std::string> lines_after(std::string_view printed, const std::string& line);

}  // namespace pedigreewatch::test
