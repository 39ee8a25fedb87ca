// When a parent without a line may be an animal with a slip of the pen, and when an animal without parents is late.
#include "checks/parent_checks.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

const std::string head = "id;sex;birthdate;sire;dam\n";
const std::string young_of_hsx = "y;m;01-06-2002;HSX;\n";

TEST(CheckMissingParents, OfTwoThatAreEquallyGoodNoneIsMeant) {
  const std::string one = head + "HS1;m;01-06-2000;;\n";
  EXPECT_EQ(count_of(checked_sheep(one + young_of_hsx), FindingCode::parent_one_letter), 1);
  const CheckResult two = checked_sheep(one + "HS2;m;01-06-2000;;\n" + young_of_hsx);
  EXPECT_EQ(count_of(two, FindingCode::parent_one_letter), 0);
  EXPECT_EQ(count_of(two, FindingCode::parent_missing), 1);
}

TEST(CheckMissingParents, AMeantParentIsOldEnoughAndOfTheRightSex) {
  const auto meant = [](const std::string& animal) {
    return count_of(checked_sheep(head + animal + young_of_hsx), FindingCode::parent_one_letter);
  };
  EXPECT_EQ(meant("HS1;m;04-09-2001;;\n"), 1);  // 270 days before, the limit of sheep
  EXPECT_EQ(meant("HS1;m;05-09-2001;;\n"), 0);
  EXPECT_EQ(meant("HS1;f;04-09-2001;;\n"), 0);
}

TEST(CheckMissingParents, AWordWithoutADigitIsPerhapsUnknown) {
  const auto found = [](int young, const std::string& word) {
    std::string data = head;
    for (int k = 0; k < young; ++k) data += "c" + std::to_string(k) + ";m;01-06-2002;" + word + ";\n";
    return count_of(checked_sheep(data), FindingCode::unknown_perhaps);
  };
  EXPECT_EQ(found(5, "Hok"), 1);
  EXPECT_EQ(found(4, "Hok"), 0);
  EXPECT_EQ(found(5, "Hok7"), 0);
}

TEST(CheckMissingParents, WhereOneAnimalInTwentyHasANameForAnIdAWordIsNoneAnyMore) {
  const auto found = [](int names, int animals = 20) {
    std::string data = head;
    for (int k = 0; k < animals; ++k) {
      data.append(k < names ? "Rex" : "c0")
          .append(k < names ? std::string(static_cast<std::size_t>(k) + 1, 'x') : std::to_string(k));
      data.append(";m;01-06-2002;").append(k >= animals - 5 ? "Hok" : "").append(";\n");
    }
    return count_of(checked_sheep(data), FindingCode::unknown_perhaps);
  };
  EXPECT_EQ(found(1), 1);
  EXPECT_EQ(found(1, 19), 0);
  EXPECT_EQ(found(2), 0);
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
