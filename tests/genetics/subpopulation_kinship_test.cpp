#include "genetics/subpopulation_kinship.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "genetics/inbreeding.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"
#include "support/reference_kinship.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Cells = std::vector<float>;

Subpopulations subpopulations_of(std::initializer_list<std::string_view> names) {
  return names_of<Subpopulations>(names);
}

/// F of all animals, then the rows of all years: the one place where these tests fill the table. The store knows the
/// subpopulations already.
YearTable<float> kinship_of(PopulationStore& store, const Subpopulations& subpopulations) {
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  TextOutput ignored;
  compute_inbreeding(store, ancestors, ignored);
  YearTable<float> table(store.birth_years.row_count(), kinship_column_count(subpopulations.count()));
  RelationshipWork work = make_relationship_work(store, ancestors);
  const YearGroups years = group_by_year(store);
  for (Row row = 1; row <= table.row_count(); ++row) {
    CohortSubpopulations split = split_cohort(store, subpopulations, years.of_row(row));
    const RelationshipSums sums = sum_relationships(work, split.animals);
    fill_kinship_row(subpopulations, std::move(split), sums, row, table);
  }
  return table;
}

YearTable<float> kinship_of(std::string_view numbered, const Subpopulations& subpopulations) {
  PopulationStore store = numbered_store(numbered, {.subpopulations = subpopulations});
  return kinship_of(store, subpopulations);
}

TEST(KinshipColumnCount, TwoForEachSubpopulationAndOneForEachPair) {
  EXPECT_EQ(kinship_column_count(0), 0);
  EXPECT_EQ(kinship_column_count(1), 2);
  EXPECT_EQ(kinship_column_count(2), 5);
  EXPECT_EQ(kinship_column_count(3), 9);
  EXPECT_EQ(kinship_column_count(20), 230);
}

TEST(KinshipColumns, PairsStandBehindTheColumnsOfAllSubpopulations) {
  EXPECT_EQ(inbreeding_column(1), 1);
  EXPECT_EQ(kinship_column(1), 2);
  EXPECT_EQ(inbreeding_column(3), 5);
  EXPECT_EQ(kinship_column(3), 6);
  EXPECT_EQ(first_pair_column(3), 7);
}

TEST(SubpopulationKinship, BetweenValuesAreRelationshipsAndWithinValuesKinships) {
  // Four full sibs, two in each subpopulation: 1/4 within, 1/2 between.
  const YearTable<float> table =
      kinship_of("2000 m\n2000\n2001 s=1 d=2 sub=a\n2001 s=1 d=2 sub=a\n2001 s=1 d=2 sub=b\n2001 s=1 d=2 sub=b\n",
                 subpopulations_of({"a", "b"}));
  EXPECT_EQ(row_of(table, 2), (Cells{0, 0.25F, 0, 0.25F, 0.5F}));
  EXPECT_EQ(row_of(table, 1), Cells(5, 0.0F));
}

// 1 and 2 are founders, all others their children: a = 1/2 between any two.
constexpr auto first_has_one_member =
    "2000 m\n2000\n2001 s=1 d=2 sub=a\n2001 s=1 d=2 sub=b\n2001 s=1 d=2 sub=b\n2001 s=1 d=2 sub=c\n"
    "2001 s=1 d=2 sub=c\n";

TEST(SubpopulationKinship, ASubpopulationWithOneMemberMovesThePairsForward) {
  // The pair (b, c) stands in the column of (a, b); those of (a, c) and (b, c) stay 0.
  const YearTable<float> table = kinship_of(first_has_one_member, subpopulations_of({"a", "b", "c"}));
  EXPECT_EQ(row_of(table, 2), (Cells{0, 0, 0, 0.25F, 0, 0.25F, 0.5F, 0, 0}));
}

TEST(SubpopulationKinship, ASecondSubpopulationWithOneMemberStillCountsInThePairsOfTheFirst) {
  // a has two, b one, c two: pairs (a, b) and (a, c) in their columns, (b, c) is not computed.
  const YearTable<float> table = kinship_of(first_has_one_member, subpopulations_of({"b", "a", "c"}));
  EXPECT_EQ(row_of(table, 2), (Cells{0, 0.25F, 0, 0, 0, 0.25F, 0.5F, 0.5F, 0}));
}

