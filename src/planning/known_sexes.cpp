#include "planning/known_sexes.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "core/run_streams.h"
#include "pedigree/data_columns.h"
#include "pedigree/header_words.h"

namespace pedigreewatch {
namespace {

/// The field at this place, counted from 0, without the blanks behind it; empty where the line is shorter.
std::string_view field_at(std::string_view line, std::size_t place, char delimiter) {
  for (; place > 0; --place) {
    const std::size_t end = line.find(delimiter);
    if (end == std::string_view::npos) return {};
    line.remove_prefix(end + 1);
  }
  const std::string_view field = line.substr(0, line.find(delimiter));
  return field.substr(0, field.find_last_not_of(' ') + 1);
}

/// Texts of which nobody would say that they mean a female.
bool is_unknown(std::string_view text) {
  constexpr std::string_view signs = " ?-";
  return text.empty() || signs.find(text.front()) != std::string_view::npos || text == "unknown" || text == "Unknown";
}

}  // namespace

std::vector<std::int32_t> find_records_without_sex(LineReader& data, const DataFileLayout& layout) {
  PopulationStore unused;
  RunStreams silent;
  const ColumnMap columns = read_columns(data, layout, unused, silent).codes;
  const auto place = static_cast<std::size_t>(std::find(columns.begin(), columns.end(), sex_column) - columns.begin());
  std::vector<std::int32_t> records;
  std::string_view line;
  for (std::int32_t record = 1; read_line(data, line); ++record) {
    const std::string_view text = field_at(line, place, layout.delimiter);
    const bool is_male =
        !text.empty() && std::count(layout.male_letters.begin(), layout.male_letters.end(), text.front()) > 0;
    if (!is_male && is_unknown(text)) records.push_back(record);
  }
  return records;
}

SexEvidence find_sex_evidence(const PopulationStore& store, std::vector<std::int32_t> records_without_sex) {
  SexEvidence evidence{std::move(records_without_sex), ByNumber<Flag>(store.size()), ByNumber<Flag>(store.size())};
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    evidence.was_sire[store.sire_no[i]] = 1;
    evidence.was_dam[store.dam_no[i]] = 1;
  }
  return evidence;
}

std::optional<Sex> known_sex(const PopulationStore& store, const SexEvidence& evidence, std::int32_t position) {
  const std::vector<std::int32_t>& unknown = evidence.records_without_sex;
  if (!std::binary_search(unknown.begin(), unknown.end(), store.record_no(position))) return store.sex[position];
  const bool was_sire = evidence.was_sire[position] != 0, was_dam = evidence.was_dam[position] != 0;
  if (was_sire == was_dam) return std::nullopt;
  return was_sire ? male : female;
}

}  // namespace pedigreewatch
