// Generation intervals on the four paths of selection (Rendel and Robertson, 1950, J. Genet. 50: 1-8).
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "core/by_number.h"
#include "pedigree/population_store.h"
#include "pedigree/sex.h"

namespace pedigreewatch {

/// One of the four paths of selection, or all of them.
struct PathInterval {
  std::int64_t count = 0;            ///< parents of animals that are parents themselves, with both births known
  std::int64_t not_positive = 0;     ///< those of 0 and below, which count too
  std::optional<double> mean_years;  ///< none without any
};

enum class Path : std::uint8_t { sire_son, sire_daughter, dam_son, dam_daughter };

struct GenerationPaths {
  std::array<PathInterval, 4> paths;  ///< by `Path`
  PathInterval all;                   ///< all pairs of a parent and a young animal together
};

/// The mean of the paths that have pairs, each counting alike: the usual generation interval; none without any.
std::optional<double> mean_of_paths(const GenerationPaths& paths);

/// Ages of the parents at the births of those young that became parents, over the whole population. A young animal is
/// a son when it was used as sire and a daughter when it was used as dam; one that was used as both is what its sex
/// says. In days of 1 / 365.25 year where both dates are full, else in years between the birth years.
GenerationPaths compute_generation_paths(const PopulationStore& store);

/// By position: whether it is a sire, and whether it is a dam.
BySex<ByNumber<Flag>> mark_uses(const PopulationStore& store);

}  // namespace pedigreewatch
