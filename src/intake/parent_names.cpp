// One pass for the names of all animals, one for how well a column fits; contradictions are told while the data file is
// written.

#include "intake/parent_names.h"

#include <algorithm>
#include <utility>

#include "intake/animal_lines.h"
#include "intake/column_recognition.h"
#include "intake/value_words.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::array<FieldCode, 2> parent_ids = {sire_column, dam_column};
constexpr std::array<FieldCode, 2> parent_name_fields = {sire_name_column, dam_name_column};

/// 64 bits of a text (Fowler, Noll and Vo), so that no two of a million names are taken for one.
std::uint64_t hash_of_name(std::string_view folded_name) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char byte : folded_name) hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
  return hash;
}

/// Whether a field stands in the text itself and stays.
bool stands_in(std::string_view text, std::string_view field) {
  return field.data() >= text.data() && field.data() + field.size() <= text.data() + text.size();
}

void collect_names(std::string_view text, char delimiter, const ColumnChoice& columns, ParentNames& names) {
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  while (next_animal(reader, record, columns)) {
    const std::string_view id = trimmed(field_of(record, columns, id_column));
    const std::string_view name = trimmed(field_of(record, columns, name_column));
    if (id.empty() || means_unknown(name)) continue;
    names.names.insert(hash_of_name(folded(name)));
    if (stands_in(text, id) && stands_in(text, name)) names.name_of.emplace(id, name);
  }
}

/// Leaves out a column in which other names than those of the parents are usual.
void judge_names(std::string_view text, char delimiter, const ColumnChoice& columns, std::size_t parent,
                 ParentNames& names) {
  constexpr std::int64_t most_compared = 2000;
  std::int64_t compared = 0, others = 0;
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  while (compared < most_compared && next_animal(reader, record, columns)) {
    const auto own = names.name_of.find(trimmed(field_of(record, columns, parent_ids[parent])));
    const bool has_name = *names.places[parent] < record.fields.size();
    const std::string_view name = has_name ? trimmed(record.fields[*names.places[parent]]) : std::string_view();
    if (own == names.name_of.end() || means_unknown(name)) continue;
    ++compared;
    others += folded(own->second) != folded(name) ? 1 : 0;
  }
  if (compared < fewest_compared_names || others * tolerated_other_names >= compared) names.places[parent].reset();
}

}  // namespace

std::array<std::optional<std::size_t>, 2> parent_name_places(const ColumnChoice& columns) {
  std::array<std::optional<std::size_t>, 2> name_places;
  if (!columns.has_header || !columns.animals_of_line.empty()) return name_places;
  ColumnPlaces further;
  const ColumnPlaces found = recognise_columns(columns.headings, further);
  for (std::size_t parent = 0; parent < name_places.size(); ++parent) {
    const std::vector<std::size_t>& places = found[parent_name_fields[parent]];
    if (places.size() == 1 && !holds_field(columns, places.front())) name_places[parent] = places.front();
  }
  return name_places;
}

std::string_view name_without_id(const ExportRecord& record, const ColumnChoice& columns,
                                 const std::array<std::optional<std::size_t>, 2>& places, std::size_t parent) {
  const auto& place = places[parent];
  if (!place || *place >= record.fields.size()) return {};
  if (!columns.place[parent_ids[parent]]) return {};
  if (!means_unknown_parent(trimmed(field_of(record, columns, parent_ids[parent])))) return {};
  const std::string_view name = trimmed(record.fields[*place]);
  return means_unknown_parent(name) ? std::string_view() : name;
}

ParentNames find_parent_names(std::string_view text, char delimiter, const ColumnChoice& columns) {
  ParentNames names;
  if (!columns.place[name_column]) return names;
  names.places = parent_name_places(columns);
  if (!names.places[0] && !names.places[1]) return names;
  collect_names(text, delimiter, columns, names);
  for (std::size_t parent = 0; parent < names.places.size(); ++parent) {
    if (names.places[parent]) judge_names(text, delimiter, columns, parent, names);
  }
  return names;
}

std::string_view contradicting_name(const ParentNames& names, const ExportRecord& record, const ColumnChoice& columns,
                                    std::size_t parent) {
  const auto& place = names.places[parent];
  if (!place || *place >= record.fields.size()) return {};
  const std::string_view name = trimmed(record.fields[*place]);
  const auto own = names.name_of.find(trimmed(field_of(record, columns, parent_ids[parent])));
  if (own == names.name_of.end() || own->second == name || means_unknown(name)) return {};
  const std::string one = folded(own->second), other = folded(name);
  const bool is_part = one.find(other) != std::string::npos || other.find(one) != std::string::npos;
  return is_part || !names.names.contains(hash_of_name(other)) ? std::string_view() : name;
}

}  // namespace pedigreewatch
