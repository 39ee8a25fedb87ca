// A run of lines with one sire and one day is a litter, or litters of one sire on one day: how often it has one dam
// tells which of the two is usual in this file.

#include "checks/litter_dams.h"

#include <algorithm>
#include <vector>

namespace pedigreewatch {
namespace {

/// Animals that follow each other in the file, with one sire, one full date and known dams.
struct LitterRun {
  std::int32_t first = 0, last = 0;
  std::int32_t size() const { return last - first + 1; }
};

bool can_be_litter(const PedigreeColumns& animals, std::int32_t animal) {
  const DayRange days = days_of_birth(animals, animal);
  return animals.sire.at(animal) != 0 && animals.dam.at(animal) != 0 && days.is_known() && days.first == days.last;
}

std::vector<LitterRun> find_runs(const PedigreeColumns& animals) {
  std::vector<LitterRun> runs;
  for (std::int32_t first = 1; first <= animals.count();) {
    std::int32_t last = first;
    const auto goes_on = [&](std::int32_t next) {
      return animals.sire.at(next) == animals.sire.at(first) && animals.dam.at(next) != 0 &&
             days_of_birth(animals, next).first == days_of_birth(animals, first).first && can_be_litter(animals, next);
    };
    if (can_be_litter(animals, first)) {
      while (last < animals.count() && goes_on(last + 1)) ++last;
    }
    if (last > first) runs.push_back({first, last});
    first = last + 1;
  }
  return runs;
}

/// The one young with another dam than all others of the run; 0 when there is none such.
std::int32_t odd_young(const PedigreeColumns& animals, const LitterRun& run) {
  if (run.size() == 2) return animals.dam.at(run.first) != animals.dam.at(run.last) ? run.last : 0;
  const auto dam = [&](std::int32_t animal) { return animals.dam.at(animal); };
  const bool is_first_odd = dam(run.first) != dam(run.first + 1) && dam(run.first) != dam(run.last);
  const std::int32_t usual = is_first_odd ? dam(run.last) : dam(run.first);
  std::int32_t odd = 0;
  for (std::int32_t animal = run.first; animal <= run.last; ++animal) {
    if (dam(animal) == usual) continue;
    if (odd != 0) return 0;
    odd = animal;
  }
  return odd;
}

}  // namespace

void check_litter_dams(const PedigreeColumns& animals, Findings& findings) {
  constexpr std::int64_t one_in_litter = 10, one_in_pair = 50;  // runs with two dams are no more than one in so many
  const std::vector<LitterRun> runs = find_runs(animals);
  const auto has_two_dams = [&](const LitterRun& run) {
    for (std::int32_t animal = run.first; animal < run.last; ++animal) {
      if (animals.dam.at(animal) != animals.dam.at(animal + 1)) return true;
    }
    return false;
  };
  const auto of_two_dams = std::count_if(runs.begin(), runs.end(), has_two_dams);
  const std::int64_t count = std::ssize(runs);
  if (of_two_dams == 0 || of_two_dams * one_in_litter > count) return;
  const bool are_pairs_told = of_two_dams * one_in_pair <= count;
  for (const LitterRun& run : runs) {
    if (run.size() == 2 && !are_pairs_told) continue;
    const std::int32_t odd = odd_young(animals, run);
    if (odd == 0) continue;
    const std::int32_t mate = odd == run.first ? run.last : run.first;
    add(findings, {.code = FindingCode::litter_dams,
                   .line = animals.line_of(odd),
                   .id = animals.id.at(odd),
                   .text = keep(findings, animals.ids.at(animals.dam.at(odd))),
                   .other_text = keep(findings, animals.ids.at(animals.dam.at(mate))),
                   .other_line = animals.line_of(mate)});
  }
}

}  // namespace pedigreewatch
