// Ages at first use, lengths of use and evenness that are said are those of the simulated herds: counted from the
// families of the replicates.
#include "forecast/said_lives.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "forecast/model_fit.h"
#include "forecast/said_practice.h"
#include "forecast/use_evenness.h"
#include "support/sanitizers.h"
#include "support/simulated_breed.h"

namespace pedigreewatch::test {
namespace {

struct LivingBreed {
  PopulationStore store;
  YearGroups years;
  FamilyRecords records;
  BasePeriod base;

  /// A fifth of the sires is used four times as much.
  LivingBreed()
      : store(simulate_breed(scheme(), 5)),
        years(group_by_year(store)),
        records(list_families(store, years, store.birth_years.last)),
        base(*measure_base_period(records)) {}

  static BreedScheme scheme() {
    BreedScheme made;
    made.sires_a_year = 12;
    made.dams_a_year = 40;
    made.has_popular_sires = true;
    made.litter = 2;
    return made;
  }

  /// Fitted, and as is said.
  ModelBasis basis(const BreedingRules& present) const {
    BasePeriod changed = base;
    apply_said_figures(records, present.said, changed);
    ModelBasis made = make_model_basis(records, changed);
    fit_use(made, 1);
    const SaidFit fit = fit_as_said(made, present, 1);
    EXPECT_TRUE(fit.problems.empty()) << (fit.problems.empty() ? ""
                                                               : reason_of(fit.problems[0], ToolLanguage::english));
    EXPECT_FALSE(fit.is_stopped);
    return made;
  }
};

constexpr std::int32_t years_seen = 45, years_of_use = 10;

/// What happened in a replicate, by parent.
struct SeenLife {
  std::int32_t first_year = 0, last_year = 0, birth_year = 0;
};
struct SeenHerd {
  BySex<std::map<std::int32_t, SeenLife>> lives;  ///< of those that came into use
  UseYears use;
  BySex<double> in_use = {};          ///< different parents a year, mean
  double close = 0.0, matings = 0.0;  ///< of the first years, with known parents
};

/// The parents of an animal and itself, as far as they are known.
std::set<std::int32_t> nearest_kin(const ModelPedigree& pedigree, std::int32_t animal) {
  std::set<std::int32_t> kin = {animal, pedigree.sire[animal], pedigree.dam[animal]};
  kin.erase(0);
  return kin;
}

/// Sibs and half sibs have a parent in common, and a parent is one of its young's.
bool have_near_kin_in_common(const ModelPedigree& pedigree, std::int32_t first, std::int32_t second) {
  const std::set<std::int32_t> of_second = nearest_kin(pedigree, second);
  for (const std::int32_t animal : nearest_kin(pedigree, first)) {
    if (of_second.count(animal) > 0) return true;
  }
  return false;
}

SeenHerd watch_herd(const ModelBasis& basis, std::int32_t replicate, const BreedingRules& present) {
  SeenHerd seen;
  ModelHerd herd = begin_herd(basis, present, 1, replicate, nullptr);
  const std::int32_t real = herd.pedigree.count(), begun = basis.base.last_year;
  for (std::int32_t year = begun + 1; year <= begun + years_seen; ++year) {
    EXPECT_TRUE(live_year(herd, year));
    SireLitters sires, dams;
    for (std::size_t k = herd.first_of_year; k < herd.families.size(); ++k) {
      if (herd.families[k].sire != 0) sires[herd.families[k].sire] += 1.0;
      if (herd.families[k].dam != 0) dams[herd.families[k].dam] += 1.0;
      if (year > begun + years_of_use || herd.families[k].sire == 0 || herd.families[k].dam == 0) continue;
      seen.matings += 1.0;
      if (have_near_kin_in_common(herd.pedigree, herd.families[k].sire, herd.families[k].dam)) seen.close += 1.0;
    }
    for (const Sex sex : {male, female}) {
      const SireLitters& of_sex = sex == male ? sires : dams;
      seen.in_use.of(sex) += static_cast<double>(of_sex.size()) / years_seen;
      for (const auto& [parent, litters] : of_sex) {
        if (parent <= real) continue;
        SeenLife& life = seen.lives.of(sex)[parent];
        if (life.first_year == 0) life.first_year = year;
        life.last_year = year;
        life.birth_year = herd.birth_year[parent];
      }
    }
    seen.use.push_back({sires});
  }
  return seen;
}

struct SeenMeans {
  BySex<double> first_age = {}, years_in_use = {}, in_use = {};
  UseEvenness evenness;
  double close = 0.0;
};

/// Of those who came into use in the first half of the years: the others may go on behind them.
SeenMeans means_of(const ModelBasis& basis, const BreedingRules& present) {
  constexpr std::int32_t replicates = 6;
  SeenMeans means;
  BySex<double> count = {};
  double close = 0.0, matings = 0.0;
  EvennessSums sums;
  for (std::int32_t replicate = 0; replicate < replicates; ++replicate) {
    const SeenHerd seen = watch_herd(basis, replicate, present);
    close += seen.close;
    matings += seen.matings;
    sums.add(UseYears(seen.use.begin(), seen.use.begin() + years_of_use));
    for (const Sex sex : {male, female}) {
      means.in_use.of(sex) += seen.in_use.of(sex) / replicates;
      for (const auto& [parent, life] : seen.lives.of(sex)) {
        if (life.first_year > basis.base.last_year + years_seen / 2) continue;
        count.of(sex) += 1.0;
        means.first_age.of(sex) += life.first_year - life.birth_year;
        means.years_in_use.of(sex) += life.last_year - life.first_year + 1;
      }
    }
  }
  for (const Sex sex : {male, female}) {
    means.first_age.of(sex) /= count.of(sex);
    means.years_in_use.of(sex) /= count.of(sex);
  }
  means.evenness = *sums.mean();
  means.close = close / matings;
  return means;
}

/// What the tests of a process share: the breed, its fitted practice, and what that leads to.
const LivingBreed& living_breed() {
  static const LivingBreed breed;
  return breed;
}

const ModelBasis& fitted_basis() {
  static const ModelBasis fitted = living_breed().basis({});
  return fitted;
}

const SeenMeans& means_as_now() {
  static const SeenMeans means = means_of(fitted_basis(), {});
  return means;
}

/// Fitted to what is said, and lived.
SeenMeans means_with(const BreedingRules& present) {
  return means_of(living_breed().basis(present), present);
}

BreedingRules present_with(std::initializer_list<std::pair<std::string_view, std::string_view>> figures) {
  BreedingRules present;
  for (const auto& [name, value] : figures) {
    EXPECT_EQ(reason_of(take_rule(name, value, present), ToolLanguage::english), "") << name;
  }
  return present;
}

TEST(SaidLives, ParentsComeIntoUseAtTheAgeThatIsSaid) {
  const SeenMeans& as_now = means_as_now();
  const std::vector<std::pair<std::string, std::string>> ages = {{"3.5", "1.3"}, {"1", "5"}, {"2.4", "9"}};
  for (const auto& [sires, dams] : std::span(ages).first(cases(3, 1))) {
    const BreedingRules present = present_with({{"first-age-sires", sires}, {"first-age-dams", dams}});
    const SeenMeans means = means_with(present);
    EXPECT_NEAR(means.first_age.of_males, std::stod(sires), 0.03 * std::stod(sires));
    EXPECT_NEAR(means.first_age.of_females, std::stod(dams), 0.03 * std::stod(dams));
    for (const Sex sex : {male, female}) {  // who begins later goes on later
      EXPECT_NEAR(means.years_in_use.of(sex), as_now.years_in_use.of(sex), 0.05 * as_now.years_in_use.of(sex));
    }
  }
}

TEST(SaidLives, ParentsStayInUseAsLongAsIsSaid) {
  const SeenMeans& as_now = means_as_now();
  const std::vector<std::pair<std::string, std::string>> lengths = {{"3", "1.5"}, {"1", "5"}, {"5.5", "9"}};
  for (const auto& [sires, dams] : std::span(lengths).first(cases(3, 1))) {
    const BreedingRules present = present_with({{"years-in-use-sires", sires}, {"years-in-use-dams", dams}});
    const SeenMeans means = means_with(present);
    EXPECT_NEAR(means.years_in_use.of_males, std::stod(sires), 0.05 * std::stod(sires));
    EXPECT_NEAR(means.years_in_use.of_females, std::stod(dams), 0.05 * std::stod(dams));
    for (const Sex sex : {male, female}) {
      EXPECT_NEAR(means.in_use.of(sex), as_now.in_use.of(sex), 0.05 * as_now.in_use.of(sex));
    }
  }
}

TEST(SaidLives, SiresAreUsedAsUnevenlyAsIsSaid) {
  BreedingRules present;
  present.said.same_sire_in_year = 0.08;
  present.said.same_sire_in_life = 0.011;
  const UseEvenness both = means_with(present).evenness;
  EXPECT_NEAR(both.in_year, 0.08, 0.05 * 0.08);
  EXPECT_NEAR(both.in_life, 0.011, 0.1 * 0.011);
  constexpr std::array chances = {0.05, 0.2};
  for (const double year : std::span(chances).first(cases(2, 0))) {
    present.said = {};
    present.said.same_sire_in_year = year;
    EXPECT_NEAR(means_with(present).evenness.in_year, year, 0.05 * year);
  }
}

TEST(SaidLives, SiresThatServeAsLongAsIsSaidAreUsedAsUnevenlyInAYearAsBefore) {
  BreedingRules present;
  present.said.same_sire_in_life = 0.009;
  const UseEvenness shorter = means_with(present).evenness;
  EXPECT_NEAR(shorter.in_life, 0.009, 0.1 * 0.009);
  EXPECT_NEAR(shorter.in_year, means_as_now().evenness.in_year, 0.05 * means_as_now().evenness.in_year);
}

/// What is wrong with a chance in a year that is said, with what the herd comes to.
std::vector<RuleProblem> problems_of(const ModelBasis& fitted, double in_year) {
  ModelBasis basis = fitted;
  BreedingRules present;
  present.said.same_sire_in_year = in_year;
  present.written = {{"same-sire-in-year", "1%", 7}};
  return fit_as_said(basis, present, 1).problems;
}

// Sires that are used as evenly as whole litters allow still have some chance, and none below it can be reached.
TEST(SaidLives, WhatCannotBeReachedIsRefused) {
  const ModelBasis& fitted = fitted_basis();
  const std::vector<RuleProblem> problems = problems_of(fitted, 0.01);
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(problems[0].line, 7);
  EXPECT_EQ(problems[0].text, "same-sire-in-year = 1%");
  const double least = std::stod(problems[0].values.front()) / 100.0;
  EXPECT_GT(least, 0.02);
  EXPECT_LT(least, 0.05);
  EXPECT_EQ(reason_of(problems[0], ToolLanguage::english),
            "this cannot be reached: with these sires and litters it comes to " + problems[0].values.front() + "%");
  if (has_address_sanitizer) return;  // what is on either side of the limit is worked out as this was
  EXPECT_TRUE(problems_of(fitted, least / 1.045).empty());
  EXPECT_EQ(problems_of(fitted, least / 1.055).size(), 1U);
}

TEST(SaidLives, MatesAreAsNearAsIsSaid) {
  const double as_now = means_as_now().close;
  const std::array shares = {0.7 * as_now, 2.0 * as_now};
  for (const double share : std::span(shares).first(cases(2, 1))) {
    BreedingRules present;
    present.said.close_matings = share;
    EXPECT_NEAR(means_with(present).close, share, 0.15 * share) << as_now;
  }
  ModelBasis basis = fitted_basis();
  BreedingRules present;
  present.said.close_matings = 0.9;  // there are not so many relatives
  ASSERT_EQ(fit_as_said(basis, present, 1).problems.size(), 1U);
}

TEST(SetFirstAges, MovesAllAgesAlike) {
  BasePeriod base;
  for (const std::int32_t age : {2, 4, 1, 2, 9}) {
    Career career;
    career.first_age = age;
    career.use = {1.0F};
    base.careers.of_males.careers.push_back(career);
  }
  base.careers.of_males.oldest = 9;
  base.entries.of_males = {0, 1, 2, 3};  // 2.25 years in the mean
  base.oldest_entry.of_males = 4;
  set_first_ages(male, 4.25, base);
  EXPECT_EQ(base.said_ages.of_males, (std::vector<std::int32_t>{4, 6, 3, 4, 6}));
  EXPECT_EQ(base.oldest_entry.of_males, 6);
  EXPECT_EQ(base.first_age(male, 1), 6);
  base.oldest_entry.of_males = 4;
  set_first_ages(male, 2.75, base);  // half a year more: two of them a year older
  std::int32_t sum = 0;
  for (const std::int32_t number : base.entries.of_males) sum += base.first_age(male, number);
  EXPECT_EQ(sum, 11);
  set_first_ages(male, 1.0, base);
  EXPECT_EQ(base.first_age(male, 1), 1);
}

// With as many dams in use as before, twice the years in use mean that half as many come into use.
TEST(SetYearsInUse, BringsFewerIntoUseWhereTheyStayLonger) {
  const LivingBreed& breed = living_breed();
  ModelBasis basis = make_model_basis(breed.records, breed.base);
  const double mean = mean_years_in_use(basis.base, female, 1.0, 1);
  const auto entered = [&] {
    double sum = 0.0;
    for (const std::vector<GroupYear>& year : basis.base.years) sum += year.front().entered.of_females;
    return sum;
  };
  const double before = entered(), going_on = basis.going_on.of_females.front();
  set_years_in_use(female, 2.0 * mean, 1, basis);
  EXPECT_NEAR(basis.pace.of_females, 0.5, 1e-6);
  EXPECT_EQ(basis.pace.of_males, 1.0);
  EXPECT_NEAR(entered(), 0.5 * before, 1.0);
  const double fewer = 0.5 * before / static_cast<double>(basis.base.years.size());
  EXPECT_NEAR(basis.going_on.of_females.front(), going_on + fewer, 0.1);
}

}  // namespace
}  // namespace pedigreewatch::test
