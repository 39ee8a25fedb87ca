#include "checks/same_animals.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

TEST(AreSameName, WithoutCapitalsBlanksAccentsAndAffixes) {
  EXPECT_TRUE(are_same_name("Bello", "BELLO "));
  EXPECT_TRUE(are_same_name("Zo\xC3\xAB", "Zoe"));
  EXPECT_TRUE(are_same_name("Klein Duimpje", "Kleinduimpje"));
  EXPECT_TRUE(are_same_name("Bello", "Bello van de Hoeve"));
  EXPECT_TRUE(are_same_name("Rex", "Rex van de Hoeve"));
  EXPECT_TRUE(are_same_name("Hoeve's Bello", "Bello"));
}

TEST(AreSameName, NumbersAndSecondNamesTellAnimalsApart) {
  EXPECT_FALSE(are_same_name("Bello", "Bella"));
  EXPECT_FALSE(are_same_name("Bello", "Bello II"));
  EXPECT_FALSE(are_same_name("Bello", "Bello 2"));
  EXPECT_FALSE(are_same_name("Bello van de Hoeve", "Rex van de Hoeve"));
  EXPECT_FALSE(are_same_name("", ""));
  EXPECT_FALSE(are_same_name("Bo", "Bo van de Hoeve"));
}

TEST(CheckSameAnimals, AnAffixCountsOnlyWithAKnownParent) {
  const auto found = [](const std::string& parents) {
    return count_of(checked_sheep("id;sex;birthdate;sire;dam;name\na;f;05-06-2000;;;An\nc;m;05-06-2003;" + parents +
                                  ";Bello\nd;m;05-06-2003;" + parents + ";Bello van de Hoeve\n"),
                    FindingCode::same_animal);
  };
  EXPECT_EQ(found(";a"), 1);
  EXPECT_EQ(found(";"), 0);
}

// No litter has more than thirty young of one sex: of those that are born on one day as many have no day of their own.
TEST(CheckSameAnimals, AnAffixCountsAmongThirtyYoungAtMost) {
  const auto found = [](int young) {
    std::string data = "id;sex;birthdate;sire;dam;name\na;f;05-06-2000;;;An\n";
    for (int k = 0; k < young; ++k) {
      const std::string name = k == 0   ? "Bello"
                               : k == 1 ? "Bello van de Hoeve"
                                        : std::string(4, static_cast<char>('A' + k));
      data += "b" + std::to_string(k) + ";m;05-06-2003;;a;" + name + "\n";
    }
    return count_of(checked_sheep(data), FindingCode::same_animal);
  };
  EXPECT_EQ(found(30), 1);
  EXPECT_EQ(found(31), 0);
}

}  // namespace
}  // namespace pedigreewatch::test
