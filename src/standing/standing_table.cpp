// Each group of figures adds its rows; figures are keys of the same name in both languages.

#include "standing/standing_table.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <utility>

#include "checks/readable_text.h"
#include "core/shares.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

constexpr Wording of_rate = {"FAO (1998): 1 % per generation", "FAO (1998): 1 % per generatie"};
constexpr Wording of_size = {"FAO (1998): 50; Frankham, Bradshaw and Brook (2014): 100",
                             "FAO (1998): 50; Frankham, Bradshaw en Brook (2014): 100"};
constexpr Wording from_kinship = {"pairs of animals born {1}-{2}, ancestors born from {3} on",
                                  "paren van dieren geboren {1}-{2}, voorouders geboren vanaf {3}"};
constexpr Wording from_inbreeding = {"parents of animals born {1}-{2}, ancestors born from {3} on",
                                     "ouders van dieren geboren {1}-{2}, voorouders geboren vanaf {3}"};
constexpr Wording before_rule = {"pairs of animals born before {1}", "paren van dieren geboren voor {1}"};
constexpr Wording since_rule = {"pairs of animals born from {1} on, ancestors likewise",
                                "paren van dieren geboren vanaf {1}, voorouders ook"};
constexpr Wording of_change = {"1: the margins before and since do not overlap",
                               "1: de marges van ervoor en erna overlappen niet"};
constexpr Wording of_young = {"animals born {1}-{2}", "dieren geboren {1}-{2}"};
constexpr Wording of_judged = {"animals born {1}-{2} with both parents known",
                               "dieren geboren {1}-{2} waarvan beide ouders bekend zijn"};
constexpr Wording of_all = {"all animals with a known parent", "alle dieren met een bekende ouder"};
constexpr Wording of_check = {"the check of the data", "de controle van de gegevens"};
constexpr Wording of_three = {"1 to 3: how far the estimates agree, and how much is known",
                              "1 tot 3: hoe goed de schattingen overeenkomen, en hoeveel bekend is"};
constexpr Wording own_limit = {"limit of the board", "grens van het bestuur"};
constexpr Wording usual_limit = {"limit taken when the board gives none",
                                 "grens die geldt als het bestuur er geen geeft"};
constexpr Wording this_program = {"bound of this program", "grens van dit programma"};
constexpr Wording rule_of_thumb = {"rule of thumb: 1/(8 sires) + 1/(8 dams)",
                                   "vuistregel: 1/(8 vaders) + 1/(8 moeders)"};
constexpr Wording line_left = {"founder of whose genes less than 0.5 % is left; animals that carry them: {1}",
                               "stamdier van welks genen minder dan 0.5 % over is; dieren die ze dragen: {1}"};
constexpr Wording of_two_intervals = {"animals of the last two generation intervals",
                                      "dieren van de laatste twee generatie-intervallen"};
constexpr Wording with_import = {"rule of thumb: an unrelated sire with this share of the young",
                                 "vuistregel: een onverwante vader met dit deel van de jongen"};
constexpr Wording no_interval = {"the generation interval is not known", "het generatie-interval is niet bekend"};
constexpr double rate_limit = 0.01;

std::string number(double value) {
  if (!std::isfinite(value)) return {};
  std::array<char, 32> digits{};
  const int length = std::snprintf(digits.data(), digits.size(), "%.6g", value);
  std::string text(digits.data(), static_cast<std::size_t>(length));
  for (char& byte : text) byte = byte == ',' ? '.' : byte;  // whatever the decimal sign of the place is
  return text;
}

struct RowList {
  const PopulationStore& store;
  const Standing& standing;
  ToolLanguage language;
  std::vector<StandingRow> rows;

