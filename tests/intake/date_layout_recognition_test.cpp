#include "intake/date_layout_recognition.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "pedigree/birth_date.h"
#include "support/sanitizers.h"

namespace pedigreewatch::test {
namespace {

DateSurvey survey_of(const std::vector<std::string>& dates) {
  DateSurvey survey;
  std::int64_t line = 1;
  for (const std::string& date : dates) survey_date(survey, date, ++line);
  return survey;
}

DatePlan plan_of(const std::vector<std::string>& dates, std::optional<DateOrder> wanted = {}) {
  return plan_dates(survey_of(dates), {wanted, {}, {}, 2026});
}

std::string rewritten(const std::string& text, const DatePlan& plan) {
  std::string bytes;
  append_date(bytes, text, plan);
  return bytes;
}

TEST(PlanDates, OneDateThatAllowsNoOtherOrderDecides) {
  EXPECT_EQ(plan_of({"04-05-2005", "31-12-2005"}).written, DateOrder::day_month_year);
  EXPECT_EQ(plan_of({"04/05/2005", "12/31/2005"}).written, DateOrder::month_day_year);
  EXPECT_EQ(plan_of({"2005-31-12", "2005-04-05"}).written, DateOrder::year_day_month);
  EXPECT_EQ(plan_of({"31122005", "04052005"}).written, DateOrder::compact_day_month_year);
  EXPECT_EQ(plan_of({"20051231"}).written, DateOrder::compact_year_month_day);
}

TEST(PlanDates, DaysAndMonthsThatCannotBeToldApartAreAskedFor) {
  const DatePlan plan = plan_of({"04-05-2005", "06-07-2005"});
  EXPECT_TRUE(plan.is_ambiguous);
  EXPECT_EQ(plan.either_count, 2);
  EXPECT_FALSE(plan_of({"04-05-2005"}, DateOrder::month_day_year).is_ambiguous);
  EXPECT_FALSE(plan_of({"04-04-2005"}).is_ambiguous) << "one day in either order";
}

TEST(PlanDates, IsoOrderIsTakenWhereNothingSpeaksAgainstIt) {
  const DatePlan plan = plan_of({"2005-04-05", "2006-07-08"});
  EXPECT_FALSE(plan.is_ambiguous);
  EXPECT_EQ(plan.written, DateOrder::year_month_day);
}

TEST(PlanDates, OneSlipAmongManyDoesNotTurnTheOrder) {
  std::vector<std::string> dates(30, "2005-04-05");
  dates.emplace_back("2005-13-04");
  EXPECT_TRUE(plan_of(dates).is_ambiguous);
  dates.insert(dates.end(), 25, "2005-12-31");
  EXPECT_EQ(plan_of(dates).written, DateOrder::year_month_day);
  EXPECT_FALSE(plan_of(dates).is_ambiguous);
}

TEST(PlanDates, AboutEqualEvidenceForBothOrdersIsAskedFor) {
  EXPECT_TRUE(plan_of({"31-12-2005", "12-31-2005"}).is_ambiguous);
}

TEST(PlanDates, TheShapeOfMostDatesIsWritten) {
  const DatePlan plan = plan_of({"2005-12-31", "2005-11-30", "31-12-2005"});
  EXPECT_EQ(plan.written, DateOrder::year_month_day);
  EXPECT_EQ(rewritten("31-12-2005", plan), "2005-12-31");
}

TEST(AppendDate, AllShapesInTheLayoutOfThePlan) {
  const DatePlan plan = plan_of({"31-12-2005"});
  EXPECT_EQ(rewritten("1/2/2005", plan), "01-02-2005");
  EXPECT_EQ(rewritten("2005-12-31T00:00:00", plan), "31-12-2005");
  EXPECT_EQ(rewritten("3 mrt 2005", plan), "03-03-2005");
  EXPECT_EQ(rewritten("2005", plan), "2005");
  EXPECT_EQ(rewritten("mei 2005", plan), "00-05-2005");
  EXPECT_EQ(rewritten("~ 1972", plan), "1972");
  EXPECT_EQ(rewritten("05-2005", plan), "00-05-2005");
  EXPECT_EQ(rewritten("NA", plan), "");
  EXPECT_EQ(rewritten("31-13-2005", plan), "31-13-2005") << "the program repairs the month";
}

TEST(AppendDate, YearsInWhichNoAnimalIsBornAreNoDates) {
  const DatePlan plan = plan_of({"31-12-2005"});
  EXPECT_EQ(rewritten("03-04-1500", plan), "03-04-1500");
  EXPECT_EQ(rewritten("03-04-1499", plan), "");
  EXPECT_EQ(rewritten("2199-04-03", plan), "03-04-2199");
  EXPECT_EQ(rewritten("2200-04-03", plan), "");
  for (const char* const text :
       {"03-04-20145", "03-04-205", "11-08-3004", "12 Jul 20145", "Jul 205", "0205", "03-0205", "9999"}) {
    EXPECT_EQ(rewritten(text, plan), "") << text;
    const DateSurvey survey = survey_of({"31-12-2005", text});
    EXPECT_EQ(survey.unreadable.count, 1) << text;
    EXPECT_EQ(survey.years.plain.first, 2005) << text;
    EXPECT_EQ(survey.years.plain.last, 2005) << text;
  }
}

TEST(AppendDate, AYearOfZerosIsNotKnown) {
  const DateSurvey survey = survey_of({"31-12-2005", "00-00-0000", "0000", "0", "00"});
  const DatePlan plan = plan_dates(survey, {});
  EXPECT_EQ(rewritten("00-00-0000", plan), "00-00-0000");
  EXPECT_EQ(rewritten("0000", plan), "0000");
  EXPECT_EQ(rewritten("0", plan), "");
  EXPECT_EQ(survey.empty, 2);
  EXPECT_EQ(count_dates(survey, plan).not_understood, 0);
  EXPECT_EQ(survey.years.plain.first, 2005);
}

TEST(AppendDate, EightDigitsHoldAYearOfBirth) {
  const DatePlan plan = plan_of({"31122005", "30112005"});
  EXPECT_EQ(rewritten("31123005", plan), "");
  EXPECT_EQ(rewritten("00000000", plan), "00000000");
  EXPECT_EQ(rewritten("31132005", plan), "31132005") << "the program repairs the month";
  EXPECT_EQ(rewritten("99999999", plan_of({"31-12-2005", "99999999"})), "");
}

// The program stops at a date of which a piece is no number.
TEST(AppendDate, TheProgramReadsWhateverIsWritten) {
  const std::vector<std::string> signs = {"", "-", ".", "/", " ", "'", "o", " - ", "x", "T00:00", "?", "--"};
  const std::vector<std::string> numbers = {"",    "3",    "31",    "Jul",      "98",
                                            "205", "2005", "20145", "31122005", "99999999999"};
  for (const DateOrder order : {DateOrder::day_month_year, DateOrder::year_month_day, DateOrder::compact_day_month_year,
                                DateOrder::compact_year_month_day}) {
    DateWish wish;
    wish.order = order;
    wish.century = 1925;
    const DatePlan plan = plan_dates(survey_of({"31-12-2005", "31122005", "31-12-98"}), wish);
    const DateLayout layout = date_layout_of(layout_text(order, false));
    constexpr std::size_t step = cases(1, 7);  // 7 divides no count of numbers or signs: all of them stand everywhere
    const std::size_t all = numbers.size() * signs.size() * numbers.size() * signs.size() * numbers.size();
    for (std::size_t i = 0; i < all; i += step) {
      std::size_t rest = i;
      const auto next = [&](const std::vector<std::string>& texts) {
        const std::string& text = texts[rest % texts.size()];
        rest /= texts.size();
        return text;
      };
      std::string text = next(numbers) + next(signs);
      text += next(numbers) + next(signs);
      text += next(numbers);
      BirthDate date;
      const std::string written = rewritten(text, plan);
      ASSERT_TRUE(read_birth_date(written, layout, date)) << text << ": " << written;
      ASSERT_TRUE(date.year == 0 || (date.year >= first_year_of_birth && date.year <= last_year_of_birth))
          << text << ": " << written;
    }
  }
}

TEST(AppendDate, CompactLayoutsGetAllTheirZeros) {
  const DatePlan plan = plan_of({"31122005", "30112005"});
  EXPECT_EQ(rewritten("31122005", plan), "31122005");
  EXPECT_EQ(rewritten("1-2-2005", plan), "01022005");
  EXPECT_EQ(rewritten("2005", plan), "00002005");
}

TEST(SurveyDate, ListsWhatItCannotRead) {
  const DateSurvey survey = survey_of({"31-o2-1998", "31-12-05", "32-13-2005", "2005", "5-2005", "NA"});
  ASSERT_EQ(survey.unreadable.count, 1);
  EXPECT_EQ(survey.unreadable.first[0].line, 2);
  EXPECT_EQ(survey.unreadable.first[0].text, "31-o2-1998");
  EXPECT_EQ(survey.short_dates.noted.count, 1);
  EXPECT_EQ(survey.year_last.neither.count, 1);
  EXPECT_EQ(survey.year_only, 1);
  EXPECT_EQ(survey.month_only, 1);
  EXPECT_EQ(survey.empty, 1);
}

TEST(DateOrderNamed, LayoutsInBothLanguages) {
  EXPECT_EQ(date_order_named("dd-mm-yyyy"), DateOrder::day_month_year);
  EXPECT_EQ(date_order_named("d/m/j"), DateOrder::day_month_year);
  EXPECT_EQ(date_order_named("MM/DD/YYYY"), DateOrder::month_day_year);
  EXPECT_EQ(date_order_named("jjjj-mm-dd"), DateOrder::year_month_day);
  EXPECT_EQ(date_order_named("yyyy-dd-mm"), DateOrder::year_day_month);
  EXPECT_EQ(date_order_named("ddmmyyyy"), DateOrder::compact_day_month_year);
  EXPECT_EQ(date_order_named("yyyyddmm"), DateOrder::compact_year_day_month);
  EXPECT_FALSE(date_order_named("yyyy-mm").has_value());
  EXPECT_FALSE(date_order_named("dd-yyyy-mm").has_value());
  EXPECT_FALSE(date_order_named("").has_value());
}

TEST(LayoutText, HasDutchYears) {
  EXPECT_EQ(layout_text(DateOrder::day_month_year, false), "dd-mm-yyyy");
  EXPECT_EQ(layout_text(DateOrder::compact_year_month_day, true), "jjjjmmdd");
}

/// Dates of which so many allow one order only, and so many both.
std::vector<std::string> dates_for(std::size_t day_first, std::size_t month_first, std::size_t either = 0) {
  std::vector<std::string> dates(day_first, "31-12-2005");
  dates.insert(dates.end(), month_first, "12-31-2005");
  dates.insert(dates.end(), either, "04-05-2005");
  return dates;
}

TEST(PlanDates, MoreThanTwentyTimesAsManyDatesDecide) {
  EXPECT_TRUE(plan_of(dates_for(20, 1)).is_ambiguous);
  EXPECT_FALSE(plan_of(dates_for(21, 1)).is_ambiguous);
  EXPECT_EQ(plan_of(dates_for(21, 1)).written, DateOrder::day_month_year);
  EXPECT_TRUE(plan_of(dates_for(1, 20)).is_ambiguous);
  EXPECT_FALSE(plan_of(dates_for(1, 21)).is_ambiguous);
  EXPECT_EQ(plan_of(dates_for(1, 21)).written, DateOrder::month_day_year);
}

TEST(PlanDates, OneDateAmongTwentyMayBeASlip) {
  EXPECT_FALSE(plan_of(dates_for(0, 1, 19)).is_ambiguous);
  EXPECT_EQ(plan_of(dates_for(0, 1, 19)).written, DateOrder::month_day_year);
  EXPECT_TRUE(plan_of(dates_for(0, 1, 20)).is_ambiguous);
}

TEST(SurveyDate, DaysGoTo31AndMonthsTo12) {
  EXPECT_EQ(survey_of({"31-12-2005"}).year_last.neither.count, 0);
  EXPECT_EQ(survey_of({"32-12-2005"}).year_last.neither.count, 1);
  EXPECT_EQ(survey_of({"31-13-2005"}).year_last.neither.count, 1);
}

TEST(SurveyDate, OnlyDaysOfTheCalendarDecide) {
  for (const char* const text : {"29-02-2001", "29-02-1900", "30-02-2004", "31-04-2005", "04-31-2005"}) {
    EXPECT_EQ(survey_of({text}).year_last.neither.count, 1) << text;
  }
  for (const char* const text : {"29-02-2004", "29-02-2000", "30-04-2005", "00-02-2001"}) {
    EXPECT_EQ(survey_of({text}).year_last.neither.count, 0) << text;
  }
  EXPECT_EQ(survey_of({"20010229"}).compact.neither.count, 1);
  EXPECT_EQ(survey_of({"20040229"}).compact.neither.count, 0);
}

TEST(PlanDates, DatesOfTheOtherOrderAreToldWithTheDoubtfulOnesAroundThem) {
  std::vector<std::string> dates(50, "31-12-2005");
  dates.insert(dates.end(), {"01-02-2006", "12-31-2005", "02-03-2006", "05-05-2006", "10-25-2005", "03-04-2006"});
  dates.insert(dates.end(), 50, "31-12-2005");
  dates.emplace_back("04-05-2006");
  const DateSurvey survey = survey_of(dates);
  const DatePlan plan = plan_dates(survey, {});
  EXPECT_FALSE(plan.is_ambiguous);
  const ExchangedDates& odd = exchanged_year_last(survey, plan);
  EXPECT_EQ(odd.impossible.count, 2);
  ASSERT_EQ(odd.impossible.first.size(), 2U);
  EXPECT_EQ(odd.impossible.first[0].text, "12-31-2005");
  EXPECT_EQ(odd.impossible.first[1].text, "10-25-2005");
  ASSERT_EQ(odd.doubtful.first.size(), 3U);
  EXPECT_EQ(odd.doubtful.first[0].text, "01-02-2006");
  EXPECT_EQ(odd.doubtful.first[0].line, 52);
  EXPECT_EQ(odd.doubtful.first[1].text, "02-03-2006");
  EXPECT_EQ(odd.doubtful.first[2].text, "03-04-2006");
}

TEST(NoteFit, AtMostFiftyDatesWaitForAnImpossibleOne) {
  for (const std::int64_t count : {50, 51}) {
    ExchangedDates dates;
    for (std::int64_t line = 1; line <= count; ++line) note_fit(dates, DateFit::either, line, "01-02-2003");
    note_fit(dates, DateFit::impossible, 99, "12-31-2003");
    EXPECT_EQ(dates.doubtful.count, 50);
    EXPECT_EQ(dates.doubtful.first.front().line, count - 49);
  }
}

TEST(PlanDates, NumbersOfDaysAreAskedForUnlessSomeWouldBeInTheFuture) {
  // By the calendar: 43536 days behind the 30th of December 1899, or behind the 1st of January 1904.
  EXPECT_EQ(day_of_serial("43536", DateSystem::since_1900), "2019-03-12");
  EXPECT_EQ(day_of_serial("43536", DateSystem::since_1904), "2023-03-13");
  const DateSurvey survey = survey_of({"43536", "40000"});
  EXPECT_TRUE(plan_dates(survey, {{}, {}, {}, 2023}).are_serials_open);
  EXPECT_FALSE(plan_dates(survey, {{}, {}, {}, 2022}).are_serials_open);
  EXPECT_EQ(rewritten("43536", plan_dates(survey, {{}, {}, {}, 2022})), "12-03-2019");
  const DatePlan since_1904 = plan_dates(survey, {{}, DateSystem::since_1904, {}, 2023});
  EXPECT_FALSE(since_1904.are_serials_open);
  EXPECT_EQ(rewritten("43536", since_1904), "13-03-2023");
  EXPECT_EQ(day_of_serial("43536.0", DateSystem::since_1900), "2019-03-12");
  EXPECT_EQ(day_of_serial("43536,25", DateSystem::since_1904), "2023-03-13");
  EXPECT_TRUE(plan_dates(survey, {}).are_serials_open) << "the year is not known";
}

TEST(PlanDates, YearsOfTwoDigitsNeedTheirHundred) {
  const DateSurvey survey = survey_of({"31-12-98", "25-03-04", "3-mar-98", "jul-04"});
  EXPECT_TRUE(plan_dates(survey, {{}, {}, {}, 2026}).is_century_open);
  const DatePlan plan = plan_dates(survey, {{}, {}, 1925, 2026});
  EXPECT_FALSE(plan.is_century_open);
  EXPECT_EQ(rewritten("31-12-98", plan), "31-12-1998");
  EXPECT_EQ(rewritten("25-03-04", plan), "25-03-2004");
  EXPECT_EQ(rewritten("3-mar-98", plan), "03-03-1998");
  EXPECT_EQ(rewritten("jul-04", plan), "00-07-2004");
  EXPECT_EQ(rewritten("31-12-98", plan_dates(survey, {{}, {}, 1825, 2026})), "31-12-1898");
}

TEST(PlanDates, OrderOfThreeShortNumbers) {
  EXPECT_EQ(plan_of({"31-12-98", "25-03-98"}).short_order, DateOrder::day_month_year);
  EXPECT_FALSE(plan_of({"31-12-98", "25-03-98"}).is_ambiguous);
  EXPECT_EQ(plan_of({"12/31/98", "03/25/98"}).short_order, DateOrder::month_day_year);
  EXPECT_EQ(plan_of({"98-12-31", "98-03-25"}).short_order, DateOrder::year_month_day);
  EXPECT_TRUE(plan_of({"04-05-06"}).is_ambiguous);
  EXPECT_TRUE(plan_of({"25-05-06"}).is_ambiguous) << "the 25th, or the year 25";
  EXPECT_FALSE(plan_of({"25-05-06"}, DateOrder::year_month_day).is_ambiguous);
  DateWish wish = {DateOrder::year_month_day, {}, 1925, 2026};
  EXPECT_EQ(rewritten("98-12-31", plan_dates(survey_of({"98-12-31"}), wish)), "1998-12-31");
  wish.order = DateOrder::month_day_year;
  EXPECT_EQ(rewritten("04-05-06", plan_dates(survey_of({"04-05-06"}), wish)), "04-05-2006");
}

TEST(PlanDates, DatesWithAllDigitsTellTheOrderOfTheShortOnes) {
  EXPECT_EQ(plan_of({"25-05-06", "31-12-2005"}).short_order, DateOrder::day_month_year);
  EXPECT_EQ(plan_of({"04-05-06", "12-31-2005"}).short_order, DateOrder::month_day_year);
  EXPECT_EQ(plan_of({"25-05-06", "2005-12-31"}).short_order, DateOrder::year_month_day);
  for (const auto& dates : {std::vector<std::string>{"25-05-06", "31-12-2005", "2005-12-31"}}) {
    EXPECT_TRUE(plan_of(dates).is_ambiguous);
  }
}

TEST(CountDates, WordsThatNobodyKnowsAreNotUnderstood) {
  const DateSurvey survey = survey_of({"31-12-2005", "NA", "?", "spring", "########", "unknown", "32-13-2005", "x1"});
  const DateCounts counts = count_dates(survey, plan_dates(survey, {}));
  EXPECT_EQ(counts.all, 5);
  EXPECT_EQ(counts.not_understood, 4);
}

TEST(CanBeDayAndMonth, UpToTheLastDayOfTheMonth) {
  constexpr std::array last_days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (std::int32_t month = 1; month <= 12; ++month) {
    const std::int32_t last = last_days[static_cast<std::size_t>(month) - 1];
    EXPECT_TRUE(can_be_day_and_month(last, month, 2021)) << month;
    EXPECT_FALSE(can_be_day_and_month(last + 1, month, 2021)) << month;
  }
  EXPECT_TRUE(can_be_day_and_month(29, 2, 2020));
  EXPECT_TRUE(can_be_day_and_month(29, 2, 21)) << "of which century nobody knows";
  EXPECT_FALSE(can_be_day_and_month(1, 13, 2021));
}

TEST(DateSystemNamed, AsTheOptionHasThem) {
  EXPECT_EQ(date_system_named("serial-1900"), DateSystem::since_1900);
  EXPECT_EQ(date_system_named("serial-1904"), DateSystem::since_1904);
  EXPECT_FALSE(date_system_named("serial").has_value());
  EXPECT_EQ(century_named("1925"), 1925);
  for (const char* const text : {"", "25", "19255", "192x"}) EXPECT_FALSE(century_named(text).has_value()) << text;
}

TEST(SurveyDate, EightDigitsHaveAYearFrom1700To2199) {
  EXPECT_EQ(survey_of({"31121699"}).compact.neither.count, 1);
  EXPECT_EQ(survey_of({"31121700"}).compact.neither.count, 0);
  EXPECT_EQ(survey_of({"31122199"}).compact.neither.count, 0);
  EXPECT_EQ(survey_of({"31122200"}).compact.neither.count, 1);
}

TEST(SurveyDate, NamesTwentyDatesOfAKindAndCountsTheOthers) {
  std::vector<std::string> dates(20, "31-31-31-31");
  EXPECT_EQ(survey_of(dates).unreadable.first.size(), 20U);
  dates.push_back("32-32-32-32");
  const DateSurvey survey = survey_of(dates);
  EXPECT_EQ(survey.unreadable.first.size(), 20U);
  EXPECT_EQ(survey.unreadable.first.back().line, 21);
  EXPECT_EQ(survey.unreadable.count, 21);
}

}  // namespace
}  // namespace pedigreewatch::test
