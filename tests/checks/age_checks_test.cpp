// Where the doubts about dates begin: each bound with the last case that is believed and the first that is not. The
// limits of sheep: parents from 270 days on, usual from 330 on, a sire up to 13 years, a dam up to 15.
#include "checks/age_checks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "checks/date_checks.h"
#include "core/report_limits.h"
#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

const std::string head = "id;sex;birthdate;sire;dam\n";

/// A parent that is born on the first of January 2000 and its young.
CheckResult parent_and_young(bool is_sire, const std::string& birth) {
  return checked_sheep(head + (is_sire ? "a;m" : "a;f") + ";01-01-2000;;\nb;f;" + birth +
                       (is_sire ? ";a;\n" : ";;a\n"));
}

TEST(CheckAges, AParentIsNotYoungerThanItsYoung) {
  EXPECT_EQ(count_of(parent_and_young(true, "31-12-1999"), FindingCode::born_before_parent), 1);
  const CheckResult same_day = parent_and_young(true, "01-01-2000");
  EXPECT_EQ(count_of(same_day, FindingCode::born_before_parent), 0);
  EXPECT_EQ(count_of(same_day, FindingCode::parent_too_young), 1);
}

TEST(CheckAges, ADayIsTheLeastAgeWhateverTheLimits) {
  CheckSettings settings = check_settings(sheep_steer());
  ASSERT_EQ(read_limits("youngest_parent_days = 0\nyoung_parent_days = 0\n", "limits.txt", settings.limits), "");
  EXPECT_EQ(count_of(checked(head + "a;m;01-01-2000;;\nb;f;01-01-2000;a;\n", settings), FindingCode::parent_too_young),
            1);
  EXPECT_EQ(count_of(checked(head + "a;m;01-01-2000;;\nb;f;02-01-2000;a;\n", settings), FindingCode::parent_too_young),
            0);
}

TEST(CheckAges, AParentIsTooYoungBelowItsLimit) {
  // The 270th day behind the first of January 2000, a leap year, is the 27th of September.
  EXPECT_EQ(count_of(parent_and_young(true, "26-09-2000"), FindingCode::parent_too_young), 1);
  const CheckResult at_limit = parent_and_young(true, "27-09-2000");
  EXPECT_EQ(count_of(at_limit, FindingCode::parent_too_young), 0);
  EXPECT_EQ(count_of(at_limit, FindingCode::parent_young), 1);
}

TEST(CheckAges, AParentIsYoungBelowTheUsualAge) {
  // The 330th day is the 26th of November.
  EXPECT_EQ(count_of(parent_and_young(false, "25-11-2000"), FindingCode::parent_young), 1);
  EXPECT_EQ(count_of(parent_and_young(false, "26-11-2000"), FindingCode::parent_young), 0);
}

// From the last day of 2000 to the first of 2003 are 731 days: three years apart, which may be so few.
TEST(CheckAges, YearsAloneDoNotHideAParentThatIsJustTooYoung) {
  CheckSettings settings = check_settings(sheep_steer());
  ASSERT_EQ(read_limits("young_parent_days = 732\n", "limits.txt", settings.limits), "");
  const std::string parent = head + "a;m;31-12-2000;;\n";
  EXPECT_EQ(count_of(checked(parent + "b;f;01-01-2003;a;\n", settings), FindingCode::parent_young), 1);
  EXPECT_EQ(count_of(checked(parent + "b;f;02-01-2003;a;\n", settings), FindingCode::parent_young), 0);
}

TEST(CheckAges, AParentIsOldOnceTheYearBehindItsLimitIsFull) {
  // 14 years of 365.25 days are 5113.5 days, which the first of January 2014 has passed, day 5114; 16 are 5844.
  EXPECT_EQ(count_of(parent_and_young(true, "31-12-2013"), FindingCode::parent_old), 0);
  EXPECT_EQ(count_of(parent_and_young(true, "01-01-2014"), FindingCode::parent_old), 1);
  EXPECT_EQ(count_of(parent_and_young(false, "31-12-2015"), FindingCode::parent_old), 0);
  EXPECT_EQ(count_of(parent_and_young(false, "01-01-2016"), FindingCode::parent_old), 1);
}

TEST(CheckAges, SaysTheFullYearsOfAnOldParent) {
  const CheckResult result = parent_and_young(true, "01-01-2014");
  const auto found = std::ranges::find(result.findings.list, FindingCode::parent_old, &Finding::code);
  ASSERT_TRUE(found != result.findings.list.end());
  EXPECT_EQ(found->number, 14);
}

TEST(CheckYears, AYearIsFarOutBehindAHundredEmptyOnes) {
  const std::string young = "b;f;02-05-2001;;\nc;f;02-05-2001;;\n";
  const CheckResult near = checked_sheep(head + "a;m;02-05-1901;;\n" + young);  // 1902 to 2000: 99 years
  EXPECT_EQ(count_of(near, FindingCode::year_far_out), 0);
  EXPECT_EQ(count_of(near, FindingCode::year_lone), 1);
  const CheckResult far = checked_sheep(head + "a;m;02-05-1900;;\n" + young);
  EXPECT_EQ(count_of(far, FindingCode::year_far_out), 1);
  EXPECT_EQ(count_of(far, FindingCode::year_lone), 0);
}

/// So many animals of 1990 and of 1992.
CheckResult two_years(int before, int after) {
  std::string data = head;
  for (int k = 0; k < before; ++k) data += "a" + std::to_string(k) + ";m;02-05-1990;;\n";
  for (int k = 0; k < after; ++k) data += "b" + std::to_string(k) + ";m;02-05-1992;;\n";
  return checked_sheep(data);
}

