#include "planning/plan_words.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "checks/readable_text.h"
#include "text/counted.h"

namespace pedigreewatch {
namespace {

constexpr Wording way_heading = {"parents", "ouders"};
constexpr Wording kinship_heading = {"mean kinship of the offspring, %", "gemiddelde verwantschap nakomelingen, %"};
constexpr Wording diversity_heading = {"gene diversity kept, %", "genetische variatie behouden, %"};
constexpr Wording f_heading = {"mean F of the matings, %", "gemiddelde F van de paringen, %"};
constexpr Wording males_heading = {"males", "vaders"}, females_heading = {"females", "moeders"};
constexpr Wording top_heading = {"most used male, % of matings", "meest gebruikte vader, % van paringen"};
constexpr Wording value_heading = {"mean breeding value", "gemiddelde fokwaarde"};

constexpr auto short_words = std::to_array<Wording>({{"", ""},
                                                     {"kinship %", "verwantsch. %"},
                                                     {"diversity %", "variatie %"},
                                                     {"mean F %", "gem. F %"},
                                                     {"males", "vaders"},
                                                     {"females", "moeders"},
                                                     {"top male %", "topvader %"},
                                                     {"value", "fokwaarde"}});

constexpr Wording last_year_way = {"as used in {1}", "zoals gebruikt in {1}"};
constexpr Wording last_year_way_within = {"as used in {1}, subpopulation", "zoals gebruikt in {1}, subpopulatie"};
constexpr Wording the_breed = {"the breed", "het ras"}, the_subpopulation = {"the subpopulation", "de subpopulatie"};
constexpr Wording alike_way = {"all candidates alike", "alle kandidaten gelijk"};
constexpr Wording optimum_way = {"best shares", "beste aandelen"};
constexpr Wording random_way = {"the plan's numbers, pairs at random", "aantallen van het plan, paren willekeurig"};
constexpr Wording plan_way = {"the plan", "het plan"};

constexpr Wording free_line = {
    "least mean kinship whatever the numbers: {1} (proved to {2})",
    "laagste gemiddelde verwantschap zonder grenzen aan de aantallen: {1} (bewezen tot op {2})"};
constexpr Wording least_line = {"least mean kinship within the limits: {1} (proved to {2})",
                                "laagste gemiddelde verwantschap binnen de grenzen: {1} (bewezen tot op {2})"};
constexpr Wording value_line = {
    "highest mean breeding value within the limits at a kinship of at most {1}: {2} (none is above {3})",
    "hoogste gemiddelde fokwaarde binnen de grenzen bij een verwantschap van hoogstens {1}: {2} (geen is hoger dan "
    "{3})"};
constexpr Wording bound_line = {
    "the bound: the mean kinship {1} of the parents of {2}, and {3} % of what is left",
    "de grens: de gemiddelde verwantschap {1} van de ouders van {2}, en {3} % van wat rest"};
constexpr Wording numbers_line = {
    "whole numbers: mean kinship {1}, {2} % above the best shares; moving single matings improves it no further",
    "hele aantallen: gemiddelde verwantschap {1}, {2} % boven de beste aandelen; een paring verplaatsen verbetert "
    "niets meer"};
constexpr Wording value_numbers_line = {"whole numbers: mean kinship {1}, mean breeding value {2}",
                                        "hele aantallen: gemiddelde verwantschap {1}, gemiddelde fokwaarde {2}"};
constexpr Wording bound_missed_line = {
    "these whole numbers do not keep the bound: {1} is above {2}; give more {3}, a lower {4}, or a higher {5}",
    "deze hele aantallen blijven niet onder de grens: {1} is hoger dan {2}; geef meer {3}, een lagere {4} of een hogere "
    "{5}"};
constexpr Wording pairs_line = {
    "pairs: mean F {1}; with these numbers, and without the pairs that may not be, no other pairs have a lower one",
    "paren: gemiddelde F {1}; met deze aantallen, en zonder de paren die niet mogen, hebben geen andere paren een "
    "lagere"};
constexpr Wording pairs_with_wishes_line = {
    "pairs: mean F {1}; with these numbers and the pairs wished for, and without the pairs that may not be, no other pairs "
    "have a lower one",
    "paren: gemiddelde F {1}; met deze aantallen en de gewenste paren, en zonder de paren die niet mogen, hebben geen "
    "andere paren een lagere"};
constexpr Wording gain_line = {
    "Compared with the parents of {1}, the plan keeps as much diversity as {4} loses in {2} years (it has lost {3} % of what was left each year over the last ten).",
    "Vergeleken met de ouders van {1} behoudt het plan zoveel variatie als {4} in {2} jaar verliest (de laatste tien jaar ging er elk jaar {3} % verloren van wat er nog was)."};
constexpr Wording lost_line = {
    "Compared with the parents of {1}, the plan gives up as much diversity as {4} loses in {2} years (it has lost {3} % of what was left each year over the last ten).",
    "Vergeleken met de ouders van {1} geeft het plan zoveel variatie prijs als {4} in {2} jaar verliest (de laatste tien jaar ging er elk jaar {3} % verloren van wat er nog was)."};
constexpr Wording no_loss_line = {
    "The mean kinship of the young has not risen clearly over the last ten years: the gain cannot be told in years.",
    "De gemiddelde verwantschap van de jongen is de laatste tien jaar niet duidelijk gestegen: de winst is niet in jaren uit te drukken."};

constexpr Wording gain_is_uncertain = {
    " {1} % of the plan are animals with hardly any known ancestors, which count as unrelated: the true gain may be much "
    "smaller.",
    " {1} % van het plan zijn dieren met nauwelijks bekende voorouders, die als onverwant tellen: de echte winst kan veel "
    "kleiner zijn."};

constexpr Wording little_known_warning = {
    "Candidates with fewer than {2} equivalent generations of known ancestors: {1}, with {3} % of the plan. Such animals "
    "look unrelated because nobody knows their ancestors.{4}",
    "Kandidaten met minder dan {2} equivalente generaties bekende voorouders: {1}, met {3} % van het plan. Zulke dieren "
    "lijken onverwant omdat niemand hun voorouders kent.{4}"};
/// By how many males it is.
constexpr auto few_males_warnings =
    std::to_array<Wording>({{"One male has {1} % of the matings: the plan rests on him.{2}",
                             "E\u00e9n vader heeft {1} % van de paringen: het plan steunt op hem.{2}"},
                            {"Two males have {1} % of the matings: the plan rests on them.{2}",
                             "Twee vaders hebben {1} % van de paringen: het plan steunt op hen.{2}"},
                            {"Three males have {1} % of the matings: the plan rests on them.{2}",
                             "Drie vaders hebben {1} % van de paringen: het plan steunt op hen.{2}"}});
constexpr Wording lower_most = {" Give a lower {1}.", " Geef een lagere {1}."};
constexpr Wording no_other_males = {" There are no other males to plan with: look for more.",
                                    " Er zijn geen andere vaders om mee te plannen: zoek er meer."};

/// What limits are called, and what is said of a way to leave animals out.
struct PlanTerms {
  Wording matings, most_per_male, most_per_female, least_per_male, most_f, rate, numbers, fewer_pairs, leave_out;
};
constexpr PlanTerms console_terms = {{"--matings", "--matings"},
                                     {"--most-per-male", "--most-per-male"},
                                     {"--most-per-female", "--most-per-female"},
                                     {"--least-per-male", "--least-per-male"},
                                     {"--most-f", "--most-f"},
                                     {"--rate", "--rate"},
                                     {"--numbers and --wished", "--numbers en --wished"},
                                     {", or --contributions-only", ", of --contributions-only"},
                                     {" --least-generations leaves them out.", " --least-generations laat ze weg."}};
constexpr PlanTerms desk_terms = {
    {"matings", "paringen"},
    {"\"matings of a male at most\"", "\"paringen van een vader hoogstens\""},
    {"\"matings of a female at most\"", "\"paringen van een moeder hoogstens\""},
    {"\"matings of a male that is used at least\"", "\"paringen van een gebruikte vader minstens\""},
    {"\"F at most\"", "\"F hoogstens\""},
    {"\"inbreeding a generation at most\"", "\"inteelt per generatie hoogstens\""},
    {"the numbers that are given", "de aantallen die gegeven zijn"},
    {"", ""},
    {"", ""}};

constexpr const PlanTerms& terms_of(PlanSpeaker speaker) {
  return speaker == PlanSpeaker::console ? console_terms : desk_terms;
}

constexpr Wording few_values_warning = {
    "Breeding values are known of {1} of {2} candidates only; the others count as the mean of their sex.",
    "Van maar {1} van de {2} kandidaten is een fokwaarde bekend; de andere tellen als het gemiddelde van hun geslacht."};

constexpr Counted matings_counted = {{"1 mating", "1 paring"}, {"{1} matings", "{1} paringen"}};
constexpr Counted males_counted = {{"1 male", "1 mannelijk dier"}, {"{1} males", "{1} mannelijke dieren"}};
constexpr Counted females_counted = {{"1 female", "1 vrouwelijk dier"}, {"{1} females", "{1} vrouwelijke dieren"}};
constexpr Counted dams_counted = {{"1 female", "1 moeder"}, {"{1} females", "{1} moeders"}};
constexpr Counted births_counted = {{"1 birth", "1 geboorte"}, {"{1} births", "{1} geboorten"}};
constexpr Counted last_years = {{"the last birth year", "het laatste geboortejaar"},
                                {"the last {1} birth years", "de laatste {1} geboortejaren"}};

constexpr Wording males_word = {"males", "mannelijke dieren"}, females_word = {"females", "vrouwelijke dieren"};
constexpr Wording by_list = {"{1}: {2}, of the list", "{1}: {2}, uit de lijst"};
constexpr Wording by_years = {"{1}: {2}, born {3}", "{1}: {2}, geboren {3}"};
constexpr Wording by_ages = {
    "{1}: {2}, of {3} years (5 to 95 in 100 of the parents' ages at {4} of the last ten years)",
    "{1}: {2}, van {3} jaar (5 tot 95 op de 100 van de leeftijden van ouders bij {4} in de laatste tien jaar)"};
constexpr Wording not_told = {"{1}; whether they are alive and available is left out of account",
                              "{1}; of zij leven en beschikbaar zijn blijft buiten beschouwing"};
constexpr Counted gone_animals = {
    {"1 animal of these ages or years is left out because it is no longer there (dead, sold, castrated, ...)",
     "1 dier van deze leeftijden of jaren valt weg omdat het er niet meer is (dood, verkocht, gecastreerd, ...)"},
    {"{1} animals of these ages or years are left out because they are no longer there (dead, sold, castrated, ...)",
     "{1} dieren van deze leeftijden of jaren vallen weg omdat ze er niet meer zijn (dood, verkocht, gecastreerd, ...)"}};
constexpr Counted unknown_sexes = {
    {"left out: 1 animal of these ages or years whose sex neither its line nor young of it tell; name it in a list of males "
     "or females to plan with it",
     "weggelaten: 1 dier van deze leeftijden of jaren waarvan noch de eigen regel, noch een jong het geslacht zegt; noem "
     "het in een lijst van vaders of moeders om er toch mee te plannen"},
    {"left out: {1} animals of these ages or years whose sex neither their lines nor young of them tell; name them in a "
     "list of males or females to plan with them",
     "weggelaten: {1} dieren van deze leeftijden of jaren waarvan noch de eigen regel, noch een jong het geslacht zegt; "
     "noem ze in een lijst van vaders of moeders om er toch mee te plannen"}};

constexpr Wording too_few_matings = {
    "there is no room for {1}: with {2} there is room for {3} in all; give fewer {5}, or raise {4}",
    "voor {1} is geen plaats: bij {2} is in totaal plaats voor {3}; geef minder {5}, of verhoog {4}"};
constexpr Wording too_many_matings = {
    "there is no room in {1}: what must be used of {2} takes {3} already; give more {5}, or mend {6}",
    "in {1} is geen plaats: wat van {2} gebruikt moet worden vraagt al {3}; geef meer {5}, of verbeter {6}"};
constexpr Wording no_sum = {
    "{1} cannot be divided over {2} such that each that is used gets as many as {7} says, and no more than {4}; lower {7}",
    "{1}: dat is niet zo te verdelen over {2} dat elk dier dat gebruikt wordt er zoveel krijgt als {7} zegt, en niet meer "
    "dan {4}; verlaag {7}"};
constexpr Wording kinship_bound = {
    "no shares keep the mean kinship at {1} or below: the lowest is {2}; give a higher {4} (from {3}), or more "
    "candidates",
    "geen aandelen houden de gemiddelde verwantschap op {1} of lager: de laagste is {2}; geef een hogere {4} (vanaf "
    "{3}), of meer kandidaten"};
constexpr Wording stuck_heading = {
    "the pairs cannot be made: {1} should have {2}, and all the males that may go with them, {3}; raise {4}, forbid fewer "
    "pairs, or give more candidates. The females:",
    "de paren zijn niet te maken: de behoefte van {1} is {2}, die van alle vaders die met hen mogen {3}; verhoog {4}, "
    "verbied minder paren, of geef meer kandidaten. De moeders:"};
constexpr Wording stuck_males = {"the males that may go with them: {1}", "de vaders die met hen mogen: {1}"};
constexpr Wording no_males_at_all = {"no male at all may go with: {1}", "geen enkele vader mag met: {1}"};
constexpr Wording and_more = {"and {1} more", "en nog {1}"};
constexpr Wording too_many_pairs = {
    "the males and females that are used make more than {1} possible pairs; give fewer {2} or candidates{3}",
    "de vaders en moeders die gebruikt worden geven meer dan {1} mogelijke paren; geef minder {2} of kandidaten{3}"};

constexpr Wording limit_matings = {"matings: {1}", "paringen: {1}"};
constexpr Wording limit_most_per_male = {"of a male at most: {1}", "van een vader hoogstens: {1}"};
constexpr Wording limit_least_per_male = {"of a male that is used at least: {1}",
                                          "van een vader die gebruikt wordt minstens: {1}"};
constexpr Wording limit_most_per_female = {"of a female at most: {1}", "van een moeder hoogstens: {1}"};
constexpr Wording limit_fixed = {"animals with a number of their own: {1}", "dieren met een eigen aantal: {1}"};
constexpr Wording limit_most_f = {"F of a pair at most: {1} %", "F van een paar hoogstens: {1} %"};
constexpr Wording limit_forbidden = {"pairs that may not be: {1}", "paren die niet mogen: {1}"};
constexpr Wording limit_wished = {"pairs wished for: {1}", "gewenste paren: {1}"};
constexpr Wording limit_rate = {"inbreeding a generation at most: {1} %", "inteelt per generatie hoogstens: {1} %"};

constexpr Wording rate_heading = {"inbreeding a generation, %", "inteelt per generatie, %"};
constexpr Wording curve_kinship = {"mean kinship, %", "gemiddelde verwantschap, %"};

constexpr std::array<Wording, 13> reasons = {{{"", ""},
                                              {"related to all", "verwant aan allen"},
                                              {"best share below a mating", "beste aandeel kleiner dan een paring"},
                                              {"too young", "te jong"},
                                              {"too old", "te oud"},
                                              {"excluded", "uitgesloten"},
                                              {"other subpopulation", "andere subpopulatie"},
                                              {"few known ancestors", "weinig bekende voorouders"},
                                              {"its number is given as 0", "zijn aantal is opgegeven als 0"},
                                              {"sex unknown", "geslacht onbekend"},
                                              {"low breeding value", "lage fokwaarde"},
                                              {"left out by whole numbers", "valt weg bij hele aantallen"},
                                              {"no longer there", "er niet meer"}}};

constexpr int kinship_digits = 8;

std::string name_of(PlanWay way, const Plan& plan, ToolLanguage language) {
  switch (way) {
    case PlanWay::last_year:
      return phrase(plan.is_of_subpopulation ? last_year_way_within : last_year_way, language,
                    {std::to_string(plan.last_year)});
    case PlanWay::all_alike: return std::string(words_of(alike_way, language));
    case PlanWay::optimum: return std::string(words_of(optimum_way, language));
    case PlanWay::random_pairs: return std::string(words_of(random_way, language));
    case PlanWay::plan: return std::string(words_of(plan_way, language));
  }
  return {};
}

std::string digits(double value, ToolLanguage language) {
  return shown_decimals(value, kinship_digits, language);
}

std::string power_of_ten(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.0e", value);
  return text.data();
}

std::string_view animals_of(Sex sex, ToolLanguage language) {
  return words_of(sex == male ? males_word : females_word, language);
}

/// Why numbers of one sex cannot be.
std::string number_sentence(const PlanRequest& request, const Plan& plan, Sex sex, ToolLanguage language,
                            const PlanTerms& terms) {
  const NumberLimits limits = number_limits_of(request);
  std::int64_t least = 0, most = 0, animals = 0;
  for (std::size_t k = 0; k < limits.sex.size(); ++k) {
    if (limits.sex[k] != sex) continue;
    least += limits.least[k];
    most += limits.most[k];
    ++animals;
  }
  const NumberObstacle obstacle = plan.number_obstacle.of(sex);
  const Wording& wording = obstacle == NumberObstacle::too_few    ? too_few_matings
                           : obstacle == NumberObstacle::too_many ? too_many_matings
                                                                  : no_sum;
  return phrase(
      wording, language,
      {counted(matings_counted, request.matings, language),
       counted(sex == male ? males_counted : females_counted, animals, language),
       std::to_string(obstacle == NumberObstacle::too_few ? most : least),
       words_of(sex == male ? terms.most_per_male : terms.most_per_female, language), words_of(terms.matings, language),
       words_of(terms.numbers, language), words_of(terms.least_per_male, language)});
}

/// The first identifications of a list, and how many more there are.
std::string id_list(const PopulationStore& store, const std::vector<std::int32_t>& positions, ToolLanguage language) {
  constexpr std::size_t most = 1000;
  std::string text;
  for (std::size_t k = 0; k < std::min(most, positions.size()); ++k) {
    text += (k == 0 ? "" : ", ") + shown(readable(store.id(positions[k])));
  }
  if (positions.size() > most) text += ", " + phrase(and_more, language, {std::to_string(positions.size() - most)});
  return text;
}

std::vector<std::string> pair_sentences(const PopulationStore& store, const Plan& plan, ToolLanguage language,
                                        const PlanTerms& terms) {
  const auto count = [](const std::vector<std::int32_t>& list) -> std::int64_t { return std::ssize(list); };
  std::vector<std::string> lines = {phrase(stuck_heading, language,
                                           {counted(dams_counted, count(plan.stuck_females), language),
                                            counted(matings_counted, plan.stuck_matings, language),
                                            std::to_string(plan.their_matings), words_of(terms.most_f, language)}),
                                    "  " + id_list(store, plan.stuck_females, language)};
  if (!plan.females_without_male.empty()) {
    lines.push_back(phrase(no_males_at_all, language, {id_list(store, plan.females_without_male, language)}));
  }
  if (!plan.their_males.empty()) {
    lines.push_back(phrase(stuck_males, language, {id_list(store, plan.their_males, language)}));
  }
  return lines;
}

std::string bound_sentence(const Plan& plan, ToolLanguage language, const PlanTerms& terms) {
  constexpr double step = 1e-4;  // the next hundredth of a per cent
  const double base = plan.parents_kinship.value_or(plan.most_kinship);
  const double rate = (plan.least.mean_kinship - base) / (1.0 - base) + step;
  return phrase(kinship_bound, language,
                {shown_decimals(plan.most_kinship, 6, language), shown_decimals(plan.least.mean_kinship, 6, language),
                 shown_percent(rate, language), words_of(terms.rate, language)});
}

}  // namespace

std::vector<std::string> obstacle_sentences(const PopulationStore& store, const PlanRequest& request, const Plan& plan,
                                            ToolLanguage language, PlanSpeaker speaker) {
  const PlanTerms& terms = terms_of(speaker);
  std::vector<std::string> lines;
  if (plan.obstacle == PlanObstacle::pairs) return pair_sentences(store, plan, language, terms);
  if (plan.obstacle == PlanObstacle::kinship_bound) return {bound_sentence(plan, language, terms)};
  if (plan.obstacle == PlanObstacle::too_many_pairs) {
    return {phrase(too_many_pairs, language,
                   {std::to_string(most_planned_pairs), words_of(terms.matings, language),
                    words_of(terms.fewer_pairs, language)})};
  }
  for (const Sex sex : {male, female}) {
    if (plan.number_obstacle.of(sex) == NumberObstacle::none) continue;
    lines.push_back(number_sentence(request, plan, sex, language, terms));
  }
  return lines;
}

std::string fixed_decimals(double value, int decimals) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
  const std::string_view shown = text.data();
  const bool is_minus_zero = shown.starts_with('-') && shown.find_first_not_of("-0.") == std::string_view::npos;
  return std::string(is_minus_zero ? shown.substr(1) : shown);
}

