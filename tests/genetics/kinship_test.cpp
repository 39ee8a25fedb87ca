#include "genetics/kinship.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "genetics/inbreeding.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Names = std::vector<SubpopulationName>;
using Cells = std::vector<float>;

Names names_of(std::initializer_list<std::string_view> texts) {
  Names names;
  for (const std::string_view text : texts) names.emplace_back(text);
  return names;
}

struct KinshipTables {
  YearTable<float> inbreeding, kinship;
  std::vector<std::string> console;
};

/// F of all animals, then both tables: the one place where these tests call the pass.
KinshipTables kinship_of(PopulationStore& store, const Names& names = {}, bool english = true) {
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  TextOutput ignored, console = output_in(english);
  compute_inbreeding(store, ancestors, ignored);
  const std::int64_t rows = store.birth_years.row_count();
  KinshipTables tables{
      {rows, inbreeding_columns}, {rows, kinship_column_count(static_cast<std::int64_t>(names.size()))}, {}};
  const SubpopulationMembership membership = find_membership(store, names);
  compute_kinship_by_year(store, ancestors, group_by_year(store), names.size() > 1 ? &membership : nullptr,
                          tables.inbreeding, tables.kinship, console);
  tables.console = lines_of(console);
  return tables;
}

KinshipTables kinship_of(std::string_view numbered, const Names& names = {}) {
  PopulationStore store = numbered_store(numbered);
  return kinship_of(store, names);
}

// ---------------------------------------------------------------------------------------------------------------
// The plain way: a full matrix of relationships for each cohort.

/// Relationships of animal x with the animals up to x, by position; entry 0 stays 0.
std::vector<double> plain_relationship_row(const PopulationStore& store, std::int32_t x) {
  const auto at = [](std::int32_t number) { return static_cast<std::size_t>(number); };
  std::vector<double> weights(at(x) + 1, 0.0), row(at(x) + 1, 0.0), parent_f(at(x) + 1, 0.0);
  for (std::int32_t j = 1; j <= x; ++j) parent_f[at(j)] = static_cast<double>(store.at(j).inbreeding);
  weights[at(x)] = 1.0;
  for (std::int32_t j = x; j >= 1; --j) {
    if (!(weights[at(j)] > 0.0)) continue;
    const std::int32_t s = store.at(j).sire_no, d = store.at(j).dam_no;
    if (s != 0) weights[at(s)] += 0.5 * weights[at(j)];
    if (d != 0) weights[at(d)] += 0.5 * weights[at(j)];
  }
  for (std::int32_t j = 1; j <= x; ++j) {
    const std::int32_t s = store.at(j).sire_no, d = store.at(j).dam_no;
    row[at(j)] = 0.5 * ((s != 0 ? row[at(s)] : 0.0) + (d != 0 ? row[at(d)] : 0.0));
    if (!(weights[at(j)] > 0.0)) continue;
    const double unknown = (s == 0 ? 1.0 : 0.0) + (d == 0 ? 1.0 : 0.0);
    row[at(j)] += weights[at(j)] * (2.0 + unknown - parent_f[at(s)] - parent_f[at(d)]) * 0.25;
  }
  return row;
}

using CohortMatrix = std::vector<std::vector<float>>;

CohortMatrix plain_matrix(const PopulationStore& store, const std::vector<std::int32_t>& cohort) {
  CohortMatrix matrix(cohort.size(), std::vector<float>(cohort.size(), 0.0F));
  for (std::size_t k = 0; k < cohort.size(); ++k) {
    const AnimalRecord& animal = store.at(cohort[k]);
    if (animal.sire_no == 0 && animal.dam_no == 0) {
      matrix[k][k] = 1.0F;
      continue;
    }
    const std::vector<double> row = plain_relationship_row(store, cohort[k]);
    for (std::size_t c = 0; c <= k; ++c) {
      matrix[k][c] = matrix[c][k] = static_cast<float>(row[static_cast<std::size_t>(cohort[c])]);
    }
  }
  return matrix;
}

