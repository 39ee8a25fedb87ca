#include "genetics/yearly_inbreeding.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "genetics/inbreeding.h"
#include "genetics/subpopulation_kinship.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"
#include "support/reference_kinship.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Cells = std::vector<float>;

/// The columns of one year: F, f with and without self, f of parents, fathers and mothers.
Cells cells_of(const YearRows<InbreedingRow>& rows, Row row) {
  const InbreedingRow means = rows.of(row);
  return {means.F, means.f_with_self, means.f_without_self, means.f_of_parents, means.f_of_fathers, means.f_of_mothers};
}

struct KinshipRun {
  YearRows<InbreedingRow> inbreeding;
  YearTable<float> kinship;
  std::vector<std::string> console;
};

/// F of all animals, then both tables: the one place where these tests call the pass. The store knows the
/// subpopulations already.
KinshipRun kinship_of(PopulationStore& store, const Subpopulations& subpopulations = {}, bool english = true) {
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  TextOutput ignored, console = output_in(english);
  compute_inbreeding(store, ancestors, ignored);
  YearlyInbreeding result = compute_kinship_by_year(store, ancestors, group_by_year(store), subpopulations, console);
  return {std::move(result.whole), std::move(result.by_subpopulation), lines_of(console)};
}

KinshipRun kinship_of(std::string_view numbered, const Subpopulations& subpopulations = {}) {
  PopulationStore store = numbered_store(numbered, {.subpopulations = subpopulations});
  return kinship_of(store, subpopulations);
}

// ---------------------------------------------------------------------------------------------------------------

TEST(KinshipByYear, TwoUnrelatedFounders) {
  const KinshipRun run = kinship_of("2000 m\n2000\n");
  EXPECT_EQ(cells_of(run.inbreeding, 1), (Cells{0, 0.25F, 0, 0, 0, 0}));
}

TEST(KinshipByYear, TwoFullSibsOfUnrelatedFounders) {
  const KinshipRun run = kinship_of("2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n");
  EXPECT_EQ(cells_of(run.inbreeding, 2), (Cells{0, 0.375F, 0.25F, 0, 0, 0}));
}

TEST(KinshipByYear, AYearWithOneAnimal) {
  const KinshipRun run = kinship_of("2000 m\n2001\n2001\n");
  EXPECT_EQ(cells_of(run.inbreeding, 1), (Cells{0, 0.5F, 0, 0, 0, 0}));
}

TEST(KinshipByYear, OneInbredAnimalAloneInItsYear) {
  // F = 1/4; its relationship with itself is 1.25, its kinship half of that.
  const KinshipRun run = kinship_of("2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n2002 s=3 d=4\n");
  EXPECT_EQ(cells_of(run.inbreeding, 3), (Cells{0.25F, 0.625F, 0, 0, 0, 0}));
}

TEST(KinshipByYear, AYearWithoutAnimalsIsZeroAndStillPrinted) {
  const KinshipRun run = kinship_of("2000 m\n2000\n2002 s=1 d=2\n");
  EXPECT_EQ(cells_of(run.inbreeding, 2), Cells(6, 0.0F));
  EXPECT_EQ(run.console, (std::vector<std::string>{" compute kinships for year        2000",
                                                   " compute kinships for year        2001",
                                                   " compute kinships for year        2002"}));
}

TEST(KinshipByYear, DutchConsoleLine) {
  PopulationStore store = numbered_store("1998 m\n");
  EXPECT_EQ(kinship_of(store, {}, false).console,
            std::vector<std::string>{" bereken verwantschappen voor jaar         1998"});
}

TEST(KinshipByYear, ParentAndOffspringBornInOneYear) {
  // 3 is the child of 1 and 2; 1 and 3 are born in one year: a = 1/2 between them.
  const KinshipRun run = kinship_of("2001 m\n2000\n2001 s=1 d=2\n");
  EXPECT_EQ(cells_of(run.inbreeding, 2), (Cells{0, 0.375F, 0.25F, 0, 0, 0}));
}

TEST(KinshipByYear, GrandparentParentAndInbredChildInOneYear) {
  // 1 and 2 founders, 3 their child, 4 from 1 and 3: F = 1/4. a(4,1) = 3/4, a(4,2) = 1/4, a(4,3) = (1/2 + 1) / 2.
  // All entries: diagonal 1 + 1 + 1 + 1.25; twice 0 + 1/2 + 1/2 + 3/4 + 1/4 + 3/4 = 5.5. Sum 9.75.
  const KinshipRun run = kinship_of("2000 m\n2000\n2000 s=1 d=2\n2000 s=1 d=3\n");
  const Cells row = cells_of(run.inbreeding, 1);
  EXPECT_EQ(row[0], 0.0625F);
  EXPECT_EQ(row[1], 9.75F / 16.0F / 2.0F);
  EXPECT_EQ(row[2], 5.5F / 12.0F / 2.0F);
  // Parents 1, 2, 3: twice 0 + 1/2 + 1/2 over 6 pairs; one father; mothers 2 and 3: a = 1/2. Kinships are
  // half of all these.
  EXPECT_EQ(row[3], 1.0F / 6.0F);
  EXPECT_EQ(row[4], 0.0F);
  EXPECT_EQ(row[5], 0.25F);
}

