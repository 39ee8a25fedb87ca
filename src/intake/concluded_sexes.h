// Sexes where an export tells none, or none of the further young of a line: fathers are male and mothers female.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "intake/column_choice.h"
#include "intake/value_words.h"

namespace pedigreewatch {

/// The parents of an export, and what they tell of its animals.
struct ConcludedSexes {
  bool are_needed = false;
  std::unordered_set<std::string> sires, dams;                         ///< by their ids, as the animals have them
  std::int64_t males = 0, females = 0, contradicted = 0, unknown = 0;  ///< animals; contradicted: father and mother
};

/// Whether the sexes of some animals stand in no column.
bool lack_sexes(const ColumnChoice& columns);

/// Whether the sex of this animal stands in no column: of none, or of a further one of its line.
bool lacks_sex(const ColumnChoice& columns, bool is_further);

/// Reads the export twice: the parents, then the animals. `same_ids` are the ids of animals by those of parents that
/// are written otherwise.
ConcludedSexes conclude_sexes(std::string_view text, char delimiter, const ColumnChoice& columns,
                              const std::unordered_map<std::string, std::string>& same_ids);

/// The sex of the animal of that id; unknown where it is no parent, or father and mother both.
SexMeaning concluded_sex(const ConcludedSexes& sexes, std::string_view id);

}  // namespace pedigreewatch
