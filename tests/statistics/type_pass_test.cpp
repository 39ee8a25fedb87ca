#include "statistics/type_pass.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "genetics/kinship.h"
#include "pedigree/subpopulation_membership.h"
#include "statistics/breeder_list.h"
#include "statistics/completeness.h"
#include "statistics/parent_ages.h"
#include "support/numbered_store.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Lines = std::vector<std::string>;
using Reals = std::vector<float>;

/// Parents 1 to 4 are Polled, all offspring but the last Horned; every parent is two years old at the births. Horned
/// animal 6 is the father of Polled 8, after one year.
constexpr auto cattle =
    "2000 m sub=Polled\n2000 sub=Polled\n2001 m sub=Polled\n2001 sub=Polled\n"
    "2002 s=1 d=2 sub=Horned breeder=Bakker colour=red\n"
    "2002 s=1 d=2 m sub=Horned breeder=Jansen\n"
    "2003 s=3 d=4 sub=Horned breeder=Bakker colour=blue\n"
    "2003 s=6 sub=Polled breeder=Bakker\n";

SteerSettings cattle_settings(bool english = true) {
  SteerSettings settings;
  settings.english = english;
  for (const char* name : {"Polled", "Horned", "Highland"}) settings.subpopulation_names.emplace_back(name);
  settings.subpopulation_count = 3;
  for (const char* colour : {"red", "Onbekend", "niet erkend"}) settings.colour_names.emplace_back(colour);
  settings.colour_count = 3;
  return settings;
}

struct TypeRun {
  Lines console, report;

  /// The line of the report that stands so many lines below the first one equal to `heading`.
  std::string below(const std::string& heading, std::size_t lines) const {
    const auto place = std::find(report.begin(), report.end(), heading);
    const std::size_t index = static_cast<std::size_t>(place - report.begin()) + lines;
    return index < report.size() ? report[index] : "no such line";
  }
};

/// The one place where these tests call the pass: subpopulation s with F and f of each year in its two columns.
TypeRun run_type(PopulationStore store, const SteerSettings& settings, std::int32_t s, const Reals& F, const Reals& f,
                 const BreederList& breeders = no_breeders()) {
  TextOutput ignored;
  determine_parent_ages(store, ignored);
  determine_completeness(store);
  YearTable<float> kinship(store.birth_years.row_count(), kinship_column_count(settings.subpopulation_count));
  for (std::size_t i = 0; i < F.size(); ++i) {
    const std::int64_t row = static_cast<std::int64_t>(i) + 1;
    for (std::int64_t column = 1; column <= kinship.column_count; ++column) kinship.at(row, column) = 0.9F;
    kinship.at(row, 2 * std::int64_t{s} - 1) = F[i];
    kinship.at(row, 2 * std::int64_t{s}) = f[i];
  }
  const SubpopulationMembership membership = find_membership(store, settings.subpopulation_names);
  const auto members = animals_by_group(membership);
  RunStreams streams = streams_in(settings.english);
  run_type_pass(store, settings, breeders, s, members[static_cast<std::size_t>(s)], kinship, streams);
  return {lines_of(streams.console), lines_of(streams.report)};
}

TypeRun run_cattle(std::int32_t s, bool english = true) {
  return run_type(numbered_store(cattle), cattle_settings(english), s, Reals(4, 0.1F), Reals(4, 0.1F));
}

TEST(TypePassConsole, English) {
  // Years without animals of the type, 2000 and 2001, have their lines too.
  const std::string ages = " determined ages of parents, number of animals per colour type, etc.";
  EXPECT_EQ(run_cattle(2).console,
            (Lines{" monitor data per year for Horned              ", " maxages =            2           2",
                   " type Horned              year         2000", ages, " type Horned              year         2001",
                   ages, " type Horned              year         2002", ages,
                   " type Horned              year         2003", ages}));
}

TEST(TypePassConsole, Dutch) {
  const std::string ages = " leeftijden ouders, aantallen per kleur, topfokker etc. bepaald";
  EXPECT_EQ(run_cattle(1, false).console,
            (Lines{" monitor gegevens per jaar voor Polled              ", " maxages =            1           0",
                   " type Polled              jaar         2000", ages, " type Polled              jaar         2001",
                   ages, " type Polled              jaar         2002", ages,
                   " type Polled              jaar         2003", ages}));
}

TEST(TypePassConsole, ASubpopulationWithoutAnimals) {
  const TypeRun english = run_cattle(3), dutch = run_cattle(3, false);
  EXPECT_EQ(english.console, (Lines{" monitor data per year for Highland            ",
                                    " No animals present with breed code Highland            "}));
  EXPECT_EQ(dutch.console, (Lines{" monitor gegevens per jaar voor Highland            ",
                                  " Geen dieren aanwezig met rascode Highland            "}));
  EXPECT_TRUE(english.report.empty());
  EXPECT_TRUE(dutch.report.empty());
}

