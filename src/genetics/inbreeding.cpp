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
#include <limits>
#include <numeric>
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

std::size_t at(std::int32_t number) {
  return static_cast<std::size_t>(number);
}

/// Matings, and for each animal its own; 0 for an animal with an unknown parent. Entry 0 is no mating.
struct MatingList {
  std::vector<Mating> matings;
  std::vector<std::int32_t> of_animal;  ///< by position - 1
};

/// Lists the matings in store order. Neighbours with the same parents share an entry.
MatingList list_matings(const PopulationStore& store, const AncestorPedigree& ancestors) {
  MatingList list;
  list.matings.emplace_back();
  list.of_animal.reserve(store.animals.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const ParentNumbers parents = parent_numbers(store, ancestors, i);
    const bool are_known = parents.sire != 0 && parents.dam != 0;
    const Mating& last = list.matings.back();
    if (are_known && (last.sire != parents.sire || last.dam != parents.dam)) {
      list.matings.push_back({parents.sire, parents.dam});
    }
    list.of_animal.push_back(are_known ? static_cast<std::int32_t>(list.matings.size()) - 1 : 0);
  }
  return list;
}

/// Puts the matings into an order in which neighbours have many ancestors in common, by the sires of the parents, and
/// leaves each pair of parents one entry.
void gather_relatives(MatingList& list, const AncestorPedigree& ancestors) {
  const auto kin_of = [&](std::int32_t number) {
    const Mating& m = list.matings[at(number)];
    return std::tuple(ancestors.sire[at(m.sire)], m.sire, ancestors.sire[at(m.dam)], m.dam);
  };
  std::vector<std::int32_t> order(list.matings.size() - 1);
  std::iota(order.begin(), order.end(), 1);
  std::ranges::sort(order, [&](std::int32_t a, std::int32_t b) { return kin_of(a) < kin_of(b); });
  std::vector<std::int32_t> new_number(list.matings.size(), 0);
  std::vector<Mating> gathered(1);
  for (const std::int32_t number : order) {
    const Mating& mating = list.matings[at(number)];
    if (gathered.back().sire != mating.sire || gathered.back().dam != mating.dam) gathered.push_back(mating);
    new_number[at(number)] = static_cast<std::int32_t>(gathered.size()) - 1;
  }
  list.matings = std::move(gathered);
  for (std::int32_t& mating : list.of_animal) mating = new_number[at(mating)];
}

/// The order of work: matings of one stage do not depend on each other, and F of an ancestor of depth d is known when
/// stage d begins. Depth counts the longest line of known ancestors, the animal included.
struct WorkPlan {
  std::vector<std::vector<std::int32_t>> matings;    ///< by stage
  std::vector<std::vector<std::int32_t>> ancestors;  ///< by depth
};

WorkPlan plan_work(const MatingList& list, const AncestorPedigree& ancestors) {
  std::vector<std::int32_t> depth(ancestors.position.size(), 0);
  std::vector<char> brings_ancestor(list.matings.size(), 0);
  std::int32_t deepest = 0;
  for (std::size_t j = 1; j < depth.size(); ++j) {
    depth[j] = 1 + std::max(depth[at(ancestors.sire[j])], depth[at(ancestors.dam[j])]);
    deepest = std::max(deepest, depth[j]);
    brings_ancestor[at(list.of_animal[at(ancestors.position[j]) - 1])] = 1;
  }
  WorkPlan plan;
  plan.matings.resize(at(deepest) + 2);
  plan.ancestors.resize(at(deepest) + 2);
  for (std::size_t j = 1; j < depth.size(); ++j) plan.ancestors[at(depth[j])].push_back(static_cast<std::int32_t>(j));
  for (std::size_t number = 1; number < list.matings.size(); ++number) {
    const Mating& mating = list.matings[number];
    // No walk waits for animals without offspring: their matings come last, all relatives together.
    const std::int32_t stage =
        brings_ancestor[number] != 0 ? std::max(depth[at(mating.sire)], depth[at(mating.dam)]) : deepest + 1;
    plan.matings[at(stage)].push_back(static_cast<std::int32_t>(number));
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

/// Walks all matings; yields F of each.
std::vector<float> walk_matings(const MatingList& list, const AncestorPedigree& ancestors,
                                InbreedingProgress& progress) {
  AncestorWalk walk = make_ancestor_walk(ancestors);
  const WorkPlan plan = plan_work(list, ancestors);
  std::vector<float> f(list.matings.size(), 0.0F);
  std::size_t done = 0;
  for (std::size_t stage = 0; stage < plan.matings.size(); ++stage) {
    for (const std::int32_t j : plan.ancestors[stage]) {
      set_inbreeding(walk, j, f[at(list.of_animal[at(ancestors.position[at(j)]) - 1])]);
    }
    const std::vector<std::int32_t>& numbers = plan.matings[stage];
    for (std::size_t first = 0; first < numbers.size(); first += lane_count) {
      std::array<Mating, lane_count> batch;
      std::array<float, lane_count> results = {};
      const std::size_t size = std::min(lane_count, numbers.size() - first);
      for (std::size_t lane = 0; lane < size; ++lane) batch[lane] = list.matings[at(numbers[first + lane])];
      walk_ancestors(walk, std::span(batch).first(size), results);
      for (std::size_t lane = 0; lane < size; ++lane) f[at(numbers[first + lane])] = results[lane];
      done += size;
      progress.show(done, list.matings.size() - 1);
    }
  }
  return f;
}

}  // namespace

void compute_inbreeding(PopulationStore& store, const AncestorPedigree& ancestors, TextOutput& console) {
  InbreedingProgress progress{store.animal_count, progress_interval(store.animal_count, 200, 500, 1000), console};
  MatingList list = list_matings(store, ancestors);
  gather_relatives(list, ancestors);
  const std::vector<float> f = walk_matings(list, ancestors, progress);
  progress.show(1, 1);  // what is left, also when there was no mating to walk
  for (std::size_t i = 0; i < store.animals.size(); ++i) store.animals[i].inbreeding = f[at(list.of_animal[i])];
}

}  // namespace pedigreewatch
