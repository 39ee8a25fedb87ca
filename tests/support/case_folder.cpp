#include "support/case_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

namespace fs = std::filesystem;

/// Takes a file out of `files`, if it is there.
std::optional<std::string> taken(Files& files, const std::string& name) {
  auto file = files.extract(name);
  if (file.empty()) return std::nullopt;
  return std::move(file.mapped());
}

/// Takes the files out of `files` whose names begin with `prefix`; what follows it is their name.
Files taken_behind(Files& files, std::string_view prefix) {
  Files result;
  for (auto& [name, bytes] : files) {
    if (name.starts_with(prefix)) result[name.substr(prefix.size())] = std::move(bytes);
  }
  std::erase_if(files, [prefix](const auto& file) { return file.first.starts_with(prefix); });
  return result;
}

}  // namespace

std::vector<std::string> case_names(const fs::path& folder) {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

CaseFolder read_case(const fs::path& folder) {
  Files files = files_in(folder);
  CaseFolder result;
  result.about = taken(files, "about").value_or("");
  result.arguments = lines_of(taken(files, "arguments").value_or(""));
  result.keyboard = taken(files, "stdin").value_or("");
  result.console = taken(files, "expected.console");
  result.report = taken(files, "expected.report");
  result.written = taken_behind(files, "expected.file.");
  result.exit_status = std::stoi(taken(files, "expected.status").value_or("0"));
  result.messages = taken(files, "expected.messages").value_or("");
  for (const auto& [name, bytes] : files) EXPECT_FALSE(name.starts_with("expected.")) << folder << ": " << name;
  result.inputs = std::move(files);
  return result;
}

}  // namespace pedigreewatch::test
