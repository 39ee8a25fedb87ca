#include "tables/list_tables.h"

#include <gtest/gtest.h>

#include <string>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

/// The list of one female, with what rounding leaves of her figures.
std::string list_of_one(float inbreeding, float mean_kinship) {
  PopulationStore store = numbered_store("2001\n");
  store.inbreeding[1] = inbreeding;
  PopulationFigures figures;
  figures.lists.females = {1};
  figures.animals.lines = ByNumber<KnownLine>(store.size());
  figures.animals.mean_kinship = ByNumber<float>(store.size());
  figures.animals.mean_kinship[1] = mean_kinship;
  const ByNumber<std::int32_t> offspring(store.size());
  TableWriter writer;
  write_kinship_list({store, Diversity{}, figures, offspring}, writer);
  return writer.text.substr(writer.text.find('\n') + 1);
}

TEST(KinshipList, RoundingLeavesNothingBelowZero) {
  EXPECT_EQ(list_of_one(-3e-7F, -1e-9F), list_of_one(0.0F, 0.0F));
  EXPECT_EQ(list_of_one(-3e-7F, -1e-9F).find("e-"), std::string::npos);
  EXPECT_NE(list_of_one(0.25F, 0.125F).find("\t0.125\t0\t0\t0\t0.25\n"), std::string::npos)
      << list_of_one(0.25F, 0.125F);
}

}  // namespace
}  // namespace pedigreewatch::test
