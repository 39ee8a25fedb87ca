// Texts in the columns of parents that may stand for "unknown" although no word says so: parents without a line of
// their own that are father and mother both, or have young beyond what is usual, or are written unlike every id.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "intake/parent_links.h"
#include "intake/text_counts.h"
#include "intake/text_style.h"

namespace pedigreewatch {

struct ColumnChoice;

/// A parent without a line is doubtful from so many young on; in a large population, from the young of one animal in so
/// many on.
inline constexpr std::int64_t many_young = 12, many_young_share = 1000;
/// Where so many parents have no line it is usual to have none, as founders do: one that is written like all ids is
/// doubtful there from so many times that number of young on, and so many times those of any parent with a line.
inline constexpr std::int64_t usual_without_line = 5, times_usual_young = 2;

/// What the export has of animals, and of different parents without a line.
struct HerdNumbers {
  std::int64_t animals = 0, parents_without_line = 0;
};

/// The texts of parents with their young: all of a small export. Of a large one, behind the first hundred thousand
/// animals, those of every sixteenth animal, and all that look like no id.
struct ParentTexts {
  TextCounts sires, dams;
};

/// Counts a parent of the animal of this number.
void count_parent(ParentTexts& parents, std::string_view text, LinkRole role, std::int64_t animal,
                  const TextStyle& ids);

struct DoubtfulParent {
  std::string text;
  std::int64_t sired = 0, borne = 0;  ///< young as their father, as their mother
  std::int64_t young = 0;             ///< all: one of which it is both counts once
  bool looks_unknown = false;
};

/// Whether a text is no identification by its looks: a word where every id has a digit, a longer word than in any id,
/// or no digits but zeros or nines.
bool looks_like_unknown(std::string_view text, const TextStyle& ids);

/// Reads the ids again, if there is any doubt, and yields the parents without a line that may stand for "unknown",
/// those with most young first.
std::vector<DoubtfulParent> find_doubtful_parents(std::string_view text, char delimiter, const ColumnChoice& columns,
                                                  const ParentTexts& parents, const HerdNumbers& herd);

}  // namespace pedigreewatch
