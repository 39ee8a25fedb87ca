#include "diversity/coancestry_lanes.h"

#include <algorithm>

#include "core/memory_hints.h"
#include "core/processor_clones.h"

namespace pedigreewatch {

ByNumber<BlockLanes> make_lanes(const ReferencePedigree& pedigree) {
  ByNumber<BlockLanes> lanes;
  reserve_large(lanes.values, pedigree.position.values.size());
  lanes.values.resize(pedigree.position.values.size());
  return lanes;
}

PEDIGREEWATCH_PROCESSOR_CLONES
void relate_block(const ReferencePedigree& pedigree, std::span<const std::int32_t> block, std::int32_t last,
                  ByNumber<BlockLanes>& lanes) {
  std::fill_n(lanes.values.begin(), last + 1, BlockLanes{});
  std::size_t lane = 0;
  for (const std::int32_t number : block) lanes[number].each[lane++] = 1.0;
  for (std::int32_t j = block.back(); j > pedigree.unknown_parents; --j) {
    if (j > look_ahead) {
      fetch_early(&lanes[pedigree.sire[j - look_ahead]]);
      fetch_early(&lanes[pedigree.dam[j - look_ahead]]);
    }
    const BlockVector half = lanes[j].each * 0.5;
    lanes[pedigree.sire[j]].each += half;
    lanes[pedigree.dam[j]].each += half;
  }
  lanes[0] = BlockLanes{};
  for (std::int32_t j = pedigree.unknown_parents + 1; j <= last; ++j) {
    if (last - j >= look_ahead) {
      fetch_early(&lanes[pedigree.sire[j + look_ahead]]);
      fetch_early(&lanes[pedigree.dam[j + look_ahead]]);
    }
    const BlockVector of_parents = (lanes[pedigree.sire[j]].each + lanes[pedigree.dam[j]].each) * 0.5;
    lanes[j].each = of_parents + lanes[j].each * pedigree.own_variance[j];
  }
}

}  // namespace pedigreewatch
