// The legend stands outside the picture, as text that can be enlarged and read aloud. The figures are in the page once:
// the script reads them off from the table.

#include "page/chart_figure.h"

#include <algorithm>
#include <cmath>

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
    draw_sample(page, chart, s);
    page += " " + isolated(chart.series[s].name) + "</li>";
  }
  page += "</ul>";
}

void write_marks(std::string& page, const Chart& chart, ToolLanguage language) {
  constexpr std::size_t most = most_marks;
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

/// Whether a column has a text in any row; those of the row headings and of the bars always have.
bool has_cells(const FigureTable& table, std::size_t heading) {
  return std::any_of(table.rows.begin(), table.rows.end(), [&](const FigureTable::FigureRow& row) {
    return heading == 0 || heading > row.cells.size() || !row.cells[heading - 1].empty();
  });
}

void write_plot(std::string& page, const Chart& chart) {
  page += "<div class=\"plot\" tabindex=\"0\" role=\"group\" aria-label=\"" + escaped(chart.title) + "\">";
  draw_chart(page, chart);
  page += "</div><output></output>";
}

/// Small pictures beside one another; those of one unit have one axis. The first one's legend is that of all with as
/// many lines.
void write_panels(std::string& page, const Chart& chart) {
  page += "<div class=\"panels\">";
  std::size_t number = 0;
  for (Chart panel : chart.panels) {
    if (!has_values(panel)) continue;
    panel.id = chart.id + "-" + std::to_string(++number);
    page += "<div><p class=\"t\">" + isolated(panel.title) + "</p>";
    write_legend(page, panel);
    draw_chart(page, panel, panel_width, value_axis_of_panels(chart, panel.unit));
    page += "</div>";
  }
  page += "</div>";
}

void write_figure(std::string& page, const Chart& chart, ToolLanguage language) {
  const bool has_cursor = chart.panels.empty();
  page += "<figure id=\"" + chart.id + "\"" + (has_cursor ? place_attributes(chart) : std::string()) + "><h3>" +
          escaped(chart.title) + "</h3>";
  if (!has_values(chart)) {
    page += "<p>" + escaped(words_of(nothing_known, language)) + "</p></figure>\n";
    return;
  }
  page += "<p>" + escaped(chart.reading);
  if (has_hollow_points(chart)) page += " " + escaped(words_of(hollow_note, language));
  page += "</p>";
  if (has_cursor) {
    write_legend(page, chart);
    write_plot(page, chart);
  } else {
    write_panels(page, chart);
  }
  write_marks(page, chart, language);
  write_figures(page, chart, language);
  page += "</figure>\n";
}

}  // namespace

void write_chart(std::string& page, const Chart& chart, ToolLanguage language) {
  if (!chart.is_folded) return write_figure(page, chart, language);
  page += "<details class=\"fold\"><summary>" + escaped(chart.title) + "</summary>\n";
  write_figure(page, chart, language);
  page += "</details>\n";
}

void write_figure_table(std::string& page, const FigureTable& table, std::string_view caption) {
  page += "<div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-label=\"" + escaped(caption) + "\">";
  write_rows(page, table, caption);
  page += "</div>\n";
}

void write_folded_table(std::string& page, const FigureTable& table, std::string_view caption) {
  page += "<details class=\"fold\"><summary>" + escaped(caption) + "</summary>\n";
  write_figure_table(page, table, caption);
  page += "</details>\n";
}

void write_named_bars(std::string& page, const NamedBars& bars) {
  const double longest = bars.shares.empty() ? 0.0 : *std::max_element(bars.shares.begin(), bars.shares.end());
  page += "<figure id=\"pw-" + std::string(bars.id) + "\"><h3>" + escaped(bars.title) + "</h3><p>" +
          escaped(bars.reading) + "</p>";
  page += "<div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-label=\"" + escaped(bars.title) +
          "\"><table class=\"bars\"><thead><tr>";
  for (std::size_t h = 0; h < bars.figures.headings.size(); ++h) {
    if (has_cells(bars.figures, h)) page += "<th scope=\"col\">" + isolated(bars.figures.headings[h]) + "</th>";
  }
  page += "</tr></thead><tbody>\n";
  for (std::size_t k = 0; k < bars.figures.rows.size(); ++k) {
    const FigureTable::FigureRow& row = bars.figures.rows[k];
    page += "<tr><th scope=\"row\">" + isolated(row.heading) + "</th>";
    for (std::size_t c = 0; c < row.cells.size(); ++c) {
      if (has_cells(bars.figures, c + 1)) page += "<td>" + isolated(row.cells[c]);
    }
    constexpr double whole = 100.0;
    page +=
        "<td class=\"bar\"><svg viewBox=\"0 0 100 8\" preserveAspectRatio=\"none\" aria-hidden=\"true\"><path class=\"c" +
        std::string(bars.shares[k] > bars.most.value_or(bars.shares[k]) ? "2" : "1") + "\" d=\"M0 0h" +
        std::to_string(longest > 0.0 ? std::lround(whole * bars.shares[k] / longest) : 0) + "v8H0z\"/></svg>\n";
  }
  page += "</tbody></table></div></figure>\n";
}

}  // namespace pedigreewatch
