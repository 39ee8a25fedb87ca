// The legend stands outside the picture, as text that can be enlarged and read aloud. The figures are in the page once:
// the script reads them off from the table.

#include "page/chart_figure.h"

#include "page/chart_drawing.h"
#include "page/page_text.h"

namespace pedigreewatch {
namespace {

constexpr Wording figures_word = {"Figures", "Cijfers"};
constexpr Wording figures_of = {"Figures: {1}", "Cijfers: {1}"};
constexpr Wording nothing_known = {"There are no figures for this in the data.",
                                   "Hierover staan geen cijfers in de gegevens."};
constexpr Wording hollow_note = {"Hollow points: years with fewer than 10 animals.",
                                 "Open punten: jaren met minder dan 10 dieren."};
constexpr Wording unusual = {"Worth a look:", "Opvallend:"};
constexpr Wording and_more = {"and {1} more", "en nog {1}"};

void write_rows(std::string& page, const FigureTable& table, std::string_view caption) {
  page += std::string("<table") + (table.is_of_words ? " class=\"w\"" : "") + "><caption>" + escaped(caption) +
          "</caption><thead><tr>";
  for (const std::string& heading : table.headings) page += "<th scope=\"col\">" + isolated(heading) + "</th>";
  page += "</tr></thead><tbody>\n";
  for (const FigureTable::FigureRow& row : table.rows) {
    page += "<tr><th scope=\"row\">" + isolated(row.heading) + "</th>";
    for (const std::string& cell : row.cells) page += "<td>" + isolated(cell);  // the next element ends the cell
    page += "\n";
  }
  page += "</tbody></table>";
}

void write_legend(std::string& page, const Chart& chart) {
  if (chart.series.size() < 2) return;
  page += "<ul class=\"legend\">";
  for (std::size_t s = 0; s < chart.series.size(); ++s) {
    page += "<li>";
    draw_sample(page, chart.kind, s);
    page += " " + isolated(chart.series[s].name) + "</li>";
  }
  page += "</ul>";
}

void write_marks(std::string& page, const Chart& chart, ToolLanguage language) {
  constexpr std::size_t most = 12;
  if (chart.marks.empty()) return;
  page += "<p class=\"marks\"><strong>&#9660; " + escaped(words_of(unusual, language)) + "</strong> ";
  for (std::size_t m = 0; m < chart.marks.size() && m < most; ++m) {
    page += (m == 0 ? "" : "; ") + escaped(chart.marks[m].text);
  }
  if (chart.marks.size() > most) {
    page += "; " + phrase(and_more, language, {std::to_string(chart.marks.size() - most)});
  }
  page += ".</p>";
}

bool has_hollow_points(const Chart& chart) {
  if (chart.kind != ChartKind::lines) return false;
  for (std::size_t place = 0; place < chart.is_hollow.size(); ++place) {
    for (const Series& series : chart.series) {
      if (chart.is_hollow[place] && series.values[place]) return true;
    }
  }
  return false;
}

void write_figures(std::string& page, const Chart& chart, ToolLanguage language) {
  page += std::string(chart.shows_figures ? "<details open>" : "<details>") + "<summary>" +
          escaped(words_of(figures_word, language)) +
          "</summary><div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-label=\"" +
          escaped(phrase(figures_of, language, {chart.title})) + "\">";
  write_rows(page, chart.figures, chart.title);
  page += "</div></details>";
}

}  // namespace

void write_chart(std::string& page, const Chart& chart, ToolLanguage language) {
  page += "<figure id=\"" + chart.id + "\"" + place_attributes(chart) + "><h3>" + escaped(chart.title) + "</h3>";
  if (!has_values(chart)) {
    page += "<p>" + escaped(words_of(nothing_known, language)) + "</p></figure>\n";
    return;
  }
  page += "<p>" + escaped(chart.reading);
  if (has_hollow_points(chart)) page += " " + escaped(words_of(hollow_note, language));
  page += "</p>";
  write_legend(page, chart);
  page += "<div class=\"plot\" tabindex=\"0\" role=\"group\" aria-label=\"" + escaped(chart.title) + "\">";
  draw_chart(page, chart);
  page += "</div><output></output>";
  write_marks(page, chart, language);
  write_figures(page, chart, language);
  page += "</figure>\n";
}

void write_figure_table(std::string& page, const FigureTable& table, std::string_view caption) {
  page += "<div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-label=\"" + escaped(caption) + "\">";
  write_rows(page, table, caption);
  page += "</div>\n";
}

}  // namespace pedigreewatch
