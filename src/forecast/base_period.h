// The present practice: what is measured in the last generation interval, and what a forecast goes on with.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "forecast/careers.h"
#include "forecast/families.h"
#include "forecast/level.h"
#include "forecast/number_paths.h"

namespace pedigreewatch {

/// A forecast needs at least so many birth years to go by.
inline constexpr std::int32_t least_base_years = 3;
/// However long generations are, older years say little about the present practice.
inline constexpr std::int32_t most_base_years = 15;
/// Earlier years tell the practice too, period by period, as long as litters a year, sires a litter and animals born of
/// unknown parents were those of the base period but for this factor, or for so many standard errors of the difference
/// of two counts; up to so many periods in all.
inline constexpr double same_practice = 1.25, errors_of_counts = 2.0;
inline constexpr std::int32_t most_periods = 6;
/// Careers are taken from so many base periods at least, so that they are enough, and long enough.
inline constexpr std::int32_t periods_of_careers = 3;

/// What one base year has in one subpopulation.
struct GroupYear {
  std::int32_t with_both = 0, without_sire = 0, without_dam = 0;  ///< families of the young born in it
  std::int32_t founders = 0;                                      ///< animals born of unknown parents
  BySex<std::int32_t> in_use = {};                                ///< sires and dams of it that had families, anywhere
  BySex<std::int32_t> entered = {};                               ///< of these, for the first time
};

/// The part of the sires that is of a group; such parts add up to 1.
struct GroupShare {
  GroupNo group = 0;
  double share = 0.0;
};

/// Ages of parents at births, in years.
struct AgeSpan {
  std::int32_t youngest = 1, oldest = 1;
};

/// What may have gone up or down.
struct PracticeLevels {
  Level litters;               ///< a year, of the base years
  Level founders, half_known;  ///< young of no known parent, and of one, among all; of the years alike
};

/// Years whose practice is gone on with.
struct BasePeriod {
  std::int32_t first_year = 0, last_year = 0;
  double generation_interval = 0.0;           ///< years, mean of sires and dams in the base years; what sets the length
  std::int32_t first_alike = 0;               ///< from this year on the practice was the same
  std::vector<std::vector<GroupYear>> years;  ///< by year from then on, by group
  BySex<double> vacancies_filled;  ///< of the parents that are missing to the usual number, the part replaced at once
  PracticeLevels levels;
  std::vector<NumberPath> paths;  ///< how litters and sires may go on
  /// By descent of the dam: how often the sire of a litter is unknown, in the years alike.
  ByDescent<double> without_sire = {};
  std::vector<std::int32_t> sizes;                   ///< of families with a known dam
  ByDescent<double> male_share = {};                 ///< of the young, by their descent
  std::vector<std::vector<GroupShare>> sire_groups;  ///< by group of the young: where its sires are from
  BySex<std::vector<std::int32_t>> entries;          ///< careers that began since then, by number
  BySex<double> without_parents = {};          ///< of those that came into use, the part of which no parent is known
  BySex<std::optional<double>> said_outside;   ///< of which no parent is known, as somebody says it is
  BySex<std::vector<std::int32_t>> said_ages;  ///< by career: age at first use, as somebody says it is; empty: not said
  BySex<ByDescent<double>> chosen;             ///< by descent: how many of those born came into use
  BySex<CareerRecords> careers;
  BySex<AgeSpan> ages;               ///< that 5 and 95 in 100 of the births of the last ten years remain below
  BySex<std::int32_t> oldest_entry;  ///< age at which parents are first used at most

  std::int32_t length() const { return last_year - first_year + 1; }
  /// Where a year stands among those from the first alike on.
  std::size_t place_of(std::int32_t year) const { return static_cast<std::size_t>(year - first_alike); }
  /// The base years themselves.
  std::span<const std::vector<GroupYear>> base_years() const { return std::span(years).subspan(place_of(first_year)); }
  /// Age of one who comes into use like this career.
  std::int32_t first_age(Sex sex, std::int32_t career) const {
    const std::vector<std::int32_t>& said = said_ages.of(sex);
    return said.empty() ? careers.of(sex).at(career).first_age : said[static_cast<std::size_t>(career)];
  }
};

/// Measures the practice of the years up to `last_year`; `records` reach up to it. None with fewer than three birth
/// years, or without any family of which both parents are known.
std::optional<BasePeriod> measure_base_period(const FamilyRecords& records);

/// The mean age of those who came into use in the years alike, at their first litter.
double mean_first_age(const BasePeriod& base, Sex sex);

/// The mean age of the parents, sires and dams alike, at the births of these families. None where no age is known.
std::optional<double> mean_parent_age(const PopulationStore& store, std::span<const Family> families);

}  // namespace pedigreewatch
