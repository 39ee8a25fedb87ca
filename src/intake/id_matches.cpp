// The survey has found the parents that are no animal, some of them where they are many; another reading compares these
// with all identifications under each rule. What two animals share under a rule points to neither.

#include "intake/id_matches.h"
#include "intake/animal_lines.h"

#include <algorithm>
#include <array>
#include <bit>
#include <deque>
#include <unordered_set>
#include <utility>

#include "intake/export_records.h"
#include "intake/export_survey.h"
#include "intake/value_words.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

/// Rules that are tried, those first that assume least.
constexpr auto tried_rules = std::to_array<unsigned>(
    {capitals_rule, marks_rule, separators_rule, zeros_rule, look_alikes_rule, separators_rule | capitals_rule,
     separators_rule | zeros_rule, prefix_rule, separators_rule | prefix_rule, country_rule,
     separators_rule | country_rule, prefix_rule | country_rule,
     separators_rule | zeros_rule | prefix_rule | country_rule, check_digit_rule, separators_rule | check_digit_rule});
constexpr std::size_t most_compared_parents = 1000;

/// Hands over the records behind the header until no more is wanted.
template <typename Take>
void for_each_record(const ExportTable& table, Take&& take) {
  RecordReader reader = read_animals(table.text, table.delimiter, table.columns);
  ExportRecord record;
  while (next_animal(reader, record, table.columns)) {
    if (!take(record)) return;
  }
}

std::string_view id_in(const ExportRecord& record, const ColumnChoice& columns, FieldCode code) {
  return trimmed(field_of(record, columns, code));
}

/// A set of hashes without their values: it may say yes to one that is not in it, never no to one that is.
struct HashFilter {
  std::vector<std::uint64_t> words;
  std::uint32_t mask = 0;

  explicit HashFilter(std::size_t hash_count) {
    constexpr std::size_t bits_for_each = 128, fewest_bits = 1024, most_bits = std::size_t{1} << 30;
    const std::size_t bits = std::bit_ceil(std::clamp(hash_count * bits_for_each, fewest_bits, most_bits));
    words.resize(bits / 64);
    mask = static_cast<std::uint32_t>(bits - 1);
  }
  void insert(std::uint32_t hash) { words[(hash & mask) / 64] |= std::uint64_t{1} << (hash % 64); }
  bool may_contain(std::uint32_t hash) const { return (words[(hash & mask) / 64] >> (hash % 64) & 1U) != 0; }
};

struct Parent {
  std::string text;
  std::int64_t line = 0;
};

/// The different parents that are no animal of the export, in the order of their lines.
std::vector<Parent> parents_without_line(const ExportTable& table, const std::unordered_set<std::string>& ids) {
  std::vector<Parent> parents;
  std::unordered_set<std::string_view> seen;
  const std::vector<std::string_view> wished(table.unknown.begin(), table.unknown.end());
  std::deque<std::string> kept;
  for_each_record(table, [&](const ExportRecord& record) {
    for (const FieldCode code : {sire_column, dam_column}) {
      const std::string_view parent = id_in(record, table.columns, code);
      if (seen.contains(parent) || ids.contains(std::string(parent))) continue;
      if (means_unknown_parent(parent) || is_among(parent, wished)) continue;
      seen.insert(kept.emplace_back(parent));
      parents.push_back({std::string(parent), record.line});
    }
    return true;
  });
  return parents;
}

/// How many animals have an identification of each length; the last entry is of that length and more.
using IdLengths = std::array<std::int64_t, 64>;

/// What a rule finds for the parents.
struct RuleTrial {
  IdRules rules;
  std::unordered_map<std::string, std::vector<std::size_t>> parents_of_key;
  std::vector<std::string> id_of_parent;  ///< the animal, for each parent; empty: none
  std::vector<int> found;                 ///< how many animals were found for it
  IdLengths ids_of_length = {};
};

/// Hashes that are equal wherever a rule makes identifications equal: of their digits from 2 to 9, which no rule leaves
/// out or takes for anything else, with and without a check digit, and without the number of a country.
struct LooseHashes {
  std::uint32_t whole = 0, without_check_digit = 0, without_country = 0;
};

