#include "desk/all_animals_desk.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "core/fixed_text.h"
#include "desk/json_text.h"
#include "desk/matings_desk.h"
#include "desk/named_values.h"
#include "matings/animal_search.h"

namespace pedigreewatch {
namespace {

/// A figure and its bounds.
struct Bounds {
  std::optional<double> least, most;
};

bool is_within(const std::optional<double>& figure, const Bounds& bounds) {
  if (!bounds.least && !bounds.most) return true;
  return figure && (!bounds.least || *figure >= *bounds.least) && (!bounds.most || *figure <= *bounds.most);
}

Bounds bounds_named(std::string_view wishes, std::string_view least, std::string_view most) {
  return {percentage_named(wishes, least), percentage_named(wishes, most)};
}

std::optional<double> year_of(const DeskResults& results, std::int32_t position) {
  const std::int32_t year = results.population.store.birth_year[position];
  return year == 0 ? std::nullopt : std::optional<double>(year);
}

std::optional<double> kinship_of(const DeskResults& results, std::int32_t position) {
  const ByNumber<float>& kinships = results.figures.animals.mean_kinship;
  return kinships.values.empty() ? std::nullopt : std::optional<double>(kinships[position]);
}

std::optional<Sex> sex_named(std::string_view wishes) {
  const std::string_view sex = value_named(wishes, "sex");
  if (sex == "male") return male;
  return sex == "female" ? std::optional(female) : std::nullopt;
}

/// The animals with the text, or all of them; in the order of the results.
std::vector<std::int32_t> animals_with_text(const PopulationStore& store, std::string_view text) {
  std::vector<std::int32_t> positions;
  if (text.find_first_not_of(' ') == std::string_view::npos) {
    for (std::int32_t i = 1; i <= store.animal_count; ++i) positions.push_back(i);
    return positions;
  }
  positions = find_animals(store, {text, static_cast<std::size_t>(store.animal_count), {}, nullptr}).positions;
  std::sort(positions.begin(), positions.end());
  return positions;
}

void keep_wished(const DeskResults& results, std::string_view wishes, std::vector<std::int32_t>& positions) {
  const PopulationStore& store = results.population.store;
  const auto year = [&](std::string_view name) {
    const std::optional<std::int32_t> number = number_named(wishes, name);
    return number ? std::optional<double>(*number) : std::nullopt;
  };
  const Bounds years = {year("firstYear"), year("lastYear")};
  const Bounds f = bounds_named(wishes, "leastF", "mostF");
  const Bounds kinship = bounds_named(wishes, "leastKinship", "mostKinship");
  const std::optional<Sex> sex = sex_named(wishes);
  const std::optional<std::int32_t> subpopulation = number_named(wishes, "subpopulation");
  std::erase_if(positions, [&](std::int32_t position) {
    return !is_within(year_of(results, position), years) || (sex && store.sex[position] != *sex) ||
           (subpopulation && store.subpopulation_no(position) != *subpopulation) ||
           !is_within(store.inbreeding[position], f) || !is_within(kinship_of(results, position), kinship);
  });
}

/// The figure by which animals are ordered; none for an order by texts.
std::optional<double> figure_named(const DeskResults& results, std::string_view order, std::int32_t position) {
  const PopulationStore& store = results.population.store;
  if (order == "f") return store.inbreeding[position];
  if (order == "kinship") return kinship_of(results, position);
  if (order == "generations") return store.generation_equivalents[position];
  if (order == "offspring") return store.native_offspring_count[position];
  return year_of(results, position);
}

void order_by_figure(const DeskResults& results, std::string_view order, bool is_descending,
                     std::vector<std::int32_t>& positions) {
  constexpr double last = std::numeric_limits<double>::infinity();
  std::vector<std::pair<double, std::int32_t>> keys;
  keys.reserve(positions.size());
  for (const std::int32_t position : positions) {
    const std::optional<double> figure = figure_named(results, order, position);
    keys.emplace_back(!figure ? last : is_descending ? -*figure : *figure, position);
  }
  std::sort(keys.begin(), keys.end());
  std::transform(keys.begin(), keys.end(), positions.begin(), [](const auto& key) { return key.second; });
}

void order_by_text(const PopulationStore& store, bool is_name, bool is_descending,
                   std::vector<std::int32_t>& positions) {
  const auto text = [&](std::int32_t position) {
    if (!is_name) return without_trailing_blanks(store.id(position));
    const std::string_view name =
        store.has_name ? without_trailing_blanks(store.name(position)) : std::string_view("-");
    return name == "-" ? std::string_view() : name;
  };
  std::stable_sort(positions.begin(), positions.end(), [&](std::int32_t a, std::int32_t b) {
    const std::string_view x = text(a), y = text(b);
    if (x.empty() != y.empty()) return y.empty();  // those without a name stand last
    return is_descending ? y < x : x < y;
  });
}

void add_optional(JsonText& json, std::string_view name, const std::optional<double>& figure) {
  add_name(json, name);
  if (figure) {
    add_real(json, *figure);
  } else {
    add_nothing(json);
  }
}

/// The names of wishes for a number in which none can be read.
void add_unread(JsonText& json, std::string_view wishes) {
  begin_list(json, "unread");
  for (const std::string_view name : {"firstYear", "lastYear"}) {
    if (!value_named(wishes, name).empty() && !number_named(wishes, name)) add_text(json, name);
  }
  for (const std::string_view name : {"leastF", "mostF", "leastKinship", "mostKinship"}) {
    if (!value_named(wishes, name).empty() && !percentage_named(wishes, name)) add_text(json, name);
  }
  end_list(json);
}

}  // namespace

std::string choose_animals(Desk& desk, std::string_view wishes) {
  desk.chosen_animals.clear();
  JsonText json;
  begin_object(json);
  if (desk.results) {
    const PopulationStore& store = desk.results->population.store;
    desk.chosen_animals = animals_with_text(store, value_named(wishes, "text"));
    keep_wished(*desk.results, wishes, desk.chosen_animals);
    const std::string_view order = value_named(wishes, "order");
    const bool is_descending = value_named(wishes, "isDescending") == "1";
    if (order == "id" || order == "name") {
      order_by_text(store, order == "name", is_descending, desk.chosen_animals);
    } else if (!order.empty()) {
      order_by_figure(*desk.results, order, is_descending, desk.chosen_animals);
    }
  }
  add_integer(json, "count", std::ssize(desk.chosen_animals));
  add_unread(json, wishes);
  end_object(json);
  return std::move(json.text);
}

std::string list_animals(const Desk& desk, std::size_t first, std::size_t count) {
  JsonText json;
  begin_object(json);
  begin_list(json, "rows");
  const std::size_t begin = std::min(first, desk.chosen_animals.size());
  const auto window =
      std::span(desk.chosen_animals).subspan(begin, std::min(count, desk.chosen_animals.size() - begin));
  for (const std::int32_t position : window) {
    const PopulationStore& store = desk.results->population.store;
    const std::int32_t subpopulation = store.subpopulation_no(position);
    begin_object(json);
    add_animal(json, *desk.results, position);
    add_optional(json, "meanKinship", kinship_of(*desk.results, position));
    add_optional(json, "generations", store.generation_equivalents[position]);
    add_integer(json, "offspring", store.native_offspring_count[position]);
    add_text(
        json, "subpopulation",
        subpopulation == 0 ? std::string_view() : without_trailing_blanks(store.subpopulation_name(subpopulation)));
    end_object(json);
  }
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

}  // namespace pedigreewatch
