#include "text/spreadsheet_cell.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(AsTextCell, PutsAnApostropheBeforeWhatBeginsAFormula) {
  for (const std::string text : {"=cmd|'x'!A1", "=1", "+x", "+", "-", "--1", "-1-2", "@SUM(A1)", "\t=1", "\r=1", "-1.",
                                 "+1e", "-1e+", "-1,2,3", "+31-6-12", "-NL 12"}) {
    EXPECT_TRUE(begins_a_formula(text)) << text;
    EXPECT_EQ(as_text_cell(text), "'" + text);
  }
}

TEST(AsTextCell, LeavesNumbersAndOtherTexts) {
  for (const std::string text :
       {"", "Rex", "-1", "+2", "-1.5", "-1,5", "+1e5", "-1.5E-12", "1=2", "a@b", "'=x", " =x", "12-3"}) {
    EXPECT_FALSE(begins_a_formula(text)) << text;
    EXPECT_EQ(as_text_cell(text), text);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
