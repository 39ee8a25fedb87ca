#include "forecast/forecast_words.h"

#include <algorithm>
#include <utility>

#include "planning/plan_words.h"

namespace pedigreewatch {
namespace {

constexpr Wording base_line = {"base period: {1} to {2}, a generation interval of {3} years",
                               "basisperiode: {1} tot en met {2}, een generatie-interval van {3} jaar"};
constexpr Wording alike_line = {
    "practice of {1} to {2}, in which it was the same: litters a year, sires a litter, young of unknown parents",
    "de praktijk van {1} tot en met {2}, waarin die gelijk bleef: nesten per jaar, vaders per nest, jongen van onbekende "
    "ouders"};
constexpr Wording litters_line = {"litters a year: {1}, young a litter: {2}",
                                  "nesten per jaar: {1}, jongen per nest: {2}"};
constexpr Wording parents_line = {
    "sires a year: {1}, dams a year: {2}, litters a sire: {3}, of the most used one: {4} % of all",
    "vaders per jaar: {1}, moeders per jaar: {2}, nesten per vader: {3}, van de meest gebruikte: {4} % van alle"};
constexpr Wording lives_line = {
    "sires stay in use for {1} years and have {2} litters in life (mean of {3} whose use is over)",
    "vaders blijven {1} jaar in gebruik en krijgen in hun leven {2} nesten (gemiddelde van {3} die niet meer in gebruik "
    "zijn)"};
constexpr Wording dams_lives_line = {
    "dams stay in use for {1} years (mean of {2} whose use is over)",
    "moeders blijven {1} jaar in gebruik (gemiddelde van {2} die niet meer in gebruik zijn)"};
constexpr Wording ages_line = {"at their first litter sires are {1} years old, dams {2}",
                               "bij hun eerste nest zijn vaders {1} jaar oud, moeders {2}"};
constexpr Wording unknown_lives_line = {
    "how long sires stay in use, and how many litters they have in life, cannot be told yet: the herdbook has {1} birth "
    "years with known sires and {2} sires whose use is over, and {3} years and {4} sires are needed",
    "hoe lang vaders in gebruik blijven, en hoeveel nesten ze in hun leven krijgen, is nog niet te zeggen: het stamboek "
    "heeft {1} geboortejaren met bekende vaders en {2} vaders die niet meer in gebruik zijn, en er zijn {3} jaren en {4} "
    "vaders nodig"};
constexpr Wording descent_line = {
    "young with one known parent: {1} %, with none: {2} %; parents that came into use without a known parent of their own, as "
    "imports do: {3} % of the sires, {4} % of the dams",
    "jongen met \xC3\xA9\xC3\xA9n bekende ouder: {1} %, zonder: {2} %; ouders die in gebruik kwamen zonder zelf een bekende "
    "ouder te hebben, zoals importdieren: {3} % van de vaders, {4} % van de moeders"};
constexpr Wording levels_line = {
    "these went up or down, and the forecast goes on with where they are now: {1} litters a year, young with one known "
    "parent {2} %, with none {3} %",
    "deze liepen op of terug, en de vooruitblik gaat verder met waar ze nu zijn: {1} nesten per jaar, jongen met \xC3\xA9\xC3\xA9n "
    "bekende ouder {2} %, zonder {3} %"};
constexpr Wording evenness_line = {
    "of two litters of a year {1} % have the same sire, of two that are one to three years apart {2} %",
    "van twee nesten van \xC3\xA9\xC3\xA9n jaar heeft {1} % dezelfde vader, van twee die \xC3\xA9\xC3\xA9n tot drie jaar uiteen liggen {2} %"};
constexpr Wording within_groups = {" (within a subpopulation)", " (binnen een subpopulatie)"};
constexpr Wording unknown_sires_line = {
    "sire unknown: {1} % of the litters of dams with known parents, {2} % of those of other dams",
    "vader onbekend: {1} % van de nesten van moeders met bekende ouders, {2} % van die van andere moeders"};
constexpr Wording matings_line = {"matings of sibs, half sibs, or parent and offspring: {1} %",
                                  "paringen van broer en zus, halfbroer en halfzus, of ouder en kind: {1} %"};
constexpr Wording groups_line = {"sires from another subpopulation: {1} % of the litters",
                                 "vaders uit een andere subpopulatie: {1} % van de nesten"};
constexpr Wording incomplete_line = {"{1} is left out: too few births so far for a whole year",
                                     "{1} is weggelaten: tot nu toe te weinig geboorten voor een heel jaar"};

constexpr Wording present_title = {"present practice", "huidige praktijk"};
constexpr Wording result_line = {
    "mean kinship goes from {1} % in {2} to {3} % in {4} ({5} to {6} % in 90 of 100 replicates)",
    "de gemiddelde verwantschap gaat van {1} % in {2} naar {3} % in {4} ({5} tot {6} % in 90 van de 100 herhalingen)"};
constexpr Wording result_of_few_line = {
    "mean kinship goes from {1} % in {2} to {3} % in {4} (replicates: {7}; from the least, {5} %, to the most, {6} %)",
    "de gemiddelde verwantschap gaat van {1} % in {2} naar {3} % in {4} (herhalingen: {7}; van de laagste, {5} %, tot de "
    "hoogste, {6} %)"};
constexpr Wording replicates_line = {
    "replicates: {1}, seed of their random numbers: {2}; ranges are those of 90 in 100 replicates",
    "herhalingen: {1}, begingetal van hun toevalsgetallen: {2}; tussen haakjes staat tussen welke waarden 90 van de "
    "100 herhalingen liggen"};
constexpr Wording few_replicates_line = {
    "replicates: {1}, seed of their random numbers: {2}; ranges go from the least to the most of them: it takes {3} to tell "
    "where 90 in 100 lie",
    "herhalingen: {1}, begingetal van hun toevalsgetallen: {2}; tussen haakjes staan de laagste en de hoogste ervan: om te "
    "zeggen waar er 90 van de 100 liggen, zijn er {3} nodig"};
constexpr Wording f_line = {"mean F comes to {1} % ({2} to {3} %)", "de gemiddelde F komt op {1} % ({2} tot {3} %)"};
constexpr Wording rate_line = {
    "kinship rises by {1} % a generation ({2} to {3} %), as with an effective size of {4} ({5} to {6})",
    "de verwantschap stijgt met {1} % per generatie ({2} tot {3} %), zoals bij een effectieve populatiegrootte van {4} "
    "({5} tot {6})"};
constexpr Wording unlimited_rate_line = {
    "kinship rises by {1} % a generation ({2} to {3} %), as with an effective size of {4} ({5} or more)",
    "de verwantschap stijgt met {1} % per generatie ({2} tot {3} %), zoals bij een effectieve populatiegrootte van {4} "
    "({5} of meer)"};
constexpr Wording falling_line = {"kinship changes by {1} % a generation ({2} to {3} %)",
                                  "de verwantschap verandert met {1} % per generatie ({2} tot {3} %)"};
constexpr Wording lower_line = {
    "in {1} mean kinship is {2} percentage points lower than under the present practice ({3} to {4})",
    "in {1} is de gemiddelde verwantschap {2} procentpunt lager dan bij de huidige praktijk ({3} tot {4})"};
constexpr Wording higher_line = {
    "in {1} mean kinship is {2} percentage points higher than under the present practice ({3} to {4})",
    "in {1} is de gemiddelde verwantschap {2} procentpunt hoger dan bij de huidige praktijk ({3} tot {4})"};
constexpr Wording smaller_all_the_same_line = {
    "its effective size is smaller than under the present practice all the same: it tells how fast kinship rises within these "
    "years, and what is gained at once does not show in it; go by the kinship of {1}",
    "toch is de effectieve populatiegrootte kleiner dan bij de huidige praktijk: die zegt hoe snel de verwantschap binnen deze "
    "jaren stijgt, en wat er meteen gewonnen wordt, is er niet in te zien; ga af op de verwantschap van {1}"};
constexpr Wording larger_all_the_same_line = {
    "its effective size is larger than under the present practice all the same: it tells how fast kinship rises within these "
    "years, and what is lost at once does not show in it; go by the kinship of {1}",
    "toch is de effectieve populatiegrootte groter dan bij de huidige praktijk: die zegt hoe snel de verwantschap binnen deze "
    "jaren stijgt, en wat er meteen verloren gaat, is er niet in te zien; ga af op de verwantschap van {1}"};
constexpr Wording same_line = {
    "in {1} mean kinship is the same as under the present practice in 90 of 100 replicates: the rules forbid hardly "
    "anything that is done now",
    "in {1} is de gemiddelde verwantschap in 90 van de 100 herhalingen dezelfde als bij de huidige praktijk: de regels "
    "verbieden bijna niets van wat nu gebeurt"};
constexpr Wording same_of_few_line = {
    "in {1} mean kinship is the same as under the present practice in every replicate: the rules forbid hardly anything "
    "that is done now",
    "in {1} is de gemiddelde verwantschap in elke herhaling dezelfde als bij de huidige praktijk: de regels verbieden "
    "bijna niets van wat nu gebeurt"};
constexpr Wording unclear_line = {
    "in {1} mean kinship may be lower or higher than under the present practice: the difference lies between {2} and "
    "{3} percentage points",
    "in {1} kan de gemiddelde verwantschap lager of hoger zijn dan bij de huidige praktijk: het verschil ligt tussen "
    "{2} en {3} procentpunt"};
constexpr Wording sires_cost_line = {"each year {1} litters of {2} sires go to other sires",
                                     "elk jaar gaan {1} nesten van {2} vaders naar andere vaders"};
constexpr Wording pairs_cost_line = {"each year {1} pairs are not made, and others in their place",
                                     "elk jaar worden {1} paren niet gemaakt, en andere in hun plaats"};
constexpr Wording entrants_cost_line = {"each year {1} animals do not come into use, and others in their place",
                                        "elk jaar komen {1} dieren niet in gebruik, en andere in hun plaats"};
constexpr Wording lost_line = {"each year {1} litters are not born, as no permitted parent is left",
                               "elk jaar worden {1} nesten niet geboren, omdat er geen toegestane ouder over is"};
constexpr Wording all_died_line = {
    "the population dies out in every replicate, in half of them by {1}: there are no dams or no permitted sires "
    "left",
    "de populatie sterft in elke herhaling uit, in de helft uiterlijk in {1}: er zijn geen moeders of geen toegestane vaders "
    "meer"};
constexpr Wording unknown_parents_line = {
    "{1} % of the young have an unknown parent, who counts as related to nobody: inbreeding and kinship are higher than "
    "stated, and their fall may be one on paper only",
    "{1} % van de jongen heeft een onbekende ouder, die als met niemand verwant telt: inteelt en verwantschap zijn hoger "
    "dan hier staat, en een daling kan er een op papier zijn"};
constexpr Wording outside_parents_line = {
    "{1} % of the sires and {2} % of the dams that come into use have no known parent, as imports, and count as related to "
    "nobody: as long as they come, kinship rises more slowly, and the effective size is larger, than within the breed alone",
    "{1} % van de vaders en {2} % van de moeders die in gebruik komen heeft geen bekende ouder, zoals importdieren, en telt "
    "als met niemand verwant: zolang ze komen, stijgt de verwantschap langzamer, en is de effectieve populatiegrootte groter, "
    "dan binnen het ras alleen"};
constexpr Wording young_herdbook_line = {
    "birth years with known sires behind this forecast: {1}, of {2} at least that it needs; how far to trust it was measured "
    "with herdbooks of thirty years and more, and this one is too short to know how numbers and the use of sires change: "
    "kinship and F may well rise above the band",
    "geboortejaren met bekende vaders achter deze vooruitblik: {1}, van minstens {2} die ervoor nodig zijn; hoe ver hij te "
    "vertrouwen is, werd gemeten met stamboeken van dertig jaar en meer, en dit is te kort om te weten hoe aantallen en het "
    "gebruik van vaders veranderen: verwantschap en F kunnen heel goed boven de band uitkomen"};
constexpr Wording plan_line = {
    "each year is planned with all animals of known parents that are of breeding age, alive or not, and none come from "
    "outside but imports of the rules: this shows what is possible, not what breeders will do",
    "elk jaar wordt gepland met alle dieren met bekende ouders die van fokleeftijd zijn, of ze nog leven of niet, en er "
    "komen er geen van buiten behalve importdieren van de regels: dit laat zien wat er kan, niet wat fokkers zullen doen"};
constexpr Wording died_line = {"the population dies out in {1} of {2} replicates; its figures are those of the others",
                               "de populatie sterft uit in {1} van de {2} herhalingen; de cijfers zijn die van de "
                               "andere"};
constexpr Wording truth_line = {
    "forecast from {1}: the real {2} lay within the band in {3} of {4} years, above it in {5}, below it in {6}",
    "vooruitblik vanuit {1}: de werkelijke {2} lag in {3} van de {4} jaren binnen de band, in {5} erboven, in {6} eronder"};
constexpr Wording f_name = {"mean F", "gemiddelde F"}, kinship_name = {"mean kinship", "gemiddelde verwantschap"};

double mean_size(const CountedPractice& counted) {
  double mean = 0.0, size = 0.0;
  for (const float share : counted.litter_sizes) mean += (size += 1.0) * double{share};
  return mean;
}

/// How long parents are in use, as far as enough of them have come to an end.
std::vector<std::string> lives_sentences(const BasePeriod& base, const FamilyPractice& families,
                                         ToolLanguage language) {
  const auto one_decimal = [&](double value) { return shown_decimals(value, 1, language); };
  if (are_lives_known(families, base.generation_interval)) {
    return {phrase(lives_line, language,
                   {one_decimal(families.years_in_use), one_decimal(families.families_in_life),
                    std::to_string(families.ended_careers)}),
            phrase(dams_lives_line, language,
                   {one_decimal(families.dam_years_in_use), std::to_string(families.ended_dams)})};
  }
  return {
      phrase(unknown_lives_line, language,
             {std::to_string(families.birth_years), std::to_string(families.ended_careers),
              std::to_string(birth_years_for_lives(base.generation_interval)), std::to_string(least_ended_careers)})};
}

}  // namespace

std::vector<std::string> practice_sentences(const BasePeriod& base, const CountedPractice& counted,
                                            const FamilyPractice& families, ToolLanguage language) {
  std::vector<std::string> lines;
  const auto add = [&](const Wording& wording, std::initializer_list<std::string_view> values) {
    lines.push_back(phrase(wording, language, values));
  };
  const auto one_decimal = [&](double value) { return shown_decimals(value, 1, language); };
  const auto percent = [&](double fraction) { return shown_percent(fraction, language, 1); };
  const std::string last = std::to_string(base.last_year);
  add(base_line, {std::to_string(base.first_year), last, one_decimal(base.generation_interval)});
  if (base.first_alike < base.first_year) add(alike_line, {std::to_string(base.first_alike), last});
  add(litters_line, {one_decimal(double{counted.litters_a_year}), one_decimal(mean_size(counted))});
  add(parents_line, {one_decimal(families.sires_a_year), one_decimal(families.dams_a_year),
                     one_decimal(families.litters_per_sire), percent(families.top_sire)});
  for (std::string& line : lives_sentences(base, families, language)) lines.push_back(std::move(line));
  add(ages_line, {one_decimal(mean_first_age(base, male)), one_decimal(mean_first_age(base, female))});
  add(descent_line, {percent(families.half_known), percent(families.founders), percent(families.outside_sires),
                     percent(families.outside_dams)});
  const PracticeLevels& levels = base.levels;
  if (levels.litters.is_trend || levels.founders.is_trend || levels.half_known.is_trend) {
    add(levels_line,
        {one_decimal(levels.litters.last), percent(levels.half_known.last), percent(levels.founders.last)});
  }
  if (families.no_sire_of_known > 0.0 || families.no_sire_of_others > 0.0) {
    add(unknown_sires_line, {percent(families.no_sire_of_known), percent(families.no_sire_of_others)});
  }
  if (families.evenness) {
    add(evenness_line, {percent(families.evenness->in_year), percent(families.evenness->in_life)});
    if (base.years.front().size() > 1) lines.back() += phrase(within_groups, language, {});
  }
  add(matings_line, {percent(families.close_matings)});
  if (base.years.front().size() > 1) add(groups_line, {percent(families.between_groups)});
  return lines;
}

std::string replicates_sentence(const Forecast& forecast, ToolLanguage language) {
  const bool are_few = forecast.replicates() < least_replicates_of_band;
  return phrase(
      are_few ? few_replicates_line : replicates_line, language,
      {std::to_string(forecast.replicates()), std::to_string(forecast.seed), std::to_string(least_replicates_of_band)});
}

std::string incomplete_sentence(std::int32_t year, ToolLanguage language) {
  return phrase(incomplete_line, language, {std::to_string(year)});
}

namespace {

/// Lines of one scenario.
struct ScenarioLines {
  ToolLanguage language;
  std::vector<std::string> lines = {};

