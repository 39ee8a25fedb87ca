#include "reports/breeders.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

BreederList two_top_breeders() {
  return {.text = "Jansen De Vries and what follows", .breeder_count = 3, .top_breeder_count = 2};
}

ReportSheet sheet_of_breeders(const BreederList& breeders, std::int32_t years, bool english) {
  ReportSheet sheet(years_from(2001, years), english);
  sheet.breeders = breeders;
  return sheet;
}

YearTable<std::int32_t> breeders_of_three_years() {
  return table_of<std::int32_t>(6, {{12, 1, 8, 2, 30, 3}, {}, {4, 0, 5, 5, 100, 10}});
}

TEST(WriteBreeders, WholeTableInEnglish) {
  ReportSheet sheet = sheet_of_breeders(two_top_breeders(), 3, true);
  write_breeders(sheet.frame(), breeders_of_three_years());
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
  ReportSheet sheet = sheet_of_breeders(two_top_breeders(), 3, false);
  write_breeders(sheet.frame(), breeders_of_three_years());
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
  ReportSheet sheet = sheet_of_breeders(breeders, 1, true);
  write_breeders(sheet.frame(), YearTable<std::int32_t>(1, 6));
  EXPECT_EQ(sheet.lines()[3], "       1  van den");
  EXPECT_EQ(sheet.lines()[4], "       2   Berg-H");
}

TEST(WriteBreeders, WithoutTopBreedersOnePairOfColumnsHoldsAllOthers) {
  const BreederList breeders = {.text = padded("Jansen", 20), .breeder_count = 1, .top_breeder_count = 0};
  ReportSheet sheet = sheet_of_breeders(breeders, 2, true);
  write_breeders(sheet.frame(), table_of<std::int32_t>(2, {{9, 4}, {1, 0}}));
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
  ReportSheet sheet = sheet_of_breeders(two_top_breeders(), 3, true);
  write_breeders(sheet.frame(), breeders_of_three_years());
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_EQ(lines[9].substr(0, 8), "  jaar  ");
  EXPECT_EQ(lines[15].substr(0, 8), " totaal ");
}

TEST(WriteBreeders, TheNounKeepsItsEightColumnsInTheEnglishExplanation) {
  ReportSheet sheet = sheet_of_breeders(two_top_breeders(), 3, true);
  write_breeders(sheet.frame(), breeders_of_three_years());
  EXPECT_EQ(sheet.lines()[6], " for each breeder 1st colomn number of " + padded("calves", 8));
}

}  // namespace
}  // namespace pedigreewatch::test
