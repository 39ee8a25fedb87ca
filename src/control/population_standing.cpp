#include "control/population_standing.h"

#include <algorithm>
#include <array>

#include "checks/finding_kinds.h"

namespace pedigreewatch {

namespace {

/// The rate follows genes from birth year to birth year through the parents: sexes, imports and years in which nobody
/// was born change nothing in it, whatever else they falsify.
bool touches_the_rate(FindingCode code) {
  constexpr std::array<FindingCode, 5> others = {FindingCode::male_letter, FindingCode::sex_text,
                                                 FindingCode::parent_sex, FindingCode::import_text,
                                                 FindingCode::year_gap};
  return std::find(others.begin(), others.end(), code) == others.end();
}

}  // namespace

VerdictFaults faults_of_verdict(const CheckResult& check) {
  constexpr std::uint32_t parts = part_inbreeding | part_effective_size;
  VerdictFaults faults;
  for (const Finding& finding : check.findings.list) {
    const FindingKind& kind = kind_of(finding.code);
    if (kind.severity == Severity::look || (kind.parts & parts) == 0 || !touches_the_rate(finding.code)) continue;
    if (finding.line == 0 && finding.line_count == 0) {
      ++faults.of_file;
    } else {
      faults.of_animals += std::max<std::int64_t>(1, finding.line_count);
    }
  }
  return faults;
}

Standing stand_of(const AnalysedPopulation& population, const StandingSettings& settings, const VerdictFaults& faults,
                  const AvailableAnimals& available) {
  const double interval = static_cast<double>(population.analysis.whole.interval.generation_interval);
  return compute_standing(population.store, interval, settings, faults, available);
}

Standing stand_of(const AnalysedPopulation& population, const StandingSettings& settings, const CheckResult* check,
                  const AvailableAnimals& available) {
  return stand_of(population, settings, check == nullptr ? VerdictFaults() : faults_of_verdict(*check), available);
}

}  // namespace pedigreewatch