TEST(KinshipByYear, FathersAndMothersOfACohort) {
  // Born in 2001: 3, 4 (full sibs, male), 5, 6 (full sibs of them, female), all parents, and 7, a stranger without
  // offspring. Among the four a is 1/2 everywhere.
  const KinshipRun run = kinship_of(
      "2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2 m\n2001 s=1 d=2\n2001 s=1 d=2\n2001\n2002 s=3 d=5\n2002 s=4 d=6\n");
  const Cells row = cells_of(run.inbreeding, 2);
  EXPECT_EQ(row[1], 5.5F / 25.0F);  // 5 on the diagonal, 12 times 1/2
  EXPECT_EQ(row[2], 3.0F / 20.0F);
  EXPECT_EQ(row[3], 0.25F);
  EXPECT_EQ(row[4], 0.25F);
  EXPECT_EQ(row[5], 0.25F);
}

TEST(KinshipByYear, ACohortWithOneParentHasNoKinshipOfParents) {
  const KinshipRun run = kinship_of("2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n2002 s=3\n");
  EXPECT_EQ(cells_of(run.inbreeding, 2), (Cells{0, 0.375F, 0.25F, 0, 0, 0}));
}

TEST(KinshipByYear, OneFatherAndOneMotherFillTheColumnOfParentsOnly) {
  const KinshipRun run = kinship_of("2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n2002 s=3 d=4\n");
  EXPECT_EQ(cells_of(run.inbreeding, 2), (Cells{0, 0.375F, 0.25F, 0.25F, 0, 0}));
}

TEST(KinshipByYear, AnAnimalWithImportedOffspringOnlyIsNoParent) {
  // 3 and 4 have offspring, that of 4 is an import: one native parent is left.
  PopulationStore store = numbered_store("2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n2002 s=3\n2002 d=4 import\n");
  ASSERT_TRUE(store.is_parent[4] != 0);
  EXPECT_EQ(cells_of(kinship_of(store).inbreeding, 2), (Cells{0, 0.375F, 0.25F, 0, 0, 0}));
}

TEST(KinshipByYear, AnimalsWithoutBirthYearBelongToNoCohortButConnectOthers) {
  // 1 and 2 without a year; 3 and 4 are their children. Years -1 to 1 exist: year 0 has no cohort either.
  const KinshipRun run = kinship_of("m\n.\n-1 s=1 d=2\n1 s=1 d=2\n1 s=1 d=2\n");
  EXPECT_EQ(cells_of(run.inbreeding, 1), (Cells{0, 0.5F, 0, 0, 0, 0}));
  EXPECT_EQ(cells_of(run.inbreeding, 2), Cells(6, 0.0F));
  EXPECT_EQ(cells_of(run.inbreeding, 3), (Cells{0, 0.375F, 0.25F, 0, 0, 0}));
}

TEST(KinshipByYear, AnEmptyStorePrintsTwoYears) {
  // Without animals the years run from the largest integer to the smallest, which follows it: two rows.
  const KinshipRun run = kinship_of("");
  EXPECT_EQ(run.console, (std::vector<std::string>{" compute kinships for year  2147483647",
                                                   " compute kinships for year -2147483648"}));
}

TEST(KinshipByYear, OneSubpopulationLeavesTheKinshipTableZero) {
  const KinshipRun run = kinship_of("2000 sub=a\n2000 sub=a\n", names_of<Subpopulations>({"a"}));
  EXPECT_EQ(row_of(run.kinship, 1), Cells(2, 0.0F));
}

TEST(KinshipByYear, OneSubpopulationOrNoneGivesTheWholePopulationTheSame) {
  const KinshipRun alone = kinship_of("2000 m\n2000\n2001 s=1 d=2 sub=a\n2001 s=1 d=2 sub=b\n");
  const KinshipRun split =
      kinship_of("2000 m\n2000\n2001 s=1 d=2 sub=a\n2001 s=1 d=2 sub=b\n", names_of<Subpopulations>({"a", "b"}));
  EXPECT_EQ(cells_of(alone.inbreeding, 2), (Cells{0, 0.375F, 0.25F, 0, 0, 0}));
  EXPECT_EQ(cells_of(split.inbreeding, 2), cells_of(alone.inbreeding, 2));
  EXPECT_EQ(alone.kinship.column_count, 0);
}

