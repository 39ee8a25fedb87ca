// The inbreeding of one animal, divided among the founders that its genes come from.
#pragma once

#include <cstdint>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch {

/// What of F comes from one founder.
struct FounderPart {
  std::int32_t position = 0;       ///< in the store: the founder, or the animal of which a parent is unknown
  bool is_unknown_parent = false;  ///< the founder is the unknown parent of the animal at `position`
  double part = 0.0;               ///< of F, as a fraction
};

struct FounderInbreeding {
  bool is_too_large = false;       ///< the pedigree asks for more than `most_founder_steps`; there are no parts
  std::int32_t ancestors = 0;      ///< known ones
  std::vector<FounderPart> parts;  ///< the largest first, of equal ones that of the younger animal first; they sum to F
};

/// Steps that a card may take: animals times blocks of parents that are carried up beside each other, a third of a
/// second. Pedigrees of some 20,000 ancestors need no more.
inline constexpr std::int64_t most_founder_steps = 30'000'000;

/// Partial inbreeding of the animal at `position` (Lacy, Alaks and Walsh, 1996): for each founder the chance that both
/// genes of the animal at a locus are copies of one gene of that founder. F of all animals must be final. No parts
/// for an animal that is not inbred.
FounderInbreeding inbreeding_by_founder(const PopulationStore& store, std::int32_t position,
                                        std::int64_t most_steps = most_founder_steps);

}  // namespace pedigreewatch
