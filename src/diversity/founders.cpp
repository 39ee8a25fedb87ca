#include "diversity/founders.h"

#include "core/memory_hints.h"

namespace pedigreewatch {

ByNumber<double> gene_contributions(const ReferencePedigree& pedigree) {
  ByNumber<double> genes(static_cast<std::size_t>(pedigree.count()));
  for (const std::int32_t member : pedigree.members) genes[member] = 1.0;
  constexpr std::int32_t ahead = static_cast<std::int32_t>(look_ahead);
  for (std::int32_t j = pedigree.count(); j > 0; --j) {
    if (j > ahead) {
      fetch_early(&genes[pedigree.sire[j - ahead]]);
      fetch_early(&genes[pedigree.dam[j - ahead]]);
    }
    const double half = 0.5 * genes[j];
    genes[pedigree.sire[j]] += half;
    genes[pedigree.dam[j]] += half;
  }
  genes[0] = 0.0;  // nobody's: what the founders handed on
  return genes;
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
