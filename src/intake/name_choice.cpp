// Names are compared as the data file will have them: cut to their width, in its letters.

#include "intake/name_choice.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "core/report_limits.h"
#include "core/report_shape.h"
#include "intake/year_span.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view at_least = "at-least-";

/// More are listed only when the user says so; more than the limit never: the program refuses so many. Of
/// subpopulations the report is too large long before.
constexpr std::size_t most_subpopulations = 30;
constexpr std::size_t most_colours = 100, colour_limit = 50000;

/// The report adds these colours itself; in the steer file they would stand twice.
constexpr auto colours_of_report = std::to_array<std::string_view>({"Onbekend", "niet erkend"});

/// A name as it is written, with its animals.
struct WrittenName {
  std::string name;
  std::int64_t animals = 0;
};

/// Most animals first.
std::vector<WrittenName> written_names(const TextCounts& counts, FieldCode code) {
  std::vector<WrittenName> names;
  std::unordered_map<std::string, std::size_t> places;
  for (const CountedText* entry : by_frequency(counts)) {
    std::string name = in_windows_1252(entry->text, width_of(code));
    const auto [found, is_new] = places.try_emplace(name, names.size());
    if (is_new) names.push_back({std::move(name), 0});
    names[found->second].animals += entry->count;
  }
  std::stable_sort(names.begin(), names.end(),
                   [](const WrittenName& a, const WrittenName& b) { return a.animals > b.animals; });
  return names;
}

std::int64_t names_with(const std::vector<WrittenName>& names, std::int64_t least_animals) {
  const auto has_fewer = [&](const WrittenName& name) { return name.animals < least_animals; };
  return std::find_if(names.begin(), names.end(), has_fewer) - names.begin();
}

/// The first round number of animals that few enough names have to be listed, the others being one more.
std::int64_t least_animals_to_offer(const std::vector<WrittenName>& names) {
  const std::int64_t most = names.empty() ? 0 : names.front().animals;
  for (std::int64_t tens = 1; tens <= most; tens *= 10) {
    for (const std::int64_t least : {tens, 2 * tens, 5 * tens}) {
      const std::int64_t listed = names_with(names, least);
      if (listed > 0 && listed < static_cast<std::int64_t>(most_subpopulations)) return least;
    }
  }
  return 0;
}

/// What is known of the report before its data file is there. The ages of the parents are not: they are taken to be as
/// high as `oldest`.
ReportBytes bytes_with(std::int64_t names, std::int64_t oldest, const ExportSurvey& survey, const PreparePlan& plan) {
  constexpr std::int64_t listed_breeders = std::int64_t{most_top_breeders} + 1, added_colours = 1;
  const auto is_used = [&](FieldCode code) { return plan.columns.place[code].has_value(); };
  const BirthSpan years = years_of_dates(survey.dates, plan.dates);
  ReportShape shape;
  shape.names = names;
  shape.years = std::max<std::int64_t>(std::int64_t{years.last} - years.first + 1, 0);
  if (is_used(colour_column)) {
    shape.colours = static_cast<std::int64_t>(std::min(survey.colours.texts.size(), most_colours)) + added_colours;
  }
  if (is_used(breeder_column)) shape.breeders = listed_breeders;
  shape.has_imports = is_used(import_column);
  const ParentAges ages = {oldest, oldest};
  ReportBytes bytes = bytes_without_blocks(shape, ages);
  for (std::int64_t k = 1; names > 1 && k <= names; ++k) add_block(bytes, shape, ages);
  return bytes;
}

/// Whether no report can be made with so many, however young its parents are.
bool are_too_many(std::int64_t names, const ExportSurvey& survey, const PreparePlan& plan) {
  return is_too_large(bytes_with(names, 0, survey, plan));
}

/// In whole years, of the parents of which nothing is known yet.
constexpr std::int64_t usual_oldest = 15;

/// What can be asked for instead: all names, those with many animals, none.
NameChoiceList choices_among(const std::vector<WrittenName>& names, const ExportSurvey& survey,
                             const PreparePlan& plan) {
  NameChoiceList list;
  const auto offer = [&](std::string value, std::int64_t listed, std::int64_t least) {
    const ReportBytes bytes = bytes_with(listed + (least > 0 ? 1 : 0), usual_oldest, survey, plan);
    list.choices.push_back({std::move(value), listed, least, bytes.all, bytes.longest_line});
  };
  offer("all", std::ssize(names), 0);
  const std::int64_t least = least_animals_to_offer(names);
  if (least > 0) offer(answer_for_least(least), names_with(names, least), least);
  offer("none", 0, 0);
  return list;
}

Question question_with(QuestionKind kind, std::size_t names, NameChoiceList list, const PreparePlan& plan) {
  Question question = {kind, {}, Setting::subpopulations, unused_column, {}};
  for (const NameChoice& choice : list.choices) question.answers.push_back({choice.value, {}});
  question.values = {plan.columns.headings[*plan.columns.place[subpopulation_column]], static_cast<std::int64_t>(names),
                     std::move(list)};
  return question;
}

void ask_for_subpopulations(const std::vector<WrittenName>& names, const ExportSurvey& survey, PreparePlan& plan) {
  plan.questions.push_back(question_with(QuestionKind::too_many_subpopulations, survey.subpopulations.texts.size(),
                                         choices_among(names, survey, plan), plan));
}

