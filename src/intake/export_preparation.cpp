// The steps that come before anything is written: read the file, find out how it is to be read, survey it, decide.
// Each may be taken again when the user says something else.

#include "intake/export_preparation.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "core/line_reader.h"
#include "intake/animal_lines.h"
#include "intake/column_matches.h"
#include "intake/export_records.h"
#include "intake/id_matches.h"
#include "intake/import_questions.h"
#include "intake/rival_ids.h"
#include "intake/rival_parents.h"
#include "intake/short_years.h"
#include "intake/young_columns.h"
#include "text/double_encoding.h"
#include "text/letter_evidence.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

namespace fs = std::filesystem;

constexpr Wording reading_lines = {"reading lines", "gelezen regels"};

std::int64_t line_number_at(std::string_view bytes, std::size_t place) {
  const auto count = [&](char byte) {
    return std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(place), byte);
  };
  const std::ptrdiff_t feeds = count('\n');
  return (feeds > 0 ? feeds : count('\r')) + 1;
}

/// The word around a place, for people to judge its accents by.
std::string word_around(std::string_view text, std::size_t place) {
  constexpr std::string_view ends = " ;,\t|\"\r\n";
  constexpr std::size_t most_bytes = 40;
  if (place >= text.size()) return {};
  std::size_t first = text.find_last_of(ends, place);
  first = first == std::string_view::npos ? 0 : first + 1;
  if (place - first > most_bytes) first = place;
  const std::size_t last = std::min({text.find_first_of(ends, place), text.size(), place + most_bytes});
  return std::string(text.substr(first, last - first));
}

/// Whether a file with these bytes is read as a workbook.
bool is_read_as_workbook(std::string_view bytes) {
  WorkbookProblem ignored;
  return kind_of_workbook(bytes, ignored) == WorkbookKind::archive;
}

/// Notes letters that were turned into UTF-8 twice, the first time only.
void note_doubled_letters(const DoubledLetters& found, std::string_view text, ReadingEvidence& reading) {
  if (reading.doubled_letters > 0) return;
  reading.doubled_letters = found.doubled;
  for (const DoubledWord& word : found.words) {
    reading.doubled_words.push_back({word.found, word.meant, line_number_at(text, word.place)});
  }
}

/// Mends letters that were turned into UTF-8 twice, or more often, where all letters beyond ASCII are such. Where it is
/// not clear it is refused; the letters of a workbook stay then.
std::optional<Refusal> mend_doubled_letters(const PrepareOptions& options, Preparation& read) {
  constexpr int most_times = 3;
  ReadingEvidence& reading = read.reading;
  for (int times = 0; times < most_times; ++times) {
    const DoubledLetters found = find_doubled_letters(read.text);
    if (found.doubled == 0) break;
    note_doubled_letters(found, read.text, reading);
    if (options.encoding) break;
    if (!found.are_certain || found.others > 0) {
      if (reading.sheet || reading.are_doubled_mended) break;
      return Refusal{RefusalKind::letters_doubled,
                     {options.export_name, found.doubled, IdPairList{reading.doubled_words}, found.others}};
    }
    read.text = without_doubled_letters(read.text);
    reading.are_doubled_mended = true;
  }
  return std::nullopt;
}

/// Reads the bytes of the file.
std::optional<Refusal> read_export(const std::string& name, std::string& bytes) {
  std::error_code ignored;
  if (fs::is_directory(name, ignored)) return Refusal{RefusalKind::is_folder, {name}};
  const int error = read_file_bytes(name, bytes);
  if (error != 0) return Refusal{RefusalKind::cannot_read, {name, SystemReason{error}}};
  if (bytes.empty()) return Refusal{RefusalKind::is_empty, {name}};
  if (is_read_as_workbook(bytes)) return std::nullopt;
  WorkbookProblem problem;
  kind_of_workbook(bytes, problem);
  if (problem.fault != WorkbookFault::none) return Refusal{RefusalKind::workbook_unread, {name, problem}};
  const std::string_view kind = known_binary_kind(bytes);
  if (!kind.empty()) return Refusal{RefusalKind::is_binary, {name, std::string(kind)}};
  return std::nullopt;
}

