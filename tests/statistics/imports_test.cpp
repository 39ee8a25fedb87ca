#include "statistics/imports.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

using Counts = std::vector<std::int32_t>;

/// Both native, the sire imported, the dam imported, both imported.
Counts import_pairs_of(const PopulationStore& store, const Counts& group) {
  const ImportPairs pairs = import_pair_statistics(store, group);
  return {pairs.both_native, pairs.sire_imported, pairs.dam_imported, pairs.both_imported};
}

// Males 1 native, 2 imported; females 3 native, 4 imported; then one child of each kind.
constexpr auto pair_parents = "m\nm import\n.\nimport\n";

TEST(ImportPairStatistics, OneColumnForEachKindOfPair) {
  const PopulationStore store = numbered_store(std::string(pair_parents) +
                                               "s=1 d=3\ns=2 d=3\ns=2 d=3\ns=1 d=4\ns=1 d=4\ns=1 d=4\n"
                                               "s=2 d=4\ns=2 d=4\ns=2 d=4\ns=2 d=4\n");
  EXPECT_EQ(import_pairs_of(store, from_to(5, 14)), (Counts{1, 2, 3, 4}));
}

TEST(ImportPairStatistics, ImportsAndAnimalsWithAnUnknownParentDoNotCount) {
  const PopulationStore store =
      numbered_store(std::string(pair_parents) + "s=1 d=3 import\ns=2 d=4 import\ns=2\nd=4\n.\n");
  EXPECT_EQ(import_pairs_of(store, from_to(1, 9)), (Counts{0, 0, 0, 0}));
}

}  // namespace
}  // namespace pedigreewatch::test
