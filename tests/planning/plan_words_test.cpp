#include "planning/plan_words.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

Plan plan_with_gain() {
  Plan plan;
  plan.last_year = 2024;
  plan.loss_per_year = YearlyLoss{0.002, 0.0001};
  plan.years_gained = 12.5;
  plan.comparisons[static_cast<std::size_t>(PlanWay::last_year)] = PlanComparison{};
  return plan;
}

TEST(GainSentence, SaysInOneBreathThatUnknownAncestorsLookLikeAGain) {
  PlanWarnings warnings;
  EXPECT_FALSE(has(gain_sentence(plan_with_gain(), warnings, ToolLanguage::english), "may be much smaller"));
  warnings.share_of_little_known = 0.49;
  EXPECT_TRUE(has(gain_sentence(plan_with_gain(), warnings, ToolLanguage::english),
                  "49.0 % of the plan are animals with hardly any known ancestors"));
  EXPECT_TRUE(has(gain_sentence(plan_with_gain(), warnings, ToolLanguage::dutch), "de echte winst kan veel kleiner"));
}

TEST(GainSentence, CountsNoYearsByALossThatIsNotClear) {
  Plan plan = plan_with_gain();
  EXPECT_TRUE(has(gain_sentence(plan, {}, ToolLanguage::english), "as the breed loses in 12.5 years"));
  plan.is_of_subpopulation = true;
  EXPECT_TRUE(has(gain_sentence(plan, {}, ToolLanguage::dutch), "als de subpopulatie in 12,5 jaar verliest"));
  plan.years_gained.reset();
  EXPECT_TRUE(has(gain_sentence(plan, {}, ToolLanguage::english), "has not risen clearly over the last ten years"));
}

TEST(ResultSentences, SayWhenWholeNumbersDoNotKeepTheBound) {
  Plan plan;
  plan.valued = ValueChoice{};
  plan.most_kinship = 0.05;
  plan.numbers.numbers = {1, 1};
  const auto says_so = [&](double kinship) {
    plan.numbers.mean_kinship = kinship;
    for (const std::string& line : result_sentences(plan, ToolLanguage::english)) {
      if (has(line, "do not keep the bound")) return true;
    }
    return false;
  };
  EXPECT_FALSE(says_so(0.05));
  EXPECT_TRUE(says_so(std::nextafter(0.05, 1.0)));
}

TEST(ResultSentences, CallLimitsByTheWordsOfTheDesk) {
  Plan plan;
  plan.valued = ValueChoice{};
  plan.most_kinship = 0.05;
  plan.numbers.numbers = {1, 1};
  plan.numbers.mean_kinship = 0.06;
  const std::string console = result_sentences(plan, ToolLanguage::english).back();
  EXPECT_TRUE(has(console, "give more --matings, a lower --most-per-male, or a higher --rate")) << console;
  const std::string desk = result_sentences(plan, ToolLanguage::dutch, false, PlanSpeaker::desk).back();
  EXPECT_TRUE(has(desk,
                  "geef meer paringen, een lagere \"paringen van een vader hoogstens\" of een hogere \"inteelt per "
                  "generatie hoogstens\""))
      << desk;
}

TEST(WarningSentences, AskForMoreMalesWhereThereAreNoOthers) {
  PlanWarnings warnings;
  warnings.three_males = 1.0;
  warnings.males_named = 3;
  const auto first = [&](ToolLanguage language) { return warning_sentences(warnings, {}, language).front(); };
  EXPECT_TRUE(has(first(ToolLanguage::english), "There are no other males to plan with: look for more."));
  EXPECT_TRUE(has(first(ToolLanguage::dutch), "Er zijn geen andere vaders om mee te plannen: zoek er meer."));
  warnings.has_other_males = true;
  EXPECT_TRUE(has(first(ToolLanguage::english), "the plan rests on them. Give a lower --most-per-male."));
}

// Ten matings: one is a share of 1/20.
TEST(ReasonOf, TellsRelativesLowValuesAndWholeNumbersApart) {
  Plan plan;
  plan.sex = {male, male, male, male, male};
  plan.is_fixed_at_none = {0, 0, 0, 0, 1};
  plan.least.shares = {0.0, 0.03, 0.05, 0.06, 0.0};
  plan.numbers.numbers = {0, 0, 0, 1, 0};
  const auto reason = [&](std::size_t place) { return reason_of(plan, place, 10); };
  EXPECT_EQ(reason(0), WhyNone::related);
  EXPECT_EQ(reason(1), WhyNone::small_share);
  EXPECT_EQ(reason(2), WhyNone::left_by_whole);
  EXPECT_EQ(reason(3), WhyNone::used);
  EXPECT_EQ(reason(4), WhyNone::fixed_at_none);
  plan.valued = ValueChoice{};
  plan.valued->contributions.shares = {0.0, 0.0, 0.1, 0.1, 0.0};
  EXPECT_EQ(reason(0), WhyNone::related);  // kinship alone leaves it out too
  EXPECT_EQ(reason(1), WhyNone::low_value);
  EXPECT_EQ(words_of_reason(WhyNone::low_value, ToolLanguage::english), "low breeding value");
  EXPECT_EQ(words_of_reason(WhyNone::low_value, ToolLanguage::dutch), "lage fokwaarde");
  EXPECT_EQ(words_of_reason(WhyNone::left_by_whole, ToolLanguage::english), "left out by whole numbers");
  EXPECT_EQ(words_of_reason(WhyNone::left_by_whole, ToolLanguage::dutch), "valt weg bij hele aantallen");
}

}  // namespace
}  // namespace pedigreewatch::test
