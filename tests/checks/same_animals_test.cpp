#include "checks/same_animals.h"

#include <gtest/gtest.h>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

TEST(AreSameName, WithoutCapitalsBlanksAccentsAndAffixes) {
  EXPECT_TRUE(are_same_name("Bello", "BELLO "));
  EXPECT_TRUE(are_same_name("Zo\xC3\xAB", "Zoe"));
  EXPECT_TRUE(are_same_name("Klein Duimpje", "Kleinduimpje"));
  EXPECT_TRUE(are_same_name("Bello", "Bello van de Hoeve"));
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

}  // namespace
}  // namespace pedigreewatch::test
