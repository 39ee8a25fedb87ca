// The steps of the preparation up to the decisions, then: ask what is open, write.

#include "intake/prepare.h"

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "core/file_state.h"
#include "core/new_files.h"
#include "corrections/contained_corrections.h"
#include "intake/console_words.h"
#include "intake/correction_words.h"
#include "intake/export_preparation.h"
#include "intake/export_remarks.h"
#include "intake/kept_answers.h"
#include "intake/prepared_file.h"
#include "intake/said_values.h"
#include "text/system_reasons.h"

namespace pedigreewatch {
namespace {

namespace fs = std::filesystem;

constexpr Wording folder_missing = {"{1}: there is no such folder; make it first, or choose another one with --out",
                                    "{1}: deze map is er niet; maak hem eerst, of kies een andere met --out"};
constexpr Wording would_replace_export = {
    "The new files, or the report, would overwrite your export ({1}). Choose another folder: --out FOLDER.",
    "De nieuwe bestanden, of het rapport, zouden uw export overschrijven ({1}). Kies een andere map: --out MAP."};
constexpr Wording already_there = {"{1} exists already. To write over it say --force, or choose a folder with --out.",
                                   "{1} bestaat al. Met --force wordt het overschreven; of kies een map met --out."};
constexpr Wording cannot_write = {"{1}: it cannot be written: {2}. Nothing was changed.",
                                  "{1}: niet te schrijven: {2}. Er is niets veranderd."};
constexpr Wording is_no_plain_file = {
    "{1}: this is a link, a pipe or a device, which is not replaced; remove it first. Nothing was changed.",
    "{1}: dit is een koppeling, een pijp of een apparaat, en wordt niet vervangen; haal het eerst weg. Er is niets veranderd."};
constexpr Wording stopped_from_outside = {"stopped from outside; nothing was written",
                                          "van buiten gestopt; er is niets geschreven"};
constexpr Wording export_has_changed = {
    "{1}: the export has changed while it was read; nothing was written; run again when nobody writes it",
    "{1}: de export is veranderd terwijl hij gelezen werd; er is niets geschreven; begin opnieuw als niemand hem schrijft"};
constexpr Wording writing_lines = {"writing lines", "geschreven regels"};
constexpr Wording questions_title = {"Before anything is written, please answer:",
                                     "Beantwoord eerst, voordat er iets geschreven wordt:"};
constexpr Wording done = {"Written: {1} and {2}. Go to that folder and start pedigreewatch.",
                          "Geschreven: {1} en {2}. Ga naar die map en start pedigreewatch."};
constexpr Wording available_written = {
    "Written: {1}: {2} of {3} animals are still there. Matings, lists and plans take only those.",
    "Geschreven: {1}: {2} van {3} dieren zijn er nog. Paringen, lijsten en plannen nemen alleen die."};
constexpr Wording available_left = {
    "Left: {1}. No column of this export tells which animals have gone; matings, lists and plans go by that file.",
    "Gebleven: {1}. Geen kolom van deze export zegt welke dieren weg zijn; paringen, lijsten en plannen volgen dat bestand."};
constexpr Wording answers_kept = {
    "Kept: {1}, your answers; they are used again for the next export with the same headings.",
    "Bewaard: {1}, uw antwoorden; ze worden weer gebruikt bij de volgende export met dezelfde koppen."};
constexpr Wording cannot_keep = {"{1}: your answers could not be kept: {2}.",
                                 "{1}: uw antwoorden konden niet bewaard worden: {2}."};
constexpr Wording dry_run_done = {"Nothing was written (--dry-run). It would have been {1} and {2}.",
                                  "Er is niets geschreven (--dry-run). Het zouden {1} en {2} zijn geworden."};

ToolRefusal refusal_in(const PrepareOptions& options, const Wording& wording,
                       std::initializer_list<std::string_view> values = {}) {
  return {phrase(wording, options.language, values)};
}

/// The questions that stay open.
ToolRefusal refusal_of_questions(const PreparePlan& plan) {
  std::string text(words_of(questions_title, plan.language));
  for (const Question& question : plan.questions) text += "\n* " + words_of(question, plan.language);
  return {text};
}

ToolRefusal refusal_of_export(const Refusal& refusal, const PrepareOptions& options, const ToolStreams& streams) {
  return is_stop_requested(streams) ? refusal_in(options, stopped_from_outside)
                                    : ToolRefusal{words_of(refusal, options.language)};
}

ToolRefusal refusal_of_file(const FileProblem& problem, const PrepareOptions& options) {
  if (problem.reason.empty()) return refusal_in(options, already_there, {shown(problem.name)});
  return refusal_in(options, cannot_write, {shown(problem.name), reason_of(problem, options.language)});
}

ToolRefusal refusal_of_change(const PrepareOptions& options) {
  return refusal_in(options, export_has_changed, {shown(options.export_name)});
}

/// Whether somebody writes the export meanwhile.
bool has_export_changed(const Preparation& read, const PrepareOptions& options) {
  return read.export_state != state_of_file(options.export_name);
}

/// The files that are written, and the report to come; none of them may replace the export.
struct Targets {
  std::string data, steer, lines, available, report, answers;
};

Targets targets_of(const PreparePlan& plan, const PrepareOptions& options) {
  const fs::path folder(options.folder);
  const std::string data = (folder / (plan.stem + ".txt")).string();
  return {data,
          (folder / "pedigreewatch.ini").string(),
          name_of_export_lines(data),
          (folder / (plan.stem + "_available.txt")).string(),
          (folder / (plan.stem + ".out")).string(),
          (folder / (plan.stem + ".answers")).string()};
}

/// What is kept of what the user says; empty: nothing.
std::string kept_answers(const Preparation& read, const PrepareOptions& options) {
  return answers_text(kept_options(options, read.survey), read.plan.columns);
}

/// Whether a file of answers of that name is there which was not used.
bool would_lose_answers(const Targets& targets, const Preparation& read, const PrepareOptions& options) {
  std::error_code ignored;
  const bool were_used = !read.answers.file.empty() && fs::equivalent(targets.answers, read.answers.file, ignored);
  return is_taken(targets.answers) && !were_used && !kept_answers(read, options).empty();
}

/// Refuses what stands there and is no plain file.
std::optional<ToolRefusal> refuse_odd(const std::string& target, const PrepareOptions& options) {
  std::error_code ignored;
  if (fs::is_directory(target, ignored)) {
    return refusal_in(options, cannot_write, {shown(target), reason_text(EISDIR, options.language)});
  }
  const bool is_odd = is_taken(target) && !fs::is_regular_file(fs::symlink_status(target, ignored));
  return is_odd ? std::optional<ToolRefusal>(refusal_in(options, is_no_plain_file, {shown(target)})) : std::nullopt;
}

/// Refuses a folder that is not there, and to write over what must stay.
std::optional<ToolRefusal> refuse_targets(const Targets& targets, const Preparation& read,
                                          const PrepareOptions& options) {
  std::error_code ignored;
  if (!options.folder.empty() && !fs::is_directory(options.folder, ignored)) {
    return refusal_in(options, folder_missing, {shown(options.folder)});
  }
  const bool has_list = tells_gone(read.plan.availability);
  for (const std::string& target :
       {targets.data, targets.steer, targets.lines, targets.available, targets.report, targets.answers}) {
    if (fs::equivalent(target, options.export_name, ignored)) {
      return refusal_in(options, would_replace_export, {shown(target)});
    }
  }
  if (!options.may_overwrite && would_lose_answers(targets, read, options)) {
    return refusal_in(options, already_there, {shown(targets.answers)});
  }
  for (const std::string& target : {targets.data, targets.steer, targets.lines, targets.available}) {
    if (target == targets.available && !has_list) continue;
    if (!options.may_overwrite && is_taken(target)) return refusal_in(options, already_there, {shown(target)});
    if (std::optional<ToolRefusal> refusal = refuse_odd(target, options)) return refusal;
  }
  if (kept_answers(read, options).empty()) return std::nullopt;
  return refuse_odd(targets.answers, options);
}

/// What the pieces of the data file go to.
struct DataReceiver {
  NewFile file;
  ToolStreams* streams = nullptr;
  std::int64_t line_count = 0;
};

bool take_piece(void* receiver, std::string_view bytes) {
  auto& target = *static_cast<DataReceiver*>(receiver);
  target.line_count += std::count(bytes.begin(), bytes.end(), '\n');
  count_progress(target.streams->progress, target.line_count);
  return !is_stop_requested(*target.streams) && write_bytes(target.file, bytes);
}

/// Keeps what was asked and chosen beside the written files.
std::optional<ToolRefusal> keep_answers(const Targets& targets, const Preparation& read, const PrepareOptions& options,
                                        ToolStreams& streams) {
  const std::string text = kept_answers(read, options);
  if (text.empty()) return std::nullopt;
  NewFile file;
  FileProblem problem;
  const bool is_kept =
      begin_file(file, targets.answers, problem) && write_bytes(file, text) && finish_file(file, problem);
  if (!is_kept) {
    return refusal_in(options, cannot_keep, {shown(targets.answers), reason_of(problem, options.language)});
  }
  say(streams.console, answers_kept, options.language, {shown(targets.answers)});
  return std::nullopt;
}

/// All files that are given their names together.
struct WrittenFiles {
  DataReceiver data;
  NewFile steer, lines, available;
  bool has_available = false;

