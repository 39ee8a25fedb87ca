#include "planning/plan_words.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "checks/readable_text.h"

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
    "the bound: the mean kinship {1} of the parents of the last {2} birth years, and {3} % of what is left",
    "de grens: de gemiddelde verwantschap {1} van de ouders van de laatste {2} geboortejaren, en {3} % van wat rest"};
constexpr Wording numbers_line = {
    "whole numbers: mean kinship {1}, {2} % above the best shares; moving single matings improves it no further",
    "hele aantallen: gemiddelde verwantschap {1}, {2} % boven de beste aandelen; een paring verplaatsen verbetert "
    "niets meer"};
constexpr Wording value_numbers_line = {"whole numbers: mean kinship {1}, mean breeding value {2}",
                                        "hele aantallen: gemiddelde verwantschap {1}, gemiddelde fokwaarde {2}"};
constexpr Wording bound_missed_line = {
    "these whole numbers do not keep the bound: {1} is above {2}; give more --matings, a lower --most-per-male, or a "
    "higher --rate",
    "deze hele aantallen blijven niet onder de grens: {1} is hoger dan {2}; geef meer --matings, een lagere "
    "--most-per-male of een hogere --rate"};
constexpr Wording pairs_line = {
    "pairs: mean F {1}; with these numbers, and without the pairs that may not be, no other pairs have a lower one",
    "paren: gemiddelde F {1}; met deze aantallen, en zonder de paren die niet mogen, hebben geen andere paren een "
    "lagere"};
constexpr Wording gain_line = {
    "Compared with the parents of {1}, the plan keeps as much diversity as the breed loses in {2} years (it has lost "
    "{3} % "
    "of what was left each year over the last ten).",
    "Vergeleken met de ouders van {1} behoudt het plan zoveel variatie als het ras in {2} jaar verliest (de laatste "
    "tien "
    "jaar ging er elk jaar {3} % verloren van wat er nog was)."};
constexpr Wording lost_line = {
    "Compared with the parents of {1}, the plan gives up as much diversity as the breed loses in {2} years (it has "
    "lost "
    "{3} % of what was left each year over the last ten).",
    "Vergeleken met de ouders van {1} geeft het plan zoveel variatie prijs als het ras in {2} jaar verliest (de "
    "laatste "
    "tien jaar ging er elk jaar {3} % verloren van wat er nog was)."};
constexpr Wording no_loss_line = {
    "The mean kinship of the young has not risen measurably over the last ten years: the gain cannot be told in years.",
    "De gemiddelde verwantschap van de jongen is de laatste tien jaar niet meetbaar gestegen: de winst is niet in "
    "jaren "
    "uit te drukken."};

constexpr Wording gain_is_uncertain = {
    " {1} % of the plan are animals with hardly any known ancestors, which count as unrelated: the true gain may be much "
    "smaller.",
    " {1} % van het plan zijn dieren met nauwelijks bekende voorouders, die als onverwant tellen: de echte winst kan veel "
    "kleiner zijn."};

constexpr Wording little_known_warning = {
    "{1} candidates have fewer than {2} equivalent generations of known ancestors: they look unrelated because nobody "
    "knows. Their share in the plan is {3} %.{4}",
    "{1} kandidaten hebben minder dan {2} equivalente generaties bekende voorouders: zij lijken onverwant omdat niemand "
    "het weet. Hun aandeel in het plan is {3} %.{4}"};
constexpr Wording three_males_warning = {
    "No more than three males have {1} % of the matings: the plan rests on them. Give a lower {2}.",
    "Niet meer dan drie vaders hebben {1} % van de paringen: het plan steunt op hen. Geef een lagere {2}."};

/// What limits are called, and what is said of a way to leave animals out.
struct PlanTerms {
  Wording matings, most_per_male, most_per_female, most_f, fewer_pairs, leave_out;
};
constexpr PlanTerms console_terms = {{"--matings", "--matings"},
                                     {"--most-per-male", "--most-per-male"},
                                     {"--most-per-female", "--most-per-female"},
                                     {"--most-f", "--most-f"},
                                     {", or --contributions-only", ", of --contributions-only"},
                                     {" --least-generations leaves them out.", " --least-generations laat ze weg."}};
