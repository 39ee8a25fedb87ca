// How an analysed population stands, with what the check of its data found.
#pragma once

#include <cstdint>

#include "checks/check.h"
#include "control/population_analysis.h"
#include "standing/standing.h"

namespace pedigreewatch {

/// Animals born after the day that the check took for today, and those that the check finds alone behind the years of
/// the others: beyond a gap, or with a date that stands for "unknown".
LateBirths find_late_births(const CheckResult& check);

/// Findings that falsify inbreeding or the effective size. A fault of animals counts once for each animal whose own
/// year or parents are in doubt, not for those that speak against them.
VerdictFaults faults_of_verdict(const CheckResult& check);

/// `faults` are those of the same data file. Only `available` animals are named as ones to use less or more.
Standing stand_of(const AnalysedPopulation& population, const StandingSettings& settings, const VerdictFaults& faults,
                  const AvailableAnimals& available);
/// `check` is that of the same data file; none: its faults are not known, and count as none.
Standing stand_of(const AnalysedPopulation& population, const StandingSettings& settings, const CheckResult* check,
                  const AvailableAnimals& available);

}  // namespace pedigreewatch
