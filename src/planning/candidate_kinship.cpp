// The pass up the pedigree gathers what every ancestor has of the weights, the pass down hands out what its own draw of
// genes is worth to everybody that descends from it. Both run over arrays without gaps.

#include "planning/candidate_kinship.h"

#include <algorithm>
#include <utility>

#include "core/processor_clones.h"
#include "genetics/ancestor_pedigree.h"
#include "genetics/mean_kinship.h"

namespace pedigreewatch {
namespace {

/// The same eight operations side by side, in the vector type that g++ and clang++ share.
// NOLINTNEXTLINE(modernize-use-using): a using cannot carry the size in g++
typedef double LaneDoubles __attribute__((vector_size(64)));

struct alignas(64) KinshipLanes {
  LaneDoubles each;
};

PEDIGREEWATCH_PROCESSOR_CLONES
void pass_columns(const CandidateKinship& kinship, ByNumber<KinshipLanes>& lanes) {
  for (std::int32_t j = kinship.ancestors(); j > 0; --j) {
    const LaneDoubles half = lanes[j].each * 0.5;
    lanes[kinship.sire[j]].each += half;
    lanes[kinship.dam[j]].each += half;
  }
  lanes[0] = KinshipLanes{};
  for (std::int32_t j = 1; j <= kinship.ancestors(); ++j) {
    const LaneDoubles of_parents = (lanes[kinship.sire[j]].each + lanes[kinship.dam[j]].each) * 0.5;
    lanes[j].each = of_parents + lanes[j].each * (0.5 * kinship.within_family_variance[j]);
  }
}

/// Columns of the kinships for up to `kinship_lanes` candidates, by ancestor number.
void fill_lanes(const CandidateKinship& kinship, std::span<const std::int32_t> places, ByNumber<KinshipLanes>& lanes) {
  std::fill(lanes.values.begin(), lanes.values.end(), KinshipLanes{});
  for (std::size_t lane = 0; lane < places.size(); ++lane) {
    lanes[kinship.ancestor_of[static_cast<std::size_t>(places[lane])]].each[lane] += 1.0;
  }
  pass_columns(kinship, lanes);
}

}  // namespace

CandidateKinship make_candidate_kinship(const PopulationStore& store, std::span<const std::int32_t> positions) {
  CandidateKinship kinship;
  AncestorPedigree ancestors = pedigree_of(store, positions);
  kinship.within_family_variance = within_family_variances(store, ancestors);
  for (const std::int32_t position : positions) {
    kinship.ancestor_of.push_back(ancestors.number_of_animal[position]);
    kinship.with_itself.push_back(0.5 * (1.0 + double{store.inbreeding[position]}));
  }
  kinship.sire = std::move(ancestors.sire);
  kinship.dam = std::move(ancestors.dam);
  return kinship;
}

KinshipScratch make_kinship_scratch(const CandidateKinship& kinship) {
  return KinshipScratch(static_cast<std::size_t>(kinship.ancestors()), 0.0);
}

void multiply_kinship(const CandidateKinship& kinship, std::span<const double> weights, std::span<double> product,
                      KinshipScratch& scratch) {
  for (std::size_t k = 0; k < weights.size(); ++k) scratch[kinship.ancestor_of[k]] += weights[k];
  scratch = weighted_relationships(kinship.sire, kinship.dam, kinship.within_family_variance,
                                   gene_contributions(kinship.sire, kinship.dam, std::move(scratch)));
  for (std::size_t k = 0; k < product.size(); ++k) product[k] = 0.5 * scratch[kinship.ancestor_of[k]];
  std::fill(scratch.values.begin(), scratch.values.end(), 0.0);
}

std::vector<double> kinship_columns(const CandidateKinship& kinship, std::span<const std::int32_t> places) {
  std::vector<double> columns(places.size() * kinship.candidates());
  ByNumber<KinshipLanes> lanes(kinship.ancestors(), KinshipLanes{});
  for (std::size_t first = 0; first < places.size(); first += kinship_lanes) {
    const auto batch = places.subspan(first, std::min(kinship_lanes, places.size() - first));
    fill_lanes(kinship, batch, lanes);
    for (std::size_t k = 0; k < kinship.candidates(); ++k) {
      const KinshipLanes& own = lanes[kinship.ancestor_of[k]];
      for (std::size_t lane = 0; lane < batch.size(); ++lane) {
        columns[(first + lane) * kinship.candidates() + k] = own.each[lane];
      }
    }
  }
  return columns;
}

std::vector<double> kinship_table(const CandidateKinship& kinship, std::span<const std::int32_t> rows,
                                  std::span<const std::int32_t> columns) {
  std::vector<double> table(rows.size() * columns.size());
  ByNumber<KinshipLanes> lanes(kinship.ancestors(), KinshipLanes{});
  for (std::size_t first = 0; first < columns.size(); first += kinship_lanes) {
    const auto batch = columns.subspan(first, std::min(kinship_lanes, columns.size() - first));
    fill_lanes(kinship, batch, lanes);
    for (std::size_t r = 0; r < rows.size(); ++r) {
      const KinshipLanes& own = lanes[kinship.ancestor_of[static_cast<std::size_t>(rows[r])]];
      for (std::size_t lane = 0; lane < batch.size(); ++lane) table[r * columns.size() + first + lane] = own.each[lane];
    }
  }
  return table;
}

}  // namespace pedigreewatch
