#include "tools/folder_analysis.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <system_error>

#include "checks/readable_text.h"
#include "control/steer_file.h"
#include "core/new_files.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view no_steer_file =
    "pedigreewatch.ini: the steer file is not in this folder, or may not be read; go to the folder where pedigreewatch "
    "is run\n"
    "pedigreewatch.ini: de sturingsfile staat niet in deze map, of mag niet gelezen worden; ga naar de map waarin "
    "pedigreewatch gestart wordt";
constexpr Wording no_data_file = {
    "{1}: the data file that line 2 of pedigreewatch.ini names could not be opened",
    "{1}: het databestand dat regel 2 van pedigreewatch.ini noemt kon niet geopend worden"};
constexpr Wording data_stop_the_run = {
    "no figures can be made of these data; `pedigreewatch-tools check` names everything that stands in the way",
    "uit deze gegevens zijn geen cijfers te maken; `pedigreewatch-tools check` noemt alles wat in de weg staat"};
constexpr Wording was_stopped = {"stopped; nothing was written", "afgebroken; er is niets geschreven"};
constexpr Wording too_large = {"not enough memory for a population of this size",
                               "niet genoeg geheugen voor een populatie van deze omvang"};

void say(ToolStreams& streams, std::string_view text) {
  flush(streams.console);
  append(streams.messages, text);
  end_line(streams.messages);
}

/// The last lines that the run printed: those that tell why it stopped stand there.
std::string_view last_lines(std::string_view text) {
  constexpr int most_lines = 12;
  std::size_t begin = text.size();
  for (int lines = 0; begin > 0 && lines <= most_lines; --begin) {
    if (text[begin - 1] == '\n' && ++lines > most_lines) break;
  }
  return text.substr(begin);
}

void say_why_it_stopped(const RunStreams& run, ToolLanguage language, ToolStreams& streams) {
  if (is_stop_requested(run.console)) return say(streams, words_of(was_stopped, language));
  const std::string& messages = run.messages.pending;
  append(streams.messages, with_controls_named(messages.empty() ? last_lines(run.console.pending) : messages, "\n"));
  say(streams, words_of(data_stop_the_run, language));
}

std::optional<SteerSettings> read_settings(LineReader& reader, RunStreams& run, ToolStreams& streams) {
  try {
    return read_steer_lines(reader, run);
  } catch (const RunStopped&) {
    append(streams.messages, with_controls_named(run.messages.pending, "\n"));
    return std::nullopt;
  }
}

}  // namespace

ToolLanguage language_of(const SteerSettings& settings) {
  return settings.english ? ToolLanguage::english : ToolLanguage::dutch;
}

std::string name_beside_report(const SteerSettings& settings, std::string_view ending) {
  const std::filesystem::path report{std::string(settings.report_file_name.trimmed())};
  return (report.parent_path() / report.stem()).string() + std::string(ending);
}

NameObstacle find_obstacle(const std::string& name, const SteerSettings& settings, std::span<const std::string> lists) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  if (!is_taken(name)) return NameObstacle::none;
  if (!fs::is_regular_file(name, ignored)) return NameObstacle::no_file;
  const auto is_same = [&](const std::string& file) { return !file.empty() && fs::equivalent(name, file, ignored); };
  const bool is_read = is_same(std::string(steer_file_name)) ||
                       is_same(std::string(settings.data_file_name.trimmed())) ||
                       std::any_of(lists.begin(), lists.end(), is_same);
  return is_read ? NameObstacle::read_file : NameObstacle::none;
}

std::optional<AnalysedPopulation> analyse_folder(ToolStreams& streams) {
  RunStreams run;
  run.console.stop_request = streams.stop_request;
  LineReader steer_file;
  if (!open_for_reading(steer_file, steer_file_name)) {
    say(streams, no_steer_file);  // its language is not known
    return std::nullopt;
  }
  std::optional<SteerSettings> settings = read_settings(steer_file, run, streams);
  if (!settings) return std::nullopt;
  const ToolLanguage language = language_of(*settings);
  const std::string name(settings->data_file_name.trimmed());
  LineReader data;
  if (!open_for_reading(data, name)) {
    say(streams, phrase(no_data_file, language, {in_quotes(name)}));
    return std::nullopt;
  }
  try {
    return analyse_population(std::move(*settings), data, run);
  } catch (const RunStopped&) {
    say_why_it_stopped(run, language, streams);
  } catch (const std::bad_alloc&) {
    say(streams, words_of(too_large, language));
  } catch (const std::length_error&) {  // more elements than any memory holds
    say(streams, words_of(too_large, language));
  }
  return std::nullopt;
}

}  // namespace pedigreewatch
