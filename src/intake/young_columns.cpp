// A heading is cut into the number and the rest. Columns of the same rest are a group; which group holds the young is
// told by the parents that stand in it.

#include "intake/young_columns.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>

#include "intake/column_evidence.h"
#include "intake/column_matches.h"
#include "intake/heading_words.h"
#include "intake/rare_young.h"
#include "text/folded_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

/// What each of several animals on a line may have for itself.
constexpr auto own_fields =
    std::to_array<FieldCode>({sex_column, name_column, birthdate_column, colour_column, breeder_column, import_column});

/// A heading without its number.
struct NumberedHeading {
  std::string rest;
  std::size_t number = 0;  ///< 0: none
};

/// The letters behind a number that make it an ordinal: "1st", "2e", "3er".
std::size_t length_of_ordinal(std::string_view behind) {
  constexpr auto endings = std::to_array<std::string_view>({"st", "nd", "rd", "th", "er", "re", "e", "de", "."});
  std::size_t length = 0;
  while (length < behind.size() && ((behind[length] | 0x20) >= 'a' && (behind[length] | 0x20) <= 'z')) ++length;
  return is_among(folded(behind.substr(0, length)), endings) ? length : 0;
}

/// Cuts the only number out of a heading; one with several numbers, or one beyond `most_young`, has none.
NumberedHeading cut_heading(const std::string& heading) {
  constexpr std::size_t most_young = 40;
  const std::size_t first = heading.find_first_of("0123456789");
  if (first == std::string::npos) return {heading, 0};
  std::size_t end = first;
  while (end < heading.size() && is_digit(heading[end])) ++end;
  const bool has_more = heading.find_first_of("0123456789", end) != std::string::npos;
  std::size_t number = 0;
  std::from_chars(heading.data() + first, heading.data() + end, number);
  if (has_more || number == 0 || number > most_young) return {heading, 0};
  const std::string_view behind = std::string_view(heading).substr(end);
  return {heading.substr(0, first) + " " + std::string(behind.substr(length_of_ordinal(behind))), number};
}

struct NumberedColumn {
  std::size_t number = 0, place = 0;
};

/// Whether the numbers go on one by one from 1, or from 2 behind a heading without a number; or there are none at all.
bool go_on(const std::vector<NumberedColumn>& columns) {
  if (columns.back().number == 0) return true;
  const std::size_t first = columns.front().number;
  for (std::size_t k = 1; k < columns.size(); ++k) {
    const bool begins_at_two = k == 1 && first == 0 && columns[k].number == 2;
    if (columns[k].number != columns[k - 1].number + 1 && !begins_at_two) return false;
  }
  return first <= 1;
}

/// What the heading says beside the words for young; nothing more: the id. Words may be written together.
FieldCode code_of(const HeadingMeaning& meaning, std::string_view heading) {
  if (!meaning.names_young) return meaning_of(heading).code;
  const std::string rest = words_beside_young(heading);
  if (rest.empty()) return id_column;
  const FieldCode code = meaning_of(rest).code;
  const bool says_id = meaning.owner == HeadingOwner::animal && meaning.thing == HeadingThing::identification;
  return code == unused_column && says_id ? id_column : code;
}

/// The texts of a group, and how many of the parents stand in it.
struct GroupTexts {
  TextSet texts;
  std::int64_t read = 0;
  std::int64_t parents = 0, in_first = 0;  ///< of the parents those that stand in it, in its first column
};

GroupTexts texts_of(const ColumnGroup& group, std::span<const ColumnProfile> profiles, const ColumnChoice& columns) {
  GroupTexts texts;
  for (const std::size_t place : group.places) {
    if (place >= profiles.size()) continue;
    texts.texts.merge(texts_of_living(profiles[place]));
    texts.read += count_read_of_living(profiles[place]);
  }
  texts.parents = count_parents(texts.texts, profiles, columns);
  const std::size_t first = group.places.front();
  if (first < profiles.size()) texts.in_first = count_parents(profiles[first].texts, profiles, columns);
  return texts;
}

