// The walk through the ancestors of a model herd, which grows with the parents that come into use.
#pragma once

#include "forecast/model_basis.h"
#include "genetics/ancestor_walk.h"

namespace pedigreewatch {

/// A walk that knows the pedigree of the basis.
AncestorWalk make_basis_walk(const ModelBasis& basis);

/// Gives the origin of imports the kinship that they have with each other.
void set_origin(AncestorWalk& walk, std::int32_t origin, double import_kinship);

/// Adds the next animal of a pedigree, behind its parents.
void add_to_walk(AncestorWalk& walk, std::int32_t sire, std::int32_t dam, float f);

/// Forgets all animals but the first ones.
void shorten_walk(AncestorWalk& walk, std::int32_t count);

}  // namespace pedigreewatch
