// Founders and what they have contributed to the reference population.
#pragma once

#include <cstdint>
#include <optional>

#include "diversity/reference_pedigree.h"

namespace pedigreewatch {

/// By number: how many animals of the reference population the genes of this one amount to; its contribution is that
/// divided by their number. Those of all founders sum to the number of animals.
ByNumber<double> gene_contributions(const ReferencePedigree& pedigree);

struct FounderFigures {
  std::int32_t founders = 0;       ///< animals without known parents
  std::int32_t half_founders = 0;  ///< animals with exactly one
  std::optional<double> effective_founders;
};

/// fe = 1 / sum of the squared contributions of all founders, the unknown parents of half-founders among them (Lacy,
/// 1989, Zoo Biology 8: 111-123); no value without a reference population.
FounderFigures describe_founders(const ReferencePedigree& pedigree, const ByNumber<double>& genes);

}  // namespace pedigreewatch
