// The steps that come before anything is written: read the file, find out how it is to be read, survey it, decide, say
// everything. Each may be taken again when the user says something else.

#include "intake/export_preparation.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "core/line_reader.h"
#include "intake/export_records.h"
#include "intake/finding_lists.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

namespace fs = std::filesystem;

constexpr Wording cannot_read = {"{1}: it cannot be read: {2}", "{1}: niet te lezen: {2}"};
constexpr Wording is_folder = {"{1}: this is a folder; the export is a file",
                               "{1}: dit is een map; de export is een bestand"};
constexpr Wording is_empty = {"{1}: the file is empty", "{1}: het bestand is leeg"};
constexpr Wording is_binary = {
    "{1}: this is no text but a file of another kind ({2}). Save or export it as CSV (text), best as \"CSV UTF-8\".",
    "{1}: dit is geen tekst maar een ander soort bestand ({2}). Bewaar of exporteer het als CSV (tekst), liefst als "
    "\"CSV "
    "UTF-8\"."};
constexpr Wording has_zeros = {
    "{1}: this is no text: it holds {2} bytes that no text has (zeros), the first in line {3}. Export it as CSV "
    "(text).",
    "{1}: dit is geen tekst: het bevat {2} bytes die in geen tekst staan (nullen), de eerste in regel {3}. Exporteer "
    "het "
    "als CSV (tekst)."};
constexpr Wording encoding_unclear = {
    "{1}: the letters with accents are written in two ways: {2} as UTF-8, the first in line {3}, and {4} in another "
    "way, "
    "the first in line {5}. Say which encoding to read: --encoding utf-8 (the others are then read as Windows-1252) or "
    "--encoding windows-1252.",
    "{1}: de letters met accenten staan er op twee manieren: {2} als UTF-8, de eerste in regel {3}, en {4} anders, de "
    "eerste in regel {5}. Zeg welke codering gelezen moet worden: --encoding utf-8 (de andere worden dan als "
    "Windows-1252 gelezen) of --encoding windows-1252."};
constexpr Wording delimiter_unclear = {
    "{1}: it is not clear which character divides the columns:{2}\nSay which one: --delimiter \";\" (or comma, tab, "
    "bar). Lines above the header, such as a title, have to be removed first.",
    "{1}: het is niet duidelijk welk teken de kolommen scheidt:{2}\nZeg welk: --delimiter \";\" (of comma, tab, bar). "
    "Regels boven de kopregel, zoals een titel, moeten eerst verwijderd worden."};
constexpr Wording delimiter_tried = {"\n  {1}: {2} of {3} lines have {4} columns",
                                     "\n  {1}: {2} van {3} regels hebben {4} kolommen"};
constexpr Wording too_many_columns = {"{1}: the first line has more than {2} columns",
                                      "{1}: de eerste regel heeft meer dan {2} kolommen"};
constexpr Wording never_closed = {
    "{1}, line {2}: a quotation mark opens a text and is never closed. Mend this line in the export.",
    "{1}, regel {2}: een aanhalingsteken opent een tekst en wordt nergens gesloten. Herstel deze regel in de export."};
constexpr Wording no_animals = {"{1}: there is no animal in it", "{1}: er staat geen dier in"};
constexpr Wording ids_clash = {
    "{1}, line {2}: the ids {3} and {4} would both become {5} in the data file (30 letters, without letters that the "
    "report does not have). Shorten or rename one of them in the export.",
    "{1}, regel {2}: de id's {3} en {4} zouden in het databestand allebei {5} worden (30 letters, zonder letters die "
    "het "
    "rapport niet heeft). Kort een van beide in of hernoem hem in de export."};
constexpr Wording reading_lines = {"reading lines", "gelezen regels"};
constexpr Wording export_is = {"Export        {1}: {2} lines", "Export        {1}: {2} regels"};
constexpr Wording population_is = {"Population    {1} (another name: --name)",
                                   "Populatie     {1} (andere naam: --name)"};

/// All bytes of a file; 0, or the number of the error.
int read_bytes(const std::string& name, std::string& bytes) {
  errno = 0;
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
  return has_failed ? (errno != 0 ? errno : EIO) : 0;
}

std::string line_number_at(std::string_view bytes, std::size_t place) {
  const auto count = [&](char byte) {
    return std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(place), byte);
  };
  const std::ptrdiff_t feeds = count('\n');
  return std::to_string((feeds > 0 ? feeds : count('\r')) + 1);
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

/// Reads and decodes the file. Yields 0, or 1 after a message.
int read_export(const PrepareOptions& options, ToolStreams& streams, Preparation& result) {
  std::error_code ignored;
  const std::string name = shown(options.export_name);
  if (fs::is_directory(options.export_name, ignored)) return refuse(streams, options, is_folder, {name});
  std::string bytes;
  const int error = read_bytes(options.export_name, bytes);
  if (error != 0) return refuse(streams, options, cannot_read, {name, std::generic_category().message(error)});
  if (bytes.empty()) return refuse(streams, options, is_empty, {name});
  const std::string_view kind = known_binary_kind(bytes);
  if (!kind.empty()) return refuse(streams, options, is_binary, {name, kind});
  ReadingFindings& findings = result.findings;
  findings.encoding = recognise_encoding(bytes);
  const EncodingEvidence& evidence = findings.encoding;
  if (!options.encoding && !evidence.encoding) {
    return refuse(streams, options, encoding_unclear,
                  {name, std::to_string(evidence.utf_8_letters), line_number_at(bytes, evidence.first_letter),
                   std::to_string(evidence.other_bytes), line_number_at(bytes, evidence.first_byte)});
  }
  findings.used_encoding = options.encoding ? *options.encoding : *evidence.encoding;
  DecodedText decoded = decode(std::move(bytes), findings.used_encoding);
  findings.mended_bytes = decoded.mended_bytes;
  findings.broken_letters = decoded.broken_letters;
  findings.ends_in_half_letter = decoded.ends_in_half_letter;
  result.text = std::move(decoded.text);
  findings.letter_example = word_around(result.text, ascii_length(result.text));
  return 0;
}

