// The shorter analysis that is repeated for each subpopulation.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "core/text_output.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"
#include "statistics/block.h"
#include "statistics/breeder_list.h"

namespace pedigreewatch {

/// A subpopulation: its number among the names of the steer file, and the positions of its animals, ascending.
struct BreedType {
  std::int32_t number = 0;
  const SubpopulationName& name;
  std::span<const std::int32_t> members;
};

/// Yields the block of a subpopulation, without which there is none: then only a console line is printed. Parents
/// outside the subpopulation count all the same: generations, ages and offspring are those of the whole population.
std::optional<Block> run_type_pass(const PopulationStore& store, const BreedType& type, const Colours& colours,
                                   const BreederList& breeders, const YearTable<float>& kinship_table,
                                   TextOutput& console);

}  // namespace pedigreewatch
