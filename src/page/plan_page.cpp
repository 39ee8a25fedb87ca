#include "page/plan_page.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "page/chart_drawing.h"
#include "page/chart_figure.h"
#include "page/chart_making.h"
#include "page/page.h"
#include "page/page_style.h"
#include "page/page_text.h"
#include "planning/plan_words.h"

namespace pedigreewatch {
namespace {

constexpr Wording page_title = {"Breeding plan: {1}", "Fokplan: {1}"};
constexpr Wording summary_title = {"What the plan achieves", "Wat het plan bereikt"};
constexpr Wording females_title = {"By female", "Per moeder"}, males_title = {"By male", "Per vader"};
constexpr Wording charts_title = {"Charts", "Grafieken"};
constexpr Wording comparison_caption = {"Side by side", "Naast elkaar"};
constexpr Wording curve_caption = {"Breeding value against kinship", "Fokwaarde tegen verwantschap"};
constexpr Wording females_caption = {"Every female with her males", "Elke moeder met haar vaders"};
constexpr Wording males_caption = {"Every male with his females", "Elke vader met zijn moeders"};
constexpr Wording female_word = {"Female", "Moeder"}, male_word = {"Male", "Vader"};
constexpr Wording name_word = {"Name", "Naam"}, matings_word = {"Matings", "Paringen"};
constexpr Wording f_word = {"F of the young, %", "F van de jongen, %"};
constexpr Wording shares_word = {"They share most", "Vooral verwant via"};
constexpr Wording shared_part = {"{1} ({2} %)", "{1} ({2} %)"};
constexpr Wording wished_mark = {"wished for", "gewenst"};
constexpr Wording made_by = {"Made by pedigreewatch-tools plan; docs/plan.md explains every figure.",
                             "Gemaakt door pedigreewatch-tools plan; docs/plan.md legt elk cijfer uit."};
constexpr Wording reading_f = {
    "F is worked out from the known ancestors: 25 % is as of full sibs, 12.5 % as of half sibs, 6.25 % as of first "
    "cousins.",
    "F volgt uit de bekende voorouders: 25 % is zoals bij volle broer en zus, 12,5 % zoals bij halfbroer en halfzus, "
    "6,25 "
    "% zoals bij neef en nicht."};
constexpr Wording contributions_title = {"Contributions of the males", "Bijdragen van de vaders"};
constexpr Wording contributions_reading = {
    "The males with the largest best shares, and what the plan gives them: where the lines part, whole matings and "
    "limits "
    "stand between.",
    "De vaders met de grootste beste aandelen, en wat het plan hun geeft: waar de lijnen uiteenlopen staan hele "
    "paringen "
    "en grenzen ertussen."};
constexpr Wording contributions_unit = {"% of the matings", "% van de paringen"};
constexpr Wording best_series = {"best share", "beste aandeel"}, plan_series = {"the plan", "het plan"};
constexpr Wording kinship_title = {"Kinship before and after", "Verwantschap ervoor en erna"};
constexpr Wording kinship_reading = {
    "Mean kinship of the offspring under each way to use parents: the lower, the more diversity is kept.",
    "Gemiddelde verwantschap van de nakomelingen bij elke manier om ouders te gebruiken: hoe lager, hoe meer variatie "
    "behouden blijft."};
constexpr Wording kinship_unit = {"mean kinship, %", "gemiddelde verwantschap, %"};

std::string say(const PlanPageInput& input, const Wording& wording) {
  return std::string(words_of(wording, input.language));
}

void add_paragraph(std::string& page, std::string_view text) {
  if (!text.empty()) page += "<p>" + escaped(text) + "</p>\n";
}

std::string id_of(const PlanPageInput& input, std::int32_t position) {
  return data_text(input.store.id(position));
}

/// The name of an animal; nothing where it has none.
std::string name_of(const PlanPageInput& input, std::int32_t position) {
  const std::string name = input.store.has_name ? data_text(input.store.name(position)) : std::string();
  return name == "-" ? std::string() : name;
}

FigureTable figures_of(const ComparisonTable& comparison) {
  FigureTable table;
  table.headings = comparison.headings;
  for (const ComparisonTable::Row& row : comparison.rows) table.rows.push_back({row.way, row.cells});
  for (FigureTable::FigureRow& row : table.rows) {
    for (std::string& cell : row.cells) cell = cell.empty() ? std::string(no_figure) : cell;
  }
  return table;
}

std::string shared_by(const PlanPageInput& input, std::size_t pair) {
  const CommonAncestor& ancestor = input.matings.parts[pair].largest.front();
  if (ancestor.position == 0) return std::string(no_figure);
  return phrase(shared_part, input.language, {id_of(input, ancestor.position), percent_of(ancestor.contribution)});
}

/// All pairs with the animals of one sex first.
FigureTable pairs_by(const PlanPageInput& input, Sex first) {
  FigureTable table;
  table.is_of_words = true;
  const Wording& own = first == female ? female_word : male_word;
  const Wording& other = first == female ? male_word : female_word;
  for (const Wording* const heading : {&own, &name_word, &other, &name_word, &matings_word, &f_word, &shares_word}) {
    table.headings.push_back(say(input, *heading));
  }
  const std::vector<PlannedPair>& pairs = input.plan.pairs;
  std::vector<std::size_t> order(pairs.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  if (first == male) {
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return pairs[a].male < pairs[b].male; });
  }
  for (const std::size_t k : order) {
    const MatingPair& pair = input.matings.pairs[k];
    const std::int32_t one = first == female ? pair.female : pair.male,
                       mate = first == female ? pair.male : pair.female;
    const std::string wish = pairs[k].is_wished ? " (" + say(input, wished_mark) + ")" : std::string();
    table.rows.push_back(
        {id_of(input, one),
         {name_of(input, one), id_of(input, mate), name_of(input, mate), std::to_string(pairs[k].matings),
          percent_of(pairs[k].kinship) + wish, shared_by(input, k)}});
  }
  return table;
}

Chart begin_chart(const PlanPageInput& input, ChartKind kind, std::string_view id,
                  std::array<const Wording*, 4> texts) {
  Chart chart;
  chart.kind = kind;
  chart.id = "pw-" + std::string(id);
  chart.title = say(input, *texts[0]);
  chart.reading = say(input, *texts[1]);
  chart.unit = say(input, *texts[2]);
  chart.figures.headings.push_back(say(input, *texts[3]));
  chart.shows_figures = true;
  return chart;
}

Chart contributions_chart(const PlanPageInput& input) {
  constexpr std::size_t most_males = 40;
  Chart chart = begin_chart(input, ChartKind::lines, "contributions",
                            {&contributions_title, &contributions_reading, &contributions_unit, &male_word});
  const std::vector<double>& shares = input.plan.optimum().shares;
  std::vector<std::size_t> order;
  for (std::size_t k = 0; k < shares.size(); ++k) {
    const bool is_used = !input.plan.numbers.numbers.empty() && input.plan.numbers.numbers[k] > 0;
    if (input.plan.sex[k] == male && (is_used || shares[k] > 1e-6)) order.push_back(k);
  }
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return shares[a] > shares[b]; });
  order.resize(std::min(order.size(), most_males));
  std::vector<Value> best, planned;
  for (const std::size_t k : order) {
    add_place(chart, id_of(input, input.plan.candidates[k]));
    best.emplace_back(100.0 * shares[k] / share_of_sex);
    if (input.plan.numbers.numbers.empty()) continue;
    planned.emplace_back(100.0 * input.plan.numbers.numbers[k] / static_cast<double>(input.request.matings));
  }
  add_series(chart, say(input, best_series), best, 2);
  if (!planned.empty()) add_series(chart, say(input, plan_series), planned, 2);
  return chart;
}

