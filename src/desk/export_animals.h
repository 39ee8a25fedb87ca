// The animals of the export as its lines show them, to be mended: a line may hold several, each with texts of its own
// and texts that all of the line share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "desk/desk.h"

namespace pedigreewatch {

/// An animal of the export. Its cells stand in the order of the columns; of a line with several animals its own texts
/// stand in the places of the first one's.
struct ExportAnimal {
  std::int64_t line = 0;   ///< counted from 1
  std::size_t number = 0;  ///< among those of its line, counted from 0
  std::vector<std::string> cells;
};

using AnimalsByLine = std::map<std::int64_t, std::vector<ExportAnimal>>;

/// The column of a field, counted from 0.
std::optional<std::size_t> column_of(const Desk& desk, FieldCode field);

/// The animals of these lines, as far as there are any.
AnimalsByLine animals_at(const Desk& desk, const std::set<std::int64_t>& lines);

/// All animals with this text in a field, and how many they are.
std::vector<ExportAnimal> animals_with(const Desk& desk, FieldCode field, std::string_view text);
std::int64_t count_animals_with(const Desk& desk, FieldCode field, std::string_view text);

/// The text of a field; empty where it has no column.
std::string cell_of(const Desk& desk, const ExportAnimal& animal, FieldCode field);

/// Whether the animals of a line have this field in one column: what is changed there is changed for all of them.
bool is_shared(const Desk& desk, FieldCode field);

/// What a correction that leaves the animal out says of it: its line, or what it has for itself there.
std::string text_of_animal(const Desk& desk, const ExportAnimal& animal);

/// All that its line says of the animal: what is its own, and what it shares.
std::string view_of_animal(const Desk& desk, const ExportAnimal& animal);

/// The animal with the first of these identifications that one of a line has. They may be written a little otherwise in
/// the data file: where none has any, the first one. None of no animals.
const ExportAnimal* find_animal(const Desk& desk, const std::vector<ExportAnimal>& animals,
                                std::span<const std::string> ids);

}  // namespace pedigreewatch
