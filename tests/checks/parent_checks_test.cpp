// When a parent without a line may be an animal with a slip of the pen, and when an animal without parents is late.
#include "checks/parent_checks.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

const std::string head = "id;sex;birthdate;sire;dam\n";
const std::string young_of_hsx = "y;m;01-06-2002;HSX;\n";

TEST(CheckMissingParents, OneOrTwoAnimalsMayBeMeant) {
  const std::string two = head + "HS1;m;01-06-2000;;\nHS2;m;01-06-2000;;\n";
  EXPECT_EQ(count_of(checked_sheep(two + young_of_hsx), FindingCode::parent_one_letter), 1);
  const CheckResult three = checked_sheep(two + "HS3;m;01-06-2000;;\n" + young_of_hsx);
  EXPECT_EQ(count_of(three, FindingCode::parent_one_letter), 0);
  EXPECT_EQ(count_of(three, FindingCode::parent_missing), 1);
}

TEST(CheckMissingParents, AMeantParentIsOlderAndOfTheRightSex) {
  const auto meant = [](const std::string& animal) {
    return count_of(checked_sheep(head + animal + young_of_hsx), FindingCode::parent_one_letter);
  };
  EXPECT_EQ(meant("HS1;m;31-05-2002;;\n"), 1);
  EXPECT_EQ(meant("HS1;m;01-06-2002;;\n"), 0);
  EXPECT_EQ(meant("HS1;f;31-05-2002;;\n"), 0);
}

/// Eight or nine animals one letter from HSX, of which one can be the father.
CheckResult many_near(int count) {
  std::string data = head;
  for (int k = 1; k <= count; ++k) data += "HS" + std::to_string(k) + (k == 1 ? ";m" : ";f") + ";01-06-2000;;\n";
  return checked_sheep(data + young_of_hsx);
}

TEST(CheckMissingParents, NumbersInARowAreNoSlips) {
  EXPECT_EQ(count_of(many_near(8), FindingCode::parent_one_letter), 1);
  EXPECT_EQ(count_of(many_near(9), FindingCode::parent_one_letter), 0);
}

TEST(CheckFounders, LateIsBehindTheMiddleYear) {
  // Half of the five dated animals are born up to 2001.
  const auto of_year = [](const std::string& year) {
    return checked_sheep(head + "a;m;01-06-2000;;\nb;f;01-06-2000;;\nc;m;01-06-2001;a;b\nd;m;01-06-" + year +
                         ";;\ne;f;01-06-2004;d;b\n");
  };
  EXPECT_EQ(count_of(of_year("2001"), FindingCode::founder_late), 0);
  EXPECT_EQ(count_of(of_year("2002"), FindingCode::founder_late), 1);
}

TEST(CheckRoles, OneYoungInEitherRoleIsTold) {
  EXPECT_EQ(count_of(checked_sheep(head + "a;m;01-06-2000;;\nb;m;01-06-2002;a;\nc;m;01-06-2002;;a\n"),
                     FindingCode::both_roles),
            1);
  EXPECT_EQ(count_of(checked_sheep(head + "a;m;01-06-2000;;\nb;m;01-06-2002;a;a\n"), FindingCode::both_roles), 0)
      << "this is told as one animal in both columns";
}

}  // namespace
}  // namespace pedigreewatch::test
