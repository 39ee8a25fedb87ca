// A file gets its name by one rename, which puts it in the place of the older one without a moment in which neither
// stands there. Of a set all but the last older file get a second name for that moment, under which they go back when
// a later one cannot have its name.

#include "core/new_files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "core/folder_lock.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace pedigreewatch {
namespace {

namespace fs = std::filesystem;

// Windows' own library does not know the "x" that refuses a file which somebody made in the meantime.
#ifdef _WIN32
constexpr const char* new_file_mode = "wb";
#else
constexpr const char* new_file_mode = "wbx";
#endif

FileProblem problem_of(const std::string& name, int error) {
  const int known = error != 0 ? error : EIO;
  return {name, std::generic_category().message(known), known};
}

/// In the words of the system at hand, which has numbers of its own.
FileProblem problem_of(const std::string& name, const std::error_code& error) {
  const std::error_condition known = error.default_error_condition();
  return {name, error.message(), known.category() == std::generic_category() ? known.value() : 0};
}

bool flush_to_disk(std::FILE* file) {
#ifdef _WIN32
  return _commit(_fileno(file)) == 0;
#else
  // What is no disk has nothing to flush to, and says so.
  return fsync(fileno(file)) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
#endif
}

/// Everything stands on the disk; false when it does not. The file stays open, and with that it is known to be in use.
bool settle_file(NewFile& file) {
  if (file.file == nullptr) return false;
  errno = 0;
  if ((std::fflush(file.file) != 0 || !flush_to_disk(file.file)) && file.error == 0) {
    file.error = errno != 0 ? errno : EIO;
  }
#ifdef _WIN32
  if (std::fclose(std::exchange(file.file, nullptr)) != 0 && file.error == 0) file.error = EIO;
#endif
  return file.error == 0;
}

void close_file(NewFile& file) {
  if (file.file != nullptr) std::fclose(std::exchange(file.file, nullptr));
}

/// The name, its ending, and a number from the second one on.
std::string numbered_name(const std::string& name, std::string_view ending, int number) {
  return name + std::string(ending) + (number > 1 ? std::to_string(number) : std::string());
}

/// A name that no file has yet.
std::string free_name(const std::string& name, std::string_view ending) {
  int number = 1;
  while (is_taken(numbered_name(name, ending, number))) ++number;
  return numbered_name(name, ending, number);
}

bool is_plain_file(const std::string& name) {
  std::error_code ignored;
  return fs::is_regular_file(fs::symlink_status(name, ignored));
}

/// Takes away what killed runs left beside the name. Nobody else begins or ends a file in the folder meanwhile. A
/// predecessor that has no other name any more gets it back.
void clear_leftovers(const std::string& name) {
  constexpr int most_leftovers = 16;
  std::error_code ignored;
  for (int number = 1; number <= most_leftovers; ++number) {
    const std::string unfinished = numbered_name(name, unfinished_ending, number);
    if (is_plain_file(unfinished) && is_deserted(unfinished)) fs::remove(unfinished, ignored);
    const std::string replaced = numbered_name(name, replaced_ending, number);
    if (!is_plain_file(replaced)) continue;
    if (is_taken(name)) {
      fs::remove(replaced, ignored);
    } else {
      fs::rename(replaced, name, ignored);
    }
  }
}

void take_over_rights(const std::string& from, const std::string& to) {
  std::error_code error;
  if (!is_plain_file(from)) return;
  const fs::perms rights = fs::status(from, error).permissions();
  if (!error) fs::permissions(to, rights, error);
}

/// A file on its way to its name, and the older one that has to make room.
struct Move {
  NewFile* file = nullptr;
  std::string older = {};          ///< what the older file is called besides; empty: it has no second name
  bool has_left_its_name = false;  ///< on a disk without second names
  bool is_done = false;
};

/// Sees to it that the older file can come back.
void secure_older(Move& move, std::error_code& error) {
  const std::string& name = move.file->name;
  if (fs::is_directory(name, error)) error = std::make_error_code(std::errc::is_a_directory);
  if (error || !is_taken(name)) return;
  move.older = free_name(name, replaced_ending);
  fs::create_hard_link(name, move.older, error);
  if (!error) return;
  error.clear();
  fs::rename(name, move.older, error);
  move.has_left_its_name = !error;
  if (error) move.older.clear();
}

/// `is_last`: no other file of the set can fail behind it, and the older one need not come back.
bool move_into_place(Move& move, bool is_last, FileProblem& problem) {
  std::error_code error;
  if (!is_last) secure_older(move, error);
  if (error == std::errc::no_such_file_or_directory) error.clear();  // there is no older file
  if (!error) fs::rename(move.file->temporary, move.file->name, error);
  move.is_done = !error;
  if (error) problem = problem_of(move.file->name, error);
  return move.is_done;
}

void move_back(const Move& move) {
  std::error_code ignored;
  if (move.older.empty()) {
    if (move.is_done) fs::remove(move.file->name, ignored);
  } else if (move.is_done || move.has_left_its_name) {
    fs::rename(move.older, move.file->name, ignored);
  } else {
    fs::remove(move.older, ignored);
  }
}

/// Changes the names; all are changed, or none.
bool move_all(std::span<NewFile* const> files, FileProblem& problem) {
  std::vector<Move> moves;
  for (NewFile* const file : files) moves.push_back({.file = file});
  bool is_good = true;
  for (Move& move : moves) is_good = is_good && move_into_place(move, &move == &moves.back(), problem);
  if (!is_good) std::for_each(moves.rbegin(), moves.rend(), move_back);
  std::error_code ignored;
  for (const Move& move : moves) {
    if (is_good && !move.older.empty()) fs::remove(move.older, ignored);
  }
  return is_good;
}

/// The folders of the files, one lock for each: two programs that hold one each would wait for each other.
std::vector<FolderLock> lock_folders_of(std::span<NewFile* const> files) {
  std::vector<std::string> parents;
  for (const NewFile* const file : files) parents.push_back(fs::path(file->name).parent_path().string());
  std::sort(parents.begin(), parents.end());
  parents.erase(std::unique(parents.begin(), parents.end()), parents.end());
  std::vector<FolderLock> locks;
  locks.reserve(parents.size());
  for (const std::string& parent : parents) locks.push_back(lock_folder_of((fs::path(parent) / "file").string()));
  return locks;
}

bool has_room(const NewFile& file, bool may_overwrite, FileProblem& problem) {
  if (may_overwrite || !is_taken(file.name)) return true;
  problem = {file.name, {}, 0};
  return false;
}

}  // namespace

