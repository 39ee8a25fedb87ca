// Any steer settings with any data file: a whole run in a folder of its own. The input is the steer file without its
// first two lines, a line "%%", and the data file. A run must end with exit status 0 and a report, or with 1 and a
// word about it.

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "control/run_driver.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

void write_file(const char* name, std::string_view bytes) {
  std::FILE* const file = std::fopen(name, "wb");
  require(file != nullptr);
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
}

/// A folder in memory where there is one; made once for the process and taken away at its end.
void enter_run_folder() {
  static char folder[] = "/dev/shm/pedigreewatch-fuzz-XXXXXX";
  static char fallback[] = "/tmp/pedigreewatch-fuzz-XXXXXX";
  static const char* const made = [] {
    const char* const name = mkdtemp(folder) != nullptr ? folder : mkdtemp(fallback);
    require(name != nullptr);
    std::atexit([] {
      std::remove("pedigreewatch.ini");
      std::remove("herd.txt");
      std::remove("herd.out");
      require(chdir("/") == 0);
      rmdir(access(folder, F_OK) == 0 ? folder : fallback);
    });
    return name;
  }();
  require(chdir(made) == 0);
}

/// Counts of four digits ask for tables of gigabytes; they are left to the tests of the limits.
bool has_large_count(std::string_view steer) {
  constexpr int most_digits = 3;
  int digits = 0;
  for (const char byte : steer) {
    digits = byte >= '0' && byte <= '9' ? digits + 1 : 0;
    if (digits > most_digits) return true;
  }
  return false;
}

/// A strange date may ask for a very long report: the disk is full then after a few megabytes, which is one more
/// thing that a run has to live with.
void limit_file_size() {
  constexpr rlim_t most_bytes = 4 << 20;
  const rlimit limit = {most_bytes, most_bytes};
  require(setrlimit(RLIMIT_FSIZE, &limit) == 0);
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace pedigreewatch;
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  constexpr std::string_view divider = "\n%%\n";
  const std::size_t end = input.find(divider);
  if (end == std::string_view::npos) return -1;
  const std::string_view steer = input.substr(0, end), data = input.substr(end + divider.size());
  if (has_large_count(steer)) return -1;
  enter_run_folder();
  limit_file_size();
  write_file("pedigreewatch.ini", "Fuzz\nherd.txt\n" + std::string(steer));
  write_file("herd.txt", data);
  std::remove("herd.out");
  RunStreams streams;
  const int status = run_program(streams);
  require(status == 0 || status == 1);
  require(!streams.console.pending.empty());
  require(access("herd.out", F_OK) == 0 || !streams.messages.pending.empty());
  if (status == 0) require(streams.messages.pending.empty());
  return 0;
}
