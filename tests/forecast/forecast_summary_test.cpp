// A forecast in a few figures.
#include "forecast/forecast_summary.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pedigreewatch::test {
namespace {

/// Replicates of three years, with parents of four years: in each 1 - kinship becomes that part of itself every year.
Forecast forecast_of_parts(std::initializer_list<double> parts) {
  Forecast forecast;
  forecast.first_year = 2021;
  forecast.years = 3;
  ScenarioForecast& scenario = forecast.scenarios.emplace_back();
  for (const double part : parts) {
    double rest = 0.9;
    ReplicateYears& years = scenario.replicates.emplace_back(3);
    for (ModelYear& year : years) {
      year.parent_age = 4.0;
      year.kinship.without_self = 1.0 - rest;
      rest *= part;
    }
  }
  return forecast;
}

double size_of_part(double part) {
  return 0.5 / (1.0 - std::pow(part, 4.0));
}

// The second of three replicates is the median one, whether kinship rises in the third or not.
TEST(Summarise, AReplicateWithoutARiseCountsAsASizeWithoutLimit) {
  const auto size = summarise(forecast_of_parts({0.97, 0.99, 1.01})).front().of(SummaryFigure::effective_size).value;
  ASSERT_TRUE(size.has_value());
  EXPECT_NEAR(size->median, size_of_part(0.99), 1e-6);
  EXPECT_NEAR(size->least, size_of_part(0.97), 1e-6);
  EXPECT_TRUE(std::isinf(size->most));
  EXPECT_EQ(size->replicates, 3);
  const auto falling =
      summarise(forecast_of_parts({0.97, 1.005, 1.01})).front().of(SummaryFigure::effective_size).value;
  EXPECT_TRUE(std::isinf(falling->median));
}

}  // namespace
}  // namespace pedigreewatch::test
