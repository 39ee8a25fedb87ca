// Sires wait as slots, one for each of their litters. A dam looks at some slots of the wanted group, ranks them by how
// near they are to her, and takes one of a rank drawn from the practice. Where a rule forbids all of them, she looks at
// every slot, then an earlier pair may change sires with her.

#include "forecast/model_matings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <unordered_map>

namespace pedigreewatch {
namespace {

/// Earlier pairs that are asked to change at most.
constexpr std::size_t most_exchanges = 200;
/// Kinships by the pass differ from those of the walk, which is in single precision, by less than this.
constexpr double rounding_of_walk = 1e-5;

struct Pairing {
  ModelHerd& herd;
  RandomStream random;
  std::vector<std::vector<std::int32_t>> slots;                              ///< animals, by group
  std::vector<ModelFamily> pairs;                                            ///< made so far
  std::vector<GroupNo> group_of_pair;                                        ///< of the sire
  std::unordered_map<std::int32_t, std::int32_t> matings_of_offspring = {};  ///< by common parent
  double nearer = 0.0;   ///< by how much mates are to be nearer than by rank, as a part of 1 - kinship
  double missing = 0.0;  ///< of that, in kinship, what earlier pairs have not come to

  float kinship(std::int32_t sire, std::int32_t dam) const {
    return herd.has_table() ? herd.table.between(sire, dam) : near_kinship(herd.pedigree, sire, dam);
  }