NewFile::NewFile(NewFile&& other) noexcept
    : name(std::exchange(other.name, {})),
      temporary(std::exchange(other.temporary, {})),
      file(std::exchange(other.file, nullptr)),
      error(other.error) {}

NewFile& NewFile::operator=(NewFile&& other) noexcept {
  std::swap(name, other.name);
  std::swap(temporary, other.temporary);
  std::swap(file, other.file);
  std::swap(error, other.error);
  return *this;
}

NewFile::~NewFile() {
  abandon(*this);
}

bool is_taken(const std::string& name) {
  std::error_code ignored;
  const fs::file_type type = fs::symlink_status(name, ignored).type();
  return type != fs::file_type::not_found && type != fs::file_type::none;  // none: nobody may look there
}

bool begin_file(NewFile& file, const std::string& name, FileProblem& problem) {
  abandon(file);
  const FolderLock lock = lock_folder_of(name);
  if (lock.is_held()) clear_leftovers(name);
  const std::string temporary = free_name(name, unfinished_ending);
  errno = 0;
  file.error = 0;
  file.file = std::fopen(temporary.c_str(), new_file_mode);
  if (file.file == nullptr) {
    problem = problem_of(name, errno);
    return false;
  }
  file.name = name;
  file.temporary = temporary;
  lock_file(file.file);
  take_over_rights(name, temporary);
  return true;
}

bool write_bytes(NewFile& file, std::string_view bytes) {
  if (file.error != 0 || file.file == nullptr) return false;
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file.file) != bytes.size()) file.error = errno != 0 ? errno : EIO;
  return file.error == 0;
}

void abandon(NewFile& file) {
  if (file.temporary.empty()) return;
#ifdef _WIN32
  close_file(file);  // an open file cannot be removed there
#endif
  std::error_code ignored;
  fs::remove(file.temporary, ignored);
  close_file(file);
  file.temporary.clear();
}

bool finish_all(std::span<NewFile* const> files, bool may_overwrite, FileProblem& problem) {
  bool is_good = true;
  for (NewFile* const file : files) {
    const bool is_complete = settle_file(*file);
    if (is_good && !is_complete) problem = problem_of(file->name, file->error);
    is_good = is_good && is_complete;
  }
  if (is_good) {
    const std::vector<FolderLock> locks = lock_folders_of(files);
    for (const NewFile* const file : files) is_good = is_good && has_room(*file, may_overwrite, problem);
    is_good = is_good && move_all(files, problem);
  }
  for (NewFile* const file : files) {
    if (is_good) file->temporary.clear();
    if (is_good) close_file(*file);
    if (!is_good) abandon(*file);
  }
  return is_good;
}

bool finish_both(NewFile& first, NewFile& second, bool may_overwrite, FileProblem& problem) {
  return finish_all(std::array{&first, &second}, may_overwrite, problem);
}

bool finish_file(NewFile& file, FileProblem& problem) {
  return finish_all(std::array{&file}, true, problem);
}

}  // namespace pedigreewatch
