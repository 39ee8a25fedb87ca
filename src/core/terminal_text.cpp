// A terminal takes text for UTF-8 or for one byte a letter; nothing may reach it that either would act on.

#include "core/terminal_text.h"

#include <algorithm>
#include <cstddef>

namespace pedigreewatch {
namespace {

unsigned byte_at(const std::string& text, std::size_t place) {
  return place < text.size() ? static_cast<unsigned char>(text[place]) : 0U;
}

/// How many bytes the letter of UTF-8 at `place` has; 0: there is none.
std::size_t letter_length(const std::string& text, std::size_t place) {
  const unsigned first = byte_at(text, place);
  const std::size_t length = first >= 0xC2 && first <= 0xDF   ? 2
                             : first >= 0xE0 && first <= 0xEF ? 3
                             : first >= 0xF0 && first <= 0xF4 ? 4
                                                              : 0;
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte_at(text, place + k) & 0xC0U) != 0x80U) return 0;
  }
  return length;
}

bool is_control(unsigned byte) {
  return (byte < 0x20 && byte != '\n') || (byte >= 0x7F && byte <= 0x9F);
}

}  // namespace

void hide_controls(std::string& text) {
  const auto needs_look = [](char byte) {
    const unsigned value = static_cast<unsigned char>(byte);
    return is_control(value) || value >= 0x80;
  };
  if (std::none_of(text.begin(), text.end(), needs_look)) return;
  std::string shown;
  for (std::size_t place = 0; place < text.size();) {
    const std::size_t length = letter_length(text, place);
    const bool is_second_control = length == 2 && byte_at(text, place) == 0xC2 && byte_at(text, place + 1) <= 0x9F;
    if (is_second_control || (length == 0 && is_control(byte_at(text, place)))) {
      shown += '?';
    } else {
      shown.append(text, place, std::max<std::size_t>(length, 1));
    }
    place += std::max<std::size_t>(length, 1);
  }
  text = shown;
}

}  // namespace pedigreewatch
