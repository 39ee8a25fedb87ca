// What a choice of subpopulations makes of the report, in both languages.
#include "intake/said_values.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace pedigreewatch::test {
namespace {

NameChoice choice_of(std::int64_t names, std::int64_t least_animals, std::int64_t bytes,
                     std::int64_t longest_line = 80) {
  return {"", names, least_animals, bytes, longest_line};
}

std::string in_english(const NameChoice& choice) {
  return description_of(choice, ToolLanguage::english);
}

std::string in_dutch(const NameChoice& choice) {
  return description_of(choice, ToolLanguage::dutch);
}

TEST(DescribeNameChoice, SaysWhichNamesAreListed) {
  const NameChoice all = choice_of(60, 0, 12'000'001), large = choice_of(11, 50, 2'000'000), none = choice_of(0, 0, 9);
  EXPECT_EQ(in_english(all), "all 60 of them: a report of about 13 MB");
  EXPECT_EQ(in_dutch(all), "alle 60: een rapport van ongeveer 13 MB");
  EXPECT_EQ(in_english(large), "the 11 with at least 50 animals, all others together as one: a report of about 2 MB");
  EXPECT_EQ(in_dutch(large),
            "de 11 met minstens 50 dieren, alle andere samen als \xC3\xA9\xC3\xA9n: een rapport van ongeveer 2 MB");
  EXPECT_EQ(in_english(none), "none, the column is left out: a report of less than 1 MB");
  EXPECT_EQ(in_dutch(none), "geen, de kolom wordt weggelaten: een rapport van minder dan 1 MB");
}

TEST(DescribeNameChoice, SaysWhatIsTooLargeOnBothSidesOfTheLimits) {
  EXPECT_EQ(in_english(choice_of(2, 0, 999'999)), "all 2 of them: a report of less than 1 MB");
  EXPECT_EQ(in_english(choice_of(2, 0, 1'000'000)), "all 2 of them: a report of about 1 MB");
  EXPECT_EQ(in_english(choice_of(2, 0, 1'000'000'000)), "all 2 of them: a report of about 1000 MB");
  EXPECT_EQ(in_english(choice_of(2, 0, 1'000'000'001)),
            "all 2 of them: a report of about 1001 MB; more than 1000 MB are not made");
  EXPECT_EQ(in_dutch(choice_of(2, 0, 1'000'000'001)),
            "alle 2: een rapport van ongeveer 1001 MB; meer dan 1000 MB wordt niet gemaakt");
  EXPECT_EQ(in_english(choice_of(2, 0, 5'000'000, 1'000'000)), "all 2 of them: a report of about 5 MB");
  EXPECT_EQ(in_english(choice_of(2, 0, 5'000'000, 1'000'001)),
            "all 2 of them: a report with lines of 1.01 MB; more than 1 MB are not made");
  EXPECT_EQ(in_dutch(choice_of(2, 0, 5'000'000, 1'000'001)),
            "alle 2: een rapport met regels van 1,01 MB; meer dan 1 MB wordt niet gemaakt");
}

}  // namespace
}  // namespace pedigreewatch::test
