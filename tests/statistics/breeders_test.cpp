#include "statistics/breeders.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>
#include <vector>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

using Counts = std::vector<std::int32_t>;

/// A list whose top breeders have these names, as entries of 20 characters.
BreederList list_with(std::initializer_list<std::string_view> names) {
  BreederList list;
  for (const std::string_view name : names) list.text.append(BreederName(name).full());
  list.breeder_count = list.top_breeder_count = static_cast<std::int32_t>(names.size());
  return list;
}

/// The top breeders of these names.
TopBreeders top_breeders(const PopulationStore& store, std::initializer_list<std::string_view> names) {
  return find_top_breeders(store, list_with(names), breeder_entry_width);
}

struct BreederCase {
  std::string_view numbered;
  std::int32_t group_end;  ///< the group is 1 to this position
  std::initializer_list<std::string_view> names;
};

/// Animals and parents of each breeder, then of all others; the one place where these tests call the operation.
Counts breeders_of(const BreederCase& c) {
  const PopulationStore store = numbered_store(c.numbered);
  const TopBreeders breeders = top_breeders(store, c.names);
  YearTable<std::int32_t> counts(1, 2 * breeders.names.count() + 2);
  const Counts group = from_to(1, c.group_end);
  breeder_statistics(store, group, breeders, parent_year_statistics(store, group), 1, counts);
  return row_of(counts, 1);
}

// 1 and 4 are sires, 2 a dam; 3 an imported dam; 5 without offspring.
constexpr auto bred_animals =
    "m breeder=Smit\nbreeder=Smit\nbreeder=Smit import\nm breeder=Vos\nbreeder=Vos\n"
    "s=1 d=2\ns=4 d=3\n";

TEST(BreederStatistics, AnimalsAndParentsOfEachBreederAndTheRest) {
  // Smit bred 3 animals, all parents, the import too; Vos is not listed. The rest: 5 - 3 animals; native sires 2 and
  // dams 1, less 3.
  EXPECT_EQ(breeders_of({bred_animals, 5, {"Smit"}}), (Counts{3, 3, 2, 0}));
  EXPECT_EQ(breeders_of({bred_animals, 5, {"Vos", "Smit"}}), (Counts{2, 1, 3, 3, 0, -1}));
}

TEST(BreederStatistics, WithoutTopBreedersAllAnimalsAreTheRest) {
  // Native sires and dams: 1, 4 and 2. The imported dam is in neither column of native parents.
  EXPECT_EQ(breeders_of({bred_animals, 5, {}}), (Counts{5, 3}));
}

TEST(BreederStatistics, ABlankNameCountsAnimalsWithoutBreeder) {
  EXPECT_EQ(breeders_of({"m\n.\nbreeder=Smit\ns=1\n", 3, {"", "Smit"}}), (Counts{2, 1, 1, 0, 0, 0}));
}

TEST(BreederStatistics, ANameListedTwiceCountsTwice) {
  EXPECT_EQ(breeders_of({"m\nm\nbreeder=Smit\ns=1\ns=2\n", 3, {"", ""}}), (Counts{2, 2, 2, 2, -1, -2}));
}

TEST(FindTopBreeders, BreedersOfTheStoreKnowTheirFirstColumn) {
  const PopulationStore store = numbered_store("breeder=Vos\nbreeder=Smit\n.\nbreeder=Bos\n");
  EXPECT_EQ(top_breeders(store, {"Smit", "Mol", "Vos", "Smit"}).top_no.values, (Counts{0, 3, 1, 0}));
  EXPECT_EQ(top_breeders(store, {"Bos", ""}).top_no.values, (Counts{2, 0, 0, 1}));
}

TEST(BreederStatistics, AYearWithoutAnimalsTakesNoMemory) {
  YearTable<std::int32_t> counts(1, 4);
  const PopulationStore store = numbered_store("");
  breeder_statistics(store, {}, top_breeders(store, {"Smit"}), {}, 1, counts);
  EXPECT_FALSE(counts.is_stored(1));
}

TEST(FindTopBreeders, TakesAsManyPiecesOfTheWidthAsThereAreTopBreeders) {
  const BreederList list = {.text =
                                "Abcdefghijklmnopqrst"
                                "Uvw                 ",
                            .breeder_count = 2,
                            .top_breeder_count = 2};
  const auto entries = find_top_breeders({}, list, breeder_entry_width).names.names.entries;
  const auto slots = find_top_breeders({}, list, breeder_slot_width).names.names.entries;
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].full(), "Abcdefghijklmnopqrst");
  EXPECT_EQ(entries[1].full(), "Uvw                 ");
  ASSERT_EQ(slots.size(), 2U);
  EXPECT_EQ(slots[0].full(), "Abcdefg             ");
  EXPECT_EQ(slots[1].full(), "hijklmn             ");
}

}  // namespace
}  // namespace pedigreewatch::test