/// The table on a sheet of a workbook, as a text with tabs.
std::optional<Refusal> read_export_sheet(const PrepareOptions& options, std::string_view bytes, Preparation& result) {
  SheetTable table;
  WorkbookSheets sheets;
  WorkbookProblem problem;
  if (!read_workbook(bytes, options.sheet, table, sheets, problem)) {
    return Refusal{RefusalKind::workbook_unread, {options.export_name, std::move(problem)}};
  }
  result.text = std::move(table.text);
  result.reading.used_encoding = Encoding::utf_8;
  result.reading.encoding.encoding = Encoding::utf_8;
  result.reading.delimiter = '\t';
  result.reading.sheet_names = std::move(sheets.names);
  result.reading.alike_sheets = std::move(sheets.alike);
  result.reading.sheet = std::move(table);
  return mend_doubled_letters(options, result);
}

/// Which encoding of one byte a letter it is, by the words; refused where several of them make sense.
std::optional<Refusal> recognise_byte_encoding(const PrepareOptions& options, std::string_view bytes,
                                               EncodingEvidence& evidence) {
  LetterEvidence letters = recognise_letters(bytes);
  if (letters.readings.size() > 1) {
    return Refusal{RefusalKind::encodings_alike, {options.export_name, EncodingReadings{std::move(letters.readings)}}};
  }
  evidence.encoding = encoding_of(letters.readings.front().encoding);
  return std::nullopt;
}

/// Texts hold no zeros; what has some was made for machines.
std::optional<Refusal> refuse_zeros(const std::string& text, const PrepareOptions& options) {
  const std::size_t first = text.find('\0');
  if (first == std::string::npos) return std::nullopt;
  const std::int64_t count = std::count(text.begin(), text.end(), '\0');
  return Refusal{RefusalKind::has_zeros, {options.export_name, count, line_number_at(text, first)}};
}

std::optional<Refusal> decode_export(const PrepareOptions& options, std::string bytes, Preparation& result) {
  ReadingEvidence& reading = result.reading;
  reading.encoding = recognise_encoding(bytes);
  const EncodingEvidence& evidence = reading.encoding;
  if (!options.encoding && evidence.encoding == Encoding::windows_1252) {
    std::optional<Refusal> refusal = refuse_zeros(bytes, options);
    if (!refusal) refusal = recognise_byte_encoding(options, bytes, reading.encoding);
    if (refusal) return refusal;
  }
  if (!options.encoding && !evidence.encoding) {
    return Refusal{RefusalKind::encoding_unclear,
                   {options.export_name, evidence.utf_8_letters, line_number_at(bytes, evidence.first_letter),
                    evidence.other_bytes, line_number_at(bytes, evidence.first_byte)}};
  }
  reading.used_encoding = options.encoding ? *options.encoding : *evidence.encoding;
  DecodedText decoded = decode(std::move(bytes), reading.used_encoding);
  reading.mended_bytes = decoded.mended_bytes;
  reading.broken_letters = decoded.broken_letters;
  reading.ends_in_half_letter = decoded.ends_in_half_letter;
  result.text = std::move(decoded.text);
  const bool is_unicode = reading.used_encoding == Encoding::utf_8 || reading.used_encoding == Encoding::utf_16_le ||
                          reading.used_encoding == Encoding::utf_16_be;
  if (is_unicode) {
    std::optional<Refusal> refusal = mend_doubled_letters(options, result);
    if (refusal) return refusal;
  }
  reading.letter_example = word_around(result.text, ascii_length(result.text));
  return std::nullopt;
}

/// Whether a text is nothing but blanks, line ends, marks and what may divide columns.
bool holds_no_text(std::string_view text) {
  return text.find_first_not_of(" \t\r\n;,|\"\xEF\xBB\xBF\xC2\xA0") == std::string_view::npos;
}

/// What no delimiter is looked for in.
std::optional<Refusal> refuse_without_text(const PrepareOptions& options, std::string_view text) {
  if (text.empty()) return Refusal{RefusalKind::is_empty, {options.export_name}};
  return holds_no_text(text) ? std::optional(Refusal{RefusalKind::holds_no_text, {options.export_name}}) : std::nullopt;
}

