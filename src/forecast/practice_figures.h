// The figures of the present practice that are shown before they are gone on with.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/birth_years.h"
#include "forecast/base_period.h"
#include "forecast/use_evenness.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// Figures that the summary of the report has too, for years of one's own: counted by the report's rules from its
/// tables.
struct CountedPractice {
  float litters_a_year = 0.0F;
  std::vector<float> litter_sizes;  ///< by size, from 1: shares of the litters
  BySex<std::vector<float>> ages;   ///< of sires and dams by age class in years, from 1: shares of the births
};

CountedPractice count_practice(const MonitorTables& tables, const BirthYears& years, std::int32_t first_year,
                               std::int32_t last_year);

/// With fewer birth years, only short careers can have begun and ended; and it is not known how numbers change.
inline constexpr std::int32_t least_birth_years = 20;
/// The mean life of fewer sires says little.
inline constexpr std::int32_t least_ended_careers = 20;
/// Where generations are long, careers are too: the birth years of so many generation intervals are needed.
inline constexpr double generations_of_lives = 5.0;

/// Figures that only a forecast needs; of families, which are the young of two parents in a year.
struct FamilyPractice {
  double sires_a_year = 0.0, dams_a_year = 0.0;
  double litters_per_sire = 0.0;   ///< a year
  double top_sire = 0.0;           ///< share of the year's families that its most used sire has, mean of the years
  double years_in_use = 0.0;       ///< of sires whose use began in these years or before and is over
  double families_in_life = 0.0;   ///< of the same sires
  std::int32_t ended_careers = 0;  ///< the number of these sires
  double dam_years_in_use = 0.0;   ///< likewise of dams
  std::int32_t ended_dams = 0;
  std::int32_t birth_years = 0;                    ///< in which the sire of some young is known
  double half_known = 0.0;                         ///< of the young: one parent known
  double founders = 0.0;                           ///< of the young: none known
  double no_sire_of_known = 0.0;                   ///< of the litters of dams with known parents: sire unknown
  double no_sire_of_others = 0.0;                  ///< of the litters of other dams
  std::optional<UseEvenness> evenness;             ///< of the years alike
  double outside_sires = 0.0, outside_dams = 0.0;  ///< of those that came into use: no known parent
  double close_matings = 0.0;   ///< of families with known parents: sibs, half sibs, parent and offspring
  double between_groups = 0.0;  ///< of families with a known sire: he is of another subpopulation
};

FamilyPractice measure_practice(const FamilyRecords& records, const BasePeriod& base);

/// Birth years that are needed to tell how long sires stay in use, with generations of so many years.
std::int32_t birth_years_for_lives(double generation_interval);

/// Whether the mean life of the sires whose use is over is that of sires, and not of the first that were given up.
bool are_lives_known(const FamilyPractice& families, double generation_interval);

}  // namespace pedigreewatch
