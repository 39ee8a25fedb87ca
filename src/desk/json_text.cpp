#include "desk/json_text.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>

#include "checks/readable_text.h"

namespace pedigreewatch {
namespace {

void begin_value(JsonText& json) {
  if (json.needs_comma) json.text.push_back(',');
  json.needs_comma = true;
}

void open(JsonText& json, char bracket) {
  begin_value(json);
  json.text.push_back(bracket);
  json.needs_comma = false;
}

void close(JsonText& json, char bracket) {
  json.text.push_back(bracket);
  json.needs_comma = true;
}

/// "<" is escaped too, so that no answer can end a script that it stands in.
bool is_plain(char byte) {
  return static_cast<unsigned char>(byte) >= ' ' && byte != '"' && byte != '\\' && byte != '<' && byte != '\x7F';
}

void append_escaped(std::string& text, char byte) {
  constexpr std::string_view digits = "0123456789abcdef";
  if (is_plain(byte)) {
    text.push_back(byte);
    return;
  }
  const auto number = static_cast<std::size_t>(static_cast<unsigned char>(byte));
  text += "\\u00";
  text.push_back(digits[number / 16]);
  text.push_back(digits[number % 16]);
}

void append_quoted(std::string& text, std::string_view value) {
  text.push_back('"');
  for (const char byte : readable(value)) append_escaped(text, byte);
  text.push_back('"');
}

}  // namespace

void begin_object(JsonText& json) {
  open(json, '{');
}

void end_object(JsonText& json) {
  close(json, '}');
}

void begin_list(JsonText& json) {
  open(json, '[');
}

void end_list(JsonText& json) {
  close(json, ']');
}

void add_name(JsonText& json, std::string_view name) {
  begin_value(json);
  append_quoted(json.text, name);
  json.text.push_back(':');
  json.needs_comma = false;
}

void add_text(JsonText& json, std::string_view text) {
  begin_value(json);
  append_quoted(json.text, text);
}

void add_integer(JsonText& json, std::int64_t value) {
  begin_value(json);
  json.text += std::to_string(value);
}

void add_real(JsonText& json, double value) {
  if (!std::isfinite(value)) return add_nothing(json);
  begin_value(json);
  std::array<char, 40> digits{};
  std::snprintf(digits.data(), digits.size(), "%.17g", value);
  json.text += digits.data();
}

void add_logical(JsonText& json, bool value) {
  begin_value(json);
  json.text += value ? "true" : "false";
}

void add_nothing(JsonText& json) {
  begin_value(json);
  json.text += "null";
}

void add_text(JsonText& json, std::string_view name, std::string_view text) {
  add_name(json, name);
  add_text(json, text);
}

void add_integer(JsonText& json, std::string_view name, std::int64_t value) {
  add_name(json, name);
  add_integer(json, value);
}

void add_logical(JsonText& json, std::string_view name, bool value) {
  add_name(json, name);
  add_logical(json, value);
}

void begin_list(JsonText& json, std::string_view name) {
  add_name(json, name);
  begin_list(json);
}

void begin_object(JsonText& json, std::string_view name) {
  add_name(json, name);
  begin_object(json);
}

}  // namespace pedigreewatch
