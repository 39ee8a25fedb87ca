// Any bytes as a steer file. Reading must end with settings or with a message, and the settings must hold together.

#include <cstdint>
#include <cstdlib>

#include "control/steer_file.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace pedigreewatch;
  LineReader reader;
  reader.name = "pedigreewatch.ini";
  reader.text = {reinterpret_cast<const char*>(bytes), size};
  RunStreams streams;
  try {
    const SteerSettings settings = read_steer_lines(reader, streams);
    require(!settings.nouns.young.is_blank());
    require(settings.layout.subpopulations.first_numbers.count() == settings.layout.subpopulations.count());
    require(settings.colour_names.size() == settings.layout.colours.names.entries.size() + 1);
    require(settings.report_file_name.trimmed().ends_with("out"));
  } catch (const RunStopped&) {
    require(!streams.messages.pending.empty());
  }
  require(!streams.console.pending.empty() && streams.console.pending.back() == '\n');
  return 0;
}