/// Texts hold no zeros; what has some was made for machines.
int refuse_zeros(const std::string& text, const PrepareOptions& options, ToolStreams& streams) {
  const std::size_t first = text.find('\0');
  if (first == std::string::npos) return 0;
  return refuse(streams, options, has_zeros,
                {shown(options.export_name), std::to_string(std::count(text.begin(), text.end(), '\0')),
                 line_number_at(text, first)});
}

int choose_export_delimiter(const PrepareOptions& options, ToolStreams& streams, Preparation& read) {
  if (options.delimiter) {
    read.findings.delimiter = *options.delimiter;
    return 0;
  }
  const DelimiterChoice choice = recognise_delimiter(read.text);
  std::string tried;
  for (const DelimiterEvidence& evidence : choice.evidence) {
    if (choice.delimiter == evidence.delimiter) read.findings.delimiter_evidence = evidence;
    tried += phrase(delimiter_tried, options.language,
                    {name_of_delimiter(evidence.delimiter, options.language), std::to_string(evidence.agreeing_count),
                     std::to_string(evidence.record_count), std::to_string(evidence.field_count)});
  }
  const std::int64_t unterminated_line = choice.evidence.front().unterminated_line;
  if (!choice.delimiter && unterminated_line > 0) {
    return refuse(streams, options, never_closed, {shown(options.export_name), std::to_string(unterminated_line)});
  }
  if (!choice.delimiter) {
    return refuse(streams, options, delimiter_unclear, {shown(options.export_name), tried});
  }
  read.findings.delimiter = *choice.delimiter;
  return 0;
}

/// Yields 0, or 1 after a message.
int choose_export_columns(const PrepareOptions& options, ToolStreams& streams, const Preparation& read,
                          ColumnChoice& columns) {
  RecordReader reader = read_records(read.text, read.findings.delimiter);
  ExportRecord record;
  const std::string name = shown(options.export_name);
  if (!next_filled_record(reader, record)) return refuse(streams, options, is_empty, {name});
  if (record.is_unterminated) return refuse(streams, options, never_closed, {name, std::to_string(record.line)});
  if (record.fields.size() > most_fields) {
    return refuse(streams, options, too_many_columns, {name, std::to_string(most_fields)});
  }
  std::vector<std::string> words;
  for (const std::string_view field : record.fields) words.emplace_back(trimmed(field));
  columns = choose_columns(words, options);
  return 0;
}

}  // namespace

int refuse(ToolStreams& streams, const PrepareOptions& options, const Wording& wording,
           std::initializer_list<std::string_view> values) {
  flush(streams.console);
  say(streams.messages, wording, options.language, values);
  return 1;
}

bool read_and_recognise(const PrepareOptions& options, ToolStreams& streams, Preparation& result) {
  result = {};
  return read_export(options, streams, result) == 0 && refuse_zeros(result.text, options, streams) == 0 &&
         choose_export_delimiter(options, streams, result) == 0;
}

bool survey_columns(const PrepareOptions& options, ToolStreams& streams, Preparation& result) {
  result.columns = {};
  if (choose_export_columns(options, streams, result, result.columns) != 0) return false;
  begin_progress(streams.progress, words_of(reading_lines, options.language));
  result.survey =
      survey_export(result.text, result.findings.delimiter, result.columns, options.unknown, streams.progress);
  erase_progress(streams.progress);
  return true;
}

void decide(const PrepareOptions& options, Preparation& result) {
  result.plan = plan_preparation(result.survey, result.columns, options);
}

bool refuse_survey(const Preparation& read, const PrepareOptions& options, ToolStreams& streams) {
  const ExportSurvey& survey = read.survey;
  const PreparePlan& plan = read.plan;
  const std::string name = shown(options.export_name);
  if (survey.unterminated_line > 0) {
    refuse(streams, options, never_closed, {name, std::to_string(survey.unterminated_line)});
    return true;
  }
  if (survey.animal_count == 0 && plan.columns.questions.empty()) {
    refuse(streams, options, no_animals, {name});
    return true;
  }
  const auto clashes = find_id_clashes(read.text, read.findings.delimiter, plan.columns, survey.changed_ids);
  for (const IdClash& clash : clashes) {
    refuse(streams, options, ids_clash,
           {name, std::to_string(clash.line), in_quotes(clash.id), in_quotes(clash.other_id),
            in_quotes(decode(clash.written, Encoding::windows_1252).text)});
  }
  return !clashes.empty();
}

void show_preparation(const Preparation& read, const PrepareOptions& options, TextOutput& console) {
  const ExportSurvey& survey = read.survey;
  const PreparePlan& plan = read.plan;
  say(console, export_is, options.language, {shown(options.export_name), std::to_string(survey.last_line)});
  show_reading(read.findings, options, console);
  show_columns(survey, plan, console);
  show_contents(survey, plan, console);
  say(console, population_is, options.language, {decode(plan.population_name, Encoding::windows_1252).text});
  show_repairs(survey, plan, console);
}

}  // namespace pedigreewatch
