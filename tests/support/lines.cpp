#include "support/lines.h"

#include <algorithm>

namespace pedigreewatch::test {

std::vector<std::string> lines_of(std::string_view printed) {
  std::vector<std::string> lines;
  while (!printed.empty()) {
    const std::size_t end = printed.find('\n');
    lines.emplace_back(printed.substr(0, end));
    printed.remove_prefix(end == std::string_view::npos ? printed.size() : end + 1);
  }
  return lines;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\n");
  return text;
}

std::string padded(std::string_view text, std::size_t width) {
  std::string result(text);
  result.resize(width, ' ');
  return result;
}

std::string number(std::int64_t value) {
  const std::string digits = std::to_string(value);
  return std::string(12 - digits.size(), ' ') + digits;
}

std::string_view end_of(std::string_view text) {
  constexpr std::size_t shown = 1000;
  return text.size() > shown ? text.substr(text.size() - shown) : text;
}

testing::AssertionResult has(std::string_view text, std::string_view piece) {
  if (text.find(piece) != std::string_view::npos) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "\"" << piece << "\" does not stand in the text that ends in\n" << end_of(text);
}

bool has_line(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

testing::AssertionResult has_line(std::string_view text, std::string_view line) {
  const std::string whole = std::string(line) + "\n";
  if (text.starts_with(whole)) return testing::AssertionSuccess();
  return has(text, "\n" + whole);
}

std::size_t line_with(const std::vector<std::string>& lines, std::string_view text) {
  const auto found = std::find_if(lines.begin(), lines.end(),
                                  [&](const std::string& line) { return line.find(text) != std::string::npos; });
  return static_cast<std::size_t>(found - lines.begin());
}

std::vector<std::string> lines_starting(std::string_view printed, std::string_view start) {
  std::vector<std::string> found = lines_of(printed);
  std::erase_if(found, [&](const std::string& line) { return !line.starts_with(start); });
  return found;
}

std::vector<std::string> lines_after(std::string_view printed, const std::string& line) {
  const std::vector<std::string> lines = lines_of(printed);
  const auto found = std::find(lines.begin(), lines.end(), line);
  if (found != lines.end()) return {found + 1, lines.end()};
  ADD_FAILURE() << "no line \"" << line << "\" in\n" << printed;
  return {};
}

}  // namespace pedigreewatch::test
