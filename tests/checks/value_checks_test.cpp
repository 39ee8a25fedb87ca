// The votes: which letter is that of the males, and how many names are told.
#include "checks/value_checks.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

const std::string head = "id;sex;birthdate;sire;dam\n";

/// So many fathers and mothers with the letter "r", and fathers with the letter "m" that the steer file gives.
CheckResult fathers_and_mothers(int r_fathers, int r_mothers, int m_fathers) {
  std::string parents, young;
  const auto add = [&](int count, const std::string& prefix, const std::string& sex, bool is_sire) {
    for (int k = 0; k < count; ++k) {
      const std::string id = prefix + std::to_string(k);
      parents += id + ";" + sex + ";05-06-2000;;\n";
      young += "y" + id + ";m;05-06-2003;" + (is_sire ? id + ";" : ";" + id) + "\n";
    }
  };
  add(r_fathers, "rf", "r", true);
  add(r_mothers, "rm", "r", false);
  add(m_fathers, "mf", "m", true);
  return checked_sheep(head + parents + young);
}

TEST(CheckMaleLetter, TheLetterOfMostFathersWins) {
  EXPECT_EQ(count_of(fathers_and_mothers(3, 0, 2), FindingCode::male_letter), 1);
  EXPECT_EQ(count_of(fathers_and_mothers(2, 0, 2), FindingCode::male_letter), 0);
}

TEST(CheckMaleLetter, MoreFathersThanMothersHaveIt) {
  EXPECT_EQ(count_of(fathers_and_mothers(3, 2, 0), FindingCode::male_letter), 1);
  EXPECT_EQ(count_of(fathers_and_mothers(3, 3, 0), FindingCode::male_letter), 0);
}

/// The text that tells to list so many colours.
std::string colours_to_list(int count) {
  std::string data = "id;sex;birthdate;sire;dam;colour\n";
  for (int k = 0; k < count; ++k) {
    data += "a" + std::to_string(k) + ";m;05-06-2000;;;c" + std::to_string(10 + k) + "\n";
  }
  const CheckResult result = checked_sheep(data);
  for (const Finding& finding : result.findings.list) {
    if (finding.code == FindingCode::colour_list) return std::string(result.findings.texts.at(finding.text));
  }
  return {};
}

TEST(CheckNames, TellsTwelveNamesToList) {
  EXPECT_EQ(colours_to_list(12), "12, c10, c11, c12, c13, c14, c15, c16, c17, c18, c19, c20, c21");
  EXPECT_EQ(colours_to_list(13), "13, c10, c11, c12, c13, c14, c15, c16, c17, c18, c19, c20, c21, ...");
}

TEST(CheckBreeders, TwentyLettersAreWhole) {
  const auto cut = [](std::size_t length) {
    return count_of(
        checked_sheep("id;sex;birthdate;sire;dam;breeder\na;m;05-06-2000;;;" + std::string(length, 'b') + "\n"),
        FindingCode::breeder_cut);
  };
  EXPECT_EQ(cut(20), 0);
  EXPECT_EQ(cut(21), 1);
}

}  // namespace
}  // namespace pedigreewatch::test
