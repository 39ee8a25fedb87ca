// What geneticists ask of every animal beside F and its generations: completeness, old and recent inbreeding, offspring
// that bred. Each is one pass over the whole population.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "core/by_number.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Generations of a parent's line in which ancestors are counted, the parent's own included.
inline constexpr std::size_t line_generations = 6;

/// Known animals in each generation of the line that begins with an animal: 1 for itself, then at most 2, 4, 8, 16, 32.
/// All 0 for the unknown animal.
struct KnownLine {
  std::array<std::uint8_t, line_generations> known = {};
};

/// By position. Parents that do not stand before their offspring count as unknown.
ByNumber<KnownLine> count_known_lines(const PopulationStore& store);

/// PCI over five generations from the lines of both parents, 0 to 1 (MacCluer and others, 1983).
double completeness_index(const KnownLine& sire, const KnownLine& dam);

/// The increase of inbreeding 1 - (1 - F) ^ (1 / (EqG - 1)) of an animal; none up to one equivalent generation
/// (Gutierrez and others, 2009).
std::optional<double> individual_increase(float inbreeding, double equivalent_generations);

/// Ancestral inbreeding fa of every animal, by position: the part of its genes that have been in an inbred ancestor
/// before, fa = 1/2 [fa_s + (1 - fa_s) F_s + fa_d + (1 - fa_d) F_d], 0 for founders and of an unknown parent (Ballou,
/// 1997, J. Hered. 88: 169-178). F of all animals must be final.
ByNumber<float> ancestral_inbreeding(const PopulationStore& store);

/// The share of the genes of every animal that come from imports, by position: 1 for an import, else the mean of its
/// parents', 0 of an unknown one.
ByNumber<float> import_shares(const PopulationStore& store);

/// Offspring of every animal that have offspring themselves, by position.
ByNumber<std::int32_t> count_breeding_offspring(const PopulationStore& store);

/// The mean kinship of every animal, by position, with the animals at `group` (ascending, each once), itself included
/// where it is one of them. F of all animals must be final. Empty for an empty group.
ByNumber<float> mean_kinship_of_all(const PopulationStore& store, std::span<const std::int32_t> group);

}  // namespace pedigreewatch
