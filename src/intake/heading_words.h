// What the words of a column's heading say: whose column it is (the animal's, its father's, its mother's, another
// relative's) and what it holds. A heading is read word by word, so that one which nobody has listed, such as "Sire's
// ear tag" or "Stamboeknr. vader", is understood all the same.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pedigree/header_words.h"

namespace pedigreewatch {

enum class HeadingOwner { animal, sire, dam, other_relative };

enum class HeadingThing {
  none,            ///< no word says it: "Vater" alone
  identification,  ///< a number, a tag, a registration
  name,
  sex,
  birth,       ///< the date of birth, or the year
  date,        ///< nobody says of what
  other_date,  ///< of death, of registration, of a sale
  colour,
  breeder,
  import,  ///< whether it is one, or from where
  other,   ///< weight, owner, place, ...
};

struct HeadingMeaning {
  HeadingOwner owner = HeadingOwner::animal;
  HeadingThing thing = HeadingThing::none;
  bool is_understood = false;   ///< every word is known
  bool has_known_word = false;  ///< one at least is
  bool names_young = false;     ///< one says young, lamb, pup, ...; it is none of the words that are understood
};

/// Reads a heading in English, Dutch, German, French, Spanish or Italian, without regard to capitals, accents and
/// punctuation.
HeadingMeaning read_heading(std::string_view heading);

/// The words of a heading, folded. An apostrophe ends a word and leaves out the lone letter at its side: "sire's" is
/// "sire", "d'inscription" is "inscription". A capital behind a small letter begins a word: "SireID".
std::vector<std::string> words_of_heading(std::string_view heading);

/// Whether a heading has "import" in it, whatever stands beside it: "Import date", "Importkz.".
bool has_import_in_it(std::string_view heading);

/// Whether a word of a heading says neither whose nor what: "of", "the", "animal", "date".
bool is_plain_heading_word(std::string_view word);

/// The words of a heading but those for young: "sex" of "Lamb's sex".
std::string words_beside_young(std::string_view heading);

/// The field that a heading names: that of the animal's id, of its father, ...; unused for what no field holds, and for
/// a heading of which a word is not known.
FieldCode field_of_heading(const HeadingMeaning& meaning);

}  // namespace pedigreewatch