TEST(TypePassConsole, NamesMustBeExactlyEqual) {
  const TypeRun run = run_type(numbered_store("2000 sub=polled\n2000 sub=Polled_x\n2000 sub=_Polled\n"),
                               cattle_settings(), 1, {0.0F}, {0.0F});
  EXPECT_EQ(run.console.back(), " No animals present with breed code Polled              ");
}

TEST(TypePassConsole, OldestParentsMayBeYoungerThanAYear) {
  const TypeRun run =
      run_type(numbered_store("2000 m\n2000-12-1 s=1 sub=Polled\n"), cattle_settings(), 1, {0.0F}, {0.0F});
  EXPECT_EQ(run.console[1], " maxages =            0           0");
}

TEST(TypePassTrend, YearlyChangesOfFAndKinship) {
  // F: 0.1/0.9, 0.1/0.8, 0.1/0.7; f: -0.1/0.8, 0.2/0.9, -0.05/0.7.
  const TypeRun run =
      run_type(numbered_store(cattle), cattle_settings(), 2, {0.1F, 0.2F, 0.3F, 0.4F}, {0.2F, 0.1F, 0.3F, 0.25F});
  const std::string title = "            INBREEDING";
  EXPECT_EQ(run.below(title, 6), "    2000  0.1000  0.2000  0.0000  0.0000  0.0000  0.0000");
  EXPECT_EQ(run.below(title, 7), "    2001  0.2000  0.1000  0.1111 -0.1250  0.0000  0.0000");
  EXPECT_EQ(run.below(title, 8), "    2002  0.3000  0.3000  0.1250  0.2222  0.0000  0.0000");
  EXPECT_EQ(run.below(title, 9), "    2003  0.4000  0.2500  0.1429 -0.0714  0.0000  0.0000");
}

TEST(TypePassTrend, ChangesOnlyInYearsWithInbreeding) {
  // 2002 has F 0: neither change is formed, although f rises. 2003: (0.2 - 0) / 1 and (0.3 - 0.2) / 0.8.
  const TypeRun run =
      run_type(numbered_store(cattle), cattle_settings(), 2, {0.0F, 0.1F, 0.0F, 0.2F}, {0.1F, 0.1F, 0.2F, 0.3F});
  const std::string title = "            INBREEDING";
  EXPECT_EQ(run.below(title, 6), "    2000  0.0000  0.1000  0.0000  0.0000  0.0000  0.0000");
  EXPECT_EQ(run.below(title, 7), "    2001  0.1000  0.1000  0.1000  0.0000  0.0000  0.0000");
  EXPECT_EQ(run.below(title, 8), "    2002  0.0000  0.2000  0.0000  0.0000  0.0000  0.0000");
  EXPECT_EQ(run.below(title, 9), "    2003  0.2000  0.3000  0.2000  0.1250  0.0000  0.0000");
}

TEST(TypePassTrend, AYearWithoutMembersIsOnlyLookedBackAt) {
  // 2001 has no values at all; 2002 starts from 0 again.
  const TypeRun run =
      run_type(numbered_store(cattle), cattle_settings(), 2, {0.1F, 0.0F, 0.2F, 0.1F}, {0.2F, 0.0F, 0.3F, 0.1F});
  const std::string title = "            INBREEDING";
  EXPECT_EQ(run.below(title, 7), "    2001  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000");
  EXPECT_EQ(run.below(title, 8), "    2002  0.2000  0.3000  0.2000  0.3000  0.0000  0.0000");
  EXPECT_EQ(run.below(title, 9), "    2003  0.1000  0.1000 -0.1250 -0.2857  0.0000  0.0000");
}

TEST(TypePassRates, FirstAndLastYearAndPlainSlopes) {
  // Generation interval 2. F: 1 - (0.6 / 0.9)^(1/4) = 0.0963980; f: 1 - (0.75 / 0.8)^(1/4) = 0.0160052. Slopes on the
  // plain values with x mean 10 / 4 = 2: 0.5 / 6 and 0.175 / 6, with their sign.
  const TypeRun run =
      run_type(numbered_store(cattle), cattle_settings(), 2, {0.1F, 0.2F, 0.3F, 0.4F}, {0.2F, 0.1F, 0.3F, 0.25F});
  const std::string title = "            INBREEDING";
  EXPECT_EQ(run.below(title, 16), "deltaF absolute       9.64%     19.28%      2.59");
  EXPECT_EQ(run.below(title, 17), "deltaF smoothed       8.33%     16.67%      3.00");
  EXPECT_EQ(run.below(title, 18), "deltaf absolute       1.60%      3.20%     15.62");
  EXPECT_EQ(run.below(title, 19), "deltaf smoothed       2.92%      5.83%      8.57");
}

TEST(TypePassRates, AFallingSeriesIsNegative) {
  // 1 - (0.9 / 0.6)^(1/4) = -0.1066819; slope -0.5 / 6.
  const TypeRun run =
      run_type(numbered_store(cattle), cattle_settings(), 2, {0.4F, 0.3F, 0.2F, 0.1F}, {0.0F, 0.0F, 0.0F, 0.0F});
  const std::string title = "            INBREEDING";
  EXPECT_EQ(run.below(title, 16), "deltaF absolute     -10.67%    -21.34%     -2.34");
  EXPECT_EQ(run.below(title, 17), "deltaF smoothed      -8.33%    -16.67%     -3.00");
  EXPECT_EQ(run.below(title, 18), "deltaf absolute       0.00%      0.00%  Infinity");
  EXPECT_EQ(run.below(title, 19), "deltaf smoothed       0.00%      0.00%  Infinity");
}

