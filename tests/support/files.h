// Files as bytes in memory: what a folder holds before a run and after it.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace pedigreewatch::test {

/// File names and their bytes. A name that ends in a slash stands for a folder.
using Files = std::map<std::string, std::string>;

/// The bytes of a file; the test fails when it cannot be opened.
std::string bytes_of(const std::filesystem::path& file);
/// The same of a file that may be missing.
std::optional<std::string> bytes_if_present(const std::filesystem::path& file);

/// Puts all `files` into a folder that is there.
void write_files(const std::filesystem::path& folder, const Files& files);
/// The regular files of a folder, without what stands in folders below it. Links are none of them.
Files files_in(const std::filesystem::path& folder);

}  // namespace pedigreewatch::test
