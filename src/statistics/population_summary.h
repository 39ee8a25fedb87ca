// The figures from which a population model can be set up: litters, breeding animals, the most used sires, and the
// distributions of litter size and of the parents' ages.
#pragma once

#include <cstdint>

#include "core/birth_years.h"
#include "core/by_number.h"
#include "core/year_table.h"
#include "genetics/top_sires.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// The years on which the summary rests, as rows: up to six before the last one, which is taken to be incomplete.
/// Without any birth year the year count is negative, and these numbers wrap around with it.
struct SummaryYears {
  std::int32_t first = 1;
  std::int32_t last = 0;
  std::int32_t last_parents = 1;  ///< the parents' counts stop here, and are divided by the same length
  std::int32_t length = 0;        ///< 0 when there is one year only
};

/// How many animals of one sex can be used for breeding in a year. Nothing is guarded: without known ages all reals are
/// not a number.
struct BreedingStock {
  std::int64_t later_parents = 0;  ///< animals of the years that became parents
  float replacement = 0.0F;        ///< share of the breeding animals that is replaced each year, 0 to 1
  float total = 0.0F;              ///< including those that do not breed yet
  float available = 0.0F;
};

struct PopulationSummary {
  SummaryYears years;
  float litters_per_year = 0.0F;
  BySex<BreedingStock> stock;
  float share_of_four = 0.0F;  ///< of the four most used sires of each year, in percent; the mean over the years

  /// For each litter size its share of the litters; 0 for a size that occurs no more often than the mean of all hundred
  /// sizes. Up to the largest size that does.
  NumberedList<float> litter_fractions;

  /// For each age in years the share of the parents of that age; not a number when no age is known.
  BySex<NumberedList<float>> age_fractions;
};

PopulationSummary summarise_population(const BirthYears& years, const MonitorTables& tables,
                                       const YearRows<TopSireRow>& top_sires);

}  // namespace pedigreewatch
