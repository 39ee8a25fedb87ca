// What stands in each column of an export, whatever its heading says: how many texts differ, how many are dates or
// sexes, and which ones there are, so that columns can be compared with each other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "intake/column_choice.h"
#include "intake/value_words.h"

namespace pedigreewatch {

/// The hashes of different texts: all of a small export, a fair sample of a large one.
using TextSet = std::unordered_set<std::uint32_t>;

/// The sample of so many bytes: the texts whose hashes have none of these bits. All of an export that has no more than
/// `compared`, of a larger one about so many bytes.
std::uint32_t mask_of_sample(std::size_t bytes, std::size_t compared);

struct ColumnProfile {
  TextSet texts;                        ///< but those that mean an unknown parent
  std::int64_t texts_read = 0;          ///< those of the sample, each as often as it stands there
  std::int64_t judged = 0;              ///< fields of the first records that are filled
  std::int64_t dates = 0;               ///< of these, full dates
  std::int64_t years = 0;               ///< of these, years alone
  std::int64_t males = 0, females = 0;  ///< of these, words for a sex
  std::int64_t with_digit = 0;          ///< of these, texts with a digit
  std::vector<std::string> examples;    ///< of these, the first three that differ
  TextSet dead;                         ///< of the texts those that mean a young animal born dead
  std::int64_t dead_read = 0;           ///< each as often as it stands there
};

/// Profiles of the first columns, a hundred at most.
std::vector<ColumnProfile> profile_columns(std::string_view text, char delimiter, const ColumnChoice& columns);

/// The texts, and how many were read, without those that mean a young animal born dead: what is left may be ids.
TextSet texts_of_living(const ColumnProfile& profile);
std::int64_t count_read_of_living(const ColumnProfile& profile);

/// How many texts of one set stand in another one.
std::int64_t count_common(const TextSet& texts, const TextSet& others);

/// How many of the fathers and mothers stand in a set.
std::int64_t count_parents(const TextSet& texts, std::span<const ColumnProfile> profiles, const ColumnChoice& columns);

inline std::int64_t size_of(const TextSet& texts) {
  return std::ssize(texts);
}

/// Of how many different animals that a column names the sex is known by a word.
struct NamedSexes {
  std::int64_t males = 0, females = 0;
};

/// The sex by the hash of the id, for the two columns of id and sex. Letters tell it where they are m and f alone.
std::unordered_map<std::uint32_t, SexMeaning> sexes_by_id(std::string_view text, char delimiter,
                                                          const ColumnChoice& columns, std::size_t id, std::size_t sex);
NamedSexes count_named_sexes(const TextSet& texts, const std::unordered_map<std::uint32_t, SexMeaning>& sexes);

}  // namespace pedigreewatch
