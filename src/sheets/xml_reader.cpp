// The buffer holds whole tags and whole texts: it is filled until the end of one is found, and grows only for one that
// is longer than usual, up to `most_xml_token`.

#include "sheets/xml_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <utility>

#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t usual_buffer = std::size_t{1} << 17;

std::string_view waiting(const XmlReader& reader) {
  return {reader.buffer.data() + reader.first, reader.last - reader.first};
}

XmlEvent fail(XmlReader& reader, WorkbookFault fault) {
  if (reader.fault == WorkbookFault::none) reader.fault = fault;
  return XmlEvent::broken;
}

/// Reads more behind what is waiting. False at the end of the part, and when something is wrong.
bool fill(XmlReader& reader) {
  if (reader.has_ended) return false;
  const std::size_t length = reader.last - reader.first;
  if (reader.first > 0) {
    std::memmove(reader.buffer.data(), reader.buffer.data() + reader.first, length);
    reader.first = 0;
    reader.last = length;
  }
  if (reader.last == reader.buffer.size()) {
    if (length >= most_xml_token) {
      fail(reader, WorkbookFault::too_long);
      return false;
    }
    reader.buffer.resize(2 * reader.buffer.size());
  }
  const std::size_t count =
      read_piece(reader.part, std::span(reader.buffer).subspan(reader.last, reader.buffer.size() - reader.last));
  if (reader.part.fault != WorkbookFault::none) fail(reader, reader.part.fault);
  reader.has_ended = count == 0;
  reader.last += count;
  return count > 0;
}

/// The place of `sign` from `from` on, counted from the first byte that waits; npos when the part ends before.
std::size_t locate(XmlReader& reader, std::string_view sign, std::size_t from) {
  for (;;) {
    const std::size_t found = waiting(reader).find(sign, from);
    if (found != std::string_view::npos) return found;
    const std::size_t length = waiting(reader).size();
    from = std::max(from, length - std::min(length, sign.size() - 1));
    if (!fill(reader)) return std::string_view::npos;
  }
}

/// The end of a tag: a ">" outside of quotation marks.
std::size_t locate_tag_end(XmlReader& reader) {
  char quote = '\0';
  std::size_t place = 1;
  for (;;) {
    const std::string_view text = waiting(reader);
    for (; place < text.size(); ++place) {
      const char byte = text[place];
      if (byte == '>' && quote == '\0') return place;
      if (byte == quote) {
        quote = '\0';
      } else if (quote == '\0' && (byte == '"' || byte == '\'')) {
        quote = byte;
      }
    }
    if (!fill(reader)) return std::string_view::npos;
  }
}

bool is_space(char byte) {
  return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
}

std::string_view without_spaces(std::string_view text) {
  while (!text.empty() && is_space(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_space(text.back())) text.remove_suffix(1);
  return text;
}

XmlEvent start_element(XmlReader& reader) {
  const std::size_t end = locate_tag_end(reader);
  if (end == std::string_view::npos) return fail(reader, WorkbookFault::broken_xml);
  std::string_view tag = waiting(reader).substr(1, end - 1);
  reader.first += end + 1;
  reader.ends_itself = tag.ends_with('/');
  if (reader.ends_itself) tag.remove_suffix(1);
  const std::size_t length = std::min(tag.find_first_of(" \t\r\n"), tag.size());
  reader.name = tag.substr(0, length);
  reader.attributes = without_spaces(tag.substr(length));
  const bool is_second_root = reader.open_at.empty() && reader.has_root;
  if (reader.name.empty() || is_second_root) return fail(reader, WorkbookFault::broken_xml);
  reader.has_root = true;
  if (reader.open_at.size() == most_xml_levels) return fail(reader, WorkbookFault::too_deep);
  reader.open_at.push_back(reader.open_names.size());
  reader.open_names += reader.name;
  return XmlEvent::start;
}

void close_element(XmlReader& reader) {
  reader.open_names.resize(reader.open_at.back());
  reader.open_at.pop_back();
}

XmlEvent end_element(XmlReader& reader) {
  const std::size_t end = locate(reader, ">", 0);
  if (end == std::string_view::npos || reader.open_at.empty()) return fail(reader, WorkbookFault::broken_xml);
  reader.name = without_spaces(waiting(reader).substr(2, end - 2));
  if (reader.name != std::string_view(reader.open_names).substr(reader.open_at.back())) {
    return fail(reader, WorkbookFault::broken_xml);
  }
  reader.first += end + 1;
  close_element(reader);
  return XmlEvent::end;
}

/// Whether what waits begins with `sign`.
bool begins_with(XmlReader& reader, std::string_view sign) {
  while (waiting(reader).size() < sign.size() && fill(reader)) {
  }
  return waiting(reader).starts_with(sign);
}

/// Steps behind the next `sign`; false when there is none.
bool step_behind(XmlReader& reader, std::string_view sign) {
  const std::size_t end = locate(reader, sign, 0);
  if (end == std::string_view::npos) return false;
  reader.first += end + sign.size();
  return true;
}

/// A text up to the next tag.
XmlEvent plain_text(XmlReader& reader) {
  const std::size_t end = locate(reader, "<", 0);
  if (reader.fault != WorkbookFault::none) return XmlEvent::broken;
  reader.text = waiting(reader).substr(0, end);
  reader.is_literal = false;
  reader.first += reader.text.size();
  return XmlEvent::text;
}

XmlEvent literal_text(XmlReader& reader) {
  constexpr std::string_view opening = "<![CDATA[", closing = "]]>";
  const std::size_t end = locate(reader, closing, opening.size());
  if (end == std::string_view::npos) return fail(reader, WorkbookFault::broken_xml);
  reader.text = waiting(reader).substr(opening.size(), end - opening.size());
  reader.is_literal = true;
  reader.first += end + closing.size();
  return XmlEvent::text;
}

/// A mark at the start says that the part is UTF-8, or that it is not.
bool skip_mark(XmlReader& reader) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  reader.has_begun = true;
  if (begins_with(reader, "\xFF\xFE") || begins_with(reader, "\xFE\xFF") ||
      begins_with(reader, std::string_view("<\0", 2))) {
    fail(reader, WorkbookFault::other_encoding);
    return false;
  }
  if (begins_with(reader, mark)) reader.first += mark.size();
  return true;
}

