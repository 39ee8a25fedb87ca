// Texts of a page: what the data file says made harmless, and figures as the report writes them. Everything is UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "text/phrases.h"

namespace pedigreewatch {

/// What stands in a table where there is no figure.
inline constexpr std::string_view no_figure = "\xE2\x80\x93";

/// The text with the five letters of HTML that are not themselves replaced; control characters are left out.
std::string escaped(std::string_view text);

/// The same inside an element that keeps the direction of its letters to itself. ASCII needs none.
std::string isolated(std::string_view text);

/// Bytes of the data file or steer file as text: UTF-8, without blanks around it, invisible letters and letters that
/// turn the direction of reading by their names: "HS<U+200F>1".
std::string data_text(std::string_view bytes);

/// A figure with so many decimals, without blanks; `no_figure` when it is no number, or beyond all meaning. With the
/// decimal sign of the language, and without the sign of a figure that rounds to 0.
std::string report_figure(double value, int decimals, ToolLanguage language);

/// Adds a paragraph with the text; none where there is no text.
void add_paragraph(std::string& page, std::string_view text);

/// Adds a section under a title. `id` tells it from the others of the page; `content` is HTML.
void write_section(std::string& page, std::string_view id, std::string_view title, std::string_view content);

}  // namespace pedigreewatch
