#include "checks/line_checks.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

std::int64_t lines_without_animal(const std::string& line) {
  return count_of(checked_sheep("id;sex;birthdate;sire;dam\na;m;01-06-2000;;\n" + line + "\n"), FindingCode::no_animal);
}

TEST(KindOfLine, AWordForATotalMayHaveANumber) {
  EXPECT_EQ(lines_without_animal("Total;;;;"), 1);
  EXPECT_EQ(lines_without_animal("Total 12;;;;"), 1);
  EXPECT_EQ(lines_without_animal("Total;;01-06-2000;;"), 0) << "it has a date";
  EXPECT_EQ(lines_without_animal("Total;;;a;"), 0) << "it has a father";
}

TEST(KindOfLine, ATotalHasAtMost24Letters) {
  EXPECT_EQ(lines_without_animal("total" + std::string(19, '1') + ";;;;"), 1);
  EXPECT_EQ(lines_without_animal("total" + std::string(20, '1') + ";;;;"), 0);
}

TEST(KindOfLine, TwoHeadingsOfTheirFieldsAreEnough) {
  const auto headings = [](const std::string& line) {
    const std::string data = "id;sex;birthdate;sire;dam\na;m;01-06-2000;;\n" + line + "\n";
    return count_of(checked_sheep(data), FindingCode::header_again);
  };
  EXPECT_EQ(headings("id;x;y;sire;z"), 1);
  EXPECT_EQ(headings("b;x;y;sire;z"), 0);
}

TEST(KindOfLine, HyphensAndUnitsAreNoAnimals) {
  EXPECT_EQ(lines_without_animal("---;-;---;---;---"), 1);
  EXPECT_EQ(lines_without_animal("---;-;2001;---;---"), 0) << "it has a year";
  EXPECT_EQ(lines_without_animal("(no.);(m/f);(dd.mm.yyyy);(no.);(no.)"), 1);
  EXPECT_EQ(lines_without_animal("(no.);(m/f);(dd.mm.2001);(no.);(no.)"), 0) << "the date has a digit";
  EXPECT_EQ(lines_without_animal("(no.);(m/f);;(no.);(no.)"), 0) << "it has no date";
  EXPECT_EQ(lines_without_animal("(no.);(m/f);(dd.mm.yyyy);(no.);"), 0) << "it has no mother";
  EXPECT_EQ(lines_without_animal("(no.);(m/f);(dd.mm.yyyy);;(no.)"), 0) << "it has no father";
}

TEST(ByteKinds, ControlsQuotesAndHighBytes) {
  const ByteKinds kinds = byte_kinds(';');
  EXPECT_EQ(kinds[0x1F], byte_control);
  EXPECT_EQ(kinds[0x20], byte_plain);
  EXPECT_EQ(kinds[0x7E], byte_plain);
  EXPECT_EQ(kinds[0x7F], byte_control);
  EXPECT_EQ(kinds[0x80], byte_high);
  EXPECT_EQ(kinds['"'], byte_quote);
  EXPECT_EQ(byte_kinds('\t')['\t'], byte_plain) << "the delimiter";
}

}  // namespace
}  // namespace pedigreewatch::test
