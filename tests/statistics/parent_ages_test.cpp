#include "statistics/parent_ages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "support/numbered_store.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Lines = std::vector<std::string>;
using Positions = std::vector<std::int32_t>;

/// A store with its ages; the one place where these tests determine them.
struct Aged {
  PopulationStore store;
  OldestParents oldest;
  Lines console;
};

Aged aged(PopulationStore store, bool english = true) {
  TextOutput console = output_in(english);
  const OldestParents oldest = determine_parent_ages(store, console);
  return {std::move(store), oldest, lines_of(console)};
}

Aged aged(std::string_view numbered) {
  return aged(numbered_store(numbered));
}

/// Ages of father 1 and mother 2 at the birth of animal 3.
std::pair<std::int32_t, std::int32_t> ages_at(const std::string& father, const std::string& mother,
                                              const std::string& child) {
  const Aged run = aged(father + " m\n" + mother + "\n" + child + " s=1 d=2\n");
  return {run.store.at(3).sire_age_days, run.store.at(3).dam_age_days};
}

using Ages = std::pair<std::int32_t, std::int32_t>;

TEST(ParentAges, BornOnTheFirstOfMarchFatherOnTheLastOfFebruaryTheYearBefore) {
  // 365 + (59 + 1) - (31 + 28).
  EXPECT_EQ(ages_at("2000-2-28", "2000-1-1", "2001-3-1"), (Ages{366, 424}));
}

TEST(ParentAges, LeapYearsHaveNoExtraDay) {
  EXPECT_EQ(ages_at("1996-1-1", "1996-12-31", "2000-1-1"), (Ages{1460, 1096}));
  // The 29th of February counts like the 1st of March.
  EXPECT_EQ(ages_at("2000-2-29", "2000-3-1", "2001-2-28"), (Ages{364, 364}));
  EXPECT_EQ(ages_at("2000-2-28", "2000-2-28", "2000-2-29"), (Ages{1, 1}));
}

