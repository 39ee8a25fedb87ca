// Reads the steer file as a run does, opens the data file that it names, and hands both to the checks.

#include "tools/check_command.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "checks/check.h"
#include "checks/check_report.h"
#include "checks/finding_kinds.h"
#include "control/check_setup.h"
#include "control/steer_file.h"
#include "core/memory_return.h"
#include "core/side_by_side.h"
#include "intake/said_values.h"
#include "text/system_reasons.h"
#include "tools/current_date.h"
#include "tools/folder_analysis.h"
#include "tools/folder_command.h"
#include "tools/output_files.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help = R"(usage: pedigreewatch-tools check [OPTION...]
  Run it in the folder with pedigreewatch.ini. It finds everything in the data file that stops pedigreewatch,
  falsifies its figures or is worth a look, and says for each the line and what to write instead. Nothing is
  changed. All findings are written to NAME_check.tsv, a table for any spreadsheet.

  --code CODE           show one kind of findings in full
  --limits FILE         other ages, intervals and litter sizes than those of the species; lines such as
                        youngest_parent_days = 300, young_parent_days, oldest_dam_years, oldest_sire_years,
                        births_apart_days, births_apart_look_days, largest_litter
  --today YYYY-MM-DD    the day beyond which a birth is in the future (else: today)
  --workbook            a workbook, NAME_check.xlsx, instead of NAME_check.tsv
  --plain               writes cells that begin with = + - @ as they are (else: behind an apostrophe)
  --help                shows this text

  Exit status: 0 nothing above "worth a look", 1 something stops the run or falsifies figures, 2 the files could
  not be checked.
)";

constexpr auto rules =
    std::to_array<OptionRule>({{"--code"}, {"--limits"}, {"--today"}, {"--workbook", false}, {"--plain", false}});

constexpr Wording too_many_lines = {
    "{1}: the file has 100000000 lines or more, of which pedigreewatch reads none",
    "{1}: het bestand heeft 100000000 regels of meer; daarvan leest pedigreewatch er geen"};
constexpr Wording unreadable = {"{1}: {2}", "{1}: {2}"};
constexpr Wording limits_not_opened = {"{1}: the file of --limits could not be opened: {2}",
                                       "{1}: het bestand van --limits kon niet geopend worden: {2}"};

constexpr Wording changed_since = {
    "{1} is not as prepare wrote it; lines are its own, not those of the export",
    "{1} is niet zoals prepare het schreef; regels zijn die van dit bestand, niet van de export"};

constexpr int has_serious = 1;

struct CheckOptions {
  std::optional<FindingCode> code;
  std::string limits_file;
  std::optional<CalendarDate> today;
  bool wants_workbook = false, is_plain = false;
};

/// Yields false for a text that is no day of the calendar.
bool read_today(std::string_view text, std::optional<CalendarDate>& today) {
  constexpr std::size_t length = 10;
  CalendarDate date;
  const auto read_number = [&](std::size_t begin, std::size_t end, std::int32_t& number) {
    const auto [stop, error] = std::from_chars(text.data() + begin, text.data() + end, number);
    return error == std::errc() && stop == text.data() + end && number > 0;
  };
  if (text.size() != length || text[4] != '-' || text[7] != '-' || !read_number(0, 4, date.year)) return false;
  if (!read_number(5, 7, date.month) || !read_number(8, 10, date.day)) return false;
  if (!is_in_calendar(date)) return false;
  today = date;
  return true;
}

/// Takes one option; yields what is wrong with it, empty: nothing.
std::string take_option(const GivenOption& option, CheckOptions& options) {
  if (option.name == "--plain") options.is_plain = true;
  if (option.name == "--limits") options.limits_file = option.value;
  if (option.name == "--workbook") options.wants_workbook = true;
  if (option.name == "--code") {
    options.code = finding_code_named(option.value);
    if (!options.code) return "--code " + in_quotes(option.value) + ": there is no such code";
  }
  if (option.name == "--today" && !read_today(option.value, options.today)) {
    return "--today " + in_quotes(option.value) + ": a date such as 2026-01-31 was expected";
  }
  return {};
}

/// Changes the limits; yields what is wrong with the file, empty: nothing.
std::string change_limits(const std::string& name, ToolLanguage language, CheckLimits& limits) {
  if (name.empty()) return {};
  LineReader reader;
  if (!open_for_reading(reader, name))
    return phrase(limits_not_opened, language, {shown(name), reason_text(reader.error, language)});
  std::string text;
  std::string_view line;
  constexpr std::size_t most_bytes = 1'000'000;
  while (text.size() < most_bytes && read_line(reader, line)) text += std::string(line) + "\n";
  note_change(reader);
  if (reader.error != 0) return phrase(unreadable, language, {shown(name), reason_text(reader.error, language)});
  return read_limits(text, name, limits);
}

