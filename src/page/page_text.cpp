// Nothing of the data file reaches a page but through these operations.

#include "page/page_text.h"

#include <algorithm>
#include <cmath>

#include "checks/readable_text.h"
#include "core/fixed_text.h"
#include "core/line_writer.h"

namespace pedigreewatch {
namespace {

std::string_view entity_of(char letter) {
  switch (letter) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\'': return "&#39;";
    default: return {};
  }
}

bool is_control(char letter) {
  const auto byte = static_cast<unsigned char>(letter);
  return byte < 0x20 || byte == 0x7F;
}

bool is_ascii_text(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char letter) { return static_cast<unsigned char>(letter) < 0x80; });
}

}  // namespace

std::string escaped(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char letter : text) {
    const std::string_view entity = entity_of(letter);
    if (!entity.empty()) {
      result += entity;
    } else if (!is_control(letter)) {
      result += letter;
    }
  }
  return result;
}

std::string isolated(std::string_view text) {
  return is_ascii_text(text) ? escaped(text) : "<bdi>" + escaped(text) + "</bdi>";
}

std::string data_text(std::string_view bytes) {
  const std::string_view text = without_leading_blanks(without_trailing_blanks(bytes));
  const std::string named = with_invisible_named(text);
  return named.empty() ? readable(text) : named;
}

std::string report_figure(double value, int decimals, ToolLanguage language) {
  constexpr double beyond_meaning = 1e15;
  if (!(std::abs(value) < beyond_meaning)) return std::string(no_figure);
  LineItem item(0.0F);
  item.real = value;
  TextOutput line;
  write_format_line(line, "F60." + std::to_string(decimals), {item});
  std::string_view digits = without_leading_blanks(line.pending);
  digits.remove_suffix(decimals == 0 ? 2 : 1);  // the line feed, and a point that has no digits behind it
  if (digits.starts_with('-') && digits.find_first_of("123456789") == std::string_view::npos) digits.remove_prefix(1);
  std::string text(digits);
  if (language == ToolLanguage::dutch) std::replace(text.begin(), text.end(), '.', ',');
  return text;
}

void add_paragraph(std::string& page, std::string_view text) {
  if (!text.empty()) page += "<p>" + escaped(text) + "</p>\n";
}

void write_section(std::string& page, std::string_view id, std::string_view title, std::string_view content) {
  const std::string heading = "pw-" + std::string(id);
  page += "<section aria-labelledby=\"" + heading + "\"><h2 id=\"" + heading + "\">" + escaped(title) + "</h2>\n";
  page += std::string(content) + "</section>\n";
}

}  // namespace pedigreewatch
