// Populations that are texts, analysed as a run does.
#pragma once

#include <string>
#include <vector>

#include "control/population_analysis.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {

/// Everything that is computed for `data`; nothing is shown.
AnalysedPopulation analysed(const std::string& data, const SteerLines& steer = {});

/// A data file with so many animals of each year from 2001 on, males and females in turn, without parents.
std::string animals_by_year(const std::vector<int>& counts);

}  // namespace pedigreewatch::test
