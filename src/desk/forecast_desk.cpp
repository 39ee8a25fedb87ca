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
#include "forecast/said_practice.h"
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

constexpr Wording figures_heading = {"Figures of the practice, in place of what was measured; blank: as measured.",
                                     "Cijfers van de praktijk, in plaats van wat gemeten is; leeg: zoals gemeten."};
constexpr auto choices = std::to_array<std::pair<std::string_view, Wording>>({{"yes", {"yes", "ja"}},
                                                                              {"open", {"open", "open"}},
                                                                              {"closed", {"closed", "gesloten"}},
                                                                              {"rotation", {"rotation", "rotatie"}}});

bool takes(std::string_view name, std::string_view value) {
  BreedingRules tried;
  return take_rule(name, value, tried).reason.english.empty();
}

/// Whether a number in a field is per cent: without the sign it would be none.
bool is_percentage(std::string_view name) {
  return takes(name, "5%") && !takes(name, "5");
}

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

/// What is typed: figures of the practice, and rules.
struct TypedRules {
  BreedingRules present, rules;
};

/// Of the fields that are filled in; what is wrong with them is added to the faults.
TypedRules rules_typed(std::string_view settings, ToolLanguage language, std::vector<std::string>& faults) {
  TypedRules typed;
  typed.present.name = present_practice;
  typed.rules.name = words_of(typed_rules, language);
  for (const RuleForm& form : rule_forms()) {
    std::string value(value_named(settings, form.name));
    if (value.empty()) continue;
    if (is_percentage(form.name) && !value.ends_with('%')) value.push_back('%');
    const RuleProblem problem = take_rule(form.name, value, form.is_figure ? typed.present : typed.rules);
    if (problem.reason.english.empty()) continue;
    faults.push_back(phrase(field_fault, language,
                            {label_of(form.name, language), shown(readable(value)), reason_of(problem, language)}));
  }
  return typed;
}

void add_problems(const std::vector<RuleProblem>& problems, ToolLanguage language, std::vector<std::string>& faults) {
  for (const RuleProblem& problem : problems) {
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

/// Measures what the forecast goes by, and says it, with what is said in its place; `base` has that then.
void describe_practice(const Desk& desk, const BreedingRules& present, BasePeriod& base, DeskForecast& made) {
  const Block& whole = desk.results->population.analysis.whole;
  const PopulationStore& store = desk.results->population.store;
  const FamilyPractice measured = measure_practice(made.records, base);
  made.practice = practice_sentences(
      base, count_practice(whole.tables, store.birth_years, base.first_year, base.last_year), measured, desk.language);
  for (std::string& line : said_sentences(present, desk.language)) made.practice.push_back(std::move(line));
  apply_said_figures(made.records, present.said, base);
  made.warnings = warning_sentences(practice_as_said(measured, present.said, base), desk.language);
  made.past = list_real_years(made.records, whole.inbreeding, whole.tables);
}

/// Begins a forecast of what is typed. Yields what stands in the way.
std::vector<std::string> begin_typed_forecast(Desk& desk, TypedRules typed, const ForecastSettings& wanted) {
  std::vector<std::string> faults;
  const PopulationStore& store = desk.results->population.store;
  const std::optional<std::int32_t> last = last_full_year(store);
  auto made = std::make_unique<DeskForecast>(
      DeskForecast{list_families(store, desk.results->population.analysis.years, last.value_or(0))});
  std::optional<BasePeriod> base = last ? measure_base_period(made->records) : std::nullopt;
  if (!base) return {std::string(words_of(too_few_birth_years, desk.language))};
  add_problems(find_wrong_figures(typed.present, *base), desk.language, faults);
  add_problems(find_contradictions(typed.rules, *base), desk.language, faults);
  if (!faults.empty()) return faults;
  describe_practice(desk, typed.present, *base, *made);
  std::vector<BreedingRules> scenarios(1);
  scenarios.front().name = present_practice;
  if (!typed.rules.written.empty()) scenarios.push_back(std::move(typed.rules));
  made->basis.emplace(make_model_basis(made->records, std::move(*base), wanted.seed));
  fit_use(*made->basis, wanted.seed);
  add_problems(fit_as_said(*made->basis, typed.present, wanted.seed).problems, desk.language, faults);
  if (!faults.empty()) return faults;
  made->growing.emplace(begin_forecast(*made->basis, scenarios, wanted));
  desk.forecast = std::move(made);
  return faults;
}

/// What can be chosen is what the rule takes; a heading has no name.
void add_field(JsonText& json, std::string_view name, std::string_view label, const Desk& desk) {
  begin_object(json);
  add_text(json, "name", name);
  add_text(json, "label", label);
  begin_list(json, "choices");
  for (const auto& [value, words] : choices) {
    if (name.empty() || !takes(name, value)) continue;
    begin_object(json);
    add_text(json, "value", value);
    add_text(json, "text", words_of(words, desk.language));
    end_object(json);
  }
  end_list(json);
  end_object(json);
}

}  // namespace

std::string forecast_fields(const Desk& desk) {
  JsonText json;
  begin_object(json);
  begin_list(json, "fields");
  bool is_figure = false;
  for (const RuleForm& form : rule_forms()) {
    if (form.is_figure && !is_figure) add_field(json, {}, std::string(words_of(figures_heading, desk.language)), desk);
    is_figure = form.is_figure;
    const std::string_view unit = is_percentage(form.name) ? ", %" : "";
    add_field(json, form.name, std::string(words_of(form.label, desk.language)).append(unit), desk);
  }
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

std::string begin_desk_forecast(Desk& desk, std::string_view settings) {
  desk.forecast.reset();
  if (!desk.results) return refusal_of({std::string(words_of(no_results_yet, desk.language))});
  std::vector<std::string> faults;
  TypedRules typed = rules_typed(settings, desk.language, faults);
  ForecastSettings wanted;
  wanted.replicates = desk_replicates;
  wanted.years = years_typed(settings, desk.language, faults);
  if (!faults.empty()) return refusal_of(faults);
  tell(desk.watch, "forecast");
  faults = begin_typed_forecast(desk, std::move(typed), wanted);
  return faults.empty() ? answer_of(wanted) : refusal_of(faults);
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
