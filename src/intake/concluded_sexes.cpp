#include "intake/concluded_sexes.h"

#include <algorithm>

#include "intake/animal_lines.h"

namespace pedigreewatch {
namespace {

void note_parent_of(const ExportRecord& record, FieldCode code, const ColumnChoice& columns,
                    const std::unordered_map<std::string, std::string>& same_ids,
                    std::unordered_set<std::string>& parents) {
  const std::string_view text = trimmed(field_of(record, columns, code));
  if (text.empty() || means_unknown_parent(text)) return;
  const auto same = same_ids.find(std::string(text));
  parents.insert(same == same_ids.end() ? std::string(text) : same->second);
}

void count_animal(const ExportRecord& record, const ColumnChoice& columns, ConcludedSexes& sexes) {
  const std::string id(trimmed(field_of(record, columns, id_column)));
  const bool is_sire = sexes.sires.contains(id), is_dam = sexes.dams.contains(id);
  if (is_sire && is_dam) {
    ++sexes.contradicted;
  } else {
    ++(is_sire ? sexes.males : is_dam ? sexes.females : sexes.unknown);
  }
}

/// Whether one of several animals on a line has no column for its sex.
bool lack_own_sexes(const ColumnChoice& columns) {
  const auto& sex = columns.place[sex_column];
  const auto lacks = [&](const LineAnimal& animal) {
    return std::any_of(animal.begin(), animal.end(), [&](const FieldMove& move) {
      return sex && move.to == *sex && move.from >= columns.headings.size();
    });
  };
  return std::any_of(columns.animals_of_line.begin(), columns.animals_of_line.end(), lacks);
}

}  // namespace

bool lack_sexes(const ColumnChoice& columns) {
  return !columns.place[sex_column] || lack_own_sexes(columns);
}

bool lacks_sex(const ColumnChoice& columns, bool is_further) {
  if (!columns.place[sex_column]) return true;
  return is_further && lack_own_sexes(columns);
}

ConcludedSexes conclude_sexes(std::string_view text, char delimiter, const ColumnChoice& columns,
                              const std::unordered_map<std::string, std::string>& same_ids) {
  ConcludedSexes sexes;
  sexes.are_needed = true;
  ExportRecord record;
  RecordReader parents = read_animals(text, delimiter, columns);
  while (next_animal(parents, record, columns)) {
    note_parent_of(record, sire_column, columns, same_ids, sexes.sires);
    note_parent_of(record, dam_column, columns, same_ids, sexes.dams);
  }
  RecordReader animals = read_animals(text, delimiter, columns);
  while (next_animal(animals, record, columns)) {
    if (lacks_sex(columns, record.is_further)) count_animal(record, columns, sexes);
  }
  return sexes;
}

SexMeaning concluded_sex(const ConcludedSexes& sexes, std::string_view id) {
  const std::string text(id);
  const bool is_sire = sexes.sires.contains(text), is_dam = sexes.dams.contains(text);
  if (is_sire == is_dam) return SexMeaning::unknown;
  return is_sire ? SexMeaning::male : SexMeaning::female;
}

}  // namespace pedigreewatch
