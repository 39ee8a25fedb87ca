// First the year of each animal, by its identification; then, for each animal, the years of its parents.

#include "intake/short_years.h"
#include "intake/animal_lines.h"

#include <unordered_map>

#include "core/text_index.h"
#include "intake/column_profiles.h"
#include "intake/date_shapes.h"
#include "intake/export_records.h"
#include "intake/export_survey.h"

namespace pedigreewatch {
namespace {

constexpr std::int32_t no_year = -1;

/// The years that a date of an animal may mean.
struct PossibleYears {
  std::int32_t last = no_year, first = no_year;
};

std::int32_t number_of(std::string_view digits) {
  std::int32_t value = 0;
  for (const char digit : digits) value = value * 10 + (digit - '0');
  return value;
}

PossibleYears years_of(std::string_view text) {
  const DatePiecesFound date = cut_date(text);
  if (!has_short_year(date.shape)) return {};
  const std::int32_t year = number_of(date.year);
  return {year, date.shape == DateShape::short_year ? date.first : year};
}

/// Of larger exports a sample of the animals is compared.
constexpr std::size_t bytes_compared = std::size_t{1} << 24;

using YearsOfAnimals = std::unordered_map<std::uint32_t, PossibleYears>;

/// Hands over each animal that has a short year, with that.
template <typename Take>
void for_each_short_year(std::string_view text, char delimiter, const ColumnChoice& columns, Take&& take) {
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  while (next_animal(reader, record, columns)) {
    const PossibleYears years = years_of(trimmed(field_of(record, columns, birthdate_column)));
    if (years.last != no_year) take(record, years);
  }
}

}  // namespace

ShortYears compare_short_years(std::string_view text, char delimiter, const ColumnChoice& columns) {
  ShortYears result;
  YearsOfAnimals animals;
  const std::uint32_t mask = mask_of_sample(text.size(), bytes_compared);
  for_each_short_year(text, delimiter, columns, [&](const ExportRecord& record, const PossibleYears& years) {
    note_birth(result.year_last, years.last);
    note_birth(result.year_first, years.first);
    const std::uint32_t hash = hash_of_text(trimmed(field_of(record, columns, id_column)));
    if ((hash & mask) == 0) animals.emplace(hash, years);
  });
  for_each_short_year(text, delimiter, columns, [&](const ExportRecord& record, const PossibleYears& years) {
    for (const FieldCode code : {sire_column, dam_column}) {
      const auto parent = animals.find(hash_of_text(trimmed(field_of(record, columns, code))));
      if (parent == animals.end()) continue;
      note_pair(result.year_last, parent->second.last, years.last);
      note_pair(result.year_first, parent->second.first, years.first);
    }
  });
  return result;
}

}  // namespace pedigreewatch
