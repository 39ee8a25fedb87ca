#include "control/corrected_data.h"

#include "control/check_setup.h"
#include "corrections/contained_corrections.h"

namespace pedigreewatch {

std::int64_t corrections_in_data(const std::string& steer_file, const FileState& data_file) {
  return corrections_told(lines_of_steer_file(steer_file), data_file.size);
}

}  // namespace pedigreewatch
