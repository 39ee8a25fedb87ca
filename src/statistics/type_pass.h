// The shorter analysis that is repeated for each subpopulation.
#pragma once

#include <cstdint>
#include <span>

#include "control/steer_settings.h"
#include "core/run_streams.h"
#include "pedigree/population_store.h"
#include "statistics/breeder_list.h"

namespace pedigreewatch {

/// Counts the animals of subpopulation s (from 1) per year and writes its block of the report. `members` are the
/// positions of its animals, ascending; with none only a console line is printed. Parents outside the subpopulation
/// count all the same: generations, ages and offspring are those of the whole population.
void run_type_pass(const PopulationStore& store, const SteerSettings& settings, const BreederList& breeders,
                   std::int32_t s, std::span<const std::int32_t> members, const YearTable<float>& kinship_table,
                   RunStreams& streams);

}  // namespace pedigreewatch
