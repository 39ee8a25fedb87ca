// The rules of a scenario: what differs from the present practice.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pedigree/sex.h"

namespace pedigreewatch {

/// A number that is given outright, or as a change of the present one.
struct Amount {
  double factor = 1.0, plus = 0.0;

  bool is_changed() const { return factor != 1.0 || plus != 0.0; }

  double of(double present) const { return present * factor + plus; }
};

/// Where sires come from, in a population with subpopulations.
enum class Exchange : std::uint8_t {
  present,
  open,      ///< from any subpopulation, as many as are born in it
  closed,    ///< from their own
  rotation,  ///< from the one before it in the steer file; the first one's come from the last
};

/// Figures of the practice that are said in place of what was measured.
struct SaidFigures {
  std::optional<double> litter_size;            ///< mean of the young of a litter
  std::optional<double> males;                  ///< share of the young
  std::optional<double> litters_without_sire;   ///< share of the litters of known dams
  std::optional<double> young_without_parents;  ///< share of the young: neither known
  std::optional<double> sires_of_others;        ///< share of the litters: the sire is of another subpopulation
  BySex<std::optional<double>> outside;         ///< share of those that come into use: no known parent
  BySex<std::optional<double>> first_age;       ///< mean at the first litter, years
  BySex<std::optional<double>> years_in_use;    ///< mean of those that come into use, from the first litter to the last
  std::optional<double> same_sire_in_year, same_sire_in_life;  ///< chances, as in UseEvenness
  std::optional<double> close_matings;  ///< share of those with known parents: sibs, half sibs, parent and offspring
};

/// A rule as it was written.
struct WrittenRule {
  std::string name, value;
  std::int64_t line = 0;  ///< of its file, counted from 1; 0: an option

  std::string text() const { return name + " = " + value; }
};

struct BreedingRules {
  std::string name;
  std::optional<std::int32_t> litters_a_year, litters_in_life;  ///< of a sire at most
  Amount sires, litters;                                        ///< in a year
  double trend = 0.0;                             ///< litters: change a year, as a fraction of the first year's
  std::optional<std::int32_t> offspring_matings;  ///< matings between an animal's offspring at most, in a year
  std::optional<double> most_f;                   ///< of the young of a mating
  std::optional<double> above_percent;  ///< parents come into use whose mean kinship is below that of so many per cent
  BySex<std::int32_t> least_age;        ///< at the first use, in years
  BySex<std::int32_t> imports;          ///< that come into use each year, beside those of the present practice
  bool has_one_litter = false;          ///< a dam has one litter in life
  bool has_plan = false;                ///< a plan chooses the matings of each year
  Exchange exchange = Exchange::present;
  double import_kinship = 0.0;  ///< of imports with each other
  SaidFigures said;             ///< of the present practice alone
  std::vector<WrittenRule> written;
};

/// The name of the scenario without rules.
inline constexpr std::string_view present_practice = "present";

}  // namespace pedigreewatch
