// Gradient projection and conjugate gradients by turns (More and Toraldo, 1991, SIAM J. Optim. 1: 93-113). A step along
// the projected gradient finds out which shares lie at their limits; conjugate gradients then move the others, as
// though they had none, and the way there is projected back. Each step costs one product with the kinships. The largest
// kinships of a population belong to a few directions, its families, which conjugate gradients deal with in as many
// steps.

#include "planning/contributions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace pedigreewatch {
namespace {

constexpr std::array<Sex, 2> both_sexes = {male, female};

double inner(std::span<const double> a, std::span<const double> b) {
  double sum = 0.0;
  for (std::size_t k = 0; k < a.size(); ++k) sum += a[k] * b[k];
  return sum;
}

/// Everything that a search works on.
struct Search {
  const CandidateKinship& kinship;
  const ShareLimits& limits;
  const ContributionGoal& goal;
  const PlanWatch& watch;
  KinshipScratch scratch;
  std::vector<double> shares, kinships, gradient;  ///< c, K c, 2 K c - weight * value
  std::vector<double> step, step_kinships;         ///< a change of the shares, and K times it
  double step_length = 0.0;                        ///< along the gradient
  std::int64_t products = 0;

  std::size_t size() const { return shares.size(); }
};

void multiply(Search& search, std::span<const double> weights, std::span<double> product) {
  multiply_kinship(search.kinship, weights, product, search.scratch);
  ++search.products;
  if (search.watch.progress != nullptr) {
    count_progress(*search.watch.progress, search.products * search.kinship.ancestors() / 1000);
  }
}

void set_gradient(Search& search) {
  for (std::size_t k = 0; k < search.size(); ++k) {
    search.gradient[k] = 2.0 * search.kinships[k];
    if (!search.goal.value.empty()) search.gradient[k] -= search.goal.weight * search.goal.value[k];
  }
}

double held_within(double value, double least, double most) {
  return std::min(std::max(value, least), most);
}

/// What the shares of a sex add up to when all are lowered by `shift` and held within their limits, and how many of
/// them would move with it.
struct ShiftedSum {
  double sum = 0.0;
  std::int64_t moving = 0;
};

ShiftedSum shifted_sum(const ShareLimits& limits, Sex sex, std::span<const double> shares, double shift) {
  ShiftedSum result;
  for (std::size_t k = 0; k < shares.size(); ++k) {
    if (limits.sex[k] != sex) continue;
    const double moved = shares[k] - shift;
    result.sum += held_within(moved, limits.least[k], limits.most[k]);
    if (moved > limits.least[k] && moved < limits.most[k]) ++result.moving;
  }
  return result;
}

/// The shift between which and itself the sum passes 1/2.
double find_shift(const ShareLimits& limits, Sex sex, std::span<const double> shares) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  double low = infinite, high = -infinite;
  for (std::size_t k = 0; k < shares.size(); ++k) {
    if (limits.sex[k] != sex) continue;
    low = std::min(low, shares[k] - limits.most[k]);     // all at their most from here down
    high = std::max(high, shares[k] - limits.least[k]);  // all at their least from here up
  }
  double shift = held_within(0.0, low, high);
  constexpr int most_steps = 200;
  for (int steps = 0; steps < most_steps && low < high; ++steps) {
    const ShiftedSum at = shifted_sum(limits, sex, shares, shift);
    const double excess = at.sum - share_of_sex;
    if (excess == 0.0) break;
    (excess > 0.0 ? low : high) = shift;
    const double newton = at.moving > 0 ? shift + excess / static_cast<double>(at.moving) : low;
    const double next = newton > low && newton < high ? newton : low + 0.5 * (high - low);
    if (next == shift || next <= low || next >= high) break;
    shift = next;
  }
  return shift;
}

/// Moves the shares to the nearest permitted ones.
void project(const ShareLimits& limits, std::span<double> shares) {
  for (const Sex sex : both_sexes) {
    const double shift = find_shift(limits, sex, shares);
    for (std::size_t k = 0; k < shares.size(); ++k) {
      if (limits.sex[k] == sex) shares[k] = held_within(shares[k] - shift, limits.least[k], limits.most[k]);
    }
  }
}

/// The least g's over all permitted s: each sex begins with its least shares and hands out what is left to those of
/// the lowest gradient.
double least_product(const ShareLimits& limits, std::span<const double> gradient) {
  double sum = 0.0;
  for (const Sex sex : both_sexes) {
    std::vector<std::size_t> order;
    double left = share_of_sex;
    for (std::size_t k = 0; k < gradient.size(); ++k) {
      if (limits.sex[k] != sex) continue;
      order.push_back(k);
      left -= limits.least[k];
      sum += gradient[k] * limits.least[k];
    }
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return gradient[a] < gradient[b]; });
    for (const std::size_t k : order) {
      const double part = std::min(left, limits.most[k] - limits.least[k]);
      if (part <= 0.0) break;
      sum += gradient[k] * part;
      left -= part;
    }
  }
  return sum;
}

