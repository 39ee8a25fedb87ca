// docs/tables.md describes every column of every table, and no column that there is not.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "support/case_folder.h"
#include "support/lines.h"
#include "support/places.h"
#include "support/program_run.h"
#include "support/read_table.h"

namespace pedigreewatch::test {
namespace {

/// The columns that the section of a table describes: what stands in the first cell of its rows.
std::set<std::string> documented_columns(const std::string& section) {
  const std::filesystem::path document = std::filesystem::path(source_folder()) / "docs" / "tables.md";
  std::set<std::string> columns;
  bool is_here = false;
  for (const std::string& line : lines_of(bytes_of(document))) {
    if (line.starts_with("## ")) is_here = line == "## " + section;
    if (is_here && line.starts_with("| `")) columns.insert(line.substr(3, line.find('`', 3) - 3));
  }
  EXPECT_FALSE(columns.empty()) << section;
  return columns;
}

/// The name under which a column is described: its own, or that of its family.
std::string family_of(const std::string& name, const std::set<std::string>& documented) {
  if (documented.contains(name)) return name;
  for (const std::string prefix : {"born_", "colour_", "F_mean_", "kinship_", "parents_from_"}) {
    if (name.starts_with(prefix) && documented.contains(prefix + "NAME")) return prefix + "NAME";
  }
  if (name.starts_with("relationship_")) return "relationship_NAME__NAME";
  std::string numbered;
  for (const char letter : name) {
    const bool is_digit = std::isdigit(static_cast<unsigned char>(letter)) != 0;
    if (!is_digit) numbered += letter;
    if (is_digit && (numbered.empty() || numbered.back() != 'N')) numbered += 'N';
  }
  return numbered;
}

/// The columns of all files with this ending that `tables` writes for all golden cases, by their families.
std::set<std::string> written_columns(const std::string& ending, const std::set<std::string>& documented) {
  std::set<std::string> columns;
  for (const std::string golden_case :
       {"columns_all_en", "column_import_en", "subpopulations_three_en", "breeders_thirteen_en", "top_sires_en"}) {
    const WholeRun run = run_program_on(read_case(std::filesystem::path(golden_folder()) / golden_case).inputs,
                                        tools_with({"tables", "--founders"}));
    for (const auto& [name, bytes] : run.files) {
      if (!name.ends_with(ending)) continue;
      for (const std::string& column : read_table(bytes).names) columns.insert(family_of(column, documented));
    }
  }
  return columns;
}

class DataDictionary : public testing::TestWithParam<std::string> {};

TEST_P(DataDictionary, DescribesExactlyTheColumnsThatThereAre) {
  std::set<std::string> documented = documented_columns("NAME" + GetParam());
  const bool is_subpopulations = GetParam() == "_subpopulations";
  if (is_subpopulations) documented.merge(documented_columns("NAME_years"));
  const std::set<std::string> written = written_columns(GetParam() + ".tsv", documented);
  for (const std::string& column : written) EXPECT_TRUE(documented.contains(column)) << column << " is not described";
  if (is_subpopulations) documented = documented_columns("NAME_subpopulations");
  for (const std::string& column : documented) EXPECT_TRUE(written.contains(column)) << column << " is not written";
}

INSTANTIATE_TEST_SUITE_P(OfTables, DataDictionary,
                         testing::Values("_years", "_subpopulations", "_animals", "_diversity", "_cohorts",
                                         "_by_kinship", "_most_inbred", "_used_sires", "_division", "_founders"),
                         [](const auto& table) { return "Name" + table.param; });

}  // namespace
}  // namespace pedigreewatch::test
