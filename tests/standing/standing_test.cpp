// The whole of the first screen, on breeds of which the truth is known.

#include "standing/standing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/numbered_store.h"
#include "support/sanitizers.h"
#include "support/simulated_breed.h"

namespace pedigreewatch::test {
namespace {

constexpr int breeds_of_each_kind = cases(8, 2);

/// What was said of breeds of one kind.
struct Tally {
  int breeds = 0, judged = 0, wrong = 0, two_off = 0, real_changes = 0;
};

void judge_breeds(BreedScheme scheme, double unknown_parents, Tally& tally) {
  scheme.unknown_parents = unknown_parents;
  for (int breed = 0; breed < breeds_of_each_kind; ++breed) {
    scheme.years = 24 + 3 * (breed % 8);  // 8 to 15 generations
    const std::int32_t half_way = scheme.years / 2;
    if (scheme.has_rule) scheme.rule_year = half_way;
    StandingSettings settings;
    settings.rule_year = first_year_of_breeds + half_way;
    const std::uint64_t seed =
        static_cast<std::uint64_t>(breed) * 7919U + static_cast<std::uint64_t>(scheme.sires_a_year);
    const Standing standing = compute_standing(simulate_breed(scheme, seed), 3.0, settings);
    ++tally.breeds;
    ASSERT_TRUE(standing.rule.has_value());
    if (standing.rule->is_real) ++tally.real_changes;
    if (!standing.is_judged()) continue;
    ++tally.judged;
    const int truth = static_cast<int>(pace_of_size(effective_size_of(scheme)));
    const int said = static_cast<int>(standing.pace);
    if (said != truth) ++tally.wrong;
    if (std::abs(said - truth) > 1) ++tally.two_off;
  }
}

Tally judge_all_sizes(const BreedScheme& kind, std::initializer_list<double> unknown_parents) {
  Tally tally;
  for (BreedScheme scheme : breeds_of_known_size(kind)) {
    for (const double unknown : unknown_parents) judge_breeds(scheme, unknown, tally);
  }
  return tally;
}

void expect_true(const Tally& tally) {
  EXPECT_LE(tally.wrong * 20, tally.judged);  // at most 5 of 100
  EXPECT_EQ(tally.two_off, 0);
}

TEST(SimulatedBreeds, ClosedOnesAreJudgedRightly) {
  const Tally tally = judge_all_sizes({}, {0.0, 0.02, 0.05});
  EXPECT_EQ(tally.judged, tally.breeds);
  expect_true(tally);
  EXPECT_LE(tally.real_changes * 20, tally.breeds);
}

TEST(SimulatedBreeds, AFewUnknownParentsOrNoVerdict) {
  const Tally tally = judge_all_sizes({}, {0.1});
  EXPECT_GE(tally.judged * 3, tally.breeds);  // of use at all
  expect_true(tally);
  EXPECT_LE(tally.real_changes * 20, tally.breeds);
}

TEST(SimulatedBreeds, ManyUnknownParentsGiveNoVerdict) {
  EXPECT_EQ(judge_all_sizes({}, {0.3}).judged, 0);
}

TEST(SimulatedBreeds, ImportsAndPopularSiresDoNotMislead) {
  BreedScheme imports, popular;
  imports.imported = 0.02;
  popular.has_popular_sires = true;
  for (const BreedScheme& kind : {imports, popular}) {
    const Tally tally = judge_all_sizes(kind, {0.0, 0.05});
    EXPECT_EQ(tally.judged, tally.breeds);
    expect_true(tally);
    EXPECT_LE(tally.real_changes * 20, tally.breeds);
  }
}

TEST(SimulatedBreeds, FaultsOfAFewAnimalsDoNotMislead) {
  BreedScheme of_sires, of_years;
  of_sires.wrong_parents = most_faulty_share;
  of_years.wrong_years = most_faulty_share;
  for (const BreedScheme& kind : {of_sires, of_years}) {
    const Tally tally = judge_all_sizes(kind, {0.0});
    EXPECT_EQ(tally.judged, tally.breeds);
    expect_true(tally);
  }
}

TEST(SimulatedBreeds, ARuleThatHalvesTheRateIsSeen) {
  BreedScheme ruled;
  ruled.has_rule = true;
  const Tally tally = judge_all_sizes(ruled, {0.0, 0.05});
  EXPECT_EQ(tally.judged, tally.breeds);
  expect_true(tally);
  EXPECT_GE(tally.real_changes * 10, tally.breeds * 9);
}

TEST(Standing, YearsAreCountedFromTheLastOne) {
  const PopulationStore store = simulate_breed({}, 1);
  const Standing standing = compute_standing(store, 3.4, {});
  EXPECT_EQ(standing.years.last, 2015);
  EXPECT_EQ(standing.years.recent_first, 2011);
  EXPECT_EQ(standing.years.known_first, 2006);
  EXPECT_EQ(standing.years.cohort_first, 2013);  // 3 years
  EXPECT_EQ(standing.years.now_first, 2006);     // 10.2 years, rounded
  EXPECT_FALSE(standing.rule.has_value());
}

TEST(Standing, WithoutAnIntervalOrYearsNothingIsJudged) {
  const PopulationStore store = simulate_breed({}, 1);
  for (const double interval : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), 1001.0}) {
    EXPECT_EQ(compute_standing(store, interval, {}).pace, Pace::cannot_be_judged);
  }
  EXPECT_EQ(compute_standing(numbered_store("m\n.\n"), 3.0, {}).pace, Pace::cannot_be_judged);
}

