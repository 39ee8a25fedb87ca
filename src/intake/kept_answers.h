// Finds the answers that were kept for exports with the headings of the one at hand, and adds them to what the user
// says.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "intake/answers_file.h"
#include "intake/export_preparation.h"

namespace pedigreewatch {

/// The headings of an export that is read: the fields of its first record.
std::vector<std::string> headings_of(const Preparation& read);

/// Reads the export, with the answers of the file that the options name, or of one in the folder of the new files or of
/// the export that is about the same headings. Yields why that is impossible.
std::optional<Refusal> read_with_answers(PrepareOptions& options, Preparation& read);

}  // namespace pedigreewatch