  void add(const Wording& wording, std::initializer_list<std::string> values) {
    const std::vector<std::string_view> all(values.begin(), values.end());
    lines.push_back(phrase(wording, language, all));
  }
  std::string percent(double fraction) const { return shown_percent(fraction, language); }
  std::string one_decimal(double value) const { return shown_decimals(value, 1, language); }
};

void add_result(const Forecast& forecast, const ScenarioSummary& summary, ScenarioLines& lines) {
  const auto& kinship = summary.of(SummaryFigure::last_kinship).value;
  const auto& f = summary.of(SummaryFigure::last_mean_f).value;
  if (!kinship || !f) return;
  lines.add(
      kinship->is_of_few() ? result_of_few_line : result_line,
      {lines.percent(forecast.start.with_self), std::to_string(forecast.first_year - 1), lines.percent(kinship->median),
       std::to_string(forecast.first_year + forecast.years - 1), lines.percent(kinship->shown_low()),
       lines.percent(kinship->shown_high()), std::to_string(kinship->replicates)});
  lines.add(f_line, {lines.percent(f->median), lines.percent(f->shown_low()), lines.percent(f->shown_high())});
  const auto& rate = summary.of(SummaryFigure::kinship_rate_per_generation).value;
  if (!rate) return;
  const double least = rate->shown_low(), most = rate->shown_high();
  const std::string median = lines.percent(rate->median), low = lines.percent(least), high = lines.percent(most);
  if (rate->median > 0.0) {
    const auto size = [](double loss) { return fixed_decimals(0.5 / loss, 0); };
    const bool has_most = least > 0.0;  // otherwise kinship does not rise in some replicates
    lines.add(has_most ? rate_line : unlimited_rate_line,
              {median, low, high, size(rate->median), size(most), has_most ? size(least) : std::string()});
  } else {
    lines.add(falling_line, {median, low, high});
  }
}

void add_difference(const Forecast& forecast, const ScenarioSummary& summary, ScenarioLines& lines) {
  const auto& difference = summary.of(SummaryFigure::last_kinship).difference;
  if (!difference) return;
  const std::string year = std::to_string(forecast.first_year + forecast.years - 1);
  const double low = difference->shown_low(), high = difference->shown_high();
  if (low == 0.0 && high == 0.0) {
    lines.add(difference->is_of_few() ? same_of_few_line : same_line, {year});
  } else if (high < 0.0) {
    lines.add(lower_line, {year, lines.percent(-difference->median), lines.percent(-high), lines.percent(-low)});
  } else if (low > 0.0) {
    lines.add(higher_line, {year, lines.percent(difference->median), lines.percent(low), lines.percent(high)});
  } else {
    lines.add(unclear_line, {year, lines.percent(low), lines.percent(high)});
  }
}

/// Where the kinship of the last year and the effective size would be read the opposite way.
void add_contradiction(const Forecast& forecast, const ScenarioSummary& summary, ScenarioLines& lines) {
  const auto& kinship = summary.of(SummaryFigure::last_kinship).difference;
  const auto& rate = summary.of(SummaryFigure::kinship_rate_per_generation).difference;
  if (!kinship || !rate) return;
  const std::string year = std::to_string(forecast.first_year + forecast.years - 1);
  if (kinship->shown_high() < 0.0 && rate->median > 0.0) lines.add(smaller_all_the_same_line, {year});
  if (kinship->shown_low() > 0.0 && rate->median < 0.0) lines.add(larger_all_the_same_line, {year});
}

/// After so many years half of the replicates, or more, have died out; of a scenario in which all have.
std::int32_t median_years(const ScenarioForecast& scenario) {
  std::vector<std::int32_t> years;
  for (const ReplicateYears& replicate : scenario.replicates) {
    years.push_back(static_cast<std::int32_t>(std::ssize(replicate)));
  }
  const auto middle = years.begin() + std::ssize(years) / 2;
  std::nth_element(years.begin(), middle, years.end());
  return *middle;
}

/// What is refused; less than one in twenty years is not worth a sentence.
void add_costs(const ScenarioSummary& summary, ScenarioLines& lines) {
  constexpr double least = 0.05;
  const auto median = [&](SummaryFigure figure) {
    const auto& value = summary.of(figure).value;
    return value ? value->median : 0.0;
  };
  const double litters = median(SummaryFigure::refused_litters), sires = median(SummaryFigure::refused_sires);
  if (litters >= least || sires >= least) {
    lines.add(sires_cost_line, {lines.one_decimal(litters), lines.one_decimal(sires)});
  }
  const struct {
    SummaryFigure figure;
    const Wording& line;
  } costs[] = {{SummaryFigure::refused_pairs, pairs_cost_line},
               {SummaryFigure::refused_entrants, entrants_cost_line},
               {SummaryFigure::lost_litters, lost_line}};
  for (const auto& cost : costs) {
    if (median(cost.figure) >= least) lines.add(cost.line, {lines.one_decimal(median(cost.figure))});
  }
}

}  // namespace

std::optional<std::string> unknown_parents_sentence(const FamilyPractice& families, ToolLanguage language) {
  const double share = families.half_known + families.founders;
  if (share < least_unknown_share) return std::nullopt;
  return phrase(unknown_parents_line, language, {shown_percent(share, language, 1)});
}

std::optional<std::string> outside_parents_sentence(const FamilyPractice& families, ToolLanguage language) {
  if (std::max(families.outside_sires, families.outside_dams) < least_outside_share) return std::nullopt;
  return phrase(
      outside_parents_line, language,
      {shown_percent(families.outside_sires, language, 1), shown_percent(families.outside_dams, language, 1)});
}

std::optional<std::string> young_herdbook_sentence(const FamilyPractice& families, ToolLanguage language) {
  if (families.birth_years >= least_birth_years) return std::nullopt;
  return phrase(young_herdbook_line, language,
                {std::to_string(families.birth_years), std::to_string(least_birth_years)});
}

std::vector<std::string> warning_sentences(const FamilyPractice& families, ToolLanguage language) {
  std::vector<std::string> lines;
  for (const auto& line : {young_herdbook_sentence(families, language), outside_parents_sentence(families, language),
                           unknown_parents_sentence(families, language)}) {
    if (line) lines.push_back(*line);
  }
  return lines;
}

std::string title_of(const BreedingRules& rules, ToolLanguage language) {
  return rules.name == present_practice ? std::string(words_of(present_title, language)) : rules.name;
}

std::vector<std::string> scenario_sentences(const Forecast& forecast, const ScenarioSummary& summary,
                                            std::size_t scenario, ToolLanguage language) {
  const ScenarioForecast& of = forecast.scenarios[scenario];
  ScenarioLines lines = {language};
  add_result(forecast, summary, lines);
  add_difference(forecast, summary, lines);
  add_contradiction(forecast, summary, lines);
  add_costs(summary, lines);
  if (of.rules.has_plan) lines.add(plan_line, {});
  if (summary.died_out == std::ssize(of.replicates)) {
    lines.add(all_died_line, {std::to_string(forecast.first_year + median_years(of))});
  } else if (summary.died_out > 0) {
    lines.add(died_line, {std::to_string(summary.died_out), std::to_string(of.replicates.size())});
  }
  return std::move(lines.lines);
}

std::vector<std::string> truth_sentences(const Forecast& forecast, const std::vector<RealYear>& truth,
                                         std::int32_t from, ToolLanguage language) {
  std::vector<std::string> lines;
  const struct {
    ForecastFigure figure;
    const Wording& name;
  } figures[] = {{ForecastFigure::mean_f, f_name}, {ForecastFigure::kinship_with_self, kinship_name}};
  for (const auto& figure : figures) {
    const Foretold told = compare_with_truth(forecast.scenarios.front(), forecast.first_year, truth, figure.figure);
    if (told.years == 0) continue;
    lines.push_back(phrase(truth_line, language,
                           {std::to_string(from), words_of(figure.name, language), std::to_string(told.within),
                            std::to_string(told.years), std::to_string(told.above), std::to_string(told.below)}));
  }
  return lines;
}

}  // namespace pedigreewatch
