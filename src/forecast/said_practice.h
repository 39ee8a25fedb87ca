// Figures of the present practice that somebody says in place of what was measured.
#pragma once

#include <string>
#include <vector>

#include "forecast/breeding_rules.h"
#include "forecast/practice_figures.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Puts the figures that are said in the place of those that were measured, which stand in `base`. Whatever is not said
/// stays.
void apply_said_figures(const FamilyRecords& records, const SaidFigures& said, BasePeriod& base);

/// The figures that warnings rest on, as the forecast goes on with them.
FamilyPractice practice_as_said(const FamilyPractice& measured, const SaidFigures& said, const BasePeriod& base);

/// What goes for the present practice goes for every scenario that does not say otherwise; changes are changes of it.
void add_present_rules(const BreedingRules& present, BreedingRules& rules);

/// What is said of the practice, and that it is not what was measured; nothing where nothing is said.
std::vector<std::string> said_sentences(const BreedingRules& present, ToolLanguage language);

}  // namespace pedigreewatch