double certificate_of(const Search& search) {
  return inner(search.gradient, search.shares) - least_product(search.limits, search.gradient);
}

/// Moves the shares by a part of the step, of which K times it is known.
void take_step(Search& search, double part) {
  for (std::size_t k = 0; k < search.size(); ++k) {
    search.shares[k] += part * search.step[k];
    search.kinships[k] += part * search.step_kinships[k];
  }
  set_gradient(search);
}

/// How far to go along the step, at most all the way.
double best_part(const Search& search) {
  const double slope = inner(search.gradient, search.step);
  const double curvature = inner(search.step, search.step_kinships);
  if (slope >= 0.0) return 0.0;
  return curvature > 0.0 ? std::min(1.0, -slope / (2.0 * curvature)) : 1.0;
}

/// One step along the projected gradient; false when it leads nowhere.
bool step_along_gradient(Search& search) {
  std::vector<double> target(search.size());
  for (std::size_t k = 0; k < search.size(); ++k) {
    target[k] = search.shares[k] - search.step_length * search.gradient[k];
  }
  project(search.limits, target);
  for (std::size_t k = 0; k < search.size(); ++k) search.step[k] = target[k] - search.shares[k];
  multiply(search, search.step, search.step_kinships);
  const double part = best_part(search);
  const double length = inner(search.step, search.step), curvature = inner(search.step, search.step_kinships);
  if (part > 0.0) take_step(search, part);
  if (length > 0.0 && curvature > 0.0) search.step_length = length / (2.0 * curvature);
  return part > 0.0 && length > 0.0;
}

/// Places of shares between their limits, by sex.
using FreeShares = BySex<std::vector<std::size_t>>;

FreeShares free_shares(const Search& search) {
  FreeShares result;
  for (std::size_t k = 0; k < search.size(); ++k) {
    const double share = search.shares[k];
    if (share > search.limits.least[k] && share < search.limits.most[k]) result.of(search.limits.sex[k]).push_back(k);
  }
  return result;
}

/// The part of `values` that moves free shares without changing what they add up to; 0 for all others.
void keep_free_part(const FreeShares& free, std::span<const double> values, std::span<double> part) {
  std::fill(part.begin(), part.end(), 0.0);
  for (const Sex sex : both_sexes) {
    const std::vector<std::size_t>& places = free.of(sex);
    double mean = 0.0;
    for (const std::size_t k : places) mean += values[k];
    mean /= static_cast<double>(std::max<std::size_t>(places.size(), 1));
    for (const std::size_t k : places) part[k] = values[k] - mean;
  }
}

/// Where conjugate gradients lead that let the free shares move without limits: `step` and K times it.
void find_free_step(Search& search, const FreeShares& free) {
  constexpr int most_steps = 60;
  constexpr double least_progress = 0.05;  // of the best step
  const std::size_t size = search.size();
  std::vector<double> residual(size), direction(size), product(size), reduced(size);
  std::fill(search.step.begin(), search.step.end(), 0.0);
  std::fill(search.step_kinships.begin(), search.step_kinships.end(), 0.0);
  keep_free_part(free, search.gradient, residual);
  for (double& value : residual) value = -value;
  direction = residual;
  double length = inner(residual, residual), best_progress = 0.0;
  for (int steps = 0; steps < most_steps && length > 0.0 && !search.watch.is_stopped(); ++steps) {
    multiply(search, direction, product);
    const double curvature = 2.0 * inner(direction, product);
    if (!(curvature > 0.0)) break;
    const double part = length / curvature;
    for (std::size_t k = 0; k < size; ++k) {
      search.step[k] += part * direction[k];
      search.step_kinships[k] += part * product[k];
      product[k] *= 2.0;
    }
    keep_free_part(free, product, reduced);
    for (std::size_t k = 0; k < size; ++k) residual[k] -= part * reduced[k];
    const double next = inner(residual, residual);
    const double progress = 0.5 * part * length;
    best_progress = std::max(best_progress, progress);
    if (progress < least_progress * best_progress) break;
    for (std::size_t k = 0; k < size; ++k) direction[k] = residual[k] + next / length * direction[k];
    length = next;
  }
}

bool is_within_limits(const Search& search) {
  for (std::size_t k = 0; k < search.size(); ++k) {
    const double share = search.shares[k] + search.step[k];
    if (share < search.limits.least[k] || share > search.limits.most[k]) return false;
  }
  return true;
}

