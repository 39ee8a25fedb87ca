// The table of contents: the pedigree of the reference population is made once, and each group of figures has a file of
// its own.

#include "diversity/diversity.h"

#include <array>
#include <utility>

#include "core/shares.h"
#include "core/side_by_side.h"
#include "diversity/coancestry_pairs.h"
#include "diversity/completeness.h"
#include "diversity/founders.h"
#include "diversity/mean_kinship.h"
#include "diversity/reference_pedigree.h"

namespace pedigreewatch {
namespace {

void put_founders(FounderFigures figures, Diversity& diversity) {
  diversity.founders = figures.founders;
  diversity.half_founders = figures.half_founders;
  diversity.effective_founders = figures.effective_founders;
}

void put_ancestors(AncestorFigures figures, Diversity& diversity) {
  diversity.effective_ancestors = figures.effective_ancestors;
  diversity.chosen_ancestors = figures.chosen_ancestors;
  diversity.is_every_ancestor_chosen = figures.is_every_ancestor_chosen;
  diversity.main_ancestors = std::move(figures.main_ancestors);
  diversity.ancestors_for_half = figures.ancestors_for_half;
}

void put_kinship(MeanKinship kinship, const ReferencePopulation& reference, Diversity& diversity) {
  diversity.mean_kinship = kinship.mean;
  diversity.founder_genomes = kinship.founder_genomes;
  diversity.lowest_mean_kinship = kinship.lowest;
  diversity.highest_mean_kinship = kinship.highest;
  diversity.mean_kinship_without_self = kinship.without_self;
  if (kinship.mean) {
    diversity.lowest_animal = reference.positions[kinship.lowest_place];
    diversity.highest_animal = reference.positions[kinship.highest_place];
  }
  diversity.mean_kinship_of = std::move(kinship.of_members);
}

void put_depth(const PedigreeDepth& depth, Diversity& diversity) {
  diversity.maximum_generations = depth.maximum_generations;
  diversity.complete_generations = depth.complete_generations;
  diversity.equivalent_generations = depth.equivalent_generations;
  diversity.completeness_index = depth.completeness_index;
}

/// The share of the genes of the reference population that come from imports; what those come from does not matter.
std::optional<double> import_contribution(const ReferencePedigree& pedigree, const PopulationStore& store) {
  if (pedigree.members.empty()) return std::nullopt;
  ByNumber<double> shares(pedigree.count());
  for (std::int32_t j = pedigree.unknown_parents + 1; j <= pedigree.count(); ++j) {
    const bool is_import = store.is_import[pedigree.position[j]] != 0;
    shares[j] = is_import ? 1.0 : 0.5 * (shares[pedigree.sire[j]] + shares[pedigree.dam[j]]);
  }
  double sum = 0.0;
  for (const std::int32_t member : pedigree.members) sum += shares[member];
  return mean_over(sum, pedigree.members.size());
}

}  // namespace

Diversity compute_diversity(const PopulationStore& store, ReferencePopulation reference, std::int32_t threads) {
  Diversity diversity;  // of which each step fills fields of its own
  const ReferencePedigree pedigree = make_reference_pedigree(store, reference.positions);
  const PedigreeDepth depth = describe_depth(pedigree);
  put_depth(depth, diversity);
  const auto choose = [&] { put_ancestors(choose_ancestors(pedigree), diversity); };
  const auto relate_pairs = [&] {
    diversity.by_coancestry = estimate_by_coancestry(store, pedigree, depth.equivalents_of);
  };
  const auto follow_genes = [&] {
    const ByNumber<double> genes = gene_contributions(pedigree);
    put_founders(describe_founders(pedigree, genes), diversity);
    put_kinship(compute_mean_kinship(store, pedigree, genes), reference, diversity);
    diversity.by_inbreeding = estimate_by_inbreeding(store, pedigree, depth.equivalents_of);
    if (store.has_import) diversity.import_contribution = import_contribution(pedigree, store);
  };
  const auto describe_families = [&] {
    const GenerationPaths paths = compute_generation_paths(store);
    diversity.paths = paths.paths;
    diversity.all_paths = paths.all;
    diversity.families = estimate_by_family_sizes(store, paths);
    diversity.division = describe_division(store, reference.positions);
  };
  const std::array<Task, 4> steps = {relate_pairs, choose, follow_genes, describe_families};
  do_side_by_side(steps, threads);
  diversity.reference = std::move(reference);
  return diversity;
}

}  // namespace pedigreewatch
