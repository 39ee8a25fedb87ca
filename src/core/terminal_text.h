// What a terminal is shown of texts that come from files: nothing that it would act on.
#pragma once

#include <string>

namespace pedigreewatch {

/// Puts "?" in the place of every control character but the line feed: those of ASCII, the ones from 0x80 to 0x9F, and
/// these as UTF-8 writes them. Letters of UTF-8, of which such bytes are a part, stay.
void hide_controls(std::string& text);

}  // namespace pedigreewatch