/// Of names that the user lists: the report compares each two of them, also where no animal has them.
void ask_for_fewer_names(std::size_t listed, const ExportSurvey& survey, PreparePlan& plan) {
  const std::vector<WrittenName> names = written_names(survey.subpopulations, subpopulation_column);
  Question question = question_with(QuestionKind::too_many_listed, listed, choices_among(names, survey, plan), plan);
  const ReportBytes bytes = bytes_with(static_cast<std::int64_t>(listed), usual_oldest, survey, plan);
  const char decimal_sign = plan.language == ToolLanguage::dutch ? ',' : '.';
  question.values.emplace_back(in_megabytes(bytes.all, decimal_sign));
  question.values.emplace_back(in_megabytes(bytes.longest_line, decimal_sign));
  plan.questions.push_back(std::move(question));
}

/// A name for all that are not listed; "Others" beside "others" would be taken for the same.
std::string name_of_others(const std::vector<std::string>& listed, ToolLanguage language) {
  const std::string word(words_of(Wording{"others", "overige"}, language));
  std::string name = word;
  const auto is_like = [&](const std::string& other) { return folded(other) == folded(name); };
  for (int number = 2; std::any_of(listed.begin(), listed.end(), is_like); ++number) {
    name = word + " " + std::to_string(number);
  }
  return name;
}

/// Those of the user as the steer file has them, each once.
std::vector<std::string> listed_once(const std::vector<std::string>& wished, FieldCode code) {
  std::vector<std::string> names;
  std::unordered_set<std::string> listed;
  for (const std::string& wish : wished) {
    std::string name = in_windows_1252(wish, width_of(code));
    if (listed.insert(name).second) names.push_back(std::move(name));
  }
  return names;
}

std::vector<std::string> first_names(std::vector<WrittenName> written, std::int64_t count) {
  std::vector<std::string> names;
  written.resize(static_cast<std::size_t>(count));
  names.reserve(written.size());
  for (WrittenName& name : written) names.push_back(std::move(name.name));
  return names;
}

/// False when the column is not used, or left out.
bool has_names(FieldCode code, const NameWish& wish, PreparePlan& plan) {
  auto& place = plan.columns.place[code];
  if (wish.leaves_out) place.reset();
  return place.has_value();
}

}  // namespace

std::string in_windows_1252(std::string_view text, std::size_t width) {
  LetterCounts ignored;
  std::string bytes;
  append_windows_1252(bytes, text, ignored);
  bytes.resize(std::min(bytes.size(), width));
  while (!bytes.empty() && bytes.back() == ' ') bytes.pop_back();
  return bytes;
}

std::optional<std::int64_t> least_animals_named(std::string_view text) {
  if (!text.starts_with(at_least)) return std::nullopt;
  text.remove_prefix(at_least.size());
  std::int32_t least = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), least);
  if (error != std::errc() || end != text.data() + text.size() || least < 1) return std::nullopt;
  return least;
}

bool means_least_animals(std::string_view text) {
  constexpr std::string_view words = "at least";
  const bool begins_so = text.starts_with(words) || text.starts_with(at_least.substr(0, words.size()));
  return begins_so && text.find_first_of(",;") == std::string_view::npos;
}

std::string answer_for_least(std::int64_t least_animals) {
  return std::string(at_least) + std::to_string(least_animals);
}

void choose_subpopulations(const ExportSurvey& survey, const NameWish& wish, PreparePlan& plan) {
  if (!has_names(subpopulation_column, wish, plan)) return;
  if (!wish.names.empty()) {
    plan.subpopulations = listed_once(wish.names, subpopulation_column);
    const std::size_t listed = plan.subpopulations.size();
    if (are_too_many(static_cast<std::int64_t>(listed), survey, plan)) ask_for_fewer_names(listed, survey, plan);
    return;
  }
  std::vector<WrittenName> names = written_names(survey.subpopulations, subpopulation_column);
  const std::int64_t all = std::ssize(names);
  const std::int64_t listed = names_with(names, wish.least_animals);
  const bool has_others = listed < all;
  const bool is_asked =
      wish.is_given ? are_too_many(listed + (has_others ? 1 : 0), survey, plan) : names.size() > most_subpopulations;
  if (is_asked) return ask_for_subpopulations(names, survey, plan);
  plan.subpopulations = first_names(std::move(names), listed);
  if (!has_others) return;
  plan.least_animals = wish.least_animals;
  plan.own_subpopulations.insert(plan.subpopulations.begin(), plan.subpopulations.end());
  plan.joined_subpopulation = name_of_others(plan.subpopulations, plan.language);
  plan.subpopulations.push_back(plan.joined_subpopulation);
}

void choose_colours(const ExportSurvey& survey, const NameWish& wish, PreparePlan& plan) {
  if (!has_names(colour_column, wish, plan)) return;
  std::vector<WrittenName> names;
  if (wish.names.empty()) names = written_names(survey.colours, colour_column);
  if (names.size() > (wish.is_given ? colour_limit : most_colours)) {
    plan.questions.push_back(
        {QuestionKind::too_many_colours,
         {plan.columns.headings[*plan.columns.place[colour_column]], std::ssize(survey.colours.texts)},
         Setting::colours,
         unused_column,
         {{"all", {}}, {"none", {}}}});
    return;
  }
  const std::int64_t count = std::ssize(names);
  plan.colours = wish.names.empty() ? first_names(std::move(names), count) : listed_once(wish.names, colour_column);
  std::erase_if(plan.colours, [](const std::string& name) { return is_among(name, colours_of_report); });
}

}  // namespace pedigreewatch
