// With a weight on the values the shares of least c'Kc - weight * value'c are those of highest value at the kinship
// that they have. The weight at which that kinship is the bound is found by halving an interval; what two weights
// around it yield is mixed so that the mixture lies on the bound. Every weight yields a value that cannot be exceeded.

#include "planning/breeding_values.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace pedigreewatch {
namespace {

double inner(std::span<const double> a, std::span<const double> b) {
  return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
}

/// Around a bound: shares within it, and beyond it.
struct Bracket {
  Contributions within, beyond;
  double weight_within = 0.0, weight_beyond = 0.0;
  double most_value = INFINITY;
};

struct ValueSearch {
  const CandidateKinship& kinship;
  const ShareLimits& limits;
  std::span<const double> values;
  double most_kinship = 0.0;
  const PlanWatch& watch;
};

/// The best shares at a weight; lowers the value that cannot be exceeded.
Contributions try_weight(const ValueSearch& search, double weight, const Contributions& start, Bracket& bracket) {
  Contributions found =
      best_contributions(search.kinship, search.limits, {search.values, weight}, start.shares, search.watch);
  const double goal = found.mean_kinship - weight * inner(search.values, found.shares) - found.certificate;
  bracket.most_value = std::min(bracket.most_value, (search.most_kinship - goal) / weight);
  return found;
}

/// A weight at which kinship and value have about the same say.
double first_weight(const ValueSearch& search, const Contributions& least) {
  const auto spread = [](std::span<const double> numbers) {
    const auto [low, high] = std::minmax_element(numbers.begin(), numbers.end());
    return *high - *low;
  };
  const double of_values = spread(search.values), of_kinships = spread(least.kinships);
  return 2.0 * std::max(of_kinships, 1e-6) / of_values;
}

/// Raises the weight until the shares pass the bound; false when they never do.
bool pass_bound(const ValueSearch& search, Bracket& bracket, double weight) {
  constexpr int most_steps = 40;
  for (int steps = 0; steps < most_steps && !search.watch.is_stopped(); ++steps) {
    Contributions found = try_weight(search, weight, bracket.within, bracket);
    const bool is_beyond = found.mean_kinship > search.most_kinship;
    (is_beyond ? bracket.beyond : bracket.within) = std::move(found);
    (is_beyond ? bracket.weight_beyond : bracket.weight_within) = weight;
    if (is_beyond) return true;
    // Where all that is permitted goes to the highest values, more weight changes nothing.
    const double highest = highest_product(search.limits, search.values);
    if (highest - inner(search.values, bracket.within.shares) <= 1e-9 * std::abs(highest)) return false;
    weight *= 4.0;
  }
  return false;
}

void narrow(const ValueSearch& search, Bracket& bracket) {
  constexpr int most_steps = 60;
  constexpr double close_enough = 1e-5;  // of the kinships on both sides; the mixture does the rest
  for (int steps = 0; steps < most_steps && !search.watch.is_stopped(); ++steps) {
    const double width = bracket.beyond.mean_kinship - bracket.within.mean_kinship;
    if (width <= close_enough * search.most_kinship) return;
    const double low = bracket.weight_within, high = bracket.weight_beyond;
    const double weight = low > 0.0 ? std::sqrt(low * high) : 0.25 * high;
    if (weight <= low || weight >= high || high - low <= 1e-9 * high) return;
    Contributions found = try_weight(search, weight, bracket.within, bracket);
    const bool is_beyond = found.mean_kinship > search.most_kinship;
    (is_beyond ? bracket.beyond : bracket.within) = std::move(found);
    (is_beyond ? bracket.weight_beyond : bracket.weight_within) = weight;
  }
}

/// How much of the shares beyond the bound can be mixed in: the kinship of a mixture is a parabola.
double part_beyond(const Bracket& bracket, double most_kinship) {
  const double a = bracket.within.mean_kinship, c = bracket.beyond.mean_kinship;
  const double b = inner(bracket.within.shares, bracket.beyond.kinships);
  // (1-t)^2 a + 2 t (1-t) b + t^2 c = most_kinship
  const double square = a - 2.0 * b + c, slope = b - a, rest = a - most_kinship;
  const double root = std::sqrt(std::max(0.0, slope * slope - square * rest));
  const double part = square > 0.0 ? (root - slope) / square : (slope > 0.0 ? -rest / (2.0 * slope) : 0.0);
  return std::clamp(part, 0.0, 1.0);
}

}  // namespace

double kinship_at_rate(double kinship, double rate) {
  return kinship + rate * (1.0 - kinship);
}

ValueChoice best_values(const CandidateKinship& kinship, const ShareLimits& limits, std::span<const double> values,
                        double most_kinship, const Contributions& least, const PlanWatch& watch) {
  ValueChoice choice;
  const ValueSearch search{kinship, limits, values, most_kinship, watch};
  constexpr double rounding = 1e-12;
  choice.is_possible = least.mean_kinship <= most_kinship + rounding;
  Bracket bracket;
  bracket.within = least;
  const auto [low, high] = std::minmax_element(values.begin(), values.end());
  const bool has_differences = *high > *low;
  bracket.most_value = highest_product(limits, values);
  if (choice.is_possible && has_differences && pass_bound(search, bracket, first_weight(search, least))) {
    narrow(search, bracket);
    const double part = part_beyond(bracket, most_kinship);
    std::vector<double> mixture = bracket.within.shares;
    for (std::size_t k = 0; k < mixture.size(); ++k) {
      mixture[k] = (1.0 - part) * mixture[k] + part * bracket.beyond.shares[k];
    }
    bracket.weight_within = bracket.weight_beyond;
    choice.contributions = examine_shares(kinship, limits, std::move(mixture), {values, bracket.weight_beyond});
  } else {
    choice.contributions = bracket.within;
  }
  choice.weight = bracket.weight_within;
  choice.value = inner(values, choice.contributions.shares);
  choice.most_value = std::max(choice.value, bracket.most_value);
  choice.contributions.is_stopped = watch.is_stopped();
  return choice;
}

}  // namespace pedigreewatch