TEST(Standing, FaultsOfTheDataForbidAVerdict) {
  const PopulationStore store = simulate_breed({}, 1);
  EXPECT_EQ(compute_standing(store, 3.0, {}).pace, Pace::too_fast);
  const std::int64_t few = store.animal_count / 50;  // 2 %
  EXPECT_EQ(compute_standing(store, 3.0, {}, {0, few}).pace, Pace::too_fast);
  EXPECT_EQ(compute_standing(store, 3.0, {}, {0, few + 1}).pace, Pace::cannot_be_judged);
  EXPECT_EQ(compute_standing(store, 3.0, {}, {0, 0, {1, {{"a", 2, "2050"}}}}).pace, Pace::cannot_be_judged);
  const Standing faulty = compute_standing(store, 3.0, {}, {1, 0});
  EXPECT_EQ(faulty.pace, Pace::cannot_be_judged);
  EXPECT_EQ(faulty.obstacles, obstacle_faults);
  EXPECT_EQ(faulty.sureness, 0);
}

// Seven young of one sire and one of another, in three litters; the sires are sons of one sire by two dams.
constexpr auto small_breed =
    "2000 m\n"
    "2000\n"
    "2000\n"
    "2003 m s=1 d=2\n"
    "2003 m s=1 d=3\n"
    "2003   s=1 d=3\n"
    "2003\n"
    "2006 s=4 d=6\n"
    "2006 s=4 d=6\n"
    "2006 s=4 d=6\n"
    "2006 s=4 d=6\n"
    "2006 s=4 d=7\n"
    "2006 s=4 d=7\n"
    "2006 s=4 d=7\n"
    "2006 s=5 d=6\n"
    "2006 s=5\n";

PopulationStore small_store() {
  PopulationStore store = numbered_store(small_breed);
  for (std::int32_t i = 8; i <= 16; ++i) store.generation_equivalents[i] = i == 8 ? 1.99F : 2.0F;
  const float f[] = {0.125F, 0.124F, 0.0625F, 0.0626F, 0.0F, -1e-7F, 0.0F, 0.25F, 0.0F};
  for (std::int32_t i = 8; i <= 16; ++i) store.inbreeding[i] = f[i - 8];
  return store;
}

TEST(Standing, TheYoungAreCountedOnBothSidesOfTheBounds) {
  const Standing standing = compute_standing(small_store(), 3.0, {});
  const YoungOfFiveYears& young = standing.young;
  EXPECT_EQ(young.births, 13);  // 2002 to 2006
  EXPECT_EQ(young.births_before, 3);
  EXPECT_EQ(young.judged, 11);
  EXPECT_EQ(young.close, 2);       // 0.125 is one, 0.124 is not
  EXPECT_EQ(young.above_most, 4);  // 0.0625 is not above
  EXPECT_EQ(young.shallow, 5);     // 1.99, and the four of 2003 that have 0
  EXPECT_EQ(young.known_parents, 23);
  EXPECT_NEAR(young.inbreeding, (0.125 + 0.124 + 0.0625 + 0.0626 + 0.25) / 11.0, 1e-7);
}

