#include "support/case_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace pedigreewatch::test {
namespace {

namespace fs = std::filesystem;

/// Takes a file out of `files`, if it is there.
std::optional<std::string> taken(Files& files, const std::string& name) {
  auto file = files.extract(name);
  if (file.empty()) return std::nullopt;
  return std::move(file.mapped());
}

}  // namespace

std::vector<std::string> case_names() {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(GOLDEN_FOLDER)) {
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

CaseFolder read_case(const std::string& name) {
  Files files = files_in(fs::path(GOLDEN_FOLDER) / name);
  CaseFolder result;
  result.about = taken(files, "about").value_or("");
  result.keyboard = taken(files, "stdin").value_or("");
  result.console = taken(files, "expected.console");
  result.report = taken(files, "expected.report");
  result.exit_status = std::stoi(taken(files, "expected.status").value_or("0"));
  result.messages = taken(files, "expected.messages").value_or("");
  for (const auto& [file, bytes] : files) EXPECT_FALSE(file.starts_with("expected.")) << name << "/" << file;
  result.inputs = std::move(files);
  return result;
}

}  // namespace pedigreewatch::test
