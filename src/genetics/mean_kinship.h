// What animals have from each other, summed over a group: products of the relationship matrix with a vector, in one
// pass up the pedigree and one down, without the matrix (Colleau, 2002, Genet. Sel. Evol. 34: 409-421). A pedigree is
// given by the numbers of the parents; parents have smaller numbers than their offspring, and 0 stands for an unknown
// one.
#pragma once

#include <cstdint>
#include <span>

#include "core/by_number.h"
#include "genetics/ancestor_pedigree.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// By number: how many animals' genes come from this one, where `weights` says by number how many animals each counts
/// for. With T the flow of genes from parents to offspring, T' times the weights.
ByNumber<double> gene_contributions(const ByNumber<std::int32_t>& sire, const ByNumber<std::int32_t>& dam,
                                    ByNumber<double> weights);

/// By number: the sum of the relationships with all animals, each times its weight, from the `genes` that
/// `gene_contributions` yields for these weights. With D the within-family variances, T D times the genes: the
/// relationship matrix T D T' times the weights.
ByNumber<double> weighted_relationships(const ByNumber<std::int32_t>& sire, const ByNumber<std::int32_t>& dam,
                                        const ByNumber<double>& within_family_variance, ByNumber<double> genes);

/// By ancestor number: the mean kinship with the animals of `group` (positions, all of them in the pedigree), the
/// animal itself included where it is one of them. F of all animals must be final. Empty for an empty group.
ByNumber<double> mean_kinship_with(const PopulationStore& store, const AncestorPedigree& ancestors,
                                   std::span<const std::int32_t> group);

}  // namespace pedigreewatch