std::string percent_of(double fraction, int decimals) {
  return fixed_decimals(100.0 * fraction, decimals);
}

std::string shown_decimals(double value, int decimals, ToolLanguage language) {
  std::string text = fixed_decimals(value, decimals);
  if (language == ToolLanguage::dutch) std::replace(text.begin(), text.end(), '.', ',');
  return text;
}

std::string shown_percent(double fraction, ToolLanguage language, int decimals) {
  return shown_decimals(100.0 * fraction, decimals, language);
}

ComparisonTable comparison_of(const Plan& plan, ToolLanguage language) {
  ComparisonTable table;
  const auto say = [&](const Wording& wording) { return std::string(words_of(wording, language)); };
  table.headings = {say(way_heading),   say(kinship_heading), say(diversity_heading), say(f_heading),
                    say(males_heading), say(females_heading), say(top_heading)};
  const bool has_values = !plan.values.empty();
  if (has_values) table.headings.push_back(say(value_heading));
  for (std::size_t k = 0; k < table.headings.size(); ++k) table.short_headings.push_back(say(short_words[k]));
  for (std::size_t k = 0; k < plan_ways; ++k) {
    if (!plan.comparisons[k]) continue;
    const PlanComparison& way = *plan.comparisons[k];
    ComparisonTable::Row row = {
        name_of(static_cast<PlanWay>(k), plan, language),
        {shown_percent(way.mean_kinship, language, 3), shown_percent(1.0 - way.mean_kinship, language, 3),
         way.mean_f ? shown_percent(*way.mean_f, language) : std::string(), std::to_string(way.males),
         std::to_string(way.females), shown_percent(way.top_male, language, 1)}};
    if (has_values) row.cells.push_back(way.value ? shown_decimals(*way.value, 3, language) : std::string());
    table.rows.push_back(std::move(row));
  }
  return table;
}

