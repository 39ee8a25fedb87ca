// An export is read once. A change of the settings that touches its encoding or its delimiter makes it be read again;
// one that touches its columns or the words for unknown parents makes it be surveyed again; all others decide anew.

#include "desk/export_desk.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <span>
#include <utility>

#include "control/steer_file.h"
#include "core/line_reader.h"
#include "core/new_files.h"
#include "corrections/contained_corrections.h"
#include "desk/export_answer.h"
#include "desk/export_words.h"
#include "desk/json_text.h"
#include "desk/settings_text.h"
#include "intake/correction_words.h"
#include "intake/prepared_file.h"
#include "text/system_reasons.h"

namespace pedigreewatch {
namespace {

constexpr Wording cannot_write = {"{1} could not be written: {2}", "{1} kon niet geschreven worden: {2}"};
constexpr Wording cannot_open = {"{1} could not be opened", "{1} kon niet geopend worden"};
constexpr Wording names_other_file = {
    "The steer file names the data file {1}; the file that you chose is called {2}. It is taken as the one that is "
    "meant.",
    "De sturingsfile noemt het databestand {1}; het bestand dat u koos heet {2}. Dat wordt genomen."};

bool has_same_columns(const PrepareOptions& a, const PrepareOptions& b) {
  const auto same = [](const ColumnWish& one, const ColumnWish& other) {
    return one.code == other.code && one.column == other.column;
  };
  const auto same_names = [](const NameWish& one, const NameWish& other) {
    return one.is_given == other.is_given && one.leaves_out == other.leaves_out && one.names == other.names;
  };
  return same_names(a.young, b.young) && same_names(a.availability, b.availability) && a.has_header == b.has_header &&
         a.unknown == b.unknown && a.ids == b.ids &&
         std::equal(a.columns.begin(), a.columns.end(), b.columns.begin(), b.columns.end(), same);
}

/// An answer that holds nothing but what stands in the way.
std::string refusal_answer(std::span<const std::string> texts) {
  JsonText json;
  begin_object(json);
  add_texts(json, "messages", texts);
  end_object(json);
  return std::move(json.text);
}

/// The same of lines that a run has said.
std::string refusal_answer(std::string_view lines) {
  JsonText json;
  begin_object(json);
  add_lines(json, "messages", lines);
  end_object(json);
  return std::move(json.text);
}

std::string refusal_answer(const Refusal& refusal, ToolLanguage language) {
  return refusal_answer(refusal_texts(refusal, language));
}

std::string refusal_to_open(const Desk& desk, const std::string& name) {
  return refusal_answer(phrase(cannot_open, desk.language, {in_quotes(name)}));
}

/// Reads as much again as a change from the options at hand to `options` asks for, and corrects it. Yields why that is
/// impossible.
std::optional<Refusal> read_as_wished(Desk& desk, PrepareOptions options) {
  options.language = desk.language;
  options.this_year = desk.today.year;
  options.corrections = desk.corrections;
  const PrepareOptions before = std::exchange(desk.options, std::move(options));
  const bool has_columns = has_same_columns(before, desk.options);
  // Corrections are put into the text itself: others, or others' columns, want it as it was.
  const bool is_same_text = desk.has_export && before.export_name == desk.options.export_name &&
                            before.encoding == desk.options.encoding && before.delimiter == desk.options.delimiter &&
                            before.sheet == desk.options.sheet && before.corrections == desk.options.corrections &&
                            (desk.corrections.empty() || has_columns);
  std::optional<Refusal> refusal;
  if (!is_same_text) {
    tell(desk.watch, "reading");
    refusal = read_and_recognise(desk.options, desk.preparation);
  }
  if (!refusal && (!is_same_text || !has_columns)) {
    tell(desk.watch, "surveying");
    ProgressLine unseen;
    refusal = survey_columns(desk.options, unseen, desk.preparation);
    if (!refusal) refusal = correct_export(desk.options, unseen, desk.preparation);
  }
  desk.has_export = !refusal;
  if (!refusal) decide(desk.options, desk.preparation);
  return refusal;
}

/// What came of the old options is forgotten, unless nothing but the language of the desk has changed.
std::string take_options(Desk& desk, PrepareOptions options, std::string_view settings) {
  if (desk.settings != settings || !desk.has_export) forget_run(desk);
  desk.settings = settings;
  if (const std::optional<Refusal> refusal = read_as_wished(desk, std::move(options))) {
    return refusal_answer(*refusal, desk.language);
  }
  return export_answer(desk, refusal_of_survey(desk.preparation, desk.options));
}

struct DataTarget {
  NewFile file;
};

bool take_piece(void* receiver, std::string_view bytes) {
  return write_bytes(static_cast<DataTarget*>(receiver)->file, bytes);
}

/// Yields what went wrong; empty: nothing.
std::string write_all(const Desk& desk, const PreparePlan& plan, RunFiles& files) {
  DataTarget data;
  NewFile steer, list;
  std::vector<NewFile*> all = {&data.file, &steer};
  const bool has_list = !files.available_file.empty();
  if (has_list) all.push_back(&list);
  FileProblem problem;
  const auto failure = [&] {
    return phrase(cannot_write, desk.language, {in_quotes(problem.name), reason_of(problem, desk.language)});
  };
  if (!begin_file(data.file, files.data_file, problem) || !begin_file(steer, files.steer_file, problem) ||
      (has_list && !begin_file(list, files.available_file, problem))) {
    for (NewFile* const file : all) abandon(*file);
    return failure();
  }
  const Preparation& read = desk.preparation;
  AvailableIds& available = files.available;
  available.keeps_reasons = true;
  make_data_file(read.text, read.reading.delimiter, plan, read.survey.sexes,
                 {take_piece, &data, &files.export_lines, has_list ? &available : nullptr});
  write_bytes(steer, steer_text(plan));
  write_bytes(steer, corrections_line(count_outcomes(read.corrections).applied, files.export_lines.data_bytes));
  if (has_list) write_bytes(list, text_of_available(available));
  return finish_all(all, true, problem) ? std::string() : failure();
}

/// The settings of a steer file; nothing, with a message, when no report can be made of them.
std::optional<SteerSettings> read_settings(const std::string& name, std::string& message) {
  LineReader reader;
  if (!open_for_reading(reader, name)) return std::nullopt;
  RunStreams silent;
  try {
    return read_steer_lines(reader, silent);
  } catch (const RunStopped&) {
    message = silent.messages.pending;
    return std::nullopt;
  }
}

std::string whole_text(const std::string& name) {
  constexpr std::size_t most_bytes = 1'000'000;
  LineReader reader;
  std::string text;
  std::string_view line;
  if (!open_for_reading(reader, name)) return text;
  while (text.size() < most_bytes && read_line(reader, line)) text += std::string(line) + "\n";
  return text;
}

/// The list of animals that are still there, one id a line; false when it cannot be opened.
bool read_list(const std::string& name, RunFiles& files) {
  LineReader reader;
  std::string_view line;
  if (!open_for_reading(reader, name)) return false;
  while (read_line(reader, line)) {
    if (!without_blanks(line).empty()) files.available.ids.emplace_back(line);
  }
  files.available_file = name;
  return true;
}

std::string files_answer(const Desk& desk, std::string_view note) {
  JsonText json;
  begin_object(json);
  begin_list(json, "messages");
  end_list(json);
  add_text(json, "note", note);
  add_text(json, "steer", whole_text(desk.files->steer_file));
  add_text(json, "steerPath", desk.files->steer_file);
  add_text(json, "dataPath", desk.files->data_file);
  add_text(json, "availablePath", desk.files->available_file);
  add_integer(json, "available", std::ssize(desk.files->available.ids));
  add_text(json, "dataName", desk.steer->data_file_name.trimmed());
  add_text(json, "reportName", desk.steer->report_file_name.trimmed());
  add_text(json, "population", desk.steer->population_name.trimmed());
  end_object(json);
  return std::move(json.text);
}

}  // namespace

std::string open_export(Desk& desk, const std::string& name, std::string_view settings) {
  forget_all(desk);
  PrepareOptions options = options_from(settings, {});
  options.export_name = name;
  return take_options(desk, std::move(options), settings);
}

std::string change_settings(Desk& desk, std::string_view settings) {
  PrepareOptions options = options_from(settings, desk.preparation.survey);
  options.export_name = desk.options.export_name;
  return take_options(desk, std::move(options), settings);
}

std::vector<std::string> apply_desk_corrections(Desk& desk) {
  forget_run(desk);
  if (!desk.has_export) return {};
  const std::string settings = desk.settings;
  PrepareOptions options = options_from(settings, desk.preparation.survey);
  options.export_name = desk.options.export_name;
  const std::optional<Refusal> refusal = read_as_wished(desk, std::move(options));
  return refusal ? refusal_texts(*refusal, desk.language) : std::vector<std::string>();
}

std::string write_files_of_export(Desk& desk) {
  forget_run(desk);
  if (!desk.has_export) return refusal_answer(std::span<const std::string>());
  const PreparePlan& plan = desk.preparation.plan;
  std::vector<std::string> problems;
  for (const Question& question : plan.questions) problems.push_back(question_text(question, desk.language));
  const std::optional<Refusal> refusal =
      problems.empty() ? refusal_of_survey(desk.preparation, desk.options) : std::nullopt;
  if (refusal) problems = refusal_texts(*refusal, desk.language);
  if (!problems.empty()) return refusal_answer(problems);
  tell(desk.watch, "writing");
  const PreparePlan written = plan_of_report(desk);
  const std::filesystem::path folder(desk.folder);
  RunFiles files = {(folder / steer_file_name).string(), (folder / (plan.stem + ".txt")).string(), true};
  if (tells_gone(written.availability)) {
    files.available_file = (folder / (plan.stem + "_available.txt")).string();
  }
  std::string problem = write_all(desk, written, files);
  if (problem.empty()) desk.steer = read_settings(files.steer_file, problem);
  if (!desk.steer) return refusal_answer(problem);
  desk.files = std::move(files);
  return files_answer(desk, {});
}

std::string open_given_files(Desk& desk, const std::string& steer_file, const std::string& data_file,
                             const std::string& available_file) {
  forget_all(desk);
  std::string message;
  LineReader data;
  if (!open_for_reading(data, data_file)) return refusal_to_open(desk, data_file);
  desk.steer = read_settings(steer_file, message);
  if (!desk.steer) return message.empty() ? refusal_to_open(desk, steer_file) : refusal_answer(message);
  desk.files = RunFiles{steer_file, data_file, false};
  if (!available_file.empty() && !read_list(available_file, *desk.files)) return refusal_to_open(desk, available_file);
  const std::string named(desk.steer->data_file_name.trimmed());
  const std::string chosen = std::filesystem::path(data_file).filename().string();
  const bool is_named = named == chosen;
  return files_answer(
      desk, is_named ? std::string() : phrase(names_other_file, desk.language, {in_quotes(named), in_quotes(chosen)}));
}

}  // namespace pedigreewatch