/// Ids are nearly all different.
bool are_ids(const GroupTexts& texts) {
  constexpr std::int64_t fewest = 10, tolerated = 50;
  return size_of(texts.texts) >= fewest && (texts.read - size_of(texts.texts)) * tolerated <= texts.read;
}

/// Of the parents in a group at least this share stands behind its first column.
constexpr std::int64_t share_behind_first = 5;
/// Where second young are rare, so many parents that stand behind the first column alone are asked about.
constexpr std::int64_t fewest_behind_first = 2;
/// The parents in a group are so many times those in the column of the id.
constexpr std::int64_t times_those_of_id = 3;

enum class YoungEvidence { none, open, certain };

YoungEvidence judge(const ColumnGroup& group, const GroupTexts& texts, std::int64_t parents_in_id) {
  if (!are_ids(texts)) return YoungEvidence::none;
  if (texts.parents < times_those_of_id * parents_in_id) return YoungEvidence::none;
  const bool hold_parents = texts.parents >= fewest_judged_parents;
  if (group.names_young) return hold_parents ? YoungEvidence::certain : YoungEvidence::open;
  const std::int64_t behind_first = texts.parents - texts.in_first;
  if (!hold_parents || behind_first < fewest_behind_first) return YoungEvidence::none;
  const bool are_spread = behind_first * share_behind_first >= texts.parents;
  // Two numbers of one animal may both be used for parents.
  return are_spread && group.places.size() > 2 ? YoungEvidence::certain : YoungEvidence::open;
}

void leave_out_questions_of_id(ColumnChoice& columns) {
  std::erase_if(columns.questions, [](const Question& question) { return question.field == id_column; });
}

/// The words of the heading of a column of ids left out of another one: "sex" of "Twin sex" beside "Twin".
std::string words_beside(std::string_view heading, std::string_view heading_of_id) {
  const std::vector<std::string> of_id = words_of_heading(heading_of_id);
  std::string rest;
  std::size_t shared = 0;
  for (const std::string& word : words_of_heading(heading)) {
    const bool is_of_id = std::find(of_id.begin(), of_id.end(), word) != of_id.end();
    shared += is_of_id ? 1 : 0;
    if (!is_of_id) rest += (rest.empty() ? "" : " ") + word;
  }
  return shared == of_id.size() ? rest : std::string();
}

/// The column of a further young that holds the field, as its heading tells beside that of its id.
std::optional<std::size_t> own_column(FieldCode code, std::size_t id, const ColumnChoice& columns) {
  if (!columns.has_header || columns.headings[id].empty()) return std::nullopt;
  for (std::size_t place = 0; place < columns.headings.size(); ++place) {
    if (place == id) continue;
    const std::string rest = words_beside(columns.headings[place], columns.headings[id]);
    if (!rest.empty() && meaning_of(rest).code == code) return place;
  }
  return std::nullopt;
}

/// What the young have for themselves under headings without numbers. A sex or name of which there is one column is
/// that of the first young; the others have none.
void add_own_columns(FieldCode code, const ColumnChoice& columns, YoungColumns& young) {
  constexpr std::size_t nowhere = SIZE_MAX;
  const auto& chosen = columns.place[code];
  const std::optional<std::size_t> first = chosen ? chosen : own_column(code, young.ids.front(), columns);
  if (!first || std::find(young.ids.begin(), young.ids.end(), *first) != young.ids.end()) return;
  std::vector<std::size_t> places = {*first};
  bool has_own = code == sex_column || code == name_column;
  for (std::size_t k = 1; k < young.ids.size(); ++k) {
    const std::optional<std::size_t> own = own_column(code, young.ids[k], columns);
    const bool is_of_other = own && *own != *first;
    places.push_back(is_of_other ? *own : nowhere);
    has_own = has_own || is_of_other;
  }
  if (!has_own) return;
  young.fields.push_back(code);
  for (std::size_t k = 0; k < young.ids.size(); ++k) young.animals[k].push_back({places[k], *first});
}

