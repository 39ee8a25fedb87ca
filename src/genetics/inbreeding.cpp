// F of an animal depends on its parents alone, so that each mating is worked out once.
//
// 1. The matings are listed: full sibs share one, of one litter or of several.
// 2. They are ordered so that F of all ancestors is known before a walk needs it: those that bring forth ancestors by
//    depth of pedigree, then all others. Within that, matings that have many ancestors in common stand together.
// 3. They are walked in that order, as many side by side as a walk has lanes.
// 4. Every animal takes the F of its mating.

#include "genetics/inbreeding.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <vector>

#include "core/line_writer.h"
#include "core/progress.h"
#include "core/wording.h"
#include "genetics/ancestor_walk.h"

namespace pedigreewatch {
namespace {

constexpr Wording animal_no = {"animal no. ", "dier nr "};
constexpr Wording coefficient_estimated = {"inbreeding coefficient estimated",
                                           "inteeltco\xEB"
                                           "ffici\xEBnt berekend"};

/// Matings, and for each animal its own; 0 for an animal with an unknown parent. Entry 0 is no mating.
struct MatingList {
  ByNumber<Mating> matings;
  ByNumber<std::int32_t> of_animal;  ///< by position
};

/// Lists the matings in store order. Neighbours with the same parents share an entry.
MatingList list_matings(const PopulationStore& store, const AncestorPedigree& ancestors) {
  MatingList list;
  list.matings.values.emplace_back();
  list.of_animal = ByNumber<std::int32_t>(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const ParentNumbers parents = parent_numbers(store, ancestors, i);
    if (parents.sire == 0 || parents.dam == 0) continue;
    const Mating& last = list.matings.values.back();
    if (last.sire != parents.sire || last.dam != parents.dam) {
      list.matings.values.push_back({parents.sire, parents.dam});
    }
    list.of_animal[i] = list.matings.last();
  }
  return list;
}

/// A mating with what it is sorted by.
struct KinKey {
  std::int32_t sires_sire = 0, sire = 0, dams_sire = 0, dam = 0;
  std::int32_t number = 0;

