// One pass from the oldest to the youngest. In five generations, the parents' line has 1, 2, 4, 8 and 16 places; how
// many of them are known is counted in whole numbers.

#include "diversity/completeness.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "core/shares.h"

namespace pedigreewatch {
namespace {

/// Generations of a parent's line, the parent's own included.
constexpr std::size_t line_generations = 5;

struct Depth {
  std::int32_t maximum = 0, complete = 0;
  double equivalents = 0.0;
  /// Known animals in each generation of the line that begins with this animal: 1 for itself, then at most 2, 4, 8, 16.
  std::array<std::uint8_t, line_generations> known = {};
};

/// `sire` and `dam` are those of an animal with a known parent; an unknown one has nothing but zeros.
Depth depth_of_offspring(const Depth& sire, const Depth& dam) {
  Depth depth;
  const int sire_known = sire.known[0], dam_known = dam.known[0];
  depth.maximum = std::max(sire.maximum, dam.maximum) + 1;
  depth.complete = sire_known + dam_known == 2 ? std::min(sire.complete, dam.complete) + 1 : 0;
  depth.equivalents = 0.5 * (sire_known + sire.equivalents + dam_known + dam.equivalents);
  depth.known[0] = 1;
  for (std::size_t g = 1; g < line_generations; ++g) {
    depth.known[g] = static_cast<std::uint8_t>(sire.known[g - 1] + dam.known[g - 1]);
  }
  return depth;
}

ByNumber<Depth> depths_of(const ReferencePedigree& pedigree) {
  ByNumber<Depth> depths(pedigree.count());
  for (std::int32_t j = pedigree.unknown_parents + 1; j <= pedigree.count(); ++j) {
    if (pedigree.is_founder(j)) {
      depths[j].known[0] = 1;
    } else {
      depths[j] = depth_of_offspring(depths[pedigree.sire[j]], depths[pedigree.dam[j]]);
    }
  }
  return depths;
}

/// The mean of the known shares of a parent's line.
double line_completeness(const Depth& parent) {
  double sum = 0.0, places = 1.0;
  for (const std::uint8_t known : parent.known) {
    sum += known / places;
    places *= 2.0;
  }
  return mean_over(sum, line_generations);
}

double completeness_index(const Depth& sire, const Depth& dam) {
  const double of_sire = line_completeness(sire), of_dam = line_completeness(dam);
  const double product = of_sire * of_dam;
  return product > 0.0 ? 2.0 * product / (of_sire + of_dam) : 0.0;
}

}  // namespace

PedigreeDepth describe_depth(const ReferencePedigree& pedigree) {
  PedigreeDepth result;
  if (pedigree.members.empty()) return result;
  const ByNumber<Depth> depths = depths_of(pedigree);
  double maximum = 0.0, complete = 0.0, equivalents = 0.0, index = 0.0;
  for (const std::int32_t member : pedigree.members) {
    const Depth& depth = depths[member];
    maximum += depth.maximum;
    complete += depth.complete;
    equivalents += depth.equivalents;
    index += completeness_index(depths[pedigree.sire[member]], depths[pedigree.dam[member]]);
    result.equivalents_of.push_back(depth.equivalents);
  }
  const double animals = static_cast<double>(pedigree.members.size());
  result.maximum_generations = maximum / animals;
  result.complete_generations = complete / animals;
  result.equivalent_generations = equivalents / animals;
  result.completeness_index = index / animals;
  return result;
}

}  // namespace pedigreewatch
