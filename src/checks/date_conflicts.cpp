// The conflicts are the edges of a graph of animals. The one with the most of them is taken out first, with its edges,
// as long as it has more than any animal at their other ends.

#include "checks/date_conflicts.h"

#include <algorithm>
#include <queue>
#include <string>
#include <unordered_map>
#include <utility>

#include "text/counted.h"

namespace pedigreewatch {
namespace {

struct ConflictGraph {
  std::vector<DateConflict>& conflicts;
  std::unordered_map<std::int32_t, std::vector<std::size_t>> of_animal;  ///< places of its conflicts
  std::vector<bool> is_told;

  std::int32_t other_of(std::size_t conflict, std::int32_t animal) const {
    const auto& ends = conflicts[conflict].animals;
    return ends[0] == animal ? ends[1] : ends[0];
  }
  std::vector<std::size_t> open_of(std::int32_t animal) const {
    std::vector<std::size_t> open;
    for (const std::size_t each : of_animal.at(animal)) {
      if (!is_told[each]) open.push_back(each);
    }
    return open;
  }
  std::size_t count_open(std::int32_t animal) const {
    const std::vector<std::size_t>& all = of_animal.at(animal);
    return static_cast<std::size_t>(
        std::count_if(all.begin(), all.end(), [&](std::size_t each) { return !is_told[each]; }));
  }
};

/// The years in which the animal could be born as far as its parents and its young tell; 0 for an end that is open.
struct YearRange {
  std::int64_t first = 0, last = 0;
};

YearRange fitting_years(const PedigreeColumns& animals, const ConflictGraph& graph, std::int32_t animal,
                        std::span<const std::size_t> conflicts, const CheckLimits& limits) {
  constexpr std::int32_t days_of_a_year = 365;
  const std::int64_t youngest_years = limits.youngest_parent_days / days_of_a_year;
  YearRange range;
  for (const std::int32_t id : {animals.sire.at(animal), animals.dam.at(animal)}) {
    const std::int32_t parent = animals.linked(id), year = parent == 0 ? 0 : animals.birth.at(parent).year;
    if (year != 0) range.first = std::max(range.first, year + youngest_years);
  }
  for (const std::size_t each : conflicts) {
    if (graph.conflicts[each].animals[1] != animal) continue;  // its own parents and siblings are not its young
    const std::int32_t young = graph.conflicts[each].animals[0];
    const bool is_parent =
        animals.linked(animals.sire.at(young)) == animal || animals.linked(animals.dam.at(young)) == animal;
    const std::int32_t year = is_parent ? animals.birth.at(young).year : 0;
    if (year != 0) range.last = range.last == 0 ? year - youngest_years : std::min(range.last, year - youngest_years);
  }
  return range;
}

/// Years that would fit instead of that in which the animal is said to be born.
std::string text_of_years(const YearRange& range, std::int64_t own_year, ToolLanguage language) {
  constexpr Wording between = {"; {1} would fit", "; {1} zou passen"};
  constexpr Wording from = {"; {1} or later would fit", "; {1} of later zou passen"};
  constexpr Wording until = {"; {1} or earlier would fit", "; {1} of eerder zou passen"};
  // Who is in order with parents and young may still stand against a sibling.
  if (range.first <= own_year && (range.last == 0 || own_year <= range.last)) return {};
  const std::string first = std::to_string(range.first), last = std::to_string(range.last);
  if (range.first != 0 && range.last != 0) {
    const bool is_some = range.first <= range.last;
    return is_some ? phrase(between, language, {range_text(range.first, range.last, language)}) : std::string();
  }
  if (range.first != 0) return phrase(from, language, {first});
  return range.last != 0 ? phrase(until, language, {last}) : std::string();
}

std::string text_of_birth(const PedigreeColumns& animals, std::int32_t animal) {
  const BirthDay& birth = animals.birth.at(animal);
  if (animals.has_mark(animal, mark_year_only)) return std::to_string(birth.year);
  return text_of(CalendarDate{birth.year, birth.month, birth.day});
}

void tell_together(Finding finding, const PedigreeColumns& animals, const ConflictGraph& graph, std::int32_t animal,
                   std::span<const std::size_t> conflicts, Findings& findings) {
  std::vector<std::int32_t> lines;
  for (const std::size_t each : conflicts) lines.push_back(animals.line_of(graph.other_of(each, animal)));
  std::sort(lines.begin(), lines.end());
  lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
  finding.line = animals.line_of(animal);
  finding.id = animals.id.at(animal);
  finding.first_of_lines = static_cast<std::uint32_t>(findings.lines.size());
  finding.line_count = static_cast<std::uint32_t>(lines.size());
  findings.lines.insert(findings.lines.end(), lines.begin(), lines.end());
  add(findings, finding);
}

/// The conflicts of an animal that stands against several relatives.
void tell_of_animal(const PedigreeColumns& animals, ConflictGraph& graph, std::int32_t animal,
                    const CheckLimits& limits, ToolLanguage language, Findings& findings) {
  const std::vector<std::size_t> open = graph.open_of(animal);
  const auto is_old = [&](std::size_t each) { return graph.conflicts[each].finding.code == FindingCode::parent_old; };
  const bool is_merely_old = std::all_of(open.begin(), open.end(), is_old);
  if (is_merely_old && graph.conflicts[open.front()].animals[1] != animal) return;  // two old parents of one young
  for (const std::size_t each : open) graph.is_told[each] = true;
  if (is_merely_old) {
    const auto oldest = *std::max_element(open.begin(), open.end(), [&](std::size_t a, std::size_t b) {
      return graph.conflicts[a].finding.number < graph.conflicts[b].finding.number;
    });
    Finding finding = graph.conflicts[oldest].finding;
    finding.other_line = animals.line_of(animal);
    return tell_together(finding, animals, graph, animal, open, findings);
  }
  const YearRange years = fitting_years(animals, graph, animal, open, limits);
  tell_together({.code = FindingCode::date_contradicted,
                 .text = keep(findings, text_of_birth(animals, animal)),
                 .other_text = keep(findings, text_of_years(years, animals.birth.at(animal).year, language)),
                 .number = std::ssize(open)},
                animals, graph, animal, open, findings);
}

bool has_most(const ConflictGraph& graph, std::int32_t animal, std::size_t count) {
  const std::vector<std::size_t> open = graph.open_of(animal);
  return std::all_of(open.begin(), open.end(),
                     [&](std::size_t each) { return graph.count_open(graph.other_of(each, animal)) < count; });
}

}  // namespace

void report_conflicts(const PedigreeColumns& animals, std::vector<DateConflict>& conflicts, const CheckLimits& limits,
                      ToolLanguage language, Findings& findings) {
  constexpr std::size_t fewest = 2, most_looked_at = 100'000;
  ConflictGraph graph = {conflicts, {}, std::vector<bool>(conflicts.size())};
  for (std::size_t k = 0; k < std::min(conflicts.size(), most_looked_at); ++k) {
    for (const std::int32_t animal : conflicts[k].animals) graph.of_animal[animal].push_back(k);
  }
  std::priority_queue<std::pair<std::size_t, std::int32_t>> queue;
  for (const auto& [animal, places] : graph.of_animal) {
    if (places.size() >= fewest) queue.emplace(places.size(), -animal);  // of equal ones the first in the file
  }
  while (!queue.empty()) {
    const auto [count, negative] = queue.top();
    queue.pop();
    const std::int32_t animal = -negative;
    const std::size_t open = graph.count_open(animal);
    if (open < fewest) continue;
    if (open < count) {
      queue.emplace(open, negative);
    } else if (has_most(graph, animal, open)) {
      tell_of_animal(animals, graph, animal, limits, language, findings);
    }
  }
  for (std::size_t k = 0; k < conflicts.size(); ++k) {
    if (!graph.is_told[k]) add(findings, conflicts[k].finding);
  }
}

}  // namespace pedigreewatch
