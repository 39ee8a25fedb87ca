#include "intake/id_rules.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

namespace pedigreewatch::test {
namespace {

std::string key(std::string_view id, unsigned bits) {
  std::string text;
  append_id_key(text, id, {bits});
  return text;
}

TEST(AppendIdKey, LeavesOutWhatTheRuleSays) {
  EXPECT_EQ(key("NL-00 1.2/3_4", separators_rule), "NL001234");
  EXPECT_EQ(key("Nl-01", capitals_rule), "nl-01");
  EXPECT_EQ(key("00120", zeros_rule), "120");
  EXPECT_EQ(key("NL0012-0030", zeros_rule), "NL12-30");
  EXPECT_EQ(key("000", zeros_rule), "0") << "a number keeps a digit";
  EXPECT_EQ(key("NLO1I", look_alikes_rule), "N1011");
  EXPECT_EQ(key("NL 0012", prefix_rule), "0012");
  EXPECT_EQ(key("Rex", prefix_rule), "Rex") << "letters alone are no prefix";
  EXPECT_EQ(key("NL-0012", separators_rule | capitals_rule), "nl0012");
  EXPECT_EQ(key("NL-0012", no_id_rule), "NL-0012");
  for (const char* const text :
       {"NL12?", "NL12 *", "(NL12)", "\xE2\x80\xA0NL12", "NL12\xE2\x80\xA0", "[NL12]?!", "NL12"}) {
    EXPECT_EQ(key(text, marks_rule), "NL12") << text;
  }
  EXPECT_EQ(key("NL?12", marks_rule), "NL?12") << "within it";
  EXPECT_EQ(key("???", marks_rule), "???") << "nothing else";
  EXPECT_EQ(key("1234", check_digit_rule), "1234");
  EXPECT_EQ(key("528123456789012", country_rule), "123456789012");
  EXPECT_EQ(key("528 1234-56789012", country_rule), "1234-56789012");
  EXPECT_EQ(key("52812345678901", country_rule), "52812345678901") << "fourteen digits have no country";
  EXPECT_EQ(key("5281234567890123", country_rule), "5281234567890123");
  EXPECT_EQ(key("NL 123456789", separators_rule | zeros_rule | prefix_rule | country_rule), "123456789");
  EXPECT_EQ(key("528000123456789", separators_rule | zeros_rule | prefix_rule | country_rule), "123456789");
}

TEST(WithoutCheckDigit, OfANumberAndWithASignInFront) {
  EXPECT_EQ(without_check_digit("12345"), "1234");
  EXPECT_EQ(without_check_digit("1234-5"), "1234");
  EXPECT_EQ(without_check_digit("NL1234X"), "");
  EXPECT_EQ(without_check_digit("5"), "");
}

TEST(IdRulesNamed, AsTheOptionHasThem) {
  constexpr std::array<std::pair<const char*, unsigned>, 10> names = {
      {{"separators", separators_rule},
       {"capitals", capitals_rule},
       {"zeros", zeros_rule},
       {"look-alikes", look_alikes_rule},
       {"marks", marks_rule},
       {"prefix", prefix_rule},
       {"country", country_rule},
       {"check-digit", check_digit_rule},
       {"keep", no_id_rule},
       {"separators+zeros", separators_rule | zeros_rule}}};
  for (const auto& [name, bits] : names) {
    const auto rules = id_rules_named(name);
    ASSERT_TRUE(rules.has_value()) << name;
    EXPECT_EQ(rules->bits, bits) << name;
    EXPECT_EQ(name_of_rules(*rules), name);
  }
  for (const char* const name : {"", "hyphens", "separators+", "keep+zeros", "Separators"}) {
    EXPECT_FALSE(id_rules_named(name).has_value()) << name;
  }
}

TEST(DescriptionOfRules, InBothLanguages) {
  EXPECT_EQ(description_of_rules({separators_rule | capitals_rule}, ToolLanguage::english),
            "without blanks, hyphens, dots and slashes and without regard to capitals");
  EXPECT_EQ(description_of_rules({zeros_rule}, ToolLanguage::dutch), "zonder nullen ervoor");
  EXPECT_EQ(description_of_rules({}, ToolLanguage::english), "as they are written");
}

}  // namespace
}  // namespace pedigreewatch::test
