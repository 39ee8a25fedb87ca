#include "pedigree/id_index.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

/// The identifications of the records so far, and their index.
struct Records {
  TextArena ids;
  IdIndex index;

  std::int32_t add(std::string_view id) {
    const std::int32_t record = ids.add(id);
    add_record_id(index, ids, HashedText(id), record);
    return record;
  }
  std::int32_t parent(std::string_view id) { return number_of_parent(index, ids, HashedText(id)); }
};

using Numbers = std::vector<std::int32_t>;

TEST(IdIndex, AParentThatHadItsRecordIsThatRecord) {
  Records records;
  records.add("rex");
  records.add("saar");
  EXPECT_EQ(records.parent("saar"), 2);
  EXPECT_EQ(records.parent("rex"), 1);
  EXPECT_EQ(records.index.pending.count(), 0);
}

TEST(IdIndex, OfTwoRecordsWithOneIdentificationTheFirstWins) {
  Records records;
  for (const char* const id : {"saar", "rex", "rex", "rex"}) records.add(id);
  EXPECT_EQ(records.parent("rex"), 2);
}

TEST(IdIndex, AParentBeforeItsRecordIsPending) {
  Records records;
  EXPECT_EQ(records.parent("rex"), -1);
  EXPECT_EQ(records.parent("saar"), -2);
  EXPECT_EQ(records.parent("rex"), -1);
  ASSERT_EQ(records.index.pending.count(), 2);
  EXPECT_EQ(records.index.pending.at(1), "rex");
  EXPECT_EQ(records.index.pending.at(2), "saar");
  EXPECT_EQ(records.index.pending_record.entries, (Numbers{0, 0}));
}

TEST(IdIndex, APendingParentGetsTheFirstRecordThatComes) {
  Records records;
  records.add("kid");
  EXPECT_EQ(records.parent("rex"), -1);
  EXPECT_EQ(records.parent("saar"), -2);
  EXPECT_EQ(records.add("saar"), 2);
  EXPECT_EQ(records.add("saar"), 3);
  EXPECT_EQ(records.index.pending_record.entries, (Numbers{0, 2}));
  EXPECT_EQ(records.parent("saar"), 2);  // from now on it is known by its record
  EXPECT_EQ(records.parent("rex"), -1);
}

TEST(IdIndex, AnAnimalMayBeItsOwnParent) {
  Records records;
  records.add("rex");
  EXPECT_EQ(records.parent("rex"), 1);
}

TEST(IdIndex, ZeroAndNothingAreTextsLikeAnyOther) {
  // That "0" stands for an unknown parent is known to the store.
  Records records;
  records.add("");
  records.add("0");
  EXPECT_EQ(records.parent("0"), 2);
  EXPECT_EQ(records.parent(""), 1);
  EXPECT_EQ(records.parent("00"), -1);
}

TEST(IdIndex, AnAnimalNamedZeroIsNobodysParent) {
  const PopulationStore store = animals_from_text("0 0 0 m 2000\na 0 0 m 2000\n");
  EXPECT_EQ(store.sire_no.values, (Numbers{0, 0, 0}));
  EXPECT_EQ(store.dam_no.values, (Numbers{0, 0, 0}));
}

TEST(IdIndex, AgreesWithAPlainSearchOnRandomIdentifications) {
  RandomNumbers random{5};
  Records records;
  std::map<std::string, std::int32_t> first_records, pending;
  for (int turn = 0; turn < 20'000; ++turn) {
    const std::string id = "x" + std::to_string(random.below(6000));
    const auto found = first_records.find(id);
    if (random.below(2) == 0) {
      const std::int32_t record = records.add(id);
      if (found == first_records.end()) first_records[id] = record;
    } else if (found != first_records.end()) {
      ASSERT_EQ(records.parent(id), found->second);
    } else {
      const auto next = static_cast<std::int32_t>(pending.size()) + 1;
      ASSERT_EQ(records.parent(id), -pending.try_emplace(id, next).first->second);
    }
  }
  ASSERT_EQ(records.index.pending.count(), static_cast<std::int32_t>(pending.size()));
  for (const auto& [id, number] : pending) {
    EXPECT_EQ(records.index.pending.at(number), id);
    const auto found = first_records.find(id);
    EXPECT_EQ(records.index.pending_record.at(number), found == first_records.end() ? 0 : found->second);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
