#include "planning/plan_words.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

Plan plan_with_gain() {
  Plan plan;
  plan.last_year = 2024;
  plan.loss_per_year = 0.002;
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

}  // namespace
}  // namespace pedigreewatch::test
