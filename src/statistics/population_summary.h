// The figures from which a population model can be set up: litters, breeding animals, the most used sires, and the
// distributions of litter size and of the parents' ages.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

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
  /// Animals of the years that became parents, divided by the length and truncated; none when the length is 0.
  std::optional<std::int64_t> later_parents_per_year;
  float replacement_percent = 0.0F;  ///< of the breeding animals that are replaced each year
  float total = 0.0F;                ///< including those that do not breed yet
  float available = 0.0F;
};

/// The parents of one age in years, in percent of all sires or dams; not a number when no age of theirs is known.
struct AgeRow {
  std::int32_t age = 0;
  float sires = 0.0F, dams = 0.0F;  ///< above the age of the oldest sire both are 0, whatever the dams are
};

struct PopulationSummary {
  SummaryYears years;
  float litters_per_year = 0.0F;
  BySex<BreedingStock> stock;
  float share_of_four = 0.0F;  ///< of the four most used sires of each year, in percent; the mean over the years

  /// For each litter size its share of the litters in percent; 0 for a size that occurs no more often than the mean of
  /// all hundred sizes. Up to the largest size that does.
  NumberedList<float> litter_percentages;

  std::vector<AgeRow> ages;  ///< up to the highest age that more than a hundredth of the sires or of the dams have
};

PopulationSummary summarise_population(const BirthYears& years, const MonitorTables& tables,
                                       const YearRows<TopSireRow>& top_sires);

}  // namespace pedigreewatch
