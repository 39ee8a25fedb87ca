#include "desk/animal_desk.h"

#include <array>
#include <utility>

#include "animals/animal_card.h"
#include "core/fixed_text.h"
#include "desk/json_text.h"
#include "matings/candidates.h"
#include "page/animal_page.h"
#include "page/pedigree_drawing.h"

namespace pedigreewatch {
namespace {

bool is_animal(const Desk& desk, std::int32_t position) {
  return desk.results && position >= 1 && position <= desk.results->population.store.animal_count;
}

/// What cards of the results are made from.
CardSource source_of(const DeskResults& results) {
  const AnimalFigures& figures = results.figures.animals;
  return {results.population.store, results.diversity.reference.positions,
          figures.mean_kinship,     figures.lines,
          figures.recent_3,         figures.recent_5,
          figures.ancestral};
}

}  // namespace

std::string animal_card(Desk& desk, std::int32_t position) {
  JsonText json;
  begin_object(json);
  if (is_animal(desk, position)) {
    const DeskResults& results = *desk.results;
    const PopulationStore& store = results.population.store;
    const CardSource source = source_of(results);
    const CardInput input = {results.population, source, results.diversity.reference, desk.today, desk.language, true};
    desk.card_of = position;
    add_integer(json, "position", position);
    add_text(json, "id", without_trailing_blanks(store.id(position)));
    add_text(json, "name", name_of_animal(store, position));
    add_text(json, "html", animal_card_html(input, make_card(source, position)));
  }
  end_object(json);
  return std::move(json.text);
}

std::string animal_page(const Desk& desk) {
  if (!is_animal(desk, desk.card_of)) return {};
  const DeskResults& results = *desk.results;
  const CardSource source = source_of(results);
  return make_animal_page({results.population, source, results.diversity.reference, desk.today, desk.language},
                          {&desk.card_of, 1});
}

std::string position_of_id(const Desk& desk, std::string_view id) {
  std::int32_t position = 0;
  if (desk.results && !without_trailing_blanks(id).empty()) {
    const std::array<ListedId, 1> listed = {ListedId{1, std::string(id)}};
    position = positions_listed(desk.results->population.store, listed).front();
  }
  JsonText json;
  begin_object(json);
  add_integer(json, "position", position);
  end_object(json);
  return std::move(json.text);
}

}  // namespace pedigreewatch
