// How near mates were, by hand, and what herds make of it.
#include "forecast/mate_nearness.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "forecast/model_herd.h"
#include "support/pedigrees.h"
#include "support/simulated_breed.h"

namespace pedigreewatch::test {
namespace {

/// Pairs of full sibs s1 and d1, s2 and d2, and so on, related to nobody else, born in 1999. They have young each year
/// from 2000 on: in each year so many of the sibs are mated to each other, the others to the next pair's.
struct SibHerd {
  PopulationStore store;
  YearGroups years;
  FamilyRecords records;

  SibHerd(int pairs, const std::vector<int>& sib_matings)
      : store(pedigree_from_text(text_of(pairs, sib_matings))),
        years(group_by_year(store)),
        records(list_families(set_inbreeding(store), years, store.birth_years.last)) {}

  static std::string text_of(int pairs, const std::vector<int>& sib_matings) {
    std::string text;
    const auto name = [](const char* kind, int k) { return kind + std::to_string(k); };
    for (int k = 0; k < pairs; ++k) text += name("p", k) + " 0 0 m 1998\n" + name("q", k) + " 0 0 f 1998\n";
    for (int k = 0; k < pairs; ++k) {
      const std::string parents = " " + name("p", k) + " " + name("q", k) + " ";
      text += name("s", k) + parents + "m 1999\n" + name("d", k) + parents + "f 1999\n";
    }
    int year = 2000;
    for (const int sibs : sib_matings) {
      for (int k = 0; k < pairs; ++k) {
        // The others go round among themselves, so that every sire is used once.
        const int mate = k < sibs ? k : sibs + (k - sibs + 1) % (pairs - sibs);
        text += "y" + std::to_string(year) + "_" + std::to_string(k) + " " + name("s", k) + " " + name("d", mate) +
                " f " + std::to_string(year) + "\n";
      }
      ++year;
    }
    return text;
  }

