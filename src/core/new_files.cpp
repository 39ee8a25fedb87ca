// The temporary names end in ".new"; a file that is to be replaced is called ".old" until its successor is in place.

#include "core/new_files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <vector>

namespace pedigreewatch {
namespace {

namespace fs = std::filesystem;

// Windows' own library does not know the "x" that refuses a file which somebody made in the meantime.
#ifdef _WIN32
constexpr const char* new_file_mode = "wb";
#else
constexpr const char* new_file_mode = "wbx";
#endif

std::string words_for(int error) {
  return std::generic_category().message(error != 0 ? error : EIO);
}

bool close_file(NewFile& file) {
  if (file.file == nullptr) return file.error == 0;
  errno = 0;
  if (std::fclose(file.file) != 0 && file.error == 0) file.error = errno != 0 ? errno : EIO;
  file.file = nullptr;
  return file.error == 0;
}

/// A name that no file has yet.
std::string free_name(const std::string& name, std::string_view ending) {
  std::string candidate = name + std::string(ending);
  for (int number = 2; is_taken(candidate); ++number) candidate = name + std::string(ending) + std::to_string(number);
  return candidate;
}

/// A file on its way to its name, and the older one that has to make room.
struct Move {
  NewFile* file = nullptr;
  std::string older;  ///< what the older file is called meanwhile; empty: there was none
  bool is_done = false;
};

bool move_into_place(Move& move, FileProblem& problem) {
  std::error_code error;
  if (is_taken(move.file->name)) {
    move.older = free_name(move.file->name, ".old");
    fs::rename(move.file->name, move.older, error);
    if (error) move.older.clear();
  }
  if (!error) fs::rename(move.file->temporary, move.file->name, error);
  move.is_done = !error;
  if (error) problem = {move.file->name, error.message()};
  return move.is_done;
}

void move_back(Move& move) {
  std::error_code ignored;
  if (move.is_done) fs::remove(move.file->name, ignored);
  if (!move.older.empty()) fs::rename(move.older, move.file->name, ignored);
}

}  // namespace

bool is_taken(const std::string& name) {
  std::error_code ignored;
  const fs::file_type type = fs::symlink_status(name, ignored).type();
  return type != fs::file_type::not_found && type != fs::file_type::none;  // none: nobody may look there
}

bool begin_file(NewFile& file, const std::string& name, FileProblem& problem) {
  file = {.name = name, .temporary = free_name(name, ".new"), .file = nullptr, .error = 0};
  errno = 0;
  file.file = std::fopen(file.temporary.c_str(), new_file_mode);
  if (file.file == nullptr) problem = {file.temporary, words_for(errno)};
  return file.file != nullptr;
}

bool write_bytes(NewFile& file, std::string_view bytes) {
  if (file.error != 0 || file.file == nullptr) return false;
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file.file) != bytes.size()) file.error = errno != 0 ? errno : EIO;
  return file.error == 0;
}

void abandon(NewFile& file) {
  if (file.temporary.empty()) return;
  close_file(file);
  std::error_code ignored;
  fs::remove(file.temporary, ignored);
  file.temporary.clear();
}

bool finish_file(NewFile& file, FileProblem& problem) {
  std::error_code error;
  bool is_good = close_file(file);
  if (!is_good) problem = {file.name, words_for(file.error)};
  if (is_good) fs::rename(file.temporary, file.name, error);
  if (error) problem = {file.name, error.message()};
  is_good = is_good && !error;
  if (!is_good) abandon(file);
  return is_good;
}

bool finish_all(std::span<NewFile* const> files, bool may_overwrite, FileProblem& problem) {
  bool is_good = true;
  std::vector<Move> moves;
  for (NewFile* const file : files) {
    moves.push_back({.file = file, .older = {}});
    const bool is_complete = close_file(*file);
    if (is_good && !is_complete) problem = {file->name, words_for(file->error)};
    is_good = is_good && is_complete;
    if (!is_good || may_overwrite || !is_taken(file->name)) continue;
    problem = {file->name, {}};
    is_good = false;
  }
  for (Move& move : moves) is_good = is_good && move_into_place(move, problem);
  if (!is_good) std::for_each(moves.rbegin(), moves.rend(), move_back);
  for (const Move& move : moves) {
    std::error_code ignored;
    if (is_good && !move.older.empty()) fs::remove(move.older, ignored);
    if (!is_good) abandon(*move.file);
  }
  return is_good;
}

bool finish_both(NewFile& first, NewFile& second, bool may_overwrite, FileProblem& problem) {
  return finish_all(std::array{&first, &second}, may_overwrite, problem);
}

}  // namespace pedigreewatch
