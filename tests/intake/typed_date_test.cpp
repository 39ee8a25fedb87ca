// Dates that are typed into a cell, as the column of the cell writes them.
#include "intake/typed_date.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace pedigreewatch::test {
namespace {

/// A column of dates, and what is typed into it.
struct Column {
  std::string text;
  ColumnChoice columns;
  DateSurvey survey;
  DatePlan plan;
  DayForm form;

  explicit Column(const std::vector<std::string>& dates, DateSystem serials = DateSystem::since_1900) {
    columns.place[birthdate_column] = 1;
    std::int64_t line = 0;
    for (const std::string& date : dates) {
      text += "A;" + date + "\n";
      survey_date(survey, date, ++line);
    }
    DateWish wish;
    wish.serials = serials;
    wish.this_year = 2026;
    plan = plan_dates(survey, wish);
    form = day_form(text, ';', columns, survey);
  }
  TypedDate take(const std::string& typed, bool is_day_first_usual = false) const {
    return typed_date(typed, {form, survey, plan, is_day_first_usual});
  }
  std::string kept(const std::string& typed) const {
    const TypedDate taken = take(typed);
    return taken.either ? taken.either->first + " or " + taken.either->second : taken.text;
  }
};

TEST(TypedDate, IsKeptAsAWorkbookWritesIt) {
  const Column column({"2018-02-03", "2019-12-31", "", "2017-05-06"});
  EXPECT_EQ(column.kept("14-03-2019"), "2019-03-14");
  EXPECT_EQ(column.kept("3/14/2019"), "2019-03-14") << "it can be no other day";
  EXPECT_EQ(column.kept("14 March 2019"), "2019-03-14");
  EXPECT_EQ(column.kept("14 mrt. 2019"), "2019-03-14");
  EXPECT_EQ(column.kept("2019.3.4"), "2019-03-04");
  EXPECT_EQ(column.kept("5-5-2019"), "2019-05-05");
}

TEST(TypedDate, ThatMayBeTwoDaysNamesBoth) {
  const Column column({"2018-02-03", "2019-12-31"});
  EXPECT_EQ(column.kept("03-04-2019"), "2019-04-03 or 2019-03-04");
  EXPECT_EQ(column.take("03-04-2019").text, "03-04-2019");
  EXPECT_EQ(column.take("03-04-2019", true).text, "2019-04-03") << "where the day stands first as a rule";
  EXPECT_FALSE(column.take("03-04-2019", true).either.has_value());
  EXPECT_EQ(Column({"2018-02-03", "2018-03-04", "25-12-2018"}).kept("03-04-2019"), "2019-04-03")
      << "the column tells it";
}

TEST(TypedDate, IsKeptAsTheNumberOfItsDay) {
  const Column column({"43538", "43000", "40000"});
  EXPECT_EQ(column.kept("14-03-2019"), "43538");
  EXPECT_EQ(column.kept("2019-03-15"), "43539");
  EXPECT_EQ(column.kept("43540"), "43540");
  EXPECT_EQ(column.kept("18-05-1927"), "10000") << "the first number of five digits";
  EXPECT_EQ(column.kept("17-05-1927"), "17-05-1927") << "shorter numbers are no dates";
  EXPECT_EQ(column.kept("13-10-2173"), "99999") << "the last one";
  EXPECT_EQ(column.kept("14-10-2173"), "14-10-2173");
  EXPECT_EQ(column.kept("03-04-2019"), "2019-04-03 or 2019-03-04");
  EXPECT_EQ(Column({"43538"}, DateSystem::since_1904).kept("14-03-2019"), "42076");
  EXPECT_EQ(day_shown("43538", column.plan), "14-03-2019");
  EXPECT_EQ(day_shown("14-03-2019", column.plan), "");
  EXPECT_EQ(day_shown("", column.plan), "");
}

TEST(TypedDate, HasTheSignsAndZerosOfTheColumn) {
  EXPECT_EQ(Column({"14.12.2004", "04.03.2005"}).kept("2019-03-04"), "04.03.2019");
  EXPECT_EQ(Column({"14/12/2004", "4/3/2005"}).kept("14-03-2019"), "14/3/2019");
  EXPECT_EQ(Column({"14-12-2004 00:00:00"}).kept("14-3-2019"), "14-03-2019 00:00:00");
  EXPECT_EQ(Column({"14-12-2004 13:05"}).kept("14-3-2019"), "14-03-2019") << "a time of day of its own";
  EXPECT_EQ(Column({"12/14/2004", "04/03/2005"}).kept("2019-04-03"), "04/03/2019") << "the month first";
  EXPECT_EQ(Column({"12/14/2004", "04/03/2005"}).kept("4/3/2019"), "04/03/2019");
  EXPECT_EQ(Column({"20041214", "20050304"}).kept("14-03-2019"), "20190314");
  EXPECT_EQ(Column({"14122004", "25032005"}).kept("03-04-2019"), "03042019");
}

TEST(TypedDate, ThatIsNoDayStaysAsItWasTyped) {
  const Column column({"2018-02-03", "2019-12-31"});
  for (const char* const typed : {"2019", "03-2019", "31-02-2019", "00-03-2019", "circa 14-03-2019", "14-03-2019 12:00",
                                  "unknown", "14032019", "14-3-19", "14-3-201", "14-3-20190", ""}) {
    EXPECT_EQ(column.kept(typed), typed);
  }
  EXPECT_EQ(Column({"14 March 2004", "15 March 2004"}).kept("16-03-2019"), "16-03-2019") << "months in words";
  EXPECT_EQ(Column({"", "unknown"}).kept("16-03-2019"), "16-03-2019") << "the column has no dates";
}

TEST(TypedDate, AThousandDatesTellWhetherTheColumnHasZeros) {
  std::vector<std::string> dates(1001, "14/12/2004");
  dates[999] = "14/3/2005";
  EXPECT_EQ(Column(dates).kept("04-03-2019"), "4/3/2019");
  std::swap(dates[999], dates[1000]);
  EXPECT_EQ(Column(dates).kept("04-03-2019"), "04/03/2019");
}

}  // namespace
}  // namespace pedigreewatch::test
