#include "page/standing_words.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/shares.h"
#include "page/page_text.h"
#include "text/counted.h"

namespace pedigreewatch {
namespace {

constexpr Wording paces[] = {{"Too fast", "Te snel"},
                             {"On the edge", "Op de grens"},
                             {"Within the usual limit", "Binnen de gebruikelijke grens"},
                             {"Cannot be judged", "Niet te beoordelen"}};
constexpr Wording rises[] = {
    {"Inbreeding rises by {1} per generation: faster than the usual limit of 1 % (FAO 1998).",
     "De inteelt stijgt met {1} per generatie: sneller dan de gebruikelijke grens van 1 % (FAO 1998)."},
    {"Inbreeding rises by {1} per generation: slower than the usual limit of 1 % (FAO 1998), faster than the half per cent that others ask (Frankham, Bradshaw and Brook 2014).",
     "De inteelt stijgt met {1} per generatie: langzamer dan de gebruikelijke grens van 1 % (FAO 1998), sneller dan het halve procent dat anderen vragen (Frankham, Bradshaw en Brook 2014)."},
    {"Inbreeding rises by {1} per generation: slower than the usual limits of 1 % (FAO 1998) and half a per cent (Frankham, Bradshaw and Brook 2014).",
     "De inteelt stijgt met {1} per generatie: langzamer dan de gebruikelijke grenzen van 1 % (FAO 1998) en een half procent (Frankham, Bradshaw en Brook 2014)."},
    {"As the data stand, inbreeding rises by {1} per generation; the usual limit is 1 % (FAO 1998).",
     "Zoals de gegevens er staan stijgt de inteelt met {1} per generatie; de gebruikelijke grens is 1 % (FAO 1998)."}};
constexpr Wording it_was = {"Before {1} it was {2}.", "V\xC3\xB3\xC3\xB3r {1} was dat {2}."};
constexpr Wording mainly_sires = {
    "The cause is mainly the sires: those in use, {1}, are as good as {2} used alike.",
    "De oorzaak zijn vooral de vaders: de gebruikte, {1}, zijn zo goed als {2} gelijk gebruikte."};
constexpr Wording mainly_dams = {
    "The cause is mainly the dams: those in use, {1}, are as good as {2} used alike.",
    "De oorzaak zijn vooral de moeders: de gebruikte, {1}, zijn zo goed als {2} gelijk gebruikte."};
constexpr Wording sires_and_dams = {
    "Few sires (counting for {1}) and few dams ({2}) cause it alike.",
    "Weinig vaders (ze tellen voor {1}) en weinig moeders ({2}) zijn samen de oorzaak."};

constexpr Counted few_animals = {
    {"Too few animals were born in the last year: {2}, where {3} are needed.",
     "In het laatste jaar zijn te weinig dieren geboren: {2}, en er zijn er {3} nodig."},
    {"Too few animals were born in the last {1} years: {2}, where {3} are needed.",
     "In de laatste {1} jaar zijn te weinig dieren geboren: {2}, en er zijn er {3} nodig."}};
constexpr Wording no_interval = {
    "No generation interval is known, and without one no rate can be told. It takes ages of sires and of dams; births at which that of the sire is known: {1}, that of the dam: {2}.",
    "Er is geen generatie-interval bekend, en zonder is er geen stijging te noemen. Het vraagt leeftijden van vaders en van moeders; geboorten waarbij die van de vader bekend is: {1}, die van de moeder: {2}."};
constexpr Wording impossible_interval = {
    "By the dates of birth the generation interval would be {1} years. That cannot be, and without an interval no rate can be told.",
    "Volgens de geboortedatums zou het generatie-interval {1} jaar zijn. Dat kan niet, en zonder interval is er geen stijging te noemen."};
constexpr Wording too_shallow = {
    "Of the young of the last five years {1} generations of ancestors are known; a verdict needs 3.",
    "Van de jongen van de laatste vijf jaren zijn {1} generaties voorouders bekend; voor een oordeel zijn er 3 nodig."};
constexpr Wording too_short = {
    "Too few lines of the animals born {1}\xE2\x80\x93{2} meet, or can be followed for a generation, to tell a rise.",
    "Te weinig lijnen van de dieren geboren {1}\xE2\x80\x93{2} komen samen, of zijn een generatie te volgen, om een stijging te noemen."};
constexpr Wording too_unknown = {
    "Of the young of the last ten years {1} have both parents known; a verdict needs 80 of 100.",
    "Van de jongen van de laatste tien jaren zijn van {1} beide ouders bekend; voor een oordeel 80 van de 100."};
constexpr Wording faulty = {
    "The checks found faults that falsify inbreeding or the effective size ({1}): mend them first.",
    "De controles vonden fouten die inteelt of effectieve grootte vervalsen ({1}): herstel die eerst."};
constexpr Wording too_wide = {"The margin reaches from too fast to within the limit: {1}.",
                              "De marge loopt van te snel tot binnen de grens: {1}."};

constexpr Wording how_sure[] = {{"How sure: no verdict", "Hoe zeker: geen oordeel"},
                                {"How sure: hardly", "Hoe zeker: weinig"},
                                {"How sure: fairly", "Hoe zeker: redelijk"},
                                {"How sure: quite", "Hoe zeker: behoorlijk"}};
constexpr Wording estimates_say = {"{1} of {2} estimates say \xE2\x80\x9C{3}\xE2\x80\x9D.",
                                   "{1} van de {2} schattingen zeggen \xE2\x80\x9C{3}\xE2\x80\x9D."};
constexpr Wording pedigrees_reach = {"Pedigrees reach back {1} generations (good from 5).",
                                     "De stambomen gaan {1} generaties terug (goed vanaf 5)."};
constexpr Wording margin_crosses = {"The margin of the rate reaches beyond the limit.",
                                    "De marge van de stijging loopt over de grens heen."};

constexpr Wording before_and_since = {"Before {1}: {2} per generation. From {1} on: {3}.",
                                      "V\xC3\xB3\xC3\xB3r {1}: {2} per generatie. Vanaf {1}: {3}."};
constexpr Wording margins_overlap = {"The margins overlap: the change may be chance.",
                                     "De marges overlappen: de verandering kan toeval zijn."};
constexpr Wording margins_apart = {
    "The margins do not overlap: the change is real. Figures cannot show what caused it.",
    "De marges overlappen niet: de verandering is echt. De oorzaak laten cijfers niet zien."};
constexpr Counted rule_too_young = {
    {"What has happened since {2} cannot be told yet, or no longer: it takes a year before and after.",
     "Wat er sinds {2} gebeurd is valt nog niet, of niet meer, te zeggen: daarvoor is een jaar ervoor en erna nodig."},
    {"What has happened since {2} cannot be told yet, or no longer: it takes {1} years before and after.",
     "Wat er sinds {2} gebeurd is valt nog niet, of niet meer, te zeggen: daarvoor zijn {1} jaar ervoor en erna nodig."}};
constexpr Wording rule_without_interval = {
    "What has happened since {1} cannot be told without a generation interval.",
    "Wat er sinds {1} gebeurd is valt zonder generatie-interval niet te zeggen."};
constexpr Wording not_comparable = {
    "It cannot be compared with before {1}: of the parents of the animals born {2} only {3} are known, of those of {4} {5}. Where a herdbook begins, the parents that are known are few and young.",
    "Het is niet te vergelijken met v\xC3\xB3\xC3\xB3r {1}: van de ouders van de dieren geboren {2} is maar {3} bekend, van die van {4} {5}. Waar een stamboek begint zijn de bekende ouders weinig en jong."};
constexpr Wording now_rate = {"Now: {1} per generation (animals born from {2} on).",
                              "Nu: {1} per generatie (dieren geboren vanaf {2})."};
constexpr Wording open_circle = {"Open circle: {1} may not be complete.",
                                 "Open rondje: {1} is misschien niet volledig."};
constexpr Wording dotted_line = {"Dotted: 1 % per generation.", "Gestippeld: 1 % per generatie."};

constexpr Wording trusted[] = {{"Yes for the verdict.", "Ja, voor het oordeel."},
                               {"Partly: enough for a verdict, with little to spare.",
                                "Gedeeltelijk: genoeg voor een oordeel, met weinig speling."},
                               {"No, not for a verdict.", "Nee, niet voor een oordeel."}};
constexpr Wording both_known = {"{1} young of the last ten years have both parents known (80 are needed).",
                                "Van {1} jongen van de laatste tien jaren zijn beide ouders bekend (80 zijn nodig)."};
constexpr Wording parents_unknown = {
    "Of the parents of all animals that are no founders {1} are unknown; each counts as unrelated in most figures below, but not in the verdict.",
    "Van de ouders van alle dieren die geen stamdier zijn is {1} onbekend; elk telt als onverwant in de meeste cijfers hieronder, maar niet in het oordeel."};
constexpr Wording shallow_young = {
    "{1} young of the last five years have fewer than two generations known: they only look unrelated.",
    "{1} jongen van de laatste vijf jaren hebben minder dan twee bekende generaties: ze lijken alleen maar onverwant."};
constexpr Wording no_faults = {"The checks found nothing that falsifies these figures.",
                               "De controles vonden niets dat deze cijfers vervalst."};
constexpr Wording few_faults = {
    "The checks found faults that touch the verdict ({1}): too few to change it, but mend them.",
    "De controles vonden fouten die het oordeel raken ({1}): te weinig om het te veranderen, maar herstel ze."};
constexpr Wording of_hundred = {"{1} of 100", "{1} van de 100"};
constexpr Wording of_few = {"{1} of {2}", "{1} van de {2}"};

constexpr Wording depth_good = {
    "That is deep enough to compare years and animals; inbreeding that lies further back, or behind an unknown parent, is not seen.",
    "Dat is diep genoeg om jaren en dieren te vergelijken; inteelt die verder terug ligt, of achter een onbekende ouder, is niet te zien."};
constexpr Wording depth_some = {
    "That shows recent inbreeding; true inbreeding is higher than the figures, as it is wherever ancestors are unknown.",
    "Daarmee is recente inteelt te zien; de werkelijke inteelt is hoger dan de cijfers, zoals overal waar voorouders onbekend zijn."};
constexpr Wording depth_little = {
    "That is too little: inbreeding can hardly be seen in such pedigrees, and Ne says more about the pedigrees than about the population.",
    "Dat is te weinig: in zulke stambomen is inteelt nauwelijks te zien, en Ne zegt meer over de stambomen dan over de populatie."};

/// The part of 1/(8 sires) + 1/(8 dams) that makes one of them the main cause.
constexpr double main_part = 0.6;

std::string whole(double value) {
  return report_figure(std::round(value), 0, ToolLanguage::english);
}

std::string cause_sentence(const Standing& standing, ToolLanguage language) {
  const std::optional<double> part = standing.sires_part_of_rise();
  if (!part) return {};
  const std::string of_sires = whole(standing.sires.effective), of_dams = whole(standing.dams.effective);
  if (*part >= main_part) {
    return phrase(mainly_sires, language, {std::to_string(standing.sires.parents.size()), of_sires});
  }
  if (1.0 - *part >= main_part) {
    return phrase(mainly_dams, language, {std::to_string(standing.dams.parents.size()), of_dams});
  }
  return phrase(sires_and_dams, language, {of_sires, of_dams});
}

/// In per cent, with as many decimals as its size asks for: none from 10 on, one from 1 on, else two.
std::string percent_digits(double share, ToolLanguage language) {
  constexpr double hundred = 100.0, large = 9.95, small = 0.995;
  const double percentage = hundred * share;
  if (percentage == 0.0) return "0";
  const int decimals = percentage >= large ? 0 : (percentage >= small ? 1 : 2);
  return report_figure(percentage, decimals, language);
}

constexpr Wording from_to = {"{1} to {2}", "{1} tot {2}"};

std::string margin_text(const RateEstimate& estimate, ToolLanguage language) {
  const Margin margin = margin_of(estimate);  // the sign stands once, behind both
  return phrase(from_to, language, {percent_digits(margin.low, language), percent_text(margin.high, language)});
}

std::string interval_sentence(const AgesAtBirths& ages, ToolLanguage language) {
  if (ages.impossible_interval) {
    return phrase(impossible_interval, language, {report_figure(*ages.impossible_interval, 1, language)});
  }
  return phrase(no_interval, language, {std::to_string(ages.ages.of(male)), std::to_string(ages.ages.of(female))});
}

void add_obstacles(std::vector<std::string>& sentences, const Standing& standing, ToolLanguage language) {
  const StandingData& data = standing.data;
  const auto add = [&](std::uint32_t obstacle, std::string sentence) {
    if ((standing.obstacles & obstacle) != 0) sentences.push_back(std::move(sentence));
  };
  const std::int32_t years = standing.years.last - standing.years.cohort_first + 1;
  add(obstacle_faults, phrase(faulty, language, {std::to_string(data.faults.count())}));
  add(obstacle_no_interval, interval_sentence(standing.ages, language));
  add(obstacle_few_animals,
      counted(few_animals, years, language, {std::to_string(data.cohort), std::to_string(least_cohort)}));
  if (data.equivalents < least_equivalents) {
    add(obstacle_shallow, phrase(too_shallow, language, {equivalents_text(standing, language)}));
  } else {
    add(obstacle_shallow, phrase(too_short, language,
                                 {std::to_string(standing.years.cohort_first), std::to_string(standing.years.last)}));
  }
  add(obstacle_unknown_parents, phrase(too_unknown, language, {known_text(standing, language)}));
  add(obstacle_wide_margin, phrase(too_wide, language, {margin_text(standing.rate(), language)}));
}

}  // namespace

std::string percent_text(double share, ToolLanguage language) {
  return percent_digits(share, language) + "\xC2\xA0%";
}

std::string limit_text(double share, ToolLanguage language) {
  constexpr double hundred = 100.0;
  std::string digits = report_figure(hundred * share, 2, language);
  while (digits.ends_with('0')) digits.pop_back();
  if (!digits.empty() && (digits.back() == '.' || digits.back() == ',')) digits.pop_back();
  return digits + "\xC2\xA0%";
}

std::string share_text(std::int64_t part, std::int64_t all, ToolLanguage language) {
  constexpr std::int64_t fewest_of_hundred = 100;
  if (all < fewest_of_hundred) return phrase(of_few, language, {std::to_string(part), std::to_string(all)});
  const double share = share_of(part, all);
  // Neither none nor all is said of what is not quite so.
  double count = std::round(100.0 * share);
  if (part > 0) count = std::max(count, 1.0);
  if (part < all) count = std::min(count, 99.0);
  return phrase(of_hundred, language, {whole(count)});
}

std::string known_text(const Standing& standing, ToolLanguage language) {
  constexpr double hundred = 100.0;
  const double known = standing.data.both_known, young = static_cast<double>(standing.data.known_young);
  if (young < hundred) return phrase(of_few, language, {whole(known * young), whole(young)});
  return phrase(of_hundred, language, {whole(std::floor(hundred * known))});
}

std::string equivalents_text(const Standing& standing, ToolLanguage language) {
  constexpr double tenths = 10.0;
  return report_figure(std::floor(tenths * standing.data.equivalents) / tenths, 1, language);
}

std::string years_text(std::int32_t first, std::int32_t last) {
  const std::string text = std::to_string(first);
  return first == last ? text : text + "\xE2\x80\x93" + std::to_string(last);
}

std::string size_text(double effective_size, ToolLanguage language) {
  constexpr double beyond_populations = 100'000.0;
  if (!(effective_size < beyond_populations)) return language == ToolLanguage::english ? "very large" : "zeer groot";
  return whole(effective_size);
}

std::string rate_text(const RateEstimate& estimate, ToolLanguage language) {
  if (!estimate.rate) return std::string(no_figure);
  return percent_text(*estimate.rate, language) + " (" + margin_text(estimate, language) + ")";
}

AnimalWords words_of_animal(const PageFrame& frame, std::int32_t position) {
  AnimalWords words = {{}, data_text(frame.store().id(position))};
  if (frame.store().has_name) words.name = data_text(frame.store().name(position));
  if (words.name.empty() || words.name == "-" || words.name == words.id) words.name = std::exchange(words.id, {});
  return words;
}

const Wording& words_of_depth(double equivalents) {
  if (equivalents < least_equivalents) return depth_little;
  return equivalents < good_equivalents ? depth_some : depth_good;
}

std::string pace_words(Pace pace, ToolLanguage language) {
  return std::string(words_of(paces[static_cast<std::size_t>(pace)], language));
}

std::vector<std::string> verdict_sentences(const PageFrame& frame, const Standing& standing) {
  std::vector<std::string> sentences;
  const ToolLanguage language = frame.language;
  if (!standing.is_judged()) add_obstacles(sentences, standing, language);
  if (!standing.rate().rate) return sentences;
  std::string text =
      phrase(rises[static_cast<std::size_t>(standing.pace)], language, {percent_text(*standing.rate().rate, language)});
  if (standing.before.rate) {
    text += " " + phrase(it_was, language,
                         {std::to_string(standing.years.now_first), percent_text(*standing.before.rate, language)});
  }
  sentences.push_back(text);
  const bool is_good = pace_of_size(effective_size_of(*standing.rate().rate)) == Pace::within_limit;
  const std::string cause = is_good ? std::string() : cause_sentence(standing, language);
  if (!cause.empty()) sentences.push_back(cause);
  return sentences;
}

std::string sureness_heading(const Standing& standing, ToolLanguage language) {
  return std::string(words_of(how_sure[standing.sureness], language));
}

std::vector<std::string> sureness_sentences(const PageFrame& frame, const Standing& standing) {
  std::vector<std::string> sentences;
  if (standing.is_judged()) {
    std::size_t known = 0, alike = 0;
    for (const RateEstimate& estimate : standing.now) {
      if (!estimate.rate) continue;
      ++known;
      alike += pace_of_size(effective_size_of(*estimate.rate)) == standing.pace ? 1 : 0;
    }
    sentences.push_back(
        phrase(estimates_say, frame.language,
               {std::to_string(alike), std::to_string(known), pace_words(standing.pace, frame.language)}));
    const Margin margin = margin_of(standing.rate());
    const bool is_crossed = pace_of_size(effective_size_of(margin.low)) != pace_of_size(effective_size_of(margin.high));
    if (is_crossed) sentences.push_back(frame.text(margin_crosses));
  }
  sentences.push_back(
      phrase(pedigrees_reach, frame.language, {report_figure(standing.data.equivalents, 1, frame.language)}));
  return sentences;
}

namespace {

bool is_told(const std::optional<LackingParents>& lacking) {
  return lacking && lacking->has_births;
}

std::string lacking_sentence(const LackingParents& lacking, ToolLanguage language) {
  return phrase(not_comparable, language,
                {std::to_string(lacking.later.first), years_text(lacking.early.first, lacking.early.last),
                 percent_text(lacking.known_early, language), years_text(lacking.later.first, lacking.later.last),
                 percent_text(lacking.known_later, language)});
}

/// Why nothing is said of what a rule has changed.
std::string rule_sentence(const Standing& standing, ToolLanguage language) {
  const std::string year = std::to_string(standing.rule->year);
  if (!standing.years.has_interval()) return phrase(rule_without_interval, language, {year});
  if (is_told(standing.rule->lacking_before)) return lacking_sentence(*standing.rule->lacking_before, language);
  const std::int32_t years = standing.years.last - standing.years.cohort_first + 1;
  return counted(rule_too_young, years, language, {year});
}

}  // namespace

std::vector<std::string> trend_sentences(const PageFrame& frame, const Standing& standing) {
  std::vector<std::string> sentences;
  const ToolLanguage language = frame.language;
  const auto compare = [&](std::int32_t year, const RateEstimate& before, const RateEstimate& since) {
    sentences.push_back(phrase(before_and_since, language,
                               {std::to_string(year), rate_text(before, language), rate_text(since, language)}));
    sentences.push_back(frame.text(is_real_change(before, since) ? margins_apart : margins_overlap));
  };
  const std::optional<RuleEffect>& rule = standing.rule;
  const bool is_rule_told = rule && rule->before.rate && rule->since.rate;
  if (is_rule_told) {
    compare(rule->year, rule->before, rule->since);
  } else if (rule) {
    sentences.push_back(rule_sentence(standing, language));
  }
  if (!is_rule_told && standing.before.rate && standing.rate().rate) {
    compare(standing.years.now_first, standing.before, standing.rate());
  } else if (!is_rule_told && standing.rate().rate) {
    sentences.push_back(
        phrase(now_rate, language, {rate_text(standing.rate(), language), std::to_string(standing.years.now_first)}));
    if (is_told(standing.lacking_before)) sentences.push_back(lacking_sentence(*standing.lacking_before, language));
  }
  sentences.push_back(phrase(open_circle, language, {std::to_string(standing.years.last)}));
  if (standing.years.has_interval()) sentences.push_back(frame.text(dotted_line));
  return sentences;
}

std::string data_heading(const Standing& standing, ToolLanguage language) {
  constexpr std::uint32_t of_data =
      obstacle_shallow | obstacle_unknown_parents | obstacle_faults | obstacle_few_animals | obstacle_no_interval;
  const bool is_bad = (standing.obstacles & of_data) != 0;
  const bool is_good = standing.data.equivalents >= good_equivalents;
  return std::string(words_of(trusted[is_bad ? 2 : (is_good ? 0 : 1)], language));
}

std::vector<std::string> data_sentences(const PageFrame& frame, const Standing& standing) {
  std::vector<std::string> sentences;
  const StandingData& data = standing.data;
  sentences.push_back(phrase(both_known, frame.language, {known_text(standing, frame.language)}));
  if (data.unknown_parents) {
    sentences.push_back(phrase(parents_unknown, frame.language, {percent_text(*data.unknown_parents, frame.language)}));
  }
  if (standing.young.shallow > 0) {
    sentences.push_back(phrase(shallow_young, frame.language,
                               {share_text(standing.young.shallow, standing.young.births, frame.language)}));
  }
  if (frame.input.check != nullptr) {
    const std::string count = std::to_string(data.faults.count());
    sentences.push_back(data.faults.count() == 0
                            ? frame.text(no_faults)
                            : phrase(data.is_faulty ? faulty : few_faults, frame.language, {count}));
  }
  return sentences;
}

}  // namespace pedigreewatch
