// How parents have been used so far: who, how much, and at which ages. A plan is held against it, and begins where it
// ends.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch {

/// The last birth year counts as full when it has at least this part of the births that the three years before it have
/// in the mean.
inline constexpr double part_of_full_year = 0.5;

/// The last birth year of which the births are all there, or the year before it; none without birth years.
std::optional<std::int32_t> last_full_year(const PopulationStore& store);

/// Mothers with young in a year: its litters, as the report counts them.
/// `subpopulation` is a name as it is shown; without one young of all are counted.
std::int64_t litters_of_year(const PopulationStore& store, std::int32_t year,
                             const std::optional<std::string>& subpopulation = {});

/// Ages of the parents of which 5 and 95 in 100 births remain below, by nearest rank.
struct BreedingAges {
  std::int32_t youngest = 0, oldest = 0;  ///< in years: the birth year of the young minus that of the parent
  std::int64_t births = 0;
};
inline constexpr std::int64_t youngest_in_100 = 5, oldest_in_100 = 95;
inline constexpr std::int32_t years_of_ages = 10;

/// Of the sires, or of the dams, of animals born in the last ten birth years; none without any age above 0.
std::optional<BreedingAges> breeding_ages(const PopulationStore& store, Sex parent);

/// By position: whether the animal is no older than breeding animals of its sex are (`oldest`). Of one without a birth
/// year that cannot be told: it counts as older. Where no ages of parents of a sex are known all of
/// it are taken as no older.
ByNumber<Flag> of_breeding_age_or_younger(const PopulationStore& store);

/// The age of an animal in the year behind the last birth year, in which planned young are born; none without a birth
/// year.
std::optional<std::int32_t> age_at_planned_births(const PopulationStore& store, std::int32_t position);

/// Parents of the animals born in some years of which both parents are known.
struct ParentsUsed {
  std::int32_t first_year = 0, last_year = 0;
  std::int64_t offspring = 0;
  std::vector<std::int32_t> positions;  ///< sires, then dams; an animal that was both stands twice
  std::vector<Sex> sex;                 ///< as what it was used
  std::vector<double> shares;           ///< in the offspring; those of the sires add up to 1/2, those of the dams too
  double mean_f = 0.0;                  ///< of the offspring
};

/// With a subpopulation: of the animals of it, whatever subpopulation the parents are of.
ParentsUsed parents_used(const PopulationStore& store, std::int32_t first_year, std::int32_t last_year,
                         const std::optional<std::string>& subpopulation = {});

/// By how much the mean kinship of those born in a year rises, as a part of the diversity that is left: the slope of
/// -ln(1 - kinship) over the last ten full years, and the standard error of that slope.
struct YearlyLoss {
  double rate = 0.0, error = 0.0;

  /// Whether it is so much more than its error that years can be counted by it: on a third.
  bool is_clear() const;
};
inline constexpr double least_errors_of_loss = 3.0;
/// A smaller loss, a hundredth of a per mille a year, is none to count by.
inline constexpr double least_loss = 1e-5;

/// None with fewer than five such years: a slope through fewer has hardly an error to go by.
std::optional<YearlyLoss> yearly_loss(const PopulationStore& store, std::int32_t last_year,
                                      const std::optional<std::string>& subpopulation = {});

}  // namespace pedigreewatch
