// Cells may stand in quotation marks, with those within them doubled; no cell holds a line feed.

#include "support/read_table.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

std::vector<std::string> cells_of(std::string_view line, char separator) {
  std::vector<std::string> cells(1);
  bool is_quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"' && is_quoted && i + 1 < line.size() && line[i + 1] == '"') {
      cells.back() += line[i++];
    } else if (line[i] == '"') {
      is_quoted = !is_quoted;
    } else if (line[i] == separator && !is_quoted) {
      cells.emplace_back();
    } else {
      cells.back() += line[i];
    }
  }
  EXPECT_FALSE(is_quoted) << line;
  return cells;
}

}  // namespace

std::size_t ReadTable::place(const std::string& name) const {
  const auto found = std::find(names.begin(), names.end(), name);
  EXPECT_NE(found, names.end()) << "no column " << name;
  return static_cast<std::size_t>(found - names.begin());
}

ReadTable read_table(std::string_view text, char separator) {
  ReadTable table;
  for (const std::string& line : lines_of(text)) {
    std::vector<std::string> cells = cells_of(line, separator);
    if (table.names.empty()) {
      table.names = std::move(cells);
      continue;
    }
    EXPECT_EQ(cells.size(), table.names.size()) << line;
    table.rows.push_back(std::move(cells));
  }
  return table;
}

}  // namespace pedigreewatch::test