constexpr PlanTerms desk_terms = {{"matings", "paringen"},
                                  {"\"matings of a male at most\"", "\"paringen van een vader hoogstens\""},
                                  {"\"matings of a female at most\"", "\"paringen van een moeder hoogstens\""},
                                  {"\"F at most\"", "\"F hoogstens\""},
                                  {"", ""},
                                  {"", ""}};

constexpr const PlanTerms& terms_of(PlanSpeaker speaker) {
  return speaker == PlanSpeaker::console ? console_terms : desk_terms;
}

constexpr Wording few_values_warning = {
    "Only {1} of {2} candidates have a breeding value; the others count as the mean of their sex.",
    "Maar {1} van {2} kandidaten hebben een fokwaarde; de andere tellen als het gemiddelde van hun geslacht."};

constexpr Wording males_word = {"males", "mannelijke dieren"}, females_word = {"females", "vrouwelijke dieren"};
constexpr Wording by_list = {"{1}: {2}, of the list", "{1}: {2}, uit de lijst"};
constexpr Wording by_years = {"{1}: {2}, born {3} to {4}", "{1}: {2}, geboren {3} tot en met {4}"};
constexpr Wording by_ages = {
    "{1}: {2}, of {3} to {4} years (5 to 95 in 100 of the parents' ages at {5} births of the last ten years); whether "
    "they are alive and available the data do not say",
    "{1}: {2}, van {3} tot en met {4} jaar (5 tot 95 op de 100 van de leeftijden van ouders bij {5} geboorten in de "
    "laatste "
    "tien jaar); of zij leven en beschikbaar zijn zeggen de gegevens niet"};

constexpr Wording too_few_matings = {
    "{1} matings do not fit: the {2} {3} may have {4} together; give fewer {6}, or raise {5}",
    "{1} paringen passen niet: de {2} {3} mogen er samen {4} hebben; geef minder {6}, of verhoog {5}"};
constexpr Wording too_many_matings = {
    "{1} matings do not fit: those {3} that must be used need {4} already; give more --matings, or mend --numbers and "
    "--wished",
    "{1} paringen passen niet: de {3} die gebruikt moeten worden hebben er al {4} nodig; geef meer --matings, of "
    "verbeter --numbers en --wished"};
constexpr Wording no_sum = {
    "{1} matings do not fit: no number of {3}, each with at least --least-per-male and at most --most-per-male, adds "
    "up "
    "to them; lower --least-per-male",
    "{1} paringen passen niet: geen aantal {3}, elk met minstens --least-per-male en hoogstens --most-per-male, telt "
    "daartoe "
    "op; verlaag --least-per-male"};
constexpr Wording kinship_bound = {
    "no shares keep the mean kinship at {1} or below: the lowest is {2}; give a higher --rate (from {3}), or more "
    "candidates",
    "geen aandelen houden de gemiddelde verwantschap op {1} of lager: de laagste is {2}; geef een hogere --rate (vanaf "
    "{3}), of meer kandidaten"};
constexpr Wording stuck_heading = {
    "the pairs cannot be made: {1} females need {2} matings, and all the males they may go with have {3}; raise {4}, "
    "forbid fewer pairs, or give more candidates. The females:",
    "de paren zijn niet te maken: {1} moeders hebben {2} paringen nodig, en alle vaders waarmee zij mogen hebben er {3}; "
    "verhoog {4}, verbied minder paren, of geef meer kandidaten. De moeders:"};
constexpr Wording stuck_males = {"the males they may go with: {1}", "de vaders waarmee zij mogen: {1}"};
constexpr Wording no_males_at_all = {"there is no male at all for them", "voor hen is er geen enkele vader"};
constexpr Wording and_more = {"and {1} more", "en nog {1}"};
constexpr Wording too_many_pairs = {
    "the males and females that are used make more than {1} possible pairs; give fewer {2} or candidates{3}",
    "de vaders en moeders die gebruikt worden geven meer dan {1} mogelijke paren; geef minder {2} of kandidaten{3}"};

constexpr Wording rate_heading = {"inbreeding a generation, %", "inteelt per generatie, %"};
constexpr Wording curve_kinship = {"mean kinship, %", "gemiddelde verwantschap, %"};

constexpr std::array<Wording, 8> reasons = {{{"", ""},
                                             {"related to all", "verwant aan allen"},
                                             {"best share below a mating", "beste aandeel kleiner dan een paring"},
                                             {"too young", "te jong"},
                                             {"too old", "te oud"},
                                             {"excluded", "uitgesloten"},
                                             {"other subpopulation", "andere subpopulatie"},
                                             {"few known ancestors", "weinig bekende voorouders"}}};

