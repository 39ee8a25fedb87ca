#include "tools/population_check.h"

#include "control/check_setup.h"
#include "control/steer_file.h"
#include "core/line_reader.h"
#include "core/memory_return.h"
#include "core/side_by_side.h"
#include "tools/current_date.h"
#include "tools/folder_analysis.h"

namespace pedigreewatch {

std::optional<CheckResult> check_population(const SteerSettings& steer, ToolStreams& streams, CheckScope scope) {
  LineReader data;
  if (open_data_file(steer, data)) return std::nullopt;
  CheckSettings settings = make_check_settings(steer, lines_of_steer_file(steer_file_name), current_date());
  settings.scope = scope;
  take_memory_from_one_place();
  settings.threads = threads_of_machine();
  bool is_outdated = false;
  settings.export_lines = export_lines_beside(std::string(steer.data_file_name.trimmed()), is_outdated);
  CheckResult result = check_data(data, settings, streams.progress);
  if (data.error != 0) return std::nullopt;
  return result;
}

}  // namespace pedigreewatch
