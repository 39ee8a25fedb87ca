// Litters of each birth year. A litter is all animals of one mother born in one year.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/by_number.h"
#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"
#include "statistics/population_size.h"

namespace pedigreewatch {

inline constexpr std::int32_t largest_litter = 100;  ///< larger ones count as this

/// The litters of one year.
struct LitterCounts {
  std::int32_t litters = 0, fathers = 0;
  std::array<std::int32_t, largest_litter> sizes = {};

  std::int32_t& of_size(std::int32_t size) { return sizes[static_cast<std::size_t>(size) - 1]; }
  std::int32_t of_size(std::int32_t size) const { return sizes[static_cast<std::size_t>(size) - 1]; }
};

/// Working lists over all positions, kept between years so that a year costs no more than its own animals.
/// All entries are 0 between two calls.
struct LitterScratch {
  ByNumber<std::int32_t> litter_size;  ///< by position of the mother
  ByNumber<char> is_seen;              ///< by position of the father

  explicit LitterScratch(const PopulationStore& store) : litter_size(store.size()), is_seen(store.size()) {}
};

/// Counts the litters of one year. The father of the first animal is never counted, and counts as seen for the others.
LitterCounts litter_statistics(const PopulationStore& store, YearAnimals animals, LitterScratch& scratch);

/// What the report shows of the litters of one year, or of all.
struct LitterMeans {
  std::int64_t litters = 0;
  float young_per_litter = 0.0F;
  std::int64_t fathers = 0;
  float litters_per_father = 0.0F, young_per_father = 0.0F;
};

/// The means of each year; 0 where there is nothing to divide by.
YearRows<LitterMeans> means_of_years(const YearRows<LitterCounts>& litters);

/// The means of all years. Young and fathers are not those of the litters but come from the population size: the young
/// are the animals that did not become parents. Nothing guards the divisions.
LitterMeans means_of_all_litters(const YearRows<LitterCounts>& litters, const ReportTotals& totals);

/// How many litters of each size there were in each year, up to the largest size that occurs: no column without any.
YearTable<std::int32_t> litter_sizes_of(const YearRows<LitterCounts>& litters);

}  // namespace pedigreewatch
