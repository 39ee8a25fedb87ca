// First the columns that the user names, then those of the header. Every field that stays open becomes a question with
// the option that answers it.

#include "intake/column_choice.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <utility>

#include "intake/column_evidence.h"
#include "intake/content_choice.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::array<Wording, field_count> descriptions = {{
    {"not used", "niet gebruikt"},
    {"id of the animal", "id van het dier"},
    {"id of the father", "id van de vader"},
    {"id of the mother", "id van de moeder"},
    {"name of the animal", "naam van het dier"},
    {"name of the father", "naam van de vader"},
    {"name of the mother", "naam van de moeder"},
    {"sex", "geslacht"},
    {"date of birth", "geboortedatum"},
    {"colour", "kleur"},
    {"breeder", "fokker"},
    {"subpopulation", "subpopulatie"},
    {"import", "import"},
}};

constexpr std::array<FieldCode, 10> written_order = {
    id_column,  name_column,   sex_column,     birthdate_column,     sire_column,
    dam_column, colour_column, breeder_column, subpopulation_column, import_column};

/// A question for the column of a field, answered with the number of one of these columns.
Question ask_for_column(QuestionKind kind, FieldCode code, Values values, const ColumnList& columns) {
  Question question = {kind, std::move(values), Setting::column, code, {}};
  for (const ColumnList::Column& column : columns.columns) {
    question.answers.push_back({std::to_string(column.number), column.heading});
  }
  return question;
}

ColumnList all_columns(const ColumnChoice& choice) {
  std::vector<std::size_t> places(choice.headings.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  return list_columns(places, choice);
}

void obey(const ColumnWish& wish, ColumnChoice& choice) {
  const std::vector<std::size_t> found = find_columns(wish.column, choice);
  const FieldName name = {wish.code};
  if (found.size() == 1) {
    choice.place[wish.code] = found.front();
  } else if (found.empty()) {
    const std::int64_t count = std::ssize(choice.headings);
    choice.questions.push_back(
        ask_for_column(QuestionKind::no_such_column, wish.code, {name, wish.column, count}, all_columns(choice)));
  } else {
    const ColumnList columns = list_columns(found, choice);
    choice.questions.push_back(
        ask_for_column(QuestionKind::several_such_columns, wish.code, {name, wish.column, columns}, columns));
  }
}

/// Asks for a column that the program cannot run without. What may hold it is told once all others are chosen.
void ask_for_missing(FieldCode code, ColumnChoice& choice) {
  const QuestionKind kind = code == sex_column ? QuestionKind::sex_missing : QuestionKind::column_missing;
  Question question = ask_for_column(kind, code, {code, FieldName{code}, ColumnEvidenceList()}, all_columns(choice));
  if (code == sex_column) question.answers.push_back({"none", {}});
  choice.questions.push_back(std::move(question));
}

/// Tells of the columns that are asked for which may be meant.
void add_candidates(const ColumnContents& contents, ColumnChoice& choice) {
  for (Question& question : choice.questions) {
    const bool is_missing = question.kind == QuestionKind::column_missing || question.kind == QuestionKind::sex_missing;
    for (Value& value : question.values) {
      auto* const evidence = std::get_if<ColumnEvidenceList>(&value);
      if (is_missing && evidence != nullptr) *evidence = list_candidates(question.field, contents, choice);
    }
  }
}

bool is_wished(FieldCode code, const PrepareOptions& options) {
  return std::any_of(options.columns.begin(), options.columns.end(),
                     [&](const ColumnWish& wish) { return wish.code == code; });
}

bool leaves_out(FieldCode code, const PrepareOptions& options) {
  return std::any_of(options.columns.begin(), options.columns.end(),
                     [&](const ColumnWish& wish) { return wish.code == code && wish.column == "none"; });
}

/// Fills the fields that the user says nothing about with the columns of the header.
void follow_header(const PrepareOptions& options, const ColumnContents* contents, ColumnChoice& choice) {
  ColumnPlaces best;
  if (choice.has_header) best = recognise_columns(choice.headings, choice.further);
  const ColumnPlaces by_heading = best;
  if (contents != nullptr) narrow_by_content(*contents, choice.further, choice, best);
  for (const FieldCode code : written_order) {
    if (is_wished(code, options)) {
      const bool is_left_out = leaves_out(code, options);
      if (is_left_out && is_required(code) && code != sex_column) ask_for_missing(code, choice);
      continue;
    }
    std::vector<std::size_t>& places = best[code];
    std::erase_if(places, [&](std::size_t column) { return holds_field(choice, column); });
    if (places.size() == 1) {
      choice.place[code] = places.front();
      choice.is_by_content[code] = by_heading[code] != places;
    }
    if (places.size() > 1) ask_which(code, places, contents, choice);
    if (places.empty() && is_required(code)) ask_for_missing(code, choice);
  }
  if (contents != nullptr) add_candidates(*contents, choice);
}

/// A column that the user names by its heading makes the first record a header.
bool names_headings(std::span<const std::string> first_record, const PrepareOptions& options) {
  const auto is_number = [](std::string_view text) {
    return text.find_first_not_of("0123456789") == std::string_view::npos;
  };
  return std::any_of(options.columns.begin(), options.columns.end(), [&](const ColumnWish& wish) {
    return !is_number(wish.column) &&
           std::find(first_record.begin(), first_record.end(), wish.column) != first_record.end();
  });
}

}  // namespace