namespace {

/// Breeding values within the bound: where it comes from, and what it allows.
void add_value_sentences(const Plan& plan, ToolLanguage language, std::vector<std::string>& lines) {
  if (plan.parents_kinship) {
    const double rate = (plan.most_kinship - *plan.parents_kinship) / (1.0 - *plan.parents_kinship);
    lines.push_back(phrase(bound_line, language,
                           {digits(*plan.parents_kinship, language), counted(last_years, plan.interval_years, language),
                            shown_percent(rate, language)}));
  }
  lines.push_back(phrase(value_line, language,
                         {digits(plan.most_kinship, language), shown_decimals(plan.valued->value, 4, language),
                          shown_decimals(plan.valued->most_value, 4, language)}));
}

/// Whole numbers, which may miss the bound of breeding values.
void add_number_sentences(const Plan& plan, ToolLanguage language, const PlanTerms& terms,
                          std::vector<std::string>& lines) {
  const double planned = plan.numbers.mean_kinship;
  if (!plan.valued) {
    const double excess = 100.0 * (planned / plan.least.mean_kinship - 1.0);
    lines.push_back(phrase(numbers_line, language, {digits(planned, language), shown_decimals(excess, 3, language)}));
    return;
  }
  const auto& value = plan.of(PlanWay::random_pairs);
  lines.push_back(
      phrase(value_numbers_line, language,
             {digits(planned, language), shown_decimals(value ? value->value.value_or(0.0) : 0.0, 4, language)}));
  if (planned <= plan.most_kinship) return;
  lines.push_back(
      phrase(bound_missed_line, language,
             {digits(planned, language), digits(plan.most_kinship, language), words_of(terms.matings, language),
              words_of(terms.most_per_male, language), words_of(terms.rate, language)}));
}

}  // namespace

