#include "checks/date_conflicts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

const std::string head = "id;sex;birthdate;sire;dam\n";

/// A ram with so many young that are older than he.
CheckResult young_before_their_sire(int count) {
  std::string data = head + "a;m;01-02-2012;;\nb;f;01-02-2000;;\nc;f;01-02-2000;;\nd;f;01-02-2000;;\n";
  for (int k = 0; k < count; ++k) {
    data += "y" + std::to_string(k) + ";m;05-06-2003;a;" + std::string(1, static_cast<char>('b' + k)) + "\n";
  }
  return checked_sheep(data + "z;f;05-06-2001;;b\nx;f;05-06-2002;;b\nv;f;05-06-2013;;z\n");
}

TEST(ReportConflicts, OneWrongDateIsOneFinding) {
  EXPECT_EQ(count_of(young_before_their_sire(1), FindingCode::born_before_parent), 1);
  EXPECT_EQ(count_of(young_before_their_sire(1), FindingCode::date_contradicted), 0);
  const CheckResult result = young_before_their_sire(3);
  EXPECT_EQ(count_of(result, FindingCode::born_before_parent), 0);
  const std::vector<std::string> rows = rows_of(result, ToolLanguage::english);
  EXPECT_EQ(
      std::ranges::count(rows,
                         "2||a|date-contradicted|W|Born 01-02-2012: that contradicts the dates of 3 relatives, so "
                         "it is probably wrong; 2003 or earlier would fit: lines 6-8|6-8"),
      1)
      << testing::PrintToString(rows);
}

// Its litter is too near to those before and behind it, of other sires; its year is one that fits its parents.
TEST(ReportConflicts, NoYearIsAdvisedThatIsItsOwn) {
  const CheckResult result = checked_sheep(head +
                                           "r;m;01-02-2008;;\ns;m;01-02-2008;;\nt;m;01-02-2008;;\nb;f;01-02-2008;;\n"
                                           "c;m;24-02-2012;r;b\nd;f;22-05-2012;s;b\ne;m;27-08-2012;t;b\n");
  const std::vector<std::string> rows = rows_of(result, ToolLanguage::english);
  EXPECT_EQ(std::count(rows.begin(), rows.end(),
                       "7||d|date-contradicted|W|Born 22-05-2012: that contradicts the dates of 2 relatives, so it is "
                       "probably wrong: lines 6, 8|6, 8"),
            1)
      << testing::PrintToString(rows);
}

TEST(ReportConflicts, ASireThatIsMerelyOldIsWorthALook) {
  const CheckResult result =
      checked_sheep(head +
                    "a;m;01-02-1980;;\nb;f;01-02-1990;;\nc;m;05-06-1996;a;b\nd;m;05-06-2000;a;b\n"
                    "e;m;05-06-1990;a;\nf;m;05-06-1985;a;\n");
  EXPECT_EQ(count_of(result, FindingCode::date_contradicted), 0);
  EXPECT_EQ(count_of(result, FindingCode::parent_old), 1);
}

}  // namespace
}  // namespace pedigreewatch::test
