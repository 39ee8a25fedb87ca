#include "reports/colours.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

const std::vector<ColourName> four_colours = {ColourName("zwart"), ColourName("bruin met wit"), ColourName("Onbekend"),
                                              ColourName("niet erkend")};

ReportSheet sheet_of_colours(const std::vector<ColourName>& names, std::int32_t years, bool english) {
  ReportSheet sheet(years_from(2001, years), english);
  sheet.colour_names = names;
  return sheet;
}

YearTable<std::int32_t> colours_of_three_years() {
  return table_of<std::int32_t>(4, {{10, 2, 0, 1}, {}, {5, 30, 4, 0}});
}

TEST(WriteColours, WholeTableInEnglish) {
  ReportSheet sheet = sheet_of_colours(four_colours, 3, true);
  write_colours(sheet.frame(), colours_of_three_years());
  expect_lines(sheet.output, {
                                 blank(),
                                 "      COLOUR VARIETIES present in population",
                                 rule(56),
                                 "       1  zwart                                   ",
                                 "       2  bruin met wit                           ",
                                 "       3  Onbekend                                ",
                                 "       4  niet erkend                             ",
                                 rule(56),
                                 "  jaar         1       2       3       4",
                                 rule(56),
                                 "    2001      10       2       0       1",
                                 "    2002       0       0       0       0",
                                 "    2003       5      30       4       0",
                                 rule(56),
                                 " total        15      32       4       1",
                                 rule(56),
                             });
}

TEST(WriteColours, WholeTableInDutch) {
  ReportSheet sheet = sheet_of_colours(four_colours, 3, false);
  write_colours(sheet.frame(), colours_of_three_years());
  expect_lines(sheet.output, {
                                 blank(),
                                 "      KLEURSLAGEN aanwezig in populatie",
                                 rule(56),
                                 "       1  zwart                                   ",
                                 "       2  bruin met wit                           ",
                                 "       3  Onbekend                                ",
                                 "       4  niet erkend                             ",
                                 rule(56),
                                 "  jaar         1       2       3       4",
                                 rule(56),
                                 "    2001      10       2       0       1",
                                 "    2002       0       0       0       0",
                                 "    2003       5      30       4       0",
                                 rule(56),
                                 " totaal       15      32       4       1",
                                 rule(56),
                             });
}

TEST(WriteColours, HeadingIsDutchInAnEnglishReport) {
  ReportSheet sheet = sheet_of_colours(four_colours, 3, true);
  write_colours(sheet.frame(), colours_of_three_years());
  EXPECT_TRUE(has_line(sheet.lines(), "  jaar         1       2       3       4"));
}

TEST(WriteColours, ACountOfNineDigitsIsAsterisks) {
  ReportSheet sheet = sheet_of_colours({ColourName("Onbekend"), ColourName("niet erkend")}, 2, true);
  write_colours(sheet.frame(), table_of<std::int32_t>(2, {{60000000, 1}, {60000000, 1}}));
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_TRUE(has_line(lines, "    200160000000       1"));
  EXPECT_TRUE(has_line(lines, " total  ********       2"));
}

TEST(WriteColours, MoreThanNineHundredNinetyNineColoursAllHaveTheirColumn) {
  constexpr std::int32_t colour_count = 1001;
  ReportSheet sheet = sheet_of_colours(std::vector<ColourName>(colour_count, ColourName("bont")), 1, true);
  YearTable<std::int32_t> counts(1, colour_count);
  counts.at(1, 1) = 7;
  counts.at(1, colour_count) = 8;
  write_colours(sheet.frame(), counts);
  const std::vector<std::string> lines = sheet.lines();
  ASSERT_EQ(lines.size(), 3U + colour_count + 7U);
  EXPECT_EQ(lines[3 + colour_count - 1], "    1001  " + padded("bont", 40));
  const std::string heading = lines[3 + colour_count + 1];
  EXPECT_EQ(heading.size(), 8U + 8U * colour_count);
  EXPECT_EQ(heading.substr(0, 16), "  jaar         1");
  EXPECT_EQ(heading.substr(heading.size() - 16), "    1000    1001");
  const std::string row = lines[3 + colour_count + 3];
  EXPECT_EQ(row.size(), 8U + 8U * colour_count);
  EXPECT_EQ(row.substr(0, 24), "    2001       7       0");
  EXPECT_EQ(row.substr(row.size() - 16), "       0       8");
  const std::string total = lines[3 + colour_count + 5];
  EXPECT_EQ(total.size(), 8U + 8U * colour_count);
  EXPECT_EQ(total.substr(0, 16), " total         7");
  EXPECT_EQ(total.substr(total.size() - 16), "       0       8");
}

}  // namespace
}  // namespace pedigreewatch::test