/// The columns that the user names; none, and a question, where one is not there.
std::vector<std::size_t> wished_columns(const PrepareOptions& options, ColumnChoice& columns) {
  std::vector<std::size_t> places;
  for (const std::string& wish : options.young.names) {
    const std::vector<std::size_t> found = find_columns(wish, columns);
    if (found.empty()) {
      leave_out_questions_of_id(columns);
      const std::int64_t count = std::ssize(columns.headings);
      columns.questions.push_back(
          {QuestionKind::no_such_young, {wish, count}, Setting::young, unused_column, {{"none", {}}}});
      return {};
    }
    for (const std::size_t place : found) {
      if (std::find(places.begin(), places.end(), place) == places.end()) places.push_back(place);
    }
  }
  return places;
}

Question question_of(const YoungColumns& young, const ColumnChoice& columns) {
  std::string numbers;
  for (const std::size_t place : young.ids) numbers += (numbers.empty() ? "" : ",") + std::to_string(place + 1);
  return {QuestionKind::young_unclear,
          {list_columns(young.ids, columns), numbers},
          Setting::young,
          unused_column,
          {{numbers, columns.headings[young.ids.front()]}, {"none", {}}}};
}

void wish_for(FieldCode code, std::size_t place, PrepareOptions& wishes) {
  std::erase_if(wishes.columns, [&](const ColumnWish& wish) { return wish.code == code; });
  wishes.columns.push_back({code, std::to_string(place + 1)});
}

/// Whether one of the columns would be taken for the id by what stands in it.
bool is_like_ids(const ColumnGroup& group, std::span<const ColumnProfile> profiles) {
  return std::any_of(group.places.begin(), group.places.end(), [&](std::size_t place) {
    return place < profiles.size() &&
           are_nearly_different(size_of(texts_of_living(profiles[place])), count_read_of_living(profiles[place]));
  });
}

/// The columns whose headings say that they hold the ids of young, where the id is not chosen or is one of them: a line
/// would be one of its young alone. They are asked about although their texts do not show that a line holds several.
YoungColumns young_by_heading(std::span<const ColumnGroup> groups, std::span<const ColumnProfile> profiles,
                              const ColumnChoice& columns) {
  const auto& id = columns.place[id_column];
  for (const ColumnGroup& group : groups) {
    const bool holds_id = id && std::find(group.places.begin(), group.places.end(), *id) != group.places.end();
    if (!group.names_young || group.code != id_column || (id && !holds_id)) continue;
    if (is_like_ids(group, profiles)) return young_in(group.places, groups, columns);
  }
  return {};
}

/// Second young that are rare, under any heading: the column of the id and those of texts like it.
YoungColumns choose_rare_young(std::string_view text, char delimiter, std::span<const ColumnGroup> groups,
                               const ColumnChoice& columns) {
  const std::vector<std::size_t> candidates = columns_like_ids(text, delimiter, columns);
  if (candidates.empty()) return {};
  const RareYoung rare = find_rare_young(candidates, profile_columns(text, delimiter, columns), columns);
  if (rare.places.empty()) return {};
  std::vector<std::size_t> ids = {*columns.place[id_column]};
  ids.insert(ids.end(), rare.places.begin(), rare.places.end());
  YoungColumns young = young_in(ids, groups, columns);
  young.is_certain = rare.are_named && rare.parents >= fewest_judged_parents;
  return young;
}

}  // namespace

std::vector<ColumnGroup> find_column_groups(std::span<const std::string> headings) {
  struct Found {
    std::string rest;
    std::vector<NumberedColumn> columns;
  };
  std::map<std::string, Found> by_rest;
  for (std::size_t place = 0; place < headings.size(); ++place) {
    const NumberedHeading heading = cut_heading(headings[place]);
    std::string key = folded(heading.rest);
    if (key.empty()) continue;
    Found& found = by_rest[std::move(key)];
    found.rest = heading.rest;
    found.columns.push_back({heading.number, place});
  }
  std::vector<ColumnGroup> groups;
  for (auto& [key, found] : by_rest) {
    std::stable_sort(found.columns.begin(), found.columns.end(),
                     [](const NumberedColumn& a, const NumberedColumn& b) { return a.number < b.number; });
    if (found.columns.size() < 2 || !go_on(found.columns)) continue;
    const HeadingMeaning meaning = read_heading(found.rest);
    ColumnGroup group = {{}, code_of(meaning, found.rest), meaning.names_young};
    for (const NumberedColumn& column : found.columns) group.places.push_back(column.place);
    const bool is_unknown = !meaning.is_understood && !meaning.names_young && group.code == unused_column;
    group.is_open = is_unknown || group.code == id_column || group.code == name_column;
    groups.push_back(std::move(group));
  }
  return groups;
}