TEST(SubpopulationKinship, AnAbsentPartnerLeavesItsColumnZeroAndStillMovesOn) {
  // Nobody of x: (b, x) stays 0, (b, c) stands in its own column.
  const YearTable<float> table = kinship_of(first_has_one_member, subpopulations_of({"b", "x", "c"}));
  EXPECT_EQ(row_of(table, 2), (Cells{0, 0.25F, 0, 0, 0, 0.25F, 0, 0.5F, 0}));
}

TEST(SubpopulationKinship, TheLastSubpopulationWithOneMemberShowsNothingOfItsOwn) {
  const YearTable<float> table = kinship_of(first_has_one_member, subpopulations_of({"b", "c", "a"}));
  EXPECT_EQ(row_of(table, 2), (Cells{0, 0.25F, 0, 0.25F, 0, 0, 0.5F, 0.5F, 0.5F}));
}

TEST(SubpopulationKinship, ASingleInbredMemberShowsNoF) {
  const YearTable<float> table = kinship_of(
      "2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n2002 s=3 d=4 sub=a\n2002 s=3 d=4 sub=b\n2002 s=3 d=4 sub=b\n",
      subpopulations_of({"a", "b"}));
  // Full sibs from full sibs: a = (1 + 1 + 1/2 + 1/2) / 4 between them, so that f is 3/8.
  EXPECT_EQ(row_of(table, 3), (Cells{0, 0, 0.25F, 0.375F, 0}));
}

TEST(SubpopulationKinship, DuplicateNamesAreFilledAlike) {
  // The pair of the two is a plain mean of all four entries, the diagonal included: (1 + 1 + 1/2 + 1/2) / 4.
  const YearTable<float> table =
      kinship_of("2000 m\n2000\n2001 s=1 d=2 sub=a\n2001 s=1 d=2 sub=a\n", subpopulations_of({"a", "a"}));
  EXPECT_EQ(row_of(table, 2), (Cells{0, 0.25F, 0, 0.25F, 0.75F}));
}

TEST(SubpopulationKinship, ABlankNameGathersTheAnimalsWithoutSubpopulation) {
  const YearTable<float> table = kinship_of("2000 m\n2000\n2001 s=1 d=2\n2001 s=1 d=2\n2001 s=1 d=2 sub=other\n",
                                            subpopulations_of({"", "nobody"}));
  EXPECT_EQ(row_of(table, 2), (Cells{0, 0.25F, 0, 0, 0}));
}

// ---------------------------------------------------------------------------------------------------------------
// The plain way: a full matrix of relationships for each cohort.

Cells plain_row(const PlainCohort& cohort, const std::vector<SubpopulationName>& names) {
  const std::size_t s = names.size();
  Cells cells(2 * s + s * (s - 1) / 2, 0.0F);
  std::vector<PlainGroup> members;
  for (const SubpopulationName& name : names) {
    members.push_back(group_where(cohort, [&](const AnimalRecord& animal) { return animal.subpopulation == name; }));
  }
  const auto fill_own = [&](std::size_t k, TakenFirst first) {  // k counted from 1
    cells[2 * k - 2] = plain_inbreeding_mean(cohort, members[k - 1]);
    cells[2 * k - 1] = plain_kinship_without_self(cohort, members[k - 1], first);
  };
  std::size_t q = 1;
  for (std::size_t k = 1; k + 1 <= s; ++k) {
    if (members[k - 1].size() <= 1) continue;
    fill_own(k, TakenFirst::inbreeding);
    for (std::size_t l = k + 1; l <= s; ++l, ++q) {
      if (members[l - 1].empty()) continue;
      cells[2 * s + q - 1] = plain_sum_between(cohort, members[k - 1], members[l - 1]) /
                             static_cast<float>(members[l - 1].size() * members[k - 1].size());
    }
  }
  if (members[s - 1].size() > 1) fill_own(s, TakenFirst::count);
  return cells;
}

