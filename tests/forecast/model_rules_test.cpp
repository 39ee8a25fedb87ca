// Rules do what they say: counted from the families of the replicates themselves.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "forecast/forecast.h"
#include "forecast/forecast_summary.h"
#include "forecast/model_entry.h"
#include "forecast/real_years.h"
#include "support/simulated_breed.h"

namespace pedigreewatch::test {
namespace {

struct RuledBreed {
  PopulationStore store;
  YearGroups years;
  FamilyRecords records;
  ModelBasis basis;

  /// With so many subpopulations; animals belong to that of their dam.
  explicit RuledBreed(std::int32_t subpopulations = 0)
      : store(divided(simulate_breed(scheme(), 8), subpopulations)),
        years(group_by_year(store)),
        records(list_families(store, years, store.birth_years.last)),
        basis(make_model_basis(records, *measure_base_period(records))) {}

  static PopulationStore divided(PopulationStore store, std::int32_t subpopulations) {
    if (subpopulations == 0) return store;
    store.kept.allowed_subpopulations = subpopulations;
    store.kept.subpopulation_text = ByNumber<std::int32_t>(store.size());
    for (std::int32_t k = 1; k <= store.animal_count; ++k) {
      const std::int32_t dam = store.dam_no[k];
      store.kept.subpopulation_text[k] = dam != 0 ? store.kept.subpopulation_text[dam] : 1 + k % subpopulations;
    }
    return store;
  }

