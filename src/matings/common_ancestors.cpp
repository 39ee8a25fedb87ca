// The shares run down the pedigree from the youngest ancestor to the oldest. What two animals have in common is found
// by going through both lists side by side.

#include "matings/common_ancestors.h"

#include <algorithm>
#include <queue>

namespace pedigreewatch {
namespace {

/// Of two shares the one of the younger ancestor is taken first.
struct IsOlder {
  bool operator()(const AncestorShare& a, const AncestorShare& b) const { return a.ancestor < b.ancestor; }
};

/// Puts an ancestor where it belongs among the largest ones; those met before it are younger.
void take_in(KinshipParts& parts, const CommonAncestor& ancestor) {
  auto* const end = parts.largest.data() + parts.largest.size();
  auto* const place = std::find_if(parts.largest.data(), end, [&](const CommonAncestor& other) {
    return other.contribution < ancestor.contribution;
  });
  if (place == end) return;
  std::move_backward(place, end - 1, end);
  *place = ancestor;
}

}  // namespace

std::vector<AncestorShare> list_ancestor_shares(const MatingWork& work, std::int32_t position) {
  std::priority_queue<AncestorShare, std::vector<AncestorShare>, IsOlder> waiting;
  waiting.push({work.ancestors.number_of_animal[position], 1.0});
  std::vector<AncestorShare> list;
  while (!waiting.empty() && waiting.top().ancestor > 0) {
    AncestorShare own = waiting.top();
    waiting.pop();
    for (; !waiting.empty() && waiting.top().ancestor == own.ancestor; waiting.pop()) own.share += waiting.top().share;
    list.push_back(own);
    waiting.push({work.ancestors.sire[own.ancestor], 0.5 * own.share});
    waiting.push({work.ancestors.dam[own.ancestor], 0.5 * own.share});
  }
  return list;
}

KinshipParts kinship_parts(const MatingWork& work, std::span<const AncestorShare> one,
                           std::span<const AncestorShare> other) {
  KinshipParts parts;
  std::size_t k = 0, m = 0;
  while (k < one.size() && m < other.size()) {
    const std::int32_t ancestor = one[k].ancestor;
    if (ancestor != other[m].ancestor) {
      ++(ancestor > other[m].ancestor ? k : m);
      continue;
    }
    const double part = 0.5 * one[k++].share * other[m++].share * work.within_family_variance[ancestor];
    parts.kinship += part;
    if (part > parts.largest.back().contribution) take_in(parts, {work.ancestors.position[ancestor], part});
  }
  return parts;
}

}  // namespace pedigreewatch
