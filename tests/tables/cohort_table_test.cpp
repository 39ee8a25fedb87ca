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

}  // namespace
}  // namespace pedigreewatch::test
