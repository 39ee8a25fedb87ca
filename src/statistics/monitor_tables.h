// The tables of the report that are counted year by year: once for the whole population, and once for each
// subpopulation. All have a row for each birth year.
#pragma once

#include "core/year_table.h"
#include "statistics/completeness.h"
#include "statistics/generation_interval.h"
#include "statistics/imports.h"
#include "statistics/litters.h"
#include "statistics/offspring.h"
#include "statistics/parent_ages.h"
#include "statistics/population_size.h"

namespace pedigreewatch {

struct MonitorTables {
  YearRows<ParentCounts> parent_counts;
  YearRows<ParentOffspring> parent_offspring;
  YearRows<ImportPairs> import_pairs;
  YearRows<LitterCounts> litters;
  ParentAgeClasses age_classes;
  YearRows<MeanParentAges> parent_ages;
  YearRows<CompletenessRow> completeness;
  YearTable<std::int32_t> colour_counts;  ///< a column for each colour that is counted, and one for all others
  YearTable<std::int32_t> top_breeders;   ///< two columns for each top breeder, animals and parents; two for the rest
};

}  // namespace pedigreewatch
