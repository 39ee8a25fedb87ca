#include "tables/cohort_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

std::string row_with_inbreeding(double sum) {
  const PopulationStore store = numbered_store("2001\n");
  Cohort cohort;
  cohort.first_year = cohort.last_year = 2001;
  cohort.sums.animals = 4;
  cohort.sums.inbreeding = sum;
  TableWriter writer;
  write_cohorts(store, std::vector<Cohort>{cohort}, writer);
  return writer.text.substr(writer.text.find('\n') + 1);
}

TEST(CohortTable, RoundingLeavesNoMeanBelowZero) {
  EXPECT_TRUE(row_with_inbreeding(1.0).starts_with("year\t2001\t2001\t\t4\t0.25\t")) << row_with_inbreeding(1.0);
  EXPECT_TRUE(row_with_inbreeding(-3e-7).starts_with("year\t2001\t2001\t\t4\t0\t")) << row_with_inbreeding(-3e-7);
}

TEST(CohortTable, HasSixGenerationsOfEitherSide) {
  TableWriter writer;
  write_cohorts(numbered_store("2001\n"), {}, writer);
  for (const std::string side : {"known_sire_side_", "known_dam_side_"}) {
    EXPECT_NE(writer.text.find(side + "6\t"), std::string::npos) << writer.text;
    EXPECT_EQ(writer.text.find(side + "7"), std::string::npos);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
