// By far most parents have been found already while the missing ones were looked for; the index serves the rest, the
// parents that were appended.

#include "pedigree/parent_linkage.h"

#include "core/line_writer.h"
#include "core/progress.h"
#include "core/wording.h"
#include "pedigree/pedigree_sorting.h"

namespace pedigreewatch {
namespace {

constexpr Wording animal_no = {"animal no. ", "dier nr. "};
constexpr Wording parents_found = {"parents found and offspring checked", "ouders gevonden en nakomelingen gecheckt"};

/// Counts `child` with its parent at `parent_no`. An animal that is both parents of one child counts it twice.
void count_offspring(PopulationStore& store, std::int32_t parent_no, bool child_is_import) {
  AnimalRecord& parent = store.at(parent_no);
  ++parent.offspring_count;
  if (child_is_import) return;
  ++parent.native_offspring_count;
  parent.is_native_parent = true;
}

}  // namespace

void link_parents(PopulationStore& store, const IdIndex& index, RunStreams& streams) {
  ProgressCounter progress{progress_interval(store.animal_count, 100, 200, 500)};
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (progress.is_due()) {
      write_free_line(streams.console, {animal_no, i - 1, parents_found});
    }
    AnimalRecord& animal = store.at(i);
    fetch_later_parents(store, animal);
    const bool is_import = animal.is_import;
    if (!(animal.sire_id == unknown_parent_id)) {
      if (animal.sire_no == 0) animal.sire_no = find_animal(index, store, animal.sire_id);
      if (animal.sire_no != 0) {
        count_offspring(store, animal.sire_no, is_import);
      } else {  // every missing parent has been appended before: Dutch in either language
        write_free_line(streams.console, {"zou niet moeten kunnen maar vader voor dier ", i, "not found"});
      }
    }
    if (!(animal.dam_id == unknown_parent_id)) {
      if (animal.dam_no == 0) animal.dam_no = find_animal(index, store, animal.dam_id);
      if (animal.dam_no != 0) count_offspring(store, animal.dam_no, is_import);
    }
  }
  sort_pedigree(store, streams);
}

}  // namespace pedigreewatch
