#include "checks/litter_dams.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

/// So many litters of `size` by one ram and one ewe a year, and one in which the last young has another dam.
std::int64_t found_of(int litters, int size) {
  std::string data = "id;sex;birthdate;sire;dam\na;m;01-01-1900;;\nb;f;01-02-1900;;\ne;f;01-03-1900;;\n";
  for (int litter = 0; litter < litters; ++litter) {
    for (int k = 0; k < size; ++k) {
      const bool is_odd = litter == 0 && k + 1 == size;
      data += "c" + std::to_string(litter * size + k) + ";m;01-03-" + std::to_string(1902 + litter) + ";a;" +
              (is_odd ? "e\n" : "b\n");
    }
  }
  return count_of(checked_sheep(data), FindingCode::litter_dams);
}

TEST(CheckLitterDams, OneInTenLittersMayHaveAnOddYoung) {
  EXPECT_EQ(found_of(10, 3), 1);
  EXPECT_EQ(found_of(9, 3), 0);
}

TEST(CheckLitterDams, OfTwoYoungOneInFifty) {
  EXPECT_EQ(found_of(50, 2), 1);
  EXPECT_EQ(found_of(49, 2), 0);
}

}  // namespace
}  // namespace pedigreewatch::test
