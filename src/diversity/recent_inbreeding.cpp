// Each different mating is worked out once, in three steps, of which most matings need the first only:
// 1. F over k generations is 0, or at least what two animals get that have one ancestor of the last generation in
// common;
//    and it is never above F.
// 2. The ancestors of both parents are gathered, generation by generation. When no one is met from both sides it is 0.
// 3. The gathered animals are a small pedigree of their own; the parents' genes in it are carried up from the youngest.

#include "diversity/recent_inbreeding.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

/// Ancestors of six generations at most.
constexpr std::size_t most_gathered = 2 + 4 + 8 + 16 + 32 + 64;

struct Gathered {
  std::int32_t position = 0;
  std::int32_t generation = 0;         ///< in which it is met first; parents are 1
  std::uint8_t sides = 0;              ///< bit 0: ancestor of the sire or he himself, bit 1: of the dam
  std::int32_t sire = 0, dam = 0;      ///< positions; 0 in the last generation
  double of_sire = 0.0, of_dam = 0.0;  ///< parts of its genes in both parents, while they are carried up
};

/// The small pedigree of one mating, the youngest animal first once it is complete.
struct SmallPedigree {
  std::array<Gathered, most_gathered> animals;
  std::size_t count = 0;

  std::span<Gathered> all() { return std::span(animals).first(count); }
};

struct RecentWork {
  const PopulationStore& store;
  std::int32_t generations = 0;
  double least = 0.0;               ///< the smallest F there can be but 0
  ByNumber<std::uint8_t> place_of;  ///< by position: the place in the small pedigree, counted from 1; 0 for none
  SmallPedigree small;
};

void gather(RecentWork& work, std::int32_t position, std::int32_t generation, std::uint8_t sides) {
  if (position == 0) return;
  std::uint8_t& place = work.place_of[position];
  if (place != 0) {
    work.small.animals[place - std::size_t{1}].sides |= sides;
    return;
  }
  work.small.animals[work.small.count++] = {position, generation, sides, 0, 0, 0.0, 0.0};
  place = static_cast<std::uint8_t>(work.small.count);
}

/// Fills the small pedigree. Yields whether an animal is met from both sides.
bool gather_ancestors(RecentWork& work, KnownParents parents) {
  SmallPedigree& small = work.small;
  small.count = 0;
  gather(work, parents.sire, 1, 1);
  gather(work, parents.dam, 1, 2);
  for (std::size_t k = 0; k < small.count; ++k) {  // those of one generation stand together, the parents first
    Gathered& animal = small.animals[k];
    if (animal.generation == work.generations) break;
    const KnownParents own = known_parents(work.store, animal.position);
    animal.sire = own.sire;
    animal.dam = own.dam;
    gather(work, own.sire, animal.generation + 1, animal.sides);
    gather(work, own.dam, animal.generation + 1, animal.sides);
  }
  return std::any_of(small.all().begin(), small.all().end(), [](const Gathered& animal) { return animal.sides == 3; });
}

void forget_places(RecentWork& work) {
  for (const Gathered& animal : work.small.all()) work.place_of[animal.position] = 0;
}

/// The youngest animal first, so that each stands before its parents.
void order_by_age(RecentWork& work) {
  const std::span<Gathered> animals = work.small.all();
  std::sort(animals.begin(), animals.end(), [](const auto& a, const auto& b) { return a.position > b.position; });
  for (std::size_t k = 0; k < animals.size(); ++k) {
    work.place_of[animals[k].position] = static_cast<std::uint8_t>(k + 1);
  }
}

const Gathered& gathered_at(const RecentWork& work, std::int32_t position) {
  return work.small.animals[work.place_of[position] - std::size_t{1}];
}

/// The kinship of two animals of the small pedigree, by its definition. Few are asked for, and of few generations.
double small_kinship(const RecentWork& work, std::int32_t a, std::int32_t b) {
  if (a == 0 || b == 0) return 0.0;
  const Gathered& younger = gathered_at(work, std::max(a, b));
  if (a == b) return 0.5 + 0.5 * small_kinship(work, younger.sire, younger.dam);
  const std::int32_t older = std::min(a, b);
  return 0.5 * (small_kinship(work, younger.sire, older) + small_kinship(work, younger.dam, older));
}

/// The variance of what an animal has from neither parent.
double own_variance(const RecentWork& work, const Gathered& animal) {
  double variance = 1.0;
  for (const std::int32_t parent : {animal.sire, animal.dam}) {
    if (parent == 0) continue;
    const Gathered& own = gathered_at(work, parent);
    variance -= 0.25 * (1.0 + small_kinship(work, own.sire, own.dam));
  }
  return variance;
}

/// F of the offspring, from the small pedigree in order of age.
double inbreeding_of_small(RecentWork& work, KnownParents parents) {
  const auto at = [&](std::int32_t position) -> Gathered& {
    return work.small.animals[work.place_of[position] - std::size_t{1}];
  };
  at(parents.sire).of_sire = 1.0;
  at(parents.dam).of_dam = 1.0;
  double relationship = 0.0;
  for (const Gathered& animal : work.small.all()) {
    for (const std::int32_t parent : {animal.sire, animal.dam}) {
      if (parent == 0) continue;
      at(parent).of_sire += 0.5 * animal.of_sire;
      at(parent).of_dam += 0.5 * animal.of_dam;
    }
    const double shared = animal.of_sire * animal.of_dam;
    if (shared > 0.0) relationship += shared * own_variance(work, animal);
  }
  return 0.5 * relationship;
}

double inbreeding_of_mating(RecentWork& work, KnownParents parents) {
  double f = 0.0;
  if (gather_ancestors(work, parents)) {
    // Where a side was met later than an animal itself, its ancestors may be known from both sides already.
    order_by_age(work);
    f = inbreeding_of_small(work, parents);
  }
  forget_places(work);
  return f;
}

}  // namespace

ByNumber<float> recent_inbreeding(const PopulationStore& store, std::int32_t generations) {
  constexpr double rounding = 1e-5;  // of F in single precision, and more
  RecentWork work{
      store, generations, std::ldexp(1.0, 1 - 2 * generations) - rounding, ByNumber<std::uint8_t>(store.size()), {}};
  ByNumber<float> recent(store.size());
  KnownParents last;
  float of_last = 0.0F;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (double{store.inbreeding[i]} < work.least) continue;
    const KnownParents parents = known_parents(store, i);
    if (parents.sire == 0 || parents.dam == 0) continue;
    const bool is_litter_mate = parents.sire == last.sire && parents.dam == last.dam;
    if (!is_litter_mate) of_last = static_cast<float>(inbreeding_of_mating(work, parents));
    last = parents;
    recent[i] = of_last;
  }
  return recent;
}

}  // namespace pedigreewatch
