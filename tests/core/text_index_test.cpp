#include "core/text_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/fixed_text.h"

namespace pedigreewatch::test {
namespace {

using Id = FixedText<30>;

struct IndexedIds {
  std::vector<Id> ids;
  TextIndex index;

  std::string_view text_of(std::int32_t place) const { return ids[static_cast<std::size_t>(place) - 1].full(); }

  /// Adds an id at the next place, and yields the place that stands for it.
  std::int32_t add(std::string_view text) {
    ids.emplace_back(text);
    const Id id = ids.back();
    return find_or_add_text(index, id.full(), static_cast<std::int32_t>(ids.size()),
                            [this](std::int32_t place) { return text_of(place); });
  }
  std::int32_t find(std::string_view text) const {
    return find_text(index, Id(text).full(), [this](std::int32_t place) { return text_of(place); });
  }
};

TEST(TextIndex, LikelyPlaceIsTheFoundOneOrNone) {
  IndexedIds animals;
  EXPECT_EQ(likely_place(animals.index, hash_of_text(Id("rex").full())), 0);  // no slots yet
  for (int n = 1; n <= 500; ++n) animals.add("id " + std::to_string(n));
  for (int n = 1; n <= 1000; ++n) {
    const Id id("id " + std::to_string(n));
    // Hashes of 32 bits: no two of these thousand meet.
    EXPECT_EQ(likely_place(animals.index, hash_of_text(id.full())), n <= 500 ? n : 0);
    fetch_slot_early(animals.index, hash_of_text(id.full()));
  }
}

TEST(TextIndex, EmptyIndexFindsNothing) {
  const IndexedIds animals;
  EXPECT_EQ(animals.find("rex"), 0);
  EXPECT_EQ(animals.find(""), 0);
}

TEST(TextIndex, FindsThePlaceOfEachText) {
  IndexedIds animals;
  EXPECT_EQ(animals.add("rex"), 1);
  EXPECT_EQ(animals.add("saar"), 2);
  EXPECT_EQ(animals.add("bram"), 3);
  EXPECT_EQ(animals.find("rex"), 1);
  EXPECT_EQ(animals.find("saar"), 2);
  EXPECT_EQ(animals.find("bram"), 3);
  EXPECT_EQ(animals.find("puck"), 0);
}

TEST(TextIndex, FirstPlaceWins) {
  IndexedIds animals;
  EXPECT_EQ(animals.add("rex"), 1);
  EXPECT_EQ(animals.add("saar"), 2);
  EXPECT_EQ(animals.add("rex"), 1);
  EXPECT_EQ(animals.add("rex  "), 1);
  EXPECT_EQ(animals.find("rex"), 1);
  EXPECT_EQ(animals.index.used, 2U);
}

TEST(TextIndex, TextsThatDifferInOneByteAreDifferent) {
  IndexedIds animals;
  for (const std::string_view id : {"NL1", "NL2", "nl1", " NL1", "NL 1", "NL10", "0", "00", " 0", ""}) {
    const std::int32_t place = animals.add(id);
    EXPECT_EQ(place, static_cast<std::int32_t>(animals.ids.size())) << '"' << id << '"';
  }
  EXPECT_EQ(animals.find("NL 1"), 5);
  EXPECT_EQ(animals.find("00"), 8);
  EXPECT_EQ(animals.find(""), 10);
}

TEST(TextIndex, TextsThatDifferInTheirLastByteAreDifferent) {
  IndexedIds animals;
  const std::string stem(29, 'x');
  EXPECT_EQ(animals.add(stem + "1"), 1);
  EXPECT_EQ(animals.add(stem + "2"), 2);
  EXPECT_EQ(animals.find(stem + "2"), 2);
  EXPECT_EQ(animals.find(stem + "3"), 0);
}

// Among so many texts some have the same hash, so that only their bytes tell them apart.
TEST(TextIndex, FindsEveryOneOfManyTextsAlsoWhereHashesAreEqual) {
  constexpr std::int32_t count = 300000;
  IndexedIds animals;
  std::vector<std::uint32_t> hashes;
  for (std::int32_t i = 1; i <= count; ++i) {
    const std::string id = "NL-" + std::to_string(i);
    ASSERT_EQ(animals.add(id), i);
    hashes.push_back(hash_of_text(animals.ids.back().full()));
  }
  for (std::int32_t i = 1; i <= count; ++i) ASSERT_EQ(animals.find("NL-" + std::to_string(i)), i);
  for (std::int32_t i = 1; i <= 1000; ++i) ASSERT_EQ(animals.find("BE-" + std::to_string(i)), 0);
  std::sort(hashes.begin(), hashes.end());
  EXPECT_NE(std::adjacent_find(hashes.begin(), hashes.end()), hashes.end());
}

TEST(TextIndex, GrowthKeepsRoomAndPlaces) {
  IndexedIds animals;
  for (std::int32_t i = 1; i <= 5000; ++i) {
    animals.add(std::to_string(i));
    ASSERT_TRUE(std::has_single_bit(animals.index.slots.size()));
    ASSERT_GE(animals.index.slots.size(), animals.index.used + animals.index.used / 2);
    if (std::has_single_bit(static_cast<std::uint32_t>(i))) {
      for (std::int32_t j = 1; j <= i; ++j) ASSERT_EQ(animals.find(std::to_string(j)), j);
    }
  }
}

TEST(TextIndex, RoomMadeBeforehandIsNotGivenBack) {
  IndexedIds animals;
  reserve_texts(animals.index, 1000);
  const std::size_t size = animals.index.slots.size();
  EXPECT_GE(size, 1500U);
  EXPECT_EQ(animals.find("rex"), 0);
  for (std::int32_t i = 1; i <= 1000; ++i) animals.add(std::to_string(i));
  reserve_texts(animals.index, 10);
  EXPECT_EQ(animals.index.slots.size(), size);
  EXPECT_EQ(animals.find("1000"), 1000);
}

TEST(HashOfText, LooksAtEveryByteAndTheLength) {
  const std::string text(30, 'x');
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::string other = text;
    other[i] = 'y';
    EXPECT_NE(hash_of_text(other), hash_of_text(text)) << "byte " << i;
  }
  EXPECT_NE(hash_of_text(""), hash_of_text(std::string_view("\0", 1)));
  EXPECT_NE(hash_of_text("a"), hash_of_text(std::string_view("a\0", 2)));
  EXPECT_EQ(hash_of_text("Rex"), hash_of_text(std::string("Rex")));
}

}  // namespace
}  // namespace pedigreewatch::test
