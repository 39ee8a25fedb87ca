#include "standing/verdict.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace pedigreewatch {

Pace pace_of_size(double effective_size) {
  if (effective_size < least_size) return Pace::too_fast;
  return effective_size <= safe_size ? Pace::on_the_edge : Pace::within_limit;
}

Margin margin_of(const RateEstimate& estimate) {
  const double rate = estimate.rate.value_or(0.0);
  const double factor = std::exp(margin_errors * estimate.relative_error);
  return {rate / factor, rate * factor};
}

bool are_too_many(const VerdictFaults& faults, std::int64_t animals) {
  return faults.of_file > 0 || faults.late_births.count > 0 ||
         static_cast<double>(faults.of_animals) > most_faulty_share * static_cast<double>(animals);
}

std::uint32_t obstacles_of(const RateEstimate& estimate, const Evidence& evidence) {
  std::uint32_t obstacles = no_obstacle;
  if (evidence.has_interval && evidence.cohort < least_cohort) obstacles |= obstacle_few_animals;
  if (evidence.equivalents < least_equivalents) obstacles |= obstacle_shallow;
  if (evidence.both_known < least_both_known) obstacles |= obstacle_unknown_parents;
  if (evidence.is_faulty) obstacles |= obstacle_faults;
  if (!evidence.has_interval) return obstacles | obstacle_no_interval;
  if (!estimate.rate || estimate.generations < least_generations) return obstacles | obstacle_shallow;
  const Margin margin = margin_of(estimate);
  const bool may_be_too_fast = pace_of_size(effective_size_of(margin.high)) == Pace::too_fast;
  const bool may_be_within = pace_of_size(effective_size_of(margin.low)) == Pace::within_limit;
  return may_be_too_fast && may_be_within ? obstacles | obstacle_wide_margin : obstacles;
}

int sureness_of(std::span<const RateEstimate> estimates, double equivalents) {
  std::set<Pace> paces;
  for (const RateEstimate& estimate : estimates) {
    if (estimate.rate) paces.insert(pace_of_size(effective_size_of(*estimate.rate)));
  }
  constexpr int surest = 3;
  int sureness = surest + 1 - static_cast<int>(paces.size());
  if (equivalents < good_equivalents) --sureness;
  const Margin margin = margin_of(estimates.front());
  if (pace_of_size(effective_size_of(margin.low)) != pace_of_size(effective_size_of(margin.high))) --sureness;
  return std::clamp(sureness, 1, surest);
}

bool is_real_change(const RateEstimate& before, const RateEstimate& since) {
  if (!before.rate || !since.rate) return false;
  const Margin first = margin_of(before), second = margin_of(since);
  return first.high < second.low || second.high < first.low;
}

}  // namespace pedigreewatch
