// The species of the steer file.
#pragma once

#include <string_view>
#include <vector>

#include "intake/text_counts.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// The steer file's word in the language for a species that is named in either one; empty for a word that names none.
std::string_view species_named(std::string_view word, ToolLanguage language);

/// The species that the words for the sexes tell ("ram", "ewe"), in the language; empty when they tell none, or two.
std::string_view species_of_sexes(const TextCounts& sexes, ToolLanguage language);

/// All species of the language.
std::vector<std::string_view> list_species(ToolLanguage language);

}  // namespace pedigreewatch
