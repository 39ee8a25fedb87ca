// The births of a herdbook as a forecast sees them: families, which are the animals that two parents have in one birth
// year, up to a last year behind which nothing is known.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/by_number.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// Where an animal's genes come from, as far as the herdbook knows.
enum class Descent : std::uint8_t {
  outside,  ///< no birth year and no parents: a parent that is known by name only
  founder,  ///< born in a year, of unknown parents: imports and first animals
  half_known,
  known,  ///< both parents, but not all grandparents
  deep,   ///< all grandparents: sires are taken from such young more often than from others
};
inline constexpr std::size_t descents = 5;
inline constexpr std::array<Descent, descents> all_descents = {Descent::outside, Descent::founder, Descent::half_known,
                                                               Descent::known, Descent::deep};

/// The number of a subpopulation, 0 for none: a place in lists by group.
using GroupNo = std::uint32_t;

/// Values by descent.
template <typename Value>
struct ByDescent {
  std::array<Value, descents> values = {};

  Value& operator[](Descent descent) { return values[static_cast<std::size_t>(descent)]; }
  const Value& operator[](Descent descent) const { return values[static_cast<std::size_t>(descent)]; }
};

/// Animals born in one year to the same two parents. Where the dam is unknown every animal is a family of its own.
/// Positions in the store; 0 for an unknown parent.
struct Family {
  std::int32_t year = 0, sire = 0, dam = 0;
  std::int32_t young = 0, males = 0;
  GroupNo group = 0;       ///< of the young; 0 in a population without subpopulations
  std::int32_t first = 0;  ///< one of the young

  /// By the parents alone; never `deep`.
  Descent descent() const {
    if (sire != 0 && dam != 0) return Descent::known;
    return sire != 0 || dam != 0 ? Descent::half_known : Descent::founder;
  }
};

/// Up to the last birth year of which anything is known.
struct FamilyRecords {
  const PopulationStore& store;
  std::int32_t first_year = 0, last_year = 0;
  GroupNo groups = 1;            ///< subpopulations and 0, or 0 alone
  bool are_sexes_known = true;   ///< otherwise half of the young count as males
  std::vector<Family> families;  ///< by year, within a year by dam and sire
  std::vector<std::size_t> end;  ///< by year from the first: where its families end
  ByNumber<GroupNo> group;       ///< by position: the subpopulation; of a parent known by name only, that of its young

  std::span<const Family> of_year(std::int32_t year) const;
};

/// The families born up to and including `last_year`. `years` are the animals of each year.
FamilyRecords list_families(const PopulationStore& store, const YearGroups& years, std::int32_t last_year);

Descent descent_of(const PopulationStore& store, std::int32_t position);

/// How many different animals there are among these.
std::int32_t count_different(std::vector<std::int32_t> animals);

}  // namespace pedigreewatch
