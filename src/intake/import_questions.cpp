#include "intake/import_questions.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "intake/animal_lines.h"
#include "intake/heading_words.h"
#include "intake/value_words.h"

namespace pedigreewatch {
namespace {

/// One in so many animals is an import at most, where nobody is asked.
constexpr std::int64_t animals_for_an_import = 2;

bool is_text(const CountedText& entry) {
  return !entry.text.empty();
}

/// Whether somebody has said, or is asked, which column it is.
bool is_settled(const ColumnChoice& columns, const PrepareOptions& options) {
  const bool is_wished = std::any_of(options.columns.begin(), options.columns.end(),
                                     [](const ColumnWish& wish) { return wish.code == import_column; });
  return is_wished || std::any_of(columns.questions.begin(), columns.questions.end(),
                                  [](const Question& question) { return question.field == import_column; });
}

bool are_most_imports(const ImportEvidence& evidence) {
  std::int64_t imports = 0;
  for (const CountedText& entry : evidence.imports.texts) imports += means_no_import(entry.text) ? 0 : entry.count;
  return imports * animals_for_an_import > evidence.animals;
}

/// Columns that are not in use and say import in some way.
std::vector<std::size_t> open_imports(const ColumnChoice& columns, const ImportEvidence& evidence) {
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < columns.headings.size() && columns.has_header; ++place) {
    const bool has_texts = place < evidence.column_texts.size() && evidence.column_texts[place] > 0;
    if (has_texts && !holds_field(columns, place) && has_import_in_it(columns.headings[place])) places.push_back(place);
  }
  return places;
}

TextCounts texts_of_column(std::string_view text, char delimiter, const ColumnChoice& columns, std::size_t place) {
  TextCounts counts;
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  while (next_animal(reader, record, columns)) {
    if (place < record.fields.size()) count_text(counts, trimmed(record.fields[place]), record.line);
  }
  return counts;
}

Question question_of(std::span<const std::size_t> places, const TextCounts& texts, const ColumnChoice& columns) {
  const std::string number = std::to_string(places.front() + 1);
  Question question = {QuestionKind::import_unclear,
                       {list_columns(places, columns), list_counted(texts, is_text), number},
                       Setting::column,
                       import_column,
                       {}};
  for (const std::size_t place : places) {
    question.answers.push_back({std::to_string(place + 1), columns.headings[place]});
  }
  question.answers.push_back({"none", {}});
  return question;
}

}  // namespace

std::vector<Question> ask_for_imports(std::string_view text, char delimiter, const ColumnChoice& columns,
                                      const ImportEvidence& evidence, const PrepareOptions& options) {
  if (is_settled(columns, options)) return {};
  const std::optional<std::size_t>& chosen = columns.place[import_column];
  if (chosen) {
    const bool is_sure = !columns.has_header || meaning_of(columns.headings[*chosen]).fit == WordFit::table;
    if (is_sure || !are_most_imports(evidence)) return {};
    return {question_of(std::span(&*chosen, 1), evidence.imports, columns)};
  }
  const std::vector<std::size_t> places = open_imports(columns, evidence);
  if (places.empty()) return {};
  return {question_of(places, texts_of_column(text, delimiter, columns, places.front()), columns)};
}

}  // namespace pedigreewatch
