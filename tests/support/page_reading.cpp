// Knows the markup that the page's tables are written with, and nothing else of HTML.

#include "support/page_reading.h"

namespace pedigreewatch::test {
namespace {

/// What stands between `begin` and `end`; both are taken from the front of `rest`. False without them.
bool take_between(std::string_view& rest, std::string_view begin, std::string_view end, std::string_view& between) {
  const std::size_t start = rest.find(begin);
  if (start == std::string_view::npos) return false;
  const std::size_t stop = rest.find(end, start + begin.size());
  if (stop == std::string_view::npos) return false;
  between = rest.substr(start + begin.size(), stop - start - begin.size());
  rest.remove_prefix(stop + end.size());
  return true;
}

std::string without_markup(std::string_view html) {
  std::string text;
  bool is_tag = false;
  for (const char letter : html) {
    if (letter == '<') is_tag = true;
    if (!is_tag && letter != '\n') text += letter;
    if (letter == '>') is_tag = false;
  }
  return text;
}

PageTable::TableRow row_of(std::string_view html) {
  PageTable::TableRow row;
  std::string_view heading;
  take_between(html, "<th scope=\"row\">", "</th>", heading);
  row.heading = without_markup(heading);
  while (!html.empty()) {
    const std::size_t begin = html.find("<td>");
    if (begin == std::string_view::npos) break;
    const std::size_t end = html.find("<td>", begin + 4);
    row.cells.push_back(without_markup(html.substr(begin, end - begin)));
    html.remove_prefix(end == std::string_view::npos ? html.size() : end);
  }
  return row;
}

}  // namespace

std::string_view chart_of(std::string_view page, std::string_view id) {
  std::string_view chart;
  return take_between(page, "<figure id=\"pw-" + std::string(id) + "\"", "</figure>", chart) ? chart
                                                                                             : std::string_view();
}

PageTable table_in(std::string_view part) {
  PageTable table;
  std::string_view head, body, piece;
  if (!take_between(part, "<thead>", "</thead>", head) || !take_between(part, "<tbody>", "</tbody>", body))
    return table;
  while (take_between(head, "<th scope=\"col\">", "</th>", piece)) table.headings.push_back(without_markup(piece));
  while (!body.empty()) {
    const std::size_t begin = body.find("<tr>");
    if (begin == std::string_view::npos) break;
    const std::size_t end = body.find("<tr>", begin + 4);
    table.rows.push_back(row_of(body.substr(begin, end - begin)));
    body.remove_prefix(end == std::string_view::npos ? body.size() : end);
  }
  return table;
}

std::size_t times_in(std::string_view text, std::string_view piece) {
  std::size_t times = 0;
  for (std::size_t at = text.find(piece); at != std::string_view::npos; at = text.find(piece, at + piece.size()))
    ++times;
  return times;
}

}  // namespace pedigreewatch::test
