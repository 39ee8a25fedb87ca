#include "core/file_state.h"

#include <filesystem>
#include <system_error>

namespace pedigreewatch {

FileState state_of_file(const std::string& name) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (!fs::is_regular_file(name, error)) return {};
  FileState state;
  state.size = static_cast<std::int64_t>(fs::file_size(name, error));
  if (!error) state.changed_at = static_cast<std::int64_t>(fs::last_write_time(name, error).time_since_epoch().count());
  return error ? FileState{} : state;
}

}  // namespace pedigreewatch
