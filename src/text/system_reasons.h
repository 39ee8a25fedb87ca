// Why the system did not open, read or write a file, in the languages of the tools.
#pragma once

#include <string>

#include "core/new_files.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// The reason that goes with a number of the system (errno), or with what `error_text` has besides. One that is not in
/// the table of the usual ones is told in the system's own words.
std::string reason_text(int error, ToolLanguage language);

/// Why a file could not be made; empty where one of that name exists and may not be overwritten.
std::string reason_of(const FileProblem& problem, ToolLanguage language);

}  // namespace pedigreewatch
