#include "support/simulated_breed.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "core/text_output.h"
#include "genetics/ancestor_pedigree.h"
#include "genetics/inbreeding.h"
#include "statistics/completeness.h"

namespace pedigreewatch::test {
namespace {

/// Random numbers that are the same on every machine (splitmix64).
struct BreedNumbers {
  std::uint64_t state;

  std::uint64_t next() {
    state += 0x9E3779B97F4A7C15ULL;
    std::uint64_t value = state;
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9ULL;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBULL;
    return value ^ (value >> 31);
  }
  std::int32_t below(std::int32_t limit) {
    return static_cast<std::int32_t>(next() % static_cast<std::uint64_t>(limit));
  }
};

struct Entrants {
  std::vector<std::int32_t> animals;
  std::vector<std::int32_t> weights;
};

struct BreedMaking {
  const BreedScheme& scheme;
  BreedNumbers random;
  PopulationStore store;
  std::vector<Entrants> sires, dams;  ///< by year of birth

  double chance() { return static_cast<double>(random.next() >> 11) * 0x1.0p-53; }
};

std::int32_t add_animal(BreedMaking& making, std::int32_t year, std::int32_t sire, std::int32_t dam) {
  PopulationStore& store = making.store;
  ++store.animal_count;
  store.birth_year.values.push_back(year);
  store.birth_month.values.push_back(1);
  store.kept.day_of_month.values.push_back(1);
  store.sex.values.push_back(making.random.below(2) == 0 ? male : female);
  store.is_import.values.push_back(0);
  store.is_parent.values.push_back(0);
  store.sire_no.values.push_back(making.chance() < making.scheme.unknown_parents ? 0 : sire);
  store.dam_no.values.push_back(making.chance() < making.scheme.unknown_parents ? 0 : dam);
  store.native_offspring_count.values.push_back(0);
  return store.animal_count;
}

Entrants choose_entrants(BreedMaking& making, std::vector<std::int32_t> young, Sex sex, std::int32_t count) {
  Entrants entrants;
  std::erase_if(young, [&](std::int32_t i) { return making.store.sex[i] != sex; });
  while (count-- > 0) {
    std::int32_t chosen = 0;
    if (young.empty() || making.chance() < making.scheme.imported) {
      chosen = add_animal(making, making.store.birth_year.values.back(), 0, 0);
      making.store.sex[chosen] = sex;
      making.store.is_import[chosen] = 1;
    } else {
      const std::size_t place = static_cast<std::size_t>(making.random.below(static_cast<std::int32_t>(young.size())));
      chosen = young[place];
      young.erase(young.begin() + static_cast<std::ptrdiff_t>(place));
    }
    entrants.animals.push_back(chosen);
    const bool is_popular = sex == male && making.scheme.has_popular_sires && making.random.below(5) == 0;
    entrants.weights.push_back(is_popular ? 4 : 1);
  }
  return entrants;
}

std::int32_t draw_parent(BreedMaking& making, const std::vector<Entrants>& entrants, std::int32_t oldest) {
  constexpr std::int32_t youngest = 2;
  std::int32_t total = 0;
  const std::int32_t year = static_cast<std::int32_t>(entrants.size());
  for (std::int32_t age = youngest; age <= oldest; ++age) {
    if (age > year) break;
    for (const std::int32_t weight : entrants[static_cast<std::size_t>(year - age)].weights) total += weight;
  }
  if (total == 0) return 0;
  std::int32_t place = making.random.below(total);
  for (std::int32_t age = youngest; age <= oldest; ++age) {
    const Entrants& group = entrants[static_cast<std::size_t>(year - age)];
    for (std::size_t i = 0; i < group.animals.size(); ++i) {
      place -= group.weights[i];
      if (place < 0) return group.animals[i];
    }
  }
  return 0;
}

void breed_year(BreedMaking& making, std::int32_t year) {
  const BreedScheme& scheme = making.scheme;
  const bool is_ruled = scheme.has_rule && year >= scheme.rule_year - 2;
  const std::int32_t more = is_ruled ? 2 : 1;
  const std::int32_t most = scheme.has_rule ? 2 : 1;
  const std::int32_t births = std::max(most * (5 * scheme.dams_a_year / 2 + 4), scheme.litter);
  std::vector<std::int32_t> young;
  for (std::int32_t born = 0; born < births; born += scheme.litter) {
    const std::int32_t sire = draw_parent(making, making.sires, 3), dam = draw_parent(making, making.dams, 5);
    for (std::int32_t n = 0; n < scheme.litter; ++n)
      young.push_back(add_animal(making, first_year_of_breeds + year, sire, dam));
  }
  Entrants sires = choose_entrants(making, young, male, more * scheme.sires_a_year);
  making.sires.push_back(std::move(sires));
  making.dams.push_back(choose_entrants(making, std::move(young), female, more * scheme.dams_a_year));
}

void plant_faults(BreedMaking& making) {
  PopulationStore& store = making.store;
  const auto happens = [&](double share) { return share > 0.0 && making.chance() < share; };
  for (std::int32_t i = 2; i <= store.animal_count; ++i) {
    if (store.sire_no[i] != 0 && happens(making.scheme.wrong_parents)) {
      std::int32_t other = 0;
      do other = 1 + making.random.below(i - 1);
      while (store.sex[other] != male && other != 1);
      store.sire_no[i] = other;
    }
    if (!happens(making.scheme.wrong_years)) continue;
    const std::int32_t last = first_year_of_breeds + making.scheme.years - 1;
    store.birth_year[i] = std::clamp(store.birth_year[i] - 10 + making.random.below(21), first_year_of_breeds, last);
  }
}

/// Animals of the years before are as if they had never been: without a year, without parents and young.
void begin_book(BreedMaking& making) {
  PopulationStore& store = making.store;
  const std::int32_t first = first_year_of_breeds + making.scheme.book_begins;
  for (std::int32_t i = store.animal_count; i > 0; --i) {
    for (ByNumber<std::int32_t>* const parents : {&store.sire_no, &store.dam_no}) {
      std::int32_t& parent = (*parents)[i];
      if (store.birth_year[i] < first || store.birth_year[parent] < first) parent = 0;
    }
  }
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (store.birth_year[i] < first) store.birth_year[i] = 0;
  }
}

/// Sires and dams that enter in a year of breeds in which all are used alike.
struct YearlyParents {
  std::int32_t sires = 0, dams = 0;
};
constexpr YearlyParents parents_of_breeds[] = {{2, 3}, {3, 15}, {6, 30}, {12, 60}, {30, 150}};
constexpr double more_if_popular = 25.0 / 16.0;

}  // namespace

