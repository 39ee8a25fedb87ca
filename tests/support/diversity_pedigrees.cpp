#include "support/diversity_pedigrees.h"

#include <algorithm>
#include <cstddef>

#include "genetics/ancestor_pedigree.h"
#include "genetics/inbreeding.h"
#include "statistics/completeness.h"
#include "support/pedigrees.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

/// An animal or an unknown parent, with the places of its parents; -1 for none.
struct PlainEntry {
  std::int32_t position = 0;
  int sire = -1, dam = -1;
  bool is_member = false, is_ancestor = false;
};

/// Unknown parents first, then all animals.
std::vector<PlainEntry> plain_entries(const PopulationStore& store, const std::vector<std::int32_t>& positions) {
  std::vector<PlainEntry> entries;
  std::vector<int> place_of(store.size() + 1, -1), unknown_of(store.size() + 1, -1);
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if ((store.sire_no[i] == 0) == (store.dam_no[i] == 0)) continue;
    unknown_of[static_cast<std::size_t>(i)] = static_cast<int>(entries.size());
    entries.push_back({-i, -1, -1, false, false});
  }
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    PlainEntry entry;
    entry.position = i;
    const auto place = [&](std::int32_t parent) {
      return parent == 0 ? unknown_of[static_cast<std::size_t>(i)] : place_of[static_cast<std::size_t>(parent)];
    };
    entry.sire = place(store.sire_no[i]);
    entry.dam = place(store.dam_no[i]);
    entry.is_member = std::ranges::find(positions, i) != positions.end();
    place_of[static_cast<std::size_t>(i)] = static_cast<int>(entries.size());
    entries.push_back(entry);
  }
  for (std::size_t k = entries.size(); k-- > 0;) {
    if (!entries[k].is_member && !entries[k].is_ancestor) continue;
    for (const int parent : {entries[k].sire, entries[k].dam}) {
      if (parent >= 0) entries[static_cast<std::size_t>(parent)].is_ancestor = true;
    }
  }
  return entries;
}

/// What each entry explains when those chosen pass nothing on.
std::vector<double> plain_contributions(const std::vector<PlainEntry>& entries, const std::vector<char>& is_chosen,
                                        double members) {
  std::vector<double> q(entries.size(), 0.0), a(entries.size(), 0.0), p(entries.size(), 0.0);
  for (std::size_t k = entries.size(); k-- > 0;) {
    if (entries[k].is_member) q[k] += 1.0;
    if (is_chosen[k] != 0) continue;
    for (const int parent : {entries[k].sire, entries[k].dam}) {
      if (parent >= 0) q[static_cast<std::size_t>(parent)] += q[k] / 2.0;
    }
  }
  for (std::size_t k = 0; k < entries.size(); ++k) {
    for (const int parent : {entries[k].sire, entries[k].dam}) {
      if (parent >= 0) a[k] += a[static_cast<std::size_t>(parent)] / 2.0;
    }
    if (is_chosen[k] != 0) a[k] = 1.0;
    const bool is_founder_inside = entries[k].is_member && entries[k].sire < 0;
    if (entries[k].is_ancestor || is_founder_inside) p[k] = q[k] * (1.0 - a[k]) / members;
  }
  return p;
}

}  // namespace

PopulationStore with_inbreeding(PopulationStore store) {
  TextOutput console = output_in(true);
  determine_completeness(store);
  compute_inbreeding(store, make_ancestor_pedigree(store), console);
  return store;
}

PopulationStore random_population(std::uint64_t seed, std::int32_t count) {
  return with_inbreeding(random_pedigree(seed, count, 10));
}

std::vector<std::int32_t> positions_of(const PopulationStore& store, std::initializer_list<std::string_view> ids) {
  std::vector<std::int32_t> positions;
  for (const std::string_view id : ids) positions.push_back(animal_named(store, id).number);
  std::ranges::sort(positions);
  return positions;
}

std::vector<std::int32_t> young_positions(const PopulationStore& store, std::int32_t count) {
  std::vector<std::int32_t> positions;
  for (std::int32_t i = store.animal_count - count + 1; i <= store.animal_count; ++i) {
    if (i % 3 != 0) positions.push_back(i);
  }
  return positions;
}

std::vector<std::vector<double>> plain_kinships(const PopulationStore& store,
                                                const std::vector<std::int32_t>& positions) {
  const std::vector<std::vector<double>> relationships = tabular_relationships(store);
  std::vector<std::vector<double>> kinships;
  for (const std::int32_t i : positions) {
    std::vector<double>& row = kinships.emplace_back();
    for (const std::int32_t j : positions) {
      row.push_back(relationships[static_cast<std::size_t>(i) - 1][static_cast<std::size_t>(j) - 1] / 2.0);
    }
  }
  return kinships;
}

std::vector<PlainAncestor> plain_ancestors(const PopulationStore& store, const std::vector<std::int32_t>& positions) {
  const std::vector<PlainEntry> entries = plain_entries(store, positions);
  std::vector<char> is_chosen(entries.size(), 0);
  std::vector<PlainAncestor> ancestors;
  for (;;) {
    std::vector<double> p = plain_contributions(entries, is_chosen, static_cast<double>(positions.size()));
    for (std::size_t k = 0; k < p.size(); ++k) p[k] = is_chosen[k] != 0 ? 0.0 : p[k];
    const double largest = *std::ranges::max_element(p);
    if (largest < 1e-12) return ancestors;
    for (std::size_t k = p.size(); k-- > 0;) {
      if (p[k] < largest * (1.0 - 1e-12)) continue;
      is_chosen[k] = 1;
      ancestors.push_back({entries[k].position, p[k]});
      break;
    }
  }
}

}  // namespace pedigreewatch::test
