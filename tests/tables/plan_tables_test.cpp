// What is left of the search in the shares of a plan.
#include "tables/plan_tables.h"

#include <gtest/gtest.h>

#include <string>

#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"
#include "support/read_table.h"

namespace pedigreewatch::test {
namespace {

TEST(ContributionsTable, SharesBelowAThousandMillionthAreNone) {
  const PopulationStore store =
      with_inbreeding(pedigree_from_text("a 0 0 m 2000\nb 0 0 m 2000\nc 0 0 m 2000\nx 0 0 f 2000\n"));
  PlanRequest request;
  request.males = positions_of(store, {"a", "b", "c"});
  request.females = positions_of(store, {"x"});
  request.matings = 1;
  Plan plan = make_plan(store, request);
  plan.least.shares = {0.5, 1.1e-9, 0.9e-9, 0.5};
  plan.without_limits.shares = plan.least.shares;
  TableWriter writer;
  write_contributions_table({store, plan, {}, {}}, writer);
  const ReadTable table = read_table(writer.text);
  ASSERT_EQ(table.rows.size(), 4U);
  std::vector<std::string> shares;
  for (std::size_t row = 0; row < table.rows.size(); ++row) shares.push_back(table.cell(row, "optimum"));
  EXPECT_EQ(shares[0], "0.5");
  EXPECT_EQ(shares[1].substr(0, 3), "1.1");
  EXPECT_EQ(shares[2], "0");
}

}  // namespace
}  // namespace pedigreewatch::test
