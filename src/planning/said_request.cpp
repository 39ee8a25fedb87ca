#include "planning/said_request.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

namespace pedigreewatch {
namespace {

constexpr Wording no_candidate = {"this animal is none of the candidates; take the line out, or make it one",
                                  "dit dier is geen kandidaat; haal de regel weg, of maak het er een"};
constexpr Wording no_number = {"a number of matings such as 3 or 2-5 was expected behind it",
                               "een aantal paringen zoals 3 of 2-5 werd erachter verwacht"};
constexpr Wording no_value = {"a breeding value, which is a number, was expected behind it",
                              "een fokwaarde, die een getal is, werd erachter verwacht"};
constexpr Wording is_forbidden_too = {"this pair is forbidden too; take it out of one of the two files",
                                      "dit paar is ook verboden; haal het uit een van de twee bestanden"};
constexpr Wording pair_again = {"this pair stands in the list already; taken once",
                                "dit paar staat al in de lijst; eenmaal meegenomen"};
constexpr Wording too_many_wishes = {
    "wished for more often than its number of matings allows; take wishes out, or raise the number",
    "vaker gewenst dan zijn aantal paringen toelaat; haal wensen weg, of verhoog het aantal"};
constexpr Wording no_values_at_all = {
    "{1}: none of its animals is a candidate: there is no breeding value to plan with",
    "{1}: geen van de dieren is kandidaat: er is geen fokwaarde om mee te plannen"};
constexpr Wording not_candidates_with_values = {
    "{1}: values of animals that are no candidates are not used: {2}",
    "{1}: waarden van dieren die geen kandidaat zijn worden niet gebruikt: {2}"};

/// Places of the candidates.
std::unordered_map<std::int32_t, std::size_t> places_in(const PlanRequest& request) {
  std::unordered_map<std::int32_t, std::size_t> places;
  for (const std::int32_t position : candidates_of(request)) places.emplace(position, places.size());
  return places;
}

void read_numbers(PlanInput& input, const std::string& file, PlanRequest& request) {
  const auto places = places_in(request);
  for (const ListedAnimal& animal : read_animals(input, file, "--numbers", LineForm::id_value)) {
    const std::optional<NumberRange> range = read_range(animal.text);
    const bool is_candidate = places.contains(animal.position);
    if (!range || !is_candidate) {
      input.has_faults = true;
      tell_fault(input, file, animal.line, animal.id, range ? no_candidate : no_number);
      continue;
    }
    request.fixed.push_back({animal.position, range->least, range->most});
  }
}

void read_values(PlanInput& input, const std::string& file, PlanRequest& request) {
  const auto places = places_in(request);
  request.values.assign(places.size(), std::nullopt);
  std::int64_t others = 0;
  for (const ListedAnimal& animal : read_animals(input, file, "--values", LineForm::id_value)) {
    const std::optional<double> value = read_value(animal.text);
    const auto place = places.find(animal.position);
    if (!value) {
      input.has_faults = true;
      tell_fault(input, file, animal.line, animal.id, no_value);
    } else if (place == places.end()) {
      ++others;
    } else {
      request.values[place->second] = value;
    }
  }
  const bool has_values =
      std::any_of(request.values.begin(), request.values.end(), [](const auto& value) { return value.has_value(); });
  if (!has_values && !input.has_faults) {
    input.has_faults = true;
    say(input.streams.messages, phrase(no_values_at_all, input.language, {shown(file)}));
  }
  if (others == 0 || input.has_faults) return;
  say(input.streams.messages,
      phrase(not_candidates_with_values, input.language, {shown(file), std::to_string(others)}));
}

/// Numbers of matings that wishes need, against what animals may have.
void check_wishes(PlanInput& input, const std::string& file, const std::vector<ReadPair>& pairs,
                  const PlanRequest& request) {
  const NumberLimits limits = number_limits_of(request);
  const auto places = places_in(request);
  std::unordered_map<std::int32_t, std::int32_t> wishes;
  for (const ReadPair& pair : pairs) {
    for (const std::int32_t position : {pair.female, pair.male}) {
      if (++wishes[position] <= limits.most[places.at(position)]) continue;
      input.has_faults = true;
      tell_fault(input, file, pair.line, input.store.id(position), too_many_wishes);
    }
  }
}

using PairSet = std::set<std::pair<std::int32_t, std::int32_t>>;

/// The pairs of a list, each once: one that stands again is told.
std::vector<ReadPair> read_each_pair(PlanInput& input, const std::string& file, std::string_view option) {
  std::vector<ReadPair> pairs;
  if (file.empty()) return pairs;
  PairSet seen;
  for (const ReadPair& pair : read_pairs(input, file, option)) {
    if (seen.emplace(pair.female, pair.male).second) {
      pairs.push_back(pair);
    } else {
      tell_fault(input, file, pair.line, input.store.id(pair.female), pair_again);
    }
  }
  return pairs;
}

void read_said_pairs(PlanInput& input, const SaidLists& lists, PlanRequest& request) {
  const auto places = places_in(request);
  PairSet forbidden;
  for (const ReadPair& pair : read_each_pair(input, lists.forbidden, "--forbidden")) {
    request.forbidden.push_back({pair.female, pair.male});
    forbidden.emplace(pair.female, pair.male);
  }
  std::vector<ReadPair> kept;
  for (const ReadPair& pair : read_each_pair(input, lists.wished, "--wished")) {
    const bool is_forbidden = forbidden.contains({pair.female, pair.male});
    if (is_forbidden || !places.contains(pair.female) || !places.contains(pair.male)) {
      input.has_faults = true;
      const std::int32_t named = places.contains(pair.female) ? pair.male : pair.female;
      tell_fault(input, lists.wished, pair.line, input.store.id(named), is_forbidden ? is_forbidden_too : no_candidate);
      continue;
    }
    kept.push_back(pair);
    request.wished.push_back({pair.female, pair.male});
  }
  if (!input.has_faults) check_wishes(input, lists.wished, kept, request);
}

}  // namespace

void read_said_candidates(PlanInput& input, const SaidLists& lists, CandidateRules& rules) {
  if (!lists.males.empty()) rules.listed.of_males = read_candidates(input, lists.males, "--males", male);
  if (!lists.females.empty()) rules.listed.of_females = read_candidates(input, lists.females, "--females", female);
  if (lists.exclude.empty()) return;
  for (const std::int32_t position : read_excluded(input, lists.exclude, "--exclude")) {
    rules.excluded.push_back(position);
  }
}

void read_said_request(PlanInput& input, const SaidLists& lists, PlanRequest& request) {
  if (!lists.numbers.empty()) read_numbers(input, lists.numbers, request);
  if (!lists.values.empty()) read_values(input, lists.values, request);
  if (!input.has_faults) read_said_pairs(input, lists, request);
}

}  // namespace pedigreewatch
