// Animals or ways with bars behind their figures, one below the other: each bar has its name, also on a small screen.
#pragma once

#include <string>
#include <vector>

#include "page/chart.h"
#include "text/phrases.h"

namespace pedigreewatch {

struct BarList {
  std::string id;                    ///< of the element, unique in the page
  std::string title;                 ///< what it shows
  std::string reading;               ///< how to read it
  std::string heading;               ///< of the names
  std::vector<std::string> figures;  ///< headings of the figures of each row
  struct Row {
    std::string name;
    std::vector<Value> values;  ///< one for each figure, not below 0
  };
  std::vector<Row> rows;
  int decimals = 2;
};

/// Adds the list. All bars of it are of one scale.
void write_bar_list(std::string& page, const BarList& list, ToolLanguage language);

}  // namespace pedigreewatch
