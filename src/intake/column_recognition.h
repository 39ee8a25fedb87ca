// Which column of an export holds which field of an animal, by the words of its header.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pedigree/header_words.h"

namespace pedigreewatch {

inline constexpr std::size_t field_count = 13;  ///< field codes 0 (unused) to 12

/// The places of columns, counted from 0, for each field code.
using ColumnPlaces = std::array<std::vector<std::size_t>, field_count>;

/// How surely a header word names its field: not at all, by a word that may mean something else (a farm for a herd), by
/// one that offices use, by a word of the data file's own table, by a word that says that it is an identification.
enum class WordFit { none, weak, office, table, exact };

struct WordMeaning {
  FieldCode code = unused_column;
  WordFit fit = WordFit::none;
};

/// What a header word means, without regard to capitals, accents and punctuation.
WordMeaning meaning_of(std::string_view header_word);

/// For each field the columns that fit it best: one where it is clear, several where it is not, none where no word is
/// known. `further` gets those that fit it less.
ColumnPlaces recognise_columns(std::span<const std::string> header, ColumnPlaces& further);

/// Whether the first record of an export is a header: at least two of its words are known, or one and no field of it
/// holds a digit.
bool is_header(std::span<const std::string> first_record);

/// The field code that a user names in --column ("id", "sire", "vader", ...); unused for a word that names none.
FieldCode field_named(std::string_view name);

/// The name of a field in --column.
std::string_view option_name_of(FieldCode code);

/// The number of different fields that the words of a record name.
std::size_t count_known_words(std::span<const std::string_view> record);

}  // namespace pedigreewatch
