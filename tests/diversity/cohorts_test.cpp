#include "diversity/cohorts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "diversity/diversity.h"
#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

std::vector<Cohort> cohorts_of(const PopulationStore& store, std::int32_t interval = 0, std::int32_t threads = 1) {
  const YearGroups years = group_by_year(store);
  const ByNumber<float> shares = import_shares(store);
  return describe_cohorts({store, years, count_known_lines(store), shares, interval, false, threads});
}

void expect_near(const std::optional<double>& got, const std::optional<double>& want, double error) {
  ASSERT_EQ(got.has_value(), want.has_value());
  EXPECT_NEAR(got.value_or(0.0), want.value_or(0.0), error * std::max(1.0, want.value_or(0.0)));
}

/// The figures that a reference population of the same animals has.
void expect_as_reference(const PopulationStore& store, const Cohort& cohort) {
  const ReferencePopulation all = animals_born(store, cohort.first_year, cohort.last_year);
  ReferencePopulation reference{ReferenceChoice::listed, 0, 0, {}, 0};
  for (const std::int32_t position : all.positions) {
    const bool is_wanted = cohort.subpopulation == 0 || store.subpopulation_no(position) == cohort.subpopulation;
    if (is_wanted) reference.positions.push_back(position);
  }
  const Diversity diversity = compute_diversity(store, reference);
  EXPECT_EQ(cohort.sums.animals, std::ssize(reference.positions));
  expect_near(cohort.kinship_with_self, diversity.mean_kinship, 1e-7);
  expect_near(cohort.effective_founders, diversity.effective_founders, 1e-9);
  expect_near(cohort.effective_ancestors, diversity.effective_ancestors, 1e-9);
  expect_near(cohort.founder_genomes(), diversity.founder_genomes, 1e-6);
  expect_near(cohort.effective_size(), diversity.by_inbreeding.effective_size, 1e-4);
  const double animals = static_cast<double>(cohort.sums.animals);
  EXPECT_NEAR(cohort.sums.equivalents / animals, diversity.equivalent_generations.value(), 1e-5);
  EXPECT_NEAR(cohort.sums.completeness_index / animals, diversity.completeness_index.value(), 1e-9);
}

TEST(Cohorts, AreAsReferencePopulationsOfTheSameAnimals) {
  for (std::uint64_t seed = 1; seed <= 3; ++seed) {
    const PopulationStore store = random_population(seed, 300);
    const std::vector<Cohort> cohorts = cohorts_of(store, 4);
    ASSERT_EQ(cohorts.size(), 13U);  // ten years, and three intervals of them
    for (const Cohort& cohort : cohorts) expect_as_reference(store, cohort);
  }
}

TEST(Cohorts, OfSubpopulationsStandBehindThoseOfAll) {
  // Ten subpopulations, more than are carried side by side.
  LookedUpNames names;
  for (int s = 0; s < 10; ++s) names.subpopulations.add(SubpopulationName("s" + std::to_string(s)));
  const PopulationStore random = random_population(7, 200);
  std::vector<AnimalRecord> records;
  for (std::int32_t i = 1; i <= random.animal_count; ++i) {
    records.push_back(random.at(i));
    records.back().subpopulation.assign("s" + std::to_string(i % 11));  // one in eleven is in none
  }
  const PopulationStore store = finished_store_of(records, names);
  const std::vector<Cohort> cohorts = cohorts_of(store);
  EXPECT_EQ(cohorts.front().subpopulation, 0);
  EXPECT_EQ(cohorts[1].subpopulation, 1);
  EXPECT_EQ(cohorts[10].subpopulation, 10);
  for (const Cohort& cohort : cohorts) expect_as_reference(store, cohort);
}

TEST(Cohorts, HaveTheSameAncestorsOnAnyNumberOfThreads) {
  const PopulationStore store = random_population(5, 300);
  const std::vector<Cohort> one = cohorts_of(store, 4), three = cohorts_of(store, 4, 3);
  ASSERT_EQ(one.size(), three.size());
  for (std::size_t k = 0; k < one.size(); ++k) {
    EXPECT_TRUE(three[k].effective_ancestors.has_value());
    EXPECT_EQ(one[k].effective_ancestors, three[k].effective_ancestors);
  }
}

