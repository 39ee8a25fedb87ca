// Herds of discrete generations: every year all parents are replaced by young of the year before, chosen at random.
#pragma once

#include <cstdint>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch::test {

struct IdealHerd {
  std::int32_t sires = 8, dams = 24, litter = 4;
  bool has_top_sire = false;  ///< one sire has half of the litters, the others share the rest
  std::int32_t years = 10;    ///< with births, the founders' year included

  /// The rate of inbreeding a generation in the long run. Two young have the same sire, or dam, as often as their
  /// numbers say: with large litters that is 1 / 8M + 1 / 8F for equal use (Wright, 1931).
  double rate() const;
  /// Litters of each sire; they add up to the dams.
  std::vector<std::int32_t> litters_of_sires() const;
};

/// As a run leaves a store, with F of every animal. Born from 1990 on.
PopulationStore make_ideal_herd(const IdealHerd& herd, std::uint64_t seed);

/// Mean F in each further year of such a herd that goes on from its parents of the last year, by the plainest means: a
/// table of all kinships of a generation, and young drawn from all of them.
std::vector<double> simulate_plainly(const IdealHerd& herd, const PopulationStore& store, std::int32_t years,
                                     std::uint64_t seed);

}  // namespace pedigreewatch::test
