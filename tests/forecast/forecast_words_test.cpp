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
  EXPECT_TRUE(is_said(unclear, "between -1.00 and 1.00 percentage points"));
  const auto same = said_of(forecast_with({0.1, 0.2}, {0.1, 0.2}));
  EXPECT_TRUE(is_said(same, "in 2023 mean kinship is the same as under the present practice"));
  EXPECT_FALSE(is_said(same, "may be"));
}

/// The kinship of different animals, year by year, in all replicates of a scenario.
void set_course(ScenarioForecast& scenario, const std::vector<double>& kinships) {
  for (ReplicateYears& years : scenario.replicates) {
    for (std::size_t k = 0; k < years.size(); ++k) {
      years[k].kinship.without_self = kinships[k];
      years[k].parent_age = 4.0;
    }
  }
}

TEST(ScenarioSentences, SayThatAnEffectiveSizeLeavesOutWhatIsGainedAtOnce) {
  Forecast forecast = forecast_with({0.12, 0.12}, {0.08, 0.08});
  const std::string smaller = "its effective size is smaller than under the present practice all the same";
  set_course(forecast.scenarios[0], {0.10, 0.11, 0.12});
  set_course(forecast.scenarios[1], {0.05, 0.065, 0.08});
  EXPECT_TRUE(is_said(said_of(forecast), smaller));
  EXPECT_TRUE(is_said(said_of(forecast, ToolLanguage::dutch), "ga af op de verwantschap van 2023"));
  set_course(forecast.scenarios[1], {0.07, 0.075, 0.08});
  EXPECT_FALSE(is_said(said_of(forecast), "all the same"));
  forecast = forecast_with({0.08, 0.08}, {0.12, 0.12});
  set_course(forecast.scenarios[0], {0.05, 0.065, 0.08});
  set_course(forecast.scenarios[1], {0.10, 0.11, 0.12});
  EXPECT_TRUE(is_said(said_of(forecast), "its effective size is larger than under the present practice all the same"));
}

TEST(ScenarioSentences, SayWhatAPlanIs) {
  Forecast forecast = forecast_with({0.1, 0.2}, {0.09, 0.19});
  EXPECT_FALSE(is_said(said_of(forecast), "planned"));
  forecast.scenarios[1].rules.has_plan = true;
  EXPECT_TRUE(is_said(said_of(forecast), "this shows what is possible, not what breeders will do"));
  EXPECT_TRUE(is_said(said_of(forecast, ToolLanguage::dutch), "dit laat zien wat er kan"));
}

// Of twenty replicates from 0.5 to 10 % 5 in 100 are below 0.975 %; of nineteen nothing of the kind is said.
TEST(ScenarioSentences, TellBandsFromTwentyReplicatesOn) {
  std::vector<double> kinships;
  for (int k = 1; k <= 20; ++k) kinships.push_back(0.005 * k);
  const auto many = said_of(forecast_with(kinships, kinships));
  EXPECT_TRUE(is_said(many, "(0.98 to 9.53 % in 90 of 100 replicates)")) << many.front();
  EXPECT_TRUE(is_said(many, "the same as under the present practice in 90 of 100 replicates"));
  kinships.pop_back();
  const Forecast of_few = forecast_with(kinships, kinships);
  const auto few = said_of(of_few);
  EXPECT_FALSE(is_said(few, "90 of 100")) << few.front();
  EXPECT_TRUE(is_said(few, "(replicates: 19; from the least, 0.50 %, to the most, 9.50 %)")) << few.front();
  EXPECT_TRUE(is_said(few, "in every replicate"));
  EXPECT_FALSE(is_said(said_of(of_few, ToolLanguage::dutch), "90 van de 100"));
}

TEST(ReplicatesSentence, NamesNumberAndSeed) {
  Forecast forecast = forecast_with(std::vector<double>(20, 0.1), std::vector<double>(20, 0.1));
  forecast.seed = 7;
  EXPECT_EQ(replicates_sentence(forecast, ToolLanguage::english),
            "replicates: 20, seed of their random numbers: 7; ranges are those of 90 in 100 replicates");
  forecast.scenarios[0].replicates.resize(19);
  EXPECT_TRUE(
      replicates_sentence(forecast, ToolLanguage::english)
          .starts_with("replicates: 19, seed of their random numbers: 7; ranges go from the least to the most"));
  EXPECT_TRUE(replicates_sentence(forecast, ToolLanguage::dutch).starts_with("herhalingen: 19, begingetal"));
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

TEST(OutsideParentsSentence, SpeaksFromAHundredthOnOfEitherSex) {
  FamilyPractice families;
  families.outside_sires = 0.0094;
  families.outside_dams = 0.003;
  EXPECT_FALSE(outside_parents_sentence(families, ToolLanguage::english).has_value());
  families.outside_dams = 0.0106;
  const auto said = outside_parents_sentence(families, ToolLanguage::english);
  ASSERT_TRUE(said.has_value());
  EXPECT_TRUE(said->starts_with("0.9 % of the sires and 1.1 % of the dams that come into use have no known parent"))
      << *said;
  families.outside_dams = 0.0;
  families.outside_sires = 0.011;
  EXPECT_TRUE(
      outside_parents_sentence(families, ToolLanguage::dutch)
          .value_or("")
          .starts_with("1,1 % van de vaders en 0,0 % van de moeders die in gebruik komen heeft geen bekende ouder"));
}

TEST(YoungHerdbookSentence, EndsWithTwentyBirthYears) {
  FamilyPractice families;
  families.birth_years = 19;
  const auto said = young_herdbook_sentence(families, ToolLanguage::english);
  ASSERT_TRUE(said.has_value());
  EXPECT_TRUE(is_said({*said}, "behind this forecast: 19, of 20 at least that it needs")) << *said;
  EXPECT_TRUE(is_said({*said}, "too short to know how numbers and the use of sires change"));
  EXPECT_EQ(warning_sentences(families, ToolLanguage::dutch).size(), 1U);
  families.birth_years = 20;
  EXPECT_FALSE(young_herdbook_sentence(families, ToolLanguage::english).has_value());
  EXPECT_TRUE(warning_sentences(families, ToolLanguage::dutch).empty());
}

}  // namespace
}  // namespace pedigreewatch::test
