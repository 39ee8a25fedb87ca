// Generates a population of animals over a number of birth years and writes it as a data file with its steer file.
//
// The births of a year are drawn one litter after another from parents born 1 to 8 years before, and each animal is
// written as soon as it is born. Kept are only the breeding animals of the last years, as numbers, and the few lines
// that stand further down: with 40 birth years less than a fiftieth of the size of the file. The same plan gives the
// same bytes on every system; two plans that differ in their texts only give the same animals in different words.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string_view>
#include <vector>

namespace pedigreewatch {

/// A subpopulation with the part of the litters that is born in it; the weights need no fixed sum.
struct SubpopulationShare {
  std::string_view name;
  std::int32_t weight = 1;
};

/// Where imported animals come from: what stands in the import column, and how identifications begin there.
struct ExportingCountry {
  std::string_view name;
  std::string_view id_prefix;
};

/// All that decides about a generated population. A share in permille is out of 1000.
struct PopulationPlan {
  std::uint64_t seed = 1;
  /// From this year on, counted from 0, another seed: plans that differ in it alone are the same herd up to there, and
  /// go on differently. Below 0: never.
  std::int32_t second_seed_year = -1;
  std::uint64_t second_seed = 0;
  std::int32_t animal_count = 1000;  ///< lines in the data file, its header not counted
  std::int32_t first_birth_year = 1980;
  std::int32_t birth_year_count = 40;
  std::int32_t growth_permille = 0;  ///< by how much the births of the last year exceed those of the first

  std::int32_t first_season_day = 1;  ///< births fall in this part of each year, counted in days from 1 to 365
  std::int32_t last_season_day = 365;
  std::int32_t season_jitter_days = 0;  ///< above 0 the births of a year stand only roughly in order of their dates

  std::vector<std::int32_t> litter_size_weights = {1};  ///< how often litters of 1, 2, 3 ... occur
  std::int32_t sire_permille = 35;                      ///< of the males born here
  std::int32_t outcross_permille = 80;                  ///< litters by a sire from another subpopulation
  std::int32_t import_permille = 30;                    ///< of the animals
  std::int32_t foreign_parent_permille = 300;           ///< parents of imports that are known, though without a line
  std::int32_t unlisted_parent_permille = 30;           ///< breeding animals that get no line of their own
  std::int32_t unknown_sire_permille = 0;               ///< of the litters
  std::int32_t unknown_dam_permille = 0;                ///< of the litters
  std::int32_t unknown_date_permille = 0;
  std::int32_t odd_colour_permille = 0;  ///< animals whose colour is taken from `odd_colours`
  std::int32_t late_line_permille = 20;  ///< lines that stand 1 to 4 years too far down the file

  std::vector<SubpopulationShare> subpopulations;
  std::vector<std::string_view> colours;      ///< also the colours of the steer file
  std::vector<std::string_view> odd_colours;  ///< written, but not in the steer file; may be empty texts
  std::vector<std::string_view> breeders;     ///< spread evenly over the subpopulations
  std::vector<ExportingCountry> countries;
  std::vector<std::string_view> unknown_parents;  ///< the ways in which an unknown parent is written
  std::vector<std::string_view> unknown_dates;

  std::string_view id_prefix;
  std::int32_t id_digits = 8;
  std::string_view female_letter = "f";  ///< males have the letter m

  std::string_view header;  ///< the words of the ten columns, in the order in which `write_data_file` writes them
  std::string_view population_name;
  std::string_view data_file_name;
  std::string_view date_layout = "dd-mm-yyyy";
  std::string_view species_word = "sheep";
  std::string_view language = "en";
};

/// Writes header and animals: id, name, sex, birth date, sire, dam, colour, breeder, subpopulation, import. Every list
/// of the plan must have an entry. False when the file could not be written.
[[nodiscard]] bool write_data_file(const PopulationPlan& plan, std::FILE* file);

/// Writes the steer file that belongs to the data file. False when it could not be written.
[[nodiscard]] bool write_steer_file(const PopulationPlan& plan, std::FILE* file);

}  // namespace pedigreewatch
