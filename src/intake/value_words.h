// What people write for an unknown parent, for the sexes, and for "no" in the column of imports: the words of English,
// Dutch, German, French, Spanish and Italian offices.
#pragma once

#include <string_view>

namespace pedigreewatch {

/// Whether a parent, a sex or a date is unknown: an empty field, 0, NA, ?, unknown, onbekend, ... Capitals do not
/// matter.
bool means_unknown(std::string_view text);

/// The same, and what offices write for a parent besides: wild, founder, unregistered, N.N., -1, 99999, #N/A, ...
bool means_unknown_parent(std::string_view text);

/// Whether a text in the place of a young animal's id says that it was born dead: dead, stillborn, doodgeboren, tot, a
/// cross, ...
bool means_stillborn(std::string_view text);

/// Whether a text stands for what the line above says: "s.o.", idem, dito, zie boven, two lone quotation marks, ...
bool repeats_line_above(std::string_view text);

/// Whether a text in the column of imports says that the animal is none: empty, 0, no, nee, false, ..., or unknown.
bool means_no_import(std::string_view text);

/// Whether a text has a word that totals, headers and footers have and identifications have not.
bool has_remark_word(std::string_view text);

enum class SexMeaning { male, female, unknown };

/// The sex that a word names: m, f, v, male, vrouwelijk, ram, ooi, ... Numbers and letters that differ from herdbook to
/// herdbook are unknown.
SexMeaning sex_named(std::string_view text);

/// Whether a word for a sex is one for a castrated male: gelding, wether, ruin, Wallach, castraat, ...
bool names_castrated(std::string_view text);

/// Whether a text is a letter or a digit, which means another sex in another herdbook.
bool is_sex_letter(std::string_view text);

/// The species whose males or females have this name, as the English word of the steer file ("sheep" for "ooi"); empty
/// for a word that is not proper to one species.
std::string_view species_of_sex_word(std::string_view text);

}  // namespace pedigreewatch
