// One pass over all fields. The first records are judged text by text; of all records the hashes of texts are kept.

#include "intake/column_profiles.h"

#include <algorithm>

#include "core/text_index.h"
#include "intake/animal_lines.h"
#include "intake/date_shapes.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t most_profiled_columns = 100;
constexpr std::int64_t judged_records = 2000;

/// Larger exports are profiled by a sample, of about 16,000 lines.
constexpr std::size_t bytes_compared = std::size_t{1} << 22;

bool is_full_date(std::string_view text) {
  switch (cut_date(text).shape) {
    case DateShape::year_first:
    case DateShape::year_last:
    case DateShape::named:
    case DateShape::compact:
    case DateShape::month_only:
    case DateShape::short_year: return true;
    default: return false;
  }
}

/// A year in which an animal of a herdbook may be born.
bool is_year_alone(std::string_view text) {
  constexpr std::string_view first = "1800", last = "2199";
  return text.size() == first.size() && cut_date(text).shape == DateShape::year_only && text >= first && text <= last;
}

void judge(ColumnProfile& profile, std::string_view text) {
  if (text.empty() || means_unknown(text)) return;
  ++profile.judged;
  constexpr std::size_t most_examples = 3;
  const bool is_new = std::find(profile.examples.begin(), profile.examples.end(), text) == profile.examples.end();
  if (is_new && profile.examples.size() < most_examples) profile.examples.emplace_back(text);
  profile.dates += is_full_date(text) ? 1 : 0;
  profile.years += is_year_alone(text) ? 1 : 0;
  profile.with_digit += has_digit(text) ? 1 : 0;
  const SexMeaning sex = sex_named(text);
  profile.males += sex == SexMeaning::male ? 1 : 0;
  profile.females += sex == SexMeaning::female ? 1 : 0;
}

}  // namespace

std::uint32_t mask_of_sample(std::size_t bytes, std::size_t compared) {
  std::uint32_t mask = 0;
  for (; bytes > compared; bytes /= 2) mask = mask * 2 + 1;
  return mask;
}

std::vector<ColumnProfile> profile_columns(std::string_view text, char delimiter, const ColumnChoice& columns) {
  std::vector<ColumnProfile> profiles(std::min(columns.headings.size(), most_profiled_columns));
  const std::uint32_t mask = mask_of_sample(text.size(), bytes_compared);
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  for (std::int64_t count = 0; next_animal(reader, record, columns); ++count) {
    for (std::size_t k = 0; k < std::min(profiles.size(), record.fields.size()); ++k) {
      const std::string_view field = trimmed(record.fields[k]);
      if (count < judged_records) judge(profiles[k], field);
      const std::uint32_t hash = hash_of_text(field);
      if ((hash & mask) != 0 || means_unknown_parent(field)) continue;
      ++profiles[k].texts_read;
      profiles[k].texts.insert(hash);
      if (!means_stillborn(field)) continue;
      ++profiles[k].dead_read;
      profiles[k].dead.insert(hash);
    }
  }
  return profiles;
}

TextSet texts_of_living(const ColumnProfile& profile) {
  TextSet texts = profile.texts;
  for (const std::uint32_t hash : profile.dead) texts.erase(hash);
  return texts;
}

std::int64_t count_read_of_living(const ColumnProfile& profile) {
  return profile.texts_read - profile.dead_read;
}

std::int64_t count_common(const TextSet& texts, const TextSet& others) {
  return std::count_if(texts.begin(), texts.end(), [&](std::uint32_t hash) { return others.contains(hash); });
}

std::int64_t count_parents(const TextSet& texts, std::span<const ColumnProfile> profiles, const ColumnChoice& columns) {
  std::int64_t count = 0;
  for (const FieldCode code : {sire_column, dam_column}) {
    const auto& place = columns.place[code];
    if (place && *place < profiles.size()) count += count_common(profiles[*place].texts, texts);
  }
  return count;
}

std::unordered_map<std::uint32_t, SexMeaning> sexes_by_id(std::string_view text, char delimiter,
                                                          const ColumnChoice& columns, std::size_t id,
                                                          std::size_t sex) {
  std::unordered_map<std::uint32_t, SexMeaning> by_word, by_letter;
  bool has_other_letter = false;
  const std::uint32_t mask = mask_of_sample(text.size(), bytes_compared);
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  while (next_animal(reader, record, columns)) {
    if (std::max(id, sex) >= record.fields.size()) continue;
    const std::string_view word = trimmed(record.fields[sex]);
    const bool is_letter = is_sex_letter(word);
    has_other_letter = has_other_letter || (is_letter && std::string_view("mMfF").find(word) == std::string_view::npos);
    const std::uint32_t hash = hash_of_text(trimmed(record.fields[id]));
    if ((hash & mask) == 0) (is_letter ? by_letter : by_word)[hash] = sex_named(word);
  }
  // M beside V may be a mother.
  if (!has_other_letter) by_word.merge(by_letter);
  return by_word;
}

NamedSexes count_named_sexes(const TextSet& texts, const std::unordered_map<std::uint32_t, SexMeaning>& sexes) {
  NamedSexes counts;
  for (const std::uint32_t hash : texts) {
    const auto found = sexes.find(hash);
    if (found == sexes.end()) continue;
    counts.males += found->second == SexMeaning::male ? 1 : 0;
    counts.females += found->second == SexMeaning::female ? 1 : 0;
  }
  return counts;
}

}  // namespace pedigreewatch
