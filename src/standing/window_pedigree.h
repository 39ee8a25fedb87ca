// The pedigree of some animals back to a year: what was bred from that year on. Those born before it are its founders.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/by_number.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// The year of birth of each animal by position. Of a parent whose year is not known it is that of its first offspring
/// less the generation interval; 0 where that is not known either.
ByNumber<std::int32_t> years_of_birth(const PopulationStore& store, double generation_interval);

/// Animals, and how far back their ancestors are looked at.
struct PedigreeWindow {
  std::span<const std::int32_t> animals;  ///< positions, ascending
  std::int32_t first_year = 0;            ///< animals born before this year count as founders
};

/// The animals of a window and their ancestors in it, as a store of its own without texts: numbered from 1, parents
/// before their offspring, with F as it is within the window.
struct WindowPedigree {
  PopulationStore store;              ///< `sire_no`, `dam_no`, `is_parent` and `inbreeding` only
  std::vector<std::int32_t> members;  ///< numbers of the window's animals, ascending
  ByNumber<Flag> is_inside;           ///< by number: born in the window, so that an unknown parent is one not recorded
};

/// An import has no parents in it: its ancestors are those of another breed.
WindowPedigree make_window_pedigree(const PopulationStore& store, const ByNumber<std::int32_t>& birth_years,
                                    const PedigreeWindow& window);

}  // namespace pedigreewatch
