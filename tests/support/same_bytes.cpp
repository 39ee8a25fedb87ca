#include "support/same_bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace pedigreewatch::test {
namespace {

/// The lines of a text, each with its line feed; the last one may be without.
std::vector<std::string_view> whole_lines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return lines;
}

/// A line with every byte visible: blanks at the end, tabs and accented letters matter.
std::string visible(std::string_view line) {
  std::string shown = "\"";
  for (const char letter : line) {
    const auto byte = static_cast<unsigned char>(letter);
    if (letter == '\n') {
      shown += "\\n";
    } else if (byte < 0x20 || byte > 0x7E) {
      char code[5];
      std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(byte));
      shown += code;
    } else {
      shown += letter;
    }
  }
  return shown + "\"";
}

}  // namespace

testing::AssertionResult same_bytes(const std::string& what, std::string_view expected, std::string_view got) {
  if (expected == got) return testing::AssertionSuccess();
  const auto expected_lines = whole_lines(expected);
  const auto got_lines = whole_lines(got);
  std::size_t line = 0;
  while (line < expected_lines.size() && line < got_lines.size() && expected_lines[line] == got_lines[line]) ++line;
  const auto shown = [line](const auto& lines) {
    return line < lines.size() ? visible(lines[line]) : std::string("(no such line)");
  };
  return testing::AssertionFailure() << what << ", line " << line + 1 << ":\n  expected " << shown(expected_lines)
                                     << "\n  got      " << shown(got_lines);
}

}  // namespace pedigreewatch::test