TEST(Standing, WithoutAnIntervalWhatNeedsNoneIsCounted) {
  const PopulationStore store = small_store();
  const Standing with = compute_standing(store, 3.0, {});
  StandingSettings settings;
  settings.rule_year = 2003;
  const Standing without = compute_standing(store, std::numeric_limits<double>::quiet_NaN(), settings);
  EXPECT_FALSE(without.years.has_interval());
  EXPECT_EQ(without.obstacles & obstacle_no_interval, obstacle_no_interval);
  EXPECT_EQ(without.obstacles & obstacle_few_animals, 0U);
  EXPECT_EQ(without.young.births, 13);
  EXPECT_EQ(without.young.judged, 11);
  EXPECT_EQ(without.sires.parents.size(), with.sires.parents.size());
  EXPECT_DOUBLE_EQ(without.sires.effective, with.sires.effective);
  EXPECT_DOUBLE_EQ(without.dams.share_of_four, with.dams.share_of_four);
  EXPECT_GT(without.data.both_known, 0.0);
  EXPECT_DOUBLE_EQ(without.data.both_known, with.data.both_known);
  EXPECT_DOUBLE_EQ(without.data.equivalents, with.data.equivalents);
  EXPECT_EQ(with.overused_sires, 3);
  EXPECT_EQ(without.overused_sires, 0) << "no limit is judged";
  EXPECT_FALSE(without.rate().rate.has_value());
  ASSERT_TRUE(without.rule.has_value());
  EXPECT_EQ(without.rule->year, 2003);
}

TEST(Standing, TellsWhichAgesThereAreForAnInterval) {
  // Of the four births with a sire two have his age, of the three with a dam none.
  const PopulationStore store = numbered_store(
      "2000 m\nm\n.\n"
      "2003 s=1 d=3\n2004 s=1 d=3\n2004 s=2 d=3\n. s=1\n");
  const double none = std::numeric_limits<double>::quiet_NaN();
  const AgesAtBirths ages = compute_standing(store, none, {}).ages;
  EXPECT_EQ(ages.parents.of(male), 4);
  EXPECT_EQ(ages.ages.of(male), 2);
  EXPECT_EQ(ages.parents.of(female), 3);
  EXPECT_EQ(ages.ages.of(female), 0);
  EXPECT_TRUE(ages.lack_dates());
  EXPECT_FALSE(ages.impossible_interval.has_value());
  EXPECT_FALSE(compute_standing(numbered_store("2000 m\n2003 s=1\n"), none, {}).ages.lack_dates()) << "no dam at all";
  EXPECT_EQ(compute_standing(store, -1.5, {}).ages.impossible_interval, -1.5);
  EXPECT_EQ(compute_standing(store, 1001.0, {}).ages.impossible_interval, 1001.0);
  EXPECT_FALSE(compute_standing(store, 3.0, {}).ages.impossible_interval.has_value());
}

TEST(Standing, AnFOfNoneTellsNothingWhereNoYoungHasTwoGenerations) {
  YoungOfFiveYears young;
  young.births = young.shallow = 10;
  EXPECT_FALSE(young.show_inbreeding());
  young.judged = 10;
  EXPECT_FALSE(young.show_inbreeding());
  young.inbreeding = 0.001;
  EXPECT_TRUE(young.show_inbreeding());
  young.inbreeding = 0.0;
  young.shallow = 9;
  EXPECT_TRUE(young.show_inbreeding());
}

TEST(Standing, WithoutBirthYearsThereIsNoLastYear) {
  const Standing standing = compute_standing(numbered_store("m\n.\n"), 0.0, {});
  EXPECT_EQ(standing.years.last, 0);
  EXPECT_EQ(standing.years.recent_first, -4);
}

TEST(Standing, UnknownParentsAreOfAnimalsThatHaveOne) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(compute_standing(numbered_store("2000 m\n2000\n"), none, {}).data.unknown_parents.has_value());
  EXPECT_EQ(compute_standing(numbered_store("2000 m\n2002 s=1\n"), none, {}).data.unknown_parents, 0.5);
}

