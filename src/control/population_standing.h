// How an analysed population stands, with what the check of its data found.
#pragma once

#include <cstdint>

#include "checks/check.h"
#include "control/population_analysis.h"
#include "standing/standing.h"

namespace pedigreewatch {

/// Findings that falsify inbreeding or the effective size.
VerdictFaults faults_of_verdict(const CheckResult& check);

/// `faults` are those of the same data file. Only `available` animals are named as ones to use less or more.
Standing stand_of(const AnalysedPopulation& population, const StandingSettings& settings, const VerdictFaults& faults,
                  const AvailableAnimals& available);
/// `check` is that of the same data file; none: its faults are not known, and count as none.
Standing stand_of(const AnalysedPopulation& population, const StandingSettings& settings, const CheckResult* check,
                  const AvailableAnimals& available);

}  // namespace pedigreewatch
