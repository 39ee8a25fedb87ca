// Every figure of the tables by birth year is that of the report: the reports of all golden cases are taken apart here,
// and each field is compared with the cell of its column, printed as the report prints it.
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "checks/readable_text.h"
#include "core/line_writer.h"
#include "support/case_folder.h"
#include "support/lines.h"
#include "support/places.h"
#include "support/program_run.h"
#include "support/read_table.h"

namespace pedigreewatch::test {
namespace {

const std::filesystem::path golden = golden_folder();

/// A field of a line of the report and the column that has its figure; without a name it is not compared.
struct Field {
  std::string layout;  ///< "I8", "F8.2"
  std::string column;
};

std::size_t width_of(const Field& field) {
  return static_cast<std::size_t>(std::atoi(field.layout.c_str() + 1));
}

/// Where a table of the report is found: a text of its title in either language, and the rules above its rows.
struct ReportTable {
  std::string english, dutch;
  int rules_above = 2;
  std::vector<Field> fields;  ///< behind the year
  std::string year_layout = "I8";
};

bool is_rule(const std::string& line) {
  return line.size() > 20 && line.find_first_not_of(" _") == std::string::npos && line.find('_') != std::string::npos;
}

bool begins_with_year(const std::string& line, std::size_t width) {
  const std::string field = line.substr(0, width);
  const std::size_t begin = field.find_first_not_of(' ');
  return line.size() > width && begin != std::string::npos &&
         field.find_first_not_of("0123456789", field[begin] == '-' ? begin + 1 : begin) == std::string::npos;
}

/// The rows of a table; none when the block has no such table.
std::vector<std::string> rows_of(const std::vector<std::string>& block, const ReportTable& table) {
  const auto has_title = [&](const std::string& line) {
    return line.find(table.english) != std::string::npos || line.find(table.dutch) != std::string::npos;
  };
  std::vector<std::string> rows;
  auto line = std::find_if(block.begin(), block.end(), has_title);
  for (int rules = 0; line != block.end() && rules < table.rules_above; ++line) rules += is_rule(*line) ? 1 : 0;
  const std::size_t width = width_of({table.year_layout, ""});
  for (; line != block.end() && begins_with_year(*line, width); ++line) rows.push_back(*line);
  return rows;
}

/// The report cut before the frame of stars around each name.
std::vector<std::vector<std::string>> blocks_of(const std::string& report) {
  std::vector<std::vector<std::string>> blocks;
  bool is_second = false;
  for (const std::string& line : lines_of(report)) {
    const bool is_frame = line.find("******************************************") != std::string::npos;
    if (is_frame && !is_second) blocks.emplace_back();
    if (is_frame) is_second = !is_second;
    if (!blocks.empty()) blocks.back().push_back(line);
  }
  return blocks;
}

std::vector<Field> fields_with(const ReadTable& table, const std::string& prefix, const std::string& layout) {
  std::vector<Field> fields;
  for (const std::string& name : table.names) {
    if (name.starts_with(prefix)) fields.push_back({layout, name});
  }
  return fields;
}

std::vector<Field> fields_of(const std::vector<std::string>& layouts, const std::vector<std::string>& columns) {
  std::vector<Field> fields;
  for (std::size_t k = 0; k < columns.size(); ++k) {
    fields.push_back({layouts[std::min(k, layouts.size() - 1)], columns[k]});
  }
  return fields;
}

std::vector<Field> population_fields(const ReadTable& table) {
  const bool has_import = std::ranges::find(table.names, "sires_imported") != table.names.end();
  if (!has_import) {
    return fields_of({"I8"}, {"males_unused", "sires", "females_unused", "dams", "animals_unused", "parents"});
  }
  return fields_of({"I8"}, {"males_unused", "sires", "sires_imported", "females_unused", "dams", "dams_imported",
                            "animals_unused", "parents", "parents_imported"});
}

std::vector<Field> top_sire_fields() {
  std::vector<Field> fields = {
      {"I8", "sires_used"}, {"A3", ""}, {"A25", "top_sire_name"}, {"A15", "top_sire"}, {"A3", ""}};
  for (int rank = 1; rank <= 10; ++rank) fields.push_back({"F6.1", "top_sire_share_" + std::to_string(rank)});
  return fields;
}

/// What stands in both kinds of block.
std::vector<ReportTable> shared_tables(const ReadTable& table) {
  return {
      {"POPULATIONSIZE: number", "POPULATIEOMVANG: aantal", 2, population_fields(table)},
      {"POPULATION SIZE: number", "POPULATIEOMVANG: aantal", 2, population_fields(table)},
      {"Number of parents and litter size per year", "aantal ouders en nestgrootte per jaar", 2,
       fields_of({"I8", "F8.2", "I8", "F8.2"},
                 {"litters", "young_per_litter", "litter_sires", "litters_per_sire", "young_per_sire"})},
      {"OFFSPRING/PARENT", "NAKOMELINGEN/OUDER", 2,
       fields_of({"F8.2", "F8.2", "F8.0", "F8.2", "F8.2", "F8.0"},
                 {"offspring_per_sire_mean", "offspring_per_sire_sd", "offspring_per_sire_max",
                  "offspring_per_dam_mean", "offspring_per_dam_sd", "offspring_per_dam_max"})},
      {"IMPORT: aantal pups", "IMPORT: aantal pups", 2,
       fields_of({"I10"}, {"young_native_native", "young_import_native", "young_native_import", "young_import_import"}),
       "I10"},
      {"AGE fathers", "LEEFTIJD vaders", 2, fields_with(table, "sires_age_", "I8")},
      {"AGE mothers", "LEEFTIJD moeders", 2, fields_with(table, "dams_age_", "I8")},
      {"GENERATION INTERVAL", "GENERATIEINTERVAL", 2,
       fields_of({"F8.2"}, {"age_of_sires", "age_of_dams", "age_of_parents"})},
      {"PEDIGREE COMPLETENESS", "COMPLEETHEID stamboom", 2,
       fields_of({"F10.2", "F12.2", "F8.2"},
                 {"equivalent_generations", "complete_generations_1", "complete_generations_2",
                  "complete_generations_3", "complete_generations_4", "complete_generations_5_up"})},
      {"COLOUR VARIETIES present", "KLEURSLAGEN aanwezig", 3, fields_with(table, "colour_", "I8")},
      {"Main Breeders", "belangrijkste Fokkers", 3, fields_with(table, "breeder_", "I8")}};
}

std::vector<ReportTable> tables_of_whole(const ReadTable& table) {
  std::vector<ReportTable> tables = shared_tables(table);
  std::vector<Field> within;
  for (const Field& born : fields_with(table, "born_", "")) {
    const std::string part = born.column.substr(5);
    within.push_back({"F10.4", "F_mean_" + part});
    within.push_back({"F10.4", "kinship_" + part});
  }
  tables.push_back({"Litter Sizes", "Worpgrootte", 2, fields_with(table, "litters_of_", "I8")});
  tables.push_back({"Top sires and their", "Topvaders en hun", 2, top_sire_fields(), "I5"});
  tables.push_back({"           INBREEDING", "           INTEELT", 2,
                    fields_of({"F8.4"}, {"F_mean", "kinship_with_self", "kinship_without_self", "kinship_of_parents",
                                         "kinship_of_sires", "kinship_of_dams"})});
  tables.push_back({"SUBPOPULATIONs in pop", "SUBPOPULATIEs in pop", 2, fields_with(table, "born_", "I8")});
  tables.push_back({"Kinship within Sub", "Verwantschap binnen Sub", 2, within});
  tables.push_back({"Kinship between Sub", "Verwantschap tussen Sub", 2, fields_with(table, "relationship_", "F10.4")});
  return tables;
}

std::vector<ReportTable> tables_of_subpopulation(const ReadTable& table) {
  std::vector<ReportTable> tables = shared_tables(table);
  tables.push_back({"           INBREEDING", "           INTEELT", 2,
                    fields_of({"F8.4"}, {"F_mean", "kinship", "F_change", "kinship_change"})});
  return tables;
}

std::string printed(const std::string& layout, const std::string& cell) {
  TextOutput line;
  if (layout.front() == 'I') {
    std::int64_t value = 0;
    std::from_chars(cell.data(), cell.data() + cell.size(), value);
    write_format_line(line, layout, {value});
  } else {
    write_format_line(line, layout, {std::strtof(cell.c_str(), nullptr)});
  }
  line.pending.pop_back();
  return line.pending;
}

/// Whether the report shows that there is no figure.
bool shows_nothing(const std::string& field) {
  return field.find_first_not_of(" 0.-*") == std::string::npos || field.find("NaN") != std::string::npos ||
         field.find("Inf") != std::string::npos;
}

void compare_field(const Field& field, const std::string& reported, const std::string& cell) {
  if (reported.empty()) {
    // The block of a subpopulation shows ages up to those of its own oldest parents.
    EXPECT_NE(field.column.find("_age_"), std::string::npos) << field.column;
    EXPECT_EQ(cell, "0") << field.column;
  } else if (field.layout.front() == 'A') {
    const std::string text(without_trailing_blanks(reported));
    EXPECT_EQ(cell.substr(0, readable(text).size()), cell.empty() ? "" : readable(text)) << field.column;
    EXPECT_TRUE(!cell.empty() || text.empty() || text == " -" || text == "-") << text;
  } else if (cell.empty()) {
    EXPECT_TRUE(shows_nothing(reported)) << field.column << " is empty, the report has " << reported;
  } else {
    EXPECT_EQ(printed(field.layout, cell), reported) << field.column << " " << cell;
  }
}

/// The columns of the pairs of subpopulations in the order in which the report has them in one year: the pairs of a
/// subpopulation with fewer than two animals take no place, so that later ones stand further to the left.
std::vector<Field> pairs_of_year(const std::vector<Field>& fields, const ReadTable& table, std::size_t row) {
  std::vector<Field> moved;
  for (const Field& field : fields) {
    const std::string pair = field.column.substr(std::string("relationship_").size());
    const std::string first = pair.substr(0, pair.find("__"));
    const bool takes_a_place = !table.cell(row, "kinship_" + first).empty();
    if (takes_a_place) {
      moved.push_back(field);
    } else {
      EXPECT_EQ(table.cell(row, field.column), "") << field.column;
    }
  }
  moved.resize(fields.size(), {"F10.4", ""});
  return moved;
}

/// Compares the rows of one table of the report with those of `table` from `first` on.
void compare_table(const std::vector<std::string>& reported, const ReportTable& layout, const ReadTable& table,
                   std::size_t first, std::set<std::string>& compared) {
  for (std::size_t r = 0; r < reported.size(); ++r) {
    SCOPED_TRACE(reported[r]);
    ASSERT_LT(first + r, table.rows.size());
    std::size_t place = width_of({layout.year_layout, ""});
    EXPECT_EQ(std::stol(reported[r].substr(0, place)), std::stol(table.cell(first + r, "year")));
    const bool has_pairs = !layout.fields.empty() && layout.fields.front().column.starts_with("relationship_");
    if (has_pairs) {
      for (const Field& field : layout.fields) compared.insert(field.column);
    }
    for (const Field& field : has_pairs ? pairs_of_year(layout.fields, table, first + r) : layout.fields) {
      const std::size_t width = width_of(field);
      const std::string piece = reported[r].size() > place ? padded(reported[r].substr(place), width) : "";
      place += width;
      if (field.column.empty()) continue;
      compare_field(field, piece, table.cell(first + r, field.column));
      compared.insert(field.column);
    }
  }
}

void expect_all_compared(const ReadTable& table, const std::set<std::string>& compared) {
  for (const std::string& name : table.names) {
    const bool is_figure = name != "year" && name != "subpopulation" && !name.starts_with("parents_from_");
    EXPECT_TRUE(!is_figure || table.rows.empty() || compared.contains(name)) << name << " was not found in the report";
  }
}

void compare_whole(const std::vector<std::string>& block, const ReadTable& table) {
  std::set<std::string> compared;
  for (const ReportTable& layout : tables_of_whole(table)) {
    const std::vector<std::string> rows = rows_of(block, layout);
    EXPECT_TRUE(rows.empty() || rows.size() == table.rows.size()) << layout.english;
    compare_table(rows, layout, table, 0, compared);
  }
  expect_all_compared(table, compared);
}

void compare_subpopulations(const std::vector<std::vector<std::string>>& blocks, const ReadTable& table,
                            std::size_t year_count) {
  ASSERT_EQ(table.rows.size(), (blocks.size() - 1) * year_count);
  std::set<std::string> compared;
  for (std::size_t b = 1; b < blocks.size(); ++b) {
    for (const ReportTable& layout : tables_of_subpopulation(table)) {
      compare_table(rows_of(blocks[b], layout), layout, table, (b - 1) * year_count, compared);
    }
  }
  expect_all_compared(table, compared);
}

class ReportFigures : public testing::TestWithParam<std::string> {};

TEST_P(ReportFigures, AreThoseOfTheTables) {
  const CaseFolder golden_case = read_case(golden / GetParam());
  const WholeRun run = run_program_on(golden_case.inputs, tools_with({"tables"}));
  if (GetParam() == "report_over_data_file_en") {
    EXPECT_EQ(run.exit_status, 0) << "no table has the name of the data file";
    return;
  }
  if (golden_case.exit_status != 0 || !golden_case.report) {
    EXPECT_EQ(run.exit_status, 1);
    EXPECT_NE(run.messages, "");
    EXPECT_EQ(run.files, golden_case.inputs) << "nothing is written";
    return;
  }
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  const auto table_of = [&](const std::string& ending) {
    for (const auto& [name, bytes] : run.files) {
      if (name.ends_with(ending)) return read_table(bytes);
    }
    return ReadTable{};
  };
  const std::vector<std::vector<std::string>> blocks = blocks_of(*golden_case.report);
  ASSERT_FALSE(blocks.empty());
  const ReadTable years = table_of("_years.tsv");
  ASSERT_FALSE(years.names.empty());
  compare_whole(blocks.front(), years);
  const ReadTable subpopulations = table_of("_subpopulations.tsv");
  if (blocks.size() > 1) compare_subpopulations(blocks, subpopulations, years.rows.size());
}

INSTANTIATE_TEST_SUITE_P(Golden, ReportFigures, testing::ValuesIn(case_names(golden)),
                         [](const auto& golden_case) { return golden_case.param; });

}  // namespace
}  // namespace pedigreewatch::test