TEST(CheckYears, AHundredthOfTheAnimalsIsAlone) {
  EXPECT_EQ(count_of(two_years(3, 297), FindingCode::year_lone), 1);
  EXPECT_EQ(count_of(two_years(4, 296), FindingCode::year_lone), 0);
  EXPECT_EQ(count_of(two_years(4, 296), FindingCode::year_gap), 1);
  EXPECT_EQ(count_of(two_years(3, 296), FindingCode::year_lone), 0) << "299 have two hundredths";
}

TEST(CheckYears, OneAnimalIsAloneHoweverFewThereAre) {
  EXPECT_EQ(count_of(two_years(1, 9), FindingCode::year_lone), 1);
  EXPECT_EQ(count_of(two_years(2, 8), FindingCode::year_lone), 0);
  EXPECT_EQ(count_of(two_years(2, 8), FindingCode::year_gap), 1);
}

TEST(CheckYears, NeighbouringYearsHaveNoGap) {
  const CheckResult result = checked_sheep(head + "a;m;02-05-1990;;\nb;m;02-05-1991;;\n");
  EXPECT_EQ(count_of(result, FindingCode::year_lone) + count_of(result, FindingCode::year_gap), 0);
}

TEST(CheckYears, TheSpanOfTheYearsStaysBelowItsLimit) {
  const auto spanned = [](std::int64_t years) {
    return checked_sheep(head + "a;m;02-05-5;;\nb;m;02-05-" + std::to_string(5 + years) + ";;\n");
  };
  EXPECT_EQ(count_of(spanned(year_limit - 1), FindingCode::year_span), 0);
  EXPECT_EQ(count_of(spanned(year_limit), FindingCode::year_span), 1);
}

TEST(CheckYears, AnAnimalOfTodayIsBorn) {
  // Checked on 30 June 2026.
  EXPECT_EQ(count_of(checked_sheep(head + "a;m;30-06-2026;;\n"), FindingCode::year_future), 0);
  EXPECT_EQ(count_of(checked_sheep(head + "a;m;01-07-2026;;\n"), FindingCode::year_future), 1);
}

/// So many dates with a first of January among other ones.
CheckResult january_dates(int january, int other) {
  std::string data = head;
  for (int k = 0; k < january; ++k) data += "a" + std::to_string(k) + ";m;01-01-2000;;\n";
  for (int k = 0; k < other; ++k) data += "b" + std::to_string(k) + ";m;05-06-2000;;\n";
  return checked_sheep(data);
}

TEST(SettleYearOnlyDates, NineTenthsOfTheFirstOfJanuaryStandForYears) {
  EXPECT_EQ(count_of(january_dates(18, 2), FindingCode::dates_of_years), 1);
  EXPECT_EQ(count_of(january_dates(17, 3), FindingCode::dates_of_years), 0);
}

TEST(SettleYearOnlyDates, FewerThanTwentyDatesMayAllBeOfJanuary) {
  EXPECT_EQ(count_of(january_dates(20, 0), FindingCode::dates_of_years), 1);
  EXPECT_EQ(count_of(january_dates(19, 0), FindingCode::dates_of_years), 0);
}

TEST(SettleYearOnlyDates, MoreThanHalfOfTheDatesDecide) {
  const CheckResult half = checked_sheep(head + "a;m;2000;;\nb;m;2001;;\nc;m;05-06-2001;;\nd;m;06-06-2001;;\n");
  EXPECT_EQ(count_of(half, FindingCode::dates_of_years), 0);
  EXPECT_EQ(serious_rows_of(half, ToolLanguage::english),
            std::vector<std::string>{
                "2|3||date-year-only|W|Only a year of birth (2 animals); ages are rough: lines 2-3|2-3"});
  const CheckResult more = checked_sheep(head + "a;m;2000;;\nb;m;2001;;\nc;m;2001;;\nd;m;06-06-2001;;\n");
  EXPECT_EQ(count_of(more, FindingCode::dates_of_years), 1);
  EXPECT_EQ(count_of(more, FindingCode::date_year_only), 0);
}

/// Two animals with so many years between a sire and its young, of 365 days, which is all there is in the file.
CheckResult ages_of(std::int64_t years, std::int64_t further_rows) {
  const std::int64_t last = 1000 + years;
  return checked_sheep(head + "a;m;02-05-" + std::to_string(1000 - further_rows) + ";;\nb;m;02-05-1000;;\nc;m;02-05-" +
                       std::to_string(last) + ";b;\n");
}

TEST(CheckAgeFigures, TheFiguresOfTheAgesStayWithinTheirLimit) {
  // Age in years times birth years: 4000 x 5000 is the limit itself, 4000 x 5001 is beyond it.
  static_assert(figure_limit == 20'000'000);
  EXPECT_EQ(count_of(ages_of(4000, 999), FindingCode::age_figures), 0) << "4000 x 5000";
  EXPECT_EQ(count_of(ages_of(4001, 998), FindingCode::age_figures), 1) << "4001 x 5000";
}

// A day before the birthday a parent has the years that it had; 364 days are no year.
TEST(CheckAgeFigures, AYearHas365Days) {
  const auto found = [](const std::string& day_of_sire, const std::string& of_young) {
    const std::string data = head + "a;m;02-05-0001;;\nb;m;" + day_of_sire + "-1000;;\nc;m;" + of_young + "-5000;b;\n";
    return count_of(checked_sheep(data), FindingCode::age_figures);
  };
  EXPECT_EQ(found("01-01", "31-12"), 0) << "4000 years and 364 days x 5000";
  EXPECT_EQ(found("31-12", "01-01"), 0) << "3999 years and a day x 5000";
}

}  // namespace
}  // namespace pedigreewatch::test