std::vector<std::size_t> find_columns(const std::string& wish, const ColumnChoice& choice) {
  std::vector<std::size_t> found;
  const auto collect = [&](auto&& is_meant) {
    for (std::size_t i = 0; i < choice.headings.size() && choice.has_header; ++i) {
      if (is_meant(choice.headings[i])) found.push_back(i);
    }
  };
  collect([&](const std::string& heading) { return heading == wish; });
  const std::string word = folded(wish);
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(wish.data(), wish.data() + wish.size(), number);
  const bool is_number = error == std::errc() && end == wish.data() + wish.size();
  if (found.empty() && is_number && number >= 1 && number <= choice.headings.size()) found.push_back(number - 1);
  if (found.empty() && !is_number && !word.empty()) {
    collect([&](const std::string& heading) { return folded(heading) == word; });
  }
  return found;
}

ColumnList list_columns(std::span<const std::size_t> places, const ColumnChoice& choice) {
  ColumnList list;
  for (const std::size_t place : places) list.columns.push_back({choice.headings[place], place + 1});
  return list;
}

bool holds_field(const ColumnChoice& columns, std::size_t place) {
  return std::find(columns.place.begin(), columns.place.end(), place) != columns.place.end();
}

void ask_which(FieldCode code, std::span<const std::size_t> places, const ColumnContents* contents,
               ColumnChoice& choice) {
  const ColumnList columns = list_columns(places, choice);
  const QuestionKind kind = is_required(code) ? QuestionKind::columns_alike : QuestionKind::optional_columns_alike;
  Values values = {code, columns, FieldName{code}};
  if (contents != nullptr) {
    values.emplace_back(list_evidence(places, code, *contents, choice));
  } else {
    values.emplace_back(ColumnEvidenceList());
  }
  Question question = ask_for_column(kind, code, std::move(values), columns);
  if (!is_required(code)) question.answers.push_back({"none", {}});
  choice.questions.push_back(std::move(question));
}

std::string_view description_of(FieldCode code, ToolLanguage language) {
  return words_of(descriptions[code], language);
}

std::span<const FieldCode> written_fields() {
  return written_order;
}

bool is_required(FieldCode code) {
  return code == id_column || code == sire_column || code == dam_column || code == sex_column ||
         code == birthdate_column;
}

bool has_open_id(const ColumnChoice& choice) {
  return std::any_of(choice.questions.begin(), choice.questions.end(), [](const Question& question) {
    return question.kind == QuestionKind::columns_alike && question.field == id_column;
  });
}

bool has_open_column(const ColumnChoice& choice) {
  return std::any_of(choice.questions.begin(), choice.questions.end(), [](const Question& question) {
    return question.kind == QuestionKind::column_missing || question.kind == QuestionKind::sex_missing ||
           question.kind == QuestionKind::columns_alike;
  });
}

ColumnChoice choose_columns(std::span<const std::string> first_record, const PrepareOptions& options, FirstRecord looks,
                            const ColumnContents* contents) {
  ColumnChoice choice;
  const bool is_known = is_header(first_record) || names_headings(first_record, options);
  choice.has_header = options.has_header.value_or(is_known || looks == FirstRecord::header);
  choice.headings.assign(first_record.begin(), first_record.end());
  for (const ColumnWish& wish : options.columns) {
    if (wish.column != "none") obey(wish, choice);
  }
  follow_header(options, contents, choice);
  const bool is_clear = options.has_header || looks == FirstRecord::animal;
  if (!choice.has_header && !is_clear && !choice.questions.empty()) {
    choice.questions.insert(
        choice.questions.begin(),
        {QuestionKind::header_unclear, {}, Setting::header, unused_column, {{"yes", {}}, {"no", {}}}});
  }
  return choice;
}

}  // namespace pedigreewatch
