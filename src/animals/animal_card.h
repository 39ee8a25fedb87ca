// Everything that is told of one animal: its pedigree, its inbreeding and where that comes from, how related it is to
// the animals of today, how far its ancestors are known, its offspring, and what it has handed on.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "animals/family_tree.h"
#include "animals/founder_inbreeding.h"
#include "animals/offspring_list.h"
#include "core/by_number.h"
#include "diversity/animal_figures.h"
#include "matings/common_ancestors.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// What all cards of a population are made from. F of all animals must be final.
struct CardSource {
  const PopulationStore& store;
  std::span<const std::int32_t> today;        ///< the reference population: positions, ascending
  const ByNumber<float>& mean_kinship;        ///< with it, by position; empty when there is none
  const ByNumber<KnownLine>& lines;           ///< by position, as `count_known_lines` yields them
  const ByNumber<float>&recent_3, &recent_5;  ///< F over the last generations, as `recent_inbreeding` yields it
  const ByNumber<float>& ancestral;           ///< as `ancestral_inbreeding` yields it
};

/// The ancestors on one side.
struct ParentSide {
  std::int32_t parent = 0;                                ///< position; 0: unknown
  std::array<std::int32_t, tree_generations> known = {};  ///< in each generation, of 1, 2, 4, 8 and 16
};

/// The place of an animal among those born in its year, itself included, by mean kinship: 1 is the lowest. Of equal
/// ones each has the best place.
struct AgeMateRank {
  std::int32_t rank = 0, animals = 0;
};

/// What the animals of today have from an animal.
struct PartOfToday {
  std::int32_t animals = 0;      ///< of today
  std::int32_t descendants = 0;  ///< among them, the animal itself left out
  bool is_one = false;           ///< it is one of them
  double genes = 0.0;            ///< the share of their genes that come from it, its own included where it is one
};

struct AnimalCard {
  std::int32_t position = 0;
  std::optional<Sex> sex;  ///< of `known_sex`
  FamilyTree tree;
  KinshipParts parts;                     ///< of its parents' kinship, which is its F; 0 with an unknown parent
  FounderInbreeding founders;             ///< the same F, founder by founder
  double recent_3 = 0.0, recent_5 = 0.0;  ///< F over its last generations; 0 with an unknown parent
  double ancestral = 0.0;                 ///< ancestral inbreeding
  std::optional<double> mean_kinship;     ///< with the animals of today
  std::optional<AgeMateRank> rank;        ///< none without a mean kinship or a year of birth
  ParentSide sire, dam;
  double completeness_index = 0.0;  ///< PCI
  OffspringList offspring;
  PartOfToday today;
};

/// A few passes over the population: some 50 ms for a million animals; and in deep pedigrees up to a third of a second
/// for the founders of its inbreeding.
AnimalCard make_card(const CardSource& source, std::int32_t position);

}  // namespace pedigreewatch
