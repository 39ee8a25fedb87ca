// Two passes as for any part of a pedigree: from the youngest animal up, what is wanted is marked; from the oldest
// down, it is numbered.

#include "standing/window_pedigree.h"

#include <algorithm>
#include <cmath>

#include "core/text_output.h"
#include "genetics/ancestor_pedigree.h"
#include "genetics/inbreeding.h"

namespace pedigreewatch {
namespace {

/// The whole store as a window looks at it.
struct WindowView {
  const PopulationStore& store;
  const ByNumber<std::int32_t>& birth_years;
  std::int32_t first_year = 0;

  bool is_inside(std::int32_t position) const { return birth_years[position] >= first_year; }
  bool is_import(std::int32_t position) const { return store.has_import && store.is_import[position] != 0; }
  /// The parent in this column when it belongs to the window's pedigree, else 0.
  std::int32_t parent(const ByNumber<std::int32_t>& parents, std::int32_t position) const {
    const std::int32_t parent = parents[position];
    const bool is_earlier = parent > 0 && parent < position;  // an unfinished sort may leave a later one
    return is_earlier && is_inside(position) && !is_import(position) ? parent : 0;
  }
};

ByNumber<Flag> mark_window(const WindowView& view, std::span<const std::int32_t> animals) {
  ByNumber<Flag> marks(view.store.size());
  for (const std::int32_t position : animals) marks[position] = 1;
  for (std::int32_t position = animals.empty() ? 0 : animals.back(); position > 0; --position) {
    if (marks[position] == 0) continue;
    marks[view.parent(view.store.sire_no, position)] = 1;
    marks[view.parent(view.store.dam_no, position)] = 1;
  }
  marks[0] = 0;
  return marks;
}

void compute_inbreeding_of_window(PopulationStore& store) {
  store.is_parent = ByNumber<Flag>(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    store.is_parent[store.sire_no[i]] = store.is_parent[store.dam_no[i]] = 1;
  }
  TextOutput silent;
  compute_inbreeding(store, make_ancestor_pedigree(store), silent);
}

}  // namespace

ByNumber<std::int32_t> years_of_birth(const PopulationStore& store, double generation_interval) {
  ByNumber<std::int32_t> years = store.birth_year;
  const std::int32_t interval = static_cast<std::int32_t>(std::lround(generation_interval));
  for (std::int32_t i = store.animal_count; i > 0; --i) {
    if (years[i] == 0) continue;
    for (const std::int32_t parent : {store.sire_no[i], store.dam_no[i]}) {
      if (parent <= 0 || parent >= i || store.birth_year[parent] != 0) continue;
      const std::int32_t latest = years[i] - interval;
      years[parent] = years[parent] == 0 ? latest : std::min(years[parent], latest);
    }
  }
  return years;
}

WindowPedigree make_window_pedigree(const PopulationStore& store, const ByNumber<std::int32_t>& birth_years,
                                    const PedigreeWindow& window) {
  const WindowView view{store, birth_years, window.first_year};
  const ByNumber<Flag> marks = mark_window(view, window.animals);
  ByNumber<std::int32_t> number_of(store.size());
  WindowPedigree pedigree;
  PopulationStore& inner = pedigree.store;
  pedigree.is_inside.values.push_back(0);
  for (ByNumber<std::int32_t>* const column : {&inner.sire_no, &inner.dam_no}) column->values.push_back(0);
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (marks[position] == 0) continue;
    inner.sire_no.values.push_back(number_of[view.parent(store.sire_no, position)]);
    inner.dam_no.values.push_back(number_of[view.parent(store.dam_no, position)]);
    pedigree.is_inside.values.push_back(view.is_inside(position) ? 1 : 0);
    number_of[position] = ++inner.animal_count;
  }
  for (const std::int32_t position : window.animals) pedigree.members.push_back(number_of[position]);
  compute_inbreeding_of_window(inner);
  return pedigree;
}

}  // namespace pedigreewatch
