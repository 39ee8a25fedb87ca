// The animals that the figures of diversity are about.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "pedigree/listed_id.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

enum class ReferenceChoice : std::uint8_t {
  youngest,  ///< born in the last ten birth years, both parents known
  years,     ///< all animals born in given years, founders too
  listed,    ///< named by their identifications
};

struct ReferencePopulation {
  ReferenceChoice choice = ReferenceChoice::youngest;
  std::int32_t first_year = 0, last_year = 0;  ///< of the choice by years, and of the youngest; 0 when there are none
  std::vector<std::int32_t> positions;         ///< in the store, ascending, each once
  std::int64_t born = 0;                       ///< animals born in these years, those left out too; 0 for a list
};

/// The animals born after the last birth year - 10 whose parents are both known; none without birth years.
ReferencePopulation youngest_animals(const PopulationStore& store);

/// All animals born from `first_year` to `last_year`.
ReferencePopulation animals_born(const PopulationStore& store, std::int32_t first_year, std::int32_t last_year);

/// The animals with these identifications, blanks around them left out; a byte order mark and blank ones are read over,
/// and an animal that is listed twice is taken once. The list may be in UTF-8 or Windows-1252, whatever the data file
/// is in. Identifications that no animal has are added to `unknown`, as they stand.
ReferencePopulation listed_animals(const PopulationStore& store, std::span<const ListedId> ids,
                                   std::vector<ListedId>& unknown);

}  // namespace pedigreewatch
