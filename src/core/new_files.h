// Files that belong together are written completely, all or none: under other names first, which are changed at the
// end.
#pragma once

#include <cstdio>
#include <span>
#include <string>
#include <string_view>

namespace pedigreewatch {

struct FileProblem {
  std::string name;    ///< of the file
  std::string reason;  ///< in the words of the system; empty: the file exists and may not be overwritten
};

/// A file that is being written under another name.
struct NewFile {
  std::string name;       ///< what it will be called
  std::string temporary;  ///< what it is called until then
  std::FILE* file = nullptr;
  int error = 0;
};

/// Begins to write; false, with `problem`, when the file cannot be made.
bool begin_file(NewFile& file, const std::string& name, FileProblem& problem);

/// Adds bytes; false when they could not be written, and from then on.
bool write_bytes(NewFile& file, std::string_view bytes);

/// Takes away what was begun.
void abandon(NewFile& file);

/// Ends the files and gives them their names. When anything fails none of them is changed, and `problem` says why.
/// Files of these names are replaced only when that is allowed.
bool finish_all(std::span<NewFile* const> files, bool may_overwrite, FileProblem& problem);

/// The same for two files.
bool finish_both(NewFile& first, NewFile& second, bool may_overwrite, FileProblem& problem);

/// Ends the file and gives it its name, in place of an older one. When that fails nothing is changed, and `problem`
/// says why.
bool finish_file(NewFile& file, FileProblem& problem);

/// Whether something of this name exists, also a link that leads nowhere.
bool is_taken(const std::string& name);

}  // namespace pedigreewatch
