// Command line of the population generator: makes a folder with a steer file and a data file, ready for a run.
//
//   make_population bench N [--single-births] [--years Y] FOLDER   a herd of N animals to measure with
//   make_population example en|nl FOLDER                           the example herd, in English or in Dutch
//
// Both languages of the example hold the same animals; only the words differ.
#include "population_plans.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>
#include <vector>

namespace pedigreewatch {
namespace {

constexpr std::int32_t most_animals = 99'999'998;  // from 100,000,000 lines on, header included, a run reads nothing
constexpr std::int32_t most_birth_years = 500;
bool write_file(const std::filesystem::path& path, const PopulationPlan& plan,
                bool (*write)(const PopulationPlan&, std::FILE*)) {
  // Binary, so that line ends are the same on every system.
  std::FILE* file = std::fopen(path.string().c_str(), "wb");
  bool is_written = false;
  if (file != nullptr) {
    is_written = write(plan, file);
    is_written &= std::fclose(file) == 0;
  }
  if (!is_written) std::cerr << "make_population: cannot write " << path.string() << '\n';
  return is_written;
}

bool write_folder(const PopulationPlan& plan, const std::filesystem::path& folder) {
  std::error_code problem;
  std::filesystem::create_directories(folder, problem);  // if it fails, so does the first file, with a message
  return write_file(folder / "pedigreewatch.ini", plan, write_steer_file) &&
         write_file(folder / plan.data_file_name, plan, write_data_file);
}

/// A whole number from 1 to `most`, or nothing.
std::optional<std::int32_t> read_count(std::string_view text, std::int32_t most) {
  std::int32_t count = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), count);
  if (problem != std::errc() || end != text.data() + text.size() || count < 1 || count > most) return std::nullopt;
  return count;
}

struct Order {
  PopulationPlan plan;
  std::filesystem::path folder;
};

std::optional<Order> read_benchmark_order(std::span<const std::string_view> words) {
  if (words.size() < 2) return std::nullopt;
  const std::optional<std::int32_t> animal_count = read_count(words.front(), most_animals);
  std::optional<std::int32_t> birth_year_count = 40;
  bool has_single_births = false;
  const std::span<const std::string_view> options = words.subspan(1, words.size() - 2);
  for (std::size_t place = 0; place < options.size(); ++place) {
    if (options[place] == "--single-births") {
      has_single_births = true;
    } else if (options[place] == "--years" && place + 1 < options.size()) {
      birth_year_count = read_count(options[++place], most_birth_years);
    } else {
      return std::nullopt;
    }
  }
  if (!animal_count || !birth_year_count || words.back().starts_with("--")) return std::nullopt;
  return Order{benchmark_plan(*animal_count, *birth_year_count, has_single_births), words.back()};
}

std::optional<Order> read_order(std::span<const std::string_view> words) {
  if (words.size() == 3 && words[0] == "example" && (words[1] == "en" || words[1] == "nl")) {
    return Order{example_plan(words[1] == "en"), words[2]};
  }
  if (!words.empty() && words[0] == "bench") return read_benchmark_order(words.subspan(1));
  return std::nullopt;
}

}  // namespace
}  // namespace pedigreewatch

int main(int argument_count, char** arguments) {
  const std::vector<std::string_view> words(arguments + 1, arguments + argument_count);
  const auto order = pedigreewatch::read_order(words);
  if (!order) {
    std::cerr << "usage: make_population bench N [--single-births] [--years Y] FOLDER\n"
                 "       make_population example en|nl FOLDER\n";
    return 2;
  }
  return pedigreewatch::write_folder(order->plan, order->folder) ? 0 : 1;
}
