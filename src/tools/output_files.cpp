// Names are looked at before anything is begun, so that what stands in the way is told before work is lost on it.

#include "tools/output_files.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <vector>

#include "control/steer_file.h"
#include "text/system_reasons.h"

namespace pedigreewatch {
namespace {

constexpr Wording is_no_file = {"there is something of this name that is no file",
                                "er is al iets met deze naam dat geen bestand is"};

constexpr Wording is_link = {"this is a link to something else, which is not replaced; remove it first",
                             "dit is een koppeling naar iets anders, die niet vervangen wordt; haal haar eerst weg"};

constexpr Wording file_written = {"written: {1}", "geschreven: {1}"};

struct OutputWords {
  Wording is_in_use;    ///< the name is that of a file that the run reads
  Wording not_written;  ///< the file, and why
};

constexpr Wording table_in_use = {"a table of this name would replace a file that this run reads",
                                  "een tabel met deze naam zou een bestand vervangen dat hier gelezen wordt"};
constexpr Wording page_in_use = {"a page of this name would replace a file that this run reads",
                                 "een pagina met deze naam zou een bestand vervangen dat hier gelezen wordt"};
constexpr Wording nothing_written = {"{1}: {2}; nothing was written", "{1}: {2}; er is niets geschreven"};

/// By the kinds, in their order.
constexpr auto output_words = std::to_array<OutputWords>(
    {{{"a file of this name would replace one that this run reads",
       "een bestand met deze naam zou er een vervangen dat hier gelezen wordt"},
      nothing_written},
     {page_in_use, nothing_written},
     {table_in_use, {"{1}: {2}; no table was written", "{1}: {2}; er is geen tabel geschreven"}},
     {table_in_use, {"{1}: {2}; the table was not written", "{1}: {2}; de tabel is niet geschreven"}},
     {page_in_use, {"{1}: {2}; the page was not written", "{1}: {2}; de pagina is niet geschreven"}}});
static_assert(output_words.size() == static_cast<std::size_t>(OutputKind::page) + 1);

const OutputWords& words_for(OutputKind kind) {
  return output_words[static_cast<std::size_t>(kind)];
}

bool is_read(const std::string& name, const SteerSettings& settings, std::span<const std::string> lists) {
  std::error_code ignored;
  const auto is_same = [&](const std::string& file) {
    return !file.empty() && std::filesystem::equivalent(name, file, ignored);
  };
  return is_same(std::string(steer_file_name)) || is_same(std::string(settings.data_file_name.trimmed())) ||
         std::any_of(lists.begin(), lists.end(), is_same);
}

}  // namespace

FileProblem find_obstacle(const ReadFiles& read, const std::string& name, OutputKind kind) {
  std::error_code ignored;
  const auto problem = [&](const Wording& wording) { return FileProblem{name, phrase(wording, read.language), 0}; };
  if (!is_taken(name)) return {};
  if (is_read(name, read.settings, read.lists)) return problem(words_for(kind).is_in_use);
  if (std::filesystem::is_symlink(name, ignored)) return problem(is_link);
  if (!std::filesystem::is_regular_file(name, ignored)) return problem(is_no_file);
  return {};
}

FileProblem find_obstacle(const FolderRun& run, const std::string& name, std::span<const std::string> lists,
                          OutputKind kind) {
  return find_obstacle({run.population.settings, lists, run.language}, name, kind);
}

ToolRefusal refusal_to_write(const FileProblem& problem, OutputKind kind, ToolLanguage language) {
  return {phrase(words_for(kind).not_written, language, {shown(problem.name), reason_of(problem, language)})};
}

std::optional<ToolRefusal> write_files(const FolderRun& run, std::span<OutputFile> files,
                                       std::span<const std::string> lists, OutputKind kind) {
  FileProblem problem;
  for (const OutputFile& file : files) {
    problem = find_obstacle(run, file.name, lists, kind);
    if (!problem.name.empty()) break;
  }
  std::vector<NewFile*> begun;
  for (OutputFile& file : files) {
    if (!problem.name.empty() || !begin_file(file.file, file.name, problem)) break;
    begun.push_back(&file.file);
    write_bytes(file.file, file.content);
  }
  return finish_files(run, begun, std::move(problem), kind);
}

std::optional<ToolRefusal> finish_files(const FolderRun& run, std::span<NewFile* const> files, FileProblem problem,
                                        OutputKind kind) {
  if (problem.name.empty() && !is_stop_requested(run.streams) && finish_all(files, true, problem)) return std::nullopt;
  for (NewFile* const file : files) abandon(*file);
  if (is_stop_requested(run.streams)) return ToolRefusal{run.words(was_stopped)};
  return refusal_to_write(problem, kind, run.language);
}

void say_written(const FolderRun& run, std::span<const OutputFile> files) {
  for (const OutputFile& file : files) say(run.streams.console, run.words(file_written, {shown(file.name)}));
}

}  // namespace pedigreewatch
