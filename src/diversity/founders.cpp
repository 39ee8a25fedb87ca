#include "diversity/founders.h"

#include <utility>

#include "genetics/mean_kinship.h"

namespace pedigreewatch {

ByNumber<double> gene_contributions(const ReferencePedigree& pedigree) {
  ByNumber<double> genes(pedigree.count());
  for (const std::int32_t member : pedigree.members) genes[member] = 1.0;
  return gene_contributions(pedigree.sire, pedigree.dam, std::move(genes));
}

FounderFigures describe_founders(const ReferencePedigree& pedigree, const ByNumber<double>& genes) {
  FounderFigures figures;
  figures.half_founders = pedigree.unknown_parents;
  double squares = 0.0;
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    if (!pedigree.is_founder(j)) continue;
    if (!pedigree.is_unknown_parent(j)) ++figures.founders;
    squares += genes[j] * genes[j];
  }
  const double animals = static_cast<double>(pedigree.members.size());
  if (squares > 0.0) figures.effective_founders = animals * animals / squares;
  return figures;
}

}  // namespace pedigreewatch
