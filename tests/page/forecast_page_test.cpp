// Which years the charts of a forecast show.
#include "page/forecast_page.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/page_reading.h"

namespace pedigreewatch::test {
namespace {

/// The present practice in two replicates of three years from `first_year` on.
Forecast three_years_from(std::int32_t first_year) {
  Forecast forecast;
  forecast.first_year = first_year;
  forecast.years = 3;
  ScenarioForecast& scenario = forecast.scenarios.emplace_back();
  scenario.rules.name = std::string(present_practice);
  ReplicateYears years(3);
  for (ModelYear& year : years) year.kinship = {0.01, 0.02, 0.015, 10};
  scenario.replicates = {years, years};
  return forecast;
}

std::vector<RealYear> real_years(std::int32_t first, std::int32_t last) {
  std::vector<RealYear> years;
  for (std::int32_t year = first; year <= last; ++year) {
    years.push_back({year, {}});
    years.back().figures.kinship = {0.01, 0.02, 0.015, 10};
  }
  return years;
}

/// The years of a chart of a page that knows the years from `first` to 2020.
std::vector<std::string> years_shown(std::int32_t first, std::string_view chart) {
  const Forecast forecast = three_years_from(2021);
  const std::vector<ScenarioSummary> summaries = summarise(forecast);
  const std::vector<RealYear> past = real_years(first, 2020);
  const Hindcast hindcast = {three_years_from(2011), 2010};
  const std::vector<std::string> sentences;
  const std::string page = forecast_body({forecast, summaries, past, &hindcast, sentences, sentences, "Dogs"});
  std::vector<std::string> years;
  for (const PageTable::TableRow& row : table_in(chart_of(page, chart)).rows) years.push_back(row.heading);
  return years;
}

TEST(ForecastPage, ShowsThirtyYearsOfThePast) {
  EXPECT_EQ(years_shown(1992, "f-kinship").front(), "1992");
  EXPECT_EQ(years_shown(1991, "f-kinship").front(), "1991");
  EXPECT_EQ(years_shown(1990, "f-kinship").front(), "1991");
  EXPECT_EQ(years_shown(1990, "f-kinship").size(), 33U);
}

TEST(ForecastPage, LooksBackFromTenYears) {
  EXPECT_EQ(years_shown(1990, "b-kinship").front(), "2001");
  EXPECT_EQ(years_shown(1990, "b-kinship").back(), "2013");
}

}  // namespace
}  // namespace pedigreewatch::test