std::vector<BreedScheme> breeds_of_known_size(const BreedScheme& kind) {
  std::vector<BreedScheme> breeds;
  for (const YearlyParents& parents : parents_of_breeds) {
    BreedScheme& breed = breeds.emplace_back(kind);
    const double sires = parents.sires * (kind.has_popular_sires ? more_if_popular : 1.0);
    breed.sires_a_year = static_cast<std::int32_t>(std::lround(sires));
    breed.dams_a_year = parents.dams;
  }
  return breeds;
}

double effective_size_of(const BreedScheme& scheme) {
  const double sires = scheme.sires_a_year / (scheme.has_popular_sires ? more_if_popular : 1.0);
  const double size = 12.0 * sires * scheme.dams_a_year / (sires + scheme.dams_a_year);
  return scheme.has_rule ? 2.0 * size : size;
}

PopulationStore simulate_breed(const BreedScheme& scheme, std::uint64_t seed) {
  BreedMaking making{scheme, {seed}, {}, {}, {}};
  PopulationStore& store = making.store;
  store.birth_year.values.push_back(0);
  store.birth_month.values.push_back(1);
  store.kept.day_of_month.values.push_back(1);
  store.sex.values.push_back(female);
  for (auto* const flags : {&store.is_import, &store.is_parent}) flags->values.push_back(0);
  for (auto* const numbers : {&store.sire_no, &store.dam_no, &store.native_offspring_count})
    numbers->values.push_back(0);
  for (std::int32_t year = 0; year < scheme.years; ++year) breed_year(making, year);
  plant_faults(making);
  if (scheme.book_begins > 0) begin_book(making);
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    for (const std::int32_t parent : {store.sire_no[i], store.dam_no[i]}) {
      if (parent == 0) continue;
      store.is_parent[parent] = 1;
      ++store.native_offspring_count[parent];
    }
  }
  store.birth_years = birth_years_of(store);
  store.has_import = true;
  determine_completeness(store);
  TextOutput silent;
  compute_inbreeding(store, make_ancestor_pedigree(store), silent);
  return store;
}

}  // namespace pedigreewatch::test
