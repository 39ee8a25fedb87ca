// The start of the file first (encoding, line ends), then the delimiter, then the headings one by one: as the program
// takes them, and as they are meant.

#include "checks/reading_plan.h"

#include <algorithm>
#include <span>
#include <vector>

#include "checks/readable_text.h"
#include "intake/delimiter_recognition.h"
#include "intake/said_values.h"
#include "pedigree/data_columns.h"
#include "text/encoding.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::array<Wording, field_count> field_headings = {{{"", ""},
                                                              {"id", "id"},
                                                              {"sire", "vader"},
                                                              {"dam", "moeder"},
                                                              {"name", "naam"},
                                                              {"name_sire", "naam_vader"},
                                                              {"name_dam", "naam_moeder"},
                                                              {"sex", "sekse"},
                                                              {"birthdate", "geboortedatum"},
                                                              {"colour", "kleur"},
                                                              {"breeder", "fokker"},
                                                              {"subpopulation", "subpopulatie"},
                                                              {"Import", "Import"}}};

constexpr auto required_fields =
    std::to_array<FieldCode>({id_column, sire_column, dam_column, sex_column, birthdate_column});

bool stops_when_missing(FieldCode code) {
  return std::find(required_fields.begin(), required_fields.end(), code) != required_fields.end();
}

std::vector<std::string_view> cut_fields(std::string_view line, char delimiter) {
  std::vector<std::string_view> fields;
  for (std::size_t begin = 0; begin <= line.size();) {
    const std::size_t end = std::min(line.find(delimiter, begin), line.size());
    fields.push_back(line.substr(begin, end - begin));
    begin = end + 1;
  }
  return fields;
}

/// What makes the whole file unreadable. Yields false when there is no sense in going on.
bool check_start(LineReader& data, Findings& findings) {
  const std::string_view start = upcoming_bytes(data);
  constexpr std::size_t telling_bytes = 4096;
  const std::string_view head = start.substr(0, telling_bytes);
  if (start.empty()) {
    add(findings, {.code = FindingCode::empty_file});
    return false;
  }
  const std::string_view kind = known_binary_kind(head);
  if (!kind.empty()) {
    add(findings, {.code = FindingCode::binary_file, .text = keep(findings, kind)});
    return false;
  }
  const std::optional<Encoding> encoding = recognise_encoding(head).encoding;
  if (encoding == Encoding::utf_16_le || encoding == Encoding::utf_16_be) {
    add(findings, {.code = FindingCode::utf_16});
    return false;
  }
  const std::size_t first_return = start.find('\r');
  const bool has_lone_return = first_return != std::string_view::npos && first_return + 1 < start.size();
  if (has_lone_return && start.find('\n') == std::string_view::npos) {
    add(findings, {.code = FindingCode::line_ends});
    return false;
  }
  return true;
}

/// The delimiter with which the first line has headings, when it has hardly any with the one of the steer file.
void check_delimiter(std::string_view first_line, ReadingPlan& plan, const CheckSettings& settings,
                     Findings& findings) {
  const auto known_with = [&](char delimiter) {
    std::string text;
    std::vector<std::string> words;
    std::vector<std::string_view> views;
    for (const std::string_view field : cut_fields(first_line, delimiter)) words.push_back(readable(field));
    views.assign(words.begin(), words.end());
    return count_known_words(views);
  };
  const std::size_t known = known_with(plan.layout.delimiter);
  constexpr std::size_t enough = 3;
  if (known >= enough) return;
  for (const char candidate : {';', ',', '\t', '|', ' '}) {
    if (candidate == plan.layout.delimiter || known_with(candidate) < enough) continue;
    add(findings, {.code = FindingCode::delimiter,
                   .line = 1,
                   .text = keep(findings, name_of_delimiter(candidate, settings.language)),
                   .other_text = keep(findings, name_of_delimiter(plan.layout.delimiter, settings.language))});
    plan.layout.delimiter = candidate;
    return;
  }
}

/// A heading that the program does not know although people do.
struct MeantHeading {
  std::size_t column = 0;  ///< counted from 0
  FieldCode code = unused_column;
};

void report_heading(const MeantHeading& meant, std::string_view word, ReadingPlan& plan, const CheckSettings& settings,
                    Findings& findings) {
  const bool has_quotes = word.find('"') != std::string_view::npos;
  const bool is_known = field_code_of(word) == meant.code;  // an empty heading before it ended the program's search
  const bool stops = stops_when_missing(meant.code);
  plan.strips_quotes = plan.strips_quotes || has_quotes;
  FindingCode code = stops ? FindingCode::header_required : FindingCode::header_word;
  if (has_quotes && stops) code = FindingCode::header_quotes;
  if (is_known) code = meant.column >= column_limit ? FindingCode::last_column : FindingCode::header_unread;
  add(findings, {.code = code,
                 .column = static_cast<std::uint16_t>(meant.column + 1),
                 .line = 1,
                 .text = keep(findings, word),
                 .other_text = keep(findings, heading_of_field(meant.code, settings.language)),
                 .number = static_cast<std::int64_t>(meant.column + 1)});
  if (code != FindingCode::header_unread || !stops) return;
  add(findings, {.code = FindingCode::column_missing,
                 .line = 1,
                 .other_text = keep(findings, heading_of_field(meant.code, settings.language))});
}

/// Headings of which nobody knows what they mean, and of columns beyond those that are read.
void report_unused(std::span<const std::string_view> words, const ReadingPlan& plan, Findings& findings) {
  for (std::size_t c = 0; c < words.size(); ++c) {
    const bool is_used = c < column_limit && plan.layout.column_codes[c] != unused_column;
    if (is_used || words[c].empty()) continue;
    const auto column = static_cast<std::uint16_t>(std::min<std::size_t>(c + 1, UINT16_MAX));
    if (c >= column_limit && field_code_of(words[c]) != unused_column) continue;  // told as a heading that is meant
    add(findings, {.code = FindingCode::heading_unused,
                   .column = column,
                   .line = 1,
                   .text = keep(findings, words[c]),
                   .number = static_cast<std::int64_t>(c + 1)});
  }
}