/// Goes the way that `step` shows, projected to permitted shares; a part of it where all of it does not pay.
void take_projected_step(Search& search) {
  if (is_within_limits(search)) return take_step(search, 1.0);
  const std::vector<double> way = search.step;
  constexpr int most_halvings = 4;
  double part = 1.0;
  for (int halvings = 0; halvings <= most_halvings; ++halvings) {
    std::vector<double> target(search.size());
    for (std::size_t k = 0; k < search.size(); ++k) target[k] = search.shares[k] + part * way[k];
    project(search.limits, target);
    for (std::size_t k = 0; k < search.size(); ++k) search.step[k] = target[k] - search.shares[k];
    multiply(search, search.step, search.step_kinships);
    const double best = best_part(search);
    if (best > 0.0) return take_step(search, best);
    part *= 0.25;
  }
}

/// Whether the shares are good enough: much better than they need be as long as that is cheap.
bool is_good_enough(const Search& search, double certificate) {
  constexpr double aim = 1e-10;
  constexpr std::int64_t cheap_visits = 400'000'000;  // of ancestors, in all products
  constexpr std::int64_t most_products = 20'000;
  const double scale = std::abs(inner(search.shares, search.kinships));
  const bool is_cheap = !search.goal.is_brief && search.products * search.kinship.ancestors() < cheap_visits;
  if (certificate <= aim * scale || search.products > most_products) return true;
  return !is_cheap && certificate <= certified_part * scale;
}

Search make_search(const CandidateKinship& kinship, const ShareLimits& limits, const ContributionGoal& goal,
                   const PlanWatch& watch) {
  const std::vector<double> zeros(kinship.candidates(), 0.0);
  return {kinship, limits, goal, watch, make_kinship_scratch(kinship), zeros, zeros, zeros, zeros, zeros};
}

Contributions result_of(Search& search) {
  multiply(search, search.shares, search.kinships);
  set_gradient(search);
  Contributions result;
  result.certificate = std::max(0.0, certificate_of(search));
  result.mean_kinship = inner(search.shares, search.kinships);
  result.shares = std::move(search.shares);
  result.kinships = std::move(search.kinships);
  result.products = search.products;
  result.is_stopped = search.watch.is_stopped();
  return result;
}

/// Begins with shares that are permitted.
void begin_search(Search& search, std::span<const double> start) {
  if (start.empty()) {
    for (const Sex sex : both_sexes) {
      const auto count = std::count(search.limits.sex.begin(), search.limits.sex.end(), sex);
      for (std::size_t k = 0; k < search.size(); ++k) {
        if (search.limits.sex[k] == sex) search.shares[k] = share_of_sex / static_cast<double>(count);
      }
    }
  } else {
    std::copy(start.begin(), start.end(), search.shares.begin());
  }
  project(search.limits, search.shares);
  multiply(search, search.shares, search.kinships);
  set_gradient(search);
  search.step_length = 1.0;  // kinships of an animal with itself are about 1/2
}

}  // namespace

double highest_product(const ShareLimits& limits, std::span<const double> weights) {
  std::vector<double> lowered(weights.size());
  std::transform(weights.begin(), weights.end(), lowered.begin(), [](double weight) { return -weight; });
  return -least_product(limits, lowered);
}

bool can_be_met(const ShareLimits& limits, Sex sex) {
  constexpr double rounding = 1e-12;
  double least = 0.0, most = 0.0;
  for (std::size_t k = 0; k < limits.sex.size(); ++k) {
    if (limits.sex[k] != sex) continue;
    least += limits.least[k];
    most += limits.most[k];
  }
  return least <= share_of_sex + rounding && most >= share_of_sex - rounding;
}

Contributions best_contributions(const CandidateKinship& kinship, const ShareLimits& limits,
                                 const ContributionGoal& goal, std::span<const double> start, const PlanWatch& watch) {
  Search search = make_search(kinship, limits, goal, watch);
  begin_search(search, start);
  constexpr int gradient_steps = 3;
  int idle_rounds = 0;
  constexpr int most_idle_rounds = 3;
  while (!watch.is_stopped() && idle_rounds < most_idle_rounds) {
    if (is_good_enough(search, certificate_of(search))) break;
    bool has_moved = false;
    for (int steps = 0; steps < gradient_steps; ++steps) has_moved = step_along_gradient(search) || has_moved;
    find_free_step(search, free_shares(search));
    take_projected_step(search);
    idle_rounds = has_moved ? 0 : idle_rounds + 1;
    project(limits, search.shares);  // takes away what rounding has added up
  }
  return result_of(search);
}

Contributions examine_shares(const CandidateKinship& kinship, const ShareLimits& limits, std::vector<double> shares,
                             const ContributionGoal& goal) {
  const PlanWatch watch;
  Search search = make_search(kinship, limits, goal, watch);
  search.shares = std::move(shares);
  return result_of(search);
}

}  // namespace pedigreewatch
