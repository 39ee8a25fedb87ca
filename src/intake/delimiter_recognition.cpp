// Cuts the first records with each delimiter and compares how well they agree.

#include "intake/delimiter_recognition.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "intake/column_recognition.h"
#include "intake/export_records.h"
#include "intake/table_start.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::int64_t sample_size = 1000;
constexpr std::size_t fewest_fields_of_a_table = 5;  // id, father, mother, sex, date of birth
constexpr std::size_t sample_bytes = std::size_t{4} << 20;

DelimiterEvidence try_delimiter(std::string_view text, char delimiter) {
  DelimiterEvidence evidence = {.delimiter = delimiter};
  RecordReader reader = read_records(text.substr(0, sample_bytes), delimiter);
  ExportRecord record;
  std::map<std::size_t, std::int64_t> counts;
  std::int64_t runaway_line = 0;
  while (evidence.record_count < sample_size && next_record(reader, record)) {
    if (record.is_unterminated) {
      if (text.size() <= sample_bytes) evidence.unterminated_line = runaway_line > 0 ? runaway_line : record.line;
      break;
    }
    if (runs_away(record) && runaway_line == 0) runaway_line = record.line;
    if (record.fields.size() == 1 && trimmed(record.fields.front()).empty()) continue;  // a blank line
    // The header is the first record, or stands below titles.
    if (evidence.record_count <= most_lines_above) {
      evidence.known_words = std::max(evidence.known_words, count_known_words(record.fields));
    }
    ++evidence.record_count;
    ++counts[record.fields.size()];
  }
  for (const auto& [fields, count] : counts) {
    if (count > evidence.agreeing_count) evidence.agreeing_count = count, evidence.field_count = fields;
  }
  return evidence;
}

/// Whether `a` is so much better than `b` that nobody would ask.
bool is_clearly_better(const DelimiterEvidence& a, const DelimiterEvidence& b) {
  if (a.known_words >= 2 && a.known_words > b.known_words) return true;
  // Decimal commas cut every line in two; a table needs more.
  const auto is_table = [](const DelimiterEvidence& e) { return fits(e) && e.field_count >= fewest_fields_of_a_table; };
  return (fits(a) && !fits(b)) || (is_table(a) && !is_table(b));
}

}  // namespace

bool fits(const DelimiterEvidence& evidence) {
  constexpr std::int64_t needed_percent = 80;
  return evidence.field_count >= 2 && evidence.agreeing_count * 100 >= evidence.record_count * needed_percent;
}

DelimiterChoice recognise_delimiter(std::string_view text) {
  DelimiterChoice choice;
  constexpr std::string_view candidates = ";,\t|";
  for (std::size_t i = 0; i < candidates.size(); ++i) choice.evidence[i] = try_delimiter(text, candidates[i]);
  const std::optional<char> told = delimiter_told(text);
  const auto order = [&](const DelimiterEvidence& e) {
    const bool is_table = fits(e) && e.field_count >= fewest_fields_of_a_table;
    return std::tuple(e.delimiter == told, e.known_words >= 2 ? e.known_words : 0, is_table, fits(e));
  };
  const auto* const best = std::max_element(choice.evidence.begin(), choice.evidence.end(),
                                            [&](const auto& a, const auto& b) { return order(a) < order(b); });
  const bool is_clear = (best->delimiter == told && best->field_count >= 2) ||
                        std::all_of(choice.evidence.begin(), choice.evidence.end(), [&](const auto& e) {
                          return e.delimiter == best->delimiter || is_clearly_better(*best, e);
                        });
  if (is_clear) choice.delimiter = best->delimiter;
  return choice;
}

std::optional<char> delimiter_named(std::string_view name) {
  if (name.size() == 1 && name != "\"" && name != "\n" && name != "\r") return name.front();
  constexpr std::array<std::pair<std::string_view, char>, 10> names = {{{"semicolon", ';'},
                                                                        {"puntkomma", ';'},
                                                                        {"comma", ','},
                                                                        {"komma", ','},
                                                                        {"tab", '\t'},
                                                                        {"bar", '|'},
                                                                        {"pipe", '|'},
                                                                        {"streep", '|'},
                                                                        {"blank", ' '},
                                                                        {"spatie", ' '}}};
  const std::string word = name == "\\t" ? std::string("tab") : folded(name);
  for (const auto& [known, delimiter] : names) {
    if (known == word) return delimiter;
  }
  return std::nullopt;
}

}  // namespace pedigreewatch
