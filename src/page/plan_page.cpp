#include "page/plan_page.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "page/bar_list.h"
#include "page/chart_drawing.h"
#include "page/chart_figure.h"
#include "page/corrections_note.h"
#include "page/page.h"
#include "page/page_text.h"
#include "page/whole_page.h"

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
    "F volgt uit de bekende voorouders: 25 % is zoals bij volle broer en zus, 12,5 % zoals bij halfbroer en halfzus, 6,25 % zoals bij neef en nicht."};
constexpr Wording males_contributions = {"Contributions of the males", "Bijdragen van de vaders"};
constexpr Wording females_contributions = {"Contributions of the females", "Bijdragen van de moeders"};
constexpr Wording contributions_reading = {
    "At most forty animals with the largest best shares of the matings, in per cent, and what the plan gives them: where the "
    "two differ, whole matings and limits stand between.",
    "Hoogstens veertig dieren met de grootste beste aandelen in de paringen, in procenten, en wat het plan hun geeft: waar "
    "die verschillen staan hele paringen en grenzen ertussen."};
constexpr Wording best_series = {"best share, %", "beste aandeel, %"}, plan_series = {"the plan, %", "het plan, %"};
constexpr Wording kinship_title = {"Kinship before and after", "Verwantschap ervoor en erna"};
constexpr Wording kinship_reading = {
    "Mean kinship of the offspring under each way to use parents: the lower, the more diversity is kept.",
    "Gemiddelde verwantschap van de nakomelingen bij elke manier om ouders te gebruiken: hoe lager, hoe meer variatie "
    "behouden blijft."};
constexpr Wording kinship_unit = {"mean kinship, %", "gemiddelde verwantschap, %"};

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
  return phrase(shared_part, input.language,
                {id_of(input, ancestor.position), shown_percent(ancestor.contribution, input.language)});
}

/// Identifications as people look them up: numbers in them count as numbers, so that "9" stands before "10".
bool stands_before(std::string_view a, std::string_view b) {
  constexpr std::string_view all_digits = "0123456789";
  while (!a.empty() && !b.empty()) {
    const std::size_t digits = std::min(a.find_first_not_of(all_digits), a.size());
    const std::size_t others = std::min(b.find_first_not_of(all_digits), b.size());
    if (digits == 0 || others == 0) {
      if (a.front() != b.front()) return a.front() < b.front();
      a.remove_prefix(1);
      b.remove_prefix(1);
      continue;
    }
    std::string_view number = a.substr(0, digits), other = b.substr(0, others);
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    other.remove_prefix(std::min(other.find_first_not_of('0'), other.size()));
    if (number != other) return number.size() != other.size() ? number.size() < other.size() : number < other;
    a.remove_prefix(digits);
    b.remove_prefix(others);
  }
  return a.size() < b.size();
}

/// Places of all pairs, by the identifications of one sex, then of the other.
std::vector<std::size_t> order_of_pairs(const PlanPageInput& input, Sex first) {
  const std::vector<MatingPair>& pairs = input.matings.pairs;
  std::vector<std::size_t> order(pairs.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto id = [&](std::size_t k, bool is_first) {
    return input.store.id((first == female) == is_first ? pairs[k].female : pairs[k].male);
  };
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    if (id(a, true) != id(b, true)) return stands_before(id(a, true), id(b, true));
    return stands_before(id(a, false), id(b, false));
  });
  return order;
}

bool has_names(const PlanPageInput& input) {
  return std::any_of(input.matings.pairs.begin(), input.matings.pairs.end(), [&](const MatingPair& pair) {
    return !name_of(input, pair.female).empty() || !name_of(input, pair.male).empty();
  });
}

/// All pairs with the animals of one sex first; columns of names only where there are names.
FigureTable pairs_by(const PlanPageInput& input, Sex first) {
  FigureTable table;
  table.is_of_words = true;
  const bool with_names = has_names(input);
  const auto add_heading = [&](const Wording& heading) { table.headings.push_back(phrase(heading, input.language)); };
  for (const Sex sex : {first, first == female ? male : female}) {
    add_heading(sex == female ? female_word : male_word);
    if (with_names) add_heading(name_word);
  }
  for (const Wording* const heading : {&matings_word, &f_word, &shares_word}) add_heading(*heading);
  for (const std::size_t k : order_of_pairs(input, first)) {
    const MatingPair& pair = input.matings.pairs[k];
    const PlannedPair& planned = input.plan.pairs[k];
    const std::int32_t one = first == female ? pair.female : pair.male;
    const std::int32_t mate = first == female ? pair.male : pair.female;
    const std::string wish = planned.is_wished ? " (" + phrase(wished_mark, input.language) + ")" : std::string();
    std::vector<std::string> cells;
    if (with_names) cells.push_back(name_of(input, one));
    cells.push_back(id_of(input, mate));
    if (with_names) cells.push_back(name_of(input, mate));
    cells.insert(cells.end(), {std::to_string(planned.matings), shown_percent(planned.kinship, input.language) + wish,
                               shared_by(input, k)});
    table.rows.push_back({id_of(input, one), std::move(cells)});
  }
  return table;
}