std::vector<std::string> result_sentences(const Plan& plan, ToolLanguage language, bool is_changed,
                                          PlanSpeaker speaker) {
  std::vector<std::string> lines;
  lines.push_back(
      phrase(free_line, language,
             {digits(plan.without_limits.mean_kinship, language), power_of_ten(plan.without_limits.certificate)}));
  lines.push_back(
      phrase(least_line, language, {digits(plan.least.mean_kinship, language), power_of_ten(plan.least.certificate)}));
  if (plan.valued) add_value_sentences(plan, language, lines);
  if (plan.numbers.numbers.empty()) return lines;
  add_number_sentences(plan, language, terms_of(speaker), lines);
  const auto& way = plan.of(PlanWay::plan);
  if (!way || is_changed) return lines;
  const bool has_wishes =
      std::any_of(plan.pairs.begin(), plan.pairs.end(), [](const PlannedPair& pair) { return pair.is_wished; });
  lines.push_back(phrase(has_wishes ? pairs_with_wishes_line : pairs_line, language, {digits(*way->mean_f, language)}));
  return lines;
}

std::string gain_sentence(const Plan& plan, const PlanWarnings& warnings, ToolLanguage language) {
  if (!plan.of(PlanWay::last_year) || !plan.loss_per_year) return {};
  if (!plan.years_gained) return std::string(words_of(no_loss_line, language));
  const Wording& wording = *plan.years_gained >= 0.0 ? gain_line : lost_line;
  std::string sentence =
      phrase(wording, language,
             {std::to_string(plan.last_year), shown_decimals(std::abs(*plan.years_gained), 1, language),
              shown_percent(plan.loss_per_year->rate, language, 3),
              words_of(plan.is_of_subpopulation ? the_subpopulation : the_breed, language)});
  if (warnings.share_of_little_known > 0.0 && *plan.years_gained >= 0.0) {
    sentence += phrase(gain_is_uncertain, language, {shown_percent(warnings.share_of_little_known, language, 1)});
  }
  return sentence;
}

