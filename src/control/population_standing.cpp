#include "control/population_standing.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "checks/finding_kinds.h"

namespace pedigreewatch {

namespace {

using Code = FindingCode;

/// The rate follows genes from birth year to birth year through the parents: sexes, imports and years in which nobody
/// was born change nothing in it, whatever else they falsify.
bool touches_the_rate(FindingCode code) {
  constexpr std::array others = {Code::male_letter, Code::sex_text, Code::parent_sex, Code::import_text,
                                 Code::year_gap};
  return std::find(others.begin(), others.end(), code) == others.end();
}

/// Some findings of the whole file name a line as an example.
bool is_of_file(const Finding& finding) {
  constexpr std::array kinds = {Code::header_unread, Code::column_twice, Code::date_layout};
  return (finding.line == 0 && finding.line_count == 0) ||
         std::find(kinds.begin(), kinds.end(), finding.code) != kinds.end();
}

/// The animals whose year or parents are in doubt. A parent that is not found is named once with the number of its
/// young, quotation marks once with the number of their lines; the lines of a contradicted date are those of relatives
/// with the right one.
std::int64_t animals_of(const Finding& finding) {
  constexpr std::array counted = {Code::quotes, Code::parent_spelling, Code::parent_one_letter, Code::unknown_word,
                                  Code::unknown_perhaps};
  if (finding.code == Code::date_contradicted) return 1;
  const bool is_counted = std::find(counted.begin(), counted.end(), finding.code) != counted.end();
  return std::max<std::int64_t>(1, is_counted ? finding.number : std::int64_t{finding.line_count});
}

bool can_be_late(FindingCode code) {
  return code == Code::year_placeholder || code == Code::year_far_out || code == Code::year_lone;
}

/// The animals of all findings that may tell of births after those of the others, by line.
std::vector<std::int32_t> lines_in_doubt(const Findings& findings) {
  std::vector<std::int32_t> lines;
  for (const Finding& finding : findings.list) {
    if (!can_be_late(finding.code)) continue;
    const auto several = lines_of(findings, finding);
    lines.insert(lines.end(), several.begin(), several.end());
    if (several.empty()) lines.push_back(finding.line);
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

/// Half of the animals with a year are born in it or later; 0 without any.
std::int32_t middle_year(const PedigreeColumns& animals) {
  std::vector<std::int32_t> years;
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    if (animals.birth.at(animal).year != 0) years.push_back(animals.birth.at(animal).year);
  }
  if (years.empty()) return 0;
  const auto middle = years.begin() + std::ssize(years) / 2;
  std::nth_element(years.begin(), middle, years.end());
  return *middle;
}

}  // namespace

LateBirths find_late_births(const CheckResult& check) {
  const PedigreeColumns& animals = check.animals;
  const Findings& findings = check.findings;
  std::vector<LateBirth> births;
  for (const Finding& finding : findings.list) {
    if (finding.code != Code::year_future) continue;
    births.push_back(
        {std::string(animals.ids.at(finding.id)), finding.line, std::string(findings.texts.at(finding.text))});
  }
  if (const std::vector<std::int32_t> lines = lines_in_doubt(findings); !lines.empty()) {
    const std::int32_t middle = middle_year(animals);
    for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
      const std::int32_t line = animals.line_of(animal), year = animals.birth.at(animal).year;
      if (year <= middle || !std::binary_search(lines.begin(), lines.end(), line)) continue;
      births.push_back({std::string(animals.ids.at(animals.id.at(animal))), line, std::to_string(year)});
    }
  }
  std::stable_sort(births.begin(), births.end(),
                   [](const LateBirth& a, const LateBirth& b) { return a.line < b.line; });
  LateBirths late;
  late.count = std::ssize(births);
  births.resize(std::min(births.size(), most_named_births));
  late.first = std::move(births);
  return late;
}

VerdictFaults faults_of_verdict(const CheckResult& check) {
  constexpr std::uint32_t parts = part_inbreeding | part_effective_size;
  VerdictFaults faults;
  for (const Finding& finding : check.findings.list) {
    const FindingKind& kind = kind_of(finding.code);
    if (kind.severity == Severity::look || (kind.parts & parts) == 0 || !touches_the_rate(finding.code)) continue;
    if (is_of_file(finding)) {
      ++faults.of_file;
    } else {
      faults.of_animals += animals_of(finding);
    }
  }
  faults.late_births = find_late_births(check);
  faults.of_animals = std::max<std::int64_t>(0, faults.of_animals - faults.late_births.count);  // counted as those
  return faults;
}

Standing stand_of(const AnalysedPopulation& population, const StandingSettings& settings, const VerdictFaults& faults,
                  const AvailableAnimals& available) {
  const double interval = population.analysis.whole.interval.generation_interval;
  return compute_standing(population.store, interval, settings, faults, available);
}

Standing stand_of(const AnalysedPopulation& population, const StandingSettings& settings, const CheckResult* check,
                  const AvailableAnimals& available) {
  return stand_of(population, settings, check == nullptr ? VerdictFaults() : faults_of_verdict(*check), available);
}

}  // namespace pedigreewatch