  std::string id(std::int32_t position) const { return readable(without_trailing_blanks(store.id(position))); }
  std::string words(const Wording& wording, std::initializer_list<std::int32_t> years = {}) const {
    std::array<std::string, 3> texts;
    std::size_t count = 0;
    for (const std::int32_t year : years) texts[count++] = std::to_string(year);
    return phrase(wording, language, {texts[0], texts[1], texts[2]});
  }
  std::string young() const { return words(of_young, {standing.years.recent_first, standing.years.last}); }
  std::string judged() const { return words(of_judged, {standing.years.recent_first, standing.years.last}); }
  void add(std::string_view figure, std::string value, std::string source, std::string limit = {}) {
    rows.push_back({std::string(figure), std::move(value), {}, {}, std::move(limit), std::move(source)});
  }
  /// Empty unless it is known.
  void add_known(std::string_view figure, bool is_known, double value, std::string source, std::string limit = {}) {
    add(figure, is_known ? number(value) : std::string(), std::move(source), std::move(limit));
  }
  /// Of what is followed from generation to generation.
  std::string of_generations(const Wording& wording, std::initializer_list<std::int32_t> years = {}) const {
    return standing.years.has_interval() ? words(wording, years) : words(no_interval);
  }
  void add_animal(std::string_view figure, std::int32_t position, std::string source) {
    add(figure, id(position), std::move(source));
    rows.back().is_id = true;
  }
  void add(std::string_view figure, double value, std::string source, std::string limit = {}) {
    add(figure, number(value), std::move(source), std::move(limit));
  }
  void add_rate(std::string_view figure, const RateEstimate& estimate, std::string source) {
    StandingRow& row = rows.emplace_back();
    row.figure = figure;
    row.limit = number(rate_limit);
    row.source = std::move(source) + "; " + words(of_rate);
    if (!estimate.rate) return;
    const Margin margin = margin_of(estimate);
    row.value = number(*estimate.rate);
    row.low = number(margin.low);
    row.high = number(margin.high);
  }
};

std::string share_text(std::int64_t part, std::int64_t all) {
  return all > 0 ? number(share_of(part, all)) : std::string();
}

void add_rates(RowList& list) {
  const Standing& standing = list.standing;
  const StandingYears& years = standing.years;
  const std::initializer_list<std::int32_t> span = {years.cohort_first, years.last, years.now_first};
  list.add_rate("rate", standing.rate(), list.of_generations(from_kinship, span));
  StandingRow& size = list.rows.emplace_back();
  size.figure = "effective_size";
  size.limit = number(least_size);
  size.source = list.of_generations(from_kinship, span) + "; " + list.words(of_size);
  if (standing.rate().rate) {
    const Margin margin = margin_of(standing.rate());
    size.value = number(effective_size_of(*standing.rate().rate));
    size.low = number(effective_size_of(margin.high));
    size.high = number(effective_size_of(margin.low));
  }
  list.add_rate("rate_by_inbreeding", standing.now[by_inbreeding], list.of_generations(from_inbreeding, span));
  list.add_rate("rate_by_parents_in_use", standing.now[by_parents_in_use],
                list.of_generations(from_kinship, {years.cohort_first, years.last, years.cohort_first}));
  list.add_rate("rate_before", standing.before, list.of_generations(before_rule, {years.now_first}));
  if (!standing.rule) return;
  list.add("rule_year", standing.rule->year, list.words(own_limit));
  list.add_rate("rate_before_rule", standing.rule->before, list.of_generations(before_rule, {standing.rule->year}));
  list.add_rate("rate_since_rule", standing.rule->since, list.of_generations(since_rule, {standing.rule->year}));
  const bool is_told = standing.rule->before.rate && standing.rule->since.rate;
  list.add_known("change_is_real", is_told, standing.rule->is_real ? 1.0 : 0.0, list.words(of_change));
}

void add_young(RowList& list) {
  const Standing& standing = list.standing;
  const YoungOfFiveYears& young = standing.young;
  const bool is_own = standing.settings.is_most_inbreeding_given;
  list.add("births", static_cast<double>(young.births), list.young());
  list.add("births_before", static_cast<double>(young.births_before),
           list.words(of_young, {standing.years.recent_first - 5, standing.years.recent_first - 1}));
  list.add("young_above_most_f", share_text(young.above_most, young.judged),
           list.judged() + "; F: " + list.words(is_own ? own_limit : usual_limit),
           number(standing.settings.most_inbreeding));
  list.add("young_of_half_sibs_or_closer", share_text(young.close, young.judged), list.judged() + "; F >= 0.125");
  list.add_known("inbreeding_of_young", young.judged > 0, young.inbreeding, list.judged());
  list.add_known("inbreeding_by_chance", standing.has_chance_inbreeding(), young.chance_inbreeding, list.judged());
  list.add("share_of_imported_parents", share_text(young.imported_parents, young.known_parents), list.young());
}

