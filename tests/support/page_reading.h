// The figures of a page, read back from its tables.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch::test {

/// A table of a page, without markup; entities stay as they are.
struct PageTable {
  std::vector<std::string> headings;
  struct TableRow {
    std::string heading;
    std::vector<std::string> cells;
  };
  std::vector<TableRow> rows;
};

/// The part of the page that is the chart with this id, without the "pw-" in front; empty without such a chart.
std::string_view chart_of(std::string_view page, std::string_view id);

/// The first table in a part of a page; empty without any.
PageTable table_in(std::string_view part);

/// How many times `piece` stands in `text`.
std::size_t times_in(std::string_view text, std::string_view piece);

}  // namespace pedigreewatch::test
