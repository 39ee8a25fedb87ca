// Of each column the set of its texts is compared; a column of parents fits one of identifications when most of
// its set lies in the other one.

#include "intake/column_matches.h"

#include <algorithm>
#include <array>
#include <utility>

#include "intake/column_profiles.h"
#include "intake/sex_choice.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t most_listed_matches = 5;

/// The best ones first; those that hold less than half are none.
void keep_best(std::vector<ColumnMatch>& matches) {
  std::erase_if(matches, [](const ColumnMatch& match) { return match.found * 2 < match.of; });
  std::stable_sort(matches.begin(), matches.end(),
                   [](const ColumnMatch& a, const ColumnMatch& b) { return a.found * b.of > b.found * a.of; });
  if (matches.size() > most_listed_matches) matches.resize(most_listed_matches);
}

std::optional<std::size_t> place_of(const ColumnChoice& columns, FieldCode code) {
  return columns.place[code];
}

MatchList list_matches(const std::vector<ColumnMatch>& matches, const ColumnChoice& columns) {
  MatchList list;
  for (const ColumnMatch& match : matches) {
    list.matches.push_back({columns.headings[match.place], match.place + 1, match.found, match.of});
  }
  return list;
}

/// The chosen column first, then those that fit better.
std::vector<Answer> answers_of(std::size_t chosen, const std::vector<ColumnMatch>& matches,
                               const ColumnChoice& columns) {
  std::vector<Answer> answers = {{std::to_string(chosen + 1), columns.headings[chosen]}};
  for (const ColumnMatch& match : matches) {
    answers.push_back({std::to_string(match.place + 1), columns.headings[match.place]});
  }
  return answers;
}

bool is_named(FieldCode code, const PrepareOptions& options) {
  return std::any_of(options.columns.begin(), options.columns.end(),
                     [&](const ColumnWish& wish) { return wish.code == code; });
}

}  // namespace

bool lack_lines(const LinkCount& parents) {
  return parents.parents >= fewest_judged_parents && parents.with_line * 2 < parents.parents;
}

ColumnMatches match_columns(std::string_view text, char delimiter, const ColumnChoice& columns) {
  ColumnMatches result;
  const auto id = place_of(columns, id_column), sire = place_of(columns, sire_column),
             dam = place_of(columns, dam_column);
  const std::vector<ColumnProfile> profiles = profile_columns(text, delimiter, columns);
  std::vector<TextSet> sets;
  sets.reserve(profiles.size());
  for (const ColumnProfile& profile : profiles) sets.push_back(profile.texts);
  if (!id || *id >= sets.size()) return result;
  for (std::size_t k = 0; k < sets.size(); ++k) {
    if (k == *id) continue;
    const bool is_parent = k == sire || k == dam;
    const std::int64_t of = size_of(sets[k]);
    if (!is_parent && of >= fewest_judged_parents) {
      result.for_parents.push_back({k, count_common(sets[k], sets[*id]), of});
    }
    if (is_parent) continue;
    ColumnMatch match = {k, 0, 0};
    for (const auto& parent : {sire, dam}) {
      if (!parent || *parent >= sets.size()) continue;
      match.found += count_common(sets[*parent], sets[k]);
      match.of += size_of(sets[*parent]);
    }
    if (match.of > 0) result.for_id.push_back(match);
  }
  keep_best(result.for_parents);
  keep_best(result.for_id);
  return result;
}

std::vector<Question> ask_for_linked_columns(const ExportSurvey& survey, const ColumnChoice& columns,
                                             const PrepareOptions& options) {
  std::vector<Question> questions;
  const auto id = place_of(columns, id_column);
  if (!id) return questions;
  const auto ask = [&](FieldCode code, QuestionKind kind, Values counts, const std::vector<ColumnMatch>& matches) {
    if (is_named(code, options)) return;
    const std::size_t chosen = *place_of(columns, code);
    Values values = {code, FieldName{code}, list_columns(std::span(&chosen, 1), columns),
                     list_columns(std::span(&*id, 1), columns), list_matches(matches, columns)};
    values.insert(values.end(), counts.begin(), counts.end());
    questions.push_back({kind, std::move(values), Setting::column, code, answers_of(chosen, matches, columns)});
  };
  bool is_doubtful = false;
  for (const auto& [code, role] : {std::pair(sire_column, sire_role), std::pair(dam_column, dam_role)}) {
    const LinkCount parents = count_links(survey.links, role);
    if (!place_of(columns, code) || !lack_lines(parents)) continue;
    is_doubtful = true;
    ask(code, QuestionKind::parents_lack_lines, {parents.parents, parents.with_line}, survey.matches.for_parents);
  }
  if (is_doubtful) ask(id_column, QuestionKind::id_lacks_parents, {}, survey.matches.for_id);
  return questions;
}

void ask_for_parents_of_wrong_sex(const ExportSurvey& survey, const ColumnChoice& columns,
                                  const PrepareOptions& options, std::vector<Question>& questions) {
  const std::array<std::pair<FieldCode, LinkRole>, 2> roles = {{{sire_column, sire_role}, {dam_column, dam_role}}};
  std::vector<Answer> answers;
  for (const auto& [code, role] : roles) {
    const auto place = place_of(columns, code);
    if (place) answers.push_back({std::to_string(*place + 1), columns.headings[*place]});
  }
  for (const auto& [code, role] : roles) {
    const ParentSexes parents = count_parent_sexes(survey, role);
    const auto place = place_of(columns, code);
    if (!place || is_named(code, options) || !are_of_wrong_sex(parents)) continue;
    questions.push_back(
        {QuestionKind::parents_of_wrong_sex,
         {code, FieldName{code}, list_columns(std::span(&*place, 1), columns), parents.known, parents.wrong},
         Setting::column,
         code,
         answers});
  }
}

}  // namespace pedigreewatch