void add_parents(RowList& list) {
  const Standing& standing = list.standing;
  const auto add_use = [&](const std::string& sex, const ParentsInUse& use) {
    const bool is_known = !use.parents.empty();
    list.add_known(sex + "_used", is_known, static_cast<double>(use.parents.size()), list.young());
    list.add_known(sex + "_effective", is_known, use.effective, list.young());
    list.add_known(sex + "_share_of_four", is_known, use.share_of_four, list.young());
  };
  add_use("sires", standing.sires);
  add_use("dams", standing.dams);
  const std::string limit = number(standing.settings.most_sire_share);
  const std::string source =
      list.young() + "; " + list.words(standing.settings.is_sire_share_given ? own_limit : usual_limit);
  if (!standing.sires.parents.empty()) {
    list.add("most_used_sire_share", standing.sires.parents.front().share, source, limit);
  }
  std::size_t number_of_sire = 0;
  for (const ParentShare& sire : standing.sires_to_rest) {
    const std::string name = "overused_sire_" + std::to_string(++number_of_sire);
    list.add_animal(name, sire.parent, source);
    list.add(name + "_share", sire.share, source, limit);
  }
  if (standing.overused_sires_gone() > 0) {
    list.add("overused_sires_gone", static_cast<double>(standing.overused_sires_gone()), source, limit);
  }
  if (const std::optional<double> part = standing.sires_part_of_rise()) {
    list.add("sires_part_of_rise", *part, list.words(rule_of_thumb));
  }
  list.add_known("inbreeding_with_import", standing.has_chance_inbreeding(), standing.inbreeding_with_import(),
                 list.words(with_import), limit);
  if (const std::optional<double> generations = standing.generations_gained_by_import()) {
    list.add("generations_gained_by_import", *generations, list.words(with_import), limit);
  }
  if (standing.rate_with_sires_held) {
    list.add("rate_with_sires_held", *standing.rate_with_sires_held, list.words(rule_of_thumb), number(rate_limit));
  }
}

void add_lines(RowList& list) {
  const RareLines& found = list.standing.rare_lines;
  const bool is_known = list.standing.years.has_interval();
  const std::string source = list.of_generations(of_two_intervals);
  list.add_known("founders_of_young", is_known, static_cast<double>(found.founders), source);
  list.add_known("rare_founders", is_known, static_cast<double>(found.rare_founders), source, number(rare_founder));
  std::size_t number_of_line = 0;
  for (const RareLine& line : list.standing.rare_lines.lines) {
    std::string carriers;
    for (const LineCarrier& carrier : line.carriers)
      carriers += (carriers.empty() ? "" : ", ") + list.id(carrier.animal);
    const std::string name = "rare_line_" + std::to_string(++number_of_line);
    list.add_animal(name, line.founder, phrase(line_left, list.language, {carriers}));
    list.add(name + "_share", line.share_of_young, phrase(line_left, list.language, {carriers}), number(rare_founder));
  }
}

void add_data(RowList& list) {
  const StandingData& data = list.standing.data;
  const StandingYears& years = list.standing.years;
  const std::string bound = "; " + list.words(this_program);
  list.add("generation_equivalents", data.equivalents, list.young() + bound, number(least_equivalents));
  list.add("both_parents_known", data.both_known, list.words(of_young, {years.known_first, years.last}) + bound,
           number(least_both_known));
  list.add_known("unknown_parents", data.unknown_parents.has_value(), data.unknown_parents.value_or(0.0),
                 list.words(of_all));
  list.add("young_below_two_equivalents", share_text(list.standing.young.shallow, list.standing.young.births),
           list.young());
  const double most = std::floor(most_faulty_share * list.store.animal_count);
  list.add("falsifying_faults", static_cast<double>(data.faults.of_animals), list.words(of_check) + bound,
           number(most));
  list.add("faults_of_file", static_cast<double>(data.faults.of_file), list.words(of_check) + bound, "0");
  list.add("late_births", static_cast<double>(data.faults.late_births.count), list.words(of_check) + bound, "0");
  list.add_known("generation_interval", years.has_interval(), years.generation_interval, list.of_generations({}));
}

}  // namespace

StandingRow standing_header() {
  return {"figure", "value", "low", "high", "limit", "source"};
}

std::string_view name_of(Pace pace) {
  constexpr std::array<std::string_view, 4> names = {"too_fast", "on_the_edge", "within_limit", "cannot_be_judged"};
  return names[static_cast<std::size_t>(pace)];
}

std::vector<StandingRow> standing_rows(const PopulationStore& store, const Standing& standing, ToolLanguage language) {
  RowList list{store, standing, language, {}};
  list.add("verdict", std::string(name_of(standing.pace)), list.words(of_rate));
  list.add("sureness", standing.sureness, list.words(of_three));
  add_rates(list);
  add_young(list);
  add_parents(list);
  add_lines(list);
  add_data(list);
  return std::move(list.rows);
}

}  // namespace pedigreewatch
