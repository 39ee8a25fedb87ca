#include "diversity/close_matings.h"

namespace pedigreewatch {
namespace {

constexpr double kinship_of_cousins = 1.0 / 16.0;
constexpr double rounding = 1e-6;  // of F in single precision

int parents_in_common(const KnownParents& a, const KnownParents& b) {
  int common = 0;
  for (const std::int32_t parent : {a.sire, a.dam}) {
    if (parent != 0 && (parent == b.sire || parent == b.dam)) ++common;
  }
  return common;
}

}  // namespace

MatingKin kin_of_mating(const PopulationStore& store, const KnownParents& parents, float inbreeding) {
  if (parents.sire == parents.dam) return MatingKin::parent_offspring;
  const KnownParents of_sire = known_parents(store, parents.sire), of_dam = known_parents(store, parents.dam);
  if (of_sire.sire == parents.dam || of_sire.dam == parents.dam || of_dam.sire == parents.sire ||
      of_dam.dam == parents.sire) {
    return MatingKin::parent_offspring;
  }
  switch (parents_in_common(of_sire, of_dam)) {
    case 2: return MatingKin::full_sibs;
    case 1: return MatingKin::half_sibs;
    default: break;
  }
  return double{inbreeding} >= kinship_of_cousins - rounding ? MatingKin::cousins : MatingKin::distant;
}

}  // namespace pedigreewatch