  /// Young of sibs have an F of 1/4, all others of 0.
  static PopulationStore& set_inbreeding(PopulationStore& store) {
    store.inbreeding = ByNumber<float>(store.size());
    for (std::int32_t k = 1; k <= store.animal_count; ++k) {
      const KnownParents parents = known_parents(store, k), of_sire = known_parents(store, parents.sire);
      const bool is_of_sibs = of_sire.sire != 0 && of_sire.sire == known_parents(store, parents.dam).sire;
      store.inbreeding[k] = is_of_sibs ? 0.25F : 0.0F;
    }
    return store;
  }
};

// Of two pairs of sibs, at random half of the matings are of sibs: f is 1/8.
TEST(MeasureNearness, ComparesWithMatingAtRandom) {
  const SibHerd two(2, {2, 0});
  EXPECT_NEAR(*measure_nearness(two.records, 2000), (0.25 - 0.125) / 0.875, 1e-7);
  EXPECT_NEAR(*measure_nearness(two.records, 2001), -0.125 / 0.875, 1e-7);
  EXPECT_NEAR(*measure_nearness(SibHerd(4, {2}).records, 2000), 1.0 / 15.0, 1e-7);  // f is 1/16, F 1/8
  EXPECT_FALSE(measure_nearness(two.records, 1998).has_value());
}

TEST(MeasureNearness, OfAModelHerdIsTheSame) {
  ModelPedigree pedigree;
  pedigree.sire.values = pedigree.dam.values = {0};
  pedigree.f.values = {-1.0F};
  pedigree.variance.values = {0.0};
  for (int k = 0; k < 4; ++k) add_parent(pedigree, 0, 0, 0.0F);
  for (const std::int32_t parent : {1, 1, 3, 3}) add_parent(pedigree, parent, parent + 1, 0.0F);  // 5 and 6, 7 and 8
  const std::vector<ModelPair> sibs = {{5, 6, 0.25}, {7, 8, 0.25}}, others = {{5, 8, 0.0}, {7, 6, 0.0}};
  EXPECT_NEAR(*measure_nearness(pedigree, sibs), 0.125 / 0.875, 1e-12);
  EXPECT_NEAR(*measure_nearness(pedigree, others), -0.125 / 0.875, 1e-12);
  EXPECT_FALSE(measure_nearness(pedigree, std::span(sibs).first(1)).has_value());
}

TEST(NearnessPaths, AreDifferencesFromTheBasePeriod) {
  std::vector<int> years(25, 0);
  years[14] = 20;  // all of sibs in 2014, which is the middle of the years from the third generation on: no trend
  const SeenNearness seen = list_nearness_paths(SibHerd(20, years).records, 3);
  ASSERT_EQ(seen.paths.size(), 9U);  // 2004 to 2024 are seen; the first path begins in 2007
  EXPECT_DOUBLE_EQ(seen.periods, 7.0);
  const double nearer = 0.25 / (1.0 - 0.25 / 20.0);
  for (std::size_t k = 0; k < 10; ++k) EXPECT_NEAR(seen.paths[0][k], k == 7 ? nearer : 0.0, 1e-6) << k;
  for (const double difference : seen.paths[8]) EXPECT_NEAR(difference, -nearer / 3.0, 1e-6);  // behind 2012 to 2014
}

TEST(NearnessPaths, LeaveATrendOut) {
  std::vector<int> years;
  for (int k = 0; k < 25; ++k) years.push_back(k);
  EXPECT_NEAR(list_nearness_paths(SibHerd(40, years).records, 3).mean_square, 0.0, 1e-12);
}

// Eight periods: an error of a half. What is seen must be twice of what chance does.
TEST(BeyondChance, TakesNoChanceForAChange) {
  SeenNearness seen;
  seen.paths = {NearnessPath(10, 0.03)};
  seen.periods = 8.0;
  seen.mean_square = 2.0;
  EXPECT_TRUE(beyond_chance(seen, 1.0).empty());
  seen.mean_square = 2.01;
  ASSERT_EQ(beyond_chance(seen, 1.0).size(), 1U);
  EXPECT_DOUBLE_EQ(beyond_chance(seen, 1.0)[0][4], 0.03 * std::sqrt(1.0 - 1.0 / 2.01));
  EXPECT_TRUE(beyond_chance({}, 0.0).empty());
}

TEST(FollowNearness, GoesBothWays) {
  EXPECT_EQ(follow_nearness({}, 3, make_stream(1)), 0.0);
  NearnessPath path(10, 0.02);
  path[2] = 0.05;
  int nearer = 0;
  for (std::uint64_t k = 0; k < 1000; ++k) {
    const double third = follow_nearness({path}, 3, make_stream(k));
    EXPECT_DOUBLE_EQ(std::abs(third), 0.05);
    EXPECT_DOUBLE_EQ(std::abs(follow_nearness({path}, 12, make_stream(k))), 0.02);
    nearer += third > 0.0 ? 1 : 0;
  }
  EXPECT_NEAR(nearer, 500, 60);
}

// Mates are as much nearer as the path says, as far as there are any: F of the first year's young, all else being the
// same.
TEST(FollowNearness, IsWhatMatesComeTo) {
  BreedScheme scheme;
  scheme.sires_a_year = 8;
  scheme.dams_a_year = 40;
  const PopulationStore store = simulate_breed(scheme, 4);
  const YearGroups years = group_by_year(store);
  const FamilyRecords records = list_families(store, years, store.birth_years.last);
  ModelBasis basis = make_model_basis(records, *measure_base_period(records));
  const BreedingRules rules;
  const auto mean_f = [&](std::int32_t replicate, double nearer) {
    basis.nearness = {NearnessPath(10, nearer)};
    ModelHerd model = begin_herd(basis, rules, 1, replicate, nullptr);
    EXPECT_TRUE(live_year(model, records.last_year + 1));
    return model.year.kinship.mean_f;
  };
  double reached = 0.0;
  for (std::int32_t replicate = 0; replicate < 6; ++replicate) {
    const double as_now = mean_f(replicate, 0.0), other = mean_f(replicate, 0.01);
    const double part = std::abs(other - as_now) / (0.01 * (1.0 - as_now));
    EXPECT_GT(part, 0.3) << replicate;
    EXPECT_LT(part, 1.5) << replicate;
    reached += part / 6.0;
  }
  EXPECT_GT(reached, 0.6);
}

}  // namespace
}  // namespace pedigreewatch::test