TEST(ParentAges, EachMonthBeginsAfterTheDaysOfThoseBefore) {
  const std::int32_t days_before[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  for (int month = 1; month <= 12; ++month) {
    EXPECT_EQ(ages_at("1999-1-1", "1999-1-1", "1999-" + std::to_string(month) + "-1").first, days_before[month - 1]);
  }
}

TEST(ParentAges, AParentBornAfterItsOffspringGetsANegativeAge) {
  EXPECT_EQ(ages_at("2001-1-1", "2000-1-3", "2000-1-1"), (Ages{-365, -2}));
}

TEST(ParentAges, AParentBornOneDayLaterLooksLikeAnUnknownAge) {
  EXPECT_EQ(ages_at("2000-1-2", "2000-1-1", "2000-1-1"), (Ages{-1, 0}));
}

TEST(ParentAges, UnknownBirthYearOfTheAnimalLeavesBothUnknown) {
  const Aged run = aged("2000 m\n2000\ns=1 d=2\n");
  EXPECT_EQ(run.store.at(3).sire_age_days, -1);
  EXPECT_EQ(run.store.at(3).dam_age_days, -1);
}

TEST(ParentAges, ABirthYearBeforeZeroCountsAsUnknownForTheAnimalNotForTheParent) {
  const Aged run = aged("-2 m\n-1 s=1\n2 s=1\n");
  EXPECT_EQ(run.store.at(2).sire_age_days, -1);
  EXPECT_EQ(run.store.at(3).sire_age_days, 4 * 365);
}

TEST(ParentAges, AParentWithoutBirthYearOrNoParentAtAllLeavesTheAgeUnknown) {
  const Aged run = aged("m\n2000\n2002 s=1 d=2\n2002\n");
  EXPECT_EQ(run.store.at(3).sire_age_days, -1);
  EXPECT_EQ(run.store.at(3).dam_age_days, 730);
  EXPECT_EQ(run.store.at(4).sire_age_days, -1);
  EXPECT_EQ(run.store.at(4).dam_age_days, -1);
}

TEST(OldestParents, AreTruncatedToWholeYears) {
  // Fathers of 729 and 400 days, a mother of exactly 1095.
  const Aged run = aged("2000-1-2 m\n1999-1-1\n2002-1-1 s=1 d=2\n2001-2-6 s=1\n");
  EXPECT_EQ(run.store.at(3).sire_age_days, 729);
  EXPECT_EQ(run.oldest.of(male), 1);
  EXPECT_EQ(run.oldest.of(female), 3);
  EXPECT_EQ(run.console, Lines{" oldest parents;            1           3"});
}

TEST(OldestParents, DutchLine) {
  EXPECT_EQ(aged(numbered_store("2000 m\n2002 s=1\n"), false).console,
            Lines{" oudste ouders;            2           0"});
}

TEST(OldestParents, WithoutAnyKnownAgeBothAreZero) {
  EXPECT_EQ(aged("2000 m\n2000\n").console, Lines{" oldest parents;            0           0"});
}

TEST(OldestParents, AnEmptyStoreShowsTheSmallestIntegerDividedByTheDaysOfAYear) {
  EXPECT_EQ(aged("").console, Lines{" oldest parents;     -5883516    -5883516"});
}

TEST(OldestParents, OfSomeAnimalsOnly) {
  // 3: father 2 years; 4: father 5 years; 5: father younger by 400 days, 6: by 800 days: truncated towards zero.
  PopulationStore store = numbered_store("2000 m\n2000\n2002\n2005\n2000\n2000\n");
  const std::int32_t sire_ages[] = {-1, -1, 730, 1825, -400, -800};
  for (std::int32_t position = 1; position <= 6; ++position) {
    store.sire_age_days[position] = sire_ages[position - 1];
    store.dam_age_days[position] = -1;
  }
  EXPECT_EQ(find_oldest_parents(store, Positions{3, 5}).of(male), 2);
  EXPECT_EQ(find_oldest_parents(store, all_positions(store)).of(male), 5);
  EXPECT_EQ(find_oldest_parents(store, Positions{5}).of(male), -1);
  EXPECT_EQ(find_oldest_parents(store, Positions{6}).of(male), -2);
  EXPECT_EQ(find_oldest_parents(store, Positions{6}).of(female), 0);
}

TEST(ParentAgesProgress, LinesAfterEachHundredAnimals) {
  PopulationStore store = store_of_parents(std::vector<ParentPair>(201));
  EXPECT_EQ(aged(store, true).console,
            (Lines{" animal no.          100 age parents determined", " animal no.          200 age parents determined",
                   " oldest parents;            0           0"}));
  EXPECT_EQ(aged(store, false).console[0], " dier nr.          100 leeftijd ouders bepaald");
}

TEST(ParentAgesProgress, NoLineBehindTheLastAnimal) {
  EXPECT_EQ(aged(store_of_parents(std::vector<ParentPair>(100))).console.size(), 1U);
  EXPECT_EQ(aged(store_of_parents(std::vector<ParentPair>(101))).console.size(), 2U);
}

TEST(ParentAgesProgress, IntervalGrowsWithThePopulation) {
  struct Case {
    std::size_t animals;
    std::int32_t interval;
    std::size_t lines;
  };
  for (const auto& [animals, interval, lines] :
       {Case{10000, 100, 99}, Case{10001, 200, 50}, Case{25000, 200, 124}, Case{25001, 500, 50}}) {
    const Lines console = aged(store_of_parents(std::vector<ParentPair>(animals))).console;
    ASSERT_EQ(console.size(), lines + 1) << animals;
    EXPECT_EQ(console[0], " animal no. " + number(interval) + " age parents determined");
  }
}

using Counts = std::vector<std::int32_t>;

/// Counts animals whose parents have these ages, in one year.
ParentAgeClasses classes_of(const Counts& sire_ages, const Counts& dam_ages, const OldestParents& oldest) {
  PopulationStore store = store_of_parents(std::vector<ParentPair>(sire_ages.size()));
  std::ranges::copy(sire_ages, store.sire_age_days.values.begin() + 1);
  std::ranges::copy(dam_ages, store.dam_age_days.values.begin() + 1);
  ParentAgeClasses classes = make_age_classes(store.birth_years, oldest);
  parent_age_statistics(store, all_positions(store), 1, classes);
  return classes;
}

TEST(ParentAgeStatistics, ClassesBeginOneDayAfterAWholeYear) {
  // 365 days and less are in no class; class 1 is 366 to 730, class 2 731 to 1095.
  const ParentAgeClasses classes =
      classes_of({365, 366, 730, 731, 1095, -1, 0, -400}, {1095, 1095, 731, 365, 364, -1, -1, 1}, {3, 3});
  EXPECT_EQ(row_of(classes.of(male), 1), (Counts{2, 2, 0}));
  EXPECT_EQ(row_of(classes.of(female), 1), (Counts{0, 3, 0}));
}

TEST(ParentAgeStatistics, TheOldestParentOfAWholeNumberOfYearsStandsOneClassLower) {
  const ParentAgeClasses classes = classes_of({1460, 1461}, {-1, -1}, {4, 0});
  EXPECT_EQ(row_of(classes.of(male), 1), (Counts{0, 0, 1, 1}));
  EXPECT_EQ(classes.of(female).column_count, 0);
}

TEST(ParentAgeStatistics, AnAgeAboveTheLastClassIsInNone) {
  EXPECT_EQ(row_of(classes_of({731, 400}, {-1, -1}, {1, 0}).of(male), 1), (Counts{1}));
}

TEST(MakeAgeClasses, HaveARowForEachYearAndAColumnForEachYearOfAge) {
  const ParentAgeClasses classes = make_age_classes({.first = 1998, .last = 2001, .count = 4}, {12, 9});
  EXPECT_EQ(classes.of(male).column_count, 12);
  EXPECT_EQ(classes.of(female).column_count, 9);
  EXPECT_EQ(classes.of(male).row_count(), 4);
  EXPECT_EQ(classes.of(female).row_count(), 4);
}

TEST(MakeAgeClasses, AgesNotAboveZeroGiveNoColumns) {
  // An empty store has the quotient of the smallest integer and 365.
  const ParentAgeClasses classes = make_age_classes({}, {-5883516, 0});
  EXPECT_EQ(classes.of(male).column_count, 0);
  EXPECT_EQ(classes.of(female).column_count, 0);
  EXPECT_EQ(classes.of(male).row_count(), 2);
}

}  // namespace
}  // namespace pedigreewatch::test
