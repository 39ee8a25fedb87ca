// Works on identifications: each parent is told once, at the line of its first young.

#include "checks/parent_checks.h"

#include <algorithm>
#include <vector>

#include "checks/grouped_findings.h"
#include "checks/near_ids.h"
#include "checks/readable_text.h"
#include "intake/value_words.h"

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
          .column = plan.column_of[static_cast<std::size_t>(mention.field)],
          .line = animals.line_of(mention.young),
          .id = animals.id.at(mention.young),
          .number = mention.count};
}

/// Whether `animal` can be a parent in this role of the young: of the right sex and not younger.
bool is_likely_parent(const PedigreeColumns& animals, std::int32_t animal, const ParentMention& mention,
                      const ReadingPlan& plan) {
  const bool is_male = is_male_letter(animals.sex.at(animal), plan);
  const DayRange parent = days_of_birth(animals, animal), young = days_of_birth(animals, mention.young);
  const bool is_older = !parent.is_known() || !young.is_known() || parent.first < young.last;
  return is_older && is_male == (mention.role == ParentRole::sire);
}

/// The one animal that can be meant; 0 when there is none, or when there are so many that the identifications are
/// numbers in a row.
std::int32_t meant_animal(const PedigreeColumns& animals, const NearAnimals& near, const ParentMention& mention,
                          const ReadingPlan& plan) {
  std::vector<std::int32_t> likely;
  for (const std::int32_t animal : near.animals) {
    if (is_likely_parent(animals, animal, mention, plan)) likely.push_back(animal);
  }
  constexpr std::size_t most = 2;
  if (!near.are_all || likely.empty() || likely.size() > most) return 0;
  return likely.front();
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

void check_parent_sex(const PedigreeColumns& animals, std::int32_t id, const ParentUse& use, const ReadingPlan& plan,
                      Findings& findings) {
  const std::int32_t animal = animals.animal_of[id];
  if (animal == 0) return;
  const bool is_male = is_male_letter(animals.sex.at(animal), plan);
  const char letter = animals.sex.at(animal);
  if (letter == ' ' || letter == '?' || letter == '-') return;  // an unknown sex is told by itself
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

std::uint64_t mix(std::uint64_t hash, std::uint64_t value) {
  hash = (hash ^ value) * 0x9E3779B97F4A7C15ULL;
  return hash ^ (hash >> 29);
}

/// Whether everything but the identification agrees.
bool have_same_data(const PedigreeColumns& animals, std::int32_t a, std::int32_t b) {
  const BirthDay &x = animals.birth.at(a), &y = animals.birth.at(b);
  return animals.sire.at(a) == animals.sire.at(b) && animals.dam.at(a) == animals.dam.at(b) &&
         animals.sex.at(a) == animals.sex.at(b) && animals.name_hash.at(a) == animals.name_hash.at(b) &&
         x.year == y.year && x.month == y.month && x.day == y.day;
}

/// The first animal with the same data as each one that has a name and a date.
void check_same_animals(const PedigreeColumns& animals, Findings& findings) {
  struct HashedAnimal {
    std::uint64_t hash;
    std::int32_t animal;
  };
  std::vector<HashedAnimal> hashed;
  for (std::int32_t a = 1; a <= animals.count(); ++a) {
    const BirthDay& birth = animals.birth.at(a);
    if (animals.name_hash.at(a) == 0 || birth.year == 0 || animals.id.at(a) == 0) continue;
    std::uint64_t hash = mix(animals.name_hash.at(a), static_cast<std::uint32_t>(birth.year));
    hash = mix(hash, static_cast<std::uint64_t>(birth.month * 64 + birth.day + 1000));
    hash = mix(hash, static_cast<std::uint32_t>(animals.sire.at(a)));
    hashed.push_back({mix(hash, static_cast<std::uint32_t>(animals.dam.at(a))), a});
  }
  std::sort(hashed.begin(), hashed.end(), [](const HashedAnimal& a, const HashedAnimal& b) {
    return a.hash != b.hash ? a.hash < b.hash : a.animal < b.animal;
  });
  for (std::size_t k = 1; k < hashed.size(); ++k) {
    const std::int32_t earlier = hashed[k - 1].animal, animal = hashed[k].animal;
    if (hashed[k - 1].hash != hashed[k].hash || !have_same_data(animals, earlier, animal)) continue;
    if (animals.id.at(earlier) == animals.id.at(animal)) continue;
    add(findings, {.code = FindingCode::same_animal,
                   .line = animals.line_of(animal),
                   .id = animals.id.at(animal),
                   .text = keep(findings, animals.ids.at(animals.id.at(earlier))),
                   .other_line = animals.line_of(earlier)});
  }
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
    ParentUse &sire = uses[animals.sire.at(animal)], &dam = uses[animals.dam.at(animal)];
    if (sire.sire_count++ == 0) sire.first_as_sire = animal;
    if (dam.dam_count++ == 0) dam.first_as_dam = animal;
  }
  uses[0] = {};
  return uses;
}

void check_missing_parents(const PedigreeColumns& animals, const ParentUses& uses, const ReadingPlan& plan,
                           Findings& findings) {
  const std::vector<std::int32_t> missing = parents_without_line(animals, uses);
  std::vector<std::int32_t> wanted;
  const auto spelling = find_same_but_spelling(animals, missing);
  for (const std::int32_t id : missing) {
    const ParentMention mention = mention_of(uses[id]);
    const auto same = spelling.find(id);
    if (same != spelling.end()) {
      add_with_animal(finding_of(FindingCode::parent_spelling, animals, mention, plan), animals, id, same->second,
                      findings);
    } else if (means_unknown(readable(animals.ids.at(id)))) {
      add_with_animal(finding_of(FindingCode::unknown_word, animals, mention, plan), animals, id, 0, findings);
    } else {
      wanted.push_back(id);
    }
  }
  constexpr std::size_t most_wanted = 100'000;  // a file without so many of its parents has other worries than slips
  const std::span<const std::int32_t> looked_at(wanted.data(), std::min(wanted.size(), most_wanted));
  const auto near = find_one_letter_off(animals, looked_at);
  for (const std::int32_t id : wanted) {
    const ParentMention mention = mention_of(uses[id]);
    const auto found = near.find(id);
    const std::int32_t animal = found == near.end() ? 0 : meant_animal(animals, found->second, mention, plan);
    const FindingCode code = animal != 0 ? FindingCode::parent_one_letter : FindingCode::parent_missing;
    add_with_animal(finding_of(code, animals, mention, plan), animals, id, animal, findings);
  }
}

void check_roles(const PedigreeColumns& animals, const ParentUses& uses, const ReadingPlan& plan, Findings& findings) {
  for (std::int32_t id = 1; id <= animals.ids.count(); ++id) {
    const ParentUse& use = uses[id];
    const bool has_both = use.sire_count > 0 && use.dam_count > 0;
    const bool is_one_animal = use.sire_count == 1 && use.dam_count == 1 && use.first_as_sire == use.first_as_dam;
    const bool is_word = animals.animal_of[id] == 0 && has_both && means_unknown(readable(animals.ids.at(id)));
    if (has_both && !is_word && !is_one_animal) report_both_roles(animals, id, use, plan, findings);
    if (!has_both) check_parent_sex(animals, id, use, plan, findings);
  }
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t sire = animals.sire.at(animal);
    if (sire == 0 || sire != animals.dam.at(animal)) continue;
    if (animals.animal_of[sire] == 0 && means_unknown(readable(animals.ids.at(sire)))) continue;  // told as a word
    add(findings, {.code = FindingCode::same_parents,
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
  check_same_animals(animals, findings);
}

}  // namespace pedigreewatch