BreederList slots_of(std::string text, std::int32_t breeder_count, std::int32_t top_breeder_count) {
  BreederList breeders;
  breeders.text = std::move(text);
  breeders.breeder_count = breeder_count;
  breeders.top_breeder_count = top_breeder_count;
  return breeders;
}

TEST(TypePassTables, TopBreedersAreSlotsOfSevenCharacters) {
  // Slots: blank, "Bakker ", "      D". As entries of 20 the first would be "       Bakker".
  PopulationStore store = numbered_store(cattle);
  store.has_breeder = true;
  const TypeRun run = run_type(store, cattle_settings(), 2, Reals(4, 0.1F), Reals(4, 0.1F),
                               slots_of("       Bakker       De Groot            Jansen              ", 3, 3));
  const std::string title = "      Main Breeders  ";
  EXPECT_EQ(run.below(title, 2), "       1         ");
  EXPECT_EQ(run.below(title, 3), "       2  Bakker ");
  EXPECT_EQ(run.below(title, 4), "       3        D");
  EXPECT_EQ(run.below(title, 11), "    2000       0       0       0       0       0       0       0       0");
  // 2002: 5 of Bakker, 6 of Jansen, who is a sire.
  EXPECT_EQ(run.below(title, 13), "    2002       0       0       1       0       0       0       1       1");
  EXPECT_EQ(run.below(title, 14), "    2003       0       0       1       0       0       0       0       0");
}

TEST(TypePassTables, ABlankSlotCountsTheMembersWithoutBreeder) {
  PopulationStore store = numbered_store(cattle);
  store.has_breeder = true;
  const TypeRun run = run_type(store, cattle_settings(), 1, Reals(4, 0.1F), Reals(4, 0.1F),
                               slots_of("       Bakker       De Groot            Jansen              ", 3, 1));
  // Polled 1 and 2 of 2000, both parents; 8 of 2003 is Bakker's.
  const std::string title = "      Main Breeders  ";
  EXPECT_EQ(run.below(title, 9), "    2000       2       2       0       0");
  EXPECT_EQ(run.below(title, 12), "    2003       0       0       1       0");
}

TEST(TypePassTables, ColoursOfTheMembersOnly) {
  PopulationStore store = numbered_store(cattle);
  store.has_colour = true;
  const TypeRun run = run_type(store, cattle_settings(), 2, Reals(4, 0.1F), Reals(4, 0.1F));
  const std::string title = "      COLOUR VARIETIES present in population";
  EXPECT_EQ(run.below(title, 8), "    2000       0       0       0");
  EXPECT_EQ(run.below(title, 10), "    2002       1       0       1");
  EXPECT_EQ(run.below(title, 11), "    2003       0       0       1");
}

TEST(TypePassTables, CompletenessAndAgesAreThoseOfTheWholePopulation) {
  // The parents of the Horned animals are Polled; they count all the same.
  const TypeRun run = run_cattle(2);
  const std::string completeness = "            PEDIGREE COMPLETENESS";
  EXPECT_EQ(run.below(completeness, 6), "    2000      0.00        0.00    0.00    0.00    0.00    0.00");
  EXPECT_EQ(run.below(completeness, 8), "    2002      1.00        1.00    0.00    0.00    0.00    0.00");
  const std::string intervals = "      GENERATION INTERVAL  mean age parents at birth ";
  EXPECT_EQ(run.below(intervals, 5), "    2000    0.00    0.00    0.00");
  EXPECT_EQ(run.below(intervals, 7), "    2002    2.00    2.00    2.00");
  EXPECT_EQ(run.below(intervals, 10), " total      2.00    2.00    2.00");
}

TEST(TypePassTables, AgeClassesHaveTheWidthOfTheMembersOldestParents) {
  // 730 days are class 1 of the two.
  const TypeRun run = run_cattle(2);
  const std::string title = "                 AGE fathers";
  EXPECT_EQ(run.below(title, 3), "  jaar         1       2");
  EXPECT_EQ(run.below(title, 7), "    2002       2       0");
  EXPECT_EQ(run.below(title, 8), "    2003       1       0");
}

TEST(TypePassTables, ImportPairsOfMembersWithParentsElsewhere) {
  PopulationStore store = numbered_store(cattle);
  store.at(1).is_import = logical_true;
  store.has_import = true;
  const TypeRun run = run_type(store, cattle_settings(), 2, Reals(4, 0.1F), Reals(4, 0.1F));
  const auto row =
      std::find(run.report.begin(), run.report.end(), "      2002         0         2         0         0");
  EXPECT_NE(row, run.report.end());
}

}  // namespace
}  // namespace pedigreewatch::test
