// Answers may say how an export is read, its encoding or its delimiter: then it is read once more.

#include "intake/kept_answers.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/run_streams.h"
#include "intake/table_start.h"

namespace pedigreewatch {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t most_files = 50;
constexpr std::uintmax_t most_bytes = 1'000'000;

/// The files of answers in a folder, that of the export's own name first; it counts however many others there are.
void collect_files(const fs::path& folder, const std::string& own_name, std::vector<std::string>& files) {
  std::error_code ignored;
  const std::size_t first = files.size();
  for (fs::directory_iterator entry(folder, ignored), end; !ignored && entry != end; entry.increment(ignored)) {
    const bool is_answers = entry->path().extension() == ".answers" && entry->is_regular_file(ignored);
    const bool is_own = entry->path().filename().string() == own_name;
    if (is_answers && (is_own || files.size() < most_files)) files.push_back(entry->path().string());
  }
  std::sort(files.begin() + static_cast<std::ptrdiff_t>(first), files.end(),
            [&](const std::string& a, const std::string& b) {
              const auto key = [&](const std::string& name) {
                return std::pair(fs::path(name).filename().string() != own_name, name);
              };
              return key(a) < key(b);
            });
}

std::vector<std::string> files_for(const PrepareOptions& options) {
  std::vector<std::string> files;
  const std::string own_name = stem_of(options.export_name) + ".answers";
  const fs::path folder = options.folder.empty() ? fs::path(".") : fs::path(options.folder);
  fs::path beside = fs::path(options.export_name).parent_path();
  if (beside.empty()) beside = ".";
  std::error_code ignored;
  collect_files(folder, own_name, files);
  if (!fs::equivalent(folder, beside, ignored)) collect_files(beside, own_name, files);
  return files;
}

/// Yields 0, or why it cannot be read. What is no file of answers by its size is read as empty.
int read_text(const std::string& name, std::string& text) {
  std::error_code ignored;
  if (fs::file_size(name, ignored) > most_bytes) return 0;
  return read_file_bytes(name, text);
}

bool is_about_reading(const AnswerLine& line) {
  return line.option == "--encoding" || line.option == "--delimiter" || line.option == "--sheet";
}

/// Reads the export as the answers have it, if they are about the same headings or are wished. `read` is what was read
/// without them, if anything.
bool take_answers(SavedAnswers answers, bool are_wished, PrepareOptions& options, Preparation& read,
                  std::optional<Refusal>& refusal) {
  const bool reads_again = refusal || std::any_of(answers.lines.begin(), answers.lines.end(), is_about_reading);
  PrepareOptions with_answers = options;
  Preparation again;
  std::optional<Refusal> refusal_again = refusal;
  if (reads_again) {
    SavedAnswers about_reading = answers;
    std::erase_if(about_reading.lines, [](const AnswerLine& line) { return !is_about_reading(line); });
    add_answers(about_reading, {}, with_answers);
    refusal_again = read_and_recognise(with_answers, again);
    if (refusal_again && !are_wished) return false;
  }
  const std::vector<std::string> headings =
      refusal_again ? std::vector<std::string>() : headings_of(reads_again ? again : read);
  if (!are_wished && headings_text(headings) != answers.headings) return false;
  add_answers(answers, headings, options);
  if (reads_again) read = std::move(again);
  refusal = std::move(refusal_again);
  read.answers = std::move(answers);
  return true;
}

}  // namespace

std::vector<std::string> headings_of(const Preparation& read) {
  const TableStart start = find_table_start(read.text, read.reading.delimiter);
  RecordReader reader = read_records(read.text, read.reading.delimiter);
  reader.next = start.begin;
  ExportRecord record;
  std::vector<std::string> headings;
  if (!next_filled_record(reader, record)) return headings;
  for (const std::string_view field : record.fields) headings.emplace_back(trimmed(field));
  return headings;
}

std::optional<Refusal> read_with_answers(PrepareOptions& options, Preparation& read) {
  std::optional<Refusal> refusal = read_and_recognise(options, read);
  const bool are_wished = !options.answers_name.empty();
  const std::vector<std::string> files = are_wished ? std::vector{options.answers_name} : files_for(options);
  std::error_code ignored;
  if (are_wished && !fs::is_regular_file(options.answers_name, ignored)) {
    return Refusal{RefusalKind::cannot_read, {options.answers_name, SystemReason{ignored ? ignored.value() : ENOENT}}};
  }
  for (const std::string& file : files) {
    std::string text;
    const int error = read_text(file, text);
    if (error != 0 && (are_wished || error == input_has_changed)) {
      return Refusal{RefusalKind::cannot_read, {file, SystemReason{error}}};
    }
    SavedAnswers answers = read_answers(text);
    answers.file = file;
    if (answers.headings.empty() && !are_wished) continue;
    if (take_answers(std::move(answers), are_wished, options, read, refusal)) break;
  }
  return refusal;
}

}  // namespace pedigreewatch
