// Prepares many exports of foreign offices and prints how many came in rightly: in all, and of each shape.
//   measure_entrance [COUNT [SEED]]           the table
//   measure_entrance --show SEED              one export: its shapes, what was asked, what went wrong
//   measure_entrance --write SEED FILE        its bytes

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "support/entrance_measure.h"

namespace {

using namespace pedigreewatch::test;

constexpr std::size_t outcome_count = static_cast<std::size_t>(EntranceOutcome::count);
using OutcomeCounts = std::array<int, outcome_count>;

struct Measurement {
  OutcomeCounts sound = {}, spoilt = {};
  std::map<std::string, OutcomeCounts> by_shape;  ///< of the sound exports
  int wrong_names = 0, lines_to_tell = 0, told_lines = 0;
};

std::size_t place_of(EntranceOutcome outcome) {
  return static_cast<std::size_t>(outcome);
}

/// A folder in memory where there is one.
std::string make_folder() {
  std::error_code ignored;
  const bool has_memory = std::filesystem::is_directory("/dev/shm", ignored);
  std::string name = (has_memory ? "/dev/shm" : "/tmp") + std::string("/pedigreewatch-entrance-XXXXXX");
  if (mkdtemp(name.data()) == nullptr) std::exit(1);
  return name;
}

std::string first_line(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

void add(Measurement& all, std::uint32_t seed, const std::string& folder) {
  const ForeignExport office_export = make_foreign_export(seed);
  const EntranceResult result = measure_entrance(office_export, folder);
  const std::size_t place = place_of(result.outcome);
  ++(office_export.is_spoilt ? all.spoilt : all.sound)[place];
  all.wrong_names += result.has_wrong_names ? 1 : 0;
  all.lines_to_tell += result.lines_to_tell;
  all.told_lines += result.told_lines;
  if (!office_export.is_spoilt) {
    for (const std::string& shape : office_export.shapes) ++all.by_shape[shape][place];
  }
  const bool is_wrong =
      result.outcome == EntranceOutcome::wrong || result.outcome == EntranceOutcome::wrong_after_answers;
  if (is_wrong || result.outcome == EntranceOutcome::refused) {
    std::printf("%6u %-26s%s %s\n", seed, std::string(name_of(result.outcome)).c_str(),
                office_export.is_spoilt ? " (spoilt)" : "", first_line(result.why).c_str());
  }
}

void print_row(const std::string& label, const OutcomeCounts& counts) {
  std::printf("%-60.60s", label.c_str());
  for (const int count : counts) std::printf("%9d", count);
  std::printf("\n");
}

void print_table(const Measurement& all) {
  std::printf("\n%-60s%9s%9s%9s%9s%9s\n", "", "right", "right", "WRONG", "WRONG", "refused");
  std::printf("%-60s%9s%9s%9s%9s\n", "", "silently", "answered", "silently", "answered");
  for (const auto& [shape, counts] : all.by_shape) print_row(shape, counts);
  std::printf("\n");
  print_row("sound exports", all.sound);
  print_row("spoilt exports", all.spoilt);
  std::printf("exports whose names were read wrongly: %d\n", all.wrong_names);
  std::printf("lines that are no animals or were spoilt: %d, told with their line: %d\n", all.lines_to_tell,
              all.told_lines);
}

int show(std::uint32_t seed, const std::string& folder) {
  const ForeignExport office_export = make_foreign_export(seed);
  const EntranceResult result = measure_entrance(office_export, folder);
  for (const std::string& shape : office_export.shapes) std::printf("  %s\n", shape.c_str());
  for (const std::string& option : result.asked) std::printf("asked: %s\n", option.c_str());
  std::printf("%s%s\n%s\n", std::string(name_of(result.outcome)).c_str(), office_export.is_spoilt ? " (spoilt)" : "",
              result.why.c_str());
  return 0;
}

std::uint32_t number_of(const char* text) {
  return static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

}  // namespace

int main(int count, char** texts) {
  const std::vector<const char*> arguments(texts + 1, texts + count);
  const bool shows = arguments.size() == 2 && std::string_view(arguments[0]) == "--show";
  if (arguments.size() == 3 && std::string_view(arguments[0]) == "--write") {
    std::ofstream(arguments[2], std::ios::binary) << make_foreign_export(number_of(arguments[1])).bytes;
    return 0;
  }
  const std::string folder = make_folder();
  const std::uint32_t export_count = !arguments.empty() ? number_of(arguments[0]) : 540;
  const std::uint32_t first_seed = arguments.size() > 1 ? number_of(arguments[1]) : 1;
  if (shows) {
    show(first_seed, folder);
  } else {
    Measurement all;
    for (std::uint32_t i = 0; i < export_count; ++i) add(all, first_seed + i, folder);
    print_table(all);
  }
  std::filesystem::remove_all(folder);
  return 0;
}
