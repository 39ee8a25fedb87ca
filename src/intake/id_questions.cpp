#include "intake/id_questions.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "intake/damaged_numbers.h"
#include "intake/id_matches.h"

namespace pedigreewatch {
namespace {

constexpr auto id_fields = std::to_array({id_column, sire_column, dam_column});

const NumberForms& numbers_of(const ExportSurvey& survey, FieldCode code) {
  return survey.numbers[code];
}

/// One question for all columns.
void ask_for_destroyed(const ExportSurvey& survey, const ColumnChoice& columns, std::vector<Question>& questions) {
  std::vector<std::size_t> places;
  NotedTexts all;
  for (const FieldCode code : id_fields) {
    const auto& place = columns.place[code];
    const NotedTexts noted = destroyed_numbers(numbers_of(survey, code));
    if (!place || noted.count == 0) continue;
    places.push_back(*place);
    all.count += noted.count;
    all.first.insert(all.first.end(), noted.first.begin(), noted.first.end());
  }
  if (places.empty()) return;
  constexpr std::size_t most_shown = 5;
  all.first.resize(std::min(all.first.size(), most_shown));
  questions.push_back({QuestionKind::ids_destroyed,
                       {list_columns(places, columns), all.count, all},
                       Setting::ids,
                       unused_column,
                       {{"keep", {}}}});
}

/// Whether the parents stand in a column exactly: they are the ids of that one, and no rule is needed.
bool holds_all_parents(const ColumnMatches& matches) {
  return std::any_of(matches.for_id.begin(), matches.for_id.end(),
                     [](const ColumnMatch& match) { return match.found == match.of; });
}

}  // namespace

std::vector<Question> ask_for_ids(const ExportSurvey& survey, const ColumnChoice& columns,
                                  const PrepareOptions& options) {
  std::vector<Question> questions;
  if (options.ids) return questions;
  ask_for_destroyed(survey, columns, questions);
  const IdProposal& proposal = survey.id_proposal;
  if (!questions.empty() || !is_worth_asking(proposal)) return questions;
  if (has_open_id(columns) || holds_all_parents(survey.matches)) return questions;
  const std::string name = name_of_rules(proposal.rules);
  questions.push_back({QuestionKind::ids_alike,
                       {proposal.without_line, proposal.explained, proposal.rules, name, IdPairList{proposal.examples}},
                       Setting::ids,
                       unused_column,
                       {{name, {}}, {"keep", {}}}});
  return questions;
}

bool leaves_out_thousands_signs(const ExportSurvey& survey, const PrepareOptions& options) {
  const bool is_kept = options.ids && options.ids->bits == no_id_rule;
  return !is_kept && has_thousands_signs(numbers_of(survey, id_column)) &&
         may_have_thousands_signs(numbers_of(survey, sire_column)) &&
         may_have_thousands_signs(numbers_of(survey, dam_column));
}

}  // namespace pedigreewatch