XmlEvent end_of_part(XmlReader& reader) {
  if (reader.fault != WorkbookFault::none) return XmlEvent::broken;
  return reader.open_at.empty() && reader.has_root ? XmlEvent::done : fail(reader, WorkbookFault::broken_xml);
}

}  // namespace

XmlReader read_xml(PartReader part) {
  XmlReader reader;
  reader.fault = part.fault;
  reader.part = std::move(part);
  reader.buffer.resize(usual_buffer);
  return reader;
}

XmlEvent next_event(XmlReader& reader) {
  if (reader.fault != WorkbookFault::none) return XmlEvent::broken;
  if (reader.ends_itself) {
    reader.ends_itself = false;
    close_element(reader);
    return XmlEvent::end;
  }
  if (!reader.has_begun && !skip_mark(reader)) return XmlEvent::broken;
  for (;;) {
    if (waiting(reader).empty() && !fill(reader)) return end_of_part(reader);
    if (waiting(reader).front() != '<') return plain_text(reader);
    if (waiting(reader).size() < 2 && !fill(reader)) return fail(reader, WorkbookFault::broken_xml);
    const char kind = waiting(reader)[1];
    if (kind == '/') return end_element(reader);
    if (kind != '?' && kind != '!') return start_element(reader);
    if (kind == '!' && begins_with(reader, "<![CDATA[")) return literal_text(reader);
    if (kind == '!' && !begins_with(reader, "<!--")) return fail(reader, WorkbookFault::has_definitions);
    if (!step_behind(reader, kind == '?' ? "?>" : "-->")) return fail(reader, WorkbookFault::broken_xml);
  }
}

bool skip_element(XmlReader& reader) {
  for (std::size_t depth = 1; depth > 0;) {
    switch (next_event(reader)) {
      case XmlEvent::start: ++depth; break;
      case XmlEvent::end: --depth; break;
      case XmlEvent::text: break;
      case XmlEvent::done:
      case XmlEvent::broken: return false;
    }
  }
  return true;
}

std::string_view local_name(std::string_view name) {
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

bool take_attribute(std::string_view& attributes, std::string_view& name, std::string_view& value) {
  attributes = without_spaces(attributes);
  const std::size_t sign = attributes.find('=');
  if (sign == std::string_view::npos) return false;
  name = without_spaces(attributes.substr(0, sign));
  std::string_view rest = without_spaces(attributes.substr(sign + 1));
  if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) return false;
  const std::size_t end = rest.find(rest.front(), 1);
  if (end == std::string_view::npos) return false;
  value = rest.substr(1, end - 1);
  attributes = rest.substr(end + 1);
  return true;
}

std::string_view attribute_of(const XmlReader& reader, std::string_view name) {
  std::string_view rest = reader.attributes, found, value;
  while (take_attribute(rest, found, value)) {
    if (found == name) return value;
  }
  return {};
}

std::string attribute_text(const XmlReader& reader, std::string_view name) {
  std::string text;
  append_text(text, attribute_of(reader, name));
  return text;
}

namespace {

/// The letter of a reference without its "&" and ";"; 0 when it is none.
char32_t letter_of_reference(std::string_view reference) {
  constexpr std::array<std::pair<std::string_view, char32_t>, 5> names = {
      {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
  if (!reference.starts_with('#')) {
    const auto* const found =
        std::find_if(names.begin(), names.end(), [&](const auto& e) { return e.first == reference; });
    return found == names.end() ? 0 : found->second;
  }
  reference.remove_prefix(1);
  const bool is_hexadecimal = reference.starts_with('x');
  if (is_hexadecimal) reference.remove_prefix(1);
  std::uint32_t value = 0;
  const char* const end = reference.data() + reference.size();
  const auto [stop, error] = std::from_chars(reference.data(), end, value, is_hexadecimal ? 16 : 10);
  if (error != std::errc() || stop != end) return 0;
  const bool is_half = value >= 0xD800 && value < 0xE000;
  return value > 0x10FFFF || is_half ? replacement_letter : std::max<char32_t>(value, ' ');
}

}  // namespace

void append_text(std::string& text, std::string_view raw) {
  constexpr std::size_t longest_reference = 12;
  while (!raw.empty()) {
    const std::size_t sign = std::min(raw.find('&'), raw.size());
    text.append(raw.substr(0, sign));
    raw.remove_prefix(sign);
    if (raw.empty()) return;
    const std::size_t end = raw.substr(0, longest_reference).find(';');
    const char32_t letter = end == std::string_view::npos ? 0 : letter_of_reference(raw.substr(1, end - 1));
    if (letter == 0) {
      text.push_back('&');
      raw.remove_prefix(1);
    } else {
      append_letter(text, letter);
      raw.remove_prefix(end + 1);
    }
  }
}

void append_text(std::string& text, const XmlReader& reader) {
  if (reader.is_literal) {
    text.append(reader.text);
  } else {
    append_text(text, reader.text);
  }
}

}  // namespace pedigreewatch
