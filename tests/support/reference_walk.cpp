#include "support/reference_walk.h"

#include <algorithm>
#include <cstddef>

namespace pedigreewatch::test {
namespace {

std::size_t at(std::int32_t number) {
  return static_cast<std::size_t>(number);
}

/// The pedigree cut off at one animal.
struct Walk {
  std::int32_t last;
  std::vector<std::int32_t> lower_parent, higher_parent;  ///< 0 to last + 1
  std::vector<float> f;                                   ///< 0 to last
  std::vector<float> gene_share;                          ///< to last + 1
  std::vector<std::int32_t> ancestor_link;                ///< to last + 1

  Walk(const PopulationStore& store, const std::vector<float>& inbreeding, std::int32_t i)
      : last(i),
        lower_parent(at(i) + 2, 0),
        higher_parent(at(i) + 2, 0),
        f(at(i) + 1, 0.0F),
        gene_share(at(i) + 2, 0.0F),
        ancestor_link(at(i) + 2, 0) {
    f[0] = -1.0F;
    for (std::int32_t j = 1; j <= i; ++j) {
      lower_parent[at(j)] = std::min(store.sire_no[j], store.dam_no[j]);
      higher_parent[at(j)] = std::max(store.sire_no[j], store.dam_no[j]);
      if (j < i) f[at(j)] = inbreeding[at(j) - 1];
    }
  }

  /// Looks from k on for the place of `parent`, adds to its share and links it in; yields the k reached.
  std::int32_t visit_parent(std::int32_t k, std::int32_t parent, float a) {
    for (std::int32_t turn = 0; turn < last + 1 && ancestor_link[at(k)] > parent; ++turn) k = ancestor_link[at(k)];
    gene_share[at(parent)] = gene_share[at(parent)] + a * 0.5F;
    if (ancestor_link[at(k)] != parent) {
      ancestor_link[at(parent)] = ancestor_link[at(k)];
      ancestor_link[at(k)] = parent;
    }
    return k;
  }
};

}  // namespace

float reference_walk(const PopulationStore& store, const std::vector<float>& inbreeding, std::int32_t i) {
  Walk walk(store, inbreeding, i);
  walk.gene_share[at(i)] = 1.0F;
  float fi = -1.0F;
  std::int32_t j = i;
  for (std::int32_t turn = 0; turn < i + 1 && j != 0; ++turn) {
    const float a = walk.gene_share[at(j)];
    const std::int32_t h = walk.higher_parent[at(j)], l = walk.lower_parent[at(j)];
    if (h > 0) {
      const std::int32_t k = walk.visit_parent(j, h, a);
      if (l > 0) walk.visit_parent(k, l, a);
    }
    const float squared = a * a;
    const float variance = 0.5F - (walk.f[at(l)] + walk.f[at(h)]) * 0.25F;
    const float part = squared * variance;
    fi = fi + part;
    const std::int32_t next = walk.ancestor_link[at(j)];
    walk.ancestor_link[at(j)] = 0;
    j = next;
  }
  return fi;
}

std::vector<float> reference_inbreeding(const PopulationStore& store) {
  std::vector<float> inbreeding(store.size(), 0.0F);
  std::int32_t previous_sire = -1, previous_dam = -1;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::int32_t s = store.sire_no[i], d = store.dam_no[i];
    if (s == 0 || d == 0) {
      inbreeding[at(i) - 1] = 0.0F;
    } else if (s == previous_sire && d == previous_dam) {
      inbreeding[at(i) - 1] = inbreeding[at(i) - 2];
    } else {
      inbreeding[at(i) - 1] = reference_walk(store, inbreeding, i);
    }
    previous_sire = s;
    previous_dam = d;
  }
  return inbreeding;
}

}  // namespace pedigreewatch::test