YoungColumns young_in(std::span<const std::size_t> ids, std::span<const ColumnGroup> groups,
                      const ColumnChoice& columns) {
  const auto holds = [](const ColumnGroup& group, std::size_t place) {
    return std::find(group.places.begin(), group.places.end(), place) != group.places.end();
  };
  YoungColumns young;
  young.ids.assign(ids.begin(), ids.end());
  young.fields.push_back(id_column);
  for (const std::size_t id : ids) young.animals.push_back({{id, ids.front()}});
  for (const FieldCode code : own_fields) {
    const auto& chosen = columns.place[code];
    const auto fits = [&](const ColumnGroup& group) {
      const bool is_meant = chosen ? holds(group, *chosen) : group.code == code;
      return is_meant && group.places.size() == ids.size() && !holds(group, ids.front());
    };
    const auto found = std::find_if(groups.begin(), groups.end(), fits);
    const auto fitting = std::count_if(groups.begin(), groups.end(), fits);
    if (fitting == 0) add_own_columns(code, columns, young);
    if (fitting != 1) continue;
    young.fields.push_back(code);
    for (std::size_t k = 0; k < ids.size(); ++k) {
      young.animals[k].push_back({found->places[k], found->places.front()});
    }
  }
  return young;
}

YoungColumns find_young(std::span<const ColumnGroup> groups, std::span<const ColumnProfile> profiles,
                        const ColumnChoice& columns) {
  YoungColumns best;
  std::int64_t most = -1;
  for (const ColumnGroup& group : groups) {
    if (!group.is_open) continue;
    const GroupTexts texts = texts_of(group, profiles, columns);
    const auto& id = columns.place[id_column];
    const bool has_other_id =
        id && *id < profiles.size() && std::find(group.places.begin(), group.places.end(), *id) == group.places.end();
    const YoungEvidence evidence =
        judge(group, texts, has_other_id ? count_parents(profiles[*id].texts, profiles, columns) : 0);
    if (evidence == YoungEvidence::none || texts.parents <= most) continue;
    most = texts.parents;
    best = young_in(group.places, groups, columns);
    best.is_certain = evidence == YoungEvidence::certain;
  }
  return best;
}

YoungColumns choose_young(std::string_view text, char delimiter, ColumnChoice& columns, PrepareOptions& wishes) {
  YoungColumns young;
  if (wishes.young.leaves_out) return young;
  std::vector<ColumnGroup> groups;
  if (columns.has_header) groups = find_column_groups(columns.headings);
  if (wishes.young.is_given) {
    const std::vector<std::size_t> ids = wished_columns(wishes, columns);
    if (ids.empty()) return young;
    young = young_in(ids, groups, columns);
    young.is_certain = true;
  } else {
    const auto is_open = [](const ColumnGroup& group) { return group.is_open; };
    if (std::any_of(groups.begin(), groups.end(), is_open)) {
      const std::vector<ColumnProfile> profiles = profile_columns(text, delimiter, columns);
      young = find_young(groups, profiles, columns);
      if (young.ids.empty()) young = young_by_heading(groups, profiles, columns);
    }
    if (young.ids.empty()) young = choose_rare_young(text, delimiter, groups, columns);
    if (young.ids.empty()) return young;
  }
  if (!young.ids.empty() && !young.is_certain) young.questions.push_back(question_of(young, columns));
  for (std::size_t k = 0; k < young.fields.size(); ++k) {
    wish_for(young.fields[k], young.animals.front()[k].to, wishes);
  }
  return young;
}

}  // namespace pedigreewatch
