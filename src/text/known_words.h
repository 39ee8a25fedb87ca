// Words with letters beyond ASCII that names of animals, people and places often are, or end in, in the languages of
// Europe: a reading that makes one of them is hardly chance.
#pragma once

#include <string_view>

namespace pedigreewatch {

/// Whether a word in UTF-8, in small letters, is one of them, or ends in one of the endings.
bool is_known_accented_word(std::string_view word);

}  // namespace pedigreewatch
