#include "core/real_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace pedigreewatch::test {
namespace {

template <typename Real>
std::string shortest(Real value) {
  std::string text;
  append_shortest(text, value);
  return text;
}

template <typename Real>
std::string shortest_slowly(Real value) {
  std::string text;
  append_shortest_slowly(text, value);
  return text;
}

TEST(ShortestText, IsWhatOneWouldWrite) {
  EXPECT_EQ(shortest(0.0F), "0");
  EXPECT_EQ(shortest(-0.0F), "0");
  EXPECT_EQ(shortest(0.25F), "0.25");
  EXPECT_EQ(shortest(0.1F), "0.1");
  EXPECT_EQ(shortest(0.1), "0.1");
  EXPECT_EQ(shortest(-2.5F), "-2.5");
  EXPECT_EQ(shortest(12.0F), "12");
  EXPECT_EQ(shortest(100.0F), "100");
  EXPECT_EQ(shortest(123.456F), "123.456");
  EXPECT_EQ(shortest(0.0001F), "0.0001");
}

TEST(ShortestText, HasAsManyDigitsAsItTakes) {
  EXPECT_EQ(shortest(1.0F / 3.0F), "0.33333334");        // the single above a third; .3333333 is another one
  EXPECT_EQ(shortest(1.0 / 3.0), "0.3333333333333333");  // sixteen digits
  EXPECT_EQ(shortest(16777216.0F), "16777216");          // 2 to the power of 24
  EXPECT_EQ(shortest(0.1F + 0.2F), "0.3");               // 0.3 rounded to a single is this very sum
  EXPECT_EQ(shortest(0.1 + 0.2), "0.30000000000000004");
}

TEST(ShortestText, HasAnExponentWhereZerosWouldBeMany) {
  EXPECT_EQ(shortest(1e-10F), "1e-10");
  EXPECT_EQ(shortest(0.00001F), "0.00001");
  EXPECT_EQ(shortest(0.0000015F), "1.5e-06");
  EXPECT_EQ(shortest(1e20F), "1e+20");
  EXPECT_EQ(shortest(1e100), "1e+100");
}

TEST(ShortestText, IsTheSameEitherWayAndReadsBack) {
  std::mt19937 random(11);
  for (int k = 0; k < 200'000; ++k) {
    const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (!std::isfinite(value)) continue;
    const std::string text = shortest(value);
    ASSERT_EQ(text, shortest_slowly(value));
    ASSERT_EQ(std::strtof(text.c_str(), nullptr), value) << text;
  }
  std::mt19937_64 wide_random(12);
  for (int k = 0; k < 50'000; ++k) {
    const double value = std::bit_cast<double>(std::uint64_t{wide_random()});
    if (!std::isfinite(value)) continue;
    const std::string text = shortest(value);
    ASSERT_EQ(text, shortest_slowly(value));
    ASSERT_EQ(std::strtod(text.c_str(), nullptr), value) << text;
  }
}

TEST(ShortestText, IsTheSameForFractionsOfSmallNumbersAndPowersOfTwo) {
  for (int n = 1; n <= 300; ++n) {
    for (int k = 0; k < n; ++k) {
      const float value = static_cast<float>(k) / static_cast<float>(n);
      ASSERT_EQ(shortest(value), shortest_slowly(value));
    }
  }
  for (int power = -149; power < 128; ++power) {
    const std::string text = shortest(std::ldexp(1.0F, power));
    ASSERT_EQ(std::strtof(text.c_str(), nullptr), std::ldexp(1.0F, power)) << text;
  }
}

TEST(ShortestText, HasADecimalPointInEveryLocale) {
  const char* const before = std::setlocale(LC_ALL, nullptr);
  const std::string kept = before == nullptr ? "C" : before;
  const bool is_there = std::setlocale(LC_ALL, "nl_NL.UTF-8") != nullptr || std::setlocale(LC_ALL, "de_DE") != nullptr;
  const std::string fast = shortest(0.125F), slow = shortest_slowly(0.3F);
  std::setlocale(LC_ALL, kept.c_str());
  if (!is_there) GTEST_SKIP() << "no locale with a decimal comma on this machine";
  EXPECT_EQ(fast, "0.125");
  EXPECT_EQ(slow, "0.3");
}

}  // namespace
}  // namespace pedigreewatch::test
