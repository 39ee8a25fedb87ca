#include "standing/parents_in_use.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "core/shares.h"
#include "diversity/reference_pedigree.h"
#include "genetics/mean_kinship.h"

namespace pedigreewatch {
namespace {

std::vector<std::int32_t> positions_of(const ParentsInUse& use) {
  std::vector<std::int32_t> positions;
  for (const ParentShare& parent : use.parents) positions.push_back(parent.parent);
  std::sort(positions.begin(), positions.end());
  return positions;
}

/// By number: the share of each parent.
ByNumber<double> weights_of(const ParentsInUse& use, const ReferencePedigree& pedigree) {
  std::unordered_map<std::int32_t, double> shares;
  for (const ParentShare& parent : use.parents) shares[parent.parent] = parent.share;
  ByNumber<double> weights(pedigree.count());
  for (const std::int32_t member : pedigree.members) {
    const auto found = shares.find(pedigree.position[member]);
    if (found != shares.end()) weights[member] = found->second;
  }
  return weights;
}

}  // namespace

ParentsInUse parents_in_use(const ByNumber<std::int32_t>& parent_of, std::span<const std::int32_t> young) {
  std::vector<std::int32_t> all;
  for (const std::int32_t position : young) {
    if (parent_of[position] > 0) all.push_back(parent_of[position]);
  }
  std::sort(all.begin(), all.end());
  ParentsInUse use;
  double squares = 0.0;
  for (std::size_t first = 0; first < all.size();) {
    const std::size_t end =
        static_cast<std::size_t>(std::upper_bound(all.begin(), all.end(), all[first]) - all.begin());
    const double share = share_of(end - first, all.size());
    use.parents.push_back({all[first], static_cast<std::int64_t>(end - first), share});
    squares += share * share;
    first = end;
  }
  std::stable_sort(use.parents.begin(), use.parents.end(),
                   [](const ParentShare& a, const ParentShare& b) { return a.young > b.young; });
  if (squares > 0.0) use.effective = 1.0 / squares;
  constexpr std::size_t popular = 4;
  for (std::size_t i = 0; i < std::min(popular, use.parents.size()); ++i) use.share_of_four += use.parents[i].share;
  return use;
}

double effective_number_held(const ParentsInUse& use, double most_share) {
  if (most_share * static_cast<double>(use.parents.size()) <= 1.0) return static_cast<double>(use.parents.size());
  double scale = 1.0;  // of those below the bound
  const auto held = [&](const ParentShare& parent) { return std::min(most_share, parent.share * scale); };
  // What those at the bound leave to the others may bring more of them to it, one at least in each round.
  for (std::size_t held_before = 0, held_now = 0;; held_before = std::exchange(held_now, 0)) {
    double bound = 0.0, free = 0.0;
    for (const ParentShare& parent : use.parents) {
      const bool is_held = parent.share * scale >= most_share;
      held_now += is_held ? 1U : 0U;
      (is_held ? bound : free) += held(parent);
    }
    if (held_now <= held_before || free <= 0.0) break;
    scale *= (1.0 - bound) / free;
  }
  double squares = 0.0;
  for (const ParentShare& parent : use.parents) squares += held(parent) * held(parent);
  return squares > 0.0 ? 1.0 / squares : 0.0;
}

double chance_inbreeding(const PopulationStore& store, const ParentsInUse& sires, const ParentsInUse& dams) {
  std::vector<std::int32_t> parents = positions_of(sires), females = positions_of(dams);
  if (parents.empty() || females.empty()) return 0.0;
  parents.insert(parents.end(), females.begin(), females.end());
  std::sort(parents.begin(), parents.end());
  parents.erase(std::unique(parents.begin(), parents.end()), parents.end());
  const ReferencePedigree pedigree = make_reference_pedigree(store, parents);
  const ByNumber<double> of_sires = weights_of(sires, pedigree);
  const ByNumber<double> totals =
      weighted_relationships(pedigree.sire, pedigree.dam, pedigree.own_variance,
                             gene_contributions(pedigree.sire, pedigree.dam, weights_of(dams, pedigree)));
  double sum = 0.0;
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) sum += of_sires[j] * totals[j];
  return 0.5 * sum;  // a kinship is half of a relationship
}

}  // namespace pedigreewatch
