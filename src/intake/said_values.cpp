// One function a kind of value. Lists were shortened where they were made; what was left out is told as a number.

#include "intake/said_values.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/report_limits.h"
#include "core/report_shape.h"
#include "intake/column_choice.h"
#include "text/system_reasons.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

constexpr Wording nothing = {"none", "geen"};
constexpr Wording empty_text = {"empty", "leeg"};
constexpr Wording line_and_text = {"line {1} {2}", "regel {1} {2}"};
constexpr Wording line_only = {"line {1}", "regel {1}"};
constexpr Wording parent_and_id = {"line {1} {2} -> {3}", "regel {1} {2} -> {3}"};
constexpr Wording and_more = {" and {1} more", " en nog {1}"};
constexpr Wording column_words = {"\"{1}\" (column {2})", "\"{1}\" (kolom {2})"};
constexpr Wording column_match = {"\"{1}\" (column {2}: {3} of {4})", "\"{1}\" (kolom {2}: {3} van {4})"};
constexpr Wording delimiter_tried = {"{1}: {2} of {3} lines have {4} columns",
                                     "{1}: {2} van {3} regels hebben {4} kolommen"};

constexpr Wording columns_that_fit = {" What stands in the columns that it may be:{1}",
                                      " Wat er staat in de kolommen die het kunnen zijn:{1}"};
constexpr Wording evidence_words = {
    "\"{1}\" (column {2}): {3} texts, {4} different, of the first {5} are dates: {6}",
    "\"{1}\" (kolom {2}): {3} teksten, {4} verschillende, van de eerste {5} zijn datum: {6}"};
constexpr Wording evidence_examples = {"; such as {1}", "; zoals {1}"};
constexpr Wording evidence_link = {"; of {1} texts of \"{2}\" (column {3}) stand in \"{4}\" (column {5}): {6}",
                                   "; van {1} teksten van \"{2}\" (kolom {3}) staan in \"{4}\" (kolom {5}): {6}"};

constexpr Wording evidence_sexes = {
    "; if it is the id of the animals, {1} of {2} parents whose sex is known are of the wrong sex",
    "; als het de id van de dieren is, zijn {1} van de {2} ouders met een bekend geslacht van het verkeerde geslacht"};

constexpr Wording all_names = {"all {1} of them: {2}", "alle {1}: {2}"};
constexpr Wording names_from_size = {"the {1} with at least {3} animals, all others together as one: {2}",
                                     "de {1} met minstens {3} dieren, alle andere samen als \xC3\xA9\xC3\xA9n: {2}"};
constexpr Wording no_names = {"none, the column is left out: {2}", "geen, de kolom wordt weggelaten: {2}"};
constexpr Wording report_of_bytes = {"a report of about {1}", "een rapport van ongeveer {1}"};
constexpr Wording small_report = {"a report of less than 1 MB", "een rapport van minder dan 1 MB"};
constexpr Wording large_report = {"a report of about {1}; more than 1000 MB are not made",
                                  "een rapport van ongeveer {1}; meer dan 1000 MB wordt niet gemaakt"};
constexpr Wording long_lines = {"a report with lines of {1}; more than 1 MB are not made",
                                "een rapport met regels van {1}; meer dan 1 MB wordt niet gemaakt"};

constexpr std::array<std::pair<char, Wording>, 5> delimiter_names = {{{';', {"; (semicolon)", "; (puntkomma)"}},
                                                                      {',', {", (comma)", ", (komma)"}},
                                                                      {'\t', {"tab", "tab"}},
                                                                      {'|', {"| (bar)", "| (streep)"}},
                                                                      {' ', {"blank", "spatie"}}}};

std::string more_text(std::int64_t count, ToolLanguage language) {
  return count > 0 ? phrase(and_more, language, {std::to_string(count)}) : std::string();
}

