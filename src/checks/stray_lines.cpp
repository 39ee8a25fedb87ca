#include "checks/stray_lines.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>
#include <vector>

#include "checks/readable_text.h"
#include "intake/value_words.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view remark_signs = " :=";

bool has_remark_sign(std::string_view text) {
  return text.find_first_of(remark_signs) != std::string_view::npos;
}

/// Whether identifications of this file hold blanks or colons as remarks do: more than one in a hundred.
bool are_ids_like_remarks(const PedigreeColumns& animals) {
  constexpr std::int64_t one_in = 100;
  std::int64_t with_sign = 0;
  for (std::int32_t id = 1; id <= animals.ids.count(); ++id) {
    const std::int32_t animal = animals.animal_of[id];
    if (animal != 0 && !animals.has_mark(animal, mark_bare) && has_remark_sign(animals.ids.at(id))) ++with_sign;
  }
  return with_sign * one_in > animals.count();
}

}  // namespace

void check_stray_lines(PedigreeColumns& animals, Findings& findings) {
  std::vector<std::int32_t> bare;
  std::unordered_set<std::int32_t> ids;
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    if (!animals.has_mark(animal, mark_bare) || animals.has_mark(animal, mark_no_animal)) continue;
    bare.push_back(animal);
    ids.insert(animals.id.at(animal));
  }
  if (bare.empty()) return;
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    ids.erase(animals.sire.at(animal));
    ids.erase(animals.dam.at(animal));
  }
  const bool are_like_remarks = are_ids_like_remarks(animals);
  for (const std::int32_t animal : bare) {
    const std::int32_t id = animals.id.at(animal);
    const std::string text = readable(animals.ids.at(id));
    const bool is_strange = has_remark_word(text) || (has_remark_sign(text) && !are_like_remarks);
    if (id == 0 || !ids.contains(id) || !is_strange) continue;
    add_mark(animals.marks.at(animal), mark_no_animal);
    add(findings, {.code = FindingCode::no_animal, .line = animals.line_of(animal), .id = id});
  }
}

}  // namespace pedigreewatch
