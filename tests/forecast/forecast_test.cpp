// The forecast of ideal herds against theory and against a plain simulation, and whether its figures are those of the
// pedigree that it has made.
#include "forecast/forecast.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "forecast/model_fit.h"
#include "forecast/use_evenness.h"
#include "support/diversity_pedigrees.h"
#include "support/ideal_herd.h"
#include "support/pedigrees.h"
#include "support/sanitizers.h"
#include "support/simulated_breed.h"

namespace pedigreewatch::test {
namespace {

/// A store with what a forecast begins with. It stays where it is.
struct Begun {
  PopulationStore store;
  YearGroups years;
  FamilyRecords records;

  explicit Begun(PopulationStore made)
      : store(std::move(made)),
        years(group_by_year(store)),
        records(list_families(store, years, store.birth_years.last)) {}

  ModelBasis basis() const { return make_model_basis(records, *measure_base_period(records)); }
};

struct MeanAndError {
  double mean = 0.0, error = 0.0;  ///< standard error of the mean
};

MeanAndError describe(const std::vector<double>& values) {
  MeanAndError result;
  const auto count = static_cast<double>(values.size());
  for (const double value : values) result.mean += value / count;
  double squares = 0.0;
  for (const double value : values) squares += (value - result.mean) * (value - result.mean);
  result.error = std::sqrt(squares / (count - 1.0) / count);
  return result;
}

/// Which part of 1 - F is lost a year, between two years ahead; F is the mean of all replicates, as theory speaks of
/// it.
double rate_of(const std::vector<std::vector<double>>& f_of_years, std::size_t from, std::size_t to) {
  double first = 0.0, last = 0.0;
  for (const std::vector<double>& f : f_of_years) {
    first += f[from] / static_cast<double>(f_of_years.size());
    last += f[to] / static_cast<double>(f_of_years.size());
  }
  return -std::expm1((std::log1p(-last) - std::log1p(-first)) / static_cast<double>(to - from));
}

double rate_of(const ScenarioForecast& scenario, std::size_t from, std::size_t to) {
  std::vector<std::vector<double>> f_of_years;
  for (const ReplicateYears& years : scenario.replicates) {
    std::vector<double>& f = f_of_years.emplace_back();
    for (const ModelYear& year : years) f.push_back(year.kinship.mean_f);
  }
  return rate_of(f_of_years, from, to);
}

// The few years of one herd tell its practice with an error of its own: several are gone on with.
void expect_rates_of(const IdealHerd& herd) {
  constexpr std::uint64_t each = 10;
  constexpr int all_herds = 40, herds = cases(all_herds, 5);
  std::vector<double> model_rates, plain_rates;
  for (std::uint64_t seed = 1; seed <= std::uint64_t{herds}; ++seed) {
    const Begun begun(make_ideal_herd(herd, seed));
    ModelBasis basis = begun.basis();
    fit_use(basis, seed);
    ForecastSettings settings;
    settings.years = 18;
    settings.replicates = each;
    settings.seed = 977 * seed;  // otherwise all herds would have the same luck
    const BreedingRules present;
    const Forecast forecast = make_forecast(basis, {&present, 1}, settings);
    std::vector<std::vector<double>> plain;
    for (std::uint64_t k = 0; k < each; ++k) {
      plain.push_back(simulate_plainly(herd, begun.store, settings.years, 100 * seed + k));
    }
    model_rates.push_back(rate_of(forecast.scenarios[0], 7, 17));
    plain_rates.push_back(rate_of(plain, 7, 17));
  }
  const MeanAndError model = describe(model_rates), simulated = describe(plain_rates);
  EXPECT_NEAR(model.mean, herd.rate(), 3.0 * model.error);
  EXPECT_NEAR(model.mean, simulated.mean, 3.0 * std::hypot(model.error, simulated.error));
  constexpr double of_fewer_herds = static_cast<double>(all_herds) / herds;
  EXPECT_LT(model.error, 0.1 * std::sqrt(of_fewer_herds) * herd.rate());  // otherwise the test says nothing
}

TEST(Forecast, OfEqualUseHasTheRateOfTheory) {
  expect_rates_of({8, 24, 4, false, 10});
}

TEST(Forecast, OfATopSireHasTheRateOfTheory) {
  expect_rates_of({5, 24, 4, true, 10});
}

/// By how much ln(1 - F) falls a year in the years behind the 36th of a breed, by the breed's own simulation.
double plain_rate(BreedScheme scheme, std::uint64_t seed, std::int32_t from, std::int32_t to) {
  scheme.years += to + 1;
  const PopulationStore store = simulate_breed(scheme, seed);
  const std::int32_t last_known = first_year_of_breeds + scheme.years - to - 2;
  double first = 0.0, last = 0.0;
  for (const std::int32_t ahead : {from, to}) {
    double sum = 0.0, count = 0.0;
    for (std::int32_t i = 1; i <= store.animal_count; ++i) {
      if (store.birth_year[i] != last_known + 1 + ahead) continue;
      sum += double{store.inbreeding[i]};
      count += 1.0;
    }
    (ahead == from ? first : last) = std::log1p(-sum / count);
  }
  return (first - last) / static_cast<double>(to - from);
}

// Generations overlap: sires are used at 2 and 3 years, dams at 2 to 5, at random. One history of 36 years tells the
// distribution of use with an error of its own: several of them are gone on with. Ne = 12 s d / (s + d) for s sires and
// d dams that enter each year (Hill, 1979) is a little too low for them, as most of the young females enter.
TEST(Forecast, OfOverlappingGenerationsHasTheRateOfASimulation) {
  BreedScheme scheme;
  scheme.sires_a_year = 3;
  scheme.dams_a_year = 15;
  constexpr std::int32_t from = 6, to = 23;
  std::vector<double> rates, plain;
  for (std::uint64_t seed = 1; seed <= std::uint64_t{cases(20, 6)}; ++seed) {
    const Begun begun(simulate_breed(scheme, seed));
    const ModelBasis basis = begun.basis();
    ForecastSettings settings;
    settings.years = to + 1;
    settings.replicates = 10;
    settings.seed = seed;
    const BreedingRules present;
    const Forecast forecast = make_forecast(basis, {&present, 1}, settings);
    rates.push_back(rate_of(forecast.scenarios[0], from, to));
    for (std::uint64_t k = 1; k <= 10; ++k) plain.push_back(plain_rate(scheme, 100 * seed + k, from, to));
  }
  const MeanAndError model = describe(rates), simulated = describe(plain);
  EXPECT_NEAR(model.mean, simulated.mean, 3.0 * std::hypot(model.error, simulated.error));
  EXPECT_LT(model.error, 0.1 * simulated.mean);
  constexpr double generation = 3.0;
  EXPECT_NEAR(model.mean, 1.0 / (2.0 * effective_size_of(scheme)) / generation, 0.15 * model.mean);
}

/// F of every animal of a pedigree, by the tabular method in double precision.
std::vector<double> plain_inbreeding(const ModelPedigree& pedigree) {
  const auto size = static_cast<std::size_t>(pedigree.count()) + 1;
  std::vector<std::vector<double>> kinships(size, std::vector<double>(size, 0.0));
  std::vector<double> f(size, 0.0);
  for (std::size_t i = 1; i < size; ++i) {
    const auto number = static_cast<std::int32_t>(i);
    const auto sire = static_cast<std::size_t>(pedigree.sire[number]),
               dam = static_cast<std::size_t>(pedigree.dam[number]);
    f[i] = kinships[sire][dam];
    for (std::size_t j = 1; j < i; ++j) kinships[i][j] = kinships[j][i] = 0.5 * (kinships[sire][j] + kinships[dam][j]);
    kinships[i][i] = 0.5 * (1.0 + f[i]);
  }
  return f;
}

TEST(ModelHerd, HasExactInbreedingByTableAndByWalk) {
  BreedScheme scheme;
  scheme.imported = 0.05;
  const Begun begun(simulate_breed(scheme, 5));
  ModelBasis basis = begun.basis();
  const BreedingRules present;
  ASSERT_TRUE(basis.has_table());
  for (const bool has_table : {true, false}) {
    if (!has_table) basis.table = {};
    AncestorWalk walk = make_basis_walk(basis);
    ModelHerd herd = begin_herd(basis, present, 1, 0, has_table ? nullptr : &walk);
    for (std::int32_t year = 0; year < 15; ++year) ASSERT_TRUE(live_year(herd, begun.records.last_year + 1 + year));
    // The origin of imports, of which nobody descends here, has no meaning as an animal.
    const std::vector<double> f = plain_inbreeding(herd.pedigree);
    for (std::int32_t j = 1; j <= herd.pedigree.count(); ++j) {
      if (j == basis.origin) continue;
      ASSERT_NEAR(herd.pedigree.f[j], f[static_cast<std::size_t>(j)], 2e-6) << j;
    }
  }
}

// Which litters have no known sire goes with the dam: here those of dams without parents never have one, all others do.
TEST(ModelHerd, LeavesSiresUnknownWhereTheyWere) {
  std::string text = "a 0 0 m 1998\n";
  for (int k = 0; k < 6; ++k) text += "k" + std::to_string(k) + " a d f 1999\n";
  for (int year = 2001; year <= 2008; ++year) {
    for (int k = 0; k < 6; ++k) {
      const std::string end = std::to_string(k) + "y" + std::to_string(year);
      text += "p" + end + " a k" + std::to_string(k) + " f " + std::to_string(year) + "\n";
      text += "q" + end + " 0 out" + std::to_string(k) + " f " + std::to_string(year) + "\n";
    }
  }
  const Begun begun(with_inbreeding(pedigree_from_text(text)));
  const ModelBasis basis = begun.basis();
  const BreedingRules present;
  ModelHerd herd = begin_herd(basis, present, 1, 0, nullptr);
  ASSERT_TRUE(live_year(herd, 2009));
  std::int32_t without = 0;
  for (const ModelFamily& family : herd.families) {
    if (family.dam == 0) continue;
    const auto dam = std::find_if(herd.parents.of_females.begin(), herd.parents.of_females.end(),
                                  [&](const ModelParent& parent) { return parent.animal == family.dam; });
    EXPECT_EQ(family.sire == 0, dam->descent == Descent::outside);
    if (family.sire == 0) ++without;
  }
  EXPECT_EQ(without, 6);
}

// Trial herds use their sires as unevenly as the breed did once the powers are found.
TEST(FitUse, FindsPowersThatUseSiresAsObserved) {
  const Begun begun(make_ideal_herd({5, 24, 4, true, 10}, 3));
  ModelBasis basis = begun.basis();
  basis.use_power = 1.4;  // much too uneven
  fit_use(basis, 7);
  const double observed = measure_evenness(begun.records, basis.base.first_alike, basis.base.last_year)->in_year;
  UseYears years;
  const BreedingRules present;
  for (std::int32_t replicate = 0; replicate < 30; ++replicate) {
    ModelHerd herd = begin_herd(basis, present, 99, replicate, nullptr);
    for (std::int32_t year = 1; year <= 10; ++year) {
      ASSERT_TRUE(live_year(herd, begun.records.last_year + year));
      SireLitters litters;
      for (const ModelParent& sire : herd.parents.of_males) litters[sire.animal] = sire.litters;
      years.push_back({litters});
    }
  }
  EvennessSums sums;
  sums.add(years);
  EXPECT_NEAR(sums.mean()->in_year, observed, 0.02 * observed);
}

TEST(Forecast, IsTheSameWithAnyNumberOfThreads) {
  const Begun begun(simulate_breed({}, 3));
  const ModelBasis basis = begun.basis();
  const BreedingRules present;
  ForecastSettings settings;
  settings.years = 8;
  settings.replicates = 12;
  const Forecast alone = make_forecast(basis, {&present, 1}, settings);
  settings.threads = 3;
  const Forecast together = make_forecast(basis, {&present, 1}, settings);
  for (std::size_t k = 0; k < 12; ++k) {
    for (std::size_t year = 0; year < 8; ++year) {
      EXPECT_EQ(alone.scenarios[0].replicates[k][year].kinship.with_self,
                together.scenarios[0].replicates[k][year].kinship.with_self);
    }
  }
}

TEST(Forecast, EndsWhenItIsAskedTo) {
  const Begun begun(simulate_breed({}, 3));
  const ModelBasis basis = begun.basis();
  const BreedingRules present;
  const Forecast forecast = make_forecast(basis, {&present, 1}, {}, [](std::int64_t, std::int64_t) { return false; });
  EXPECT_TRUE(forecast.is_stopped);
}

TEST(BandOf, TakesTheMeanOfNeighbours) {
  EXPECT_FALSE(band_of({}).has_value());
  const Band band = *band_of({4.0, 1.0, 3.0, 2.0});
  EXPECT_DOUBLE_EQ(band.median, 2.5);
  EXPECT_DOUBLE_EQ(band.low, 1.15);
  EXPECT_DOUBLE_EQ(band.high, 3.85);
  EXPECT_DOUBLE_EQ(band.shown_low(), 1.0);  // of so few the least and the most are shown
  EXPECT_DOUBLE_EQ(band.shown_high(), 4.0);
}

}  // namespace
}  // namespace pedigreewatch::test
