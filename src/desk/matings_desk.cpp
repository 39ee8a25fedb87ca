#include "desk/matings_desk.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <tuple>
#include <utility>

#include "checks/readable_text.h"
#include "desk/json_text.h"
#include "matings/animal_search.h"
#include "pedigree/known_sexes.h"

namespace pedigreewatch {
namespace {

constexpr Wording table_heading = {
    "female\tmale\tname\tborn\tF_of_offspring\tmean_kinship\tgenerations_known\toffspring\tage\tbeyond_limit",
    "moeder\tvader\tnaam\tgeboren\tF_van_jong\tgemiddelde_verwantschap\tgeneraties_bekend\tjongen\tleeftijd\t"
    "boven_grens"};
constexpr Wording gone_words = {"no longer there", "er niet meer"};
constexpr Wording gone_by_words = {"no longer there ({1})", "er niet meer ({1})"};
constexpr Wording gone_heading = {"no_longer_there", "er_niet_meer"};
constexpr Wording corrections_heading = {"corrections_in_data", "correcties_in_gegevens"};

bool is_animal(const Desk& desk, std::int32_t position) {
  return desk.results && position >= 1 && position <= store_of(desk).animal_count;
}

void add_optional(JsonText& json, std::string_view name, const std::optional<double>& value) {
  add_name(json, name);
  if (value) {
    add_real(json, *value);
  } else {
    add_nothing(json);
  }
}

void add_parent(JsonText& json, std::string_view name, const DeskResults& results, std::int32_t position,
                const std::optional<double>& mean_kinship) {
  begin_object(json, name);
  add_animal(json, results, position);
  add_optional(json, "meanKinship", mean_kinship);
  add_optional(json, "equivalents", double{known_generations(results.population.store, position)});
  end_object(json);
}

void add_ancestors(JsonText& json, const DeskResults& results, const KinshipParts& parts) {
  begin_list(json, "ancestors");
  for (const CommonAncestor& ancestor : parts.largest) {
    if (ancestor.position == 0) continue;
    begin_object(json);
    add_animal(json, results, ancestor.position);
    add_optional(json, "contribution", ancestor.contribution);
    end_object(json);
  }
  end_list(json);
}

std::string count_answer(std::size_t count) {
  JsonText json;
  begin_object(json);
  add_integer(json, "count", static_cast<std::int64_t>(count));
  end_object(json);
  return std::move(json.text);
}

/// What the export says of an animal that is no longer there; empty where it says no more than that.
std::string_view reason_of_gone(const DeskResults& results, std::int32_t position) {
  const bool has_reasons = results.gone_by.last() >= position;
  const std::int32_t reason = has_reasons ? results.gone_by[position] : 0;
  if (reason == 0) return {};
  return results.reasons[static_cast<std::size_t>(reason) - 1];
}

/// A text without what would begin another cell or row of a table.
std::string on_one_line(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) < ' '; }, ' ');
  return text;
}

/// A text of the data file in a cell of the table.
std::string cell(std::string_view text) {
  return on_one_line(readable(without_trailing_blanks(text)));
}

std::string real_cell(const std::optional<double>& value) {
  if (!value) return {};
  std::array<char, 32> digits{};
  std::snprintf(digits.data(), digits.size(), "%.6f", *value);
  return digits.data();
}

/// A male of the ranking, as far as `beyond_limit`.
std::string male_line(const Desk& desk, const RankedMale& entry) {
  const PopulationStore& store = store_of(desk);
  std::string line = cell(store.id(desk.males_for_dam)) + "\t" + cell(store.id(entry.male)) + "\t";
  line += (store.has_name ? cell(store.name(entry.male)) : std::string()) + "\t";
  const std::int32_t year = store.birth_year[entry.male];
  line += (year != 0 ? std::to_string(year) : std::string()) + "\t";
  line += real_cell(std::max(0.0, double{entry.f})) + "\t" + real_cell(entry.mean_kinship) + "\t";
  line += real_cell(double{known_generations(store, entry.male)}) + "\t";
  line += std::to_string(store.native_offspring_count[entry.male]) + "\t";
  const std::optional<std::int32_t> age = age_of(store, entry.male);
  line += (age ? std::to_string(*age) : std::string()) + "\t";
  return line + (is_beyond(entry.f, desk.board.most_inbreeding) ? "1" : "0");
}

}  // namespace

void add_animal(JsonText& json, const DeskResults& results, std::int32_t position) {
  const PopulationStore& store = results.population.store;
  add_integer(json, "position", position);
  add_text(json, "id", without_trailing_blanks(store.id(position)));
  add_text(json, "name", store.has_name ? without_trailing_blanks(store.name(position)) : std::string_view());
  add_logical(json, "isMale", known_sex(store, position).value_or(female) == male);
  add_integer(json, "year", store.birth_year[position]);
  add_name(json, "f");
  add_real(json, store.inbreeding[position]);
  if (!results.available.has(position)) add_text(json, "gone", reason_of_gone(results, position));
}

