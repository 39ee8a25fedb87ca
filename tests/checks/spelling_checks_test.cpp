#include "checks/spelling_checks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

struct Spellings {
  std::size_t same = 0, near = 0;
};

/// What is found of two names with these numbers of animals.
Spellings found_of(const std::string& usual, int usual_count, const std::string& rare, int rare_count) {
  TextCounts names;
  for (int k = 0; k < usual_count; ++k) count_text(names, usual, k + 2);
  for (int k = 0; k < rare_count; ++k) count_text(names, rare, k + 100);
  Findings findings;
  check_spellings(names, {}, 1, {FindingCode::colour_spelling, FindingCode::colour_near}, findings);
  const KindCounts counts = count_kinds(findings);
  return {static_cast<std::size_t>(counts[static_cast<std::size_t>(FindingCode::colour_spelling)]),
          static_cast<std::size_t>(counts[static_cast<std::size_t>(FindingCode::colour_near)])};
}

TEST(CheckSpellings, CapitalsAreAlwaysTold) {
  EXPECT_EQ(found_of("Hirschrot", 3, "hirschrot", 3).same, 1U);
  EXPECT_EQ(found_of("red", 3, "Red", 1).same, 1U);
}

TEST(CheckSpellings, ALetterIsToldOfNamesFiveTimesRarer) {
  EXPECT_EQ(found_of("Grey", 5, "Gray", 1).near, 1U);
  EXPECT_EQ(found_of("Grey", 4, "Gray", 1).near, 0U);
}

TEST(CheckSpellings, ShortNamesAndNumbersAreNotCompared) {
  EXPECT_EQ(found_of("red", 50, "rod", 1).near, 0U);
  EXPECT_EQ(found_of("Type 1", 50, "Type 2", 1).near, 0U);
}

TEST(CheckSpellings, MoreThanAThousandTextsAreNoListOfNames) {
  const auto found = [](int texts) {
    TextCounts names;
    for (int k = 1; k < texts; ++k) count_text(names, "herd" + std::to_string(k), k + 1);
    count_text(names, "HERD1", 5000);
    Findings findings;
    check_spellings(names, {}, 1, {FindingCode::colour_spelling, FindingCode::colour_near}, findings);
    return count_kinds(findings)[static_cast<std::size_t>(FindingCode::colour_spelling)];
  };
  EXPECT_EQ(found(1000), 1);
  EXPECT_EQ(found(1001), 0);
}

}  // namespace
}  // namespace pedigreewatch::test
