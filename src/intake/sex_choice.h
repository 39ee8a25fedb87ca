// What the texts of the sexes mean: what the user says, words that mean one sex everywhere, and, for letters, numbers
// and words that nobody knows, the parents: fathers are male, mothers are female.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "intake/export_survey.h"
#include "intake/prepare_options.h"
#include "intake/remark.h"
#include "intake/value_words.h"

namespace pedigreewatch {

/// So many parents of one sex, and hardly any of the other one, tell what a text means.
inline constexpr std::int64_t fewest_deciding_parents = 3;
/// "Hardly any" is one in so many.
inline constexpr std::int64_t deciding_majority = 10;
/// Sexes that nobody knows are asked for when more than one animal in so many has one.
inline constexpr std::int64_t tolerated_unknown_sexes = 50;

/// The sex that the parents tell; unknown where they are too few or contradict each other.
SexMeaning sex_of_parents(const SexVotes& votes);

/// Of how many parents of one role the sex is known by a word, and how many are of the wrong one.
struct ParentSexes {
  std::int64_t known = 0, wrong = 0;
};
ParentSexes count_parent_sexes(const ExportSurvey& survey, LinkRole role);

/// Whether so many are of the wrong sex that another column may hold these parents.
bool are_of_wrong_sex(const ParentSexes& parents);

/// What each text of the survey means, in their order. Adds a question where that is not clear.
std::vector<SexMeaning> choose_sexes(const ExportSurvey& survey, const PrepareOptions& options,
                                     std::vector<Question>& questions);

}  // namespace pedigreewatch
