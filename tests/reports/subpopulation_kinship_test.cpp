#include "reports/subpopulation_kinship.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

const std::vector<SubpopulationName> two_names = {SubpopulationName("Kort"), SubpopulationName("Langharig type")};
const std::vector<SubpopulationName> three_names = {SubpopulationName("Kort"), SubpopulationName("Langharig type"),
                                                    SubpopulationName("Ruwhaar")};

/// The tables of these subpopulations, of years from 2001 on.
ReportSheet kinship_sheet(const std::vector<SubpopulationName>& names, const YearTable<float>& kinship, bool english) {
  ReportSheet sheet(years_from(2001, static_cast<std::int32_t>(kinship.row_count())), english);
  sheet.subpopulation_names = names;
  write_subpopulation_kinship(sheet.frame(), kinship);
  return sheet;
}

TEST(WriteSubpopulationKinship, WholeTablesOfThreeSubpopulationsInEnglish) {
  // F and f of each subpopulation, then the pairs (1, 2), (1, 3) and (2, 3).
  const auto kinship = table_of<float>(
      9, {{0.125F, 0.25F, 0.0625F, 0.5F, 0.0F, 0.75F, 0.1F, 0.2F, 0.3F}, {}, {1, 2, 3, 4, 5, 6, 7, 8, 9}});
  const ReportSheet sheet = kinship_sheet(three_names, kinship, true);
  expect_lines(sheet.output, {
                                 blank(),
                                 "      Inbreeding and Kinship within Subpopulations",
                                 rule(73),
                                 "        Kort                Langharig type      Ruwhaar             ",
                                 "  year  inbreeding  kinship inbreeding  kinship inbreeding  kinship ",
                                 rule(73),
                                 "    2001    0.1250    0.2500    0.0625    0.5000    0.0000    0.7500",
                                 "    2002    0.0000    0.0000    0.0000    0.0000    0.0000    0.0000",
                                 "    2003    1.0000    2.0000    3.0000    4.0000    5.0000    6.0000",
                                 rule(73),
                                 blank(),
                                 "      Kinship between Subpopulations",
                                 "           1 - Kort                ",
                                 "           2 - Langharig type      ",
                                 "           3 - Ruwhaar             ",
                                 rule(73),
                                 " subpop1         1         1         2",
                                 " subpop2         2         3         3",
                                 rule(73),
                                 "    2001    0.1000    0.2000    0.3000",
                                 "    2002    0.0000    0.0000    0.0000",
                                 "    2003    7.0000    8.0000    9.0000",
                                 rule(73),
                             });
}

TEST(WriteSubpopulationKinship, WholeTablesOfTwoSubpopulationsInDutch) {
  const auto kinship = table_of<float>(5, {{0.125F, 0.25F, 0.0625F, 0.5F, 0.1F}, {}});
  const ReportSheet sheet = kinship_sheet(two_names, kinship, false);
  expect_lines(sheet.output, {
                                 blank(),
                                 "      Inteelt en Verwantschap binnen Subpopulaties",
                                 rule(73),
                                 "        Kort                Langharig type      ",
                                 "  jaar  inteelt verwantschapinteelt verwantschap",
                                 rule(73),
                                 "    2001    0.1250    0.2500    0.0625    0.5000",
                                 "    2002    0.0000    0.0000    0.0000    0.0000",
                                 rule(73),
                                 blank(),
                                 "      Verwantschap tussen Subpopulaties",
                                 "           1 - Kort                ",
                                 "           2 - Langharig type      ",
                                 rule(73),
                                 " subpop1         1",
                                 " subpop2         2",
                                 rule(73),
                                 "    2001    0.1000",
                                 "    2002    0.0000",
                                 rule(73),
                             });
}

TEST(WriteSubpopulationKinship, ManyYearsWithoutAnimalsHaveFourDecimalsToo) {
  const auto kinship = table_of<float>(5, {{}, {}, {0.125F, 0.25F, 0.0625F, 0.5F, 0.1F}, {}});
  const ReportSheet sheet = kinship_sheet(two_names, kinship, true);
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_EQ(lines[6], "    2001    0.0000    0.0000    0.0000    0.0000");
  EXPECT_EQ(lines[7], "    2002    0.0000    0.0000    0.0000    0.0000");
  EXPECT_EQ(lines[8], "    2003    0.1250    0.2500    0.0625    0.5000");
  EXPECT_EQ(lines[9], "    2004    0.0000    0.0000    0.0000    0.0000");
  EXPECT_TRUE(has_line(lines, "    2002    0.0000"));
  EXPECT_TRUE(has_line(lines, "    2003    0.1000"));
  EXPECT_TRUE(has_line(lines, "    2004    0.0000"));
}

TEST(WriteSubpopulationKinship, EnglishReportSaysYearHere) {
  EXPECT_EQ(kinship_sheet(two_names, YearTable<float>(3, 5), true).lines()[4].substr(0, 8), "  year  ");
}

TEST(WriteSubpopulationKinship, PairsAreOrderedByTheirFirstNumber) {
  const std::vector<SubpopulationName> four(4, SubpopulationName("x"));
  const ReportSheet sheet = kinship_sheet(four, YearTable<float>(1, 14), true);
  EXPECT_TRUE(has_line(sheet.lines(), " subpop1         1         1         1         2         2         3"));
  EXPECT_TRUE(has_line(sheet.lines(), " subpop2         2         3         4         3         4         4"));
}

}  // namespace
}  // namespace pedigreewatch::test
