#include "statistics/breeders.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>
#include <vector>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

using Counts = std::vector<std::int32_t>;

struct BreederCase {
  std::string_view numbered;
  std::int32_t group_end;  ///< the group is 1 to this position
  std::initializer_list<std::string_view> names;
};

/// Animals and parents of each breeder, then of all others; the one place where these tests call the operation.
Counts breeders_of(const BreederCase& c) {
  const PopulationStore store = numbered_store(c.numbered);
  const TopBreeders breeders = names_of<TopBreeders>(c.names);
  YearTable<std::int32_t> counts(1, 2 * breeders.count() + 2);
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

TEST(BreederStatistics, AYearWithoutAnimalsTakesNoMemory) {
  YearTable<std::int32_t> counts(1, 4);
  breeder_statistics(numbered_store(""), {}, names_of<TopBreeders>({"Smit"}), {}, 1, counts);
  EXPECT_FALSE(counts.is_stored(1));
}

TEST(ReadTopBreeders, TakesAsManyPiecesOfTheWidthAsThereAreTopBreeders) {
  const BreederList list = {.text =
                                "Abcdefghijklmnopqrst"
                                "Uvw                 ",
                            .breeder_count = 2,
                            .top_breeder_count = 2};
  const TopBreeders entries = read_top_breeders(list, breeder_entry_width);
  const TopBreeders slots = read_top_breeders(list, breeder_slot_width);
  ASSERT_EQ(entries.count(), 2);
  EXPECT_EQ(entries.names.at(1).full(), "Abcdefghijklmnopqrst");
  EXPECT_EQ(entries.names.at(2).full(), "Uvw                 ");
  ASSERT_EQ(slots.count(), 2);
  EXPECT_EQ(slots.names.at(1).full(), "Abcdefg             ");
  EXPECT_EQ(slots.names.at(2).full(), "hijklmn             ");
}

}  // namespace
}  // namespace pedigreewatch::test