  std::vector<NewFile*> all() {
    std::vector<NewFile*> files = {&data.file, &steer, &lines};
    if (has_available) files.push_back(&available);
    return files;
  }
};

bool begin_files(WrittenFiles& files, const Targets& targets, FileProblem& problem) {
  return begin_file(files.data.file, targets.data, problem) && begin_file(files.steer, targets.steer, problem) &&
         begin_file(files.lines, targets.lines, problem) &&
         (!files.has_available || begin_file(files.available, targets.available, problem));
}

/// Writes everything but the names; false when it was stopped. `available` gets the ids of the animals that are there.
bool fill_files(WrittenFiles& files, const Preparation& read, const PrepareOptions& options, AvailableIds& available) {
  ToolStreams& streams = *files.data.streams;
  ExportLines lines;
  begin_progress(streams.progress, words_of(writing_lines, options.language));
  const bool is_made = make_data_file(read.text, read.reading.delimiter, read.plan, read.survey.sexes,
                                      {take_piece, &files.data, &lines, files.has_available ? &available : nullptr});
  erase_progress(streams.progress);
  write_bytes(files.steer, steer_text(read.plan));
  write_bytes(files.steer, corrections_line(count_outcomes(read.corrections).applied, lines.data_bytes));
  lines.export_name = fs::path(options.export_name).filename().string();
  write_bytes(files.lines, text_of_export_lines(lines));
  if (files.has_available) write_bytes(files.available, text_of_available(available));
  return is_made || !is_stop_requested(streams);
}

/// Says which animals matings and plans take.
void say_available(const Targets& targets, const Preparation& read, const AvailableIds& available,
                   const PrepareOptions& options, ToolStreams& streams) {
  if (tells_gone(read.plan.availability)) {
    say(streams.console, available_written, options.language,
        {shown(targets.available), std::to_string(available.ids.size()), std::to_string(read.survey.animal_count)});
  } else if (is_taken(targets.available)) {
    say(streams.console, available_left, options.language, {shown(targets.available)});
  }
}

std::optional<ToolRefusal> write_files(const Targets& targets, const Preparation& read, const PrepareOptions& options,
                                       ToolStreams& streams) {
  WrittenFiles files;
  files.data.streams = &streams;
  files.has_available = tells_gone(read.plan.availability);
  const std::vector<NewFile*> all = files.all();
  const auto abandon_all = [&] { std::for_each(all.begin(), all.end(), [](NewFile* file) { abandon(*file); }); };
  FileProblem problem;
  if (!begin_files(files, targets, problem)) {
    abandon_all();
    return refusal_of_file(problem, options);
  }
  AvailableIds available;
  if (!fill_files(files, read, options, available)) {
    abandon_all();
    return refusal_in(options, stopped_from_outside);
  }
  if (has_export_changed(read, options)) {
    abandon_all();
    return refusal_of_change(options);
  }
  if (!finish_all(all, options.may_overwrite, problem)) return refusal_of_file(problem, options);
  say(streams.console, done, options.language, {shown(targets.data), shown(targets.steer)});
  say_available(targets, read, available, options, streams);
  return keep_answers(targets, read, options, streams);
}

/// Says what became of the corrections: those that were not applied one by one.
void show_corrections(const Preparation& read, const PrepareOptions& options, ToolStreams& streams) {
  const auto show = [&](const std::string& line) {
    append(streams.console, line);
    end_line(streams.console);
  };
  if (!read.corrections.empty()) show(corrections_sentence(read.corrections, options.language));
  for (std::size_t k = 0; k < read.corrections.size(); ++k) {
    const std::string sentence = outcome_sentence(options.corrections[k], read.corrections[k], options.language);
    if (!sentence.empty()) show("  " + sentence);
  }
}

std::optional<ToolRefusal> prepare_export(PrepareOptions options, ToolStreams& streams) {
  Preparation read;
  std::optional<Refusal> refusal = read_with_answers(options, read);
  if (!refusal) refusal = survey_columns(options, streams.progress, read);
  if (!refusal) refusal = correct_export(options, streams.progress, read);
  if (has_export_changed(read, options)) return refusal_of_change(options);
  if (refusal) return refusal_of_export(*refusal, options, streams);
  leave_out_unfit_answers(read.answers, read.survey, options);
  decide(options, read);
  show_remarks(remarks_on(read, options), options.language, streams.console);
  show_corrections(read, options, streams);
  refusal = refusal_of_survey(read, options);
  if (refusal) return refusal_of_export(*refusal, options, streams);
  if (!read.plan.questions.empty()) return refusal_of_questions(read.plan);
  const Targets targets = targets_of(read.plan, options);
  if (options.is_dry_run) {
    streams.makes_files = false;
    say(streams.console, dry_run_done, options.language, {shown(targets.data), shown(targets.steer)});
    return std::nullopt;
  }
  if (std::optional<ToolRefusal> standing = refuse_targets(targets, read, options)) return standing;
  return write_files(targets, read, options, streams);
}

}  // namespace

int prepare(const PrepareOptions& options, ToolStreams& streams) {
  const std::optional<ToolRefusal> refusal = prepare_export(options, streams);
  return refusal ? refuse(streams, *refusal) : 0;
}

}  // namespace pedigreewatch
