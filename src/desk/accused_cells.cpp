#include "desk/accused_cells.h"

#include <algorithm>
#include <map>

#include "checks/readable_text.h"

namespace pedigreewatch {
namespace {

using Code = FindingCode;

/// Cells that are found by what stands in them.
struct AccusedTexts {
  std::map<std::string_view, Code> as_sire, as_dam;
  std::map<std::int32_t, Code> as_year;
  bool are_none() const { return as_sire.empty() && as_dam.empty() && as_year.empty(); }
};

AccusedCell cell_of_animal(const PedigreeColumns& animals, std::int32_t animal, Code code, FieldCode field) {
  return {code, field, animals.line_of(animal), readable(animals.ids.at(animals.id.at(animal)))};
}

/// The year that a finding accuses wherever it stands: one far from all others, or so far in the future that a parent
/// would be older than the tables can show; no date of a parent makes it so old. 0 for none.
std::int32_t accused_year(const CheckResult& check, const Finding& finding) {
  if (finding.code == Code::year_far_out) return static_cast<std::int32_t>(finding.number);
  if (finding.code != Code::age_figures) return 0;
  const std::int32_t young = check.animals.linked(finding.id);
  return young == 0 ? 0 : check.animals.birth.at(young).year;
}

/// The dates of the lines that a finding names. Relatives that contradict a date keep theirs.
void add_dates(const CheckResult& check, const Finding& finding, AccusedTexts& texts, std::vector<AccusedCell>& cells) {
  if (const std::int32_t year = accused_year(check, finding); year != 0) {
    texts.as_year.emplace(year, finding.code);
    return;
  }
  cells.push_back({finding.code, birthdate_column, finding.line, readable(check.animals.ids.at(finding.id))});
  if (finding.code == Code::date_contradicted) return;
  for (const std::int32_t line : lines_of(check.findings, finding)) {
    if (line != finding.line) cells.push_back({finding.code, birthdate_column, line, {}});
  }
}

void add_parents(const CheckResult& check, const Finding& finding, AccusedTexts& texts,
                 std::vector<AccusedCell>& cells) {
  const std::string_view text = check.findings.texts.at(finding.text);
  const ParentRole role = accused_parent(finding);
  switch (finding.code) {
    case Code::unknown_word:
    case Code::unknown_perhaps:
      texts.as_sire.emplace(text, finding.code);
      texts.as_dam.emplace(text, finding.code);
      return;
    case Code::both_roles:
      (role == ParentRole::sire ? texts.as_sire : texts.as_dam).emplace(text, finding.code);
      return;
    case Code::loop:
      cells.push_back({finding.code, field_of_parent(role), finding.other_line,
                       readable(check.findings.texts.at(finding.other_text))});
      return;
    default:
      cells.push_back({finding.code, field_of_parent(role), finding.line, readable(check.animals.ids.at(finding.id))});
  }
}

void add_animals_with(const CheckResult& check, const AccusedTexts& texts, std::vector<AccusedCell>& cells) {
  const PedigreeColumns& animals = check.animals;
  const auto add_with = [&](const auto& accused, const auto& what, std::int32_t animal, FieldCode field) {
    const auto found = accused.find(what);
    if (found != accused.end()) cells.push_back(cell_of_animal(animals, animal, found->second, field));
  };
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    add_with(texts.as_year, animals.birth.at(animal).year, animal, birthdate_column);
    add_with(texts.as_sire, animals.ids.at(animals.sire.at(animal)), animal, sire_column);
    add_with(texts.as_dam, animals.ids.at(animals.dam.at(animal)), animal, dam_column);
  }
}

/// Whether a finding says that the line's parent in a role fits the other role better.
bool fits_other_role(const Finding& finding, ParentRole role, std::int32_t line) {
  if (accused_parent(finding) != role) return false;
  if (finding.code == Code::parent_sex) return finding.line == line && finding.number == 1;
  if (finding.code != Code::both_roles) return false;
  const bool is_sire = role == ParentRole::sire;
  return (is_sire ? finding.number : finding.other_number) == 1 &&
         (is_sire ? finding.line : finding.other_line) == line;
}

}  // namespace

WaysOn ways_on(FindingCode code) {
  switch (code) {
    case Code::date_unreadable:
    case Code::date_text:
    case Code::date_impossible:
    case Code::year_placeholder:
    case Code::year_future:
    case Code::year_far_out:
    case Code::year_lone:
    case Code::year_two_digits:
    case Code::age_figures:
    case Code::date_contradicted: return {true, false};
    case Code::born_before_parent:
    case Code::parent_too_young: return {true, true};
    case Code::loop:
    case Code::same_parents:
    case Code::both_roles:
    case Code::parent_name:
    case Code::unknown_word:
    case Code::unknown_perhaps: return {false, true};
    default: return {};
  }
}

WaysOn ways_on(const Finding& finding) {
  WaysOn ways = ways_on(finding.code);
  if (finding.line == 0) return {};
  ways.parents = ways.parents && accused_parent(finding) != ParentRole::none;
  return ways;
}

ParentRole accused_parent(const Finding& finding) {
  if (finding.code != Code::both_roles) return finding.role;
  if (finding.number == finding.other_number) return ParentRole::none;
  return finding.number < finding.other_number ? ParentRole::sire : ParentRole::dam;
}

FieldCode field_of_parent(ParentRole role) {
  if (role == ParentRole::none) return unused_column;
  return role == ParentRole::sire ? sire_column : dam_column;
}

bool is_about_text(FindingCode code) {
  switch (code) {
    case Code::loop:
    case Code::age_figures:
    case Code::same_parents:
    case Code::parent_sex:
    case Code::parent_name:
    case Code::date_contradicted:
    case Code::born_before_parent:
    case Code::parent_too_young:
    case Code::births_too_close:
    case Code::parent_young:
    case Code::parent_old:
    case Code::births_close:
    case Code::litter_dates:
    case Code::litter_size:
    case Code::litter_sires:
    case Code::litter_dams:
    case Code::same_animal:
    case Code::date_order:
    case Code::year_far_out:
    case Code::year_lone: return false;
    default: return true;
  }
}

std::vector<AccusedCell> accused_cells(const CheckResult& check, std::span<const Finding* const> findings, bool dates) {
  std::vector<AccusedCell> cells;
  AccusedTexts texts;
  for (const Finding* const finding : findings) {
    const WaysOn ways = ways_on(*finding);
    if (dates && ways.dates) add_dates(check, *finding, texts, cells);
    if (!dates && ways.parents) add_parents(check, *finding, texts, cells);
  }
  if (!texts.are_none()) add_animals_with(check, texts, cells);
  return cells;
}

bool are_parents_exchanged(const Findings& findings, std::int32_t line) {
  const auto is_found = [&](ParentRole role) {
    return std::any_of(findings.list.begin(), findings.list.end(),
                       [&](const Finding& finding) { return fits_other_role(finding, role, line); });
  };
  return is_found(ParentRole::sire) && is_found(ParentRole::dam);
}

}  // namespace pedigreewatch
