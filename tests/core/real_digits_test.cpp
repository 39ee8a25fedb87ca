#include "core/real_digits.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(ScientificDigits, HaveOneDigitBeforeThePointAndAnExponentOfTwo) {
  EXPECT_EQ(scientific_digits(-0.5, 1), "-5.0e-01");
  EXPECT_EQ(scientific_digits(0, 2), "0.00e+00");
  EXPECT_EQ(scientific_digits(43536.25, 14), "4.35362500000000e+04");
  EXPECT_EQ(scientific_digits(1e300, 0), "1e+300");
}

TEST(ScientificDigits, RoundTheExactBinaryValueAndTiesToEven) {
  EXPECT_EQ(scientific_digits(2.5, 0), "2e+00");
  EXPECT_EQ(scientific_digits(3.5, 0), "4e+00");
  EXPECT_EQ(scientific_digits(0.1, 20), "1.00000000000000005551e-01");
}

}  // namespace
}  // namespace pedigreewatch::test
