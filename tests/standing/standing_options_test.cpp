#include "standing/standing_options.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(StandingOptions, PercentagesAreReadWithAndWithoutTheirSign) {
  EXPECT_DOUBLE_EQ(read_percentage("5%").value(), 0.05);
  EXPECT_DOUBLE_EQ(read_percentage("6.25 %").value(), 0.0625);
  EXPECT_DOUBLE_EQ(read_percentage("6,25").value(), 0.0625);
  EXPECT_DOUBLE_EQ(read_percentage("100").value(), 1.0);
  for (const std::string_view text : {"", "%", "0", "100.1", "-5", "5%%", "1e1", "five", "5 5", "1.2.3", "nan"}) {
    EXPECT_FALSE(read_percentage(text).has_value()) << text;
  }
}

TEST(StandingOptions, AYearHasFourDigits) {
  EXPECT_EQ(read_rule_year("2015"), 2015);
  EXPECT_EQ(read_rule_year("1000"), 1000);
  EXPECT_EQ(read_rule_year("9999"), 9999);
  for (const std::string_view text : {"", "999", "10000", "2015-01-01", "20l5"}) {
    EXPECT_FALSE(read_rule_year(text).has_value()) << text;
  }
}

TEST(StandingOptions, EachOptionIsTakenOrRefused) {
  StandingSettings settings;
  EXPECT_EQ(take_standing_option("--rule-year", "2015", settings), "");
  EXPECT_EQ(take_standing_option("--sire-share", "4%", settings), "");
  EXPECT_EQ(take_standing_option("--most-f", "12.5%", settings), "");
  EXPECT_EQ(take_standing_option("--years", "x", settings), "");
  EXPECT_EQ(settings.rule_year, 2015);
  EXPECT_DOUBLE_EQ(settings.most_sire_share, 0.04);
  EXPECT_DOUBLE_EQ(settings.most_inbreeding, 0.125);
  EXPECT_TRUE(settings.is_sire_share_given);
  EXPECT_TRUE(settings.is_most_inbreeding_given);
  EXPECT_EQ(take_standing_option("--rule-year", "soon", settings),
            "--rule-year \"soon\": a year was expected, such as 2015");
  EXPECT_EQ(take_standing_option("--sire-share", "0", settings),
            "--sire-share \"0\": a percentage above 0 and up to 100 was expected, such as 5%");
  // A part of 1 that was meant is not taken for a percentage.
  EXPECT_EQ(take_standing_option("--most-f", "0.0625", settings),
            "--most-f \"0.0625\": this may be a percentage or a part of 1; write it with its sign, such as 6.25%");
  EXPECT_EQ(take_standing_option("--most-f", "0.99", settings),
            "--most-f \"0.99\": this may be a percentage or a part of 1; write it with its sign, such as 6.25%");
  EXPECT_EQ(take_standing_option("--most-f", "0.5%", settings), "");
  EXPECT_EQ(take_standing_option("--most-f", "1", settings), "");
  EXPECT_DOUBLE_EQ(settings.most_inbreeding, 0.01);
  EXPECT_EQ(take_standing_option("--most-f", "lots", settings),
            "--most-f \"lots\": a percentage above 0 and up to 100 was expected, such as 6.25%");
}

}  // namespace
}  // namespace pedigreewatch::test
