// What the subcommands that work on the population of a folder write beside the report: all files of a run, or none.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "core/new_files.h"
#include "core/tool_streams.h"
#include "tools/folder_command.h"

namespace pedigreewatch {

/// What a run writes, for the words that say that it cannot be written.
enum class OutputKind : std::uint8_t { files, cards, tables, table, page };

/// What a run reads: the steer file, the data file that it names, and lists, of which empty names are none.
struct ReadFiles {
  const SteerSettings& settings;
  std::span<const std::string> lists;
  ToolLanguage language;
};

/// Why nothing can be written under `name`, which is a folder, a link, a device or a file that the run reads; an older
/// file of its kind does not stand in the way. No name: it can.
FileProblem find_obstacle(const ReadFiles& read, const std::string& name, OutputKind kind);
/// The same for a run that reads these lists beside the steer file and the data file.
FileProblem find_obstacle(const FolderRun& run, const std::string& name, std::span<const std::string> lists,
                          OutputKind kind);

/// Why it could not be written.
ToolRefusal refusal_to_write(const FileProblem& problem, OutputKind kind, ToolLanguage language);

/// What a file will be called, and what stands in it.
struct OutputFile {
  std::string name, content;
  NewFile file = {};
};

/// Writes the files, unless one has the name of something else: see `find_obstacle`.
std::optional<ToolRefusal> write_files(const FolderRun& run, std::span<OutputFile> files,
                                       std::span<const std::string> lists, OutputKind kind);

/// Gives files that were begun their names. Takes them away where there is a problem, or somebody wants the run to end.
std::optional<ToolRefusal> finish_files(const FolderRun& run, std::span<NewFile* const> files, FileProblem problem,
                                        OutputKind kind);

/// Says of each file that it was written.
void say_written(const FolderRun& run, std::span<const OutputFile> files);

}  // namespace pedigreewatch