/// The animals of a sex with the largest best shares.
std::vector<std::size_t> largest_shares(const PlanPageInput& input, Sex sex) {
  constexpr std::size_t most_animals = 40;
  constexpr double least_share = 1e-6;
  const std::vector<double>& shares = input.plan.optimum().shares;
  const std::vector<std::int32_t>& numbers = input.plan.numbers.numbers;
  std::vector<std::size_t> order;
  for (std::size_t k = 0; k < shares.size(); ++k) {
    const bool is_used = !numbers.empty() && numbers[k] > 0;
    if (input.plan.sex[k] == sex && (is_used || shares[k] > least_share)) order.push_back(k);
  }
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return shares[a] > shares[b]; });
  order.resize(std::min(order.size(), most_animals));
  return order;
}

void write_contributions(std::string& page, const PlanPageInput& input, Sex sex) {
  const bool is_male = sex == male;
  BarList list;
  list.id = is_male ? "pw-contributions" : "pw-contributions-of-females";
  list.title = phrase(is_male ? males_contributions : females_contributions, input.language);
  list.reading = phrase(contributions_reading, input.language);
  list.heading = phrase(is_male ? male_word : female_word, input.language);
  list.figures.push_back(phrase(best_series, input.language));
  const std::vector<std::int32_t>& numbers = input.plan.numbers.numbers;
  if (!numbers.empty()) list.figures.push_back(phrase(plan_series, input.language));
  for (const std::size_t k : largest_shares(input, sex)) {
    BarList::Row row = {id_of(input, input.plan.candidates[k]), {}};
    row.values.emplace_back(100.0 * input.plan.optimum().shares[k] / share_of_sex);
    if (!numbers.empty()) row.values.emplace_back(100.0 * numbers[k] / static_cast<double>(input.request.matings));
    list.rows.push_back(std::move(row));
  }
  write_bar_list(page, list, input.language);
}

void write_kinships(std::string& page, const PlanPageInput& input) {
  const ComparisonTable comparison = comparison_of(input.plan, input.language);
  BarList list = {"pw-kinship",
                  phrase(kinship_title, input.language),
                  phrase(kinship_reading, input.language),
                  comparison.headings.front(),
                  {phrase(kinship_unit, input.language)},
                  {},
                  3};
  for (const auto& way : input.plan.comparisons) {
    if (way) list.rows.push_back({comparison.rows[list.rows.size()].way, {100.0 * way->mean_kinship}});
  }
  write_bar_list(page, list, input.language);
}

std::string summary_of(const PlanPageInput& input) {
  std::string text;
  const PlanWarnings warnings = find_warnings(input.store, input.request, input.plan);
  add_paragraph(text, gain_sentence(input.plan, warnings, input.language));
  for (const Sex sex : {male, female}) {
    add_paragraph(text, candidates_sentence(input.pool.candidates.of(sex), sex, input.language));
  }
  add_paragraph(text, gone_sentence(input.pool, input.language));
  add_paragraph(text, unknown_sexes_sentence(input.pool, input.language));
  std::string limits;
  for (const std::string& limit : limit_sentences(input.request, input.language)) {
    limits += (limits.empty() ? "" : "; ") + limit;
  }
  add_paragraph(text, limits);
  for (const std::string& line : result_sentences(input.plan, input.language, input.is_changed, input.speaker)) {
    add_paragraph(text, line);
  }
  for (const std::string& line : warning_sentences(warnings, input.request, input.language, input.speaker)) {
    text += "<p><strong>" + escaped(line) + "</strong></p>\n";
  }
  write_figure_table(text, figures_of(comparison_of(input.plan, input.language)),
                     phrase(comparison_caption, input.language));
  if (!input.plan.curve.empty()) {
    write_figure_table(text, figures_of(curve_of(input.plan, input.language)), phrase(curve_caption, input.language));
  }
  return text;
}

std::string pairs_section(const PlanPageInput& input, Sex first, const Wording& caption) {
  std::string text;
  add_paragraph(text, phrase(reading_f, input.language));
  write_figure_table(text, pairs_by(input, first), phrase(caption, input.language));
  return text;
}

std::string body_of(const PlanPageInput& input) {
  std::string page;
  define_fillings(page);
  write_section(page, "plan", words_of(summary_title, input.language), summary_of(input));
  if (!input.plan.pairs.empty()) {
    write_section(page, "females", words_of(females_title, input.language),
                  pairs_section(input, female, females_caption));
    write_section(page, "males", words_of(males_title, input.language), pairs_section(input, male, males_caption));
  }
  std::string charts;
  for (const Sex sex : {male, female}) write_contributions(charts, input, sex);
  write_kinships(charts, input);
  write_section(page, "charts", words_of(charts_title, input.language), charts);
  return page;
}

}  // namespace

std::string make_plan_page(const PlanPageInput& input) {
  const std::string title = phrase(page_title, input.language, {data_text(input.population_name)});
  const std::string body = corrections_note(input.corrections, input.language) + body_of(input);
  return whole_page(input.language, title, body, phrase(made_by, input.language));
}

}  // namespace pedigreewatch