/// The store knows the subpopulations of these names already.
void expect_like_plain_way(PopulationStore store, const std::vector<SubpopulationName>& names) {
  const YearTable<float> table = kinship_of(store, Subpopulations(names));
  for (std::int32_t row = 1; row <= store.birth_years.count; ++row) {
    const std::int32_t year = store.birth_years.year_of(row);
    const PlainCohort cohort = plain_cohort(store, year);
    ASSERT_FALSE(cohort.animals.empty());
    expect_close(row_of(table, row), plain_row(cohort, names), year);
  }
}

/// The store with one of `names` given to every animal or, sometimes, none; low numbers more often, so that others
/// have few members.
PopulationStore scattered(const PopulationStore& store, const std::vector<SubpopulationName>& names,
                          std::uint64_t seed) {
  std::vector<AnimalRecord> animals = records_of(store);
  RandomNumbers random{seed};
  const std::int32_t count = static_cast<std::int32_t>(names.size());
  for (AnimalRecord& animal : animals) {
    const std::int32_t drawn = std::min(random.below(count + 1), random.below(count + 1));
    animal.subpopulation = drawn == count ? SubpopulationName("elsewhere") : names[static_cast<std::size_t>(drawn)];
  }
  return finished_store_of(animals, {.subpopulations = Subpopulations(names)});
}

TEST(SubpopulationKinshipAgainstMatrix, TwoToFourSubpopulations) {
  std::vector<SubpopulationName> all;
  for (const char* name : {"type0", "type1", "type2", "nobody"}) all.emplace_back(name);
  for (std::uint64_t seed = 1; seed <= 4; ++seed) {
    SCOPED_TRACE(seed);
    for (std::size_t count = 2; count <= 4; ++count) {
      const std::vector<SubpopulationName> names(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count));
      expect_like_plain_way(random_pedigree(seed, 400, 8, {.subpopulations = Subpopulations(names)}), names);
    }
  }
}

TEST(SubpopulationKinshipAgainstMatrix, TwentySubpopulationsInSeveralPasses) {
  std::vector<SubpopulationName> names;
  for (int k = 1; k <= 20; ++k) names.emplace_back("herd " + std::to_string(k));
  for (std::uint64_t seed = 11; seed <= 13; ++seed) {
    SCOPED_TRACE(seed);
    expect_like_plain_way(scattered(random_pedigree(seed, 600, 6), names, seed), names);
  }
}

TEST(SubpopulationKinshipAgainstMatrix, ManySubpopulationsOfOneOrNoMember) {
  std::vector<SubpopulationName> names;
  for (int k = 1; k <= 20; ++k) names.emplace_back("herd " + std::to_string(k));
  for (std::uint64_t seed = 21; seed <= 24; ++seed) {
    SCOPED_TRACE(seed);
    expect_like_plain_way(scattered(random_pedigree(seed, 300, 12), names, seed), names);  // some 25 animals in a year
  }
}

TEST(SubpopulationKinshipAgainstMatrix, SixteenAndSeventeenSubpopulations) {
  // One full pass, and one name more.
  for (const int count : {8, 15, 16, 17, 24, 25}) {
    SCOPED_TRACE(count);
    std::vector<SubpopulationName> names;
    for (int k = 1; k <= count; ++k) names.emplace_back("herd " + std::to_string(k));
    expect_like_plain_way(scattered(random_pedigree(30 + static_cast<std::uint64_t>(count), 400, 4), names, 7), names);
  }
}

TEST(SubpopulationKinshipAgainstMatrix, DuplicateAndBlankNamesAmongMany) {
  std::vector<SubpopulationName> names;
  for (int k = 1; k <= 20; ++k) names.emplace_back("herd " + std::to_string(k % 13));
  names[4] = SubpopulationName("");
  names[19] = names[2];
  for (std::uint64_t seed = 41; seed <= 42; ++seed) {
    SCOPED_TRACE(seed);
    expect_like_plain_way(scattered(random_pedigree(seed, 500, 7), names, seed), names);
  }
}

TEST(SubpopulationKinshipAgainstMatrix, ParentsInTheSameYearAsTheirOffspring) {
  for (std::uint64_t seed = 51; seed <= 52; ++seed) {
    SCOPED_TRACE(seed);
    const std::vector<SubpopulationName> names = {SubpopulationName("type2"), SubpopulationName("type0")};
    expect_like_plain_way(random_pedigree(seed, 250, 1, {.subpopulations = Subpopulations(names)}), names);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
