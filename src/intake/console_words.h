// What the console says of an export: the words for remarks, questions and refusals, with the options that answer them.
#pragma once

#include <span>
#include <string>

#include "core/text_output.h"
#include "intake/remark.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Writes each remark as a line.
void show_remarks(std::span<const Remark> remarks, ToolLanguage language, TextOutput& console);

/// A question with the option that answers it.
std::string words_of(const Question& question, ToolLanguage language);

/// Why nothing can be made of the export; a line for each place.
std::string words_of(const Refusal& refusal, ToolLanguage language);

}  // namespace pedigreewatch
