// The kinships of the candidates, as a matrix that is never made: products with it come from one pass up and one pass
// down the pedigree of the candidates and their ancestors (Colleau, 2002, Genet. Sel. Evol. 34: 409-421). With T the
// flow of genes from parents to offspring and D the within-family variances, the kinships are T D T' / 2.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/by_number.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// The pedigree of some candidates. Ancestors, the candidates among them, are numbered from 1, parents before their
/// offspring; 0 stands for an unknown parent. Candidates are known by their place, counted from 0.
struct CandidateKinship {
  ByNumber<std::int32_t> sire, dam;         ///< by ancestor number
  ByNumber<double> within_family_variance;  ///< by ancestor number
  std::vector<std::int32_t> ancestor_of;    ///< by place: the candidate's ancestor number
  std::vector<double> with_itself;          ///< by place: (1 + F) / 2

  std::size_t candidates() const { return ancestor_of.size(); }
  std::int32_t ancestors() const { return sire.last(); }
};

/// The pedigree of the animals at `positions`, each once. F of all animals must be final.
CandidateKinship make_candidate_kinship(const PopulationStore& store, std::span<const std::int32_t> positions);

/// What products are worked out in; one for each thread of work. All 0 between two products.
using KinshipScratch = ByNumber<double>;
KinshipScratch make_kinship_scratch(const CandidateKinship& kinship);

/// product = K weights, both by place.
void multiply_kinship(const CandidateKinship& kinship, std::span<const double> weights, std::span<double> product,
                      KinshipScratch& scratch);

/// Columns of the matrix that one pass works out side by side.
inline constexpr std::size_t kinship_lanes = 8;

/// Columns of K, by place: column k of `places` stands in columns[k * candidates()] and following.
std::vector<double> kinship_columns(const CandidateKinship& kinship, std::span<const std::int32_t> places);

/// The kinships of some candidates with others, row by row: that of rows[r] with columns[c] at r * columns.size() + c.
std::vector<double> kinship_table(const CandidateKinship& kinship, std::span<const std::int32_t> rows,
                                  std::span<const std::int32_t> columns);

}  // namespace pedigreewatch
