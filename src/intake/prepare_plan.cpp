// One decision after the other: delimiter, dates, sexes, unknown parents, names of subpopulations and colours, species,
// names.

#include "intake/prepare_plan.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

#include "intake/column_matches.h"
#include "intake/damaged_numbers.h"
#include "intake/date_questions.h"
#include "intake/id_questions.h"
#include "intake/name_choice.h"
#include "intake/sex_choice.h"
#include "intake/species_choice.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

/// The first character that occurs nowhere in the texts.
void choose_delimiter(const ExportSurvey& survey, PreparePlan& plan) {
  constexpr std::string_view candidates = ";|,\t~^#!$%&*+=@";
  for (const char candidate : candidates) {
    if (survey.occurs[static_cast<unsigned char>(candidate)]) continue;
    plan.delimiter = candidate;
    return;
  }
  plan.questions.push_back({QuestionKind::no_delimiter_left, {}, Setting::none, unused_column, {}});
}

void choose_dates(const ExportSurvey& survey, const PrepareOptions& options, PreparePlan& plan) {
  plan.dates = plan_dates(survey.dates, {options.dates, options.serials, options.century, options.this_year});
  if (!plan.columns.place[birthdate_column]) return;
  for (Question& question : ask_for_dates(survey, plan.dates, plan.columns, options)) {
    plan.questions.push_back(std::move(question));
  }
}

/// The program itself takes these for unknown, even if an animal has such an id.
bool is_always_unknown(std::string_view text) {
  return text.empty() || text == "0" || text == "unknown" || text == "Unknown";
}

/// A word for "unknown" that is the id of exactly one animal is that animal; several times it means a missing id.
void choose_unknown_parents(const ExportSurvey& survey, const PrepareOptions& options, PreparePlan& plan) {
  for (const CountedText& parent : survey.unknown_parents.texts) {
    const std::size_t place = find_counted(survey.unknown_ids, parent.text);
    const bool is_animal = place != std::string_view::npos && survey.unknown_ids.texts[place].count == 1;
    if (!is_animal || is_always_unknown(parent.text)) plan.unknown_parents.insert(parent.text);
  }
  plan.unknown_parents.insert(options.unknown.begin(), options.unknown.end());
}

/// Asks for parents that may be none, but for those that the user has called unknown or known: for those that stand for
/// what the line above says, or for all others.
void ask_for_doubtful_parents(const ExportSurvey& survey, const PrepareOptions& options, bool are_repeated,
                              PreparePlan& plan) {
  if (is_among("all", options.known)) return;
  CountedList list;
  const QuestionKind kind = are_repeated ? QuestionKind::parents_repeated : QuestionKind::parents_doubtful;
  Question question = {kind, {}, Setting::unknown, unused_column, {}};
  for (const DoubtfulParent& parent : survey.doubtful_parents) {
    if (repeats_line_above(parent.text) != are_repeated) continue;
    if (is_among(parent.text, options.unknown) || is_among(parent.text, options.known)) continue;
    if (list.texts.size() == most_listed_texts) {
      ++list.more;
      continue;
    }
    list.texts.push_back({parent.text, parent.young, 0});
    question.answers.push_back({parent.text, parent.text});
  }
  if (list.texts.empty()) return;
  question.answers.push_back({"all", {}, Setting::known});
  question.values = {std::move(list)};
  plan.questions.push_back(std::move(question));
}

/// The sexes, and whether the parents are of the right one. Where they are not their columns are the cause, or that of
/// the ids; what the sexes mean shows once these are right.
void choose_sexes_of_plan(const ExportSurvey& survey, const ColumnChoice& columns, const PrepareOptions& options,
                          PreparePlan& plan) {
  const std::size_t asked_before = plan.questions.size();
  const bool is_open = has_open_id(columns);
  if (!is_open) ask_for_parents_of_wrong_sex(survey, columns, options, plan.questions);
  const bool are_exchanged = plan.questions.size() > asked_before;
  plan.sexes = choose_sexes(survey, options, plan.questions);
  if (!is_open && !are_exchanged) return;
  std::erase_if(plan.questions,
                [](const Question& question) { return question.kind == QuestionKind::sexes_contradict; });
}

void choose_species(const ExportSurvey& survey, const PrepareOptions& options, PreparePlan& plan) {
  const bool is_wished = !options.species.empty();
  plan.species =
      is_wished ? species_named(options.species, plan.language) : species_of_sexes(survey.sexes, plan.language);
  if (!plan.species.empty()) return;
  const WordList all = {list_species(plan.language)};
  Question question = {QuestionKind::species_unclear, {all}, Setting::species, unused_column, {}};
  if (is_wished) question = {QuestionKind::species_wrong, {options.species, all}, Setting::species, unused_column, {}};
  for (const std::string_view word : all.words) question.answers.push_back({std::string(word), std::string(word)});
  plan.questions.push_back(std::move(question));
}