  /// Without a table: as F of their young will be counted.
  float walked_kinship(std::int32_t sire, std::int32_t dam) const {
    const Mating mating = {sire, dam};
    float kinship = 0.0F;
    walk_ancestors(*herd.walk, {&mating, 1}, {&kinship, 1});
    return kinship;
  }
};

/// The parents that two animals have in common; 0 for none.
std::array<std::int32_t, 2> common_parents(const ModelPedigree& pedigree, std::int32_t first, std::int32_t second) {
  std::array<std::int32_t, 2> common = {0, 0};
  const auto has = [&](std::int32_t parent) {
    return parent != 0 && (pedigree.sire[second] == parent || pedigree.dam[second] == parent);
  };
  if (has(pedigree.sire[first])) common[0] = pedigree.sire[first];
  if (has(pedigree.dam[first]) && pedigree.dam[first] != pedigree.sire[first]) common[1] = pedigree.dam[first];
  return common;
}

bool is_too_near(const Pairing& pairing, std::int32_t sire, std::int32_t dam) {
  const double limit = *pairing.herd.rules.most_f;
  if (double{pairing.kinship(sire, dam)} > limit) return true;
  // The near kinship is the exact one at most, and found sooner.
  return !pairing.herd.has_table() && double{pairing.walked_kinship(sire, dam)} > limit;
}

bool is_permitted(const Pairing& pairing, std::int32_t sire, std::int32_t dam) {
  const BreedingRules& rules = pairing.herd.rules;
  if (dam == 0 || sire == 0) return true;
  if (rules.most_f && is_too_near(pairing, sire, dam)) return false;
  if (!rules.offspring_matings) return true;
  const auto has_room = [&](std::int32_t parent) {
    if (parent == 0 || parent == pairing.herd.basis.origin) return true;
    const auto made = pairing.matings_of_offspring.find(parent);
    const std::int32_t matings = made == pairing.matings_of_offspring.end() ? 0 : made->second;
    return matings < *rules.offspring_matings;
  };
  const auto parents = common_parents(pairing.herd.pedigree, sire, dam);
  return std::all_of(parents.begin(), parents.end(), has_room);
}

void count_offspring_mating(Pairing& pairing, std::int32_t sire, std::int32_t dam, std::int32_t change) {
  if (!pairing.herd.rules.offspring_matings) return;
  for (const std::int32_t parent : common_parents(pairing.herd.pedigree, sire, dam)) {
    if (parent != 0) pairing.matings_of_offspring[parent] += change;
  }
}

std::size_t draw_rank(const MateRanks& ranks, double drawn, std::size_t count) {
  double sum = 0.0;
  for (std::size_t rank = 0; rank < looked_at; ++rank) {
    sum += ranks[rank];
    // Among fewer males the ranks lie closer together.
    if (drawn < sum) return rank * count / looked_at;
  }
  return count - 1;
}

struct LookedAt {
  float kinship = 0.0F;
  std::size_t slot = 0;
};

struct LookedAtMales {
  std::array<LookedAt, looked_at> males;
  std::size_t count = 0;
};

/// Of the males, in the order of their kinships, the nearest to what the one of this rank has and the year has more.
std::size_t shifted_rank(Pairing& pairing, const LookedAtMales& seen, std::size_t rank) {
  if (pairing.nearer == 0.0) return rank;
  const double own = double{seen.males[rank].kinship};
  const double wanted = own + pairing.nearer * (1.0 - own) + pairing.missing;
  std::size_t nearest = 0;
  const auto distance = [&](std::size_t k) { return std::abs(double{seen.males[k].kinship} - wanted); };
  for (std::size_t k = 1; k < seen.count; ++k) {
    if (distance(k) < distance(nearest)) nearest = k;
  }
  pairing.missing = wanted - double{seen.males[nearest].kinship};
  return nearest;
}

/// A slot by the practice; the list has one.
std::size_t choose_slot(Pairing& pairing, const std::vector<std::int32_t>& list, std::int32_t dam) {
  LookedAtMales seen;
  const std::size_t count = seen.count = std::min(looked_at, list.size());
  const std::span<LookedAt> males = std::span(seen.males).first(count);
  const std::size_t first = pairing.random.place_among(list.size());
  const double drawn = pairing.random.unit();
  // The slots were shuffled: neighbours are any.
  for (std::size_t k = 0; k < count; ++k) {
    const std::size_t slot = (first + k) % list.size();
    males[k] = {pairing.kinship(list[slot], dam), slot};
  }
  const std::size_t rank = draw_rank(pairing.herd.basis.mate_ranks, drawn, count);
  std::stable_sort(males.begin(), males.end(),
                   [](const LookedAt& a, const LookedAt& b) { return a.kinship < b.kinship; });
  return males[dam == 0 ? rank : shifted_rank(pairing, seen, rank)].slot;
}

void take_slot(Pairing& pairing, std::vector<std::int32_t>& list, std::size_t slot, const WantedLitter& litter,
               std::int32_t dam) {
  const std::int32_t sire = list[slot];
  list[slot] = list.back();
  list.pop_back();
  count_offspring_mating(pairing, sire, dam, 1);
  pairing.pairs.push_back({sire, dam, 0.0F, litter.group, 0});
  pairing.group_of_pair.push_back(litter.sire_group);
}

/// Gives a sire that is left to an earlier pair, and its sire to this dam. False when no pair can change.
bool exchange_sires(Pairing& pairing, std::vector<std::int32_t>& list, const WantedLitter& litter, std::int32_t dam) {
  for (std::size_t slot = 0; slot < std::min<std::size_t>(list.size(), looked_at); ++slot) {
    for (std::size_t k = 0; k < std::min(pairing.pairs.size(), most_exchanges); ++k) {
      ModelFamily& pair = pairing.pairs[pairing.pairs.size() - 1 - k];
      if (pairing.group_of_pair[pairing.pairs.size() - 1 - k] != litter.sire_group || pair.sire == 0) continue;
      const std::int32_t left = list[slot], given = pair.sire;
      count_offspring_mating(pairing, given, pair.dam, -1);
      if (is_permitted(pairing, left, pair.dam) && is_permitted(pairing, given, dam)) {
        count_offspring_mating(pairing, left, pair.dam, 1);
        // Both matings may be between offspring of one animal: each was permitted without the other.
        if (is_permitted(pairing, given, dam)) {
          pair.sire = left;
          list[slot] = given;
          take_slot(pairing, list, slot, litter, dam);
          return true;
        }
        count_offspring_mating(pairing, left, pair.dam, -1);
      }
      count_offspring_mating(pairing, given, pair.dam, 1);
    }
  }
  return false;
}

/// A permitted slot behind this one, which is not; none when there is no other.
std::optional<std::size_t> find_permitted(Pairing& pairing, const std::vector<std::int32_t>& list, std::size_t slot,
                                          std::int32_t dam) {
  const BreedingRules& rules = pairing.herd.rules;
  ByNumber<double> kinships;
  if (rules.most_f && !pairing.herd.has_table()) {
    // Her kinship with everybody, by one pass: that of young which have all genes of her.
    const YoungOf herself = {dam, dam, 1, 0.0F};
    kinships = mean_kinship_with_young(pairing.herd.pedigree, {&herself, 1});
  }
  for (std::size_t k = 1; k < list.size(); ++k) {
    const std::size_t other = (slot + k) % list.size();
    const bool is_too_near = !kinships.values.empty() && kinships[list[other]] > *rules.most_f + rounding_of_walk;
    if (!is_too_near && is_permitted(pairing, list[other], dam)) return other;
  }
  return std::nullopt;
}

/// Finds a sire for the litter. False when there is no permitted one.
bool pair_litter(Pairing& pairing, const WantedLitter& litter, std::int32_t dam) {
  std::vector<std::int32_t>& list = pairing.slots[litter.sire_group];
  if (list.empty()) return false;
  const std::size_t slot = choose_slot(pairing, list, dam);
  if (is_permitted(pairing, list[slot], dam)) {
    take_slot(pairing, list, slot, litter, dam);
    return true;
  }
  ++pairing.herd.year.refused.pairs;
  if (const auto other = find_permitted(pairing, list, slot, dam)) {
    take_slot(pairing, list, *other, litter, dam);
    return true;
  }
  return exchange_sires(pairing, list, litter, dam);
}

Pairing begin_pairing(ModelHerd& herd, std::int32_t year) {
  Pairing pairing{herd, herd.stream(year, DrawPurpose::pairing), {}, {}, {}};
  pairing.slots.resize(herd.basis.records.groups);
  for (const ModelParent& sire : herd.parents.of_males) {
    std::vector<std::int32_t>& list = pairing.slots[sire.group];
    for (std::int32_t k = 0; k < sire.litters; ++k) list.push_back(sire.animal);
  }
  if (herd.replicate >= 0) {  // trial herds keep to the practice
    const std::int32_t ahead = year - herd.basis.base.last_year;
    pairing.nearer = follow_nearness(herd.basis.nearness, ahead, herd.stream(0, DrawPurpose::nearness));
  }
  for (std::vector<std::int32_t>& list : pairing.slots) shuffle(pairing.random, std::span(list));
  return pairing;
}

/// F of the pairs' young, by the table or the walk.
void find_inbreeding(ModelHerd& herd, std::span<ModelFamily> pairs) {
  if (herd.has_table()) {
    for (ModelFamily& pair : pairs) pair.f = herd.table.between(pair.sire, pair.dam);
    return;
  }
  std::array<Mating, lane_count> matings;
  std::array<float, lane_count> results = {};
  for (std::size_t first = 0; first < pairs.size(); first += lane_count) {
    const std::span<ModelFamily> batch = pairs.subspan(first, std::min(lane_count, pairs.size() - first));
    for (std::size_t k = 0; k < batch.size(); ++k) matings[k] = {batch[k].sire, batch[k].dam};
    walk_ancestors(*herd.walk, std::span(matings).first(batch.size()), results);
    for (std::size_t k = 0; k < batch.size(); ++k) {
      const bool has_both = batch[k].sire != 0 && batch[k].dam != 0;
      batch[k].f = has_both ? results[k] : 0.0F;
    }
  }
}

}  // namespace

void make_matings(ModelHerd& herd, const std::vector<WantedLitter>& litters, std::int32_t year) {
  Pairing pairing = begin_pairing(herd, year);
  for (const WantedLitter& litter : litters) {
    const std::int32_t dam = litter.dam == unknown_dam ? 0 : herd.parents.of_females[litter.dam].animal;
    if (!litter.has_sire) {
      pairing.pairs.push_back({0, dam, 0.0F, litter.group, 0});
      pairing.group_of_pair.push_back(litter.sire_group);
    } else if (!pair_litter(pairing, litter, dam)) {
      ++herd.year.refused.lost;
    }
  }
  find_inbreeding(herd, pairing.pairs);
  herd.families.insert(herd.families.end(), pairing.pairs.begin(), pairing.pairs.end());
}

}  // namespace pedigreewatch