void report_twice(const ReadingPlan& plan, const CheckSettings& settings, Findings& findings) {
  std::array<std::uint16_t, field_count> first = {};
  for (std::size_t c = 0; c < column_limit; ++c) {
    const FieldCode code = field_of_column(plan, c);
    if (code == unused_column) continue;
    std::uint16_t& place = first[code];
    const auto column = static_cast<std::uint16_t>(c + 1);
    if (place != 0 && code != sire_name_column && code != dam_name_column) {
      const std::string_view heading = heading_of_field(code, settings.language);
      add(findings, {.code = FindingCode::column_twice,
                     .column = column,
                     .line = plan.header_line.empty() ? 0 : 1,
                     .text = keep(findings, heading),
                     .number = place,
                     .other_number = column});
    }
    if (place == 0) place = column;
  }
}

/// Takes up the columns: for each field the last one that holds it.
void settle_columns(ReadingPlan& plan) {
  plan.column_of = {};
  for (std::size_t c = 0; c < column_limit; ++c) {
    if (plan.layout.column_codes[c] == unused_column) continue;
    plan.counted_columns = c + 1;
    const FieldCode code = field_of_column(plan, c);
    if (code != unused_column) plan.column_of[code] = static_cast<std::uint16_t>(c + 1);
  }
}

/// Reports the columns that are required and missing, also in what is meant.
void require_columns(ReadingPlan& plan, const CheckSettings& settings, Findings& findings) {
  plan.can_be_read = true;
  for (const FieldCode code : required_fields) {
    if (plan.column_of[code] != 0) continue;
    plan.can_be_read = false;
    add(findings, {.code = FindingCode::column_missing,
                   .line = plan.header_line.empty() ? 0 : 1,
                   .other_text = keep(findings, heading_of_field(code, settings.language))});
  }
}

/// The headings that are meant for fields which the program does not find.
void mend_headings(std::span<const std::string_view> words, ReadingPlan& plan, const CheckSettings& settings,
                   Findings& findings) {
  std::vector<std::string> decoded;
  for (const std::string_view word : words) decoded.push_back(readable(word));
  ColumnPlaces further;
  const ColumnPlaces places = recognise_columns(decoded, further);
  for (const FieldCode code : all_fields) {
    const bool is_name_of_parent = code == sire_name_column || code == dam_name_column;
    if (plan.column_of[code] != 0 || places[code].empty() || is_name_of_parent) continue;
    const MeantHeading meant = {places[code].front(), code};
    report_heading(meant, words[meant.column], plan, settings, findings);
    if (meant.column < column_limit) plan.layout.column_codes[meant.column] = static_cast<std::int32_t>(meant.code);
  }
}

void plan_by_header(std::string_view first_line, ReadingPlan& plan, const CheckSettings& settings, Findings& findings) {
  check_delimiter(first_line, plan, settings, findings);
  plan.header_line = first_line;
  plan.first_line_is_header = true;
  TextOutput silent;
  plan.layout.column_codes = read_header_line(first_line, plan.layout, silent);
  std::vector<std::string_view> words;
  for (const std::string_view word : cut_fields(without_trailing_blanks(first_line), plan.layout.delimiter)) {
    words.push_back(without_leading_blanks(without_trailing_blanks(word)));
  }
  plan.header_columns = words.size();
  settle_columns(plan);
  mend_headings(words, plan, settings, findings);
  settle_columns(plan);
  if (plan.counted_columns == 0) {
    constexpr std::size_t shown_length = 60;
    add(findings,
        {.code = FindingCode::header_missing, .line = 1, .text = keep(findings, first_line.substr(0, shown_length))});
    return;
  }
  require_columns(plan, settings, findings);
  report_twice(plan, settings, findings);
  report_unused(words, plan, findings);
}

void plan_by_list(std::string_view first_line, ReadingPlan& plan, const CheckSettings& settings, Findings& findings) {
  settle_columns(plan);
  require_columns(plan, settings, findings);
  report_twice(plan, settings, findings);
  std::vector<std::string> words;
  for (const std::string_view word : cut_fields(first_line, plan.layout.delimiter)) words.push_back(readable(word));
  if (!is_header(words)) return;
  add(findings, {.code = FindingCode::header_as_animal, .line = 1});
  plan.first_line_is_header = true;
}

}  // namespace

std::string_view heading_of_field(FieldCode code, ToolLanguage language) {
  return words_of(field_headings[code], language);
}

ReadingPlan plan_reading(LineReader& data, const CheckSettings& settings, Findings& findings) {
  ReadingPlan plan;
  plan.layout = settings.layout;
  if (settings.export_lines) plan.export_lines = &*settings.export_lines;
  std::string_view line;
  if (!check_start(data, findings)) return plan;
  if (!read_line(data, line)) {
    add(findings, {.code = FindingCode::empty_file});  // nothing but a byte order mark
    return plan;
  }
  const std::string first_line(line);
  rewind(data);
  const ColumnMap& codes = settings.layout.column_codes;
  std::uint32_t code_sum = 0;  // as the program adds them up: only a sum of 0 has it read the headings
  for (const std::int32_t code : codes) code_sum += static_cast<std::uint32_t>(code);
  if (code_sum == 0) {
    plan_by_header(first_line, plan, settings, findings);
  } else {
    plan_by_list(first_line, plan, settings, findings);
  }
  return plan;
}

}  // namespace pedigreewatch
