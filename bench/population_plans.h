// The populations that benchmarks, measurements and examples are made of.
#pragma once

#include <cstdint>

#include "population_generator.h"

namespace pedigreewatch {

/// A herd of five subpopulations with litters, some imports, and sires of whom a few are popular.
PopulationPlan benchmark_plan(std::int32_t animal_count, std::int32_t birth_year_count, bool has_single_births);

/// The herd of the examples, in English or in Dutch: the same animals.
PopulationPlan example_plan(bool english);

}  // namespace pedigreewatch
