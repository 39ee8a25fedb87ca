#include "checks/stray_lines.h"

#include <gtest/gtest.h>

#include <string>

#include "intake/value_words.h"
#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

/// How many lines are no animals when this text stands alone in one of them.
std::int64_t strays_with(const std::string& text, const std::string& ids = "HS-", int count = 20) {
  std::string data = "id;sex;birthdate;sire;dam\n";
  for (int k = 0; k < count; ++k) data += ids + std::to_string(100 + k) + ";m;05-06-2000;;\n";
  return count_of(checked_sheep(data + text + ";;;;\n"), FindingCode::no_animal);
}

TEST(CheckStrayLines, FindsTotalsAndRemarks) {
  for (const char* text :
       {"Aantal dieren: 1300", "1300 records", "Printed on 31-12-2020", "Totaal: 2096 dieren", "x: y"}) {
    EXPECT_EQ(strays_with(text), 1) << text;
  }
  EXPECT_EQ(strays_with("HS-999"), 0);
  EXPECT_EQ(strays_with("Flora"), 0);
}

TEST(CheckStrayLines, BlanksAreNoRemarkWhereIdentificationsHaveThem) {
  EXPECT_EQ(strays_with("DE 999", "DE "), 0);
  EXPECT_EQ(strays_with("DE 999 records", "DE "), 1);
}

// With the line itself 99 animals or 100, of which one has a blank.
TEST(CheckStrayLines, OneIdentificationInAHundredWithABlankIsAnException) {
  EXPECT_EQ(strays_with("HS 1;m;05-06-2000;;\nx: y", "HS-", 97), 0);
  EXPECT_EQ(strays_with("HS 1;m;05-06-2000;;\nx: y", "HS-", 98), 1);
}

TEST(CheckStrayLines, AParentIsAnAnimal) {
  EXPECT_EQ(strays_with("HS 1"), 1);
  EXPECT_EQ(strays_with("HS-1;m;05-06-2002;HS 1;\nHS 1"), 0);
}

TEST(HasRemarkWord, LooksAtWholeWords) {
  EXPECT_TRUE(has_remark_word("1300 records"));
  EXPECT_FALSE(has_remark_word("Recordia"));
}

}  // namespace
}  // namespace pedigreewatch::test
