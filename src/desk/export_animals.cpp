#include "desk/export_animals.h"

#include <algorithm>

#include "corrections/correction_list.h"
#include "intake/export_records.h"

namespace pedigreewatch {

std::optional<std::size_t> column_of(const Desk& desk, FieldCode field) {
  return desk.preparation.columns.place[field];
}

namespace {

const std::vector<LineAnimal>& animals_of_line(const Desk& desk) {
  return desk.preparation.columns.animals_of_line;
}

RecordReader read_export_animals(const Desk& desk) {
  RecordReader reader = read_records(desk.preparation.text, desk.preparation.reading.delimiter);
  reader.animals = animals_of_line(desk);
  return reader;
}

std::vector<std::string> cells_of(const ExportRecord& record) {
  std::vector<std::string> cells;
  for (const std::string_view field : record.fields) cells.emplace_back(correction_cell(trimmed(field)));
  return cells;
}

/// Whether a field of the export has this text, as corrections write it.
bool has_text(std::string_view field, std::string_view text) {
  const std::string_view shown = trimmed(field);
  if (shown.find_first_of("\t\r\n") == std::string_view::npos) return shown == text;
  return correction_cell(shown) == text;
}

/// Each animal with the text, and its number on its line.
template <typename Action>
void for_animals_with(const Desk& desk, FieldCode field, std::string_view text, Action&& action) {
  const std::optional<std::size_t> place = column_of(desk, field);
  RecordReader reader = read_export_animals(desk);
  ExportRecord record;
  std::size_t number = 0;
  while (place && next_record(reader, record)) {
    number = record.is_further ? number + 1 : 0;
    if (*place < record.fields.size() && has_text(record.fields[*place], text)) action(record, number);
  }
}

}  // namespace

AnimalsByLine animals_at(const Desk& desk, const std::set<std::int64_t>& lines) {
  AnimalsByLine animals;
  RecordReader reader = read_export_animals(desk);
  ExportRecord record;
  while (!lines.empty() && next_record(reader, record) && record.line <= *lines.rbegin()) {
    if (!lines.contains(record.line)) continue;
    std::vector<ExportAnimal>& of_line = animals[record.line];
    of_line.push_back({record.line, of_line.size(), cells_of(record)});
  }
  return animals;
}

std::vector<ExportAnimal> animals_with(const Desk& desk, FieldCode field, std::string_view text) {
  std::vector<ExportAnimal> animals;
  for_animals_with(desk, field, text, [&](const ExportRecord& record, std::size_t number) {
    animals.push_back({record.line, number, cells_of(record)});
  });
  return animals;
}

std::int64_t count_animals_with(const Desk& desk, FieldCode field, std::string_view text) {
  std::int64_t count = 0;
  for_animals_with(desk, field, text, [&](const ExportRecord&, std::size_t) { ++count; });
  return count;
}

std::string cell_of(const Desk& desk, const ExportAnimal& animal, FieldCode field) {
  const std::optional<std::size_t> place = column_of(desk, field);
  return place && *place < animal.cells.size() ? animal.cells[*place] : std::string();
}

bool is_shared(const Desk& desk, FieldCode field) {
  const std::vector<LineAnimal>& animals = animals_of_line(desk);
  const std::optional<std::size_t> place = column_of(desk, field);
  if (animals.empty() || !place) return false;
  return std::none_of(animals.front().begin(), animals.front().end(),
                      [&](const FieldMove& move) { return move.to == *place; });
}

std::string text_of_animal(const Desk& desk, const ExportAnimal& animal) {
  std::vector<std::string> texts = animal.cells;
  if (!animals_of_line(desk).empty()) {
    texts.clear();
    for (const FieldMove& move : animals_of_line(desk).front()) {
      texts.push_back(move.to < animal.cells.size() ? animal.cells[move.to] : std::string());
    }
  }
  return joined_cells(texts);
}

std::string view_of_animal(const Desk& desk, const ExportAnimal& animal) {
  if (animals_of_line(desk).empty()) return joined_cells(animal.cells);
  std::vector<std::string> cells;
  for (const std::size_t place : columns_of_first_animal(desk.preparation.columns)) {
    cells.push_back(place < animal.cells.size() ? animal.cells[place] : std::string());
  }
  return joined_cells(cells);
}

const ExportAnimal* find_animal(const Desk& desk, const std::vector<ExportAnimal>& animals,
                                std::span<const std::string> ids) {
  for (const std::string& id : ids) {
    const auto found = std::find_if(animals.begin(), animals.end(), [&](const ExportAnimal& animal) {
      return !id.empty() && cell_of(desk, animal, id_column) == id;
    });
    if (found != animals.end()) return &*found;
  }
  return animals.empty() ? nullptr : &animals.front();
}

}  // namespace pedigreewatch