Chart kinship_chart(const PlanPageInput& input) {
  Chart chart = begin_chart(input, ChartKind::stacked_bars, "kinship",
                            {&kinship_title, &kinship_reading, &kinship_unit, &male_word});
  const ComparisonTable comparison = comparison_of(input.plan, input.language);
  chart.figures.headings.front() = comparison.headings.front();
  std::vector<Value> values;
  for (const ComparisonTable::Row& row : comparison.rows) add_place(chart, row.way);
  for (const auto& way : input.plan.comparisons) {
    if (way) values.emplace_back(100.0 * way->mean_kinship);
  }
  add_series(chart, chart.unit, values, 3);
  return chart;
}

void write_section(std::string& page, const PlanPageInput& input, std::string_view id, const Wording& title,
                   const std::string& content) {
  page += "<section aria-labelledby=\"pw-" + std::string(id) + "\"><h2 id=\"pw-" + std::string(id) + "\">" +
          escaped(say(input, title)) + "</h2>\n" + content + "</section>\n";
}

std::string summary_of(const PlanPageInput& input) {
  std::string text;
  const PlanWarnings warnings = find_warnings(input.store, input.request, input.plan);
  add_paragraph(text, gain_sentence(input.plan, warnings, input.language));
  for (const Sex sex : {male, female}) {
    add_paragraph(text, candidates_sentence(input.pool.candidates.of(sex), sex, input.language));
  }
  for (const std::string& line : result_sentences(input.plan, input.language, input.is_changed)) {
    add_paragraph(text, line);
  }
  for (const std::string& line : warning_sentences(warnings, input.request, input.language)) {
    text += "<p><strong>" + escaped(line) + "</strong></p>\n";
  }
  write_figure_table(text, figures_of(comparison_of(input.plan, input.language)), say(input, comparison_caption));
  if (!input.plan.curve.empty()) {
    write_figure_table(text, figures_of(curve_of(input.plan, input.language)), say(input, curve_caption));
  }
  return text;
}