std::vector<std::string> warning_sentences(const PlanWarnings& warnings, const PlanRequest& request,
                                           ToolLanguage language, PlanSpeaker speaker) {
  const PlanTerms& terms = terms_of(speaker);
  std::vector<std::string> lines;
  if (warnings.little_known > 0) {
    lines.push_back(
        phrase(little_known_warning, language,
               {std::to_string(warnings.little_known), fixed_decimals(double{few_generations}, 0),
                shown_percent(warnings.share_of_little_known, language, 1), words_of(terms.leave_out, language)}));
  }
  if (warnings.three_males) {
    const auto males = static_cast<std::size_t>(std::clamp<std::int64_t>(warnings.males_named, 1, 3));
    const std::string advice = warnings.has_other_males
                                   ? phrase(lower_most, language, {words_of(terms.most_per_male, language)})
                                   : std::string(words_of(no_other_males, language));
    lines.push_back(
        phrase(few_males_warnings[males - 1], language, {shown_percent(*warnings.three_males, language, 1), advice}));
  }
  if (warnings.has_few_values) {
    lines.push_back(phrase(few_values_warning, language,
                           {std::to_string(warnings.valued_candidates), std::to_string(request.values.size())}));
  }
  return lines;
}

std::string candidates_sentence(const SexCandidates& candidates, Sex sex, ToolLanguage language) {
  const std::string count = std::to_string(candidates.positions.size());
  const std::string_view animals = animals_of(sex, language);
  if (candidates.source == CandidateSource::list) return phrase(by_list, language, {animals, count});
  if (candidates.source == CandidateSource::years) {
    return phrase(by_years, language,
                  {animals, count, range_text(candidates.first_year, candidates.last_year, language)});
  }
  const BreedingAges ages = candidates.ages.value_or(BreedingAges{});
  const std::string range = range_text(ages.youngest, ages.oldest, language);
  const std::string said =
      phrase(by_ages, language, {animals, count, range, counted(births_counted, ages.births, language)});
  return candidates.are_available ? said : phrase(not_told, language, {said});
}

