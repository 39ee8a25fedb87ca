// Herds in which everything is right, and faults that are put into them, each with what is right in its place: how many
// of them a check finds, and what it proposes.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/check_runs.h"
#include "support/foreign_population.h"

namespace pedigreewatch::test {

/// How identifications are written, one way an office.
enum class HerdIds { numbers, zeros, prefix, hyphens, blanks, slashes, tags, check_digit, mixed, own, count };
std::string_view name_of(HerdIds ids);

/// What kind of herd: litters of a kennel, twins of a flock, single calves of sires that are used by many.
enum class HerdKind { kennel, flock, cattle, count };

struct HerdAnimal {
  std::string id, sire, dam, date, name, colour;  ///< date as dd-mm-yyyy
  bool is_male = false, has_sex = true;
};
using Herd = std::vector<HerdAnimal>;

/// About `count` animals, parents before their young.
Herd make_herd(Dice& dice, HerdKind kind, HerdIds ids, int count);

/// A pedigree of the form id,sire,dam,sex,birthdate with dates yyyy-mm-dd or yyyy; with other identifications unless
/// they are to be its own. Empty when the file cannot be read.
Herd read_herd(const std::string& name, HerdIds ids);

/// The data file of a herd.
std::string data_file_of(const Herd& herd);

/// What is done to one mention of a parent.
enum class Typo {
  other_letter,
  lacking,
  too_many,
  exchange,
  two_letters,  // of a hand
  all_o,
  no_prefix,
  no_check_digit,
  other_sign,
  no_zeros,
  small_letters,  // of an office or a program
  count
};
std::string_view name_of(Typo typo);

struct PlantedTypo {
  Typo typo = Typo::count;
  std::string written, meant;
};

/// Puts `count` typos of all kinds that its identifications allow into the herd; none makes the identification of
/// another animal.
std::vector<PlantedTypo> plant_typos(Dice& dice, Herd& herd, int count);

/// What became of the typos of each kind.
struct TypoScore {
  std::array<int, static_cast<std::size_t>(Typo::count)> planted = {}, right = {}, wrong = {};
  int of(const std::array<int, static_cast<std::size_t>(Typo::count)>& counts) const;
  void add(const TypoScore& other);
};

/// Checks the herd with the limits of a species and compares the proposals.
TypoScore score_typos(const Herd& herd, const std::vector<PlantedTypo>& typos, const std::string& species);

/// The findings of a sound herd that stop the run or falsify figures.
std::vector<std::string> alarms_of(const Herd& herd, const std::string& species);

/// Whether each of the faults that are put into a herd of litters is named with its line: the name of the fault, and
/// whether it was.
struct NamedFault {
  std::string fault;
  bool is_named = false;
};
std::vector<NamedFault> plant_and_name_faults(std::uint32_t seed);

std::string species_of(HerdKind kind);

}  // namespace pedigreewatch::test
