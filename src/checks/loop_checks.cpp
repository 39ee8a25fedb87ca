// First the animals are peeled off that cannot be part of a loop: those whose parents have all been peeled off before
// them. Of what is left, mostly nothing, the components are searched.

#include "checks/loop_checks.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "checks/readable_text.h"

namespace pedigreewatch {
namespace {

/// The parents of each animal as animals, and which of them may be in a loop.
struct ParentGraph {
  const PedigreeColumns& animals;
  ByNumber<std::uint8_t> is_left;

  std::array<std::int32_t, 2> parents_of(std::int32_t animal) const {
    return {animals.linked(animals.sire.at(animal)), animals.linked(animals.dam.at(animal))};
  }
};

/// Takes off animals with no parent left, in a pass through the file and one back. It leaves nothing of a file with
/// parents before their young, or the other way round; what it leaves of others is searched as it is.
void peel_off(ParentGraph& graph) {
  const auto peel = [&](std::int32_t animal) {
    if (graph.is_left[animal] == 0) return;
    const auto [sire, dam] = graph.parents_of(animal);
    const bool has_parent = (sire != 0 && graph.is_left[sire] != 0) || (dam != 0 && graph.is_left[dam] != 0);
    if (!has_parent) graph.is_left[animal] = 0;
  };
  for (std::int32_t animal = 1; animal <= graph.animals.count(); ++animal) peel(animal);
  for (std::int32_t animal = graph.animals.count(); animal >= 1; --animal) peel(animal);
}

/// Tarjan's search with its stack of calls kept by hand.
struct ComponentSearch {
  const ParentGraph& graph;
  ByNumber<std::int32_t> order, lowest;  ///< 0: not met yet
  ByNumber<std::uint8_t> is_open;
  std::vector<std::int32_t> open;
  std::int32_t met = 0;
  std::vector<std::vector<std::int32_t>> loops;  ///< components of more than one animal, or of its own parent
};

struct Visit {
  std::int32_t animal;
  std::size_t next_parent = 0;
};

void meet(ComponentSearch& search, std::int32_t animal) {
  search.order[animal] = search.lowest[animal] = ++search.met;
  search.is_open[animal] = 1;
  search.open.push_back(animal);
}

void close_component(ComponentSearch& search, std::int32_t root) {
  std::vector<std::int32_t> component;
  std::int32_t animal = 0;
  do {
    animal = search.open.back();
    search.open.pop_back();
    search.is_open[animal] = 0;
    component.push_back(animal);
  } while (animal != root);
  const auto [sire, dam] = search.graph.parents_of(root);
  if (component.size() > 1 || sire == root || dam == root) search.loops.push_back(std::move(component));
}

void search_from(ComponentSearch& search, std::int32_t start) {
  std::vector<Visit> visits = {{start}};
  meet(search, start);
  while (!visits.empty()) {
    Visit& visit = visits.back();
    const std::int32_t animal = visit.animal;
    if (visit.next_parent < 2) {
      const std::int32_t parent = search.graph.parents_of(animal)[visit.next_parent++];
      if (parent == 0 || search.graph.is_left[parent] == 0) continue;
      if (search.order[parent] == 0) {
        meet(search, parent);
        visits.push_back({parent});
      } else if (search.is_open[parent] != 0) {
        search.lowest[animal] = std::min(search.lowest[animal], search.order[parent]);
      }
      continue;
    }
    if (search.lowest[animal] == search.order[animal]) close_component(search, animal);
    visits.pop_back();
    if (visits.empty()) break;
    std::int32_t& below = search.lowest[visits.back().animal];
    below = std::min(below, search.lowest[animal]);
  }
}

/// The shortest way from `start` to one of its own descendants' parents and so back to it, in the component; the
/// parents in their order, `start` left out at the end.
std::vector<std::int32_t> shortest_loop(const ParentGraph& graph, std::int32_t start,
                                        const std::vector<std::int32_t>& component) {
  const auto place_of = [&](std::int32_t animal) {
    const auto place = std::lower_bound(component.begin(), component.end(), animal);
    return place == component.end() || *place != animal ? component.size()
                                                        : static_cast<std::size_t>(place - component.begin());
  };
  std::vector<std::int32_t> came_from(component.size(), 0), reached = {start};
  for (std::size_t k = 0; k < reached.size(); ++k) {
    for (const std::int32_t parent : graph.parents_of(reached[k])) {
      if (parent == start) {
        std::vector<std::int32_t> chain;
        for (std::int32_t a = reached[k]; a != start; a = came_from[place_of(a)]) chain.push_back(a);
        chain.push_back(start);
        std::reverse(chain.begin(), chain.end());
        return chain;
      }
      const std::size_t place = parent == 0 ? component.size() : place_of(parent);
      if (place == component.size() || came_from[place] != 0) continue;
      came_from[place] = reached[k];
      reached.push_back(parent);
    }
  }
  return {};  // cannot be: the component is connected
}

/// A shortest loop of the component: through every animal of it in a small one, through the first in a large one.
std::vector<std::int32_t> find_loop(const ParentGraph& graph, std::vector<std::int32_t> component) {
  constexpr std::size_t most_tried = 200;
  std::sort(component.begin(), component.end());
  std::vector<std::int32_t> best;
  for (std::size_t k = 0; k < (component.size() <= most_tried ? component.size() : 1); ++k) {
    std::vector<std::int32_t> loop = shortest_loop(graph, component[k], component);
    if (best.empty() || loop.size() < best.size()) best = std::move(loop);
  }
  return best;
}

/// "A (line 1) - father B (line 2) - mother A".
std::string chain_text(const ParentGraph& graph, const std::vector<std::int32_t>& loop, ToolLanguage language) {
  constexpr Wording line = {"line", "regel"}, father = {"father", "vader"}, mother = {"mother", "moeder"};
  constexpr Wording further = {"... {1} animals in all ...", "... {1} dieren in totaal ..."};
  constexpr std::size_t most_named = 30;
  const auto name_of = [&](std::int32_t animal) {
    return shown(readable(graph.animals.ids.at(graph.animals.id.at(animal))));
  };
  std::string text;
  for (std::size_t k = 0; k <= loop.size(); ++k) {
    if (k == most_named) return text + " - " + phrase(further, language, {std::to_string(loop.size())});
    const std::int32_t animal = loop[k % loop.size()];
    if (k > 0) {
      const bool is_sire = graph.parents_of(loop[k - 1])[0] == animal;
      text += " - " + std::string(words_of(is_sire ? father : mother, language)) + " ";
    }
    text += name_of(animal);
    if (k == loop.size()) break;
    text += " (" + std::string(words_of(line, language)) + " " + std::to_string(graph.animals.line_of(animal)) + ")";
  }
  return text;
}

/// The link of a loop, by the place of its young, that its dates show to be wrong: the parent is not older. None where
/// they show no single one.
std::optional<std::size_t> find_wrong_link(const PedigreeColumns& animals, const std::vector<std::int32_t>& loop) {
  std::optional<std::size_t> wrong;
  for (std::size_t k = 0; k < loop.size(); ++k) {
    const DayRange young = days_of_birth(animals, loop[k]);
    const DayRange parent = days_of_birth(animals, loop[(k + 1) % loop.size()]);
    if (!young.is_known() || !parent.is_known() || parent.first < young.last) continue;
    if (wrong) return std::nullopt;
    wrong = k;
  }
  return wrong;
}

}  // namespace

void check_loops(const PedigreeColumns& animals, ToolLanguage language, Findings& findings) {
  const std::int32_t last = animals.count();
  ParentGraph graph = {animals, ByNumber<std::uint8_t>(last, 1)};
  graph.is_left[0] = 0;
  peel_off(graph);
  if (std::find(graph.is_left.values.begin(), graph.is_left.values.end(), 1) == graph.is_left.values.end()) return;
  ComponentSearch search = {
      graph, ByNumber<std::int32_t>(last), ByNumber<std::int32_t>(last), ByNumber<std::uint8_t>(last), {}, 0, {}};
  for (std::int32_t animal = 1; animal <= last; ++animal) {
    if (graph.is_left[animal] != 0 && search.order[animal] == 0) search_from(search, animal);
  }
  for (const std::vector<std::int32_t>& component : search.loops) {
    const std::vector<std::int32_t> loop = find_loop(graph, component);
    const std::optional<std::size_t> wrong = find_wrong_link(animals, loop);
    const std::int32_t young = loop[wrong.value_or(0)], parent = loop[(wrong.value_or(0) + 1) % loop.size()];
    const bool is_sire = graph.parents_of(young)[0] == parent;
    add(findings, {.code = FindingCode::loop,
                   .role = is_sire ? ParentRole::sire : ParentRole::dam,
                   .line = animals.line_of(loop.front()),
                   .id = animals.id.at(loop.front()),
                   .text = keep(findings, chain_text(graph, loop, language)),
                   .other_text = keep(findings, animals.ids.at(animals.id.at(young))),
                   .other_line = animals.line_of(young),
                   .number = std::ssize(loop),
                   .other_number = wrong ? 1 : 0});
  }
}

}  // namespace pedigreewatch
