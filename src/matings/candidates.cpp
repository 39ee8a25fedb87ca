// The identifications of the list are put into a table, in all the forms that they may have in the data file; one pass
// through the store finds the animals.

#include "matings/candidates.h"

#include <functional>
#include <string_view>
#include <unordered_map>

#include "checks/readable_text.h"
#include "pedigree/known_sexes.h"
#include "text/utf_8.h"
#include "text/windows_1252.h"

namespace pedigreewatch {
namespace {

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

/// The animals of identifications; 0 for one that has not been found.
using PositionOfId = std::unordered_map<std::string, std::int32_t, TextHash, std::equal_to<>>;

/// What an identification may look like in the data file, as it stands first.
std::vector<std::string> forms_of(std::string_view id) {
  const auto cut = [](std::string_view text) { return std::string(AnimalId(text).trimmed()); };
  std::vector<std::string> forms = {cut(id)};
  if (is_ascii(id)) return forms;
  std::string bytes;
  LetterCounts ignored;
  if (!is_utf_8(id)) {
    forms.push_back(cut(readable(id)));
  } else if (append_windows_1252(bytes, id, ignored)) {
    forms.push_back(cut(bytes));
  }
  return forms;
}

/// Finds the first animal of the data file with each identification.
void find_positions(const PopulationStore& store, PositionOfId& position_of) {
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const auto found = position_of.find(store.id(i));
    if (found == position_of.end()) continue;
    std::int32_t& position = found->second;
    if (position == 0 || store.record_no(i) < store.record_no(position)) position = i;
  }
}

std::int32_t position_of_any(const PositionOfId& position_of, std::string_view id) {
  for (const std::string& form : forms_of(id)) {
    if (const std::int32_t position = position_of.find(form)->second; position > 0) return position;
  }
  return 0;
}

}  // namespace

std::vector<std::int32_t> positions_listed(const PopulationStore& store, std::span<const ListedId> ids) {
  PositionOfId position_of;
  for (const ListedId& listed : ids) {
    for (std::string& form : forms_of(without_blanks(listed.id))) position_of.emplace(std::move(form), 0);
  }
  find_positions(store, position_of);
  std::vector<std::int32_t> positions;
  for (const ListedId& listed : ids)
    positions.push_back(position_of_any(position_of, std::string(without_blanks(listed.id))));
  return positions;
}

CandidateList candidates_listed(const PopulationStore& store, std::span<const ListedId> ids, Sex wanted) {
  const std::vector<std::int32_t> positions = positions_listed(store, ids);
  const SexEvidence sexes = find_sex_evidence(store);
  CandidateList list;
  std::unordered_map<std::int32_t, std::int64_t> first_line;
  for (std::size_t k = 0; k < ids.size(); ++k) {
    const ListedId& listed = ids[k];
    const std::string id(without_blanks(listed.id));
    const std::int32_t position = positions[k];
    if (position == 0) {
      list.notes.push_back({ListFault::unknown_id, listed.line, id, 0});
    } else if (known_sex(store, sexes, position).value_or(wanted) != wanted) {
      list.notes.push_back({ListFault::wrong_sex, listed.line, id, 0});
    } else if (const auto [seen, is_new] = first_line.emplace(position, listed.line); !is_new) {
      list.notes.push_back({ListFault::repeated, listed.line, id, seen->second});
    } else {
      list.positions.push_back(position);
    }
  }
  return list;
}

AvailableAnimals available_listed(const PopulationStore& store, std::span<const ListedId> ids) {
  AvailableAnimals available = {true, ByNumber<Flag>(store.size()), 0, 0};
  for (const std::int32_t position : positions_listed(store, ids)) {
    available.unknown_ids += position == 0 ? 1 : 0;
    available.count += position != 0 && available.marks[position] == 0 ? 1 : 0;
    available.marks[position] = 1;
  }
  available.marks[0] = 0;
  return available;
}

std::vector<std::int32_t> candidates_born(const PopulationStore& store, std::int32_t first_year, std::int32_t last_year,
                                          std::optional<Sex> sex) {
  const SexEvidence sexes = find_sex_evidence(store);
  std::vector<std::int32_t> positions;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::int32_t year = store.birth_year[i];
    if (year != 0 && year >= first_year && year <= last_year && known_sex(store, sexes, i) == sex)
      positions.push_back(i);
  }
  return positions;
}

}  // namespace pedigreewatch
