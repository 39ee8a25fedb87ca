#include "animals/offspring_list.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "core/by_number.h"
#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

/// The first year of offspring with a mate, and the mate: the order of mates. Unknown ones are behind all others.
using MateOrder = std::map<std::int32_t, std::pair<std::int32_t, std::int32_t>>;

std::int32_t year_for_order(std::int32_t year) {
  return year == 0 ? INT32_MAX : year;
}

MateOrder order_mates(const std::vector<MateYear>& years) {
  MateOrder order;
  for (const MateYear& entry : years) {
    const std::int32_t year = entry.mate == 0 ? INT32_MAX : year_for_order(entry.year);
    const std::pair key = {year, entry.mate == 0 ? INT32_MAX : entry.mate};
    const auto [known, is_new] = order.emplace(entry.mate, key);
    if (!is_new) known->second = std::min(known->second, key);
  }
  return order;
}

void count_grandchildren(const PopulationStore& store, std::int32_t position, OffspringList& list) {
  ByNumber<std::int32_t> place(store.size());  // of the young, counted from 1; 0 for all others
  std::vector<Young*> young = {nullptr};
  for (MateYear& entry : list.years) {
    for (Young& one : entry.young) {
      place[one.position] = static_cast<std::int32_t>(young.size());
      young.push_back(&one);
    }
  }
  for (std::int32_t i = position + 1; i <= store.animal_count; ++i) {
    const KnownParents parents = known_parents(store, i);
    const std::int32_t of_sire = place[parents.sire], of_dam = place[parents.dam];
    if (of_sire == 0 && of_dam == 0) continue;
    ++list.grandchildren;
    if (of_sire != 0) ++young[static_cast<std::size_t>(of_sire)]->offspring;
    if (of_dam != 0 && of_dam != of_sire) ++young[static_cast<std::size_t>(of_dam)]->offspring;
  }
  list.breeding = static_cast<std::int32_t>(
      std::count_if(young.begin() + 1, young.end(), [](const Young* one) { return one->offspring > 0; }));
}

}  // namespace

OffspringList list_offspring(const PopulationStore& store, std::int32_t position) {
  OffspringList list;
  std::map<std::pair<std::int32_t, std::int32_t>, std::vector<Young>> by_mate;
  for (std::int32_t i = position + 1; i <= store.animal_count; ++i) {
    const KnownParents parents = known_parents(store, i);
    if (parents.sire != position && parents.dam != position) continue;
    const std::int32_t mate = parents.sire == position ? parents.dam : parents.sire;
    by_mate[{mate, store.birth_year[i]}].push_back({i, 0});
    ++list.young;
    list.males += store.sex[i] == male ? 1 : 0;
  }
  for (auto& [key, young] : by_mate) list.years.push_back({key.first, key.second, std::move(young)});
  const MateOrder order = order_mates(list.years);
  list.mates = static_cast<std::int32_t>(order.size() - order.count(0));
  std::sort(list.years.begin(), list.years.end(), [&](const MateYear& a, const MateYear& b) {
    return std::tuple(order.at(a.mate), year_for_order(a.year)) < std::tuple(order.at(b.mate), year_for_order(b.year));
  });
  count_grandchildren(store, position, list);
  return list;
}

}  // namespace pedigreewatch