constexpr int kinship_digits = 8;

std::string name_of(PlanWay way, const Plan& plan, ToolLanguage language) {
  switch (way) {
    case PlanWay::last_year: return phrase(last_year_way, language, {std::to_string(plan.last_year)});
    case PlanWay::all_alike: return std::string(words_of(alike_way, language));
    case PlanWay::optimum: return std::string(words_of(optimum_way, language));
    case PlanWay::random_pairs: return std::string(words_of(random_way, language));
    case PlanWay::plan: return std::string(words_of(plan_way, language));
  }
  return {};
}

std::string digits(double value) {
  return fixed_decimals(value, kinship_digits);
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
  return phrase(wording, language,
                {std::to_string(request.matings), std::to_string(animals), animals_of(sex, language),
                 std::to_string(obstacle == NumberObstacle::too_few ? most : least),
                 words_of(sex == male ? terms.most_per_male : terms.most_per_female, language),
                 words_of(terms.matings, language)});
}

/// The first identifications of a list, and how many more there are.
std::string id_list(const PopulationStore& store, const std::vector<std::int32_t>& positions, ToolLanguage language) {
  constexpr std::size_t most = 50;
  std::string text;
  for (std::size_t k = 0; k < std::min(most, positions.size()); ++k) {
    text += (k == 0 ? "" : ", ") + shown(readable(store.id(positions[k])));
  }
  if (positions.size() > most) text += ", " + phrase(and_more, language, {std::to_string(positions.size() - most)});
  return text;
}

std::vector<std::string> pair_sentences(const PopulationStore& store, const Plan& plan, ToolLanguage language,
                                        const PlanTerms& terms) {
  std::int64_t wanted = 0, room = 0;
  for (std::size_t k = 0; k < plan.candidates.size(); ++k) {
    const auto is_among = [&](const std::vector<std::int32_t>& list) {
      return std::find(list.begin(), list.end(), plan.candidates[k]) != list.end();
    };
    if (plan.numbers.numbers[k] == 0) continue;
    if (is_among(plan.stuck_females)) wanted += plan.numbers.numbers[k];
    if (is_among(plan.their_males)) room += plan.numbers.numbers[k];
  }
  return {phrase(stuck_heading, language,
                 {std::to_string(plan.stuck_females.size()), std::to_string(wanted), std::to_string(room),
                  words_of(terms.most_f, language)}),
          "  " + id_list(store, plan.stuck_females, language),
          plan.their_males.empty() ? std::string(words_of(no_males_at_all, language))
                                   : phrase(stuck_males, language, {id_list(store, plan.their_males, language)})};
}

std::string bound_sentence(const Plan& plan, ToolLanguage language) {
  constexpr double step = 1e-4;  // the next hundredth of a per cent
  const double base = plan.parents_kinship.value_or(plan.most_kinship);
  const double rate = (plan.least.mean_kinship - base) / (1.0 - base) + step;
  return phrase(kinship_bound, language,
                {fixed_decimals(plan.most_kinship, 6), fixed_decimals(plan.least.mean_kinship, 6), percent_of(rate)});
}

}  // namespace

std::vector<std::string> obstacle_sentences(const PopulationStore& store, const PlanRequest& request, const Plan& plan,
                                            ToolLanguage language, PlanSpeaker speaker) {
  const PlanTerms& terms = terms_of(speaker);
  std::vector<std::string> lines;
  if (plan.obstacle == PlanObstacle::pairs) return pair_sentences(store, plan, language, terms);
  if (plan.obstacle == PlanObstacle::kinship_bound) return {bound_sentence(plan, language)};
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
    ComparisonTable::Row row = {name_of(static_cast<PlanWay>(k), plan, language),
                                {percent_of(way.mean_kinship, 3), percent_of(1.0 - way.mean_kinship, 3),
                                 way.mean_f ? percent_of(*way.mean_f) : std::string(), std::to_string(way.males),
                                 std::to_string(way.females), percent_of(way.top_male, 1)}};
    if (has_values) row.cells.push_back(way.value ? fixed_decimals(*way.value, 3) : std::string());
    table.rows.push_back(std::move(row));
  }
  return table;
}

