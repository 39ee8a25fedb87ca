#include "page/forecast_page.h"

#include <algorithm>
#include <array>

#include "forecast/forecast_words.h"
#include "forecast/rule_reading.h"
#include "page/chart_drawing.h"
#include "page/chart_figure.h"
#include "page/chart_making.h"
#include "page/corrections_note.h"
#include "page/page.h"
#include "page/page_text.h"
#include "page/whole_page.h"
#include "planning/plan_words.h"

namespace pedigreewatch {
namespace {

constexpr Wording page_title = {"Forecast: {1}", "Vooruitblik: {1}"};
constexpr Wording result_title = {"Where it leads", "Waar het heen gaat"};
constexpr Wording charts_title = {"Past and future", "Verleden en toekomst"};
constexpr Wording trust_title = {"How far to trust it", "Hoe ver het te vertrouwen is"};
constexpr Wording practice_title = {"The present practice, as it was measured", "De huidige praktijk, zoals gemeten"};
constexpr Wording rules_caption = {"What each scenario gains, and what it costs a year",
                                   "Wat elk scenario oplevert, en wat het per jaar kost"};
constexpr auto rules_headings =
    std::to_array<Wording>({{"Scenario", "Scenario"},
                            {"Kinship in the last year, %", "Verwantschap in het laatste jaar, %"},
                            {"Difference, percentage points", "Verschil, procentpunt"},
                            {"Kinship a generation, %", "Verwantschap per generatie, %"},
                            {"Litters to other sires", "Nesten naar andere vaders"},
                            {"Sires limited", "Vaders begrensd"},
                            {"Pairs refused", "Paren geweigerd"},
                            {"Animals refused", "Dieren geweigerd"},
                            {"Litters lost", "Nesten verloren"}});
constexpr Wording range_words = {"{1} ({2} to {3})", "{1} ({2} tot {3})"};
constexpr Wording year_word = {"Year", "Jaar"};
constexpr Wording past_series = {"what was", "wat er was"};
constexpr Wording truth_series = {"what really happened", "wat er werkelijk gebeurde"};
constexpr Wording low_word = {"{1}, 5 %", "{1}, 5 %"}, high_word = {"{1}, 95 %", "{1}, 95 %"};
constexpr Wording least_word = {"{1}, least", "{1}, laagste"}, most_word = {"{1}, most", "{1}, hoogste"};
constexpr Wording few_reading = {
    "Lines are medians of the replicates; the band goes from the least to the most of them.",
    "Lijnen zijn medianen van de herhalingen; de band gaat van de laagste tot de hoogste ervan."};
constexpr Wording look_back_of_few = {
    "The forecast knew nothing behind {1}. The band goes from the least to the most of few replicates: it is too narrow to "
    "judge by.",
    "De vooruitblik wist niets van na {1}. De band gaat van de laagste tot de hoogste van weinig herhalingen: hij is te "
    "smal om op te oordelen."};
constexpr Wording chart_reading = {
    "Lines are medians of the replicates; in 90 of 100 replicates the year lies within the band.",
    "Lijnen zijn medianen van de herhalingen; in 90 van de 100 herhalingen ligt het jaar binnen de band."};
constexpr Wording look_back_reading = {
    "The forecast knew nothing behind {1}. The line of what really happened should lie within the band in nine years of ten.",
    "De vooruitblik wist niets van na {1}. De lijn van wat er werkelijk gebeurde hoort in negen van de tien jaren "
    "binnen de band te liggen."};
constexpr Wording no_look_back = {
    "There are not enough birth years to look back: the page does it with thirty of them.",
    "Er zijn niet genoeg geboortejaren om terug te kijken: de pagina doet dat bij dertig."};
constexpr Wording how_it_did = {
    "In eleven herdbooks, two of them made ones, whose last ten years were forecast from what was known before, mean kinship "
    "lay within the band in 87 of 103 years and mean F in 84, where 93 should: most misses are upward. Do not decide on a rule "
    "by this page alone.",
    "In elf stamboeken, waarvan twee nagebootste, waarvan de laatste tien jaar vooruit werden bekeken vanuit wat ervoor bekend "
    "was, lag de gemiddelde verwantschap in 87 van de 103 jaren binnen de band en de gemiddelde F in 84, waar het er 93 horen "
    "te zijn: de meeste missers liggen erboven. Beslis niet over een regel op deze pagina alleen."};
constexpr Wording what_it_is = {
    "The band shows chance, and numbers of litters and sires that change as they did before. It does not show that breeders "
    "may choose mates otherwise than in the years measured, or import less or more.",
    "De band toont het toeval, en aantallen nesten en vaders die veranderen zoals ze eerder deden. Hij toont niet dat "
    "fokkers hun paringen anders kunnen gaan kiezen dan in de gemeten jaren, of minder of meer kunnen invoeren."};
constexpr Wording made_by = {"Made by pedigreewatch-tools forecast; docs/forecast.md explains every figure.",
                             "Gemaakt door pedigreewatch-tools forecast; docs/forecast.md legt elk cijfer uit."};

struct Panel {
  std::string_view id;
  ForecastFigure figure;
  double scale = 1.0;
  int decimals = 2;
  Wording title, unit;
};
constexpr auto panels = std::to_array<Panel>(
    {{"kinship",
      ForecastFigure::kinship_with_self,
      100.0,
      2,
      {"Mean kinship of the birth years", "Gemiddelde verwantschap van de geboortejaren"},
      {"%, each animal with itself included", "%, elk dier ook met zichzelf"}},
     {"others",
      ForecastFigure::kinship_without_self,
      100.0,
      2,
      {"Mean kinship of different animals", "Gemiddelde verwantschap van verschillende dieren"},
      {"%", "%"}},
     {"inbreeding",
      ForecastFigure::mean_f,
      100.0,
      2,
      {"Mean inbreeding of the birth years", "Gemiddelde inteelt van de geboortejaren"},
      {"F, %", "F, %"}},
     {"diversity", ForecastFigure::gene_diversity, 100.0, 2, {"Gene diversity", "Genetische variatie"}, {"%", "%"}},
     {"sires", ForecastFigure::sires_in_use, 1.0, 1, {"Sires in use", "Vaders in gebruik"}, {"number", "aantal"}},
     {"interval",
      ForecastFigure::generation_interval,
      1.0,
      2,
      {"Generation interval", "Generatie-interval"},
      {"years", "jaren"}}});

/// A line of the console as a sentence.
std::string as_sentence(std::string line) {
  const bool is_small = !line.empty() && line.front() >= 'a' && line.front() <= 'z';
  if (is_small) line.front() = static_cast<char>(line.front() - 'a' + 'A');
  return line + ".";
}

/// The years of a chart: real ones and foretold ones.
struct ChartYears {
  std::int32_t first = 0, last = 0;

