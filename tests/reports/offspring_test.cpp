#include "reports/offspring.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

AnimalRecord busiest_bull() {
  AnimalRecord animal;
  animal.name.assign("Sunny Boy");
  animal.id.assign("NL-0001");
  animal.birth_year = 1985;
  animal.native_offspring_count = 1234;
  return animal;
}
AnimalRecord busiest_cow() {
  AnimalRecord animal;
  animal.name.assign("Klaske 12");
  animal.id.assign("NL-0002");
  animal.birth_year = 1990;
  animal.native_offspring_count = 17;
  return animal;
}

YearRows<ParentOffspring> offspring_of_three_years() {
  return rows_of<ParentOffspring>(3, {{1, {{3.5F, 1.25F, 12.0F}, {2.0F, 0.0F, 2.0F}}},  //
                                      {3, {{1.0F, 0.5F, 1.0F}, {10.75F, 4.5F, 345.0F}}}});
}

/// The table of these offspring, and the bull and the cow that have most of them.
ReportSheet offspring_sheet(const YearRows<ParentOffspring>& offspring, bool english) {
  ReportSheet sheet(years_from(2001, static_cast<std::int32_t>(offspring.row_count())), english);
  sheet.hold(std::vector{busiest_bull(), busiest_cow()});
  Block block;
  block.tables.parent_offspring = offspring;
  block.busiest = {1, 2};
  write_offspring(sheet.frame(), block);
  return sheet;
}

TEST(WriteOffspring, WholeTableInEnglish) {
  const ReportSheet sheet = offspring_sheet(offspring_of_three_years(), true);
  expect_lines(sheet.output, {
                                 blank(),
                                 "      total number OFFSPRING/PARENT per year of birth of parents",
                                 rule(56),
                                 "   Y of           bulls          |        cows        |",
                                 "  birth   mean   st.dev.    max.|  mean  st.dev.    max.|",
                                 rule(56),
                                 "    2001    3.50    1.25     12.    2.00    0.00      2.",
                                 "    2002    0.00    0.00      0.    0.00    0.00      0.",
                                 "    2003    1.00    0.50      1.   10.75    4.50    345.",
                                 "    ",
                                 pluses(),
                                 blank(),
                                 " Male with the highest number of offspring in the population",
                                 " name: " + padded("Sunny Boy", 50),
                                 " id-code: " + padded("NL-0001", 30),
                                 " Year of birth:         1985",
                                 " Number of offspring:         1234",
                                 blank(),
                                 " Female with the highest number of offspring in the population",
                                 " name: " + padded("Klaske 12", 50),
                                 " id-code: " + padded("NL-0002", 30),
                                 " Year of birth:         1990",
                                 " Number of offspring:           17",
                                 pluses(),
                             });
}

TEST(WriteOffspring, WholeTableInDutch) {
  const ReportSheet sheet = offspring_sheet(offspring_of_three_years(), false);
  expect_lines(sheet.output, {
                                 blank(),
                                 "      totaal aantal NAKOMELINGEN/OUDER per geboortejaar ouder",
                                 rule(56),
                                 "   geb.           stier         |         koe         |",
                                 "   jaar   gemid. st.dev.    max.| gemid. st.dev.    max.|",
                                 rule(56),
                                 "    2001    3.50    1.25     12.    2.00    0.00      2.",
                                 "    2002    0.00    0.00      0.    0.00    0.00      0.",
                                 "    2003    1.00    0.50      1.   10.75    4.50    345.",
                                 "    ",
                                 pluses(),
                                 blank(),
                                 " reu met de meeste nakomelingen in de populatie",
                                 " naam: " + padded("Sunny Boy", 50),
                                 " id-code: " + padded("NL-0001", 30),
                                 " geboortejaar:         1985",
                                 " aantal nakomelingen:         1234",
                                 blank(),
                                 " teef met de meeste nakomelingen in de populatie",
                                 " naam: " + padded("Klaske 12", 50),
                                 // The id-code of the top male.
                                 " id-code: " + padded("NL-0001", 30),
                                 " geboortejaar:         1990",
                                 " aantal nakomelingen:           17",
                                 pluses(),
                             });
}

TEST(WriteOffspring, DutchReportGivesTheTopFemaleTheIdOfTheTopMale) {
  const ReportSheet sheet = offspring_sheet(YearRows<ParentOffspring>(1), false);
  EXPECT_EQ(sheet.output.pending.find("NL-0002"), std::string::npos);
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), " id-code: " + padded("NL-0001", 30)), 2);
}

TEST(WriteOffspring, DutchTitlesNameDogsForCattle) {
  const ReportSheet sheet = offspring_sheet(YearRows<ParentOffspring>(1), false);
  EXPECT_TRUE(has_line(sheet.lines(), " reu met de meeste nakomelingen in de populatie"));
  EXPECT_TRUE(has_line(sheet.lines(), " teef met de meeste nakomelingen in de populatie"));
}

TEST(WriteOffspring, RoundsAMaximumToTheEvenWholeNumber) {
  const ReportSheet sheet =
      offspring_sheet(rows_of<ParentOffspring>(1, {{1, {{0.0F, 0.0F, 12.5F}, {0.0F, 0.0F, 13.5F}}}}), true);
  EXPECT_EQ(sheet.lines()[6], "    2001    0.00    0.00     12.    0.00    0.00     14.");
}

}  // namespace
}  // namespace pedigreewatch::test
