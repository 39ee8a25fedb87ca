// The tables of the report that are counted year by year: once for the whole population, and once for each
// subpopulation. All have a row for each birth year; their columns are named below.
#pragma once

#include <cstdint>

#include "core/year_table.h"

namespace pedigreewatch {

/// Animals and parents by sex, grouped by their own year of birth.
enum ParentCountColumn {
  native_males = 1,    ///< males that are no import
  native_sires = 2,    ///< of these the ones with native offspring
  imported_sires = 3,  ///< imported males with native offspring
  native_females = 4,
  native_dams = 5,
  imported_dams = 6,
  parent_count_columns = 6,
};

/// Native offspring of the sires and dams born in the year, imports included.
enum ParentOffspringColumn {
  sire_mean = 1,
  sire_deviation = 2,  ///< standard deviation
  sire_maximum = 3,
  dam_mean = 4,
  dam_deviation = 5,
  dam_maximum = 6,
  parent_offspring_columns = 6,
};

/// Native animals with two known parents, by the parents' origin.
enum ImportPairColumn {
  both_native = 1,
  sire_imported = 2,
  dam_imported = 3,
  both_imported = 4,
  import_pair_columns = 4,
};

/// A litter is all animals of one mother born in one year.
enum LitterColumn {
  litter_count = 1,
  father_count = 2,
  before_litter_sizes = 2,  ///< the litters of size s stand in column 2 + s
  largest_litter = 100,     ///< larger ones count as this
  litter_columns = 102,
};

inline constexpr std::int32_t completeness_columns = 5;  ///< 1, 2, 3, 4 and at least 5 complete generations

struct MonitorTables {
  YearTable<float> equivalent_generations;      ///< 1 column: mean generation equivalents
  YearTable<float> complete_generation_shares;  ///< 5 columns, shares from 0 to 1
  YearTable<std::int32_t> sire_age_classes;     ///< column c: fathers aged 365c + 1 to 365(c + 1) days
  YearTable<std::int32_t> dam_age_classes;
  YearTable<std::int32_t> parent_counts;
  YearTable<float> parent_offspring;
  YearTable<std::int32_t> import_pairs;
  YearTable<std::int32_t> litters;
  YearTable<float> mean_sire_age;  ///< 1 column: days during the pass, years after it
  YearTable<float> mean_dam_age;
  YearTable<std::int32_t> colour_counts;  ///< a column for each of the steer file's colour rows
  YearTable<std::int32_t> top_breeders;   ///< two columns for each top breeder, animals and parents; two for the rest
};

/// The ages of the oldest parents in whole years: the columns of the age-class tables.
struct OldestParents {
  std::int32_t sire = 0, dam = 0;
};

/// Mean age of the parents over all births, in years; not a number when no age is known.
struct OverallParentAges {
  float sire = 0.0F, dam = 0.0F;
};

/// Positions of the male and the female with the most native offspring.
struct BusiestParents {
  std::int32_t sire = 0, dam = 0;
};

/// Empty tables for the years and columns given.
MonitorTables make_monitor_tables(const BirthYears& years, const OldestParents& oldest, std::int32_t colour_count,
                                  std::int32_t top_breeder_count);

}  // namespace pedigreewatch
