// Further lines of headings below the header: units, kinds of fields, the numbers of the columns, the headings in
// another language. Each would be an animal with an identification such as "(no.)".
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pedigree/header_words.h"

namespace pedigreewatch {

struct ColumnChoice;
struct ExportRecord;

/// The fields that make an animal one.
inline constexpr auto pedigree_fields =
    std::to_array<FieldCode>({id_column, sire_column, dam_column, sex_column, birthdate_column});

/// What a line of headings says in each of these fields. It may come again on each page.
using HeadingTexts = std::array<std::string, pedigree_fields.size()>;

/// So many lines directly below the header may be headings.
inline constexpr std::size_t most_heading_lines = 3;

/// The lines directly below the header that are headings and no animals. Such a line has no sex and no date as those
/// below it have them, its identification is written unlike theirs or is that of both its parents, and it has no part
/// in the pedigree: nobody below descends from it, and its parents stand nowhere else. Or its fields number the
/// columns.
std::vector<HeadingTexts> find_heading_lines(std::string_view text, char delimiter, const ColumnChoice& columns);

/// Whether a record says in the fields of a pedigree what one of these lines says.
bool is_heading_line(const ExportRecord& record, const ColumnChoice& columns);

/// Whether the fields count the columns, from 0 or 1 on, alone or behind the same text ("1", "(1)", "Column1"), or are
/// the letters of a spreadsheet's columns; five fields at least.
bool number_columns(std::span<const std::string> fields);

}  // namespace pedigreewatch