  static BreedScheme scheme() {
    BreedScheme made;
    made.sires_a_year = 5;
    made.dams_a_year = 20;
    made.has_popular_sires = true;
    return made;
  }
};

struct SeenFamily {
  std::int32_t year = 0;
  ModelFamily family;
};

/// Lives some years in some replicates, and hands each replicate's families to the test.
template <typename Look>
void live(const RuledBreed& begun, const BreedingRules& rules, Look&& look) {
  for (std::int32_t replicate = 0; replicate < 4; ++replicate) {
    ModelHerd model = begin_herd(begun.basis, rules, 1, replicate, nullptr);
    std::vector<SeenFamily> seen;
    for (std::int32_t year = begun.records.last_year + 1; year <= begun.records.last_year + 12; ++year) {
      ASSERT_TRUE(live_year(model, year));
      for (std::size_t k = model.first_of_year; k < model.families.size(); ++k)
        seen.push_back({year, model.families[k]});
    }
    ASSERT_GT(seen.size(), 60U);
    look(model, seen);
  }
}

std::int32_t most_of(const std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t>& counts) {
  std::int32_t most = 0;
  for (const auto& [key, count] : counts) most = std::max(most, count);
  return most;
}

TEST(ModelRules, KeepToLittersAYear) {
  const RuledBreed begun;
  for (const std::int32_t limit : {3, 6}) {
    BreedingRules rules;
    rules.litters_a_year = limit;
    live(begun, rules, [&](const ModelHerd&, const std::vector<SeenFamily>& seen) {
      std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t> counts;
      for (const SeenFamily& one : seen) {
        if (one.family.sire != 0) ++counts[{one.family.sire, one.year}];
      }
      EXPECT_EQ(most_of(counts), limit);  // it is reached: without the rule they have more
    });
  }
}

TEST(ModelRules, KeepToLittersInLifeOfThoseThatWereInUseToo) {
  const RuledBreed begun;
  BreedingRules rules;
  rules.litters_in_life = 8;
  live(begun, rules, [&](const ModelHerd& model, const std::vector<SeenFamily>& seen) {
    std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t> counts;
    for (const Family& family : begun.records.families) {
      const std::int32_t sire = begun.basis.ancestors.number_of_animal[family.sire];
      if (sire != 0) ++counts[{sire, 0}];
    }
    const auto before = counts;
    for (const SeenFamily& one : seen) {
      if (one.family.sire == 0) continue;
      const std::int32_t now = ++counts[{one.family.sire, 0}];
      EXPECT_LE(now, 8) << one.family.sire << " of " << model.pedigree.count();
    }
    EXPECT_NE(before, counts);
  });
}

TEST(ModelRules, MakeNoMatingAboveF) {
  const RuledBreed begun;
  float most = 0.0F;
  for (const double limit : {1.0, 0.2}) {
    BreedingRules rules;
    rules.most_f = limit;
    most = 0.0F;
    live(begun, rules, [&](const ModelHerd&, const std::vector<SeenFamily>& seen) {
      for (const SeenFamily& one : seen) most = std::max(most, one.family.f);
    });
    if (limit == 1.0) {
      EXPECT_GT(most, 0.2F);  // otherwise the rule would have nothing to do
    }
  }
  EXPECT_LE(most, 0.2F);
}

TEST(ModelRules, LimitMatingsBetweenOffspring) {
  const RuledBreed begun;
  BreedingRules rules;
  rules.offspring_matings = 0;
  live(begun, rules, [&](const ModelHerd& model, const std::vector<SeenFamily>& seen) {
    for (const SeenFamily& one : seen) {
      const std::int32_t sire = one.family.sire, dam = one.family.dam;
      for (const std::int32_t parent : {model.pedigree.sire[sire], model.pedigree.dam[sire]}) {
        EXPECT_FALSE(parent != 0 && (model.pedigree.sire[dam] == parent || model.pedigree.dam[dam] == parent));
      }
    }
  });
}

// With litters of one a herd of such dams cannot last: two years are enough to see it.
// A herd that a rule makes large is walked through: a table of it would need all memory.
TEST(ModelRules, HaveNoTableOfALargeHerd) {
  const RuledBreed begun;
  const auto rows = static_cast<std::int32_t>(std::ssize(begun.basis.table.animal_of));
  const auto with_imports = [&](std::int32_t imports) {
    BreedingRules rules;
    rules.imports.of_females = imports;
    return has_table(begun.basis, rules, 10);
  };
  const std::int32_t most = (8192 - rows) / 20;
  EXPECT_TRUE(with_imports(most));
  EXPECT_FALSE(with_imports(most + 1));
  BreedingRules rules;
  rules.trend = 0.5;
  EXPECT_TRUE(has_table(begun.basis, rules, 1));
  EXPECT_FALSE(has_table(begun.basis, rules, 20000 / rows));
  std::vector<BreedingRules> scenarios(2);
  scenarios[1].imports.of_females = most + 1;
  ForecastSettings settings;
  settings.years = 2;
  settings.replicates = 2;
  const Forecast forecast = make_forecast(begun.basis, scenarios, settings);
  for (const ReplicateYears& years : forecast.scenarios[1].replicates) {
    ASSERT_EQ(years.size(), 2U);
    EXPECT_LT(years[1].kinship.mean_f, forecast.scenarios[0].replicates[0][1].kinship.mean_f);
  }
  GrowingForecast growing = begin_forecast(begun.basis, scenarios, settings);  // whose herds are of both kinds too
  EXPECT_TRUE(grow_forecast(growing));
  EXPECT_FALSE(grow_forecast(growing));
  for (std::size_t scenario = 0; scenario < 2; ++scenario) {
    for (std::size_t k = 0; k < 2; ++k) {
      EXPECT_EQ(growing.forecast.scenarios[scenario].replicates[k][1].kinship.mean_f,
                forecast.scenarios[scenario].replicates[k][1].kinship.mean_f);
    }
  }
}

TEST(ModelRules, CountMatingsBetweenOffspringOfAYear) {
  const RuledBreed begun;
  std::int32_t most_without = 0;
  for (const std::int32_t limit : {1000, 2}) {
    BreedingRules rules;
    rules.offspring_matings = limit;
    live(begun, rules, [&](const ModelHerd& model, const std::vector<SeenFamily>& seen) {
      std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t> counts;
      for (const SeenFamily& one : seen) {
        const std::int32_t sire = one.family.sire, dam = one.family.dam;
        for (const std::int32_t parent : {model.pedigree.sire[sire], model.pedigree.dam[sire]}) {
          const bool is_common = model.pedigree.sire[dam] == parent || model.pedigree.dam[dam] == parent;
          if (parent != 0 && is_common) ++counts[{parent, one.year}];
        }
      }
      if (limit == 1000) most_without = std::max(most_without, most_of(counts));
      if (limit == 2) {
        EXPECT_LE(most_of(counts), 2);
      }
    });
  }
  EXPECT_GT(most_without, 2);  // otherwise the rule would have nothing to do
}

// Without a table a kinship is near at first; the limit is on the exact one.
TEST(ModelRules, MakeNoMatingAboveFWhereKinshipsAreWalkedFor) {
  RuledBreed begun;
  begun.basis.table = {};
  AncestorWalk walk = make_basis_walk(begun.basis);
  BreedingRules rules;
  rules.most_f = 0.2;
  for (std::int32_t replicate = 0; replicate < 4; ++replicate) {
    ModelHerd model = begin_herd(begun.basis, rules, 1, replicate, &walk);
    for (std::int32_t year = 1; year <= 12; ++year) ASSERT_TRUE(live_year(model, begun.records.last_year + year));
    ASSERT_GT(model.families.size(), 60U);
    for (const ModelFamily& family : model.families) EXPECT_LE(family.f, 0.2F);
    shorten_walk(walk, begun.basis.pedigree.count());
  }
}

double mean_kinship_by_table(const ModelHerd& model, std::int32_t sire, std::int32_t dam) {
  double sum = 0.0, young = 0.0;
  for (const YoungOf& family : model.youngest) {
    young += family.young;
    for (const std::int32_t a : {sire, dam}) {
      for (const std::int32_t b : {family.sire, family.dam}) {
        if (a != 0 && b != 0) sum += 0.25 * family.young * double{model.table.between(a, b)};
      }
    }
  }
  return sum / young;
}

/// Mean kinships of all candidates of a sex that were born in this row's year.
std::vector<double> kinships_of_age_mates(const RuledBreed& begun, const ModelHerd& model, std::size_t row, Sex sex) {
  std::vector<double> kinships;
  for (const Descent descent : {Descent::founder, Descent::half_known, Descent::known, Descent::deep}) {
    for (const std::int32_t candidate : model.candidates[row].lists[list_of(0, sex, descent)]) {
      std::int32_t sire = 0, dam = 0;
      if (candidate >= 0) {
        sire = model.families[static_cast<std::size_t>(candidate)].sire;
        dam = model.families[static_cast<std::size_t>(candidate)].dam;
      } else {
        sire = begun.basis.ancestors.number_of_animal[begun.store.sire_no[-candidate]];
        dam = begun.basis.ancestors.number_of_animal[begun.store.dam_no[-candidate]];
      }
      kinships.push_back(mean_kinship_by_table(model, sire, dam));
    }
  }
  return kinships;
}

/// Which part of its age mates an animal that has come into use is no nearer to the youngest than.
double part_not_below(const RuledBreed& begun, const ModelHerd& before, const ModelHerd& after, std::int32_t animal,
                      Sex sex) {
  const std::int32_t born = after.birth_year[animal];
  const std::vector<double> mates =
      kinships_of_age_mates(begun, before, static_cast<std::size_t>(born - begun.basis.first_candidate_year), sex);
  const double own = mean_kinship_by_table(before, after.pedigree.sire[animal], after.pedigree.dam[animal]);
  double others = -1.0;  // it is one of them
  for (const double kinship : mates) others += kinship >= own - 1e-6 ? 1.0 : 0.0;
  return others / static_cast<double>(mates.size());
}

TEST(ModelRules, TakeParentsOfLowMeanKinship) {
  const RuledBreed begun;
  for (const double limit : {0.0, 60.0}) {
    BreedingRules rules;
    rules.above_percent = limit;
    double least = 1.0;
    ModelHerd model = begin_herd(begun.basis, rules, 1, 0, nullptr);
    for (std::int32_t year = begun.records.last_year + 1; year <= begun.records.last_year + 6; ++year) {
      const ModelHerd before = model;
      ASSERT_TRUE(live_year(model, year));
      for (const Sex sex : {male, female}) {
        for (const ModelParent& parent : model.parents.of(sex)) {
          if (parent.animal > before.pedigree.count()) {
            least = std::min(least, part_not_below(begun, before, model, parent.animal, sex));
          }
        }
      }
    }
    if (limit == 0.0) {
      EXPECT_LT(least, 0.3);  // otherwise the rule would have nothing to do
    } else {
      EXPECT_GE(least, 0.6);
    }
  }
}

/// The subpopulation that an animal was born in; 0 where its parents do not tell.
GroupNo birth_group(const RuledBreed& begun, const ModelHerd& model, std::int32_t animal) {
  if (animal <= begun.basis.ancestors.count()) return begun.records.group[begun.basis.ancestors.position[animal]];
  for (const ModelFamily& family : model.families) {
    if (family.dam != 0 && family.dam == model.pedigree.dam[animal]) return family.group;
  }
  return begun.records.group[begun.basis.ancestors.position[model.pedigree.dam[animal]]];
}

TEST(ModelRules, KeepToTheExchange) {
  const RuledBreed begun(3);
  ASSERT_EQ(begun.records.groups, 4U);
  for (const Exchange exchange : {Exchange::closed, Exchange::rotation}) {
    BreedingRules rules;
    rules.exchange = exchange;
    live(begun, rules, [&](const ModelHerd& model, const std::vector<SeenFamily>& seen) {
      for (const SeenFamily& one : seen) {
        // Dams of the first years may have come from elsewhere; their young are of the group of the family.
        if (one.family.sire <= begun.basis.pedigree.count()) continue;
        const GroupNo before = one.family.group == 1 ? 3 : one.family.group - 1;
        EXPECT_EQ(birth_group(begun, model, one.family.sire), exchange == Exchange::closed ? one.family.group : before);
      }
    });
  }
}

// Without young males of its own a closed subpopulation gets none from elsewhere; as bred now it does.
TEST(ModelRules, TakeNoSireOfAnotherSubpopulation) {
  const RuledBreed begun(3);
  for (const Exchange exchange : {Exchange::present, Exchange::closed}) {
    BreedingRules rules;
    rules.exchange = exchange;
    ModelHerd model = begin_herd(begun.basis, rules, 1, 0, nullptr);
    for (CandidateYear& year : model.candidates) {
      for (const Descent descent : {Descent::founder, Descent::half_known, Descent::known, Descent::deep}) {
        year.lists[list_of(1, male, descent)].clear();
      }
    }
    RandomStream random = make_stream(1);
    const std::int32_t career = draw_entry(begun.basis.base, male, 1, random);
    EXPECT_EQ(enter_parent(model, male, 1, begun.records.last_year + 1, career, random), exchange == Exchange::present);
    EXPECT_TRUE(enter_parent(model, male, 2, begun.records.last_year + 1, career, random));
  }
}

TEST(ModelRules, GiveADamOneLitter) {
  const RuledBreed begun;
  BreedingRules rules;
  rules.has_one_litter = true;
  rules.litters = {0.2, 0.0};
  ModelHerd model = begin_herd(begun.basis, rules, 1, 0, nullptr);
  for (std::int32_t year = 1; year <= 2; ++year) ASSERT_TRUE(live_year(model, begun.records.last_year + year));
  std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t> counts;
  for (const ModelFamily& family : model.families) ++counts[{family.dam, 0}];
  EXPECT_GT(counts.size(), 10U);
  EXPECT_EQ(most_of(counts), 1);
}

TEST(ModelRules, WaitForTheLeastAge) {
  const RuledBreed begun;
  BreedingRules rules;
  rules.least_age = {3, 4};
  rules.imports = {1, 1};
  live(begun, rules, [&](const ModelHerd& model, const std::vector<SeenFamily>& seen) {
    for (const SeenFamily& one : seen) {
      // Those that were in use before may be younger.
      if (one.family.sire > begun.basis.pedigree.count()) {
        EXPECT_GE(one.year - model.birth_year[one.family.sire], 3);
      }
      if (one.family.dam > begun.basis.pedigree.count()) {
        EXPECT_GE(one.year - model.birth_year[one.family.dam], 4);
      }
    }
  });
}

TEST(ModelRules, BringImportsIntoUseAsRelatedAsTheyAre) {
  const RuledBreed begun;
  BreedingRules rules;
  rules.imports = {2, 1};
  rules.import_kinship = 0.125;
  live(begun, rules, [&](const ModelHerd& model, const std::vector<SeenFamily>&) {
    std::vector<std::int32_t> imports;
    for (std::int32_t j = begun.basis.pedigree.count() + 1; j <= model.pedigree.count(); ++j) {
      if (model.pedigree.sire[j] == begun.basis.origin) imports.push_back(j);
    }
    EXPECT_EQ(imports.size(), 36U);  // three in each of twelve years
    for (const std::int32_t a : imports) {
      EXPECT_EQ(model.pedigree.f[a], 0.0F);
      for (const std::int32_t b : imports) {
        if (model.table.row_of[a] == 0 || model.table.row_of[b] == 0) continue;
        EXPECT_FLOAT_EQ(model.table.between(a, b), a == b ? 0.5F : 0.125F);
      }
    }
  });
}

TEST(ModelRules, ChangeNumbersOfSiresAndLitters) {
  RuledBreed begun;
  begun.basis.base.paths.clear();  // so that they are those of the base years
  BreedingRules rules;
  rules.sires = {0.0, 25.0};
  rules.litters = {2.0, 0.0};
  double litters = 0.0;
  for (const std::vector<GroupYear>& year : begun.basis.base.base_years()) {
    litters += 2.0 * year.front().with_both / begun.basis.base.length();
  }
  double found = 0.0;
  live(begun, rules, [&](const ModelHerd& model, const std::vector<SeenFamily>& seen) {
    EXPECT_EQ(model.year.sires, 25);
    found += static_cast<double>(seen.size()) / 12.0 / 4.0;
  });
  EXPECT_NEAR(found, litters, 0.05 * litters);
}

TEST(ModelRules, UseFewerSiresThanGoOn) {
  const RuledBreed begun;
  BreedingRules rules;
  rules.sires = {0.0, 3.0};
  rules.imports.of_males = 1;
  live(begun, rules, [&](const ModelHerd& model, const std::vector<SeenFamily>& seen) {
    std::map<std::int32_t, std::map<std::int32_t, std::int32_t>> sires;  // by year
    std::map<std::int32_t, std::int32_t> imports;
    for (const SeenFamily& one : seen) {
      if (one.family.sire == 0) continue;
      const bool is_first = ++sires[one.year][one.family.sire] == 1;
      const bool is_import = model.pedigree.sire[one.family.sire] == begun.basis.origin;
      if (is_first && is_import && imports.count(one.family.sire) == 0) imports[one.family.sire] = one.year;
    }
    for (const auto& [year, of_year] : sires) EXPECT_EQ(of_year.size(), 3U) << year;
    EXPECT_EQ(imports.size(), 12U);  // each is used in its first year
  });
}

Forecast forecast_of(const RuledBreed& begun, const std::vector<BreedingRules>& scenarios) {
  ForecastSettings settings;
  settings.years = 15;
  settings.replicates = 20;
  return make_forecast(begun.basis, scenarios, settings);
}

TEST(Summarise, ComparesReplicateByReplicate) {
  const RuledBreed begun;
  std::vector<BreedingRules> scenarios(3);
  scenarios[2].imports = {4, 4};
  const Forecast forecast = forecast_of(begun, scenarios);
  const std::vector<ScenarioSummary> summaries = summarise(forecast);
  EXPECT_FALSE(summaries[0].of(SummaryFigure::last_kinship).difference.has_value());
  // The same rules have the same random numbers.
  EXPECT_EQ(summaries[1].of(SummaryFigure::last_kinship).difference->low, 0.0);
  EXPECT_EQ(summaries[1].of(SummaryFigure::last_kinship).difference->high, 0.0);
  EXPECT_LT(summaries[2].of(SummaryFigure::last_kinship).difference->high, 0.0);
  EXPECT_LT(summaries[2].of(SummaryFigure::kinship_rate_per_year).value->median,
            summaries[0].of(SummaryFigure::kinship_rate_per_year).value->median);
  EXPECT_FALSE(summaries[0].of(SummaryFigure::diversity_kept_25).value.has_value());  // not so many years
  const auto kept = figure_of(forecast, forecast.scenarios[0].replicates[0], SummaryFigure::diversity_kept_10);
  EXPECT_DOUBLE_EQ(*kept,
                   (1.0 - forecast.scenarios[0].replicates[0][9].kinship.with_self) / (1.0 - forecast.start.with_self));
}

TEST(Summarise, FindsARateByHand) {
  Forecast forecast;
  ReplicateYears years(3);
  double left = 0.9;
  for (ModelYear& year : years) {
    year.kinship.mean_f = 1.0 - left;
    year.kinship.without_self = 1.0 - left * left;
    year.parent_age = 2.0;
    left *= 0.99;
  }
  EXPECT_NEAR(*figure_of(forecast, years, SummaryFigure::inbreeding_rate_per_year), 0.01, 1e-12);
  EXPECT_NEAR(*figure_of(forecast, years, SummaryFigure::inbreeding_rate_per_generation), 1.0 - 0.99 * 0.99, 1e-12);
  EXPECT_NEAR(*figure_of(forecast, years, SummaryFigure::kinship_rate_per_year), 1.0 - 0.99 * 0.99, 1e-12);
  const double rate = 1.0 - 0.99 * 0.99 * 0.99 * 0.99;
  EXPECT_NEAR(*figure_of(forecast, years, SummaryFigure::effective_size), 0.5 / rate, 1e-9);
}

TEST(CompareWithTruth, ComparesWhatIsShown) {
  ScenarioForecast scenario;
  scenario.replicates.assign(2, ReplicateYears(2));
  for (const double f : {0.0105, 0.0195}) {
    for (ModelYear& year : scenario.replicates[f < 0.015 ? 0 : 1]) year.kinship.mean_f = f;
  }
  std::vector<RealYear> truth(2);
  for (std::size_t k = 0; k < 2; ++k) truth[k].year = 2000 + static_cast<std::int32_t>(k);
  truth[0].figures.kinship.mean_f = 0.01954;  // 1.95 %
  truth[1].figures.kinship.mean_f = 0.01956;  // 1.96 %
  const Foretold told = compare_with_truth(scenario, 2000, truth, ForecastFigure::mean_f);
  EXPECT_EQ(told.within, 1);
  EXPECT_EQ(told.above, 1);
  EXPECT_FALSE(told.is_last_within);
}

TEST(CompareWithTruth, CountsYearsWithinAboveAndBelow) {
  ScenarioForecast scenario;
  scenario.replicates.assign(2, ReplicateYears(4));
  for (ModelYear& year : scenario.replicates[0]) year.kinship.mean_f = 0.005;
  for (ModelYear& year : scenario.replicates[1]) year.kinship.mean_f = 0.095;
  std::vector<RealYear> truth(5);
  const std::vector<double> f = {0.5, 0.004, 0.006, 0.094, 0.096};
  for (std::size_t k = 0; k < truth.size(); ++k) {
    truth[k].year = 1999 + static_cast<std::int32_t>(k);
    truth[k].figures.kinship.mean_f = f[k];
  }
  const Foretold told = compare_with_truth(scenario, 2000, truth, ForecastFigure::mean_f);
  EXPECT_EQ(told.years, 4);
  EXPECT_EQ(told.within, 2);
  EXPECT_EQ(told.above, 1);
  EXPECT_EQ(told.below, 1);
  EXPECT_FALSE(told.is_last_within);
}

}  // namespace
}  // namespace pedigreewatch::test
