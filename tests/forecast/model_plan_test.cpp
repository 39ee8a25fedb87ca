// The matings of planned years, against the plan that is made for the same animals of the store.
#include "forecast/model_plan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "forecast/forecast.h"
#include "planning/plan.h"
#include "support/simulated_breed.h"

namespace pedigreewatch::test {
namespace {

struct PlannedBreed {
  PopulationStore store;
  YearGroups years;
  FamilyRecords records;
  ModelBasis basis;

  explicit PlannedBreed(double unknown_parents = 0.0)
      : store(simulate_breed(scheme(unknown_parents), 3)),
        years(group_by_year(store)),
        records(list_families(store, years, store.birth_years.last)),
        basis(make_model_basis(records, *measure_base_period(records))) {}

  static BreedScheme scheme(double unknown_parents) {
    BreedScheme made;
    made.sires_a_year = 5;
    made.dams_a_year = 12;
    made.unknown_parents = unknown_parents;
    return made;
  }
};

/// Those of a sex that are as old as parents are in the year behind the last one, and have been used or may still be.
std::vector<std::int32_t> planned_animals(const PlannedBreed& breed, Sex sex) {
  const std::int32_t year = breed.records.last_year + 1;
  const BreedingAges ages = *breeding_ages(breed.store, sex);
  std::vector<std::int32_t> animals;
  for (std::int32_t k = 1; k <= breed.store.animal_count; ++k) {
    const std::int32_t age = year - breed.store.birth_year[k];
    const bool is_parent = std::any_of(breed.records.families.begin(), breed.records.families.end(),
                                       [&](const Family& family) { return family.sire == k || family.dam == k; });
    const bool may_come = is_parent || age <= breed.basis.base.oldest_entry.of(sex);
    if (breed.store.sex[k] == sex && age >= ages.youngest && age <= ages.oldest && may_come) animals.push_back(k);
  }
  return animals;
}

/// Mean kinship that the young get from their parents, each with itself included: of litters of one.
double kinship_of_parents(const ModelHerd& model) {
  const double young = static_cast<double>(model.youngest.size());
  double own = 0.0;
  for (const YoungOf& family : model.youngest) {
    own += 0.5 - 0.25 * (double{model.pedigree.f[family.sire]} + double{model.pedigree.f[family.dam]});
  }
  return model.year.kinship.with_self - 0.5 * own / (young * young);
}

TEST(PlanMatings, MakesThoseThatThePlanChooses) {
  const PlannedBreed breed;
  BreedingRules rules;
  rules.has_plan = true;
  for (const std::int32_t most : {3, 1000}) {
    rules.litters_a_year = most;
    ModelHerd model = begin_herd(breed.basis, rules, 1, 0, nullptr);
    ASSERT_TRUE(live_year(model, breed.records.last_year + 1));
    PlanRequest request;
    request.males = planned_animals(breed, male);
    request.females = planned_animals(breed, female);
    request.matings = static_cast<std::int64_t>(model.families.size());
    request.most_per_male = most;
    const Plan plan = make_plan(breed.store, request);
    ASSERT_EQ(plan.obstacle, PlanObstacle::none);
    ASSERT_GT(request.matings, 20);
    // Whole numbers are improved from the best shares by single exchanges: two searches may end a little apart.
    const PlanComparison& planned = *plan.of(PlanWay::plan);
    EXPECT_GE(kinship_of_parents(model), plan.least.mean_kinship - plan.least.certificate - 1e-7);
    EXPECT_NEAR(kinship_of_parents(model), planned.mean_kinship, 0.002 * planned.mean_kinship);
    EXPECT_LT(planned.mean_kinship, 0.97 * plan.of(PlanWay::all_alike)->mean_kinship);
    EXPECT_NEAR(model.year.kinship.mean_f, *planned.mean_f, 0.03 * *planned.mean_f);
  }
}

TEST(PlanMatings, KeepsToTheLimits) {
  const PlannedBreed breed;
  BreedingRules rules;
  rules.has_plan = true;
  rules.litters_a_year = 2;
  rules.litters_in_life = 3;
  rules.has_one_litter = true;
  rules.least_age = {3, 4};
  rules.litters = {0.3, 0.0};
  ModelHerd model = begin_herd(breed.basis, rules, 1, 0, nullptr);
  std::map<std::int32_t, std::int32_t> litters;
  for (std::int32_t year = breed.records.last_year + 1; year <= breed.records.last_year + 10; ++year) {
    ASSERT_TRUE(live_year(model, year));
    std::map<std::int32_t, std::int32_t> of_year;
    for (std::size_t k = model.first_of_year; k < model.families.size(); ++k) {
      const ModelFamily& family = model.families[k];
      EXPECT_LE(++of_year[family.sire], 2);
      ++litters[family.sire];
      EXPECT_EQ(++litters[family.dam], 1);
      const std::int32_t sire_age = year - model.birth_year[family.sire];
      const std::int32_t dam_age = year - model.birth_year[family.dam];
      EXPECT_EQ(sire_age, 3);  // sires are 2 or 3 years old, dams 2 to 5
      EXPECT_TRUE(dam_age == 4 || dam_age == 5) << dam_age;
    }
  }
  for (const auto& [animal, count] : litters) {
    if (animal > breed.basis.pedigree.count()) {
      EXPECT_LE(count, 3) << animal;
    }
  }
}

TEST(PlanMatings, UsesNobodyOfUnknownParents) {
  const PlannedBreed breed(0.1);
  BreedingRules rules;
  rules.has_plan = true;
  rules.imports.of_males = 1;
  ModelHerd model = begin_herd(breed.basis, rules, 1, 0, nullptr);
  std::int32_t imports = 0;
  for (std::int32_t year = breed.records.last_year + 1; year <= breed.records.last_year + 6; ++year) {
    ASSERT_TRUE(live_year(model, year));
    for (std::size_t k = model.first_of_year; k < model.families.size(); ++k) {
      const ModelFamily& family = model.families[k];
      if (family.sire == 0 && family.dam == 0) continue;  // born of unknown parents, as before
      if (model.pedigree.sire[family.sire] == breed.basis.origin) ++imports;
      for (const std::int32_t parent : {family.sire, family.dam}) {
        EXPECT_TRUE(model.pedigree.sire[parent] != 0 && model.pedigree.dam[parent] != 0) << parent;
      }
    }
  }
  EXPECT_GT(imports, 5);
}

TEST(PlanMatings, KeepKinshipLowerThanThePractice) {
  const PlannedBreed breed;
  std::vector<BreedingRules> scenarios(2);
  scenarios[1].has_plan = true;
  ForecastSettings settings;
  settings.years = 10;
  settings.replicates = 4;
  const Forecast forecast = make_forecast(breed.basis, scenarios, settings);
  const auto& present = forecast.scenarios[0].replicates;
  const auto& planned = forecast.scenarios[1].replicates;
  for (std::size_t k = 0; k < present.size(); ++k) {
    ASSERT_EQ(planned[k].size(), 10U);
    EXPECT_LT(planned[k].back().kinship.without_self, present[k].back().kinship.without_self);
    EXPECT_EQ(planned[k].back().refused.lost, 0);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
