// What is said of a forecast, in either language. Console, page and desk say the same.
#pragma once

#include <string>
#include <vector>

#include "forecast/forecast.h"
#include "forecast/practice_figures.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// The present practice: what was measured, and from which years.
std::vector<std::string> practice_sentences(const BasePeriod& base, const CountedPractice& counted,
                                            const FamilyPractice& families, ToolLanguage language);

/// A last birth year that is left out because it is incomplete.
std::string incomplete_sentence(std::int32_t year, ToolLanguage language);

}  // namespace pedigreewatch
