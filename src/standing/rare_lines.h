// Lines that are nearly lost: founders of whose genes little is left, and the animals that still have some.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "pedigree/available_animals.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// An animal with fewer generation equivalents looks rare only because its ancestors are not known.
inline constexpr float least_equivalents_of_rare = 3.0F;
/// A founder with less than this part of the genes of the young is nearly lost ...
inline constexpr double rare_founder = 0.005;
/// ... and an animal with at least this part of its genes from it carries its line, as a great-great-grandchild does.
inline constexpr double least_carried = 0.0625;

/// A line with more carriers than these is not nearly lost.
inline constexpr std::size_t most_carriers = 5;

struct LineCarrier {
  std::int32_t animal = 0;  ///< position
  double mean_kinship = 0.0;
};

struct RareLine {
  std::int32_t founder = 0;           ///< position
  double share_of_young = 0.0;        ///< of the genes of all animals looked at
  std::vector<LineCarrier> carriers;  ///< the lowest mean kinship first
};

struct RareLines {
  std::vector<RareLine> lines;
  std::int64_t founders = 0;       ///< that the animals descend from
  std::int64_t rare_founders = 0;  ///< those of them with less than `rare_founder` of their genes
};

/// At most `most_lines` lines of the animals at `positions` (ascending), found through those of them that have the
/// lowest mean kinship with all and enough known ancestors. Carriers are those that are `available`: a line whose
/// carriers have all gone is none. F and completeness must be final.
RareLines find_rare_lines(const PopulationStore& store, std::span<const std::int32_t> positions, std::size_t most_lines,
                          const AvailableAnimals& available = {});

}  // namespace pedigreewatch
