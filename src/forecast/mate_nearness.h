// How near mates were, year by year: what may come of it again. Breeders avoid relatives more in some years than in
// others, and a herdbook whose numbers go on as they were may see F rise or fall by that alone.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "forecast/families.h"
#include "forecast/model_pedigree.h"
#include "forecast/random_stream.h"

namespace pedigreewatch {

/// (F - f) / (1 - f) of the young of a year with two known parents, f being the mean kinship of the year's sires and
/// dams as they were used, whoever went with whom. None of a year with fewer than two families of known parents. F of
/// all animals must be final.
std::optional<double> measure_nearness(const FamilyRecords& records, std::int32_t year);

/// The same of the families of a model herd.
struct ModelPair {
  std::int32_t sire = 0, dam = 0;
  double f = 0.0;
};
std::optional<double> measure_nearness(const ModelPedigree& pedigree, std::span<const ModelPair> pairs);

/// By year ahead: by how much it differed from the mean of a base period before.
using NearnessPath = std::vector<double>;

struct SeenNearness {
  std::vector<NearnessPath> paths;  ///< one for each that the numbers have (`list_number_paths`), or none
  double mean_square = 0.0;         ///< of the differences
  double periods = 0.0;             ///< base periods that the years come to; paths overlap
};
/// Of the last `years_of_paths` years but for the first two generations of the herdbook, in which relationships have
/// only begun to show, and but for the straight line through them.
SeenNearness list_nearness_paths(const FamilyRecords& records, std::int32_t base_years);

/// The differences of one herd: of the years behind the first ones, which are its base period.
NearnessPath nearness_behind(std::span<const std::optional<double>> base, std::span<const std::optional<double>> years);

/// Years differ by so many standard errors more than by chance before anything is made of it.
inline constexpr double errors_of_nearness = 2.0;

/// The paths drawn together as far as years differ in herds whose practice does not change, in the mean square by so
/// much. None where they differ no more than that.
std::vector<NearnessPath> beyond_chance(const SeenNearness& seen, double by_chance);

/// By how much the excess of a year ahead, from 1, differs from the present: along one path after another, each as
/// likely turned round. 0 without paths. `random` begins a replicate.
double follow_nearness(const std::vector<NearnessPath>& paths, std::int32_t year_ahead, RandomStream random);

}  // namespace pedigreewatch