std::string table_name(const std::string& data_file, std::string_view ending) {
  const std::filesystem::path path(data_file);
  return (path.parent_path() / (path.stem().string() + "_check" + std::string(ending))).string();
}

/// Completely or not at all, as `write_table`.
bool write_workbook(CheckResult& result, const CheckReport& report, FileProblem& problem) {
  NewFile file;
  if (!begin_file(file, report.table_file, problem)) return false;
  WorkbookWriter workbook;
  workbook.zip.file = &file;
  sort_by_line(result.findings);
  write_findings_sheet(result, report.language, workbook);
  if (finish_workbook(workbook)) return finish_file(file, problem);
  abandon(file);
  problem = {report.table_file, message_of(workbook, report.language), 0};
  return false;
}

/// Checks the data file, shows and writes what was found. `status` is that of a check that was made.
std::optional<ToolRefusal> check_file(const SteerSettings& steer, const CheckSettings& settings,
                                      const CheckOptions& options, ToolStreams& streams, int& status) {
  const std::string name(steer.data_file_name.trimmed());
  const auto refusal = [&](const Wording& wording, std::initializer_list<std::string_view> values) {
    return ToolRefusal{phrase(wording, settings.language, values)};
  };
  LineReader data;
  if (std::optional<ToolRefusal> not_opened = open_data_file(steer, data)) return not_opened;
  const std::string table = table_name(name, options.wants_workbook ? ".xlsx" : ".tsv");
  FileProblem problem = find_obstacle({steer, {&options.limits_file, 1}, settings.language}, table, OutputKind::table);
  if (!problem.name.empty()) return refusal_to_write(problem, OutputKind::table, settings.language);
  CheckResult result = check_data(data, settings, streams.progress);
  if (is_stop_requested(streams)) return refusal(was_stopped, {});
  if (data.error != 0) return refusal(unreadable, {shown(name), reason_text(data.error, settings.language)});
  if (has_changed(data)) return refusal(has_changed_meanwhile, {in_quotes(name)});
  if (result.has_too_many_lines) return refusal(too_many_lines, {shown(name)});
  const std::string export_name = settings.export_lines ? settings.export_lines->export_name : std::string();
  const CheckReport report = {name, table, settings.language, options.code, export_name, options.is_plain};
  if (is_stop_requested(streams)) return refusal(was_stopped, {});
  const bool is_written =
      options.wants_workbook ? write_workbook(result, report, problem) : write_table(result, report, problem);
  show_findings(result, report, streams.console);
  if (!is_written) return refusal_to_write(problem, OutputKind::table, settings.language);
  status = has_serious_findings(result.findings) ? has_serious : 0;
  return std::nullopt;
}

std::optional<ToolRefusal> check_folder(const CheckOptions& options, ToolStreams& streams, int& status) {
  SteerSettings steer;
  if (std::optional<ToolRefusal> refusal = read_settings_of_folder(steer)) return refusal;
  const CalendarDate today = options.today ? *options.today : current_date();
  CheckSettings settings = make_check_settings(steer, lines_of_steer_file(steer_file_name), today);
  take_memory_from_one_place();
  settings.threads = threads_of_machine();
  bool is_outdated = false;
  settings.export_lines = export_lines_beside(std::string(steer.data_file_name.trimmed()), is_outdated);
  if (is_outdated) say(streams.console, changed_since, settings.language, {shown(steer.data_file_name.trimmed())});
  std::string limits_problem = change_limits(options.limits_file, settings.language, settings.limits);
  if (!limits_problem.empty()) return ToolRefusal{std::move(limits_problem)};
  return check_file(steer, settings, options, streams, status);
}

}  // namespace

std::string_view check_help() {
  return help;
}

int run_check(std::span<const std::string_view> arguments, ToolStreams& streams) {
  CheckOptions options;
  const std::string problem =
      read_options(arguments, rules, [&](const GivenOption& option) { return take_option(option, options); });
  if (!problem.empty()) return refuse(streams, refusal_of_arguments("check", problem));
  int status = 0;
  const std::optional<ToolRefusal> refusal = check_folder(options, streams, status);
  return refusal ? refuse(streams, {refusal->text, could_not_check}) : status;
}

}  // namespace pedigreewatch
