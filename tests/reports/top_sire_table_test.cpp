#include "reports/top_sire_table.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

PopulationStore two_bulls() {
  PopulationStore store;
  store.animals.resize(2);
  store.animals[0].name.assign("Adema 21 van de Woudhoeve te Ryptsjerk");
  store.animals[0].id.assign("NL-1985-000123456789");
  store.animals[1].name.assign("Bertus");
  store.animals[1].id.assign("NL-7");
  store.animal_count = 2;
  return store;
}

// 2001: the first bull of 12 sires; 2002: no sire; 2003: the second bull, the only one.
TopSires three_years() {
  TopSires sires;
  sires.sire_count = table_of<std::int32_t>(1, {{12}, {}, {1}});
  sires.top_sire = table_of<std::int32_t>(1, {{1}, {}, {2}});
  sires.shares =
      table_of<float>(10, {{0.25F, 0.125F, 0.1F, 0.08F, 0.07F, 0.06F, 0.05F, 0.04F, 0.03F, 0.02F}, {}, {1.0F}});
  return sires;
}

const std::string wide_rule(119, '_');

TEST(WriteTopSires, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  TopSires sires = three_years();
  write_top_sires(sheet.frame(), two_bulls(), sires);
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
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  TopSires sires = three_years();
  write_top_sires(sheet.frame(), two_bulls(), sires);
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
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  TopSires sires = three_years();
  write_top_sires(sheet.frame(), two_bulls(), sires);
  EXPECT_EQ(sheet.lines()[4].substr(0, 20), "year #Sires  | naam ");
}

TEST(WriteTopSires, RulesAndHeadingsHaveNoLeadingBlank) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  TopSires sires = three_years();
  write_top_sires(sheet.frame(), two_bulls(), sires);
  for (const std::size_t line : {2U, 3U, 4U, 5U, 9U}) EXPECT_EQ(sheet.lines()[line].size(), 119U);
}

TEST(WriteTopSires, AYearWithoutSireShowsTwoDashesAndSharesOfZero) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 1));
  TopSires sires{table_of<std::int32_t>(1, {{}}), table_of<std::int32_t>(1, {{}}), table_of<float>(10, {{}})};
  write_top_sires(sheet.frame(), two_bulls(), sires);
  EXPECT_EQ(sheet.lines()[6], " 2001       0 | " + padded(" -", 25) + padded(" -", 15) + " | " +
                                  "   0.0   0.0   0.0   0.0   0.0   0.0   0.0   0.0   0.0   0.0");
}

TEST(WriteTopSires, NameIsCutAtTwentyFiveAndIdAtFifteenCharacters) {
  PopulationStore store = two_bulls();
  store.animals[1].name.assign("abcdefghijklmnopqrstuvwxyz");
  store.animals[1].id.assign("1234567890123456");
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  TopSires sires = three_years();
  write_top_sires(sheet.frame(), store, sires);
  EXPECT_EQ(sheet.lines()[8].substr(0, 59), " 2003       1 | abcdefghijklmnopqrstuvwxy123456789012345 | ");
}

TEST(WriteTopSires, TurnsTheSharesIntoPercentagesForLaterReaders) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  TopSires sires = three_years();
  write_top_sires(sheet.frame(), two_bulls(), sires);
  EXPECT_EQ(sires.shares.value(1, 1), 25.0F);
  EXPECT_EQ(sires.shares.value(1, 2), 12.5F);
  EXPECT_EQ(sires.shares.value(2, 1), 0.0F);
  EXPECT_EQ(sires.shares.value(3, 1), 100.0F);
}

TEST(WriteTopSires, AnEmptyStoreWithoutBirthYearsHasNoRows) {
  ReportSheet sheet = english_sheet(no_years());
  TopSires sires{{2, 1}, {2, 1}, {2, 10}};
  write_top_sires(sheet.frame(), PopulationStore{}, sires);
  EXPECT_EQ(sheet.lines().size(), 8U);
}

}  // namespace
}  // namespace pedigreewatch::test
