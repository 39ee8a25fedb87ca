#include "reports/breeder_colour_tables.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

// ---- colours ---------------------------------------------------------------------------------------------------

const std::vector<ColourName> four_colours = {ColourName("zwart"), ColourName("bruin met wit"), ColourName("Onbekend"),
                                              ColourName("niet erkend")};

YearTable<std::int32_t> colours_of_three_years() {
  return table_of<std::int32_t>(4, {{10, 2, 0, 1}, {}, {5, 30, 4, 0}});
}

TEST(WriteColours, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_colours(sheet.frame(), four_colours, colours_of_three_years());
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
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_colours(sheet.frame(), four_colours, colours_of_three_years());
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
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_colours(sheet.frame(), four_colours, colours_of_three_years());
  EXPECT_TRUE(has_line(sheet.lines(), "  jaar         1       2       3       4"));
}

TEST(WriteColours, ACountOfNineDigitsIsAsterisks) {
  ReportSheet sheet = english_sheet(years_from(2001, 2));
  const std::vector<ColourName> two = {ColourName("Onbekend"), ColourName("niet erkend")};
  write_colours(sheet.frame(), two, table_of<std::int32_t>(2, {{60000000, 1}, {60000000, 1}}));
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_TRUE(has_line(lines, "    200160000000       1"));
  EXPECT_TRUE(has_line(lines, " total  ********       2"));
}

TEST(WriteColours, MoreThanNineHundredNinetyNineColoursAllHaveTheirColumn) {
  constexpr std::int32_t colour_count = 1001;
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  YearTable<std::int32_t> counts(1, colour_count);
  counts.at(1, 1) = 7;
  counts.at(1, colour_count) = 8;
  write_colours(sheet.frame(), std::vector<ColourName>(colour_count, ColourName("bont")), counts);
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

// ---- breeders --------------------------------------------------------------------------------------------------

BreederList two_top_breeders() {
  return {.text = "Jansen De Vries and what follows", .breeder_count = 3, .top_breeder_count = 2};
}

YearTable<std::int32_t> breeders_of_three_years() {
  return table_of<std::int32_t>(6, {{12, 1, 8, 2, 30, 3}, {}, {4, 0, 5, 5, 100, 10}});
}

TEST(WriteBreeders, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_breeders(sheet.frame(), two_top_breeders(), breeders_of_three_years());
  expect_lines(sheet.output, {
                                 blank(),
                                 "      Main Breeders  ",
                                 rule(56),
                                 "       1  Jansen ",
                                 "       2  De Vrie",
                                 "       3  others ",
                                 " for each breeder 1st colomn number of calves  ",
                                 "  bred, 2nd colomn number of parents bred",
                                 rule(56),
                                 "  jaar                 1               2               3",
                                 rule(56),
                                 "    2001      12       1       8       2      30       3",
                                 "    2002       0       0       0       0       0       0",
                                 "    2003       4       0       5       5     100      10",
                                 rule(56),
                                 " totaal       16       1      13       7     130      13",
                                 rule(56),
                             });
}

TEST(WriteBreeders, WholeTableInDutch) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_breeders(sheet.frame(), two_top_breeders(), breeders_of_three_years());
  expect_lines(sheet.output, {
                                 blank(),
                                 "      belangrijkste Fokkers  ",
                                 rule(56),
                                 "       1  Jansen ",
                                 "       2  De Vrie",
                                 "       3  overige",
                                 " per fokker 1ste kolom aantal kalveren",
                                 "  gefokt, 2de kolom aantal ouderdieren gefokt",
                                 rule(56),
                                 "  jaar                 1               2               3",
                                 rule(56),
                                 "    2001      12       1       8       2      30       3",
                                 "    2002       0       0       0       0       0       0",
                                 "    2003       4       0       5       5     100      10",
                                 rule(56),
                                 " totaal       16       1      13       7     130      13",
                                 rule(56),
                             });
}

TEST(WriteBreeders, NamesAreSlotsOfSevenCharactersNotWholeNames) {
  // Two names of 20 characters: the second slot lies within the first name.
  const BreederList breeders = {
      .text = padded("van den Berg-Hoeven", 20) + padded("Jansen", 20), .breeder_count = 2, .top_breeder_count = 2};
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_breeders(sheet.frame(), breeders, YearTable<std::int32_t>(1, 6));
  EXPECT_EQ(sheet.lines()[3], "       1  van den");
  EXPECT_EQ(sheet.lines()[4], "       2   Berg-H");
}

TEST(WriteBreeders, WithoutTopBreedersOnePairOfColumnsHoldsAllOthers) {
  const BreederList breeders = {.text = padded("Jansen", 20), .breeder_count = 1, .top_breeder_count = 0};
  ReportSheet sheet = english_sheet(years_from(2001, 2));
  write_breeders(sheet.frame(), breeders, table_of<std::int32_t>(2, {{9, 4}, {1, 0}}));
  expect_lines(sheet.output, {
                                 blank(),
                                 "      Main Breeders  ",
                                 rule(56),
                                 "       1  others ",
                                 " for each breeder 1st colomn number of calves  ",
                                 "  bred, 2nd colomn number of parents bred",
                                 rule(56),
                                 "  jaar                 1",
                                 rule(56),
                                 "    2001       9       4",
                                 "    2002       1       0",
                                 rule(56),
                                 " totaal       10       4",
                                 rule(56),
                             });
}

TEST(WriteBreeders, HeadingAndTotalAreDutchInAnEnglishReport) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_breeders(sheet.frame(), two_top_breeders(), breeders_of_three_years());
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_EQ(lines[9].substr(0, 8), "  jaar  ");
  EXPECT_EQ(lines[15].substr(0, 8), " totaal ");
}

TEST(WriteBreeders, TheNounKeepsItsEightColumnsInTheEnglishExplanation) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_breeders(sheet.frame(), two_top_breeders(), breeders_of_three_years());
  EXPECT_EQ(sheet.lines()[6], " for each breeder 1st colomn number of " + padded("calves", 8));
}

}  // namespace
}  // namespace pedigreewatch::test
