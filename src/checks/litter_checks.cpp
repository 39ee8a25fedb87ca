// The young of all dams are put in a row, those of a dam together in the order of their days.

#include "checks/litter_checks.h"

#include <algorithm>
#include <span>
#include <vector>

namespace pedigreewatch {
namespace {

struct Birth {
  std::int32_t dam = 0;  ///< number of an identification
  std::int32_t day = 0;
  std::int32_t animal = 0;
};

/// The births with a known dam and a full date, of each dam in the order of days and lines.
std::vector<Birth> births_by_dam(const PedigreeColumns& animals) {
  ByNumber<std::int32_t> begin(animals.ids.count() + 1);
  const auto counts = [&](std::int32_t animal) {
    constexpr unsigned left_out = mark_year_only | mark_strange_year | mark_no_animal;
    return animals.dam.at(animal) != 0 && animals.birth.at(animal).year != 0 &&
           (animals.marks.at(animal) & left_out) == 0;
  };
  std::int32_t total = 0;
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    if (!counts(animal)) continue;
    ++begin[animals.dam.at(animal) + 1];
    ++total;
  }
  for (std::int32_t id = 1; id <= begin.last(); ++id) begin[id] += begin[id - 1];
  std::vector<Birth> births(static_cast<std::size_t>(total));
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    if (!counts(animal)) continue;
    const std::int32_t dam = animals.dam.at(animal);
    births[static_cast<std::size_t>(begin[dam]++)] = {dam, days_of_birth(animals, animal).first, animal};
  }
  return births;
}

Finding finding_of(FindingCode code, const PedigreeColumns& animals, const Birth& birth, const Birth& other,
                   Findings& findings) {
  return {.code = code,
          .line = animals.line_of(birth.animal),
          .id = animals.id.at(birth.animal),
          .text = keep(findings, animals.ids.at(birth.dam)),
          .other_line = animals.line_of(other.animal)};
}

/// One litter: the births of one day.
void check_litter(const PedigreeColumns& animals, std::span<const Birth> litter, const CheckLimits& limits,
                  Findings& findings) {
  const std::int64_t size = std::ssize(litter);
  if (limits.largest_litter > 0 && size > limits.largest_litter) {
    add(findings, finding_of(FindingCode::litter_size, animals, litter.front(), litter.front(), findings));
    findings.list.back().number = size;
  }
  const auto has_other_sire = [&](const Birth& birth) {
    const std::int32_t first = animals.sire.at(litter.front().animal), sire = animals.sire.at(birth.animal);
    return first != 0 && sire != 0 && sire != first;
  };
  const auto other = std::find_if(litter.begin(), litter.end(), has_other_sire);
  if (other == litter.end()) return;
  add(findings, finding_of(FindingCode::litter_sires, animals, *other, litter.front(), findings));
}

/// Two births of a dam that follow each other.
void check_interval(const PedigreeColumns& animals, const Birth& earlier, const Birth& later, const CheckLimits& limits,
                    Findings& findings, std::vector<DateConflict>& conflicts) {
  constexpr std::int32_t longest_birth = 7;
  const std::int32_t days = later.day - earlier.day;
  const std::int32_t least = std::max(limits.births_apart_days, limits.births_apart_look_days);
  if (days >= least) return;
  FindingCode code = days < limits.births_apart_days ? FindingCode::births_too_close : FindingCode::births_close;
  if (days <= longest_birth) code = FindingCode::litter_dates;
  Finding finding = finding_of(code, animals, later, earlier, findings);
  finding.number = days;
  if (code != FindingCode::births_too_close) return add(findings, finding);
  conflicts.push_back({{later.animal, earlier.animal}, finding});
}

void check_births_of_dam(const PedigreeColumns& animals, std::span<Birth> births, const CheckLimits& limits,
                         Findings& findings, std::vector<DateConflict>& conflicts) {
  std::sort(births.begin(), births.end(),
            [](const Birth& a, const Birth& b) { return a.day != b.day ? a.day < b.day : a.animal < b.animal; });
  for (std::size_t begin = 0; begin < births.size();) {
    std::size_t end = begin + 1;
    while (end < births.size() && births[end].day == births[begin].day) ++end;
    check_litter(animals, births.subspan(begin, end - begin), limits, findings);
    if (end < births.size()) check_interval(animals, births[begin], births[end], limits, findings, conflicts);
    begin = end;
  }
}

}  // namespace

void check_litters(const PedigreeColumns& animals, const CheckLimits& limits, Findings& findings,
                   std::vector<DateConflict>& conflicts) {
  std::vector<Birth> births = births_by_dam(animals);
  for (std::size_t begin = 0; begin < births.size();) {
    std::size_t end = begin + 1;
    while (end < births.size() && births[end].dam == births[begin].dam) ++end;
    check_births_of_dam(animals, std::span<Birth>(births).subspan(begin, end - begin), limits, findings, conflicts);
    begin = end;
  }
}

}  // namespace pedigreewatch
