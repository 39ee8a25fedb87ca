#include "forecast/sire_use.h"

#include <algorithm>
#include <cmath>

namespace pedigreewatch {
namespace {

/// Real numbers of litters: a multiple of the use, at least `least` and at most what is permitted. The multiple for
/// which they add up is found by halving, in as many steps as a double has digits.
std::vector<double> quotas_of(std::span<const SireShare> sires, double litters, double least) {
  double least_use = sires.front().use;
  for (const SireShare& sire : sires) least_use = std::min(least_use, sire.use);
  double lowest = 0.0, highest = (litters + 1.0) / least_use;
  const auto quota = [&](const SireShare& sire, double multiple) {
    return std::clamp<double>(sire.use * multiple, least, sire.most);
  };
  constexpr int steps = 60;
  for (int step = 0; step < steps; ++step) {
    const double multiple = 0.5 * (lowest + highest);
    double sum = 0.0;
    for (const SireShare& sire : sires) sum += quota(sire, multiple);
    (sum < litters ? lowest : highest) = multiple;
  }
  std::vector<double> quotas;
  for (const SireShare& sire : sires) quotas.push_back(quota(sire, highest));
  return quotas;
}

}  // namespace

std::vector<std::int32_t> share_litters(std::span<const SireShare> sires, std::int64_t litters, RandomStream& random) {
  std::vector<std::int32_t> numbers(sires.size(), 0);
  const double start = random.unit();
  std::int64_t most = 0;
  for (const SireShare& sire : sires) most += sire.most;
  litters = std::min(litters, most);
  if (litters <= 0) return numbers;
  const double least = litters > std::ssize(sires) ? 1.0 : 0.0;  // not even one each
  const std::vector<double> quotas = quotas_of(sires, static_cast<double>(litters), least);
  double sum = start;
  std::int64_t given = 0;
  for (std::size_t k = 0; k < sires.size(); ++k) {
    sum += quotas[k];
    const auto reached = std::min(static_cast<std::int64_t>(std::floor(sum)), litters);
    numbers[k] = static_cast<std::int32_t>(std::clamp<std::int64_t>(reached - given, 0, sires[k].most));
    given += numbers[k];
  }
  for (std::size_t k = 0; given < litters && k < sires.size(); ++k) {  // what rounding has left over
    if (numbers[k] >= sires[k].most) continue;
    ++numbers[k];
    ++given;
  }
  return numbers;
}

}  // namespace pedigreewatch
