// Texts as they are looked for: who types a part of a name does not care for capitals, accents, or which of its many
// quotation marks and dashes an office program has put there.
#pragma once

#include <string>
#include <string_view>

namespace pedigreewatch {

/// The text (UTF-8) in small letters without accents, with plain quotation marks, dashes and blanks, in place of what
/// `folded` held. Letters that cannot be written in ASCII stay.
void fold_for_search(std::string& folded, std::string_view text);

}  // namespace pedigreewatch