/// Places in the cohort, counted from 0.
using Group = std::vector<std::size_t>;

float sum_between(const CohortMatrix& matrix, const Group& rows, const Group& columns) {
  double sum = 0.0;
  for (const std::size_t r : rows) {
    for (const std::size_t c : columns) sum += static_cast<double>(matrix[r][c]);
  }
  return static_cast<float>(sum);
}

float plain_inbreeding_sum(const PopulationStore& store, const std::vector<std::int32_t>& cohort, const Group& group) {
  float sum = 0.0F;
  for (const std::size_t k : group) sum += store.at(cohort[k]).inbreeding;
  return sum;
}

template <typename Wanted>
Group group_where(const PopulationStore& store, const std::vector<std::int32_t>& cohort, Wanted&& wanted) {
  Group group;
  for (std::size_t k = 0; k < cohort.size(); ++k) {
    if (wanted(store.at(cohort[k]))) group.push_back(k);
  }
  return group;
}

enum class First { inbreeding, count };

/// Mean relationship of different animals: the diagonal is taken away in the order asked for.
float mean_excluding_self(const PopulationStore& store, const std::vector<std::int32_t>& cohort,
                          const CohortMatrix& matrix, const Group& group, First first) {
  const float total = sum_between(matrix, group, group);
  const float f_sum = plain_inbreeding_sum(store, cohort, group);
  const float m = static_cast<float>(group.size());
  const float pairs = static_cast<float>(group.size() * (group.size() - 1));
  return first == First::inbreeding ? ((total - f_sum) - m) / pairs : ((total - m) - f_sum) / pairs;
}

Cells plain_inbreeding_row(const PopulationStore& store, const std::vector<std::int32_t>& cohort,
                           const CohortMatrix& matrix) {
  Cells cells(6, 0.0F);
  const Group all = group_where(store, cohort, [](const AnimalRecord&) { return true; });
  const float n = static_cast<float>(all.size());
  cells[0] = plain_inbreeding_sum(store, cohort, all) / n;
  cells[1] = sum_between(matrix, all, all) / (n * n);
  if (all.size() <= 1) return cells;
  cells[2] = mean_excluding_self(store, cohort, matrix, all, First::inbreeding);
  const Group parents =
      group_where(store, cohort, [](const AnimalRecord& animal) { return animal.is_native_parent != 0; });
  if (parents.size() <= 1) return cells;
  cells[3] = mean_excluding_self(store, cohort, matrix, parents, First::count);
  for (const std::int32_t sex : {1, 2}) {
    const Group of_sex = group_where(
        store, cohort, [&](const AnimalRecord& animal) { return animal.is_native_parent != 0 && animal.sex == sex; });
    if (of_sex.size() > 1) {
      cells[static_cast<std::size_t>(3 + sex)] = mean_excluding_self(store, cohort, matrix, of_sex, First::count);
    }
  }
  return cells;
}

Cells plain_subpopulation_row(const PopulationStore& store, const std::vector<std::int32_t>& cohort,
                              const CohortMatrix& matrix, const Names& names) {
  const std::size_t s = names.size();
  Cells cells(2 * s + s * (s - 1) / 2, 0.0F);
  std::vector<Group> members;
  for (const SubpopulationName& name : names) {
    members.push_back(
        group_where(store, cohort, [&](const AnimalRecord& animal) { return animal.subpopulation == name; }));
  }
  const auto fill_own = [&](std::size_t k, First first) {  // k counted from 1
    const Group& own = members[k - 1];
    cells[2 * k - 2] = plain_inbreeding_sum(store, cohort, own) / static_cast<float>(own.size());
    cells[2 * k - 1] = mean_excluding_self(store, cohort, matrix, own, first);
  };
  std::size_t q = 1;
  for (std::size_t k = 1; k + 1 <= s; ++k) {
    if (members[k - 1].size() <= 1) continue;
    fill_own(k, First::inbreeding);
    for (std::size_t l = k + 1; l <= s; ++l) {
      if (!members[l - 1].empty()) {
        cells[2 * s + q - 1] = sum_between(matrix, members[k - 1], members[l - 1]) /
                               static_cast<float>(members[l - 1].size() * members[k - 1].size());
      }
      ++q;
    }
  }
  if (members[s - 1].size() > 1) fill_own(s, First::count);
  for (std::size_t k = 1; k <= s; ++k) cells[2 * k - 1] *= 0.5F;
  return cells;
}

