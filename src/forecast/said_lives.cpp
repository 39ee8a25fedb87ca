// A life of n years of use lasts n / pace years when so many of its years pass in one, but for the first one, which is
// always whole: what paces and shifts lead to is known beforehand, and they are found by halving.

#include "forecast/said_lives.h"

#include <algorithm>
#include <cmath>

#include "core/shares.h"
#include "forecast/model_entry.h"
#include "forecast/whole_numbers.h"

namespace pedigreewatch {
namespace {

constexpr int halvings = 100;

std::vector<LifeOfUse> live_careers(const BasePeriod& base, Sex sex, std::uint64_t seed) {
  constexpr std::size_t least_lives = 4000;
  RandomStream random = make_stream(seed, -1, 0, sex == male ? DrawPurpose::sire_careers : DrawPurpose::dam_careers);
  const std::vector<std::int32_t>& entries = base.entries.of(sex);
  const std::size_t rounds = least_lives / entries.size() + 1;
  std::vector<LifeOfUse> lives;
  for (std::size_t round = 0; round < rounds; ++round) {
    for (const std::int32_t number : entries) lives.push_back(live_career(base.careers.of(sex), number, random));
  }
  return lives;
}

/// The mean of a count of the lives when so many of their years pass in one.
double mean_at_pace(std::span<const LifeOfUse> lives, std::int32_t LifeOfUse::*count, double pace) {
  double sum = 0.0;
  for (const LifeOfUse& life : lives) sum += std::max(1.0, life.*count / pace);
  return mean_over(sum, lives.size());
}

double pace_of(std::span<const LifeOfUse> lives, double mean_years) {
  constexpr double fastest = 100.0;
  double low = 1.0 / fastest, high = fastest;
  for (int step = 0; step < halvings; ++step) {
    const double middle = std::sqrt(low * high);
    (mean_at_pace(lives, &LifeOfUse::years, middle) > mean_years ? low : high) = middle;
  }
  return high;
}

}  // namespace

void set_first_ages(Sex sex, double mean_age, BasePeriod& base) {
  const CareerRecords& careers = base.careers.of(sex);
  const auto age_of = [&](std::int32_t number, double shift) {
    return std::max(1.0, std::min(careers.at(number).first_age, base.oldest_entry.of(sex)) + shift);
  };
  std::vector<std::int32_t> entries = base.entries.of(sex);
  double low = -careers.oldest, high = mean_age;
  for (int step = 0; step < halvings; ++step) {
    const double middle = 0.5 * (low + high);
    double sum = 0.0;
    for (const std::int32_t number : entries) sum += age_of(number, middle);
    (sum < mean_age * static_cast<double>(entries.size()) ? low : high) = middle;
  }
  std::vector<std::int32_t> ages;
  ages.reserve(careers.careers.size());
  for (std::int32_t number = 0; number < std::ssize(careers.careers); ++number) {
    ages.push_back(static_cast<std::int32_t>(std::lround(age_of(number, high))));
  }
  std::stable_sort(entries.begin(), entries.end(),
                   [&](std::int32_t a, std::int32_t b) { return careers.at(a).first_age < careers.at(b).first_age; });
  WholeNumbers whole;
  for (const std::int32_t number : entries) {
    std::int32_t& age = ages[static_cast<std::size_t>(number)];
    age = std::max(1, whole.next(age_of(number, high)));
    base.oldest_entry.of(sex) = std::max(base.oldest_entry.of(sex), age);
  }
  base.said_ages.of(sex) = std::move(ages);
}

void set_years_in_use(Sex sex, double mean_years, std::uint64_t seed, ModelBasis& basis) {
  const std::vector<LifeOfUse> lives = live_careers(basis.base, sex, seed);
  const double pace = pace_of(lives, mean_years);
  basis.pace.of(sex) = pace;
  const double share = mean_at_pace(lives, &LifeOfUse::used, 1.0) / mean_at_pace(lives, &LifeOfUse::used, pace);
  for (std::size_t group = 0; group < basis.base.years.front().size(); ++group) {
    WholeNumbers whole;
    for (std::vector<GroupYear>& year : basis.base.years) {
      std::int32_t& entered = year[group].entered.of(sex);
      entered = std::min(year[group].in_use.of(sex), whole.next(share * entered));
    }
  }
  count_going_on(basis);
}

double mean_years_in_use(const BasePeriod& base, Sex sex, double pace, std::uint64_t seed) {
  return mean_at_pace(live_careers(base, sex, seed), &LifeOfUse::years, pace);
}

}  // namespace pedigreewatch
