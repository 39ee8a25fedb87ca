#include "page/bar_list.h"

#include <algorithm>
#include <cmath>

#include "page/page_text.h"

namespace pedigreewatch {
namespace {

constexpr double longest_bar = 160.0;
constexpr int bar_height = 9, bar_distance = 11;

double largest_value(const BarList& list) {
  double largest = 0.0;
  for (const BarList::Row& row : list.rows) {
    for (const Value& value : row.values) largest = std::max(largest, value.value_or(0.0));
  }
  return largest;
}

void draw_bars(std::string& page, const BarList::Row& row, double largest) {
  const std::string height = std::to_string(bar_distance * static_cast<int>(row.values.size()));
  const std::string width = std::to_string(static_cast<int>(longest_bar));
  page += "<svg width=\"" + width + "\" height=\"" + height + "\" viewBox=\"0 0 " + width + " " + height +
          "\" aria-hidden=\"true\">";
  for (std::size_t s = 0; s < row.values.size(); ++s) {
    const double value = row.values[s].value_or(0.0);
    if (value <= 0.0 || largest <= 0.0) continue;
    // A bar that is there is seen.
    const auto length = std::max<long>(1, std::lround(longest_bar * value / largest));
    page += "<path class=\"b b" + std::to_string(s + 1) + "\" d=\"M0 " +
            std::to_string(1 + bar_distance * static_cast<int>(s)) + "h" + std::to_string(length) + "v" +
            std::to_string(bar_height) + "h-" + std::to_string(length) + "z\"/>";
  }
  page += "</svg>";
}

void write_headings(std::string& page, const BarList& list) {
  page += "<thead><tr><th scope=\"col\">" + escaped(list.heading) + "</th>";
  for (std::size_t s = 0; s < list.figures.size(); ++s) {
    page += "<th scope=\"col\">";
    page += "<svg viewBox=\"0 0 40 14\" class=\"s\" aria-hidden=\"true\"><path class=\"b b" + std::to_string(s + 1) +
            "\" d=\"M2 1h36v12h-36z\"/></svg> " + escaped(list.figures[s]) + "</th>";
  }
  page += "<td></td></tr></thead>";
}

}  // namespace

void write_bar_list(std::string& page, const BarList& list, ToolLanguage language) {
  page += "<figure id=\"" + list.id + "\"><h3>" + escaped(list.title) + "</h3><p>" + escaped(list.reading) +
          "</p>\n<div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-label=\"" + escaped(list.title) +
          "\"><table>";
  write_headings(page, list);
  page += "<tbody>\n";
  const double largest = largest_value(list);
  for (const BarList::Row& row : list.rows) {
    page += "<tr><th scope=\"row\">" + isolated(row.name) + "</th>";
    for (const Value& value : row.values) {
      page += "<td>" + (value ? report_figure(*value, list.decimals, language) : std::string(no_figure)) + "</td>";
    }
    page += "<td>";
    draw_bars(page, row, largest);
    page += "</td></tr>\n";
  }
  page += "</tbody></table></div></figure>\n";
}

}  // namespace pedigreewatch