/// Puts the texts of the entries of a list together.
template <typename List, typename TextOfEntry>
std::string joined(const List& list, std::string_view between, TextOfEntry&& text_of_entry) {
  std::string text;
  for (const auto& entry : list) {
    if (!text.empty()) text += between;
    text += text_of_entry(entry);
  }
  return text;
}

/// The text of a value of each type.
struct TextMaker {
  ToolLanguage language;

  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(const std::string& text) const { return shown(text); }
  std::string operator()(FieldCode code) const { return std::string(description_of(code, language)); }
  std::string operator()(const FieldName& field) const { return std::string(option_name_of(field.code)); }
  std::string operator()(DateOrder order) const { return layout_text(order, language == ToolLanguage::dutch); }
  std::string operator()(Encoding encoding) const { return std::string(name_of(encoding)); }
  std::string operator()(Delimiter delimiter) const { return name_of_delimiter(delimiter.character, language); }

  std::string operator()(const ColumnList& list) const {
    return joined(list.columns, ", ", [&](const ColumnList::Column& column) {
      return phrase(column_words, language, {shown(column.heading), std::to_string(column.number)});
    });
  }

  std::string operator()(const CountedList& list) const {
    if (list.texts.empty()) return std::string(words_of(nothing, language));
    const auto words = [&](const CountedText& entry) {
      const std::string text = entry.text.empty() ? std::string(words_of(empty_text, language)) : in_quotes(entry.text);
      return text + " (" + std::to_string(entry.count) + ")";
    };
    return joined(list.texts, ", ", words) + more_text(list.more, language);
  }

  std::string operator()(const NotedTexts& noted) const {
    const auto words = [&](const NotedText& entry) {
      const std::string line = std::to_string(entry.line);
      return entry.text.empty() ? phrase(line_only, language, {line})
                                : phrase(line_and_text, language, {line, in_quotes(entry.text)});
    };
    const std::int64_t more = noted.count - std::ssize(noted.first);
    return joined(noted.first, ", ", words) + more_text(more, language);
  }

  std::string operator()(const MatchList& list) const {
    if (list.matches.empty()) return std::string(words_of(nothing, language));
    return joined(list.matches, ", ", [&](const MatchList::Match& match) {
      return phrase(
          column_match, language,
          {shown(match.heading), std::to_string(match.number), std::to_string(match.found), std::to_string(match.of)});
    });
  }

  std::string operator()(const LetterList& list) const {
    const auto words = [](const ReplacedLetter& entry) {
      std::string letter;
      append_letter(letter, entry.letter);
      return shown(letter) + " -> " + std::string(entry.written) + " (" + std::to_string(entry.count) + ")";
    };
    return joined(list.letters, ", ", words) + more_text(list.more, language);
  }

  std::string operator()(const TriedDelimiters& list) const {
    return joined(list.tried, "; ", [&](const DelimiterEvidence& evidence) {
      return phrase(delimiter_tried, language,
                    {name_of_delimiter(evidence.delimiter, language), std::to_string(evidence.agreeing_count),
                     std::to_string(evidence.record_count), std::to_string(evidence.field_count)});
    });
  }

  std::string operator()(const WordList& list) const {
    return joined(list.words, ", ", [](std::string_view word) { return std::string(word); });
  }

  std::string operator()(const NotedCells& noted) const {
    const std::int64_t more = noted.count - std::ssize(noted.first);
    return joined(noted.first, ", ", [](const std::string& place) { return shown(place); }) + more_text(more, language);
  }

  std::string operator()(IdRules rules) const { return description_of_rules(rules, language); }

  std::string operator()(const IdPairList& list) const {
    return joined(list.pairs, ", ", [&](const IdPair& pair) {
      return phrase(parent_and_id, language, {std::to_string(pair.line), in_quotes(pair.parent), in_quotes(pair.id)});
    });
  }

  std::string operator()(SystemReason reason) const { return reason_text(reason.error, language); }

  std::string operator()(const WorkbookProblem& problem) const { return message_of(problem, language); }

