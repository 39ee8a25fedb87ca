// The ages, intervals and litters beyond which a date or a parent is doubted, for each species.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pedigreewatch {

/// Days and years are limits that are still believed.
struct CheckLimits {
  std::int32_t youngest_parent_days = 0;  ///< a younger parent falsifies figures
  std::int32_t young_parent_days = 0;     ///< a younger one is worth a look
  std::int32_t oldest_dam_years = 0, oldest_sire_years = 0;
  std::int32_t births_apart_days = 0;       ///< births of a dam closer than this falsify figures; 0: any are believed
  std::int32_t births_apart_look_days = 0;  ///< closer than this: worth a look
  std::int32_t largest_litter = 0;          ///< 0: any is believed
};

/// The limits of row `species_index` of the species, 1 to 16: Dutch words, then English ones in the same order. Puberty
/// from the Merck veterinary manual, gestations from published ranges, births apart of cattle as national dairy
/// databases edit them (273 days); poultry and "other" are judgement.
CheckLimits limits_of_species(std::int32_t species_index);

/// Changes `limits` by lines such as "oldest_dam_years = 12"; "#" begins a comment. Yields what is wrong, with the
/// line; empty: nothing.
std::string read_limits(std::string_view text, std::string_view file_name, CheckLimits& limits);

}  // namespace pedigreewatch