TEST(Cohorts, CountMatingsOnceAYear) {
  // 2002: two litter mates of 1 and 2, an animal of an unknown dam; 2003: a young of the full sibs 3 and 4, and of 1
  // with its daughter 4 two.
  const PopulationStore store = with_inbreeding(numbered_store(
      "2000 m\n2000\n2002 m s=1 d=2\n2002 s=1 d=2\n2002 s=1\n2003 s=3 d=4\n2003 s=1 d=4\n2003 s=1 d=4\n"));
  const std::vector<Cohort> cohorts = cohorts_of(store);
  ASSERT_EQ(cohorts.size(), 3U);  // 2001 has no animals
  const CohortSums &first = cohorts[1].sums, &second = cohorts[2].sums;
  EXPECT_EQ(first.matings, 1);
  EXPECT_EQ(first.both_parents_known, 2);
  EXPECT_EQ(first.matings_of, (std::array<std::int64_t, 4>{}));
  EXPECT_EQ(second.matings, 2);
  EXPECT_EQ(second.matings_of, (std::array<std::int64_t, 4>{1, 1, 0, 0}));
  EXPECT_EQ(second.born_of, (std::array<std::int64_t, 4>{2, 1, 0, 0}));
  EXPECT_EQ(second.classes, (std::array<std::int64_t, 5>{0, 0, 0, 3, 0}));
  // Of the three animals of 2002 one has no dam, and none a grandparent.
  EXPECT_DOUBLE_EQ(first.sire_side[0], 3.0);
  EXPECT_DOUBLE_EQ(first.dam_side[0], 2.0);
  EXPECT_DOUBLE_EQ(second.sire_side[1], 1.0);  // both of 3, none of 1
  EXPECT_DOUBLE_EQ(second.dam_side[1], 3.0);
  // F 1/4 of each in two generations: dF = 1/4, Ne = 2.
  EXPECT_DOUBLE_EQ(cohorts[2].mean_increase().value(), (0.25 + 2.0 * (1.0 - 0.75 * 0.75)) / 3.0);
}

TEST(Cohorts, OfOneAnimalHaveNoKinshipOfDifferentOnes) {
  const PopulationStore store = with_inbreeding(numbered_store("2000 m\n"));
  const Cohort cohort = cohorts_of(store).front();
  EXPECT_DOUBLE_EQ(cohort.kinship_with_self.value(), 0.5);
  EXPECT_FALSE(cohort.kinship_without_self.has_value());
  EXPECT_DOUBLE_EQ(cohort.gene_diversity().value(), 0.5);
  EXPECT_DOUBLE_EQ(cohort.lost_by_founders().value(), 0.5);
  EXPECT_DOUBLE_EQ(cohort.lost_since().value(), 0.0);
  EXPECT_FALSE(cohort.effective_size().has_value());
}

TEST(Cohorts, IntervalsEndWithTheLastYear) {
  std::string text;
  for (int year = 2000; year <= 2007; ++year) text += std::to_string(year) + "\n";
  const std::vector<Cohort> cohorts = cohorts_of(with_inbreeding(numbered_store(text)), 3);
  ASSERT_EQ(cohorts.size(), 11U);
  std::vector<std::int32_t> first_years, last_years;
  for (const Cohort& cohort : cohorts) {
    if (cohort.span != CohortSpan::interval) continue;
    first_years.push_back(cohort.first_year);
    last_years.push_back(cohort.last_year);
  }
  EXPECT_EQ(first_years, (std::vector<std::int32_t>{2000, 2002, 2005}));
  EXPECT_EQ(last_years, (std::vector<std::int32_t>{2001, 2004, 2007}));
}

TEST(Cohorts, KinshipWithoutSelfIsThatOfPairs) {
  const PopulationStore store = random_population(2, 120);
  const auto relationships = tabular_relationships(store);
  for (const Cohort& cohort : cohorts_of(store)) {
    const std::vector<std::int32_t> animals = animals_born(store, cohort.first_year, cohort.last_year).positions;
    double sum = 0.0;
    for (const std::int32_t i : animals) {
      for (const std::int32_t j : animals) {
        if (i != j) sum += relationships[static_cast<std::size_t>(i) - 1][static_cast<std::size_t>(j) - 1] / 2.0;
      }
    }
    const double pairs = static_cast<double>(animals.size()) * static_cast<double>(animals.size() - 1);
    EXPECT_NEAR(cohort.kinship_without_self.value(), sum / pairs, 1e-6);
  }
}

TEST(InbreedingClass, TakesBoundsWithTheRoundingOfF) {
  EXPECT_EQ(inbreeding_class(-3e-7F), 0U);
  EXPECT_EQ(inbreeding_class(9e-7F), 0U);
  EXPECT_EQ(inbreeding_class(2e-6F), 1U);
  EXPECT_EQ(inbreeding_class(0.0625F + 5e-7F), 1U);
  EXPECT_EQ(inbreeding_class(0.0626F), 2U);
  EXPECT_EQ(inbreeding_class(0.125F), 2U);
  EXPECT_EQ(inbreeding_class(0.1251F), 3U);
  EXPECT_EQ(inbreeding_class(0.25F), 3U);
  EXPECT_EQ(inbreeding_class(0.2501F), 4U);
}

TEST(Cohorts, OfLargePopulationsHaveAncestorsWhenAskedForOnly) {
  // 4,001 birth years of one animal each among 5,000: 20,005,000 choices' worth of animals.
  std::string text;
  for (int i = 0; i < 5000; ++i) text += std::to_string(2000 + std::min(i, 4000)) + "\n";
  const PopulationStore large = with_inbreeding(numbered_store(text));
  EXPECT_GT(std::int64_t{5000} * 4001, most_ancestor_work);
  EXPECT_FALSE(cohorts_of(large).front().effective_ancestors.has_value());
  const PopulationStore small = with_inbreeding(numbered_store(text.substr(0, text.size() - 5 * 100)));
  EXPECT_LT(std::int64_t{4900} * 4001, most_ancestor_work);
  EXPECT_TRUE(cohorts_of(small).front().effective_ancestors.has_value());
}

}  // namespace
}  // namespace pedigreewatch::test