std::optional<Refusal> choose_export_delimiter(const PrepareOptions& options, Preparation& read) {
  if (options.delimiter) {
    read.reading.delimiter = *options.delimiter;
    return std::nullopt;
  }
  const DelimiterChoice choice = recognise_delimiter(read.text);
  TriedDelimiters tried = {{choice.evidence.begin(), choice.evidence.end()}};
  for (const DelimiterEvidence& evidence : choice.evidence) {
    if (choice.delimiter == evidence.delimiter) read.reading.delimiter_evidence = evidence;
  }
  const std::int64_t unterminated_line = choice.evidence.front().unterminated_line;
  if (!choice.delimiter && unterminated_line > 0) {
    return Refusal{RefusalKind::never_closed, {options.export_name, unterminated_line}};
  }
  if (!choice.delimiter) {
    return Refusal{RefusalKind::delimiter_unclear, {options.export_name, std::move(tried)}};
  }
  read.reading.delimiter = *choice.delimiter;
  return std::nullopt;
}

/// How ids are written, and which lines below the header are headings too: by the columns that are chosen.
void look_at_first_lines(Preparation& read) {
  read.columns.id_style = find_id_style(read.text, read.reading.delimiter, read.columns);
  read.columns.heading_lines = find_heading_lines(read.text, read.reading.delimiter, read.columns);
}

std::optional<Refusal> choose_export_columns(const PrepareOptions& options, const ColumnContents* contents,
                                             Preparation& read) {
  const TableStart start = find_table_start(read.text, read.reading.delimiter, options.has_header);
  RecordReader reader = read_records(read.text, read.reading.delimiter);
  reader.next = start.begin;
  reader.next_line = start.line;
  ExportRecord record;
  const std::string& name = options.export_name;
  if (!next_filled_record(reader, record)) return Refusal{RefusalKind::is_empty, {name}};
  if (record.is_unterminated) return Refusal{RefusalKind::never_closed, {name, record.line}};
  if (record.fields.size() > most_fields) {
    return Refusal{RefusalKind::too_many_columns, {name, static_cast<std::int64_t>(most_fields)}};
  }
  std::vector<std::string> words;
  for (const std::string_view field : record.fields) words.emplace_back(trimmed(field));
  const FirstRecord looks = look_at_first_record(read.text, read.reading.delimiter, start);
  read.columns = choose_columns(words, options, looks, contents);
  read.columns.table = start;
  look_at_first_lines(read);
  PrepareOptions wishes = options;
  YoungColumns young = choose_young(read.text, read.reading.delimiter, read.columns, wishes);
  if (!young.ids.empty()) {
    read.columns = choose_columns(words, wishes, looks, contents);
    read.columns.table = start;
    read.columns.animals_of_line = std::move(young.animals);
    read.columns.questions.insert(read.columns.questions.begin(), young.questions.begin(), young.questions.end());
    look_at_first_lines(read);
  }
  read.columns.count_line = find_count_line(read.text, read.reading.delimiter, read.columns);
  return std::nullopt;
}

/// Chooses the columns once more, with a look at what stands in all of them.
std::optional<Refusal> choose_by_content(const PrepareOptions& options, Preparation& read) {
  const ColumnContents contents = {read.text, read.reading.delimiter,
                                   profile_columns(read.text, read.reading.delimiter, read.columns)};
  return choose_export_columns(options, &contents, read);
}

bool lacks_lines(const ExportSurvey& survey) {
  return lack_lines(count_links(survey.links, sire_role)) || lack_lines(count_links(survey.links, dam_role));
}

void survey_all(const PrepareOptions& options, ProgressLine& progress, Preparation& read) {
  begin_progress(progress, words_of(reading_lines, options.language));
  read.survey = survey_export(read.text, read.reading.delimiter, read.columns, options.unknown, progress);
  erase_progress(progress);
}

/// Surveys the columns by their headings; where these leave one open, or the parents have no lines, by their content.
std::optional<Refusal> survey_linked_columns(const PrepareOptions& options, ProgressLine& progress,
                                             Preparation& result) {
  result.columns = {};
  std::optional<Refusal> refusal = choose_export_columns(options, nullptr, result);
  if (refusal) return refusal;
  const bool is_open = has_open_column(result.columns);
  if (is_open) refusal = choose_by_content(options, result);
  if (refusal) return refusal;
  survey_all(options, progress, result);
  if (!lacks_lines(result.survey)) return std::nullopt;
  // Other columns may belong together.
  const auto chosen = result.columns.place;
  if (!is_open) refusal = choose_by_content(options, result);
  if (refusal) return refusal;
  if (result.columns.place != chosen) survey_all(options, progress, result);
  if (lacks_lines(result.survey)) {
    result.survey.matches = match_columns(result.text, result.reading.delimiter, result.columns);
  }
  return std::nullopt;
}

