#include "reports/top_sires.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

std::vector<AnimalRecord> two_bulls() {
  std::vector<AnimalRecord> bulls(2);
  bulls[0].name.assign("Adema 21 van de Woudhoeve te Ryptsjerk");
  bulls[0].id.assign("NL-1985-000123456789");
  bulls[1].name.assign("Bertus");
  bulls[1].id.assign("NL-7");
  return bulls;
}

// 2001: the first bull of 12 sires; 2002: no sire; 2003: the second bull, the only one.
YearRows<TopSireRow> three_years() {
  return rows_of<TopSireRow>(
      3, {{1, {12, 1, {25.0F, 12.5F, 10.0F, 8.0F, 7.0F, 6.0F, 5.0F, 4.0F, 3.0F, 2.0F}}}, {3, {1, 2, {100.0F}}}});
}

/// The table of these years, from 2001 on.
ReportSheet sire_sheet(const std::vector<AnimalRecord>& bulls, const YearRows<TopSireRow>& sires, bool english) {
  ReportSheet sheet(years_from(2001, static_cast<std::int32_t>(sires.row_count())), english);
  sheet.hold(bulls);
  write_top_sires(sheet.frame(), sires);
  return sheet;
}

const std::string wide_rule(119, '_');

TEST(WriteTopSires, WholeTableInEnglish) {
  const ReportSheet sheet = sire_sheet(two_bulls(), three_years(), true);
  expect_lines(
      sheet.output,
      {
          blank(),
          "      Top sires and their contribution per year",
          wide_rule,
          "             |                  the Topsire             |                    contribution of top 10 sires "
          "(%)  "
          "       |",
          "year #Sires  | naam                    id               |     1     2     3     4     5     6     7     8   "
          "  9    10 |",
          wide_rule,
          " 2001      12 | Adema 21 van de WoudhoeveNL-1985-0001234 |   25.0  12.5  10.0   8.0   7.0   6.0   5.0   4.0 "
          "  3.0   2.0",
          " 2002       0 |  -                        -              |    0.0   0.0   0.0   0.0   0.0   0.0   0.0   0.0 "
          "  0.0   0.0",
          " 2003       1 | Bertus                   NL-7            |  100.0   0.0   0.0   0.0   0.0   0.0   0.0   0.0 "
          "  0.0   0.0",
          wide_rule,
          blank(),
      });
}

TEST(WriteTopSires, WholeTableInDutch) {
  const ReportSheet sheet = sire_sheet(two_bulls(), three_years(), false);
  expect_lines(
      sheet.output,
      {
          blank(),
          "      Topvaders en hun aandeel per jaar",
          wide_rule,
          "             |                      de Topvader         |               aandeel van de top 10 vaders (%)    "
          "   "
          "       |",
          "jaar #Vaders | naam                    id               |     1     2     3     4     5     6     7     8   "
          "  9    10 |",
          wide_rule,
          " 2001      12 | Adema 21 van de WoudhoeveNL-1985-0001234 |   25.0  12.5  10.0   8.0   7.0   6.0   5.0   4.0 "
          "  3.0   2.0",
          " 2002       0 |  -                        -              |    0.0   0.0   0.0   0.0   0.0   0.0   0.0   0.0 "
          "  0.0   0.0",
          " 2003       1 | Bertus                   NL-7            |  100.0   0.0   0.0   0.0   0.0   0.0   0.0   0.0 "
          "  0.0   0.0",
          wide_rule,
          blank(),
      });
}

TEST(WriteTopSires, HeadingSaysNaamInAnEnglishReport) {
  const ReportSheet sheet = sire_sheet(two_bulls(), three_years(), true);
  EXPECT_EQ(sheet.lines()[4].substr(0, 20), "year #Sires  | naam ");
}

TEST(WriteTopSires, RulesAndHeadingsHaveNoLeadingBlank) {
  const ReportSheet sheet = sire_sheet(two_bulls(), three_years(), true);
  for (const std::size_t line : {2U, 3U, 4U, 5U, 9U}) EXPECT_EQ(sheet.lines()[line].size(), 119U);
}

TEST(WriteTopSires, AYearWithoutSireShowsTwoDashesAndSharesOfZero) {
  const ReportSheet sheet = sire_sheet(two_bulls(), YearRows<TopSireRow>(1), false);
  EXPECT_EQ(sheet.lines()[6], " 2001       0 | " + padded(" -", 25) + padded(" -", 15) + " | " +
                                  "   0.0   0.0   0.0   0.0   0.0   0.0   0.0   0.0   0.0   0.0");
}

TEST(WriteTopSires, NameIsCutAtTwentyFiveAndIdAtFifteenCharacters) {
  std::vector<AnimalRecord> bulls = two_bulls();
  bulls[1].name.assign("abcdefghijklmnopqrstuvwxyz");
  bulls[1].id.assign("1234567890123456");
  const ReportSheet sheet = sire_sheet(bulls, three_years(), true);
  EXPECT_EQ(sheet.lines()[8].substr(0, 59), " 2003       1 | abcdefghijklmnopqrstuvwxy123456789012345 | ");
}

TEST(WriteTopSires, AnEmptyStoreWithoutBirthYearsHasNoRows) {
  ReportSheet sheet = english_sheet(no_years());
  write_top_sires(sheet.frame(), YearRows<TopSireRow>(2));
  EXPECT_EQ(sheet.lines().size(), 8U);
}

}  // namespace
}  // namespace pedigreewatch::test
