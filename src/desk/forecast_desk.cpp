// The steps are those of the subcommand; what differs is that somebody looks on, so that replicates are made in slices
// of time and may be the last ones at any moment.

#include "desk/forecast_desk.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "checks/readable_text.h"
#include "desk/named_values.h"
#include "forecast/forecast_summary.h"
#include "forecast/forecast_words.h"
#include "forecast/model_fit.h"
#include "forecast/rule_reading.h"
#include "page/forecast_page.h"
#include "planning/parent_use.h"
#include "tables/forecast_tables.h"

namespace pedigreewatch {
namespace {

constexpr std::int32_t usual_years = 25, most_desk_years = 200, desk_replicates = 100;

constexpr Wording no_forecast_yet = {"There is no forecast.", "Er is geen vooruitblik."};
constexpr Wording no_results_yet = {"There are no results yet.", "Er zijn nog geen resultaten."};
constexpr Wording too_few_birth_years = {
    "A forecast needs three birth years with known parents of known ages.",
    "Een vooruitblik heeft drie geboortejaren met bekende ouders van bekende leeftijd nodig."};
constexpr Wording years_expected = {"\"years\": a number of years from 1 to 200 was expected.",
                                    "\"jaren\": een aantal jaren van 1 tot en met 200 werd verwacht."};
constexpr Wording field_fault = {"\"{1}\": {2}: {3}", "\"{1}\": {2}: {3}"};
constexpr Wording typed_rules = {"these rules", "deze regels"};

/// Rules that have a field in the page, and whether a number in it is per cent.
struct RuleField {
  std::string_view name;
  bool is_percentage = false;
};
constexpr auto rule_fields = std::to_array<RuleField>({{"most-litters-a-year"},
                                                       {"most-litters-in-life"},
                                                       {"sires"},
                                                       {"litters"},
                                                       {"most-f", true},
                                                       {"kinship-below", true},
                                                       {"least-age-sires"},
                                                       {"least-age-dams"},
                                                       {"import-sires"},
                                                       {"import-dams"}});

void add_messages(JsonText& json, const std::vector<std::string>& messages) {
  begin_list(json, "messages");
  for (const std::string& message : messages) add_text(json, message);
  end_list(json);
}

std::string refusal_of(const std::vector<std::string>& messages) {
  JsonText json;
  begin_object(json);
  add_messages(json, messages);
  end_object(json);
  return std::move(json.text);
}

std::string_view label_of(std::string_view name, ToolLanguage language) {
  for (const RuleForm& form : rule_forms()) {
    if (form.name == name) return words_of(form.label, language);
  }
  return name;
}

/// The rules of the fields that are filled in; what is wrong with them is added to the faults.
BreedingRules rules_typed(std::string_view settings, ToolLanguage language, std::vector<std::string>& faults) {
  BreedingRules rules;
  rules.name = words_of(typed_rules, language);
  for (const RuleField& field : rule_fields) {
    std::string value(value_named(settings, field.name));
    if (value.empty()) continue;
    if (field.is_percentage) {
      std::replace(value.begin(), value.end(), ',', '.');
      if (!value.ends_with('%')) value.push_back('%');
    }
    const RuleProblem problem = take_rule(field.name, value, rules);
    if (problem.reason.english.empty()) continue;
    faults.push_back(phrase(field_fault, language,
                            {label_of(field.name, language), shown(readable(value)), reason_of(problem, language)}));
  }
  return rules;
}

void add_contradictions(const BreedingRules& rules, const BasePeriod& base, ToolLanguage language,
                        std::vector<std::string>& faults) {
  for (const RuleProblem& problem : find_contradictions(rules, base)) {
    const auto& [name, value, line] = problem.written;
    faults.push_back(phrase(field_fault, language, {label_of(name, language), value, reason_of(problem, language)}));
  }
}

/// Years to forecast.
std::int32_t years_typed(std::string_view settings, ToolLanguage language, std::vector<std::string>& faults) {
  if (value_named(settings, "years").empty()) return usual_years;
  const std::int32_t years = number_named(settings, "years").value_or(0);
  if (years < 1 || years > most_desk_years) faults.emplace_back(words_of(years_expected, language));
  return years;
}

std::string answer_of(const ForecastSettings& settings) {
  JsonText json;
  begin_object(json);
  add_messages(json, {});
  add_integer(json, "replicates", settings.replicates);
  end_object(json);
  return std::move(json.text);
}

ForecastPageInput page_input_of(const Desk& desk, const std::vector<ScenarioSummary>& summaries) {
  const DeskForecast& made = *desk.forecast;
  return {made.growing->forecast,
          summaries,
          made.past,
          nullptr,
          made.practice,
          made.warnings,
          desk.results->population.settings.population_name.trimmed(),
          desk.language,
          desk.results->population.corrections};
}

bool has_replicates(const Desk& desk) {
  return desk.results && desk.forecast && !desk.forecast->growing->forecast.scenarios.front().replicates.empty();
}

/// Measures what the forecast goes by, and says it.
void describe_practice(const Desk& desk, const BasePeriod& base, DeskForecast& made) {
  const Block& whole = desk.results->population.analysis.whole;
  const PopulationStore& store = desk.results->population.store;
  const FamilyPractice families = measure_practice(made.records, base);
  made.practice = practice_sentences(
      base, count_practice(whole.tables, store.birth_years, base.first_year, base.last_year), families, desk.language);
  made.warnings = warning_sentences(families, desk.language);
  made.past = list_real_years(made.records, whole.inbreeding, whole.tables);
}

}  // namespace

std::string begin_desk_forecast(Desk& desk, std::string_view settings) {
  desk.forecast.reset();
  if (!desk.results) return refusal_of({std::string(words_of(no_results_yet, desk.language))});
  std::vector<std::string> faults;
  std::vector<BreedingRules> scenarios(1);
  scenarios.front().name = present_practice;
  BreedingRules typed = rules_typed(settings, desk.language, faults);
  ForecastSettings wanted;
  wanted.replicates = desk_replicates;
  wanted.years = years_typed(settings, desk.language, faults);
  if (!faults.empty()) return refusal_of(faults);
  tell(desk.watch, "forecast");
  const PopulationStore& store = desk.results->population.store;
  const std::optional<std::int32_t> last = last_full_year(store);
  auto made = std::make_unique<DeskForecast>(
      DeskForecast{list_families(store, desk.results->population.analysis.years, last.value_or(0))});
  std::optional<BasePeriod> base = last ? measure_base_period(made->records) : std::nullopt;
  if (!base) return refusal_of({std::string(words_of(too_few_birth_years, desk.language))});
  add_contradictions(typed, *base, desk.language, faults);
  if (!faults.empty()) return refusal_of(faults);
  if (!typed.written.empty()) scenarios.push_back(std::move(typed));
  describe_practice(desk, *base, *made);
  made->basis.emplace(make_model_basis(made->records, std::move(*base), wanted.seed));
  fit_use(*made->basis, wanted.seed);
  made->growing.emplace(begin_forecast(*made->basis, scenarios, wanted));
  desk.forecast = std::move(made);
  return answer_of(wanted);
}

std::string grow_desk_forecast(Desk& desk, std::int32_t milliseconds) {
  if (!desk.results || !desk.forecast) return refusal_of({std::string(words_of(no_forecast_yet, desk.language))});
  GrowingForecast& growing = *desk.forecast->growing;
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (grow_forecast(growing) && std::chrono::steady_clock::now() < end) {
  }
  const std::vector<ScenarioSummary> summaries = summarise(growing.forecast);
  JsonText json;
  begin_object(json);
  add_messages(json, {});
  add_integer(json, "done", std::ssize(growing.forecast.scenarios.front().replicates));
  add_integer(json, "replicates", growing.settings.replicates);
  add_text(json, "html", forecast_body(page_input_of(desk, summaries)));
  end_object(json);
  return std::move(json.text);
}

std::string forecast_table(const Desk& desk) {
  if (!has_replicates(desk)) return {};
  TableWriter writer;
  writer.corrections = desk.results->population.corrections;
  write_forecast_table(desk.forecast->growing->forecast, {}, writer);
  return std::move(writer.text);
}

std::string forecast_page(const Desk& desk) {
  if (!has_replicates(desk)) return {};
  const std::vector<ScenarioSummary> summaries = summarise(desk.forecast->growing->forecast);
  return make_forecast_page(page_input_of(desk, summaries));
}

}  // namespace pedigreewatch
