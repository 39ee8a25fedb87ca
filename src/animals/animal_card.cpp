#include "animals/animal_card.h"

#include <algorithm>
#include <array>

#include "genetics/ancestor_pedigree.h"
#include "matings/mating_work.h"
#include "pedigree/known_sexes.h"

namespace pedigreewatch {
namespace {

/// F of the animal, ancestor by ancestor.
KinshipParts parts_of_inbreeding(const PopulationStore& store, std::int32_t position) {
  const KnownParents parents = known_parents(store, position);
  if (parents.sire == 0 || parents.dam == 0) return {};
  const std::array<std::int32_t, 2> both = {parents.sire, parents.dam};
  MatingWork work{store, pedigree_of(store, both), {}, {}};
  work.within_family_variance = within_family_variances(store, work.ancestors);
  return kinship_parts(work, list_ancestor_shares(work, parents.sire), list_ancestor_shares(work, parents.dam));
}

ParentSide side_of(const CardSource& source, std::int32_t parent) {
  static_assert(tree_generations <= line_generations);
  ParentSide side;
  side.parent = parent;
  for (std::size_t g = 0; g < tree_generations; ++g) side.known[g] = source.lines[parent].known[g];
  return side;
}

std::optional<AgeMateRank> rank_among_age_mates(const CardSource& source, std::int32_t position) {
  const std::int32_t year = source.store.birth_year[position];
  if (source.mean_kinship.values.empty() || year == 0) return std::nullopt;
  const float own = source.mean_kinship[position];
  AgeMateRank rank = {1, 0};
  for (std::int32_t i = 1; i <= source.store.animal_count; ++i) {
    if (source.store.birth_year[i] != year) continue;
    ++rank.animals;
    if (source.mean_kinship[i] < own) ++rank.rank;
  }
  return rank;
}

PartOfToday part_of_today(const CardSource& source, std::int32_t position) {
  const PopulationStore& store = source.store;
  PartOfToday part;
  part.animals = static_cast<std::int32_t>(source.today.size());
  if (source.today.empty()) return part;
  ByNumber<float> share(store.size());
  share[position] = 1.0F;
  for (std::int32_t i = position + 1; i <= source.today.back(); ++i) {
    const KnownParents parents = known_parents(store, i);
    share[i] = 0.5F * (share[parents.sire] + share[parents.dam]);
  }
  for (const std::int32_t animal : source.today) {
    part.genes += double{share[animal]};
    if (animal == position) {
      part.is_one = true;
    } else if (share[animal] > 0.0F) {
      ++part.descendants;
    }
  }
  part.genes /= static_cast<double>(source.today.size());
  return part;
}

}  // namespace

AnimalCard make_card(const CardSource& source, std::int32_t position) {
  const PopulationStore& store = source.store;
  const KnownParents parents = known_parents(store, position);
  AnimalCard card;
  card.position = position;
  card.sex = known_sex(store, position);
  card.tree = family_tree_of(store, position);
  card.parts = parts_of_inbreeding(store, position);
  card.founders = inbreeding_by_founder(store, position);
  card.recent_3 = double{source.recent_3[position]};
  card.recent_5 = double{source.recent_5[position]};
  card.ancestral = double{source.ancestral[position]};
  if (!source.mean_kinship.values.empty()) card.mean_kinship = double{source.mean_kinship[position]};
  card.rank = rank_among_age_mates(source, position);
  card.sire = side_of(source, parents.sire);
  card.dam = side_of(source, parents.dam);
  card.completeness_index = completeness_index(source.lines[parents.sire], source.lines[parents.dam]);
  card.offspring = list_offspring(store, position);
  card.today = part_of_today(source, position);
  return card;
}

}  // namespace pedigreewatch