  std::size_t count() const { return static_cast<std::size_t>(std::int64_t{last} - first + 1); }
  std::size_t place(std::int32_t year) const { return static_cast<std::size_t>(year - first); }
};

Chart begin_chart(const ForecastPageInput& input, const Panel& panel, std::string_view prefix,
                  const ChartYears& years) {
  Chart chart;
  chart.language = input.language;
  chart.id = "pw-" + std::string(prefix) + std::string(panel.id);
  chart.title = phrase(panel.title, input.language);
  chart.unit = phrase(panel.unit, input.language);
  chart.first_number = years.first;
  chart.figures.headings.push_back(phrase(year_word, input.language));
  for (std::int32_t year = years.first; year <= years.last; ++year) add_place(chart, std::to_string(year));
  return chart;
}

void add_real_years(Chart& chart, std::span<const RealYear> real, const Panel& panel, const ChartYears& years,
                    const std::string& name) {
  std::vector<Value> values(years.count());
  for (const RealYear& year : real) {
    if (year.year < years.first || year.year > years.last) continue;
    const auto value = figure_of(year.figures, panel.figure);
    if (value) values[years.place(year.year)] = panel.scale * *value;
  }
  add_series(chart, name, values, panel.decimals);
}

bool is_of_few(const Forecast& forecast) {
  return forecast.replicates() < least_replicates_of_band;
}

void add_scenario(const ForecastPageInput& input, Chart& chart, const Forecast& forecast, std::size_t scenario,
                  const Panel& panel, const ChartYears& years) {
  const ScenarioForecast& of = forecast.scenarios[scenario];
  std::vector<Value> median(years.count()), low(years.count()), high(years.count());
  for (std::int32_t year = 0; year < forecast.years; ++year) {
    const std::optional<Band> band = of.band(year, panel.figure);
    if (!band || forecast.first_year + year > years.last) continue;
    const std::size_t place = years.place(forecast.first_year + year);
    median[place] = panel.scale * band->median;
    low[place] = panel.scale * band->shown_low();
    high[place] = panel.scale * band->shown_high();
  }
  const std::string name = title_of(of.rules, input.language);
  add_series(chart, name, median, panel.decimals);
  const bool are_few = is_of_few(forecast);
  add_column(chart, phrase(are_few ? least_word : low_word, input.language, {name}), low, panel.decimals);
  add_column(chart, phrase(are_few ? most_word : high_word, input.language, {name}), high, panel.decimals);
  chart.series.back().low = low;
  chart.series.back().high = high;
}

std::string charts_of(const ForecastPageInput& input) {
  constexpr std::int32_t past_years = 30;
  const std::int32_t last_past = input.forecast.first_year - 1;
  const std::int32_t first =
      input.past.empty() ? last_past : std::max(input.past.front().year, last_past - past_years + 1);
  const ChartYears years = {first, last_past + input.forecast.years};
  std::string text;
  for (const Panel& panel : panels) {
    Chart chart = begin_chart(input, panel, "f-", years);
    chart.reading = phrase(is_of_few(input.forecast) ? few_reading : chart_reading, input.language);
    add_real_years(chart, input.past, panel, years, phrase(past_series, input.language));
    for (std::size_t k = 0; k < input.forecast.scenarios.size(); ++k) {
      add_scenario(input, chart, input.forecast, k, panel, years);
    }
    write_chart(text, chart, input.language);
  }
  return text;
}

std::string with_range(const ForecastPageInput& input, const std::optional<Band>& band, double scale, int decimals) {
  if (!band) return std::string(no_figure);
  const auto figure = [&](double value) { return report_figure(scale * value, decimals, input.language); };
  return phrase(range_words, input.language,
                {figure(band->median), figure(band->shown_low()), figure(band->shown_high())});
}

FigureTable rules_table(const ForecastPageInput& input) {
  FigureTable table;
  table.is_of_words = true;
  for (const Wording& heading : rules_headings) table.headings.push_back(phrase(heading, input.language));
  for (std::size_t k = 0; k < input.summaries.size(); ++k) {
    const ScenarioSummary& summary = input.summaries[k];
    FigureTable::FigureRow row = {title_of(input.forecast.scenarios[k].rules, input.language), {}};
    row.cells.push_back(with_range(input, summary.of(SummaryFigure::last_kinship).value, 100.0, 2));
    row.cells.push_back(with_range(input, summary.of(SummaryFigure::last_kinship).difference, 100.0, 2));
    row.cells.push_back(with_range(input, summary.of(SummaryFigure::kinship_rate_per_generation).value, 100.0, 2));
    for (const SummaryFigure cost :
         {SummaryFigure::refused_litters, SummaryFigure::refused_sires, SummaryFigure::refused_pairs,
          SummaryFigure::refused_entrants, SummaryFigure::lost_litters}) {
      const auto& value = summary.of(cost).value;
      row.cells.push_back(value ? report_figure(value->median, 1, input.language) : std::string(no_figure));
    }
    table.rows.push_back(std::move(row));
  }
  return table;
}

/// The rules of a scenario in one line; empty where it has none.
std::string all_in_words(const BreedingRules& rules, ToolLanguage language) {
  std::string lines;
  for (const WrittenRule& rule : rules.written) lines += (lines.empty() ? "" : "; ") + rule_in_words(rule, language);
  return lines.empty() ? lines : as_sentence(lines);
}

std::string results_of(const ForecastPageInput& input) {
  std::string text;
  add_paragraph(text, as_sentence(replicates_sentence(input.forecast, input.language)));
  for (std::size_t k = 0; k < input.summaries.size(); ++k) {
    const BreedingRules& rules = input.forecast.scenarios[k].rules;
    text += "<h3>" + escaped(title_of(rules, input.language)) + "</h3>\n";
    add_paragraph(text, all_in_words(rules, input.language));
    text += "<ul>\n";
    for (const std::string& line : scenario_sentences(input.forecast, input.summaries[k], k, input.language)) {
      text += "<li>" + escaped(as_sentence(line)) + "</li>\n";
    }
    text += "</ul>\n";
  }
  for (const std::string& line : input.warnings) add_paragraph(text, as_sentence(line));
  write_figure_table(text, rules_table(input), phrase(rules_caption, input.language));
  return text;
}

std::string trust_of(const ForecastPageInput& input) {
  std::string text;
  add_paragraph(text, phrase(what_it_is, input.language));
  add_paragraph(text, phrase(how_it_did, input.language));
  if (input.hindcast == nullptr) {
    add_paragraph(text, phrase(no_look_back, input.language));
    return text;
  }
  const Forecast& forecast = input.hindcast->forecast;
  for (const std::string& line : truth_sentences(forecast, input.past, input.hindcast->from, input.language)) {
    add_paragraph(text, as_sentence(line));
  }
  constexpr std::int32_t years_before = 10;
  const ChartYears years = {input.hindcast->from - years_before + 1, forecast.first_year + forecast.years - 1};
  for (const Panel& panel : panels) {
    if (panel.figure != ForecastFigure::mean_f && panel.figure != ForecastFigure::kinship_with_self) continue;
    Chart chart = begin_chart(input, panel, "b-", years);
    chart.reading = phrase(is_of_few(forecast) ? look_back_of_few : look_back_reading, input.language,
                           {std::to_string(input.hindcast->from)});
    add_real_years(chart, input.past, panel, years, phrase(truth_series, input.language));
    add_scenario(input, chart, forecast, 0, panel, years);
    write_chart(text, chart, input.language);
  }
  return text;
}

std::string practice_of(const ForecastPageInput& input) {
  std::string text;
  for (const std::string& line : input.practice) add_paragraph(text, as_sentence(line));
  return text;
}

}  // namespace

std::string forecast_body(const ForecastPageInput& input) {
  std::string body;
  define_fillings(body);
  write_section(body, "result", words_of(result_title, input.language), results_of(input));
  write_section(body, "charts", words_of(charts_title, input.language), charts_of(input));
  write_section(body, "trust", words_of(trust_title, input.language), trust_of(input));
  write_section(body, "practice", words_of(practice_title, input.language), practice_of(input));
  return body;
}

std::string make_forecast_page(const ForecastPageInput& input) {
  const std::string title = phrase(page_title, input.language, {data_text(input.population_name)});
  const std::string body = corrections_note(input.corrections, input.language) + forecast_body(input);
  return whole_page(input.language, title, body, phrase(made_by, input.language));
}

}  // namespace pedigreewatch
