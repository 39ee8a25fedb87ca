// What is said of a forecast holds for the figures that it is said of.
#include "forecast/forecast_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

bool is_said(const std::vector<std::string>& lines, const std::string& part) {
  return std::any_of(lines.begin(), lines.end(),
                     [&](const std::string& line) { return line.find(part) != std::string::npos; });
}

/// Two scenarios of two replicates and three years from 2021 on, each with this mean kinship in the last year.
Forecast forecast_with(const std::vector<double>& present, const std::vector<double>& other) {
  Forecast forecast;
  forecast.first_year = 2021;
  forecast.years = 3;
  for (const std::vector<double>& kinships : {present, other}) {
    ScenarioForecast& scenario = forecast.scenarios.emplace_back();
    scenario.rules.name = forecast.scenarios.size() == 1 ? std::string(present_practice) : "limit";
    for (const double kinship : kinships) {
      ReplicateYears years(3);
      for (ModelYear& year : years) year.kinship.animals = 10;
      years.back().kinship.with_self = kinship;
      scenario.replicates.push_back(years);
    }
  }
  return forecast;
}

std::vector<std::string> said_of(const Forecast& forecast, ToolLanguage language = ToolLanguage::english) {
  return scenario_sentences(forecast, summarise(forecast)[1], 1, language);
}

TEST(ScenarioSentences, CallADifferenceWhatItsRangeAllows) {
  EXPECT_TRUE(is_said(said_of(forecast_with({0.1, 0.2}, {0.09, 0.19})), "1.00 percentage points lower"));
  EXPECT_TRUE(is_said(said_of(forecast_with({0.1, 0.2}, {0.11, 0.21})), "1.00 percentage points higher"));
  const auto unclear = said_of(forecast_with({0.1, 0.2}, {0.09, 0.21}));
  EXPECT_TRUE(is_said(unclear, "may be lower or higher"));
  EXPECT_TRUE(is_said(unclear, "between -0.90 and 0.90 percentage points"));  // of two replicates
  const auto same = said_of(forecast_with({0.1, 0.2}, {0.1, 0.2}));
  EXPECT_TRUE(is_said(same, "in 2023 mean kinship is the same as under the present practice"));
  EXPECT_FALSE(is_said(same, "may be"));
}

TEST(ScenarioSentences, HaveADecimalCommaInDutch) {
  const auto said = said_of(forecast_with({0.1, 0.2}, {0.09, 0.19}), ToolLanguage::dutch);
  EXPECT_TRUE(is_said(said, "1,00 procentpunt lager")) << said.back();
  EXPECT_FALSE(std::any_of(said.begin(), said.end(),
                           [](const std::string& line) { return line.find('.') != std::string::npos; }));
}

TEST(ScenarioSentences, NameWhatIsRefusedOnceInTwentyYears) {
  for (const std::int64_t pairs : {0, 1}) {
    Forecast forecast = forecast_with({0.1, 0.2}, {0.1, 0.2});
    forecast.years = 20;
    for (ScenarioForecast& scenario : forecast.scenarios) {
      for (ReplicateYears& years : scenario.replicates) years.resize(20);
    }
    for (ReplicateYears& years : forecast.scenarios[1].replicates) years[4].refused.pairs = pairs;
    EXPECT_EQ(is_said(said_of(forecast), "pairs are not made"), pairs == 1);
  }
}

TEST(ScenarioSentences, DoNotHideThatAPopulationDiesOut) {
  Forecast forecast = forecast_with({0.1, 0.2}, {0.1, 0.2});
  EXPECT_FALSE(is_said(said_of(forecast), "dies out"));
  forecast.scenarios[1].replicates[1].resize(1);
  EXPECT_TRUE(is_said(said_of(forecast), "the population dies out in 1 of 2 replicates; its figures are those of the"));
  forecast.scenarios[1].replicates[0].resize(2);
  const auto lines = said_of(forecast);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_TRUE(is_said(lines, "dies out in every replicate, in half of them by 2023: ")) << lines.front();
  EXPECT_TRUE(is_said(said_of(forecast, ToolLanguage::dutch), "sterft in elke herhaling uit"));
}

TEST(UnknownParentsSentence, SpeaksFromATwentiethOn) {
  FamilyPractice families;
  families.half_known = 0.04;
  families.founders = 0.0095;
  EXPECT_FALSE(unknown_parents_sentence(families, ToolLanguage::english).has_value());
  families.founders = 0.011;
  const auto said = unknown_parents_sentence(families, ToolLanguage::english);
  ASSERT_TRUE(said.has_value());
  EXPECT_TRUE(said->starts_with("5.1 % of the young have an unknown parent")) << *said;
}

}  // namespace
}  // namespace pedigreewatch::test
