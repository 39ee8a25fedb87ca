#include "core/text_arena.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch::test {
namespace {

TEST(TextArena, TextsAreNumberedFromOne) {
  TextArena arena;
  EXPECT_EQ(arena.count(), 0);
  EXPECT_EQ(arena.add("NL-1"), 1);
  EXPECT_EQ(arena.add("NL-23"), 2);
  EXPECT_EQ(arena.add("NL-1"), 3);
  EXPECT_EQ(arena.count(), 3);
  EXPECT_EQ(arena.at(1), "NL-1");
  EXPECT_EQ(arena.at(2), "NL-23");
  EXPECT_EQ(arena.at(3), "NL-1");
}

TEST(TextArena, EmptyTextsAreTextsToo) {
  TextArena arena;
  for (const char* const text : {"", "a", "", "", "b", ""}) arena.add(text);
  EXPECT_EQ(arena.at(1), "");
  EXPECT_EQ(arena.at(2), "a");
  EXPECT_EQ(arena.at(3), "");
  EXPECT_EQ(arena.at(4), "");
  EXPECT_EQ(arena.at(5), "b");
  EXPECT_EQ(arena.at(6), "");
}

TEST(TextArena, BytesAreKeptAsTheyAre) {
  const std::string text("\0 \xEB\t ", 5);
  TextArena arena;
  arena.add(text);
  EXPECT_EQ(arena.at(1), text);
}

TEST(TextArena, EveryTextOfAFullChunkMayHaveSixtyBytes) {
  // 1024 of them are 61440 bytes, so that the last one ends just within 16 bits.
  const auto text_of = [](std::int32_t number) {
    const std::string digits = std::to_string(number);
    return std::string(60 - digits.size(), 'x') + digits;
  };
  TextArena arena;
  for (std::int32_t number = 1; number <= 2050; ++number) ASSERT_EQ(arena.add(text_of(number)), number);
  for (std::int32_t number = 1; number <= 2050; ++number) ASSERT_EQ(arena.at(number), text_of(number));
}

TEST(TextArena, AChunkBeginsWithEvery1024thText) {
  const auto text_of = [](std::int32_t number) { return "text " + std::to_string(number); };
  TextArena arena;
  for (std::int32_t number = 1; number <= 1024; ++number) arena.add(text_of(number));
  EXPECT_EQ(arena.chunks.size(), 1U);
  EXPECT_EQ(arena.at(1024), text_of(1024));
  arena.add(text_of(1025));
  EXPECT_EQ(arena.chunks.size(), 2U);
  arena.add(text_of(1026));
  EXPECT_EQ(arena.at(1), text_of(1));
  EXPECT_EQ(arena.at(1023), text_of(1023));
  EXPECT_EQ(arena.at(1024), text_of(1024));
  EXPECT_EQ(arena.at(1025), text_of(1025));
  EXPECT_EQ(arena.at(1026), text_of(1026));
}

TEST(TextArena, EmptyTextsAtTheBordersOfChunks) {
  TextArena arena;
  for (std::int32_t number = 1; number <= 2049; ++number) arena.add(number % 1024 <= 1 ? "" : "inner");
  for (const std::int32_t border : {1, 1024, 1025, 2048, 2049}) EXPECT_EQ(arena.at(border), "") << border;
  for (const std::int32_t inner : {2, 1023, 1026, 2047}) EXPECT_EQ(arena.at(inner), "inner") << inner;
}

TEST(TextArena, HoldsManyTextsOfAllLengths) {
  const auto text_of = [](std::int32_t number) {
    return std::string(static_cast<std::size_t>(number % 61), static_cast<char>('a' + number % 26));
  };
  constexpr std::int32_t count = 200'000;
  TextArena arena;
  for (std::int32_t number = 1; number <= count; ++number) arena.add(text_of(number));
  ASSERT_EQ(arena.count(), count);
  for (std::int32_t number = count; number >= 1; --number) ASSERT_EQ(arena.at(number), text_of(number)) << number;
}

}  // namespace
}  // namespace pedigreewatch::test
