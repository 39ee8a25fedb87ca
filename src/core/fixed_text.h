// Text of a fixed width: padded with blanks at the end, never terminated. All comparisons of texts in this
// program ignore trailing blanks, so that "Rex" and "Rex   " are one name. Texts are bytes; nothing recodes them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace pedigreewatch {

/// The text without the blanks at its end. Only blanks count: a tab or a NUL byte is text.
constexpr std::string_view without_trailing_blanks(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

/// The text without the blanks at its start.
constexpr std::string_view without_leading_blanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return text;
}

/// What stands between the blanks, tabs and line ends around it.
constexpr std::string_view without_blanks(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Whether two texts are equal when the shorter one is thought filled up with blanks.
constexpr bool same_text(std::string_view a, std::string_view b) {
  return without_trailing_blanks(a) == without_trailing_blanks(b);
}

/// `Width` bytes, blank at the start.
template <std::size_t Width>
struct FixedText {
  std::array<char, Width> bytes;

  constexpr FixedText() { bytes.fill(' '); }
  /// Cuts `text` at the width, or fills it up with blanks.
  constexpr explicit FixedText(std::string_view text) { assign(text); }

  constexpr void assign(std::string_view text) {
    const std::size_t length = std::min(text.size(), Width);
    std::copy_n(text.begin(), length, bytes.begin());
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(length), bytes.end(), ' ');
  }

  /// All bytes, trailing blanks included.
  constexpr std::string_view full() const { return {bytes.data(), Width}; }
  constexpr std::string_view trimmed() const { return without_trailing_blanks(full()); }
  constexpr bool is_blank() const { return trimmed().empty(); }

  friend constexpr bool operator==(const FixedText& a, const FixedText& b) { return a.bytes == b.bytes; }
  friend constexpr bool operator==(const FixedText& a, std::string_view b) { return same_text(a.full(), b); }
};

}  // namespace pedigreewatch