TEST(EchoInbreeding, ShowsFAndTheRelationshipOfEachYear) {
  // The founders of 2000: 0 and 1/2 (twice the kinship of 1/4); nobody in 2001; full sibs: 0 and 3/4.
  const KinshipRun run = kinship_of("2000 m\n2000\n2002 s=1 d=2\n2002 s=1 d=2\n");
  TextOutput console;
  echo_inbreeding(run.inbreeding, console);
  EXPECT_EQ(lines_of(console),
            (std::vector<std::string>{"     F        f", "  0.0000  0.5000", "  0.0000  0.0000", "  0.0000  0.7500"}));
}

// ---------------------------------------------------------------------------------------------------------------
// The plain way: a full matrix of relationships for each cohort.

Cells plain_row(const PlainCohort& cohort) {
  Cells cells(6, 0.0F);
  const PlainGroup all = group_where(cohort, [](const AnimalRecord&) { return true; });
  const float n = static_cast<float>(all.size());
  cells[0] = plain_inbreeding_mean(cohort, all);
  cells[1] = plain_sum_between(cohort, all, all) / (n * n) * 0.5F;
  if (all.size() <= 1) return cells;
  cells[2] = plain_kinship_without_self(cohort, all, TakenFirst::inbreeding);
  const PlainGroup parents = group_where(cohort, [](const AnimalRecord& animal) { return animal.is_native_parent; });
  if (parents.size() <= 1) return cells;
  cells[3] = plain_kinship_without_self(cohort, parents, TakenFirst::count);
  for (const Sex sex : {male, female}) {
    const PlainGroup of_sex =
        group_where(cohort, [&](const AnimalRecord& animal) { return animal.is_native_parent && animal.sex == sex; });
    const std::size_t column = sex == male ? 4 : 5;
    if (of_sex.size() > 1) cells[column] = plain_kinship_without_self(cohort, of_sex, TakenFirst::count);
  }
  return cells;
}

void expect_like_plain_way(PopulationStore store, const Subpopulations& subpopulations = {}) {
  const KinshipRun run = kinship_of(store, subpopulations);
  for (std::int32_t row = 1; row <= store.birth_years.count; ++row) {
    const std::int32_t year = store.birth_years.year_of(row);
    const PlainCohort cohort = plain_cohort(store, year);
    ASSERT_FALSE(cohort.animals.empty());
    expect_close(cells_of(run.inbreeding, row), plain_row(cohort), year);
  }
}

TEST(KinshipByYearAgainstMatrix, ManyAnimalsInEveryYear) {
  for (std::uint64_t seed = 1; seed <= 4; ++seed) expect_like_plain_way(random_pedigree(seed, 400, 8));
  for (std::uint64_t seed = 11; seed <= 13; ++seed) expect_like_plain_way(random_pedigree(seed, 600, 6));
}

TEST(KinshipByYearAgainstMatrix, FewAnimalsInEveryYear) {
  for (std::uint64_t seed = 21; seed <= 24; ++seed) expect_like_plain_way(random_pedigree(seed, 300, 60));
}

TEST(KinshipByYearAgainstMatrix, WithSubpopulationsOnTheWay) {
  Subpopulations many = names_of<Subpopulations>({"type0", "type1", "type2"});
  for (int k = 1; k <= 17; ++k) many.add(SubpopulationName("herd " + std::to_string(k)));
  for (std::uint64_t seed = 5; seed <= 6; ++seed) {
    for (const Subpopulations& subpopulations : {names_of<Subpopulations>({"type0", "type1"}), many}) {
      expect_like_plain_way(random_pedigree(seed, 400, 8, {.subpopulations = subpopulations}), subpopulations);
    }
  }
}

TEST(KinshipByYear, TheSubpopulationsHaveTheBitsOfTheirRowsAlone) {
  // The passes of the whole population, which share the working lists, must leave no trace in them.
  const auto subpopulations = names_of<Subpopulations>({"type0", "type1", "type2", "nobody"});
  PopulationStore store = random_pedigree(7, 400, 8, {.subpopulations = subpopulations});
  const KinshipRun run = kinship_of(store, subpopulations);
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  const YearGroups years = group_by_year(store);
  YearTable<float> alone(store.birth_years.row_count(), kinship_column_count(subpopulations.count()));
  for (Row row = 1; row <= alone.row_count(); ++row) {
    RelationshipWork work = make_relationship_work(store, ancestors);
    CohortSubpopulations split = split_cohort(store, subpopulations, years.of_row(row));
    const RelationshipSums sums = sum_relationships(work, split.animals);
    fill_kinship_row(subpopulations, std::move(split), sums, row, alone);
    EXPECT_EQ(row_of(run.kinship, row), row_of(alone, row)) << "row " << row;
  }
}

TEST(KinshipByYearAgainstMatrix, ParentsInTheSameYearAsTheirOffspring) {
  for (std::uint64_t seed = 51; seed <= 52; ++seed) expect_like_plain_way(random_pedigree(seed, 250, 1));
}

}  // namespace
}  // namespace pedigreewatch::test