std::string gone_sentence(const CandidatePool& pool, ToolLanguage language) {
  return pool.gone == 0 ? std::string() : counted(gone_animals, pool.gone, language);
}

std::string unknown_sexes_sentence(const CandidatePool& pool, ToolLanguage language) {
  return pool.unknown_sexes == 0 ? std::string() : counted(unknown_sexes, pool.unknown_sexes, language);
}

std::vector<std::string> limit_sentences(const PlanRequest& request, ToolLanguage language) {
  std::vector<std::string> lines;
  const auto add = [&](const Wording& wording, const std::string& value) {
    lines.push_back(phrase(wording, language, {value}));
  };
  const auto add_count = [&](const Wording& wording, std::size_t count) {
    if (count > 0) add(wording, std::to_string(count));
  };
  add(limit_matings, std::to_string(request.matings));
  if (request.most_per_male) add(limit_most_per_male, std::to_string(*request.most_per_male));
  if (request.least_per_male > 1) add(limit_least_per_male, std::to_string(request.least_per_male));
  add(limit_most_per_female, std::to_string(request.most_per_female));
  add_count(limit_fixed, request.fixed.size());
  if (request.most_f) add(limit_most_f, shown_percent(*request.most_f, language));
  add_count(limit_forbidden, request.forbidden.size());
  add_count(limit_wished, request.wished.size());
  if (!request.values.empty()) add(limit_rate, shown_percent(request.rate, language));
  return lines;
}

