// Works on identifications: each parent is told once, at the line of its first young.

#include "checks/parent_checks.h"

#include <algorithm>
#include <array>
#include <vector>

#include "checks/grouped_findings.h"
#include "checks/meant_parents.h"
#include "checks/readable_text.h"
#include "intake/value_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

bool is_male_letter(char letter, const ReadingPlan& plan) {
  return letter != ' ' && (letter == plan.layout.male_letters[0] || letter == plan.layout.male_letters[1]);
}

/// A parent as a finding speaks of it: in the role that it has first.
struct ParentMention {
  ParentRole role = ParentRole::none;
  FieldCode field = unused_column;
  std::int32_t young = 0;  ///< the first of them
  std::int32_t count = 0;
};

ParentMention mention_of(const ParentUse& use) {
  const std::int32_t count = use.sire_count + use.dam_count;
  const bool is_sire = use.first_as_sire != 0 && (use.first_as_dam == 0 || use.first_as_sire <= use.first_as_dam);
  if (is_sire) return {ParentRole::sire, sire_column, use.first_as_sire, count};
  return {ParentRole::dam, dam_column, use.first_as_dam, count};
}

Finding finding_of(FindingCode code, const PedigreeColumns& animals, const ParentMention& mention,
                   const ReadingPlan& plan) {
  return {.code = code,
          .role = mention.role,
          .column = plan.column_of[mention.field],
          .line = animals.line_of(mention.young),
          .id = animals.id.at(mention.young),
          .number = mention.count};
}

/// Adds the finding with the parent's identification and, unless it is 0, the animal that has to do with it.
void add_with_animal(Finding finding, const PedigreeColumns& animals, std::int32_t parent_id, std::int32_t animal,
                     Findings& findings) {
  finding.text = keep(findings, animals.ids.at(parent_id));
  if (animal != 0) {
    finding.other_text = keep(findings, animals.ids.at(animals.id.at(animal)));
    finding.other_line = animals.line_of(animal);
  }
  add(findings, finding);
}

std::vector<std::int32_t> parents_without_line(const PedigreeColumns& animals, const ParentUses& uses) {
  std::vector<std::int32_t> missing;
  for (std::int32_t id = 1; id <= animals.ids.count(); ++id) {
    const bool is_parent = uses[id].sire_count + uses[id].dam_count > 0;
    if (is_parent && animals.animal_of[id] == 0) missing.push_back(id);
  }
  return missing;
}

/// Whether nearly all animals have a digit in their identification.
bool have_ids_digits(const PedigreeColumns& animals) {
  constexpr std::int64_t one_in = 20;  // may have none
  std::int64_t without = 0;
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    if (!has_digit(animals.ids.at(animals.id.at(animal)))) ++without;
  }
  return without * one_in <= animals.count();
}

/// Whether a parent without a line, where ids have digits, can stand for no known one: a text that has none and is used
/// as father and as mother, or often.
bool can_mean_unknown(std::string_view text, const ParentUse& use) {
  constexpr std::int32_t often = 5;
  return !has_digit(text) && use.sire_count + use.dam_count > 1 &&
         ((use.sire_count > 0 && use.dam_count > 0) || use.sire_count + use.dam_count >= often);
}

bool has_known_sex(const PedigreeColumns& animals, std::int32_t animal) {
  const char letter = animals.sex.at(animal);
  return letter != ' ' && letter != '?' && letter != '-';
}

void check_parent_sex(const PedigreeColumns& animals, std::int32_t id, const ParentUse& use, const ReadingPlan& plan,
                      Findings& findings) {
  const std::int32_t animal = animals.animal_of[id];
  if (animal == 0) return;
  if (!has_known_sex(animals, animal)) return;  // an unknown sex is told by itself
  const bool is_male = is_male_letter(animals.sex.at(animal), plan);
  const auto report = [&](ParentRole role, FieldCode field, std::int32_t young, std::int32_t count) {
    add_with_animal(finding_of(FindingCode::parent_sex, animals, {role, field, young, count}, plan), animals, id,
                    animal, findings);
  };
  if (use.sire_count > 0 && !is_male) report(ParentRole::sire, sire_column, use.first_as_sire, use.sire_count);
  if (use.dam_count > 0 && is_male) report(ParentRole::dam, dam_column, use.first_as_dam, use.dam_count);
}

void report_both_roles(const PedigreeColumns& animals, std::int32_t id, const ParentUse& use, const ReadingPlan& plan,
                       Findings& findings) {
  Finding finding = finding_of(FindingCode::both_roles, animals,
                               {ParentRole::sire, sire_column, use.first_as_sire, use.sire_count}, plan);
  finding.text = keep(findings, animals.ids.at(id));
  finding.other_line = animals.line_of(use.first_as_dam);
  finding.other_number = use.dam_count;
  add(findings, finding);
}

/// Of an animal that is both parents of a young one the role that does not fit it: the rarer one, else that of the
/// other sex; none where neither tells.
ParentRole unfit_role(const PedigreeColumns& animals, std::int32_t parent_id, const ParentUse& use,
                      const ReadingPlan& plan) {
  if (use.sire_count != use.dam_count) return use.sire_count < use.dam_count ? ParentRole::sire : ParentRole::dam;
  const std::int32_t parent = animals.animal_of[parent_id];
  if (parent == 0 || !has_known_sex(animals, parent)) return ParentRole::none;
  return is_male_letter(animals.sex.at(parent), plan) ? ParentRole::dam : ParentRole::sire;
}

