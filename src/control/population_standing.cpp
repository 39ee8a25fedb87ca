#include "control/population_standing.h"

#include <algorithm>

#include "checks/finding_kinds.h"

namespace pedigreewatch {

std::int64_t falsifying_faults(const CheckResult& check) {
  constexpr std::uint32_t parts = part_inbreeding | part_effective_size;
  return std::count_if(check.findings.list.begin(), check.findings.list.end(), [](const Finding& finding) {
    const FindingKind& kind = kind_of(finding.code);
    return kind.severity != Severity::look && (kind.parts & parts) != 0;
  });
}

Standing stand_of(const AnalysedPopulation& population, const StandingSettings& settings, const CheckResult* check) {
  const double interval = static_cast<double>(population.analysis.whole.interval.generation_interval);
  return compute_standing(population.store, interval, settings, check == nullptr ? 0 : falsifying_faults(*check));
}

}  // namespace pedigreewatch
