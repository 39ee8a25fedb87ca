#include "tools/folder_analysis.h"

#include <cerrno>
#include <filesystem>
#include <new>
#include <span>
#include <stdexcept>
#include <utility>

#include "checks/readable_text.h"
#include "control/corrected_data.h"
#include "control/run_ending.h"
#include "core/side_by_side.h"
#include "text/phrases.h"
#include "text/system_reasons.h"
#include "tools/folder_command.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view no_steer_file =
    "pedigreewatch.ini: the steer file is not in this folder, or may not be read; go to the folder where pedigreewatch is run\n"
    "pedigreewatch.ini: de sturingsfile staat niet in deze map, of mag niet gelezen worden; ga naar de map waarin pedigreewatch gestart wordt";
constexpr Wording no_data_file = {
    "{1}: the data file that line 2 of pedigreewatch.ini names could not be opened: {2}",
    "{1}: het databestand dat regel 2 van pedigreewatch.ini noemt kon niet geopend worden: {2}"};
constexpr Wording data_stop_the_run = {
    "no figures can be made of these data; `pedigreewatch-tools check` names everything that stands in the way",
    "uit deze gegevens zijn geen cijfers te maken; `pedigreewatch-tools check` noemt alles wat in de weg staat"};
constexpr std::string_view stopped_at_steer_file =  // its language is not known yet
    "stopped; nothing was written\nafgebroken; er is niets geschreven";
constexpr Wording too_large = {"not enough memory for a population of this size",
                               "niet genoeg geheugen voor een populatie van deze omvang"};

ToolRefusal refusal_of_run(const RunStreams& run, const LineReader& data, ToolLanguage language) {
  if (run.has_changed_input) return {phrase(has_changed_meanwhile, language, {in_quotes(data.name)})};
  if (is_stop_requested(run.console.stop_request)) return {phrase(was_stopped, language)};
  return {with_controls_named(last_words(run), "\n") + phrase(data_stop_the_run, language)};
}

/// What stands in the way of the steer file itself, whatever its lines say.
std::optional<ToolRefusal> refusal_of_steer_file(LineReader& reader, const SteerSettings& settings) {
  note_change(reader);
  if (reader.error == EINTR) return ToolRefusal{std::string(stopped_at_steer_file)};
  if (reader.error != input_has_changed) return std::nullopt;
  return ToolRefusal{phrase(has_changed_meanwhile, language_of(settings), {in_quotes(reader.name)})};
}

}  // namespace

std::optional<ToolRefusal> read_settings_of_folder(SteerSettings& settings) {
  LineReader reader;
  if (!open_for_reading(reader, steer_file_name)) {
    return ToolRefusal{std::string(reader.error == EINTR ? stopped_at_steer_file : no_steer_file)};
  }
  RunStreams silent;
  try {
    settings = read_steer_lines(reader, silent);
    return refusal_of_steer_file(reader, settings);
  } catch (const RunStopped&) {
    if (std::optional<ToolRefusal> refusal = refusal_of_steer_file(reader, settings)) return refusal;
    std::string& messages = silent.messages.pending;
    if (messages.ends_with('\n')) messages.pop_back();
    return ToolRefusal{with_controls_named(messages, "\n")};
  }
}

std::optional<ToolRefusal> open_data_file(const SteerSettings& settings, LineReader& data) {
  const std::string name(settings.data_file_name.trimmed());
  if (open_for_reading(data, name)) return std::nullopt;
  if (data.error == EINTR) return ToolRefusal{phrase(was_stopped, language_of(settings))};
  return ToolRefusal{
      phrase(no_data_file, language_of(settings), {in_quotes(name), reason_text(data.error, language_of(settings))})};
}

std::optional<ToolRefusal> analyse_folder(FolderUse use, StopRequest stop_request, AnalysedPopulation& population) {
  SteerSettings settings;
  LineReader data;
  if (std::optional<ToolRefusal> refusal = read_settings_of_folder(settings)) return refusal;
  if (std::optional<ToolRefusal> refusal = open_data_file(settings, data)) return refusal;
  const ToolLanguage language = language_of(settings);
  RunStreams run;
  run.console.is_english = run.report.is_english = settings.english;
  run.console.stop_request = stop_request;
  run.shows_subpopulations = use == FolderUse::subpopulations_too;
  run.do_tasks = [](std::span<const Task> tasks) { do_side_by_side(tasks, threads_of_machine()); };
  try {
    population = analyse_population(std::move(settings), data, run);
    population.corrections = corrections_in_data(std::string(steer_file_name), population.data_state);
    return std::nullopt;
  } catch (const RunStopped&) {
    return refusal_of_run(run, data, language);
  } catch (const std::bad_alloc&) {
    return ToolRefusal{phrase(too_large, language)};
  } catch (const std::length_error&) {  // more elements than any memory holds
    return ToolRefusal{phrase(too_large, language)};
  }
}

}  // namespace pedigreewatch
