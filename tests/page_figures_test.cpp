// Every figure of the page that the report has too is the report's own: for all golden cases the page is made from the
// inputs, its tables are read back, and each figure is compared with the digits of the expected report.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "support/case_folder.h"
#include "support/lines.h"
#include "support/page_reading.h"
#include "support/places.h"
#include "support/program_run.h"

namespace pedigreewatch::test {
namespace {

const std::filesystem::path golden = golden_folder();
constexpr std::string_view dash = "\xE2\x80\x93";

/// The fields of a line of the report, by their widths, without blanks around them.
std::vector<std::string> fields_of(const std::string& line, std::span<const int> widths) {
  std::vector<std::string> fields;
  std::size_t at = 0;
  for (const int width : widths) {
    const std::string field = at < line.size() ? line.substr(at, static_cast<std::size_t>(width)) : std::string();
    const std::size_t begin = field.find_first_not_of(' ');
    const std::size_t end = field.find_last_not_of(' ');
    fields.push_back(begin == std::string::npos ? std::string() : field.substr(begin, end - begin + 1));
    at += static_cast<std::size_t>(width);
  }
  return fields;
}

bool is_rule(const std::string& line) {
  return line.find("________") != std::string::npos;
}

/// The lines between a rule and the next one, the `rule`-th one behind the first line that holds one of the titles.
std::vector<std::string> table_of(const std::vector<std::string>& report, const std::vector<std::string>& titles,
                                  int rule) {
  const auto has_title = [&](const std::string& line) {
    return std::any_of(titles.begin(), titles.end(), [&](const auto& title) { return line.find(title) != line.npos; });
  };
  std::vector<std::string> rows;
  auto line = std::find_if(report.begin(), report.end(), has_title);
  for (; line != report.end() && rule > 0; ++line) rule -= is_rule(*line) ? 1 : 0;
  for (; line != report.end() && !is_rule(*line); ++line) rows.push_back(*line);
  return rows;
}

/// What the report prints where nothing is known: a dash of the page may stand for it.
bool can_be_unknown(const std::string& printed) {
  return printed.find_first_of("NI*") != std::string::npos || std::strtod(printed.c_str(), nullptr) == 0.0;
}

void expect_figure(const std::string& of_page, const std::string& of_report) {
  if (of_page == dash) {
    EXPECT_TRUE(can_be_unknown(of_report)) << "the report has " << of_report;
  } else {
    const bool is_negative_nothing = of_report.find_first_not_of("-0.") == std::string::npos && of_report[0] == '-';
    EXPECT_EQ(of_page, is_negative_nothing ? of_report.substr(1) : of_report);
  }
}

/// Which column of the page's figures a field of the report is in; -1: in none.
struct ComparedTable {
  std::string chart;
  std::vector<std::string> titles;
  int rule;
  std::vector<int> widths;
  std::vector<int> columns;      ///< by field behind the year, counted from 0
  int decimals_of_percent = -1;  ///< the page has per cent with so many decimals, the report parts of 1
};

/// A part of 1 of the report in per cent, which have two decimals fewer.
std::string in_percent(const std::string& part, int decimals) {
  if (part.empty() || part.find_first_not_of("-0123456789.") != std::string::npos) return part;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.*f", decimals, 100.0 * std::strtod(part.c_str(), nullptr));
  return text.data();
}

void expect_same(const std::string& page, const std::vector<std::string>& report, const ComparedTable& compared) {
  SCOPED_TRACE(compared.chart);
  const PageTable table = table_in(chart_of(page, compared.chart));
  const std::vector<std::string> rows = table_of(report, compared.titles, compared.rule);
  if (table.rows.empty()) return;  // the chart says that there are no figures
  ASSERT_GE(rows.size(), table.rows.size());
  const std::size_t left_out = rows.size() - table.rows.size();
  for (std::size_t r = 0; r < table.rows.size(); ++r) {
    const std::vector<std::string> fields = fields_of(rows[left_out + r], compared.widths);
    SCOPED_TRACE(rows[left_out + r]);
    EXPECT_EQ(table.rows[r].heading, fields[0]);
    for (std::size_t k = 0; k < compared.columns.size(); ++k) {
      if (compared.columns[k] < 0) continue;
      const std::size_t column = static_cast<std::size_t>(compared.columns[k]);
      ASSERT_LT(column, table.rows[r].cells.size());
      const bool is_percent = compared.decimals_of_percent >= 0;
      const std::string part = fields[k + 1].starts_with("-") ? fields[k + 1].substr(1) : fields[k + 1];
      expect_figure(table.rows[r].cells[column],
                    is_percent ? in_percent(part, compared.decimals_of_percent) : fields[k + 1]);
    }
  }
}

/// A table of counts in 8 columns each, whose columns are those of the page.
ComparedTable counts(std::string chart, std::vector<std::string> titles, int rule, std::size_t columns) {
  ComparedTable table{std::move(chart), std::move(titles), rule, std::vector<int>(columns + 1, 8), {}};
  for (std::size_t k = 0; k < columns; ++k) table.columns.push_back(static_cast<int>(k) + 1);
  return table;
}

std::size_t column_count(const std::string& page, const std::string& chart) {
  const PageTable table = table_in(chart_of(page, chart));
  return table.headings.size() < 2 ? 0 : table.headings.size() - 2;
}

void expect_yearly_tables(const std::string& page, const std::vector<std::string>& report) {
  const ComparedTable tables[] = {
      {"inbreeding",
       {"   -    animals   self   self", "         dieren   zelf   zelf"},
       1,
       {8, 8, 8, 8, 8, 8, 8},
       {1, 2, 3, 4, 5, 6},
       2},
      {"litters", {" nests     nest fathers /father", " nesten    nest  vaders  /vader"}, 1, {8, 8, 8}, {1, 3}},
      {"interval",
       {" birth   fathers  mothers   parents", "  jaar   vaders   moeders   ouders"},
       1,
       {8, 8, 8, 8},
       {1, 2, 3}},
      {"complete", {"         equivalent   |    1       2"}, 1, {8, 10}, {1}},
      {"complete", {"         equivalent   |    1       2"}, 1, {8, 10, 12, 8, 8, 8, 8}, {-1, 6, 5, 4, 3, 2}, 0},
      {"sires", {"#Sires  | naam", "#Vaders | naam"}, 1, {5, 8, 3, 25, 15, 3, 6}, {1, -1, -1, -1, -1, 3}},
      {"imports", {"NL x NL  imp. x NL"}, 1, {10, 10, 10, 10, 10}, {1, 2, 3, 4}}};
  for (const ComparedTable& table : tables) expect_same(page, report, table);
  const std::size_t births = column_count(page, "births");
  expect_same(
      page, report,
      counts("births", {"unused fathers|", "nt.fok  vaders|", "total  fathers fathers|", "totaal  vaders  vaders|"}, 1,
             births));
  constexpr std::size_t before_sizes = 3;  // litters, sires, young per litter
  const std::size_t litter_columns = column_count(page, "litters");
  ComparedTable sizes = counts("litters", {"Litter Sizes", "     Worpgrootte"}, 2,
                               litter_columns > before_sizes ? litter_columns - before_sizes : 0);
  for (int& column : sizes.columns) column += static_cast<int>(before_sizes);
  expect_same(page, report, sizes);
  expect_same(page, report,
              counts("colours", {"COLOUR VARIETIES", "KLEURSLAGEN aanwezig"}, 3, column_count(page, "colours")));
  expect_same(
      page, report,
      counts("subpopulations", {"SUBPOPULATIONs in", "SUBPOPULATIEs in"}, 2, column_count(page, "subpopulations")));
  ComparedTable within = counts("within", {"Kinship within Subpop", "Verwantschap binnen Subpop"}, 2, 0);
  within.decimals_of_percent = 2;
  for (std::size_t k = 0; k < column_count(page, "within"); ++k) {
    within.widths.push_back(10);
    within.columns.push_back(static_cast<int>(k) + 1);
  }
  expect_same(page, report, within);
}

/// Each kinship between subpopulations is half of one of the relationships that the report has for that year.
void expect_halved_relationships(const std::string& page, const std::vector<std::string>& report) {
  const PageTable table = table_in(chart_of(page, "between"));
  const std::vector<std::string> rows = table_of(report, {"Kinship between Subpop", "Verwantschap tussen Subpop"}, 2);
  for (std::size_t r = 0; r < table.rows.size(); ++r) {
    ASSERT_LT(r, rows.size());
    for (std::size_t c = 1; c < table.rows[r].cells.size(); ++c) {
      const std::string& cell = table.rows[r].cells[c];
      if (cell == dash) continue;
      bool is_found = false;
      for (std::size_t at = 8; at + 10 <= rows[r].size(); at += 10) {
        const double relationship = std::strtod(rows[r].substr(at, 10).c_str(), nullptr);
        is_found = is_found || std::abs(50.0 * relationship - std::strtod(cell.c_str(), nullptr)) < 0.0076;
      }
      EXPECT_TRUE(is_found) << cell << " in " << rows[r];
    }
  }
}

void expect_rates(const std::string& page, const std::vector<std::string>& report) {
  const std::size_t begin = page.find("pw-rates\"><h2");
  if (begin == std::string::npos) return;  // no birth years
  const PageTable table = table_in(std::string_view(page).substr(begin));
  ASSERT_EQ(table.rows.size(), 4U);
  const std::size_t first = line_with(report, "deltaF absolute ");
  const bool has_meaning = table_in(chart_of(page, "inbreeding")).rows.size() >= 3;
  for (std::size_t way = 0; way < table.rows.size(); ++way) {
    SCOPED_TRACE(report[first + way]);
    const std::vector<std::string> fields = fields_of(report[first + way], std::vector<int>{16, 10, 1, 10, 1, 10});
    if (has_meaning) {
      expect_figure(table.rows[way].cells[0], fields[1]);
      expect_figure(table.rows[way].cells[1], fields[3]);
    } else {
      EXPECT_EQ(table.rows[way].cells[0], dash);
      EXPECT_EQ(table.rows[way].cells[1], dash);
    }
    const std::string& size = table.rows[way].cells[2];
    const double printed = std::strtod(fields[5].c_str(), nullptr);
    if (size.find(' ') == std::string::npos) {
      EXPECT_EQ(size, fields[5]);
      EXPECT_GT(printed, 0.0);
    } else {  // "not estimable"
      EXPECT_TRUE(!has_meaning || can_be_unknown(fields[5]) || printed < 0.0 || printed >= 100000.0);
    }
  }
}

void expect_periods(const std::string& page, const std::vector<std::string>& report) {
  std::size_t begin = page.find("by period</summary>");
  if (begin == std::string::npos) begin = page.find("per periode</summary>");
  if (begin == std::string::npos) return;  // ten years or fewer
  const PageTable table = table_in(std::string_view(page).substr(begin));
  const std::vector<std::string> rows =
      table_of(report, {"Inbreeding rate for periods", "Inteelttoename per periode"}, 1);
  for (std::size_t r = 0; r < table.rows.size(); ++r) {
    const std::vector<std::string> fields = fields_of(rows.at(r), std::vector<int>{4, 3, 4, 14, 2, 14, 1});
    EXPECT_EQ(table.rows[r].heading, fields[0] + "-" + fields[2]);
    expect_figure(table.rows[r].cells[0], fields[3]);
    expect_figure(table.rows[r].cells[1], fields[5]);
  }
}

/// The totals of a table of parents' ages are a column of the page.
void expect_ages(const std::string& page, const std::vector<std::string>& report,
                 const std::vector<std::string>& titles, std::size_t column) {
  const PageTable table = table_in(chart_of(page, "ages"));
  const std::vector<std::string> totals = table_of(report, titles, 3);
  if (totals.empty() || table.rows.size() >= 40) return;
  for (std::size_t age = 1; age * 8 < totals[0].size(); ++age) {
    EXPECT_EQ(table.rows.at(age - 1).cells.at(column),
              fields_of(totals[0].substr(age * 8), std::vector<int>{8}).front());
  }
}

/// The shares of four and ten are sums of those that the report prints with one decimal.
void expect_sums_of_shares(const std::string& page, const std::vector<std::string>& report) {
  const PageTable table = table_in(chart_of(page, "sires"));
  const std::vector<std::string> rows = table_of(report, {"#Sires  | naam", "#Vaders | naam"}, 1);
  if (table.rows.empty()) return;
  for (std::size_t r = 0; r < table.rows.size(); ++r) {
    const std::string& row = rows.at(rows.size() - table.rows.size() + r);
    double sums[2] = {0.0, 0.0};
    for (std::size_t k = 0; k < 10; ++k) {
      const double share = std::strtod(row.substr(59 + 6 * k, 6).c_str(), nullptr);
      sums[0] += k < 4 ? share : 0.0;
      sums[1] += share;
    }
    EXPECT_NEAR(std::strtod(table.rows[r].cells[4].c_str(), nullptr), sums[0], 0.26) << row;
    EXPECT_NEAR(std::strtod(table.rows[r].cells[5].c_str(), nullptr), sums[1], 0.56) << row;
  }
}

/// Decimal commas of a Dutch page as the points of the report.
std::string with_points(std::string page) {
  const auto is_digit = [](char letter) { return letter >= '0' && letter <= '9'; };
  for (std::size_t k = 1; k + 1 < page.size(); ++k) {
    if (page[k] == ',' && is_digit(page[k - 1]) && is_digit(page[k + 1])) page[k] = '.';
  }
  return page;
}

class PageOfGoldenCase : public testing::TestWithParam<std::string> {};

TEST_P(PageOfGoldenCase, HasTheFiguresOfTheReport) {
  const CaseFolder golden_case = read_case(golden / GetParam());
  const WholeRun run = run_program_on(golden_case.inputs, tools_with({"page"}));
  const auto written =
      std::find_if(run.files.begin(), run.files.end(), [](const auto& file) { return file.first.ends_with(".html"); });
  if (run.exit_status != 0) {
    EXPECT_EQ(run.exit_status, 1);
    EXPECT_NE(golden_case.exit_status, 0) << run.messages;
    EXPECT_FALSE(run.messages.empty());
    EXPECT_TRUE(written == run.files.end()) << "nothing is written";
    return;
  }
  ASSERT_TRUE(written != run.files.end());
  const std::string page = with_points(written->second);
  const std::vector<std::string> report = lines_of(golden_case.report.value_or(""));
  if (report.empty()) return;  // the program refuses to write its report over the data file
  expect_yearly_tables(page, report);
  expect_halved_relationships(page, report);
  expect_rates(page, report);
  expect_periods(page, report);
  expect_ages(page, report, {"AGE fathers", "LEEFTIJD vaders"}, 0);
  expect_ages(page, report, {"AGE mothers", "LEEFTIJD moeders"}, 1);
  expect_sums_of_shares(page, report);
  for (const std::string_view never :
       {">nan", ">NaN", ">inf", ">Inf", ">-nan", ">-inf", "***", "\"nan", " nan", " inf "}) {
    EXPECT_EQ(page.find(never), std::string::npos) << never;
  }
}

INSTANTIATE_TEST_SUITE_P(Page, PageOfGoldenCase, testing::ValuesIn(case_names(golden)),
                         [](const auto& golden_case) { return golden_case.param; });

}  // namespace
}  // namespace pedigreewatch::test
