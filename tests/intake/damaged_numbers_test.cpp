#include "intake/damaged_numbers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

NumberForms forms_of(const std::vector<std::string>& texts) {
  NumberForms forms;
  std::int64_t line = 1;
  for (const std::string& text : texts) note_number(forms, text, ++line);
  return forms;
}

std::int64_t count_destroyed(const std::vector<std::string>& texts) {
  return destroyed_numbers(forms_of(texts)).count;
}

TEST(IsOfThousands, OneSignBetweenEachThreeDigits) {
  for (const char* const text : {"1.200", "12,000,001", "1'200", "1 200 300",
                                 "1\xC2\xA0"
                                 "200",
                                 "1\xE2\x80\xAF"
                                 "200"}) {
    EXPECT_TRUE(is_of_thousands(text)) << text;
  }
  for (const char* const text :
       {"1200", "1.20", "1.2000", "0.200", "1.200,300", "1.200.", "NL1.200", "", "1234.567", "."}) {
    EXPECT_FALSE(is_of_thousands(text)) << text;
  }
  EXPECT_EQ(without_thousands_signs("1.200.012"), "1200012");
}

TEST(HasThousandsSigns, WhenAllTextsAreNumbersThatHaveThemWhereTheyShould) {
  EXPECT_TRUE(has_thousands_signs(forms_of({"1.200", "999", "12.000.001"})));
  EXPECT_FALSE(has_thousands_signs(forms_of({"999", "998"}))) << "none has any";
  EXPECT_TRUE(may_have_thousands_signs(forms_of({"999", "998"})));
  std::vector<std::string> joined(50, "1.200");
  joined.emplace_back("Rex");
  EXPECT_TRUE(has_thousands_signs(forms_of(joined)));
  joined.erase(joined.begin());
  EXPECT_FALSE(has_thousands_signs(forms_of(joined)));
  EXPECT_FALSE(has_thousands_signs(forms_of({"1.200", "1201"})));
  EXPECT_FALSE(has_thousands_signs(forms_of({"1.200", "012"})));
  EXPECT_FALSE(has_thousands_signs(forms_of({"1.200", "NL12"})));
}

TEST(DestroyedNumbers, OneNumberWithAnExponentIsEnough) {
  for (const char* const text : {"5.28E+14", "5,28000E+14", "5E+14"}) {
    EXPECT_EQ(count_destroyed({"1", text, "NL1"}), 1) << text;
  }
  for (const char* const text : {"5.28E14", "NL5E+14", "5.28E+", "E+14", "5.2.8E+14", "5E+1x"}) {
    EXPECT_EQ(count_destroyed({text}), 0) << text;
  }
}

TEST(DestroyedNumbers, ThreeLongOnesThatEndInFiveZeros) {
  const std::vector<std::string> two = {"528000000100000", "528000000200000"};
  EXPECT_EQ(count_destroyed(two), 0);
  EXPECT_EQ(count_destroyed({two[0], two[1], "528000000300000"}), 3);
  EXPECT_EQ(count_destroyed({two[0], two[1], "528000000310000"}), 0) << "four zeros";
  EXPECT_EQ(count_destroyed({"52800000100000", "52800000200000", "52800000300000"}), 0) << "14 digits";
  const NotedTexts found = destroyed_numbers(forms_of({two[0], two[1], "528000000300000"}));
  EXPECT_EQ(found.first[2].line, 4);
  EXPECT_EQ(found.first[2].text, "528000000300000");
}

TEST(DestroyedNumbers, TwentyLongOnesOfWhichNoneHasASixteenthDigit) {
  std::vector<std::string> ids;
  for (int i = 10; i < 29; ++i) ids.push_back("1234567890123" + std::to_string(i) + "0");
  EXPECT_EQ(count_destroyed(ids), 0) << "19 of them";
  ids.emplace_back("1234567890123330");
  EXPECT_EQ(count_destroyed(ids), 20);
  ids.emplace_back("1234567890123331");
  EXPECT_EQ(count_destroyed(ids), 0) << "one has";
}

TEST(NoteNumber, ThreeDigitsAreBelowAThousand) {
  EXPECT_EQ(forms_of({"999"}).below_thousand, 1);
  EXPECT_EQ(forms_of({"1000"}).below_thousand, 0);
  EXPECT_EQ(forms_of({"1000"}).other, 1);
}

TEST(HasThousandsSigns, AThousandOtherTextsAreEnoughToGiveUp) {
  NumberForms forms;
  forms.of_thousands = 60'000;
  forms.other = 1000;
  EXPECT_TRUE(has_thousands_signs(forms));
  forms.other = 1001;
  EXPECT_FALSE(has_thousands_signs(forms)) << "although they are one in sixty";
}

}  // namespace
}  // namespace pedigreewatch::test
