// What is seen of the columns of an export.

#include "intake/column_profiles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

/// Columns with these texts on each line, below headings that say nothing.
std::vector<ColumnProfile> profiles_of(std::size_t column_count, const std::vector<std::string>& texts) {
  ColumnChoice columns;
  columns.headings.assign(column_count, "Q");
  std::string text;
  for (const std::string& each : texts) {
    for (std::size_t k = 0; k < column_count; ++k) text += (k > 0 ? ";" : "") + each;
    text += "\n";
  }
  return profile_columns(text, ';', columns);
}

TEST(ProfileColumns, TheFirstHundred) {
  EXPECT_EQ(profiles_of(100, {"x"}).size(), 100U);
  EXPECT_EQ(profiles_of(101, {"x"}).size(), 100U);
}

TEST(ProfileColumns, ShowThreeDifferentTexts) {
  EXPECT_EQ(profiles_of(3, {"a", "a", "b", "c", "d"})[2].examples, (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(profiles_of(3, {"a", "a", "b"})[2].examples, (std::vector<std::string>{"a", "b"}));
}

TEST(ProfileColumns, JudgeTwoThousandRecordsAndCountAll) {
  std::vector<std::string> texts(2001, "14-3-2001");
  const ColumnProfile all = profiles_of(3, texts)[0];
  EXPECT_EQ(all.judged, 2000);
  EXPECT_EQ(all.dates, 2000);
  EXPECT_EQ(all.texts_read, 2001);
}

}  // namespace
}  // namespace pedigreewatch::test
