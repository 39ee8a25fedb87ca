#include "standing/early_parents.h"

#include "core/shares.h"

namespace pedigreewatch {
namespace {

struct ParentCounts {
  std::int64_t animals = 0, known = 0;

  double share() const { return animals > 0 ? 0.5 * share_of(known, animals) : 0.0; }
};

ParentCounts count_known(const PopulationStore& store, YearStretch span) {
  ParentCounts parents;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::int32_t year = store.birth_year[i];
    if (year == 0 || year < span.first || year > span.last) continue;
    if (store.has_import && store.is_import[i] != 0) continue;
    ++parents.animals;
    parents.known += (store.sire_no[i] > 0 ? 1 : 0) + (store.dam_no[i] > 0 ? 1 : 0);
  }
  return parents;
}

}  // namespace

std::optional<LackingParents> find_lacking_parents(const PopulationStore& store, YearStretch early, YearStretch later) {
  const ParentCounts of_early = count_known(store, early), of_later = count_known(store, later);
  if (of_later.share() - of_early.share() <= most_parents_lacking) return std::nullopt;
  return LackingParents{early, later, of_early.share(), of_later.share(), of_early.animals > 0};
}

}  // namespace pedigreewatch
