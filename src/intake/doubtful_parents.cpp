// What was counted on the way names the candidates; a second reading leaves out those that are animals, and counts the
// young of the others exactly.

#include "intake/doubtful_parents.h"

#include <algorithm>
#include <unordered_map>

#include "intake/animal_lines.h"
#include "intake/value_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

constexpr std::int64_t counted_completely = 100000, counted_share = 16;

/// Whether a text has three digits at least, which are all this one.
bool has_no_digit_but(std::string_view text, char digit) {
  constexpr std::ptrdiff_t fewest_digits = 3;
  return std::count(text.begin(), text.end(), digit) >= fewest_digits &&
         std::none_of(text.begin(), text.end(), [&](char byte) { return is_digit(byte) && byte != digit; });
}

/// The length of the longest word, and whether there is a digit.
struct Looks {
  std::size_t longest_word = 0;
  bool has_digit = false;
};

Looks looks_of(std::string_view text) {
  Looks looks;
  std::size_t word = 0;
  for (const char byte : text) {
    const bool is_digit = byte >= '0' && byte <= '9';
    const bool is_letter = static_cast<unsigned char>(byte) >= 0x80 || ((byte | 0x20) >= 'a' && (byte | 0x20) <= 'z');
    looks.has_digit = looks.has_digit || is_digit;
    word = is_letter ? word + 1 : 0;
    looks.longest_word = std::max(looks.longest_word, word);
  }
  return looks;
}

struct Candidate {
  DoubtfulParent parent;
  bool has_line = false;
};
using Candidates = std::unordered_map<std::string_view, Candidate>;

/// All that may be in doubt, whether they have a line or not.
Candidates candidates_of(const ParentTexts& parents, const TextStyle& ids, std::int64_t animals) {
  const std::int64_t sampled =
      animals <= counted_completely ? animals : counted_completely + (animals - counted_completely) / counted_share;
  const std::int64_t many = std::max(many_young, sampled / many_young_share);
  Candidates candidates;
  const auto look_at = [&](const TextCounts& counts, const TextCounts& others) {
    for (const CountedText& entry : counts.texts) {
      const bool looks_unknown = looks_like_unknown(entry.text, ids) || repeats_line_above(entry.text);
      const bool is_both = find_counted(others, entry.text) != std::string_view::npos;
      if (looks_unknown || is_both || entry.count >= many) {
        candidates.emplace(entry.text, Candidate{{entry.text, 0, 0, 0, looks_unknown}});
      }
    }
  };
  look_at(parents.sires, parents.dams);
  look_at(parents.dams, parents.sires);
  return candidates;
}

/// From how many young on a parent without a line is doubtful.
struct YoungLimits {
  std::int64_t sired = 0, borne = 0;
};

YoungLimits limits_of(const Candidates& candidates, const HerdNumbers& herd) {
  const std::int64_t many = std::max(many_young, herd.animals / many_young_share);
  if (herd.parents_without_line < usual_without_line) return {many, many};
  YoungLimits most = {many, many};
  for (const auto& [text, candidate] : candidates) {
    if (!candidate.has_line) continue;
    most.sired = std::max(most.sired, candidate.parent.sired);
    most.borne = std::max(most.borne, candidate.parent.borne);
  }
  return {times_usual_young * most.sired, times_usual_young * most.borne};
}

bool is_doubtful(const Candidate& candidate, const YoungLimits& limits) {
  const DoubtfulParent& parent = candidate.parent;
  const bool is_both = parent.sired > 0 && parent.borne > 0;
  const bool has_many = parent.sired >= limits.sired || parent.borne >= limits.borne;
  return !candidate.has_line && (parent.looks_unknown || is_both || has_many);
}

}  // namespace

bool looks_like_unknown(std::string_view text, const TextStyle& ids) {
  constexpr std::size_t shortest_telling_word = 4;  // shorter ones are codes of countries and herds
  if (has_no_digit_but(text, '0') || has_no_digit_but(text, '9')) return true;
  if (!ids.is_known) return false;
  const Looks looks = looks_of(text);
  if (ids.needs_digit && !looks.has_digit) return true;
  return looks.longest_word >= shortest_telling_word && looks.longest_word > ids.longest_word;
}

void count_parent(ParentTexts& parents, std::string_view text, LinkRole role, std::int64_t animal,
                  const TextStyle& ids) {
  const bool is_counted = animal <= counted_completely || animal % counted_share == 0 || looks_like_unknown(text, ids);
  if (is_counted) count_text(role == sire_role ? parents.sires : parents.dams, text, 0);
}

std::vector<DoubtfulParent> find_doubtful_parents(std::string_view text, char delimiter, const ColumnChoice& columns,
                                                  const ParentTexts& parents, const HerdNumbers& herd) {
  Candidates candidates = candidates_of(parents, columns.id_style, herd.animals);
  if (candidates.empty()) return {};
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  const auto find = [&](FieldCode code) { return candidates.find(trimmed(field_of(record, columns, code))); };
  while (next_animal(reader, record, columns)) {
    const auto sire = find(sire_column), dam = find(dam_column);
    if (sire != candidates.end()) {
      ++sire->second.parent.sired;
      ++sire->second.parent.young;
    }
    if (dam != candidates.end()) {
      ++dam->second.parent.borne;
      dam->second.parent.young += dam != sire ? 1 : 0;
    }
    if (const auto animal = find(id_column); animal != candidates.end()) animal->second.has_line = true;
  }
  const YoungLimits limits = limits_of(candidates, herd);
  std::vector<DoubtfulParent> doubtful;
  for (const auto& [id, candidate] : candidates) {
    if (is_doubtful(candidate, limits)) doubtful.push_back(candidate.parent);
  }
  std::sort(doubtful.begin(), doubtful.end(), [](const DoubtfulParent& a, const DoubtfulParent& b) {
    return a.young != b.young ? a.young > b.young : a.text < b.text;
  });
  return doubtful;
}

}  // namespace pedigreewatch
