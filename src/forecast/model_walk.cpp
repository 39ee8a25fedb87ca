#include "forecast/model_walk.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t word_bits = 64;

}  // namespace

AncestorWalk make_basis_walk(const ModelBasis& basis) {
  AncestorWalk walk = make_ancestor_walk(basis.ancestors);
  for (std::int32_t j = 1; j <= basis.ancestors.count(); ++j) set_inbreeding(walk, j, basis.pedigree.f[j]);
  add_to_walk(walk, 0, 0, 0.0F);
  set_origin(walk, basis.origin, 0.0);
  return walk;
}

void set_origin(AncestorWalk& walk, std::int32_t origin, double import_kinship) {
  walk.f[origin] = f_of_origin(import_kinship);
  walk.ancestors[origin].within_family_variance = static_cast<float>(2.0 * import_kinship);
}

void add_to_walk(AncestorWalk& walk, std::int32_t sire, std::int32_t dam, float f) {
  walk.ancestors.values.push_back({sire, dam, 0.0F});
  walk.f.values.push_back(0.0F);
  walk.shares.values.push_back(Lanes{});
  const std::size_t words = walk.f.values.size() / word_bits + 1;
  if (words > walk.waiting.size()) {
    walk.waiting.resize(words, 0);
    walk.waiting_words.resize(words / word_bits + 1, 0);
  }
  set_inbreeding(walk, walk.f.last(), f);
}

void shorten_walk(AncestorWalk& walk, std::int32_t count) {
  const std::size_t size = static_cast<std::size_t>(count) + 1;
  walk.ancestors.values.resize(size);
  walk.f.values.resize(size);
  walk.shares.values.resize(size);
}

}  // namespace pedigreewatch
