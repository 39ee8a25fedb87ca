#include "page/standing_words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "page/page_frame.h"
#include "support/analysed_population.h"
#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

constexpr ToolLanguage english = ToolLanguage::english, dutch = ToolLanguage::dutch;

TEST(StandingWords, PercentagesHaveTwoFiguresAndTheSignOfTheLanguage) {
  EXPECT_EQ(percent_text(0.0125, english), "1.2\xC2\xA0%");
  EXPECT_EQ(percent_text(0.0125, dutch), "1,2\xC2\xA0%");
  EXPECT_EQ(percent_text(0.00994, english), "0.99\xC2\xA0%");
  EXPECT_EQ(percent_text(0.00996, english), "1.0\xC2\xA0%");
  EXPECT_EQ(percent_text(0.0994, english), "9.9\xC2\xA0%");
  EXPECT_EQ(percent_text(0.0996, english), "10\xC2\xA0%");
  EXPECT_EQ(percent_text(0.0, english), "0\xC2\xA0%");
}

TEST(StandingWords, LimitsStandAsTheyWereGiven) {
  EXPECT_EQ(limit_text(0.05, english), "5\xC2\xA0%");
  EXPECT_EQ(limit_text(0.0625, english), "6.25\xC2\xA0%");
  EXPECT_EQ(limit_text(0.0625, dutch), "6,25\xC2\xA0%");
  EXPECT_EQ(limit_text(0.1, english), "10\xC2\xA0%");
}

TEST(StandingWords, SharesAreOfAHundredWhenThereAreSoMany) {
  EXPECT_EQ(share_text(27, 100, english), "27 of 100");
  EXPECT_EQ(share_text(27, 101, english), "27 of 100");
  EXPECT_EQ(share_text(27, 99, english), "27 of 99");
  EXPECT_EQ(share_text(1, 1000, dutch), "1 van de 100");   // not none
  EXPECT_EQ(share_text(999, 1000, english), "99 of 100");  // not all
  EXPECT_EQ(share_text(0, 1000, english), "0 of 100");
  EXPECT_EQ(share_text(1000, 1000, english), "100 of 100");
}

TEST(StandingWords, RatesHaveTheirMargin) {
  EXPECT_EQ(rate_text({0.02, 0.0, 3.0}, english), "2.0\xC2\xA0% (2.0 to 2.0\xC2\xA0%)");
  EXPECT_EQ(rate_text({}, english), "\xE2\x80\x93");
}

TEST(StandingWords, SizesAreWholeNumbers) {
  EXPECT_EQ(size_text(46.29, english), "46");
  EXPECT_EQ(size_text(99'999.0, english), "99999");
  EXPECT_EQ(size_text(100'000.0, english), "very large");
}

TEST(StandingWords, DepthIsJudgedAtThreeAndFive) {
  EXPECT_EQ(words_of_depth(2.99).english.substr(0, 18), "That is too little");
  EXPECT_EQ(words_of_depth(3.0).english.substr(0, 17), "That shows recent");
  EXPECT_EQ(words_of_depth(4.99).english.substr(0, 17), "That shows recent");
  EXPECT_EQ(words_of_depth(5.0).english.substr(0, 19), "That is deep enough");
}

TEST(StandingWords, GenerationsAreNeverMoreThanThereAre) {
  Standing standing;
  standing.data.equivalents = 2.99;
  EXPECT_EQ(equivalents_text(standing, english), "2.9");
  standing.data.equivalents = 3.0;
  EXPECT_EQ(equivalents_text(standing, dutch), "3,0");
}

TEST(StandingWords, EachPaceHasItsWords) {
  EXPECT_EQ(pace_words(Pace::too_fast, english), "Too fast");
  EXPECT_EQ(pace_words(Pace::on_the_edge, dutch), "Op de grens");
  EXPECT_EQ(pace_words(Pace::within_limit, english), "Within the usual limit");
  EXPECT_EQ(pace_words(Pace::cannot_be_judged, dutch), "Niet te beoordelen");
}

TEST(StandingWords, DataAreTrustedFromFiveGenerationsOn) {
  Standing standing;
  standing.obstacles = no_obstacle;
  standing.data.equivalents = 5.0;
  EXPECT_EQ(data_heading(standing, english), "Yes for the verdict.");
  standing.data.equivalents = 4.99;
  EXPECT_EQ(data_heading(standing, english).substr(0, 6), "Partly");
  standing.obstacles = obstacle_faults;
  EXPECT_EQ(data_heading(standing, english), "No, not for a verdict.");
}

// Of 1/(8 sires) + 1/(8 dams) six tenths make the main cause: 31/51 and 29/49 lie beside that.
TEST(StandingWords, ThreeFifthsOfTheRiseAreItsMainCause) {
  const AnalysedPopulation population = analysed(animals_by_year({1, 1, 1}));
  const PageInput input{population};
  const auto cause_of = [&](double sires, double dams) {
    Standing standing;
    standing.now[by_kinship].rate = 0.02;
    standing.sires.effective = sires;
    standing.dams.effective = dams;
    const std::vector<std::string> sentences = verdict_sentences(make_frame(input), standing);
    return sentences.empty() ? std::string() : sentences.back();
  };
  EXPECT_TRUE(has(cause_of(20, 31), "The cause is mainly the sires"));
  EXPECT_TRUE(has(cause_of(20, 29), "cause it alike"));
  EXPECT_TRUE(has(cause_of(29, 20), "cause it alike"));
  EXPECT_TRUE(has(cause_of(31, 20), "The cause is mainly the dams"));
}

}  // namespace
}  // namespace pedigreewatch::test
