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

/// Where the line of a parent stands that was known by a pending number when it was mentioned.
std::int32_t linked(const PopulationStore& store, std::int32_t parent_no) {
  return parent_no < 0 ? store.index.pending_record.at(-parent_no) : parent_no;
}

/// Counts a child with one of its parents. An animal that is both parents of one child counts it twice.
void count_offspring(PopulationStore& store, std::int32_t parent_no, bool child_is_native) {
  ++store.offspring_count[parent_no];
  store.native_offspring_count[parent_no] += child_is_native ? 1 : 0;
}

/// The unknown parent takes offspring like any other, which nobody reads.
void forget_offspring_of_unknown(PopulationStore& store) {
  store.offspring_count[0] = store.native_offspring_count[0] = 0;
}

}  // namespace

void link_parents(PopulationStore& store, RunStreams& streams) {
  ProgressCounter progress{progress_interval(store.animal_count, 100, 200, 500)};
  store.offspring_count = ByNumber<std::int32_t>(store.size());
  store.native_offspring_count = ByNumber<std::int32_t>(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (progress.is_due()) write_free_line(streams.console, {animal_no, i - 1, parents_found});
    const bool is_native = store.is_import[i] == 0;
    for (ByNumber<std::int32_t>* const parents : {&store.sire_no, &store.dam_no}) {
      std::int32_t& parent_no = (*parents)[i];
      parent_no = linked(store, parent_no);
      count_offspring(store, parent_no, is_native);
    }
  }
  forget_offspring_of_unknown(store);
  store.index = {};
  sort_pedigree(store, streams);
}

}  // namespace pedigreewatch