std::int64_t count_parents_without_line(const ParentLinks& links) {
  const LinkCount sires = count_links(links, sire_role), dams = count_links(links, dam_role);
  return sires.parents - sires.with_line + dams.parents - dams.with_line;
}

/// Parents that lack a line because they are written otherwise than the animals: by the rules that are wished, or by
/// one that could be.
void compare_ids(const PrepareOptions& options, Preparation& result) {
  const ExportTable table = {result.text, result.reading.delimiter, result.columns, options.unknown};
  ExportSurvey& survey = result.survey;
  if (options.ids) {
    survey.id_substitutes = find_substitutes(table, *options.ids);
    for (const auto& [parent, id] : survey.id_substitutes.ids) note_role(survey.links, parent, animal_role);
    return;
  }
  if (count_parents_without_line(survey.links) >= fewest_explained_parents)
    survey.id_proposal = propose_id_rules(table, survey.links);
}

/// Asks which of several columns holds a field, `places` and the one in use. They are read once more for what they
/// hold.
void ask_for_rivals(FieldCode code, std::vector<std::size_t> places, Preparation& read) {
  const ColumnContents contents = {read.text, read.reading.delimiter,
                                   profile_columns(read.text, read.reading.delimiter, read.columns)};
  places.push_back(*read.columns.place[code]);
  std::sort(places.begin(), places.end());
  ask_which(code, places, &contents, read.columns);
}

/// Asks for the id where a second column holds the parents as well as the one in use.
void ask_for_rival_ids(const PrepareOptions& options, Preparation& read) {
  const ExportTable table = {read.text, read.reading.delimiter, read.columns, options.unknown};
  std::vector<std::size_t> places = find_rival_ids(table, read.survey.links, options);
  if (!places.empty()) ask_for_rivals(id_column, std::move(places), read);
}

/// Asks for the father and the mother where a second column names others than the one in use.
void ask_for_rival_parents(const PrepareOptions& options, Preparation& read) {
  const ExportTable table = {read.text, read.reading.delimiter, read.columns, options.unknown};
  for (const FieldCode parent : {sire_column, dam_column}) {
    std::vector<std::size_t> places = find_rival_parents(table, read.survey, parent, options);
    if (!places.empty()) ask_for_rivals(parent, std::move(places), read);
  }
}

/// Asks which sheet is meant where others have the same headings, before all else: their animals would be missing.
void ask_for_sheet(const ReadingEvidence& reading, std::vector<Question>& questions) {
  if (reading.alike_sheets.empty() || !reading.sheet) return;
  CountedList others;
  const std::string& name = reading.sheet->sheet;
  Question question = {QuestionKind::sheets_alike, {name}, Setting::sheet, unused_column, {{name, name}}};
  for (const AlikeSheet& sheet : reading.alike_sheets) {
    others.texts.push_back({sheet.name, sheet.rows, 0});
    question.answers.push_back({sheet.name, sheet.name});
  }
  question.values.emplace_back(std::move(others));
  questions.insert(questions.begin(), std::move(question));
}

/// Parents that may be none. Those that are animals under another spelling are no such.
void doubt_parents(Preparation& read) {
  ExportSurvey& survey = read.survey;
  survey.doubtful_parents = find_doubtful_parents(read.text, read.reading.delimiter, read.columns, survey.parent_texts,
                                                  {survey.animal_count, count_parents_without_line(survey.links)});
  std::erase_if(survey.doubtful_parents,
                [&](const DoubtfulParent& parent) { return survey.id_substitutes.ids.contains(parent.text); });
}

}  // namespace

