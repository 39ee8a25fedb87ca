#include "checks/grouped_findings.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

namespace pedigreewatch {
namespace {

bool is_grouped(FindingCode code) {
  return code == FindingCode::date_text || code == FindingCode::year_placeholder ||
         code == FindingCode::year_two_digits;
}

}  // namespace

void add_for_animals(Finding finding, std::span<const std::int32_t> found, const PedigreeColumns& animals,
                     Findings& findings) {
  if (found.empty()) return;
  std::vector<std::int32_t> lines;
  lines.reserve(found.size());
  for (const std::int32_t animal : found) lines.push_back(animals.line_of(animal));
  finding.number = std::ssize(found);
  if (found.size() == 1) finding.id = animals.id.at(found.front());
  add_for_lines(findings, finding, lines);
}

void group_alike(Findings& findings) {
  using Key = std::tuple<FindingCode, std::int32_t, std::int32_t>;
  struct Group {
    Finding first;
    std::vector<std::int32_t> lines;
  };
  const auto key_of = [](const Finding& finding) {
    return Key{finding.code, finding.code == FindingCode::year_two_digits ? 0 : finding.text, finding.other_text};
  };
  std::map<Key, Group> groups;
  for (const Finding& finding : findings.list) {
    if (!is_grouped(finding.code)) continue;
    Group& group = groups.try_emplace(key_of(finding), Group{finding, {}}).first->second;
    group.lines.push_back(finding.line);
  }
  std::erase_if(findings.list, [](const Finding& finding) { return is_grouped(finding.code); });
  for (auto& [key, group] : groups) {
    if (group.lines.size() > 1) group.first.id = 0;
    group.first.number = std::ssize(group.lines);
    add_for_lines(findings, group.first, group.lines);
  }
}

}  // namespace pedigreewatch
