#include "reports/subpopulation_scan.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

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

ReportSheet scan_sheet(bool english) {
  ReportSheet sheet(years_from(2001, 3), english);
  sheet.subpopulation_names = {SubpopulationName("Kort"), SubpopulationName("Langharig type")};
  write_subpopulation_tables(sheet.frame(), {births(), overlap_of_two()});
  return sheet;
}

TEST(WriteSubpopulationTables, WholeTablesInEnglish) {
  const ReportSheet sheet = scan_sheet(true);
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
  const ReportSheet sheet = scan_sheet(false);
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

TEST(WriteSubpopulationTables, EnglishReportSaysJaarHere) {
  EXPECT_EQ(scan_sheet(true).lines()[3].substr(0, 8), "  jaar  ");
}

}  // namespace
}  // namespace pedigreewatch::test