std::string gone_text(const Desk& desk, std::int32_t position) {
  if (desk.results->available.has(position)) return {};
  const std::string_view reason = reason_of_gone(*desk.results, position);
  if (reason.empty()) return std::string(words_of(gone_words, desk.language));
  return on_one_line(phrase(gone_by_words, desk.language, {reason}));
}

std::string_view heading_of_gone(ToolLanguage language) {
  return words_of(gone_heading, language);
}

std::string find_in_results(const Desk& desk, std::string_view text, std::optional<Sex> sex) {
  constexpr std::size_t most_animals = 30;
  FoundAnimals found;
  if (desk.results) found = find_animals(store_of(desk), {text, most_animals, sex, &desk.results->may_live});
  JsonText json;
  begin_object(json);
  begin_list(json, "animals");
  for (const std::int32_t position : found.positions) {
    begin_object(json);
    add_animal(json, *desk.results, position);
    end_object(json);
  }
  end_list(json);
  add_integer(json, "count", found.count);
  end_object(json);
  return std::move(json.text);
}

std::string describe_pair(const Desk& desk, std::int32_t sire, std::int32_t dam) {
  JsonText json;
  begin_object(json);
  if (is_animal(desk, sire) && is_animal(desk, dam)) {
    const PopulationStore& store = store_of(desk);
    const auto mating = mating_of(store, sire, dam);
    add_optional(json, "offspringF", mating->pair.f);
    add_optional(json, "limit", desk.board.most_inbreeding);
    add_logical(json, "isBeyond", is_beyond(mating->pair.f, desk.board.most_inbreeding));
    add_parent(json, "sire", *desk.results, sire, mating->male_mean_kinship);
    add_parent(json, "dam", *desk.results, dam, mating->female_mean_kinship);
    add_ancestors(json, *desk.results, mating->parts);
  }
  end_object(json);
  return std::move(json.text);
}

std::string rank_males(Desk& desk, std::int32_t dam, const MalesWished& wished) {
  desk.males.clear();
  desk.males_for_dam = 0;
  if (is_animal(desk, dam)) {
    desk.males = males_for(store_of(desk), dam, wished.first_year, wished.last_year);
    const AvailableAnimals& available = desk.results->available;
    if (!wished.takes_all) std::erase_if(desk.males, [&](const RankedMale& male) { return !available.has(male.male); });
    std::erase_if(desk.males, [&](const RankedMale& entry) {
      return std::find(desk.left_out.begin(), desk.left_out.end(), entry.male) != desk.left_out.end();
    });
    desk.males_for_dam = dam;
  }
  return count_answer(desk.males.size());
}

std::string order_males(Desk& desk, bool by_mean_kinship) {
  constexpr double none = 2.0;  // behind all others
  const auto key = [&](const RankedMale& entry) {
    const double f = entry.f, kinship = entry.mean_kinship.value_or(none);
    const bool is_last = is_shallow(store_of(desk), entry.male);
    return by_mean_kinship ? std::tuple(is_last, kinship, f) : std::tuple(is_last, f, kinship);
  };
  std::stable_sort(desk.males.begin(), desk.males.end(),
                   [&](const RankedMale& a, const RankedMale& b) { return key(a) < key(b); });
  return count_answer(desk.males.size());
}

std::string list_males(const Desk& desk, std::size_t first, std::size_t count) {
  const std::size_t begin = std::min(first, desk.males.size());
  JsonText json;
  begin_object(json);
  begin_list(json, "rows");
  for (const RankedMale& entry : std::span(desk.males).subspan(begin, std::min(count, desk.males.size() - begin))) {
    begin_object(json);
    add_animal(json, *desk.results, entry.male);
    add_optional(json, "offspringF", entry.f);
    add_optional(json, "meanKinship", entry.mean_kinship);
    add_optional(json, "equivalents", double{known_generations(store_of(desk), entry.male)});
    add_integer(json, "offspring", store_of(desk).native_offspring_count[entry.male]);
    const std::optional<std::int32_t> age = age_of(store_of(desk), entry.male);
    add_optional(json, "age", age ? std::optional<double>(*age) : std::nullopt);
    add_logical(json, "isShallow", is_shallow(store_of(desk), entry.male));
    add_logical(json, "isBeyond", is_beyond(entry.f, desk.board.most_inbreeding));
    end_object(json);
  }
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

std::string males_table(const Desk& desk) {
  std::string table(words_of(table_heading, desk.language));
  if (!is_animal(desk, desk.males_for_dam)) return table + "\n";
  const AvailableAnimals& available = desk.results->available;
  const bool has_gone = std::any_of(desk.males.begin(), desk.males.end(),
                                    [&](const RankedMale& entry) { return !available.has(entry.male); });
  const std::int64_t corrections = desk.results->population.corrections;
  if (has_gone) table += "\t" + std::string(words_of(gone_heading, desk.language));
  if (corrections > 0) table += "\t" + std::string(words_of(corrections_heading, desk.language));
  table += "\n";
  for (const RankedMale& entry : desk.males) {
    table += male_line(desk, entry);
    if (has_gone) table += "\t" + gone_text(desk, entry.male);
    if (corrections > 0) table += "\t" + std::to_string(corrections);
    table += "\n";
  }
  return table;
}

}  // namespace pedigreewatch
