#include "pedigree/subpopulation_membership.h"

#include "core/text_index.h"

namespace pedigreewatch {

SubpopulationMembership find_membership(const PopulationStore& store, std::span<const SubpopulationName> names) {
  SubpopulationMembership membership;
  TextIndex index;
  const auto name_at = [&](std::int32_t k) { return names[static_cast<std::size_t>(k) - 1].full(); };
  membership.names_of_group.resize(names.size() + 1);
  for (std::int32_t k = 1; k <= static_cast<std::int32_t>(names.size()); ++k) {
    const std::int32_t group = find_or_add_text(index, name_at(k), k, name_at);
    membership.group_of_name.push_back(group);
    membership.names_of_group[static_cast<std::size_t>(group)].push_back(k);
  }
  membership.group_of_animal.reserve(store.animals.size());
  for (const AnimalRecord& animal : store.animals) {
    membership.group_of_animal.push_back(find_text(index, animal.subpopulation.full(), name_at));
  }
  return membership;
}

std::vector<std::vector<std::int32_t>> animals_by_group(const SubpopulationMembership& membership) {
  std::vector<std::vector<std::int32_t>> animals(membership.names_of_group.size());
  std::int32_t position = 0;
  for (const std::int32_t group : membership.group_of_animal) {
    ++position;
    if (group > 0) animals[static_cast<std::size_t>(group)].push_back(position);
  }
  return animals;
}

}  // namespace pedigreewatch
