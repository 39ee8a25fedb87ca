// Runs the whole program on population folders and prints, for each one, the seconds of every phase, the total, the
// peak memory, the animals per second and what an animal costs; then how that grew from one folder to the next.
//
//   phase_benchmark [--runs N] FOLDER...
//
// Every run is a process of its own, so that the peak memory is that run's. Figures are medians of N runs (default 3).

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "control/run_driver.h"

namespace {

constexpr double bytes_per_megabyte = 1024.0 * 1024.0;

struct PhaseSeconds {
  std::string phase;
  double seconds = 0.0;
};

struct RunFigures {
  std::vector<PhaseSeconds> phases;
  double seconds = 0.0;
  double peak_megabytes = 0.0;
};

/// In the child process: runs in `folder`, writes "phase TAB seconds" lines to `result`.
[[noreturn]] void run_child(const std::string& folder, int result) {
  if (chdir(folder.c_str()) != 0) _exit(2);
  pedigreewatch::PhaseTimes times;
  pedigreewatch::RunStreams streams;
  streams.console.file = std::fopen("console.txt", "wb");
  streams.messages.file = stderr;
  streams.phase_times = &times;
  pedigreewatch::begin_phase(&times, "steer file");
  const int status = pedigreewatch::run_program(streams);
  std::FILE* const out = fdopen(result, "w");
  for (std::size_t i = 0; i + 1 < times.marks.size(); ++i) {
    const std::chrono::duration<double> seconds = times.marks[i + 1].begin - times.marks[i].begin;
    std::fprintf(out, "%.*s\t%.6f\n", static_cast<int>(times.marks[i].phase.size()), times.marks[i].phase.data(),
                 seconds.count());
  }
  std::fclose(out);
  _exit(status);
}

RunFigures run_once(const std::string& folder) {
  int channel[2];
  if (pipe(channel) != 0) std::exit(2);
  const pid_t child = fork();
  if (child == 0) {
    close(channel[0]);
    run_child(folder, channel[1]);
  }
  close(channel[1]);
  RunFigures figures;
  std::FILE* const in = fdopen(channel[0], "r");
  char line[256];
  while (std::fgets(line, sizeof line, in) != nullptr) {
    char* const tab = std::strchr(line, '\t');
    if (tab == nullptr) continue;
    figures.phases.push_back({std::string(line, tab), std::atof(tab + 1)});
    figures.seconds += figures.phases.back().seconds;
  }
  std::fclose(in);
  int status = 0;
  rusage usage = {};
  wait4(child, &status, 0, &usage);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    const bool is_killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    std::fprintf(stderr, "phase_benchmark: the run in %s %s\n", folder.c_str(),
                 is_killed ? "was killed; most likely the memory did not suffice" : "failed");
    std::exit(1);
  }
  figures.peak_megabytes = static_cast<double>(usage.ru_maxrss) / 1024.0;
  return figures;
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

RunFigures median_of_runs(const std::string& folder, int runs) {
  std::vector<RunFigures> all;
  for (int run = 0; run < runs; ++run) all.push_back(run_once(folder));
  const auto median_by = [&](auto&& value) {
    std::vector<double> values;
    for (const RunFigures& one : all) values.push_back(value(one));
    return median(std::move(values));
  };
  RunFigures result = all.front();
  result.seconds = median_by([](const RunFigures& one) { return one.seconds; });
  result.peak_megabytes = median_by([](const RunFigures& one) { return one.peak_megabytes; });
  for (std::size_t i = 0; i < result.phases.size(); ++i) {
    result.phases[i].seconds = median_by([&](const RunFigures& one) { return one.phases.at(i).seconds; });
  }
  return result;
}

/// The animals of a population: the lines of its largest file behind the header.
std::int64_t count_animals(const std::string& folder) {
  std::ifstream data(folder + "/herd.txt", std::ios::binary);
  std::vector<char> buffer(1 << 20);
  std::int64_t lines = 0;
  while (data.read(buffer.data(), static_cast<std::streamsize>(buffer.size())), data.gcount() > 0) {
    lines += std::count(buffer.begin(), buffer.begin() + data.gcount(), '\n');
  }
  return lines - 1;
}

void print_figures(const std::string& folder, std::int64_t animals, const RunFigures& figures) {
  std::printf("%s: %lld animals\n", folder.c_str(), static_cast<long long>(animals));
  for (const PhaseSeconds& phase : figures.phases) {
    std::printf("  %-24s %9.3f s %5.1f %%\n", phase.phase.c_str(), phase.seconds,
                100.0 * phase.seconds / figures.seconds);
  }
  std::printf("  %-24s %9.3f s  %.0f animals per second, peak %.0f MB\n", "total", figures.seconds,
              static_cast<double>(animals) / figures.seconds, figures.peak_megabytes);
  std::printf("  %-24s %9.3f us, %.0f bytes\n", "an animal", 1e6 * figures.seconds / static_cast<double>(animals),
              figures.peak_megabytes * bytes_per_megabyte / static_cast<double>(animals));
}

struct Measured {
  std::int64_t animals = 0;
  RunFigures figures;
};

void print_growth(const Measured& before, const Measured& after) {
  const double animals = static_cast<double>(after.animals) / static_cast<double>(before.animals);
  const double time = after.figures.seconds / before.figures.seconds;
  const double memory = after.figures.peak_megabytes / before.figures.peak_megabytes;
  std::printf("  growth: %.1f times the animals, %.1f times the time, %.1f times the memory\n", animals, time, memory);
  std::printf("  growth for an animal: %.2f times the time, %.2f times the memory\n", time / animals, memory / animals);
}

}  // namespace

int main(int argc, char** argv) {
  int runs = 3;
  std::vector<std::string> folders;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--runs") == 0 && i + 1 < argc) {
      runs = std::max(1, std::atoi(argv[++i]));
    } else {
      folders.emplace_back(argv[i]);
    }
  }
  if (folders.empty()) {
    std::fprintf(stderr, "usage: phase_benchmark [--runs N] FOLDER...\n");
    return 2;
  }
  Measured before;
  for (const std::string& folder : folders) {
    Measured current{count_animals(folder), median_of_runs(folder, runs)};
    print_figures(folder, current.animals, current.figures);
    if (before.animals > 0 && current.animals > before.animals) print_growth(before, current);
    std::fflush(stdout);
    before = std::move(current);
  }
  return 0;
}
