#include "support/numbered_store.h"

#include <algorithm>
#include <numeric>
#include <sstream>
#include <stdexcept>
#include <string>

#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

std::string with_blanks(std::string text) {
  std::replace(text.begin(), text.end(), '_', ' ');
  return text;
}

void set_birth_date(AnimalRecord& animal, const std::string& date) {
  char dash = ' ';
  std::istringstream pieces(date);
  pieces >> animal.birth_year;
  if (pieces >> dash) pieces >> animal.birth_month >> dash >> animal.birth_day;
}

void apply_word(AnimalRecord& animal, const std::string& word) {
  const std::size_t equals = word.find('=');
  if (equals == std::string::npos) {
    if (word == ".") {
      return;
    }
    if (word == "m") {
      animal.sex = male;
    } else if (word == "import") {
      animal.is_import = true;
    } else {
      set_birth_date(animal, word);
    }
    return;
  }
  const std::string key = word.substr(0, equals), value = with_blanks(word.substr(equals + 1));
  if (key == "s") {
    animal.sire_no = std::stoi(value);
  } else if (key == "d") {
    animal.dam_no = std::stoi(value);
  } else if (key == "colour") {
    animal.colour.assign(value);
  } else if (key == "breeder") {
    animal.breeder.assign(value);
  } else if (key == "sub") {
    animal.subpopulation.assign(value);
  } else {
    throw std::invalid_argument("a word of a numbered store: " + word);
  }
}

void finish(std::vector<AnimalRecord>& animals) {
  std::int32_t number = 0;
  for (AnimalRecord& animal : animals) {
    ++number;
    animal.id.assign("a" + std::to_string(number));
    animal.name.assign("name " + std::to_string(number));
  }
  count_all_offspring(animals);
}

}  // namespace

std::vector<AnimalRecord> numbered_records(std::string_view text) {
  std::vector<AnimalRecord> animals;
  for (const std::string& line : lines_of(text)) {
    std::istringstream words(line);
    AnimalRecord& animal = animals.emplace_back();
    for (std::string word; words >> word;) apply_word(animal, word);
  }
  finish(animals);
  return animals;
}

PopulationStore numbered_store(std::string_view text, const LookedUpNames& names) {
  return finished_store_of(numbered_records(text), names);
}

PopulationStore store_of_parents(std::span<const ParentPair> parents) {
  std::vector<AnimalRecord> animals(parents.size());
  for (std::size_t i = 0; i < parents.size(); ++i) {
    animals[i].sire_no = parents[i].sire;
    animals[i].dam_no = parents[i].dam;
    animals[i].birth_year = 2000;
  }
  finish(animals);
  return finished_store_of(animals);
}

void count_all_offspring(std::span<AnimalRecord> animals) {
  for (AnimalRecord& animal : animals) {
    animal.native_offspring_count = 0;
    animal.is_parent = animal.is_native_parent = false;
  }
  for (const AnimalRecord& animal : animals) {
    for (const std::int32_t parent_no : {animal.sire_no, animal.dam_no}) {
      if (parent_no == 0) continue;
      AnimalRecord& parent = animals[static_cast<std::size_t>(parent_no) - 1];
      parent.is_parent = true;
      if (animal.is_import) continue;
      ++parent.native_offspring_count;
      parent.is_native_parent = true;
    }
  }
}

std::vector<std::int32_t> from_to(std::int32_t first, std::int32_t last) {
  std::vector<std::int32_t> positions(static_cast<std::size_t>(last - first + 1));
  std::iota(positions.begin(), positions.end(), first);
  return positions;
}

}  // namespace pedigreewatch::test
