// The pedigree of an animal as inline pictures (SVG): beside each other for screens and paper, below each other for
// narrow screens. Styles: page/animal_style.h.
#pragma once

#include <string>

#include "animals/family_tree.h"
#include "pedigree/population_store.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// How animals are shown.
struct AnimalTelling {
  const PopulationStore& store;
  ToolLanguage language = ToolLanguage::english;
  bool is_pressable = false;  ///< identifications are buttons that bear the animal's position as `data-animal`
};

/// Adds both pictures: sires above dams, identifications and names as text, F of each animal with two known parents,
/// the same colour for ancestors that stand there more than once, letters for those in which lines meet.
void draw_pedigree(std::string& page, const AnimalTelling& telling, const FamilyTree& tree);

/// The name of an animal, in UTF-8; empty where it has none.
std::string name_of_animal(const PopulationStore& store, std::int32_t position);

/// F in per cent with its sign, or a dash where a parent is unknown.
std::string shown_inbreeding(const AnimalTelling& telling, std::int32_t position);

}  // namespace pedigreewatch