std::vector<std::string> result_sentences(const Plan& plan, ToolLanguage language, bool is_changed) {
  std::vector<std::string> lines;
  lines.push_back(phrase(free_line, language,
                         {digits(plan.without_limits.mean_kinship), power_of_ten(plan.without_limits.certificate)}));
  lines.push_back(
      phrase(least_line, language, {digits(plan.least.mean_kinship), power_of_ten(plan.least.certificate)}));
  if (plan.valued) {
    if (plan.parents_kinship) {
      const double rate = (plan.most_kinship - *plan.parents_kinship) / (1.0 - *plan.parents_kinship);
      lines.push_back(phrase(bound_line, language,
                             {digits(*plan.parents_kinship), std::to_string(plan.interval_years), percent_of(rate)}));
    }
    lines.push_back(phrase(value_line, language,
                           {digits(plan.most_kinship), fixed_decimals(plan.valued->value, 4),
                            fixed_decimals(plan.valued->most_value, 4)}));
  }
  if (plan.numbers.numbers.empty()) return lines;
  const double planned = plan.numbers.mean_kinship, best = plan.least.mean_kinship;
  if (plan.valued) {
    const auto& value = plan.of(PlanWay::random_pairs);
    lines.push_back(phrase(value_numbers_line, language,
                           {digits(planned), fixed_decimals(value ? value->value.value_or(0.0) : 0.0, 4)}));
    if (planned > plan.most_kinship) {
      lines.push_back(phrase(bound_missed_line, language, {digits(planned), digits(plan.most_kinship)}));
    }
  } else {
    lines.push_back(
        phrase(numbers_line, language, {digits(planned), fixed_decimals(100.0 * (planned / best - 1.0), 3)}));
  }
  const auto& way = plan.of(PlanWay::plan);
  if (way && !is_changed) lines.push_back(phrase(pairs_line, language, {digits(*way->mean_f)}));
  return lines;
}

std::string gain_sentence(const Plan& plan, const PlanWarnings& warnings, ToolLanguage language) {
  if (!plan.of(PlanWay::last_year) || !plan.loss_per_year) return {};
  if (!plan.years_gained) return std::string(words_of(no_loss_line, language));
  const Wording& wording = *plan.years_gained >= 0.0 ? gain_line : lost_line;
  std::string sentence = phrase(wording, language,
                                {std::to_string(plan.last_year), fixed_decimals(std::abs(*plan.years_gained), 1),
                                 percent_of(*plan.loss_per_year, 3)});
  if (warnings.share_of_little_known > 0.0 && *plan.years_gained >= 0.0) {
    sentence += phrase(gain_is_uncertain, language, {percent_of(warnings.share_of_little_known, 1)});
  }
  return sentence;
}

std::vector<std::string> warning_sentences(const PlanWarnings& warnings, const PlanRequest& request,
                                           ToolLanguage language, PlanSpeaker speaker) {
  const PlanTerms& terms = terms_of(speaker);
  std::vector<std::string> lines;
  if (warnings.little_known > 0) {
    lines.push_back(phrase(little_known_warning, language,
                           {std::to_string(warnings.little_known), fixed_decimals(double{few_generations}, 0),
                            percent_of(warnings.share_of_little_known, 1), words_of(terms.leave_out, language)}));
  }
  if (warnings.three_males)
    lines.push_back(phrase(three_males_warning, language,
                           {percent_of(*warnings.three_males, 1), words_of(terms.most_per_male, language)}));
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
                  {animals, count, std::to_string(candidates.first_year), std::to_string(candidates.last_year)});
  }
  const BreedingAges ages = candidates.ages.value_or(BreedingAges{});
  return phrase(
      by_ages, language,
      {animals, count, std::to_string(ages.youngest), std::to_string(ages.oldest), std::to_string(ages.births)});
}

ComparisonTable curve_of(const Plan& plan, ToolLanguage language) {
  ComparisonTable table;
  const auto say = [&](const Wording& wording) { return std::string(words_of(wording, language)); };
  table.headings = {say(rate_heading), say(curve_kinship), say(value_heading)};
  for (const CurvePoint& point : plan.curve) {
    table.rows.push_back({percent_of(point.rate),
                          {percent_of(point.most_kinship, 3), point.value ? fixed_decimals(*point.value, 4) : ""}});
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
  const double mating = share_of_sex / static_cast<double>(matings);
  return share > least_share && share < mating ? WhyNone::small_share : WhyNone::related;
}

}  // namespace pedigreewatch
