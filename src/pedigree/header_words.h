// The words by which the header line of a data file names its columns.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace pedigreewatch {

/// What a column of the data file holds. Lists by field have their entries in this order.
enum FieldCode : std::uint32_t {
  unused_column = 0,
  id_column = 1,
  sire_column = 2,
  dam_column = 3,
  name_column = 4,
  sire_name_column = 5,
  dam_name_column = 6,
  sex_column = 7,
  birthdate_column = 8,
  colour_column = 9,
  breeder_column = 10,
  subpopulation_column = 11,
  import_column = 12,
};

/// All fields, in order.
inline constexpr std::array<FieldCode, 12> all_fields = {
    id_column,  sire_column,      dam_column,    name_column,    sire_name_column,     dam_name_column,
    sex_column, birthdate_column, colour_column, breeder_column, subpopulation_column, import_column};

struct HeaderWord {
  std::string_view word;
  FieldCode code;
};

/// All words of the table.
std::span<const HeaderWord> all_header_words();

/// The field code of a header word; `unused_column` for a word that is not in the table. Case matters, trailing
/// blanks do not.
FieldCode field_code_of(std::string_view word);

}  // namespace pedigreewatch
