// Which parents the young of some years have, how unevenly they were used, and how closely they were mated.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch {

/// A parent and its part of the young.
struct ParentShare {
  std::int32_t parent = 0;  ///< position
  std::int64_t young = 0;
  double share = 0.0;  ///< of the young whose parent of this sex is known
};

/// The sires or the dams of some young.
struct ParentsInUse {
  std::vector<ParentShare> parents;  ///< the most used first; of those used alike the one that stands first
  double effective = 0.0;            ///< so many used alike would be as good: 1 / sum of squared shares; 0 without any
  double share_of_four = 0.0;        ///< of the four most used ones
};

/// `parent_of` is `sire_no` or `dam_no` of the store; `young` are positions.
ParentsInUse parents_in_use(const ByNumber<std::int32_t>& parent_of, std::span<const std::int32_t> young);

/// The effective number when parents above `most_share` are held to it and the others have what that sets free, in
/// proportion.
double effective_number_held(const ParentsInUse& use, double most_share);

/// The mean kinship of the sires with the dams, each weighed by its young: F of the young had they been mated at
/// random. F of all animals must be final. 0 when sires or dams are not known.
double chance_inbreeding(const PopulationStore& store, const ParentsInUse& sires, const ParentsInUse& dams);

}  // namespace pedigreewatch