  std::string operator()(const NameChoiceList& list) const {
    return joined(list.choices, "; ", [&](const NameChoice& choice) { return description_of(choice, language); });
  }

  std::string operator()(const ColumnEvidenceList& list) const {
    const auto words = [&](const ColumnEvidence& column) { return description_of(column, language); };
    return list.columns.empty() ? std::string() : introduced(list, " " + joined(list.columns, " | ", words), language);
  }

  std::string operator()(const EncodingReadings& list) const {
    return joined(list.readings, "; ", [](const EncodingReading& reading) {
      return std::string(name_of(encoding_of(reading.encoding))) + ": " +
             joined(reading.examples, ", ", [](const std::string& word) { return in_quotes(word); });
    });
  }
};

std::string size_of_report(const NameChoice& choice, ToolLanguage language) {
  constexpr std::int64_t mega = 1'000'000;
  const auto words = [&](const Wording& wording, std::int64_t bytes) {
    return phrase(wording, language, {in_megabytes(bytes, language == ToolLanguage::dutch ? ',' : '.')});
  };
  if (choice.longest_line > line_byte_limit) return words(long_lines, choice.longest_line);
  if (choice.bytes > report_byte_limit) return words(large_report, choice.bytes);
  return words(choice.bytes < mega ? small_report : report_of_bytes, choice.bytes);
}

}  // namespace

std::string description_of(const NameChoice& choice, ToolLanguage language) {
  const Wording& wording = choice.least_animals > 0 ? names_from_size : choice.names > 0 ? all_names : no_names;
  return phrase(wording, language,
                {std::to_string(choice.names), size_of_report(choice, language), std::to_string(choice.least_animals)});
}

std::string introduced(const ColumnEvidenceList& list, const std::string& columns, ToolLanguage language) {
  return phrase(columns_that_fit, language, {columns + more_text(static_cast<std::int64_t>(list.more), language)});
}

std::string description_of(const ColumnEvidence& column, ToolLanguage language) {
  std::string text =
      phrase(evidence_words, language,
             {shown(column.heading), std::to_string(column.number), std::to_string(column.texts),
              std::to_string(column.different), std::to_string(column.judged), std::to_string(column.dates)});
  const auto quoted = [](const std::string& example) { return in_quotes(example); };
  if (!column.examples.empty()) text += phrase(evidence_examples, language, {joined(column.examples, ", ", quoted)});
  for (const ColumnEvidence::Link& link : column.links) {
    text += phrase(evidence_link, language,
                   {std::to_string(link.of), shown(link.heading), std::to_string(link.number),
                    shown(link.other_heading), std::to_string(link.other_number), std::to_string(link.found)});
  }
  if (column.parents_of_known_sex > 0) {
    text += phrase(evidence_sexes, language,
                   {std::to_string(column.parents_of_wrong_sex), std::to_string(column.parents_of_known_sex)});
  }
  return text;
}

void say(TextOutput& console, const Wording& wording, ToolLanguage language,
         std::initializer_list<std::string_view> values) {
  append(console, phrase(wording, language, values));
  end_line(console);
}

std::string text_of(const Value& value, ToolLanguage language) {
  return std::visit(TextMaker{language}, value);
}

std::vector<std::string> texts_of(const Values& values, ToolLanguage language) {
  std::vector<std::string> texts;
  for (const Value& value : values) texts.push_back(text_of(value, language));
  return texts;
}

std::string phrase_of(const Wording& wording, ToolLanguage language, std::span<const std::string> texts) {
  const std::vector<std::string_view> values(texts.begin(), texts.end());
  return phrase(wording, language, values);
}

std::string name_of_delimiter(char delimiter, ToolLanguage language) {
  for (const auto& [known, name] : delimiter_names) {
    if (known == delimiter) return std::string(words_of(name, language));
  }
  return shown(std::string_view(&delimiter, 1));
}

}  // namespace pedigreewatch