/// Names that Windows keeps for its devices.
bool is_device_name(std::string_view stem) {
  constexpr auto devices = std::to_array<std::string_view>({"con", "prn", "aux", "nul"});
  const std::string word = folded(stem);
  if (stem.size() != word.size()) return false;
  const bool is_port =
      word.size() == 4 && (word.starts_with("com") || word.starts_with("lpt")) && word[3] >= '0' && word[3] <= '9';
  return is_port || is_among(word, devices);
}

void add_questions(const std::vector<Question>& asked, PreparePlan& plan) {
  plan.questions.insert(plan.questions.end(), asked.begin(), asked.end());
}

}  // namespace

std::string_view planned_id(const PreparePlan& plan, std::string_view text, std::string& rewritten) {
  if (!plan.parent_ids.empty()) {
    const auto found = plan.parent_ids.find(std::string(text));
    if (found != plan.parent_ids.end()) text = found->second;
  }
  if (!plan.leaves_out_thousands_signs || !is_of_thousands(text)) return text;
  rewritten = without_thousands_signs(text);
  return rewritten;
}

bool is_unknown_parent(const PreparePlan& plan, std::string_view text) {
  if (text.empty()) return true;
  return plan.unknown_parents.find(std::string(text)) != plan.unknown_parents.end();
}

std::string_view base_name(std::string_view file_name) {
  const std::size_t folder_end = file_name.find_last_of("/\\");
  if (folder_end != std::string_view::npos) file_name.remove_prefix(folder_end + 1);
  const std::size_t ending = file_name.rfind('.');
  return ending == std::string_view::npos || ending == 0 ? file_name : file_name.substr(0, ending);
}

std::string stem_of(std::string_view file_name) {
  constexpr std::size_t longest = 26;  // with ".txt" the 30 characters of the steer file
  LetterCounts ignored;
  std::string written, stem;
  append_windows_1252(written, base_name(file_name), ignored);
  for (const char byte : written) {
    const bool is_letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
    if (is_letter || (byte >= '0' && byte <= '9') || byte == '-' || byte == '_') stem.push_back(byte);
  }
  stem.resize(std::min(stem.size(), longest));
  while (stem.starts_with('-')) stem.erase(0, 1);
  if (is_device_name(stem)) stem += "_data";
  return stem.empty() ? "herd" : stem;
}

char female_letter(ToolLanguage language) {
  return language == ToolLanguage::english ? 'f' : 'v';
}

PreparePlan plan_preparation(const ExportSurvey& survey, const ColumnChoice& columns, const PrepareOptions& options) {
  constexpr std::size_t population_name_width = 40;
  PreparePlan plan;
  plan.language = options.language;
  plan.columns = columns;
  plan.questions = columns.questions;
  add_questions(ask_for_ids(survey, columns, options), plan);
  const bool are_ids_open = plan.questions.size() > columns.questions.size();
  // Parents that lack a line only because they are written otherwise tell nothing about the columns.
  if (!are_ids_open) add_questions(ask_for_linked_columns(survey, columns, options), plan);
  plan.parent_ids = survey.id_substitutes.ids;
  plan.leaves_out_thousands_signs = leaves_out_thousands_signs(survey, options);
  // As long as most parents lack a line, nobody knows which of them may be none.
  if (plan.questions.size() == columns.questions.size()) {
    ask_for_doubtful_parents(survey, options, false, plan);
    ask_for_doubtful_parents(survey, options, true, plan);
  }
  choose_delimiter(survey, plan);
  choose_dates(survey, options, plan);
  choose_sexes_of_plan(survey, columns, options, plan);
  plan.concluded_sexes = survey.concluded_sexes;
  choose_unknown_parents(survey, options, plan);
  // Which columns hold what has to be known first.
  if (columns.questions.empty()) {
    plan.availability = plan_availability(survey.availability, survey.sexes, columns, options, plan.questions);
  }
  add_questions(survey.import_questions, plan);
  choose_subpopulations(survey, options.subpopulations, plan);
  choose_colours(survey, options.colours, plan);
  choose_species(survey, options, plan);
  const std::string export_name = decode(options.export_name, Encoding::utf_8).text;
  plan.stem = stem_of(export_name);
  const std::string_view name =
      options.population_name.empty() ? base_name(export_name) : std::string_view(options.population_name);
  plan.population_name = in_windows_1252(name, population_name_width);
  return plan;
}

}  // namespace pedigreewatch