ComparisonTable curve_of(const Plan& plan, ToolLanguage language) {
  ComparisonTable table;
  const auto say = [&](const Wording& wording) { return std::string(words_of(wording, language)); };
  table.headings = {say(rate_heading), say(curve_kinship), say(value_heading)};
  for (const CurvePoint& point : plan.curve) {
    table.rows.push_back({shown_percent(point.rate, language),
                          {shown_percent(point.most_kinship, language, 3),
                           point.value ? shown_decimals(*point.value, 4, language) : ""}});
  }
  return table;
}

std::string_view words_of_reason(WhyNone why, ToolLanguage language) {
  return words_of(reasons[static_cast<std::size_t>(why)], language);
}

WhyNone reason_of(const Plan& plan, std::size_t place, std::int64_t matings) {
  constexpr double least_share = 1e-9;  // less comes from rounding
  const bool has_numbers = !plan.numbers.numbers.empty();
  const double share = plan.optimum().shares[place];
  if (has_numbers ? plan.numbers.numbers[place] > 0 : share > least_share) return WhyNone::used;
  if (plan.is_fixed_at_none[place] != 0) return WhyNone::fixed_at_none;
  if (share <= least_share) {
    const bool is_used_without_values = plan.valued && plan.least.shares[place] > least_share;
    return is_used_without_values ? WhyNone::low_value : WhyNone::related;
  }
  const double mating = share_of_sex / static_cast<double>(matings);
  return share < mating ? WhyNone::small_share : WhyNone::left_by_whole;
}

}  // namespace pedigreewatch
