// Files that belong together are written completely, all or none: under other names first, flushed to the disk, and
// each given its name in one step at the end. Whatever stops a run before leaves the older files as they were. What a
// killed run left behind is taken away by the next one that writes the same file while nobody else does.
#pragma once

#include <cstdio>
#include <span>
#include <string>
#include <string_view>

namespace pedigreewatch {

struct FileProblem {
  std::string name;    ///< of the file
  std::string reason;  ///< in the words of the system; empty: the file exists and may not be overwritten
  int error = 0;       ///< the number of the system that goes with these words; 0: there is none
};

/// A file that is being written under another name. What has not got its name when the record goes is taken away, also
/// when memory runs out.
struct NewFile {
  std::string name;       ///< what it will be called
  std::string temporary;  ///< what it is called until then; empty: nothing is being written
  std::FILE* file = nullptr;
  int error = 0;

  NewFile() = default;
  NewFile(NewFile&& other) noexcept;
  NewFile& operator=(NewFile&& other) noexcept;
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();
};

/// What a file is called while it is written, and what its predecessor is called while it is replaced, behind its name.
inline constexpr std::string_view unfinished_ending = ".pedigreewatch-new", replaced_ending = ".pedigreewatch-old";

/// Begins to write; false, with `problem`, when the file cannot be made. It has the rights of the file that it will
/// replace.
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