std::vector<std::int32_t> cohort_of(const PopulationStore& store, std::int32_t year) {
  std::vector<std::int32_t> cohort;
  for (const AnimalRecord& animal : store.animals) {
    if (animal.birth_year == year) cohort.push_back(animal.number);
  }
  return cohort;
}

void expect_close(const Cells& got, const Cells& want, const std::string& where) {
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t i = 0; i < want.size(); ++i) {
    EXPECT_NEAR(got[i], want[i], 4e-7F + 4e-6F * std::abs(want[i])) << where << ", column " << i + 1;
  }
}

/// All columns of both tables against the plain way.
void expect_like_plain_way(PopulationStore& store, const Names& names) {
  for (std::int32_t position = 1; position <= store.animal_count; ++position) store.at(position).number = position;
  const KinshipTables tables = kinship_of(store, names);
  for (std::int32_t row = 1; row <= store.birth_years.count; ++row) {
    const std::string where = "year " + std::to_string(store.birth_years.first + row - 1);
    const std::vector<std::int32_t> cohort = cohort_of(store, store.birth_years.first + row - 1);
    ASSERT_FALSE(cohort.empty());
    const CohortMatrix matrix = plain_matrix(store, cohort);
    expect_close(row_of(tables.inbreeding, row), plain_inbreeding_row(store, cohort, matrix), where);
    if (names.size() > 1) {
      expect_close(row_of(tables.kinship, row), plain_subpopulation_row(store, cohort, matrix, names), where);
    }
  }
}

/// Gives every animal one of `names` or, sometimes, none; low numbers more often, so that others have few members.
void scatter_subpopulations(PopulationStore& store, const Names& names, std::uint64_t seed) {
  RandomNumbers random{seed};
  const std::int32_t count = static_cast<std::int32_t>(names.size());
  for (AnimalRecord& animal : store.animals) {
    const std::int32_t drawn = std::min(random.below(count + 1), random.below(count + 1));
    animal.subpopulation = drawn == count ? SubpopulationName("elsewhere") : names[static_cast<std::size_t>(drawn)];
  }
}

// ---------------------------------------------------------------------------------------------------------------

TEST(KinshipByYear, TwoUnrelatedFounders) {
  const KinshipTables tables = kinship_of("2000 m\n2000\n");
  EXPECT_EQ(row_of(tables.inbreeding, 1), (Cells{0, 0.5F, 0, 0, 0, 0}));
}

TEST(KinshipByYear, TwoFullSibsOfUnrelatedFounders) {
  const KinshipTables tables = kinship_of("2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n");
  EXPECT_EQ(row_of(tables.inbreeding, 2), (Cells{0, 0.75F, 0.5F, 0, 0, 0}));
}

TEST(KinshipByYear, AYearWithOneAnimal) {
  const KinshipTables tables = kinship_of("2000 m\n2001\n2001\n");
  EXPECT_EQ(row_of(tables.inbreeding, 1), (Cells{0, 1.0F, 0, 0, 0, 0}));
}

TEST(KinshipByYear, OneInbredAnimalAloneInItsYear) {
  // F = 1/4; its relationship with itself is 1.25.
  const KinshipTables tables = kinship_of("2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n2002 s=3 d=4\n");
  EXPECT_EQ(row_of(tables.inbreeding, 3), (Cells{0.25F, 1.25F, 0, 0, 0, 0}));
}

