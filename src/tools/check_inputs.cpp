// Both are read anew for each run: nothing is kept.

#include "tools/check_inputs.h"

#include <chrono>

#include "control/steer_file.h"
#include "core/line_reader.h"

namespace pedigreewatch {

std::vector<std::string> lines_of_steer_file() {
  constexpr std::size_t most_lines = 200'000;
  std::vector<std::string> lines;
  LineReader reader;
  std::string_view line;
  if (!open_for_reading(reader, steer_file_name)) return lines;
  while (lines.size() < most_lines && read_line(reader, line)) lines.emplace_back(line);
  return lines;
}

CalendarDate current_date() {
  const auto now = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  const std::chrono::year_month_day date(now);
  return {static_cast<int>(date.year()), static_cast<std::int32_t>(static_cast<unsigned>(date.month())),
          static_cast<std::int32_t>(static_cast<unsigned>(date.day()))};
}

}  // namespace pedigreewatch
