// A chart with everything around it: heading, how to read it, legend, picture, what is unusual, and its figures.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "page/chart.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Adds a chart. One without any value becomes its heading and a sentence that says so.
void write_chart(std::string& page, const Chart& chart, ToolLanguage language);

/// Adds a table that stands open in the page.
void write_figure_table(std::string& page, const FigureTable& table, std::string_view caption);

/// The same behind its caption, until somebody opens it.
void write_folded_table(std::string& page, const FigureTable& table, std::string_view caption);

/// A table of animals with a bar at the end of each row.
struct NamedBars {
  std::string_view id;
  std::string title, reading;
  FigureTable figures;
  std::vector<double> shares;  ///< by row
  std::optional<double> most;  ///< a bar of more has another colour
};

void write_named_bars(std::string& page, const NamedBars& bars);

}  // namespace pedigreewatch