TEST(KinshipByYear, AYearWithoutAnimalsIsZeroAndStillPrinted) {
  const KinshipTables tables = kinship_of("2000 m\n2000\n2002 s=1 d=2\n");
  EXPECT_EQ(row_of(tables.inbreeding, 2), Cells(6, 0.0F));
  EXPECT_EQ(tables.console, (std::vector<std::string>{" compute kinships for year        2000",
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
  const KinshipTables tables = kinship_of("2001 m\n2000\n2001 s=1 d=2\n");
  EXPECT_EQ(row_of(tables.inbreeding, 2), (Cells{0, 0.75F, 0.5F, 0, 0, 0}));
}

TEST(KinshipByYear, GrandparentParentAndInbredChildInOneYear) {
  // 1 and 2 founders, 3 their child, 4 from 1 and 3: F = 1/4. a(4,1) = 3/4, a(4,2) = 1/4, a(4,3) = (1/2 + 1) / 2.
  // All entries: diagonal 1 + 1 + 1 + 1.25; twice 0 + 1/2 + 1/2 + 3/4 + 1/4 + 3/4 = 5.5. Sum 9.75.
  const KinshipTables tables = kinship_of("2000 m\n2000\n2000 s=1 d=2\n2000 s=1 d=3\n");
  const Cells row = row_of(tables.inbreeding, 1);
  EXPECT_EQ(row[0], 0.0625F);
  EXPECT_EQ(row[1], 9.75F / 16.0F);
  EXPECT_EQ(row[2], 5.5F / 12.0F);
  // Parents 1, 2, 3: twice 0 + 1/2 + 1/2 over 6 pairs; one father; mothers 2 and 3: a = 1/2.
  EXPECT_EQ(row[3], 2.0F / 6.0F);
  EXPECT_EQ(row[4], 0.0F);
  EXPECT_EQ(row[5], 0.5F);
}

TEST(KinshipByYear, FathersAndMothersOfACohort) {
  // Born in 2001: 3, 4 (full sibs, male), 5, 6 (full sibs of them, female), all parents, and 7, a stranger without
  // offspring. Among the four a is 1/2 everywhere.
  const KinshipTables tables = kinship_of(
      "2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2 m\n2001 s=1 d=2\n2001 s=1 d=2\n2001\n2002 s=3 d=5\n2002 s=4 d=6\n");
  const Cells row = row_of(tables.inbreeding, 2);
  EXPECT_EQ(row[1], 11.0F / 25.0F);  // 5 on the diagonal, 12 times 1/2
  EXPECT_EQ(row[2], 6.0F / 20.0F);
  EXPECT_EQ(row[3], 0.5F);
  EXPECT_EQ(row[4], 0.5F);
  EXPECT_EQ(row[5], 0.5F);
}

TEST(KinshipByYear, ACohortWithOneParentHasNoKinshipOfParents) {
  const KinshipTables tables = kinship_of("2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n2002 s=3\n");
  EXPECT_EQ(row_of(tables.inbreeding, 2), (Cells{0, 0.75F, 0.5F, 0, 0, 0}));
}

TEST(KinshipByYear, OneFatherAndOneMotherFillTheColumnOfParentsOnly) {
  const KinshipTables tables = kinship_of("2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n2002 s=3 d=4\n");
  EXPECT_EQ(row_of(tables.inbreeding, 2), (Cells{0, 0.75F, 0.5F, 0.5F, 0, 0}));
}

TEST(KinshipByYear, AnAnimalWithImportedOffspringOnlyIsNoParent) {
  // 3 and 4 have offspring, that of 4 is an import: one native parent is left.
  PopulationStore store = numbered_store("2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n2002 s=3\n2002 d=4 import\n");
  ASSERT_EQ(store.at(4).is_parent, logical_true);
  EXPECT_EQ(row_of(kinship_of(store).inbreeding, 2), (Cells{0, 0.75F, 0.5F, 0, 0, 0}));
}

TEST(KinshipByYear, AnimalsWithoutBirthYearBelongToNoCohortButConnectOthers) {
  // 1 and 2 without a year; 3 and 4 are their children. Years -1 to 1 exist: year 0 has no cohort either.
  const KinshipTables tables = kinship_of("m\n.\n-1 s=1 d=2\n1 s=1 d=2\n1 s=1 d=2\n");
  EXPECT_EQ(row_of(tables.inbreeding, 1), (Cells{0, 1.0F, 0, 0, 0, 0}));
  EXPECT_EQ(row_of(tables.inbreeding, 2), Cells(6, 0.0F));
  EXPECT_EQ(row_of(tables.inbreeding, 3), (Cells{0, 0.75F, 0.5F, 0, 0, 0}));
}

TEST(KinshipByYear, AnEmptyStorePrintsTwoYears) {
  // Without animals the years run from the largest integer to the smallest, which follows it: two rows.
  const KinshipTables tables = kinship_of("");
  EXPECT_EQ(tables.console, (std::vector<std::string>{" compute kinships for year  2147483647",
                                                      " compute kinships for year -2147483648"}));
}

// ---------------------------------------------------------------------------------------------------------------

TEST(KinshipColumnCount, TwoForEachSubpopulationAndOneForEachPair) {
  EXPECT_EQ(kinship_column_count(0), 0);
  EXPECT_EQ(kinship_column_count(1), 2);
  EXPECT_EQ(kinship_column_count(2), 5);
  EXPECT_EQ(kinship_column_count(3), 9);
  EXPECT_EQ(kinship_column_count(20), 230);
}

TEST(SubpopulationKinship, BetweenValuesAreRelationshipsAndWithinValuesKinships) {
  // Four full sibs, two in each subpopulation: 1/4 within, 1/2 between.
  const KinshipTables tables =
      kinship_of("2000 m\n2000\n2001 s=1 d=2 sub=a\n2001 s=1 d=2 sub=a\n2001 s=1 d=2 sub=b\n2001 s=1 d=2 sub=b\n",
                 names_of({"a", "b"}));
  EXPECT_EQ(row_of(tables.kinship, 2), (Cells{0, 0.25F, 0, 0.25F, 0.5F}));
  EXPECT_EQ(row_of(tables.kinship, 1), Cells(5, 0.0F));
}

TEST(SubpopulationKinship, OneSubpopulationLeavesTheTableZero) {
  const KinshipTables tables = kinship_of("2000 sub=a\n2000 sub=a\n", names_of({"a"}));
  EXPECT_EQ(row_of(tables.kinship, 1), Cells(2, 0.0F));
}

// 1 and 2 are founders, all others their children: a = 1/2 between any two.
constexpr auto first_has_one_member =
    "2000 m\n2000\n2001 s=1 d=2 sub=a\n2001 s=1 d=2 sub=b\n2001 s=1 d=2 sub=b\n2001 s=1 d=2 sub=c\n"
    "2001 s=1 d=2 sub=c\n";

TEST(SubpopulationKinship, ASubpopulationWithOneMemberMovesThePairsForward) {
  // The pair (b, c) stands in the column of (a, b); those of (a, c) and (b, c) stay 0.
  const KinshipTables tables = kinship_of(first_has_one_member, names_of({"a", "b", "c"}));
  EXPECT_EQ(row_of(tables.kinship, 2), (Cells{0, 0, 0, 0.25F, 0, 0.25F, 0.5F, 0, 0}));
}

TEST(SubpopulationKinship, ASecondSubpopulationWithOneMemberStillCountsInThePairsOfTheFirst) {
  // a has two, b one, c two: pairs (a, b) and (a, c) in their columns, (b, c) is not computed.
  const KinshipTables tables = kinship_of(first_has_one_member, names_of({"b", "a", "c"}));
  EXPECT_EQ(row_of(tables.kinship, 2), (Cells{0, 0.25F, 0, 0, 0, 0.25F, 0.5F, 0.5F, 0}));
}

TEST(SubpopulationKinship, AnAbsentPartnerLeavesItsColumnZeroAndStillMovesOn) {
  // Nobody of x: (b, x) stays 0, (b, c) stands in its own column.
  const KinshipTables tables = kinship_of(first_has_one_member, names_of({"b", "x", "c"}));
  EXPECT_EQ(row_of(tables.kinship, 2), (Cells{0, 0.25F, 0, 0, 0, 0.25F, 0, 0.5F, 0}));
}

TEST(SubpopulationKinship, TheLastSubpopulationWithOneMemberShowsNothingOfItsOwn) {
  const KinshipTables tables = kinship_of(first_has_one_member, names_of({"b", "c", "a"}));
  EXPECT_EQ(row_of(tables.kinship, 2), (Cells{0, 0.25F, 0, 0.25F, 0, 0, 0.5F, 0.5F, 0.5F}));
}

TEST(SubpopulationKinship, ASingleInbredMemberShowsNoF) {
  const KinshipTables tables = kinship_of(
      "2000 m\n2000\n2001 s=1 d=2 m\n2001 s=1 d=2\n2002 s=3 d=4 sub=a\n2002 s=3 d=4 sub=b\n2002 s=3 d=4 sub=b\n",
      names_of({"a", "b"}));
  // Full sibs from full sibs: a = (1 + 1 + 1/2 + 1/2) / 4 between them, so that f is 3/8.
  EXPECT_EQ(row_of(tables.kinship, 3), (Cells{0, 0, 0.25F, 0.375F, 0}));
}

TEST(SubpopulationKinship, DuplicateNamesAreFilledAlike) {
  // The pair of the two is a plain mean of all four entries, the diagonal included: (1 + 1 + 1/2 + 1/2) / 4.
  const KinshipTables tables =
      kinship_of("2000 m\n2000\n2001 s=1 d=2 sub=a\n2001 s=1 d=2 sub=a\n", names_of({"a", "a"}));
  EXPECT_EQ(row_of(tables.kinship, 2), (Cells{0, 0.25F, 0, 0.25F, 0.75F}));
}

TEST(SubpopulationKinship, ABlankNameGathersTheAnimalsWithoutSubpopulation) {
  const KinshipTables tables =
      kinship_of("2000 m\n2000\n2001 s=1 d=2\n2001 s=1 d=2\n2001 s=1 d=2 sub=other\n", names_of({"", "nobody"}));
  EXPECT_EQ(row_of(tables.kinship, 2), (Cells{0, 0.25F, 0, 0, 0}));
}

// ---------------------------------------------------------------------------------------------------------------

TEST(KinshipAgainstMatrix, OneToFourSubpopulations) {
  const Names all = names_of({"type0", "type1", "type2", "nobody"});
  for (std::uint64_t seed = 1; seed <= 4; ++seed) {
    SCOPED_TRACE(seed);
    for (std::size_t count = 0; count <= 4; ++count) {
      PopulationStore store = random_pedigree(seed, 400, 8);
      expect_like_plain_way(store, Names(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count)));
    }
  }
}

TEST(KinshipAgainstMatrix, TwentySubpopulationsInSeveralPasses) {
  Names names;
  for (int k = 1; k <= 20; ++k) names.emplace_back("herd " + std::to_string(k));
  for (std::uint64_t seed = 11; seed <= 13; ++seed) {
    SCOPED_TRACE(seed);
    PopulationStore store = random_pedigree(seed, 600, 6);
    scatter_subpopulations(store, names, seed);
    expect_like_plain_way(store, names);
  }
}

TEST(KinshipAgainstMatrix, ManySubpopulationsOfOneOrNoMember) {
  Names names;
  for (int k = 1; k <= 20; ++k) names.emplace_back("herd " + std::to_string(k));
  for (std::uint64_t seed = 21; seed <= 24; ++seed) {
    SCOPED_TRACE(seed);
    PopulationStore store = random_pedigree(seed, 300, 12);  // some 25 animals in a year
    scatter_subpopulations(store, names, seed);
    expect_like_plain_way(store, names);
  }
}

TEST(KinshipAgainstMatrix, SixteenAndSeventeenSubpopulations) {
  // One full pass, and one name more.
  for (const int count : {8, 15, 16, 17, 24, 25}) {
    SCOPED_TRACE(count);
    Names names;
    for (int k = 1; k <= count; ++k) names.emplace_back("herd " + std::to_string(k));
    PopulationStore store = random_pedigree(30 + static_cast<std::uint64_t>(count), 400, 4);
    scatter_subpopulations(store, names, 7);
    expect_like_plain_way(store, names);
  }
}

TEST(KinshipAgainstMatrix, DuplicateAndBlankNamesAmongMany) {
  Names names;
  for (int k = 1; k <= 20; ++k) names.emplace_back("herd " + std::to_string(k % 13));
  names[4] = SubpopulationName("");
  names[19] = names[2];
  for (std::uint64_t seed = 41; seed <= 42; ++seed) {
    SCOPED_TRACE(seed);
    PopulationStore store = random_pedigree(seed, 500, 7);
    scatter_subpopulations(store, names, seed);
    expect_like_plain_way(store, names);
  }
}

TEST(KinshipAgainstMatrix, ParentsInTheSameYearAsTheirOffspring) {
  for (std::uint64_t seed = 51; seed <= 52; ++seed) {
    SCOPED_TRACE(seed);
    PopulationStore store = random_pedigree(seed, 250, 1);
    expect_like_plain_way(store, names_of({"type2", "type0"}));
  }
}

TEST(RelationshipSums, EqualTheFullMatrixForAnyGroups) {
  PopulationStore store = random_pedigree(61, 500, 5);
  kinship_of(store);  // F
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  std::vector<std::vector<double>> a;
  for (std::int32_t x = 1; x <= store.animal_count; ++x) a.push_back(plain_relationship_row(store, x));
  const auto relationship = [&](std::int32_t x, std::int32_t y) {
    return a[static_cast<std::size_t>(std::max(x, y)) - 1][static_cast<std::size_t>(std::min(x, y))];
  };
  RandomNumbers random{62};
  KinshipScratch scratch = make_kinship_scratch(store, ancestors);
  // From many groups to one and back: what one call leaves behind must not show in the next.
  for (const std::int32_t group_count : {1, 3, 16, 17, 40, 2}) {
    std::vector<std::int32_t> members, groups;
    for (std::int32_t position = 1; position <= store.animal_count; ++position) {
      if (random.below(3) == 0) continue;
      members.push_back(position);
      groups.push_back(random.below(group_count + 1) - 1);  // -1: in no group
    }
    const std::size_t count = static_cast<std::size_t>(group_count);
    std::vector<double> expected(count * count, 0.0);
    for (std::size_t i = 0; i < members.size(); ++i) {
      for (std::size_t j = 0; j < members.size(); ++j) {
        if (groups[i] < 0 || groups[j] < 0) continue;
        expected[static_cast<std::size_t>(groups[i]) * count + static_cast<std::size_t>(groups[j])] +=
            relationship(members[i], members[j]);
      }
    }
    const RelationshipSums sums = sum_relationships(store, ancestors, members, groups, count, scratch);
    for (std::size_t g = 0; g < count; ++g) {
      for (std::size_t h = 0; h < count; ++h) {
        EXPECT_NEAR(sums.between(g, h), expected[g * count + h], 1e-9 * (1.0 + expected[g * count + h]))
            << group_count << " groups, " << g << " and " << h;
      }
    }
  }
}

TEST(RelationshipRow, ThePlainWayAgreesWithTheTabularMethod) {
  PopulationStore store = random_pedigree(71, 200, 5);
  kinship_of(store);
  const auto a = tabular_relationships(store);
  for (std::int32_t x = 1; x <= store.animal_count; ++x) {
    const std::vector<double> row = plain_relationship_row(store, x);
    for (std::int32_t j = 1; j <= x; ++j) {
      EXPECT_NEAR(row[static_cast<std::size_t>(j)], a[static_cast<std::size_t>(x) - 1][static_cast<std::size_t>(j) - 1],
                  2e-6);
    }
  }
}

}  // namespace
}  // namespace pedigreewatch::test