/// Whether everything but the identification agrees.
bool have_same_data(const PedigreeColumns& animals, std::int32_t a, std::int32_t b) {
  const BirthDay &x = animals.birth.at(a), &y = animals.birth.at(b);
  return animals.sire.at(a) == animals.sire.at(b) && animals.dam.at(a) == animals.dam.at(b) &&
         animals.sex.at(a) == animals.sex.at(b) && animals.name(a) == animals.name(b) && x.year == y.year &&
         x.month == y.month && x.day == y.day;
}

/// The year in which half of the animals with a date were born.
std::int32_t median_year(const PedigreeColumns& animals) {
  std::vector<std::int32_t> years;
  for (std::int32_t a = 1; a <= animals.count(); ++a) {
    if (animals.birth.at(a).year != 0) years.push_back(animals.birth.at(a).year);
  }
  if (years.empty()) return 0;
  const auto middle = years.begin() + static_cast<std::ptrdiff_t>(years.size() / 2);
  std::nth_element(years.begin(), middle, years.end());
  return *middle;
}

}  // namespace

ParentUses count_parent_uses(const PedigreeColumns& animals) {
  ParentUses uses(static_cast<std::size_t>(animals.ids.count()));
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    if (animal <= animals.count() - look_ahead) {
      fetch_early(&uses[animals.sire.at(animal + look_ahead)]);
      fetch_early(&uses[animals.dam.at(animal + look_ahead)]);
    }
    ParentUse &sire = uses[animals.sire.at(animal)], &dam = uses[animals.dam.at(animal)];
    if (sire.sire_count++ == 0) sire.first_as_sire = animal;
    if (dam.dam_count++ == 0) dam.first_as_dam = animal;
  }
  uses[0] = {};
  return uses;
}

void check_missing_parents(const PedigreeColumns& animals, const ParentUses& uses, const ReadingPlan& plan,
                           const CheckSettings& settings, Findings& findings) {
  std::vector<MissingParent> missing;
  for (const std::int32_t id : parents_without_line(animals, uses)) missing.push_back({id, mention_of(uses[id]).role});
  const std::array<char, 2> male_letters = plan.layout.male_letters;
  const std::vector<MeantParent> meant = find_meant_parents(
      animals, missing, settings.limits, std::string_view(male_letters.data(), male_letters.size()), settings.threads);
  const bool have_digits = !missing.empty() && have_ids_digits(animals);
  for (std::size_t k = 0; k < missing.size(); ++k) {
    const std::int32_t id = missing[k].id;
    const std::string text = readable(animals.ids.at(id));
    FindingCode code = FindingCode::parent_missing;
    if (meant[k].animal != 0) {
      code = meant[k].slip == Slip::format ? FindingCode::parent_spelling : FindingCode::parent_one_letter;
    } else if (means_unknown_parent(text)) {
      code = FindingCode::unknown_word;
    } else if (have_digits && can_mean_unknown(text, uses[id])) {
      code = FindingCode::unknown_perhaps;
    }
    add_with_animal(finding_of(code, animals, mention_of(uses[id]), plan), animals, id, meant[k].animal, findings);
  }
}

void check_roles(const PedigreeColumns& animals, const ParentUses& uses, const ReadingPlan& plan, Findings& findings) {
  for (std::int32_t id = 1; id <= animals.ids.count(); ++id) {
    const ParentUse& use = uses[id];
    const bool has_both = use.sire_count > 0 && use.dam_count > 0;
    const bool is_one_animal = use.sire_count == 1 && use.dam_count == 1 && use.first_as_sire == use.first_as_dam;
    const bool is_word = animals.animal_of[id] == 0 && has_both && means_unknown_parent(readable(animals.ids.at(id)));
    if (has_both && !is_word && !is_one_animal) report_both_roles(animals, id, use, plan, findings);
    if (!has_both) check_parent_sex(animals, id, use, plan, findings);
  }
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t sire = animals.sire.at(animal);
    if (sire == 0 || sire != animals.dam.at(animal)) continue;
    if (animals.animal_of[sire] == 0 && means_unknown_parent(readable(animals.ids.at(sire))))
      continue;  // told as a word
    add(findings, {.code = FindingCode::same_parents,
                   .role = unfit_role(animals, sire, uses[sire], plan),
                   .column = plan.column_of[dam_column],
                   .line = animals.line_of(animal),
                   .id = animals.id.at(animal),
                   .text = keep(findings, animals.ids.at(sire))});
  }
}

void check_founders(const PedigreeColumns& animals, const ParentUses& uses, Findings& findings) {
  const std::int32_t median = median_year(animals);
  std::vector<std::int32_t> late, isolated;
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t id = animals.id.at(animal);
    const bool has_parents = animals.sire.at(animal) != 0 || animals.dam.at(animal) != 0;
    if (has_parents || animals.has_mark(animal, mark_no_animal)) continue;
    const bool has_young = uses[id].sire_count + uses[id].dam_count > 0 && animals.animal_of[id] == animal;
    const bool is_late = animals.birth.at(animal).year > median && !animals.has_mark(animal, mark_import);
    if (has_young && !is_late) continue;
    (has_young ? late : isolated).push_back(animal);
  }
  add_for_animals({.code = FindingCode::founder_late, .other_number = median}, late, animals, findings);
  add_for_animals({.code = FindingCode::isolated}, isolated, animals, findings);
}

void check_duplicates(const PedigreeColumns& animals, Findings& findings) {
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t id = animals.id.at(animal);
    const std::int32_t first = animals.linked(id);
    if (id == 0 || first == animal) continue;
    const bool is_same = have_same_data(animals, first, animal);
    add(findings, {.code = is_same ? FindingCode::duplicate_line : FindingCode::duplicate_id,
                   .line = animals.line_of(animal),
                   .id = id,
                   .other_line = animals.line_of(first)});
  }
}

}  // namespace pedigreewatch
