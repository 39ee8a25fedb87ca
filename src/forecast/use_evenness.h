// How unevenly sires are used, within a year and over the years: what drives kinship.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "forecast/families.h"

namespace pedigreewatch {

/// Litters so many years apart, and less, are compared.
inline constexpr std::size_t most_years_apart = 3;

/// The chance that two litters that a subpopulation's sires have are of the same sire.
struct UseEvenness {
  double in_year = 0.0;  ///< litters of one year
  double in_life = 0.0;  ///< one to `most_years_apart` years apart; 0 where no sire has any
};

/// Litters by sire, of one group and year.
using SireLitters = std::unordered_map<std::int32_t, double>;
/// By year, then by group.
using UseYears = std::vector<std::vector<SireLitters>>;

/// Whole numbers of pairs of litters, so that sums do not hang on the order of the sires.
struct LitterPairs {
  double same = 0.0, weight = 0.0;
};

struct EvennessSums {
  LitterPairs in_year, in_life;

  void add(const UseYears& years);
  /// None without a sire that has two litters in a year.
  std::optional<UseEvenness> mean() const;
};

/// Of the litters of these years.
std::optional<UseEvenness> measure_evenness(const FamilyRecords& records, std::int32_t first_year,
                                            std::int32_t last_year);

}  // namespace pedigreewatch
