#include "reports/subpopulation_tables.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

const std::vector<SubpopulationName> two_names = {SubpopulationName("Kort"), SubpopulationName("Langharig type")};
const std::vector<SubpopulationName> three_names = {SubpopulationName("Kort"), SubpopulationName("Langharig type"),
                                                    SubpopulationName("Ruwhaar")};

YearTable<std::int32_t> births() {
  return table_of<std::int32_t>(2, {{12, 3}, {}, {5, 40}});
}

SubpopulationOverlap overlap_of_two() {
  SubpopulationOverlap overlap(2);
  overlap.at(1, 1) = 30;
  overlap.at(1, 2) = 4;
  overlap.at(2, 1) = 500;
  overlap.at(2, 2) = 86;
  return overlap;
}

TEST(WriteSubpopulationTables, WholeTablesInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_subpopulation_tables(sheet.frame(), two_names, births(), overlap_of_two());
  expect_lines(sheet.output, {
                                 blank(),
                                 "      SUBPOPULATIONs in population",
                                 rule(56),
                                 "  jaar  Kort    Langhari",
                                 rule(56),
                                 "    2001      12       3",
                                 "    2002       0       0",
                                 "    2003       5      40",
                                 rule(56),
                                 " total        17      43",
                                 rule(56),
                                 blank(),
                                 "      Descent of Breed varieties in population",
                                 rule(56),
                                 "                            parents",
                                 "calves  Kort    Langhari",
                                 rule(56),
                                 "Kort          30       4",
                                 "Langhari     500      86",
                                 rule(56),
                             });
}

TEST(WriteSubpopulationTables, WholeTablesInDutch) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_subpopulation_tables(sheet.frame(), two_names, births(), overlap_of_two());
  expect_lines(sheet.output, {
                                 blank(),
                                 "      SUBPOPULATIEs in populatie",
                                 rule(56),
                                 "  jaar  Kort    Langhari",
                                 rule(56),
                                 "    2001      12       3",
                                 "    2002       0       0",
                                 "    2003       5      40",
                                 rule(56),
                                 " totaal       17      43",
                                 rule(56),
                                 blank(),
                                 "      Afstamming RASCODEs in populatie",
                                 rule(56),
                                 "                            ouders",
                                 "kalf    Kort    Langhari",
                                 rule(56),
                                 "Kort          30       4",
                                 "Langhari     500      86",
                                 rule(56),
                             });
}

TEST(WriteSubpopulationKinship, WholeTablesOfThreeSubpopulationsInEnglish) {
  // F and f of each subpopulation, then the pairs (1, 2), (1, 3) and (2, 3).
  const auto kinship = table_of<float>(
      9, {{0.125F, 0.25F, 0.0625F, 0.5F, 0.0F, 0.75F, 0.1F, 0.2F, 0.3F}, {}, {1, 2, 3, 4, 5, 6, 7, 8, 9}});
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_subpopulation_kinship(sheet.frame(), three_names, kinship);
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
  ReportSheet sheet = dutch_sheet(years_from(2001, 2));
  write_subpopulation_kinship(sheet.frame(), two_names, kinship);
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
  ReportSheet sheet = english_sheet(years_from(2001, 4));
  write_subpopulation_kinship(sheet.frame(), two_names, kinship);
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_EQ(lines[6], "    2001    0.0000    0.0000    0.0000    0.0000");
  EXPECT_EQ(lines[7], "    2002    0.0000    0.0000    0.0000    0.0000");
  EXPECT_EQ(lines[8], "    2003    0.1250    0.2500    0.0625    0.5000");
  EXPECT_EQ(lines[9], "    2004    0.0000    0.0000    0.0000    0.0000");
  EXPECT_TRUE(has_line(lines, "    2002    0.0000"));
  EXPECT_TRUE(has_line(lines, "    2003    0.1000"));
  EXPECT_TRUE(has_line(lines, "    2004    0.0000"));
}

TEST(WriteSubpopulationKinship, EnglishReportSaysYearHereAndJaarInTheCounts) {
  ReportSheet counts = english_sheet(years_from(2001, 3));
  write_subpopulation_tables(counts.frame(), two_names, births(), overlap_of_two());
  EXPECT_EQ(counts.lines()[3].substr(0, 8), "  jaar  ");
  ReportSheet kinship = english_sheet(years_from(2001, 3));
  write_subpopulation_kinship(kinship.frame(), two_names, YearTable<float>(3, 5));
  EXPECT_EQ(kinship.lines()[4].substr(0, 8), "  year  ");
}

TEST(WriteSubpopulationKinship, PairsAreOrderedByTheirFirstNumber) {
  const std::vector<SubpopulationName> four(4, SubpopulationName("x"));
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_subpopulation_kinship(sheet.frame(), four, YearTable<float>(1, 14));
  EXPECT_TRUE(has_line(sheet.lines(), " subpop1         1         1         1         2         2         3"));
  EXPECT_TRUE(has_line(sheet.lines(), " subpop2         2         3         4         3         4         4"));
}

}  // namespace
}  // namespace pedigreewatch::test