LooseHashes loose_hashes(std::string_view id) {
  constexpr std::uint32_t start = 2166136261U, factor = 16777619U;  // Fowler, Noll and Vo
  const auto add = [](std::uint32_t& hash, char byte) {
    if (byte >= '2' && byte <= '9') hash = (hash ^ static_cast<unsigned char>(byte)) * factor;
  };
  LooseHashes hashes = {start, start, start};
  for (const char byte : id) {
    hashes.without_check_digit = hashes.whole;
    add(hashes.whole, byte);
  }
  const std::string_view number = without_country(id);
  for (const char byte : number) add(hashes.without_country, byte);
  if (number.empty()) hashes.without_country = hashes.whole;
  return hashes;
}

/// All of them.
std::array<std::uint32_t, 3> list_hashes(std::string_view id) {
  const LooseHashes hashes = loose_hashes(id);
  return {hashes.whole, hashes.without_check_digit, hashes.without_country};
}

std::string key_of(std::string_view id, IdRules rules) {
  std::string key;
  append_id_key(key, id, rules);
  return key;
}

RuleTrial begin_trial(unsigned bits, std::span<const Parent> parents) {
  RuleTrial trial;
  trial.rules = {bits};
  trial.id_of_parent.resize(parents.size());
  trial.found.resize(parents.size());
  for (std::size_t i = 0; i < parents.size(); ++i) {
    trial.parents_of_key[key_of(parents[i].text, trial.rules)].push_back(i);
    if ((bits & check_digit_rule) == 0) continue;
    const std::string_view shorter = without_check_digit(parents[i].text);
    if (!shorter.empty()) trial.parents_of_key[key_of(shorter, trial.rules)].push_back(i);
  }
  return trial;
}

void note_match(RuleTrial& trial, const std::string& key, std::string_view id) {
  const auto found = trial.parents_of_key.find(key);
  if (found == trial.parents_of_key.end()) return;
  for (const std::size_t parent : found->second) {
    if (trial.id_of_parent[parent] == id) continue;  // a second line of the same animal
    trial.id_of_parent[parent] = id;
    ++trial.found[parent];
  }
}

void compare_id(RuleTrial& trial, std::string_view id) {
  const std::string key = key_of(id, trial.rules);
  note_match(trial, key, id);
  if ((trial.rules.bits & check_digit_rule) == 0) return;
  const std::string_view shorter = without_check_digit(id);
  if (!shorter.empty()) note_match(trial, key_of(shorter, trial.rules), id);
}

/// Compares all animals with the parents of the trials.
void compare_all(const ExportTable& table, std::span<const Parent> parents, std::span<RuleTrial> trials) {
  HashFilter candidates(3 * parents.size());
  for (const Parent& parent : parents) {
    for (const std::uint32_t hash : list_hashes(parent.text)) candidates.insert(hash);
  }
  const auto may_be_parent = [&](std::string_view id) {
    const auto hashes = list_hashes(id);
    return std::any_of(hashes.begin(), hashes.end(), [&](std::uint32_t hash) { return candidates.may_contain(hash); });
  };
  IdLengths ids_of_length = {};
  for_each_record(table, [&](const ExportRecord& record) {
    const std::string_view id = id_in(record, table.columns, id_column);
    if (id.empty()) return true;
    ++ids_of_length[std::min(id.size(), ids_of_length.size() - 1)];
    if (!may_be_parent(id)) return true;
    for (RuleTrial& trial : trials) compare_id(trial, id);
    return true;
  });
  for (RuleTrial& trial : trials) trial.ids_of_length = ids_of_length;
}

/// Without its last digit a number is nearly always another one, so that a check digit is believed only where nearly
/// all ids have one length, the parent another one, and no other parent has the same animal.
void doubt_check_digits(RuleTrial& trial, std::span<const Parent> parents) {
  constexpr std::int64_t nearly_all = 10;  // but one in so many
  const auto* const usual = std::max_element(trial.ids_of_length.begin(), trial.ids_of_length.end());
  std::int64_t others = -*usual;
  for (const std::int64_t count : trial.ids_of_length) others += count;
  const auto usual_length = static_cast<std::size_t>(usual - trial.ids_of_length.begin());
  std::unordered_map<std::string_view, int> parents_of_id;
  for (const std::string& id : trial.id_of_parent) ++parents_of_id[id];
  for (std::size_t i = 0; i < parents.size(); ++i) {
    const bool is_believed = others * nearly_all <= *usual && parents[i].text.size() != usual_length &&
                             trial.id_of_parent[i].size() == usual_length && parents_of_id[trial.id_of_parent[i]] == 1;
    if (!is_believed) trial.found[i] = 0;
  }
}

