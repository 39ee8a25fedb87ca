// Whose contributions the page of a plan shows.
#include "page/plan_page.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/diversity_pedigrees.h"
#include "support/page_reading.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

/// So many males and two females, nobody related.
PopulationStore unrelated(int males) {
  std::string animals = "x 0 0 f 2000\ny 0 0 f 2000\n";
  for (int k = 0; k < males; ++k) animals += "m" + std::to_string(k) + " 0 0 m 2000\n";
  return with_inbreeding(pedigree_from_text(animals));
}

/// The males whose contributions are shown when the best shares are these; no numbers of matings are asked for.
std::vector<std::string> males_shown(const std::vector<double>& shares) {
  const PopulationStore store = unrelated(static_cast<int>(shares.size()));
  PlanRequest request;
  for (std::size_t k = 0; k < shares.size(); ++k) {
    request.males.push_back(animal_named(store, "m" + std::to_string(k)).number);
  }
  request.females = positions_of(store, {"x", "y"});
  request.matings = 2;
  request.wants_pairs = false;
  Plan plan = make_plan(store, request);
  plan.numbers.numbers.clear();
  std::copy(shares.begin(), shares.end(), plan.least.shares.begin());
  const std::string page = make_plan_page({store, request, plan, {}, {}, "Dogs"});
  std::vector<std::string> names;
  for (const PageTable::TableRow& row : table_in(chart_of(page, "contributions")).rows) names.push_back(row.heading);
  return names;
}

TEST(PlanPage, ShowsTheFortyLargestContributions) {
  EXPECT_EQ(males_shown(std::vector<double>(39, 0.01)).size(), 39U);
  EXPECT_EQ(males_shown(std::vector<double>(40, 0.01)).size(), 40U);
  EXPECT_EQ(males_shown(std::vector<double>(41, 0.01)).size(), 40U);
}

TEST(PlanPage, ShowsContributionsFromAMillionthOn) {
  EXPECT_EQ(males_shown({0.499, 1.1e-6, 0.9e-6}), (std::vector<std::string>{"m0", "m1"}));
}

}  // namespace
}  // namespace pedigreewatch::test
