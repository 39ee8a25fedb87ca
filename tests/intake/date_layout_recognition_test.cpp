#include "intake/date_layout_recognition.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

DateSurvey survey_of(const std::vector<std::string>& dates) {
  DateSurvey survey;
  std::int64_t line = 1;
  for (const std::string& date : dates) survey_date(survey, date, ++line);
  return survey;
}

DatePlan plan_of(const std::vector<std::string>& dates, std::optional<DateOrder> wanted = {}) {
  return plan_dates(survey_of(dates), wanted);
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
  EXPECT_EQ(rewritten("mei 2005", plan), "mei 2005") << "no full date";
  EXPECT_EQ(rewritten("05-2005", plan), "00-05-2005");
  EXPECT_EQ(rewritten("NA", plan), "");
  EXPECT_EQ(rewritten("31-o2-1998", plan), "31-o2-1998");
  EXPECT_EQ(rewritten("31-12-05", plan), "31-12-05");
  EXPECT_EQ(rewritten("31-13-2005", plan), "31-13-2005") << "the program repairs the month";
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
  EXPECT_EQ(survey.short_years.count, 1);
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