/// The parents that the trial gives exactly one animal.
std::vector<IdPair> explained_by(RuleTrial& trial, std::span<const Parent> parents) {
  if ((trial.rules.bits & check_digit_rule) != 0) doubt_check_digits(trial, parents);
  std::vector<IdPair> pairs;
  for (std::size_t i = 0; i < parents.size(); ++i) {
    if (trial.found[i] == 1) pairs.push_back({parents[i].text, trial.id_of_parent[i], parents[i].line});
  }
  return pairs;
}

std::vector<IdPair> first_of(const std::vector<IdPair>& pairs) {
  const std::size_t count = std::min(pairs.size(), most_id_examples);
  return {pairs.begin(), pairs.begin() + static_cast<std::ptrdiff_t>(count)};
}

/// The parents of the sample that are no animal, in the order of their lines, at most so many as are compared.
std::vector<Parent> sampled_parents(const ParentLinks& links) {
  std::vector<std::pair<std::uint32_t, const LinkedId*>> missing;
  for (const auto& [hash, id] : links.ids) {
    if ((id.roles & animal_role) == 0 && !id.text.empty()) missing.emplace_back(hash, &id);
  }
  std::sort(missing.begin(), missing.end());
  if (missing.size() > most_compared_parents) missing.resize(most_compared_parents);
  std::vector<Parent> parents;
  parents.reserve(missing.size());
  for (const auto& [hash, id] : missing) parents.push_back({id->text, id->line});
  std::sort(parents.begin(), parents.end(), [](const Parent& a, const Parent& b) {
    return std::pair(a.line, std::string_view(a.text)) < std::pair(b.line, std::string_view(b.text));
  });
  return parents;
}

bool has_columns(const ColumnChoice& columns) {
  const auto has = [&](FieldCode code) { return columns.place[code].has_value(); };
  return has(id_column) && (has(sire_column) || has(dam_column));
}

}  // namespace

bool is_worth_asking(const IdProposal& proposal) {
  const std::int64_t unexplained = proposal.without_line - proposal.explained;
  return proposal.explained >= fewest_explained_parents && unexplained * tolerated_unexplained <= proposal.without_line;
}

IdProposal propose_id_rules(const ExportTable& table, const ParentLinks& links) {
  IdProposal best;
  if (!has_columns(table.columns)) return best;
  const std::vector<Parent> parents = sampled_parents(links);
  best.without_line = std::ssize(parents);
  if (best.without_line < fewest_explained_parents) return best;
  std::vector<RuleTrial> trials;
  trials.reserve(tried_rules.size());
  for (const unsigned bits : tried_rules) trials.push_back(begin_trial(bits, parents));
  compare_all(table, parents, trials);
  for (RuleTrial& trial : trials) {
    const std::vector<IdPair> pairs = explained_by(trial, parents);
    const std::int64_t count = std::ssize(pairs);
    if (count > best.explained) best = {trial.rules, best.without_line, count, first_of(pairs)};
  }
  return best;
}

IdSubstitutes find_substitutes(const ExportTable& table, IdRules rules) {
  IdSubstitutes result;
  if (!has_columns(table.columns) || rules.bits == no_id_rule) return result;
  std::unordered_set<std::string> ids;
  for_each_record(table, [&](const ExportRecord& record) {
    ids.emplace(id_in(record, table.columns, id_column));
    return true;
  });
  const std::vector<Parent> parents = parents_without_line(table, ids);
  std::vector<RuleTrial> trials = {begin_trial(rules.bits, parents)};
  compare_all(table, parents, trials);
  const std::vector<IdPair> pairs = explained_by(trials.front(), parents);
  for (const IdPair& pair : pairs) result.ids.emplace(pair.parent, pair.id);
  result.examples = first_of(pairs);
  return result;
}

}  // namespace pedigreewatch
