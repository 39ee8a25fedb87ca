// The offspring of one animal by mate and year.
#pragma once

#include <cstdint>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch {

/// An offspring, and how many offspring it has itself.
struct Young {
  std::int32_t position = 0;
  std::int32_t offspring = 0;
};

/// What an animal had with one mate in one year.
struct MateYear {
  std::int32_t mate = 0;  ///< position; 0: unknown
  std::int32_t year = 0;  ///< of birth; 0: unknown
  std::vector<Young> young;
};

struct OffspringList {
  std::vector<MateYear> years;  ///< mates in the order of their first offspring, an unknown one last; then by year
  std::int32_t young = 0, males = 0, mates = 0;  ///< an unknown mate is counted as none
  std::int32_t breeding = 0;                     ///< of the young, how many have offspring
  std::int32_t grandchildren = 0;                ///< offspring of the young, each counted once
};

/// Two passes over the store.
OffspringList list_offspring(const PopulationStore& store, std::int32_t position);

}  // namespace pedigreewatch
