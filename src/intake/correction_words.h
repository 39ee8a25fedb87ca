// What is said of corrections that were applied to an export, or not.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "intake/corrected_text.h"
#include "text/phrases.h"

namespace pedigreewatch {

struct CorrectionCounts {
  std::int64_t applied = 0, already_so = 0, differing = 0, without_place = 0;
};
CorrectionCounts count_outcomes(std::span<const CorrectionOutcome> outcomes);

/// How many were applied, how many had been mended already, how many do not fit. Empty without corrections.
std::string corrections_sentence(std::span<const CorrectionOutcome> outcomes, ToolLanguage language);

/// What became of one that was not applied; empty for one that was.
std::string outcome_sentence(const Correction& correction, const CorrectionOutcome& outcome, ToolLanguage language);

/// Why lines of a list of corrections were read over.
std::vector<std::string> fault_sentences(std::span<const CorrectionFault> faults, const std::string& list,
                                         ToolLanguage language);

}  // namespace pedigreewatch
