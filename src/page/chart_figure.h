// A chart with everything around it: heading, how to read it, legend, picture, what is unusual, and its figures.
#pragma once

#include <string>
#include <string_view>

#include "page/chart.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Adds a chart. One without any value becomes its heading and a sentence that says so.
void write_chart(std::string& page, const Chart& chart, ToolLanguage language);

/// Adds a table that stands open in the page.
void write_figure_table(std::string& page, const FigureTable& table, std::string_view caption);

}  // namespace pedigreewatch
