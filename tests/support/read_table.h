// Tables that the tools write, taken apart again.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch::test {

struct ReadTable {
  std::vector<std::string> names;
  std::vector<std::vector<std::string>> rows;

  /// The place of a column; the test fails when there is none of this name.
  std::size_t place(const std::string& name) const;
  /// The cell of a row (counted from 0) in the column of this name.
  const std::string& cell(std::size_t row, const std::string& name) const { return rows.at(row).at(place(name)); }
};

/// Takes the text apart; the test fails when a row has more or fewer cells than the header.
ReadTable read_table(std::string_view text, char separator = '\t');

}  // namespace pedigreewatch::test
