// Who can be planned with: the animals of lists, of some birth years, or of the ages at which parents are used, less
// those that are left out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "pedigree/available_animals.h"
#include "planning/parent_use.h"

namespace pedigreewatch {

/// What is asked for.
struct CandidateRules {
  BySex<std::optional<std::vector<std::int32_t>>> listed;  ///< positions; none: by years or ages
  std::optional<std::int32_t> years;                       ///< born in so many last birth years; none: by ages
  AvailableAnimals available;                              ///< of whom those are who are in no list
  std::vector<std::int32_t> excluded;                      ///< positions
  std::optional<std::string> subpopulation;                ///< its name in UTF-8
  double least_generations = 0.0;                          ///< equivalent generations of known ancestors
  bool needs_known_parents = false;                        ///< both
};

/// Why an animal gets no matings.
enum class WhyNone : std::uint8_t {
  used,         ///< it gets some
  related,      ///< a candidate that is more related to all than those that are used
  small_share,  ///< its best share is less than a mating
  too_young,
  too_old,   ///< of the ages of parents
  excluded,  ///< by a list
  other_subpopulation,
  little_known,   ///< fewer generations of ancestors, or not both parents
  fixed_at_none,  ///< a candidate whose number of matings was said to be 0
  unknown_sex,    ///< neither its line nor young of it tell the sex
  low_value,      ///< a candidate that kinship alone would use, but not its breeding value
  left_by_whole,  ///< its best share is a mating or more, but other whole numbers are better
  gone,           ///< dead, sold, exported, castrated
};

struct LeftOut {
  std::int32_t position = 0;
  std::optional<Sex> sex;  ///< none: unknown
  WhyNone why = WhyNone::excluded;
};

enum class CandidateSource : std::uint8_t { list, years, ages };

/// The candidates of one sex, and where they come from.
struct SexCandidates {
  std::vector<std::int32_t> positions;
  CandidateSource source = CandidateSource::list;
  bool are_available = false;                  ///< somebody has told who is still there
  std::optional<BreedingAges> ages;            ///< by ages; none: no parent's age is known, and there is nobody
  std::int32_t first_year = 0, last_year = 0;  ///< by years
};

struct CandidatePool {
  BySex<SexCandidates> candidates;
  std::vector<LeftOut> left_out;   ///< in the order in which they were met
  std::int64_t unknown_sexes = 0;  ///< of those left out
  std::int64_t gone = 0;           ///< likewise
};

/// Animals of a list are of the sex that it is for. Others of unknown sex are left out where their age or birth year
/// would make them a candidate. Too old, or too young, are those only who were parents in the last ten years, or were
/// born in them.
CandidatePool gather_candidates(const PopulationStore& store, const CandidateRules& rules);

}  // namespace pedigreewatch
