// A line is named after the founder, or the animal without known parents, from which an animal of low mean kinship has
// most of what is rare in it.

#include "standing/rare_lines.h"

#include <algorithm>
#include <utility>

#include "core/shares.h"
#include "diversity/founders.h"
#include "diversity/mean_kinship.h"
#include "diversity/reference_pedigree.h"

namespace pedigreewatch {
namespace {

/// Animals looked at before the search for lines ends.
constexpr std::size_t most_animals = 48;

struct Candidate {
  std::size_t place = 0;  ///< among the members
  double mean_kinship = 0.0;
};

std::vector<Candidate> lowest_kinships(const PopulationStore& store, const ReferencePedigree& pedigree,
                                       std::span<const double> kinships, const AvailableAnimals& available) {
  std::vector<Candidate> candidates;
  for (std::size_t place = 0; place < kinships.size(); ++place) {
    const std::int32_t position = pedigree.position[pedigree.members[place]];
    if (store.generation_equivalents[position] < least_equivalents_of_rare || !available.has(position)) continue;
    candidates.push_back({place, kinships[place]});
  }
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const Candidate& a, const Candidate& b) { return a.mean_kinship < b.mean_kinship; });
  candidates.resize(std::min(candidates.size(), most_animals));
  return candidates;
}

/// The rare founder from which an animal has most of its genes; 0 when there is none.
std::int32_t rare_founder_of(const ReferencePedigree& pedigree, std::int32_t animal, const ByNumber<double>& genes) {
  const double all = static_cast<double>(pedigree.members.size());
  ByNumber<double> own(animal);
  own[animal] = 1.0;
  std::int32_t founder = 0;
  for (std::int32_t j = animal; j > 0; --j) {
    if (own[j] == 0.0) continue;
    if (!pedigree.is_founder(j)) {
      own[pedigree.sire[j]] += 0.5 * own[j];
      own[pedigree.dam[j]] += 0.5 * own[j];
      continue;
    }
    const bool is_rare = !pedigree.is_unknown_parent(j) && genes[j] / all < rare_founder && own[j] >= least_carried;
    if (is_rare && (founder == 0 || own[j] > own[founder])) founder = j;
  }
  return founder;
}

void count_founders(const ReferencePedigree& pedigree, const ByNumber<double>& genes, RareLines& found) {
  const double all = static_cast<double>(pedigree.members.size());
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    if (!pedigree.is_founder(j) || pedigree.is_unknown_parent(j)) continue;
    ++found.founders;
    if (genes[j] / all < rare_founder) ++found.rare_founders;
  }
}

RareLine make_line(const ReferencePedigree& pedigree, std::int32_t founder, std::span<const double> kinships,
                   const AvailableAnimals& available) {
  ByNumber<double> share(pedigree.count());
  share[founder] = 1.0;
  for (std::int32_t j = founder + 1; j <= pedigree.count(); ++j) {
    share[j] = 0.5 * (share[pedigree.sire[j]] + share[pedigree.dam[j]]);
  }
  RareLine line;
  line.founder = pedigree.position[founder];
  double sum = 0.0;
  for (std::size_t place = 0; place < pedigree.members.size(); ++place) {
    const std::int32_t member = pedigree.members[place];
    sum += share[member];
    const std::int32_t position = pedigree.position[member];
    if (share[member] >= least_carried && available.has(position)) line.carriers.push_back({position, kinships[place]});
  }
  line.share_of_young = mean_over(sum, pedigree.members.size());
  std::stable_sort(line.carriers.begin(), line.carriers.end(),
                   [](const LineCarrier& a, const LineCarrier& b) { return a.mean_kinship < b.mean_kinship; });
  return line;
}

}  // namespace

RareLines find_rare_lines(const PopulationStore& store, std::span<const std::int32_t> positions, std::size_t most_lines,
                          const AvailableAnimals& available) {
  RareLines found;
  std::vector<RareLine>& lines = found.lines;
  if (positions.empty()) return found;
  std::vector<std::int32_t> seen;  // founders
  const ReferencePedigree pedigree = make_reference_pedigree(store, positions);
  const ByNumber<double> genes = gene_contributions(pedigree);
  count_founders(pedigree, genes, found);
  const MeanKinship kinship = compute_mean_kinship(store, pedigree, genes);
  for (const Candidate& candidate : lowest_kinships(store, pedigree, kinship.of_members, available)) {
    if (lines.size() == most_lines) break;
    const std::int32_t founder = rare_founder_of(pedigree, pedigree.members[candidate.place], genes);
    if (founder == 0) continue;
    const std::int32_t position = pedigree.position[founder];
    if (std::find(seen.begin(), seen.end(), position) != seen.end()) continue;
    seen.push_back(position);
    RareLine line = make_line(pedigree, founder, kinship.of_members, available);
    if (line.carriers.size() <= most_carriers) lines.push_back(std::move(line));
  }
  return found;
}

}  // namespace pedigreewatch