std::string pairs_section(const PlanPageInput& input, Sex first, const Wording& caption) {
  std::string text;
  add_paragraph(text, say(input, reading_f));
  write_figure_table(text, pairs_by(input, first), say(input, caption));
  return text;
}

std::string body_of(const PlanPageInput& input) {
  std::string page;
  define_fillings(page);
  write_section(page, input, "plan", summary_title, summary_of(input));
  if (!input.plan.pairs.empty()) {
    write_section(page, input, "females", females_title, pairs_section(input, female, females_caption));
    write_section(page, input, "males", males_title, pairs_section(input, male, males_caption));
  }
  std::string charts;
  write_chart(charts, contributions_chart(input), input.language);
  write_chart(charts, kinship_chart(input), input.language);
  write_section(page, input, "charts", charts_title, charts);
  return page;
}

}  // namespace

std::string make_plan_page(const PlanPageInput& input) {
  const std::string title = phrase(page_title, input.language, {data_text(input.population_name)});
  std::string page = "<!DOCTYPE html>\n<html lang=\"" +
                     std::string(input.language == ToolLanguage::english ? "en" : "nl") +
                     "\">\n<head>\n<meta charset=\"utf-8\">\n<meta http-equiv=\"Content-Security-Policy\" content=\"" +
                     content_security_policy() +
                     "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
                     escaped(title) + "</title>\n<style>";
  page += page_style();
  page += "</style>\n</head>\n<body class=\"pw\">\n<header><h1>" + isolated(title) + "</h1></header>\n<main>\n";
  page += body_of(input);
  page += "</main>\n<footer><p>" + escaped(say(input, made_by)) + "</p></footer>\n<script>";
  page += page_script();
  page += "</script>\n</body>\n</html>\n";
  return page;
}

}  // namespace pedigreewatch
