// How good the forecast of the present practice is: of herds that the generator of populations has made, against
// continuations of the same herds by the generator itself.
//   measure_forecast [HERDS [CONTINUATIONS]]     so many herds of each size, 3 without a number, and 100 continuations

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "control/population_analysis.h"
#include "control/steer_file.h"
#include "forecast/forecast.h"
#include "forecast/model_fit.h"
#include "population_plans.h"

namespace {

using namespace pedigreewatch;

constexpr std::int32_t known_years = 30, years_ahead = 20, replicates = 100;

std::string text_of(const PopulationPlan& plan, bool (*write)(const PopulationPlan&, std::FILE*)) {
  char* bytes = nullptr;
  std::size_t size = 0;
  std::FILE* const file = open_memstream(&bytes, &size);
  const bool is_written = file != nullptr && write(plan, file) && std::fclose(file) == 0;
  std::string text(is_written ? bytes : "", is_written ? size : 0);
  std::free(bytes);
  if (!is_written) std::exit(1);
  return text;
}

AnalysedPopulation analyse(const PopulationPlan& plan) {
  const std::string steer_text = text_of(plan, write_steer_file), data_text = text_of(plan, write_data_file);
  LineReader steer, data;
  steer.text = steer_text;
  data.text = data_text;
  RunStreams silent;
  return analyse_population(read_steer_lines(steer, silent), data, silent);
}

/// Figures that are compared, by year ahead.
struct Outcome {
  std::vector<double> f, kinship, without_self, sires;
};

Outcome outcome_of(const AnalysedPopulation& population) {
  const PopulationStore& store = population.store;
  const FamilyRecords records = list_families(store, population.analysis.years, store.birth_years.last);
  Outcome outcome;
  for (std::int32_t row = known_years + 1; row <= known_years + years_ahead; ++row) {
    const InbreedingRow means = population.analysis.whole.inbreeding.of(row);
    outcome.f.push_back(double{means.F});
    outcome.kinship.push_back(double{means.f_with_self});
    outcome.without_self.push_back(double{means.f_without_self});
    std::vector<bool> is_seen(store.size() + 1, false);
    double sires = 0.0;
    for (const Family& family : records.of_year(store.birth_years.year_of(row))) {
      if (family.sire == 0 || is_seen[static_cast<std::size_t>(family.sire)]) continue;
      is_seen[static_cast<std::size_t>(family.sire)] = true;
      sires += 1.0;
    }
    outcome.sires.push_back(sires);
  }
  return outcome;
}

Forecast forecast_of(const PopulationPlan& plan) {
  const AnalysedPopulation population = analyse(plan);
  const std::int32_t last = plan.first_birth_year + known_years - 1;
  const FamilyRecords records = list_families(population.store, population.analysis.years, last);
  ModelBasis basis = make_model_basis(records, *measure_base_period(records), 1);
  fit_use(basis, 1);
  BreedingRules present;
  ForecastSettings settings;
  settings.years = years_ahead;
  settings.replicates = replicates;
  return make_forecast(basis, {&present, 1}, settings);
}

void print_row(const char* name, int year, const Band& model, const Band& truth) {
  std::printf("   %-10s %3d | %.4f %.4f %.4f | %.4f %.4f %.4f | %+6.1f %% %5.2f\n", name, year, model.low, model.median,
              model.high, truth.low, truth.median, truth.high, 100.0 * (model.median / truth.median - 1.0),
              (model.high - model.low) / (truth.high - truth.low));
  std::fflush(stdout);
}

void compare(const Forecast& forecast, const std::vector<Outcome>& continuations) {
  const struct {
    const char* name;
    ForecastFigure figure;
    std::vector<double> Outcome::*values;
  } figures[] = {{"F", ForecastFigure::mean_f, &Outcome::f},
                 {"f", ForecastFigure::kinship_with_self, &Outcome::kinship},
                 {"f others", ForecastFigure::kinship_without_self, &Outcome::without_self},
                 {"sires", ForecastFigure::sires_in_use, &Outcome::sires}};
  for (const auto& figure : figures) {
    for (const int year : {years_ahead / 2, years_ahead}) {
      std::vector<double> values;
      for (const Outcome& outcome : continuations) {
        values.push_back((outcome.*figure.values)[static_cast<std::size_t>(year) - 1]);
      }
      const auto model = forecast.scenarios[0].band(year - 1, figure.figure);
      if (model) print_row(figure.name, year, *model, *band_of(values));
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  const int herds = count > 1 ? std::atoi(arguments[1]) : 3;
  const int continuations = count > 2 ? std::atoi(arguments[2]) : 100;
  if (herds < 1 || continuations < 2) {
    std::fputs("usage: measure_forecast [HERDS [CONTINUATIONS]]\n", stderr);
    return 2;
  }
  std::printf("              year | forecast: 5, median, 95 | generator: 5, median, 95 | median, width\n");
  for (const std::int32_t births : {60, 200, 1000}) {
    for (int herd = 0; herd < herds; ++herd) {
      PopulationPlan plan = benchmark_plan(births * (known_years + years_ahead), known_years + years_ahead, false);
      plan.seed = static_cast<std::uint64_t>(1000 * births + herd);
      plan.second_seed_year = known_years;
      std::printf("%d births a year, herd %d\n", births, herd + 1);
      std::vector<Outcome> outcomes;
      for (int k = 0; k < continuations; ++k) {
        plan.second_seed = static_cast<std::uint64_t>(k) + 1;
        outcomes.push_back(outcome_of(analyse(plan)));
      }
      compare(forecast_of(plan), outcomes);
    }
  }
  return 0;
}
