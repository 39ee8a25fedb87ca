#include "genetics/inbreeding.h"

#include <algorithm>
#include <vector>

#include "core/line_writer.h"
#include "core/progress.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

constexpr Wording animal_no = {"animal no. ", "dier nr "};
constexpr Wording coefficient_estimated = {"inbreeding coefficient estimated",
                                           "inteeltco\xEB"
                                           "ffici\xEBnt berekend"};

/// What a walk works on, kept between walks; `gene_share` and `link` are 0 between two of them.
struct AncestorWalk {
  const AncestorPedigree& pedigree;
  std::vector<float> f;            ///< F by ancestor number; -1 for the unknown parent
  std::vector<float> gene_share;   ///< share of the ancestor in the animal, over all paths
  std::vector<std::int32_t> link;  ///< ancestors still to visit, in descending order; 0 ends the list

  explicit AncestorWalk(const AncestorPedigree& ancestors)
      : pedigree(ancestors), f(ancestors.position.size(), 0.0F), gene_share(f.size(), 0.0F), link(f.size(), 0) {
    f[0] = -1.0F;
  }
};

std::size_t at(std::int32_t number) {
  return static_cast<std::size_t>(number);
}

/// Adds to the share of ancestor `number` and puts it into the list behind `place`; yields its predecessor there.
std::int32_t give_share(AncestorWalk& walk, std::int32_t place, std::int32_t number, float share) {
  while (walk.link[at(place)] > number) place = walk.link[at(place)];
  walk.gene_share[at(number)] += share;
  if (walk.link[at(place)] != number) {
    walk.link[at(number)] = walk.link[at(place)];
    walk.link[at(place)] = number;
  }
  return place;
}

/// Gives half of `share` to both parents, the higher one first, and yields the within-family part that the animal
/// itself adds: the squared share times its within-family variance.
float pass_on(AncestorWalk& walk, std::int32_t place, ParentNumbers parents, float share) {
  const std::int32_t higher = std::max(parents.sire, parents.dam), lower = std::min(parents.sire, parents.dam);
  if (higher > 0) {
    const std::int32_t behind = give_share(walk, place, higher, share * 0.5F);
    if (lower > 0) give_share(walk, behind, lower, share * 0.5F);
  }
  return share * share * (0.5F - (walk.f[at(lower)] + walk.f[at(higher)]) * 0.25F);
}

/// F of an animal with these parents, of whom the F must be final like that of all their ancestors.
float inbreeding_of_offspring(AncestorWalk& walk, ParentNumbers parents) {
  float fi = -1.0F;
  fi += pass_on(walk, 0, parents, 1.0F);
  for (std::int32_t j = walk.link[0]; j != 0;) {
    const float share = walk.gene_share[at(j)];
    fi += pass_on(walk, j, {walk.pedigree.sire[at(j)], walk.pedigree.dam[at(j)]}, share);
    const std::int32_t next = walk.link[at(j)];
    walk.link[at(j)] = 0;
    walk.gene_share[at(j)] = 0.0F;
    j = next;
  }
  walk.link[0] = 0;
  return fi;
}

}  // namespace

void compute_inbreeding(PopulationStore& store, const AncestorPedigree& ancestors, bool english, TextOutput& console) {
  AncestorWalk walk(ancestors);
  ProgressCounter progress{progress_interval(store.animal_count, 200, 500, 1000)};
  ParentNumbers previous = {-1, -1};
  float previous_f = 0.0F;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (progress.is_due()) {
      write_free_line(console, {animal_no.in(english), i - 1, coefficient_estimated.in(english)});
    }
    const ParentNumbers parents = parent_numbers(store, ancestors, i);
    AnimalRecord& animal = store.at(i);
    if (parents.sire == 0 || parents.dam == 0) {
      animal.inbreeding = 0.0F;
    } else if (parents.sire == previous.sire && parents.dam == previous.dam) {  // a litter mate
      animal.inbreeding = previous_f;
    } else {
      animal.inbreeding = inbreeding_of_offspring(walk, parents);
    }
    if (const std::int32_t number = ancestors.number_at(i); number > 0) walk.f[at(number)] = animal.inbreeding;
    previous = parents;
    previous_f = animal.inbreeding;
  }
}

}  // namespace pedigreewatch
