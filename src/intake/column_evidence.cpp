#include "intake/column_evidence.h"

#include <algorithm>
#include <optional>

#include "intake/heading_words.h"

namespace pedigreewatch {
namespace {

/// Of ids at least this many of ten differ.
constexpr std::int64_t tenths_of_different_ids = 9;
/// Of dates and sexes so many fields of a column are needed: one in ten.
constexpr std::int64_t fields_for_a_date = 10;
constexpr std::int64_t most_words_of_sexes = 12;

bool are_different(const ColumnProfile& profile) {
  return are_nearly_different(size_of(profile.texts), profile.texts_read);
}

/// The columns whose texts stand in another one, or in which those of another one stand.
using Links = std::vector<ColumnEvidence::Link>;

ColumnEvidence::Link link_of(std::size_t from, std::size_t to, const ColumnContents& contents,
                             const ColumnChoice& columns) {
  const TextSet &texts = contents.profiles[from].texts, &ids = contents.profiles[to].texts;
  return {columns.headings[from], from + 1, columns.headings[to], to + 1, count_common(texts, ids), size_of(texts)};
}

bool is_linked(const ColumnEvidence::Link& link) {
  return link.of >= fewest_judged_parents && link.found * 2 >= link.of;
}

void sort_links(Links& links) {
  constexpr std::size_t most_links = 3;
  std::stable_sort(links.begin(), links.end(), [](const auto& a, const auto& b) { return a.found > b.found; });
  if (links.size() > most_links) links.resize(most_links);
}

/// For ids: the columns of which at least half of the texts stand in this one.
Links links_into(std::size_t id, const ColumnContents& contents, const ColumnChoice& columns) {
  Links links;
  if (!are_different(contents.profiles[id])) return links;
  for (std::size_t k = 0; k < contents.profiles.size(); ++k) {
    if (k == id || size_of(contents.profiles[k].texts) >= size_of(contents.profiles[id].texts)) continue;
    const ColumnEvidence::Link link = link_of(k, id, contents, columns);
    if (is_linked(link)) links.push_back(link);
  }
  sort_links(links);
  return links;
}

/// For parents: the columns of different texts in which at least half of those of this one stand.
Links links_from(std::size_t parents, const ColumnContents& contents, const ColumnChoice& columns) {
  Links links;
  for (std::size_t k = 0; k < contents.profiles.size(); ++k) {
    const bool is_larger = size_of(contents.profiles[k].texts) > size_of(contents.profiles[parents].texts);
    if (k == parents || !is_larger || !are_different(contents.profiles[k])) continue;
    const ColumnEvidence::Link link = link_of(parents, k, contents, columns);
    if (is_linked(link)) links.push_back(link);
  }
  sort_links(links);
  return links;
}

bool is_parent(FieldCode code) {
  return code == sire_column || code == dam_column;
}

/// Counts the parents that would be of the wrong sex if this column were the id; none as long as nobody knows which
/// columns hold parents and sex.
void compare_sexes(ColumnEvidence& evidence, std::size_t id, const ColumnContents& contents,
                   const ColumnChoice& columns) {
  const auto place_of = [&](FieldCode code) { return columns.place[code]; };
  const auto sex = place_of(sex_column), sire = place_of(sire_column), dam = place_of(dam_column);
  const std::size_t count = contents.profiles.size();
  if (!sex || !sire || !dam || *sex >= count || *sire >= count || *dam >= count) return;
  const auto sexes = sexes_by_id(contents.text, contents.delimiter, columns, id, *sex);
  const NamedSexes sires = count_named_sexes(contents.profiles[*sire].texts, sexes);
  const NamedSexes dams = count_named_sexes(contents.profiles[*dam].texts, sexes);
  evidence.parents_of_known_sex = sires.males + sires.females + dams.males + dams.females;
  evidence.parents_of_wrong_sex = sires.females + dams.males;
}

ColumnEvidence evidence_of(std::size_t place, FieldCode code, const ColumnContents& contents,
                           const ColumnChoice& columns) {
  const ColumnProfile& profile = contents.profiles[place];
  ColumnEvidence evidence;
  evidence.heading = columns.headings[place];
  evidence.number = place + 1;
  evidence.texts = profile.texts_read;
  evidence.different = size_of(profile.texts);
  evidence.judged = profile.judged;
  evidence.dates = profile.dates;
  evidence.examples = profile.examples;
  if (code == id_column) {
    evidence.links = links_into(place, contents, columns);
    compare_sexes(evidence, place, contents, columns);
  }
  if (is_parent(code)) evidence.links = links_from(place, contents, columns);
  return evidence;
}

/// How much speaks for a column; 0: nothing.
std::int64_t weight_of(const ColumnEvidence& evidence, FieldCode code) {
  std::int64_t linked = 0;
  for (const ColumnEvidence::Link& link : evidence.links) linked += link.found;
  if (code == id_column) return are_nearly_different(evidence.different, evidence.texts) ? 1 + linked : 0;
  if (is_parent(code)) return linked;
  if (code == birthdate_column) return evidence.dates * fields_for_a_date >= evidence.judged ? evidence.dates : 0;
  if (code != sex_column) return evidence.texts;
  const bool has_few = evidence.different >= 2 && evidence.different <= most_words_of_sexes;
  return has_few && evidence.texts >= fields_for_a_date * evidence.different
             ? most_words_of_sexes + 1 - evidence.different
             : 0;
}

}  // namespace

bool are_nearly_different(std::int64_t different, std::int64_t texts) {
  return texts > 0 && different * 10 >= texts * tenths_of_different_ids;
}

ColumnEvidenceList list_evidence(std::span<const std::size_t> places, FieldCode code, const ColumnContents& contents,
                                 const ColumnChoice& columns) {
  ColumnEvidenceList list;
  for (const std::size_t place : places) {
    if (place < contents.profiles.size()) list.columns.push_back(evidence_of(place, code, contents, columns));
  }
  return list;
}

ColumnEvidenceList list_candidates(FieldCode code, const ColumnContents& contents, const ColumnChoice& columns) {
  std::vector<std::size_t> free;
  for (std::size_t k = 0; k < contents.profiles.size(); ++k) {
    if (!holds_field(columns, k) && contents.profiles[k].texts_read > 0) free.push_back(k);
  }
  ColumnEvidenceList list = list_evidence(free, code, contents, columns);
  const auto has_weight = [&](const ColumnEvidence& evidence) { return weight_of(evidence, code) > 0; };
  if (std::any_of(list.columns.begin(), list.columns.end(), has_weight)) {
    std::erase_if(list.columns, [&](const ColumnEvidence& evidence) { return !has_weight(evidence); });
    std::stable_sort(list.columns.begin(), list.columns.end(),
                     [&](const auto& a, const auto& b) { return weight_of(a, code) > weight_of(b, code); });
  } else if (code == id_column && columns.has_header) {
    // A column of young would make an animal of one of those on a line.
    std::erase_if(list.columns,
                  [](const ColumnEvidence& evidence) { return read_heading(evidence.heading).names_young; });
  }
  list.more = list.columns.size() > most_candidates ? list.columns.size() - most_candidates : 0;
  if (list.more > 0) list.columns.resize(most_candidates);
  return list;
}

}  // namespace pedigreewatch