  friend bool operator<(const KinKey& a, const KinKey& b) {
    return std::tie(a.sires_sire, a.sire, a.dams_sire, a.dam) < std::tie(b.sires_sire, b.sire, b.dams_sire, b.dam);
  }
};

std::vector<KinKey> sorted_keys(const MatingList& list, const AncestorPedigree& ancestors) {
  std::vector<KinKey> keys;
  keys.reserve(list.matings.values.size());
  for (std::int32_t number = 1; number <= list.matings.last(); ++number) {
    const Mating& m = list.matings[number];
    keys.push_back({ancestors.sire[m.sire], m.sire, ancestors.sire[m.dam], m.dam, number});
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

/// Puts the matings into an order in which neighbours have many ancestors in common, by the sires of the parents, and
/// leaves each pair of parents one entry.
void gather_relatives(MatingList& list, const AncestorPedigree& ancestors) {
  ByNumber<std::int32_t> new_number(list.matings.values.size() - 1);
  ByNumber<Mating> gathered(0);
  for (const KinKey& key : sorted_keys(list, ancestors)) {
    const Mating& last = gathered.values.back();
    if (last.sire != key.sire || last.dam != key.dam) gathered.values.push_back({key.sire, key.dam});
    new_number[key.number] = gathered.last();
  }
  list.matings = std::move(gathered);
  for (std::int32_t& mating : list.of_animal.values) mating = new_number[mating];
}

/// The order of work: matings of one stage do not depend on each other, and F of an ancestor of depth d is known when
/// stage d begins. Depth counts the longest line of known ancestors, the animal included.
struct WorkPlan {
  ByNumber<std::vector<std::int32_t>> matings;    ///< by stage
  ByNumber<std::vector<std::int32_t>> ancestors;  ///< by depth
};

WorkPlan plan_work(const MatingList& list, const AncestorPedigree& ancestors) {
  ByNumber<std::int32_t> depth(ancestors.position.values.size() - 1);
  ByNumber<char> brings_ancestor(list.matings.values.size() - 1);
  std::int32_t deepest = 0;
  for (std::int32_t j = 1; j <= ancestors.count(); ++j) {
    depth[j] = 1 + std::max(depth[ancestors.sire[j]], depth[ancestors.dam[j]]);
    deepest = std::max(deepest, depth[j]);
    brings_ancestor[list.of_animal[ancestors.position[j]]] = 1;
  }
  const std::size_t last_stage = static_cast<std::size_t>(deepest) + 1;
  WorkPlan plan{ByNumber<std::vector<std::int32_t>>(last_stage), ByNumber<std::vector<std::int32_t>>(last_stage)};
  for (std::int32_t j = 1; j <= ancestors.count(); ++j) plan.ancestors[depth[j]].push_back(j);
  for (std::int32_t number = 1; number <= list.matings.last(); ++number) {
    const Mating& mating = list.matings[number];
    // No walk waits for animals without offspring: their matings come last, all relatives together.
    const std::int32_t stage =
        brings_ancestor[number] != 0 ? std::max(depth[mating.sire], depth[mating.dam]) : deepest + 1;
    plan.matings[stage].push_back(number);
  }
  return plan;
}

/// The progress lines of this pass: the matings are not walked in store order, so that a line shows when the share of
/// the work that its number stands for has been done.
struct InbreedingProgress {
  std::int32_t animal_count = 0, interval = 0;
  TextOutput& console;
  std::int32_t next = interval;

  void show(std::size_t matings_done, std::size_t mating_count) {
    while (next < animal_count &&
           static_cast<std::uint64_t>(next) * mating_count <= static_cast<std::uint64_t>(animal_count) * matings_done) {
      write_free_line(console, {animal_no, next, coefficient_estimated});
      next += interval;
    }
  }
};

/// Walks up to `lane_count` matings side by side and puts F of each into `f`.
void walk_batch(AncestorWalk& walk, const MatingList& list, std::span<const std::int32_t> numbers, ByNumber<float>& f) {
  std::array<Mating, lane_count> batch;
  std::array<float, lane_count> results = {};
  for (std::size_t lane = 0; lane < numbers.size(); ++lane) batch[lane] = list.matings[numbers[lane]];
  walk_ancestors(walk, std::span(batch).first(numbers.size()), results);
  for (std::size_t lane = 0; lane < numbers.size(); ++lane) f[numbers[lane]] = results[lane];
}

/// Walks all matings; yields F of each.
ByNumber<float> walk_matings(const MatingList& list, const AncestorPedigree& ancestors, InbreedingProgress& progress) {
  AncestorWalk walk = make_ancestor_walk(ancestors);
  const WorkPlan plan = plan_work(list, ancestors);
  const std::size_t mating_count = list.matings.values.size() - 1;
  ByNumber<float> f(mating_count);
  std::size_t done = 0;
  for (std::int32_t stage = 0; stage <= plan.matings.last(); ++stage) {
    for (const std::int32_t j : plan.ancestors[stage]) {
      set_inbreeding(walk, j, f[list.of_animal[ancestors.position[j]]]);
    }
    const std::span<const std::int32_t> numbers(plan.matings[stage]);
    for (std::size_t first = 0; first < numbers.size(); first += lane_count) {
      const std::size_t size = std::min(lane_count, numbers.size() - first);
      walk_batch(walk, list, numbers.subspan(first, size), f);
      done += size;
      progress.show(done, mating_count);
    }
  }
  return f;
}

}  // namespace

void compute_inbreeding(PopulationStore& store, const AncestorPedigree& ancestors, TextOutput& console) {
  InbreedingProgress progress{store.animal_count, progress_interval(store.animal_count, 200, 500, 1000), console};
  MatingList list = list_matings(store, ancestors);
  gather_relatives(list, ancestors);
  const ByNumber<float> f = walk_matings(list, ancestors, progress);
  progress.show(1, 1);  // what is left, also when there was no mating to walk
  store.inbreeding = ByNumber<float>(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) store.inbreeding[i] = f[list.of_animal[i]];
}

}  // namespace pedigreewatch
