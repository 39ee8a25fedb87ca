// When the headings decide on the delimiter, and what of a line without headings is shown.
#include "checks/reading_plan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

TEST(CheckDelimiter, ThreeHeadingsAreEnoughForAnother) {
  EXPECT_EQ(count_of(checked_sheep("id,sex,birthdate\n"), FindingCode::delimiter), 1);
  EXPECT_EQ(count_of(checked_sheep("id,sex,notes\n"), FindingCode::delimiter), 0);
}

TEST(CheckDelimiter, ThreeHeadingsAreEnoughForTheOneThatIsGiven) {
  EXPECT_EQ(count_of(checked_sheep("id;sex;birthdate;x,sire,dam,name\n"), FindingCode::delimiter), 0);
  EXPECT_EQ(count_of(checked_sheep("x;sex;birthdate;x,sire,dam,name,\n"), FindingCode::delimiter), 1);
}

TEST(PlanReading, ShowsSixtyLettersOfALineWithoutHeadings) {
  const std::string line(80, 'x');
  const CheckResult result = checked_sheep(line + "\n");
  const auto found = std::ranges::find(result.findings.list, FindingCode::header_missing, &Finding::code);
  ASSERT_TRUE(found != result.findings.list.end());
  EXPECT_EQ(result.findings.texts.at(found->text), line.substr(0, 60));
}

}  // namespace
}  // namespace pedigreewatch::test
