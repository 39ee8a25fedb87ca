// Cells are put together as texts. F has as many digits as it takes to read the same value again.

#include "matings/mating_table.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <initializer_list>
#include <string_view>

#include "checks/readable_text.h"
#include "core/real_text.h"
#include "corrections/contained_corrections.h"
#include "text/spreadsheet_cell.h"

namespace pedigreewatch {
namespace {

constexpr std::array<std::string_view, 6> first_columns = {
    "female", "male", "F", "kinship", "female_mean_kinship", "male_mean_kinship"};
constexpr std::array<std::string_view, 6> last_columns = {
    "male_equivalent_generations",   "male_offspring", "male_age", "beyond_6_25_percent",
    "female_equivalent_generations", "beyond_limit"};
constexpr std::array<std::string_view, 3> ancestor_columns = {"ancestor_", "contribution_", "percent_"};

/// A number with so many significant digits.
std::string digits_of(double value, int digits) {
  if (value == 0.0) return "0";  // without a sign
  std::array<char, 32> text{};
  const int length = std::snprintf(text.data(), text.size(), "%.*g", digits, value);
  return {text.data(), static_cast<std::size_t>(length)};
}

/// The fewest digits that stand for this value and no other.
std::string shortest(float value) {
  std::string text;
  append_shortest(text, value);
  return text;
}

std::string real_text(double value) {
  constexpr int digits = 9;
  return digits_of(value, digits);
}

std::string percent_text(double share) {
  std::array<char, 32> text{};
  const int length = std::snprintf(text.data(), text.size(), "%.2f", 100.0 * share);
  return {text.data(), static_cast<std::size_t>(length)};
}

/// A cell between quotation marks where the commas would cut it, or marks of its own would be taken for such.
std::string quoted(std::string_view cell, char separator) {
  if (cell.find_first_of(std::string{'"', separator}) == std::string_view::npos) return std::string(cell);
  std::string result = "\"";
  for (const char letter : cell) result += letter == '"' ? std::string("\"\"") : std::string(1, letter);
  return result + "\"";
}

/// One line of a table, cell by cell.
struct TableLine {
  MatingTableForm form = MatingTableForm::tabs;
  std::string text = {};
  bool has_cells = false;

  void add(std::string_view cell) {
    const char separator = form == MatingTableForm::tabs ? '\t' : ',';
    if (has_cells) text += separator;
    text += quoted(cell, separator);
    has_cells = true;
  }
  void add_empty(std::size_t count) {
    for (std::size_t k = 0; k < count; ++k) add({});
  }
};

/// An identification, written as in the table of animals, so that both can be joined.
std::string id_text(const MatingTable& table, std::int32_t position) {
  const std::string id = with_controls_named(table.work.store.id(position));
  return table.is_plain ? id : as_text_cell(id);
}

std::string mean_kinship_text(const MatingWork& work, std::int32_t position) {
  const std::optional<double> mean = mean_kinship_of(work, position);
  return mean ? real_text(*mean) : std::string();
}

void add_ancestors(TableLine& line, const MatingTable& table, const KinshipParts& parts) {
  for (const CommonAncestor& ancestor : parts.largest) {
    if (ancestor.position == 0) {
      line.add_empty(ancestor_columns.size());
      continue;
    }
    line.add(id_text(table, ancestor.position));
    line.add(real_text(ancestor.contribution));
    line.add(percent_text(ancestor.contribution / parts.kinship));
  }
}

/// What F has to be judged by: how much is known of both, how often the male was used, how old he is, and the limits.
void add_judgement(TableLine& line, const MatingTable& table, const MatingPair& mating) {
  const PopulationStore& store = table.work.store;
  line.add(shortest(known_generations(store, mating.male)));
  line.add(std::to_string(store.native_offspring_count[mating.male]));
  const std::optional<std::int32_t> age = age_of(store, mating.male);
  line.add(age ? std::to_string(*age) : std::string());
  line.add(is_beyond(mating.f, double{usual_bound}) ? "1" : "0");
  line.add(shortest(known_generations(store, mating.female)));
  line.add(is_beyond(mating.f, table.most_inbreeding) ? "1" : "0");
}

}  // namespace

std::string mating_heading(MatingTableForm form, std::int64_t corrections) {
  TableLine line{form};
  for (const std::string_view column : first_columns) line.add(column);
  for (std::size_t k = 1; k <= named_ancestors; ++k) {
    for (const std::string_view column : ancestor_columns) line.add(std::string(column) + std::to_string(k));
  }
  for (const std::string_view column : last_columns) line.add(column);
  if (corrections > 0) line.add(corrections_column);
  return line.text;
}

std::string mating_row(const MatingTable& table, std::size_t pair) {
  const MatingPair& mating = table.pairs[pair];
  const KinshipParts& parts = table.parts[pair];
  TableLine line{table.form};
  line.add(id_text(table, mating.female));
  line.add(id_text(table, mating.male));
  line.add(shortest(std::max(mating.f, 0.0F)));
  line.add(real_text(parts.kinship));
  line.add(mean_kinship_text(table.work, mating.female));
  line.add(mean_kinship_text(table.work, mating.male));
  add_ancestors(line, table, parts);
  add_judgement(line, table, mating);
  if (table.corrections > 0) line.add(std::to_string(table.corrections));
  return line.text;
}

bool write_matings(const MatingTable& table, const std::string& name, const MatingWatch& watch, FileProblem& problem) {
  NewFile file;
  if (!begin_file(file, name, problem)) return false;
  write_bytes(file, mating_heading(table.form, table.corrections) + "\n");
  for (std::size_t pair = 0; pair < table.pairs.size(); ++pair) {
    if (is_stop_requested(watch.stop_request)) {
      abandon(file);
      return false;
    }
    if (!write_bytes(file, mating_row(table, pair) + "\n")) break;  // finish_file says why
  }
  return finish_file(file, problem);
}

}  // namespace pedigreewatch