// Nine years before the nine of now, 3 of each are a generation; the book begins so many years before these.
TEST(SimulatedBreeds, ABookThatBeginsLateDoesNotMakeAChange) {
  int breeds = 0, compared = 0, real_changes = 0;
  for (BreedScheme scheme : breeds_of_known_size({})) {
    scheme.years = 48;
    for (const std::int32_t before : {9, 7, 5, 3, 0}) {
      scheme.book_begins = scheme.years - 18 - 3 + before;
      for (int seed = 0; seed < breeds_of_each_kind; ++seed) {
        const Standing standing =
            compute_standing(simulate_breed(scheme, static_cast<std::uint64_t>(seed) + 77U), 3.0, {});
        ++breeds;
        compared += standing.before.rate.has_value() ? 1 : 0;
        real_changes += is_real_change(standing.before, standing.rate()) ? 1 : 0;
        EXPECT_NE(standing.before.rate.has_value(), standing.lacking_before.has_value());
      }
    }
  }
  EXPECT_LE(real_changes * 25, breeds);                // 4 of 100, as where the book is whole
  EXPECT_GE(compared, has_address_sanitizer ? 0 : 1);  // of few breeds none may be
  EXPECT_LT(compared, breeds);
}

TEST(Standing, SiresAboveTheBoardsLimitAreOverused) {
  StandingSettings settings;
  const std::int64_t all = 12;  // young with a known sire: 7, 3 and 2
  settings.most_sire_share = 3.0 / static_cast<double>(all);
  EXPECT_EQ(compute_standing(small_store(), 3.0, settings).overused_sires, 1);
  settings.most_sire_share = 2.9 / static_cast<double>(all);
  EXPECT_EQ(compute_standing(small_store(), 3.0, settings).overused_sires, 2);
  settings.most_sire_share = 0.6;
  EXPECT_EQ(compute_standing(small_store(), 3.0, settings).overused_sires, 0);
}

TEST(Standing, OnlySiresThatAreThereAreToBeUsedLess) {
  const PopulationStore store = small_store();
  StandingSettings settings;
  settings.most_sire_share = 2.9 / 12.0;  // two sires are above it: 4 with 7 of 12, 1 with 3
  const Standing all = compute_standing(store, 3.0, settings);
  ASSERT_EQ(all.sires_to_rest.size(), 2U);
  EXPECT_FALSE(all.is_availability_told);
  EXPECT_EQ(all.overused_sires_gone(), 0);
  AvailableAnimals available = {true, ByNumber<Flag>(store.size()), 1, 0};
  available.marks[1] = 1;
  const Standing told = compute_standing(store, 3.0, settings, {}, available);
  EXPECT_TRUE(told.is_availability_told);
  ASSERT_EQ(told.sires_to_rest.size(), 1U);
  EXPECT_EQ(told.sires_to_rest[0].parent, 1);
  EXPECT_EQ(told.overused_sires, 2);
  EXPECT_EQ(told.overused_sires_gone(), 1);
}

TEST(Standing, TheSiresPartOfTheRiseIsThatOfTheRuleOfThumb) {
  Standing standing;
  EXPECT_FALSE(standing.sires_part_of_rise().has_value());
  standing.sires.effective = 10.0;
  EXPECT_FALSE(standing.sires_part_of_rise().has_value());
  standing.dams.effective = 30.0;
  EXPECT_DOUBLE_EQ(*standing.sires_part_of_rise(), 0.75);  // 1/80 of 1/80 + 1/240
}

TEST(Standing, AnUnrelatedSireTakesHisPartOfTheChanceInbreeding) {
  Standing standing;
  standing.settings.most_sire_share = 0.1;
  standing.young.chance_inbreeding = 0.2;
  EXPECT_DOUBLE_EQ(standing.inbreeding_with_import(), 0.18);
  EXPECT_FALSE(standing.generations_gained_by_import().has_value());
  standing.now[by_kinship].rate = 0.0;
  EXPECT_FALSE(standing.generations_gained_by_import().has_value());
  standing.now[by_kinship].rate = 0.01;  // of what is left: 0.2 rises by 0.008
  EXPECT_NEAR(*standing.generations_gained_by_import(), 2.5, 1e-12);
}

TEST(Standing, ARuleOfTheFutureHasNoEffect) {
  StandingSettings settings;
  settings.rule_year = 2030;
  const Standing standing = compute_standing(simulate_breed({}, 1), 3.0, settings);
  ASSERT_TRUE(standing.rule.has_value());
  EXPECT_FALSE(standing.rule->since.rate.has_value());
  EXPECT_FALSE(standing.rule->is_real);
}

}  // namespace
}  // namespace pedigreewatch::test
