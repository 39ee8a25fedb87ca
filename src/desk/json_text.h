// Answers of the desk as JSON (RFC 8259), written piece by piece. Texts become valid UTF-8, and what a script or a line
// end could be taken for is escaped.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pedigreewatch {

struct JsonText {
  std::string text;
  bool needs_comma = false;  ///< something stands in the object or list at hand
};

void begin_object(JsonText& json);
void end_object(JsonText& json);
void begin_list(JsonText& json);
void end_list(JsonText& json);

/// The name of the next value of the object at hand: letters only.
void add_name(JsonText& json, std::string_view name);

/// Texts are UTF-8, or bytes of the data file, which are read as Windows-1252.
void add_text(JsonText& json, std::string_view text);
void add_integer(JsonText& json, std::int64_t value);
/// A value that is not finite becomes null.
void add_real(JsonText& json, double value);
void add_logical(JsonText& json, bool value);
void add_nothing(JsonText& json);

/// The same with their names.
void add_text(JsonText& json, std::string_view name, std::string_view text);
void add_integer(JsonText& json, std::string_view name, std::int64_t value);
void add_logical(JsonText& json, std::string_view name, bool value);
void begin_list(JsonText& json, std::string_view name);
void begin_object(JsonText& json, std::string_view name);

}  // namespace pedigreewatch