int read_file_bytes(const std::string& name, std::string& bytes) {
  errno = 0;
  const FileState state = state_of_file(name);
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(name.c_str(), "rb"));
  if (file == nullptr) return errno != 0 ? errno : EIO;
  std::error_code ignored;
  const std::uintmax_t size = fs::file_size(name, ignored);
  constexpr std::size_t piece = std::size_t{1} << 20;
  bytes.resize(ignored || size > SIZE_MAX / 2 ? piece : static_cast<std::size_t>(size) + 1);
  std::size_t filled = 0;
  for (;;) {
    filled += std::fread(bytes.data() + filled, 1, bytes.size() - filled, file.get());
    if (filled < bytes.size()) break;
    bytes.resize(bytes.size() + std::max(bytes.size() / 2, piece));
  }
  const bool has_failed = std::ferror(file.get()) != 0;
  bytes.resize(filled);
  if (has_failed) return errno != 0 ? errno : EIO;
  return state == state_of_file(name) ? 0 : input_has_changed;
}

std::optional<Refusal> read_and_recognise(const PrepareOptions& options, Preparation& result) {
  result = {};
  result.export_state = state_of_file(options.export_name);
  std::string bytes;
  std::optional<Refusal> refusal = read_export(options.export_name, bytes);
  if (refusal) return refusal;
  if (is_read_as_workbook(bytes)) return read_export_sheet(options, bytes, result);
  refusal = decode_export(options, std::move(bytes), result);
  if (!refusal) refusal = refuse_zeros(result.text, options);
  if (!refusal) refusal = refuse_without_text(options, result.text);
  if (!refusal) refusal = choose_export_delimiter(options, result);
  return refusal;
}

std::optional<Refusal> survey_columns(const PrepareOptions& options, ProgressLine& progress, Preparation& result) {
  std::optional<Refusal> refusal = survey_linked_columns(options, progress, result);
  if (refusal) return refusal;
  compare_ids(options, result);
  if (!has_open_column(result.columns) && !lacks_lines(result.survey)) {
    ask_for_rival_ids(options, result);
    ask_for_rival_parents(options, result);
  }
  if (lack_sexes(result.columns) && !has_open_column(result.columns)) {
    result.survey.concluded_sexes =
        conclude_sexes(result.text, result.reading.delimiter, result.columns, result.survey.id_substitutes.ids);
  }
  result.survey.availability = survey_availability(result.text, result.reading.delimiter, result.columns, options);
  ExportSurvey& survey = result.survey;
  survey.import_questions = ask_for_imports(result.text, result.reading.delimiter, result.columns,
                                            {survey.animal_count, survey.imports, survey.column_texts}, options);
  DateSurvey& dates = survey.dates;
  if (dates.short_dates.noted.count > 0) {
    dates.short_years = compare_short_years(result.text, result.reading.delimiter, result.columns);
  }
  doubt_parents(result);
  return std::nullopt;
}

std::optional<Refusal> correct_export(const PrepareOptions& options, ProgressLine& progress, Preparation& result) {
  result.corrections = apply_corrections(result.text, result.reading.delimiter, result.columns, options.corrections);
  const bool is_changed =
      std::any_of(result.corrections.begin(), result.corrections.end(),
                  [](const CorrectionOutcome& outcome) { return outcome.fate == CorrectionFate::applied; });
  return is_changed ? survey_columns(options, progress, result) : std::nullopt;
}

void decide(const PrepareOptions& options, Preparation& result) {
  result.plan = plan_preparation(result.survey, result.columns, options);
  ask_for_sheet(result.reading, result.plan.questions);
}

std::optional<Refusal> refusal_of_survey(const Preparation& read, const PrepareOptions& options) {
  const ExportSurvey& survey = read.survey;
  const PreparePlan& plan = read.plan;
  const std::string& name = options.export_name;
  if (survey.unterminated_line > 0) return Refusal{RefusalKind::never_closed, {name, survey.unterminated_line}};
  if (survey.swallowed_line > 0) return Refusal{RefusalKind::lines_in_quotes, {name, survey.swallowed_line}};
  if (survey.animal_count == 0 && plan.columns.questions.empty()) return Refusal{RefusalKind::no_animals, {name}};
  std::vector<Values> clashes;
  for (const IdClash& clash : find_id_clashes(read.text, read.reading.delimiter, plan.columns, survey.changed_ids)) {
    clashes.push_back({name, clash.line, clash.id, clash.other_id, decode(clash.written, Encoding::windows_1252).text});
  }
  if (clashes.empty()) return std::nullopt;
  return Refusal{RefusalKind::ids_clash, clashes.front(), {clashes.begin() + 1, clashes.end()}};
}

}  // namespace pedigreewatch
