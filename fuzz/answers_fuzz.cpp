// Any file of answers to any export: a whole preparation in a folder of its own. The input is the file of answers, a
// line of four hyphens, and the export. When it is prepared, the answers that are kept give the same files again, or
// lead to a question: answers that did not fit are not kept.

#include "work_folder.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/prepare_command.h"

namespace {

using namespace pedigreewatch;
using namespace pedigreewatch::fuzz;

int prepare_with(std::vector<std::string_view> arguments) {
  ToolStreams streams;
  arguments.push_back("herd.csv");
  const int status = run_prepare(arguments, streams);
  require(status == 0 || !streams.messages.pending.empty());
  return status;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  constexpr std::string_view divider = "----\n";
  const std::size_t end = std::min(input.find(divider), input.size());
  enter_folder();
  clear_folder();
  write_file("herd.answers", input.substr(0, end));
  write_file("herd.csv", input.substr(std::min(end + divider.size(), input.size())));
  const bool is_prepared = prepare_with({"--answers", "herd.answers", "--species=sheep", "--force"}) == 0;
  require(is_prepared == (access("herd.txt", F_OK) == 0));
  if (!is_prepared) return 0;
  const std::string data = read_file("herd.txt"), steer = read_file("pedigreewatch.ini");
  if (prepare_with({"--answers", "herd.answers", "--force"}) != 0) return 0;
  require(read_file("herd.txt") == data && read_file("pedigreewatch.ini") == steer);
  return 0;
}
