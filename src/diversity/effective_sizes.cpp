#include "diversity/effective_sizes.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "core/shares.h"

namespace pedigreewatch {
namespace {

double mean_of(std::span<const double> values) {
  return mean_over(std::accumulate(values.begin(), values.end(), 0.0), values.size());
}

}  // namespace

double increase_per_generation(double coefficient, double generations) {
  if (coefficient <= 0.0) return 0.0;
  return 1.0 - std::pow(1.0 - std::min(coefficient, 1.0), 1.0 / generations);
}

std::optional<double> standard_deviation(std::span<const double> values) {
  if (values.size() < 2) return std::nullopt;
  const double mean = mean_of(values);
  double squares = 0.0;
  for (const double value : values) squares += (value - mean) * (value - mean);
  return std::sqrt(squares / static_cast<double>(values.size() - 1));
}

void complete_estimate(EffectiveSizeEstimate& estimate, std::optional<double> error_of_mean) {
  constexpr double rounding_of_inbreeding = 1e-7;
  if (!estimate.mean_increase || *estimate.mean_increase <= rounding_of_inbreeding) return;
  const double size = 1.0 / (2.0 * *estimate.mean_increase);
  estimate.effective_size = size;
  if (error_of_mean) estimate.standard_error = 2.0 * size * size * *error_of_mean;
}

EffectiveSizeEstimate estimate_by_inbreeding(const PopulationStore& store, const ReferencePedigree& pedigree,
                                             std::span<const double> equivalents) {
  std::vector<double> increases;
  std::size_t place = 0;
  for (const std::int32_t member : pedigree.members) {
    const double generations = equivalents[place++] - 1.0;
    if (generations <= 0.0) continue;
    increases.push_back(increase_per_generation(double{store.inbreeding[pedigree.position[member]]}, generations));
  }
  EffectiveSizeEstimate estimate;
  estimate.count = std::ssize(increases);
  if (increases.empty()) return estimate;
  estimate.mean_increase = mean_of(increases);
  std::optional<double> error = standard_deviation(increases);
  if (error) *error /= std::sqrt(static_cast<double>(increases.size()));
  complete_estimate(estimate, error);
  return estimate;
}

}  // namespace pedigreewatch
