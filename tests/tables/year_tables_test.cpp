// The tables by birth year have room for the oldest parents of any subpopulation.
#include "tables/year_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/analysed_population.h"
#include "support/read_table.h"

namespace pedigreewatch::test {
namespace {

/// So many columns of ages that the table of two subpopulations has; the parents of one are five years old, those of
/// the other two.
std::ptrdiff_t age_columns(const std::string& old_one, const std::string& young_one) {
  SteerLines steer;
  steer.subpopulations = "2\nNorth\nSouth";
  const AnalysedPopulation population =
      analysed("id;sire;dam;sex;birthdate;breedtype\nS;;;m;01-06-2000;" + old_one + "\nD;;;f;01-06-2000;" + old_one +
                   "\nk;S;D;m;02-06-2005;" + old_one + "\nT;;;m;01-06-2003;" + young_one + "\nE;;;f;01-06-2003;" +
                   young_one + "\nl;T;E;m;02-06-2005;" + young_one + "\n",
               steer);
  TableWriter writer;
  write_subpopulations(population, count_groups(population), writer);
  const ReadTable table = read_table(writer.text);
  return std::ranges::count_if(table.names, [](const std::string& name) { return name.starts_with("sires_age_"); });
}

TEST(WriteSubpopulations, AgesAreThoseOfTheOldestParentsOfAll) {
  const std::ptrdiff_t columns = age_columns("North", "South");
  EXPECT_EQ(columns, 5);  // of 1827 days: the years from the second to the sixth
  EXPECT_EQ(age_columns("South", "North"), columns);
}

}  // namespace
}  // namespace pedigreewatch::test
