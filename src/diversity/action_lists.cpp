// Descendants of the listed sires are marked with a bit for each in one pass down the population. The mean kinship of
// those that are left is one pass up the pedigree for eight of them.

#include "diversity/action_lists.h"

#include <algorithm>

#include "core/shares.h"
#include "diversity/cohort_genes.h"
#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

constexpr float rounding_of_inbreeding = 1e-6F;

void list_young(const PopulationStore& store, const ByNumber<float>& mean_kinship, const AvailableAnimals& available,
                ActionLists& lists) {
  lists.are_available = available.is_told;
  const BirthYears& years = store.birth_years;
  if (years.dated_row_count() == 0) return;
  const std::int64_t first = std::int64_t{years.last} - years_listed + 1;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (store.birth_year[i] == 0 || store.birth_year[i] < first || store.birth_year[i] > years.last) continue;
    if (!available.has(i)) continue;
    (store.sex[i] == male ? lists.males : lists.females).push_back(i);
  }
  if (mean_kinship.values.empty()) return;
  for (std::vector<std::int32_t>* const list : {&lists.females, &lists.males}) {
    std::stable_sort(list->begin(), list->end(),
                     [&](std::int32_t a, std::int32_t b) { return mean_kinship[a] < mean_kinship[b]; });
  }
}

void list_inbred(const PopulationStore& store, ActionLists& lists) {
  std::vector<std::int32_t>& list = lists.most_inbred;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (store.inbreeding[i] > rounding_of_inbreeding) list.push_back(i);
  }
  const auto is_before = [&](std::int32_t a, std::int32_t b) {
    if (store.inbreeding[a] != store.inbreeding[b]) return store.inbreeding[a] > store.inbreeding[b];
    return store.birth_year[a] != store.birth_year[b] ? store.birth_year[a] > store.birth_year[b] : a < b;
  };
  const std::size_t listed = std::min(list.size(), most_inbred_listed);
  std::partial_sort(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(listed), list.end(), is_before);
  list.resize(listed);
  list.shrink_to_fit();
}

void list_sires(const PopulationStore& store, std::span<const std::int32_t> reference, ActionLists& lists) {
  ByNumber<std::int32_t> offspring(store.size());
  std::int64_t with_sire = 0;
  for (const std::int32_t position : reference) {
    const std::int32_t sire = known_parents(store, position).sire;
    ++offspring[sire];
    if (sire != 0) ++with_sire;
  }
  offspring[0] = 0;
  std::vector<std::int32_t> sires;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (offspring[i] > 0) sires.push_back(i);
  }
  const std::size_t listed = std::min(sires.size(), sires_listed);
  std::partial_sort(sires.begin(), sires.begin() + static_cast<std::ptrdiff_t>(listed), sires.end(),
                    [&](std::int32_t a, std::int32_t b) {
                      return offspring[a] != offspring[b] ? offspring[a] > offspring[b] : a > b;
                    });
  for (std::size_t s = 0; s < listed; ++s) {
    UsedSire& sire = lists.sires.emplace_back();
    sire.position = sires[s];
    sire.offspring = offspring[sires[s]];
    sire.share = share_of(sire.offspring, with_sire);
  }
}

/// By position, which of the listed sires an animal is, a bit each.
ByNumber<std::uint32_t> mark_sires(const PopulationStore& store, std::span<const UsedSire> sires) {
  ByNumber<std::uint32_t> marks(store.size());
  for (std::size_t s = 0; s < sires.size(); ++s) marks[sires[s].position] = std::uint32_t{1} << s;
  return marks;
}

/// By position, from which of the listed sires an animal descends, a bit each; he himself has his own.
ByNumber<std::uint32_t> mark_descendants(const PopulationStore& store, std::span<const UsedSire> sires) {
  ByNumber<std::uint32_t> marks = mark_sires(store, sires);
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    fetch_later_parents(store, i, marks);
    const KnownParents parents = known_parents(store, i);
    marks[i] |= marks[parents.sire] | marks[parents.dam];
  }
  return marks;
}

/// The reference population without those that belong to each of some sires: as many animals, and their mean kinship.
struct Rest {
  std::int64_t animals = 0;
  double kinship = 0.0;
};

/// `belongs` yields a bit for each of the sires that an animal belongs to.
template <typename Belongs>
std::vector<Rest> describe_rests(GeneWork& work, std::span<const std::int32_t> reference, std::size_t sires,
                                 Belongs belongs) {
  std::vector<Rest> rests;
  std::vector<GroupedAnimal> animals;
  for (std::size_t first = 0; first < sires; first += gene_lanes) {
    const std::size_t count = std::min(gene_lanes, sires - first);
    const std::uint32_t all = (std::uint32_t{1} << count) - 1;
    std::vector<Rest> side_by_side(count);
    animals.clear();
    for (const std::int32_t position : reference) {
      const std::uint32_t groups = ~(belongs(position) >> first) & all;
      animals.push_back({position, groups});
      for (std::size_t s = 0; s < count; ++s) side_by_side[s].animals += (groups >> s) & 1U;
    }
    const std::vector<GroupGenes> genes = sum_genes(work, animals, count);
    for (std::size_t s = 0; s < count; ++s) {
      const double size = static_cast<double>(side_by_side[s].animals);
      if (side_by_side[s].animals > 0) side_by_side[s].kinship = 0.5 * genes[s].relationships / (size * size);
    }
    rests.insert(rests.end(), side_by_side.begin(), side_by_side.end());
  }
  return rests;
}

void describe_sires(const PopulationStore& store, std::span<const std::int32_t> reference,
                    std::vector<UsedSire>& sires) {
  if (sires.empty()) return;
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  GeneWork work = make_gene_work(store, ancestors);
  const ByNumber<std::uint32_t> marks = mark_descendants(store, sires);
  const std::vector<Rest> rests =
      describe_rests(work, reference, sires.size(), [&](std::int32_t position) { return marks[position]; });
  const ByNumber<std::uint32_t> own = mark_sires(store, sires);
  const auto family_of = [&](std::int32_t position) {
    return own[position] | own[known_parents(store, position).sire];
  };
  const std::vector<Rest> without_offspring = describe_rests(work, reference, sires.size(), family_of);
  for (std::size_t s = 0; s < sires.size(); ++s) {
    sires[s].rest = rests[s].animals;
    sires[s].descendants = std::ssize(reference) - rests[s].animals;
    sires[s].kinship_of_rest = rests[s].kinship;
    sires[s].without_offspring = without_offspring[s].animals;
    sires[s].kinship_without_offspring = without_offspring[s].kinship;
  }
}

}  // namespace

ActionLists make_action_lists(const PopulationStore& store, std::span<const std::int32_t> reference,
                              const ByNumber<float>& mean_kinship, const AvailableAnimals& available) {
  ActionLists lists;
  list_young(store, mean_kinship, available, lists);
  list_inbred(store, lists);
  list_sires(store, reference, lists);
  describe_sires(store, reference, lists.sires);
  return lists;
}

}  // namespace pedigreewatch
