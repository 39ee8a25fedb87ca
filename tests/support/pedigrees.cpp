#include "support/pedigrees.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

#include "support/lines.h"
#include "support/pedigree_runs.h"

namespace pedigreewatch::test {

std::vector<AnimalRecord> records_from_text(std::string_view text) {
  std::vector<AnimalRecord> animals;
  for (const std::string& line : lines_of(text)) {
    std::istringstream words(line);
    AnimalRecord animal;
    std::string id, sire, dam, sex, year, subpopulation, import;
    words >> id >> sire >> dam >> sex >> year >> subpopulation >> import;
    animal.id.assign(id);
    animal.name.assign(id);
    animal.sire_id.assign(sire);
    animal.dam_id.assign(dam);
    animal.sex = sex == "m" ? male : female;
    animal.birth_year = std::stoi(year);
    if (subpopulation != "-") animal.subpopulation.assign(subpopulation);
    animal.is_import = import == "import";
    animals.push_back(animal);
  }
  return animals;
}

PopulationStore animals_from_text(std::string_view text, const LookedUpNames& names) {
  return store_of(records_from_text(text), names);
}

PopulationStore pedigree_from_text(std::string_view text, const LookedUpNames& names) {
  PopulationStore store = animals_from_text(text, names);
  RunStreams streams;
  link_and_sort(store, streams);
  return store;
}

PopulationStore random_pedigree(std::uint64_t seed, std::int32_t count, std::int32_t years,
                                const LookedUpNames& names) {
  RandomNumbers random{seed};
  std::string text;
  std::string sire = "0", dam = "0";
  for (std::int32_t i = 1; i <= count; ++i) {
    const bool keeps_parents = i > 2 && random.below(3) == 0;  // a litter mate of the animal before
    if (!keeps_parents) {
      const auto draw = [&]() -> std::string {
        if (i < 6 || random.below(10) == 0) return "0";
        // Mostly recent animals, so that inbreeding builds up.
        const std::int32_t oldest = random.below(4) == 0 ? 1 : std::max(1, i - 40);
        return "a" + std::to_string(oldest + random.below(i - oldest));
      };
      sire = draw();
      dam = random.below(25) == 0 ? sire : draw();
    }
    const std::int32_t year = 2000 + static_cast<std::int32_t>((std::int64_t{i} - 1) * years / count);
    text += "a" + std::to_string(i) + " " + sire + " " + dam + (random.below(2) == 0 ? " m " : " f ") +
            std::to_string(year) + " " + (random.below(8) == 0 ? "-" : "type" + std::to_string(random.below(3))) +
            (random.below(12) == 0 ? " import\n" : "\n");
  }
  return pedigree_from_text(text, names);
}

AnimalRecord animal_named(const PopulationStore& store, std::string_view id) {
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (store.id(position) == id) return store.at(position);
  }
  ADD_FAILURE() << "no animal " << id;
  return {};
}

std::vector<std::vector<double>> tabular_relationships(const PopulationStore& store) {
  const std::vector<AnimalRecord> animals = records_of(store);
  const std::size_t size = animals.size();
  std::vector<std::vector<double>> a(size, std::vector<double>(size, 0.0));
  const auto entry = [&](std::int32_t parent, std::size_t other) {
    return parent == 0 ? 0.0 : a[static_cast<std::size_t>(parent) - 1][other];
  };
  for (std::size_t i = 0; i < size; ++i) {
    const AnimalRecord& animal = animals[i];
    for (std::size_t j = 0; j < i; ++j) {
      a[i][j] = a[j][i] = 0.5 * (entry(animal.sire_no, j) + entry(animal.dam_no, j));
    }
    const bool has_both = animal.sire_no != 0 && animal.dam_no != 0;
    a[i][i] = 1.0 + (has_both ? 0.5 * entry(animal.sire_no, static_cast<std::size_t>(animal.dam_no) - 1) : 0.0);
  }
  return a;
}

std::uint64_t RandomNumbers::next() {
  state += 0x9E3779B97F4A7C15ULL;
  std::uint64_t value = state;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9ULL;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBULL;
  return value ^ (value >> 31);
}

std::int32_t RandomNumbers::below(std::int32_t limit) {
  return static_cast<std::int32_t>(next() % static_cast<std::uint64_t>(limit));
}

}  // namespace pedigreewatch::test
