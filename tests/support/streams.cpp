#include "support/streams.h"

namespace pedigreewatch::test {

std::vector<std::string> lines_of(std::string_view printed) {
  std::vector<std::string> lines;
  while (!printed.empty()) {
    const std::size_t end = printed.find('\n');
    lines.emplace_back(printed.substr(0, end));
    printed.remove_prefix(end == std::string_view::npos ? printed.size() : end + 1);
  }
  return lines;
}

std::vector<std::string> lines_of(const TextOutput& output) {
  return lines_of(output.pending);
}

}  // namespace pedigreewatch::test
