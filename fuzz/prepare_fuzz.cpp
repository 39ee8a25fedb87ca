// Any export with any options: a whole preparation in a folder of its own. The input is a line of options, divided by
// blanks, and the export. It must end with both files or with none, and the data file must have a line for each animal,
// as many columns as the header, and nothing that the program would read differently.

#include "work_folder.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/prepare_command.h"

namespace {

using namespace pedigreewatch::fuzz;

/// Options that would write elsewhere are left out.
std::vector<std::string_view> options_of(std::string_view line) {
  std::vector<std::string_view> options;
  while (!line.empty()) {
    const std::size_t end = std::min(line.find(' '), line.size());
    const std::string_view option = line.substr(0, end);
    const bool is_allowed = option.starts_with("--") && !option.starts_with("--out") && option.size() > 2;
    if (is_allowed && option.find('\0') == std::string_view::npos) options.push_back(option);
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return options;
}

/// Every line but the empty last one has the same number of delimiters, and fits the program's 600 characters.
void check_data_file(const std::string& data, char delimiter) {
  const auto count = [&](std::string_view line) { return std::count(line.begin(), line.end(), delimiter); };
  const std::ptrdiff_t expected = count(std::string_view(data).substr(0, data.find('\n')));
  for (std::size_t begin = 0; begin < data.size();) {
    const std::size_t end = data.find('\n', begin);
    require(end != std::string::npos);
    const std::string_view line = std::string_view(data).substr(begin, end - begin);
    require(line.size() <= 600);
    require(count(line) == expected || (line.empty() && end + 1 == data.size()));
    require(line.find_first_of(std::string_view("\r\0", 2)) == std::string_view::npos);
    begin = end + 1;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace pedigreewatch;
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  const std::size_t end = std::min(input.find('\n'), input.size());
  std::vector<std::string_view> arguments = options_of(input.substr(0, end));
  arguments.push_back("herd.csv");
  enter_folder();
  clear_folder();
  write_file("herd.csv", input.substr(std::min(end + 1, input.size())));
  ToolStreams streams;
  const int status = run_prepare(arguments, streams);
  const bool has_data = access("herd.txt", F_OK) == 0, has_steer = access("pedigreewatch.ini", F_OK) == 0;
  require(has_data == has_steer);
  require(status == 0 || (!has_data && !streams.messages.pending.empty()));
  if (!has_data) return 0;
  const std::string steer = read_file("pedigreewatch.ini");
  const std::size_t line_3 = steer.find('\n', steer.find('\n') + 1) + 1;
  check_data_file(read_file("herd.txt"), steer[line_3]);
  return 0;
}
