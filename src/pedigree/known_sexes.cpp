#include "pedigree/known_sexes.h"

#include <algorithm>
#include <vector>

namespace pedigreewatch {
namespace {

std::optional<Sex> sex_by_role(bool was_sire, bool was_dam) {
  if (was_sire == was_dam) return std::nullopt;
  return was_sire ? male : female;
}

}  // namespace

SexEvidence find_sex_evidence(const PopulationStore& store) {
  SexEvidence evidence{ByNumber<Flag>(store.size()), ByNumber<Flag>(store.size())};
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    evidence.was_sire[store.sire_no[i]] = 1;
    evidence.was_dam[store.dam_no[i]] = 1;
  }
  return evidence;
}

std::optional<Sex> known_sex(const PopulationStore& store, const SexEvidence& evidence, std::int32_t position) {
  if (store.is_sex_told(position)) return store.sex[position];
  return sex_by_role(evidence.was_sire[position] != 0, evidence.was_dam[position] != 0);
}

std::optional<Sex> known_sex(const PopulationStore& store, std::int32_t position) {
  if (store.is_sex_told(position)) return store.sex[position];
  const auto stands_in = [&](const std::vector<std::int32_t>& parents) {
    return std::find(parents.begin(), parents.end(), position) != parents.end();
  };
  return sex_by_role(stands_in(store.sire_no.values), stands_in(store.dam_no.values));
}

}  // namespace pedigreewatch
