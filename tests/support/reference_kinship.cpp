#include "support/reference_kinship.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pedigreewatch::test {
namespace {

float plain_inbreeding_sum(const PlainCohort& cohort, const PlainGroup& group) {
  float sum = 0.0F;
  for (const std::size_t k : group) sum += cohort.at(k).inbreeding;
  return sum;
}

}  // namespace

std::vector<double> plain_relationship_row(const PopulationStore& store, std::int32_t x) {
  const auto at = [](std::int32_t number) { return static_cast<std::size_t>(number); };
  std::vector<double> weights(at(x) + 1, 0.0), row(at(x) + 1, 0.0), parent_f(at(x) + 1, 0.0);
  for (std::int32_t j = 1; j <= x; ++j) parent_f[at(j)] = static_cast<double>(store.inbreeding[j]);
  weights[at(x)] = 1.0;
  for (std::int32_t j = x; j >= 1; --j) {
    if (!(weights[at(j)] > 0.0)) continue;
    const std::int32_t s = store.sire_no[j], d = store.dam_no[j];
    if (s != 0) weights[at(s)] += 0.5 * weights[at(j)];
    if (d != 0) weights[at(d)] += 0.5 * weights[at(j)];
  }
  for (std::int32_t j = 1; j <= x; ++j) {
    const std::int32_t s = store.sire_no[j], d = store.dam_no[j];
    row[at(j)] = 0.5 * ((s != 0 ? row[at(s)] : 0.0) + (d != 0 ? row[at(d)] : 0.0));
    if (!(weights[at(j)] > 0.0)) continue;
    const double unknown = (s == 0 ? 1.0 : 0.0) + (d == 0 ? 1.0 : 0.0);
    row[at(j)] += weights[at(j)] * (2.0 + unknown - parent_f[at(s)] - parent_f[at(d)]) * 0.25;
  }
  return row;
}

PlainCohort plain_cohort(const PopulationStore& store, std::int32_t year) {
  PlainCohort cohort{store, {}, {}};
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (store.birth_year[position] == year) cohort.animals.push_back(position);
  }
  const std::size_t size = cohort.animals.size();
  cohort.matrix.assign(size, std::vector<float>(size, 0.0F));
  for (std::size_t k = 0; k < size; ++k) {
    if (cohort.at(k).sire_no == 0 && cohort.at(k).dam_no == 0) {
      cohort.matrix[k][k] = 1.0F;
      continue;
    }
    const std::vector<double> row = plain_relationship_row(store, cohort.animals[k]);
    for (std::size_t c = 0; c <= k; ++c) {
      const std::size_t position = static_cast<std::size_t>(cohort.animals[c]);
      cohort.matrix[k][c] = cohort.matrix[c][k] = static_cast<float>(row[position]);
    }
  }
  return cohort;
}

float plain_inbreeding_mean(const PlainCohort& cohort, const PlainGroup& group) {
  return plain_inbreeding_sum(cohort, group) / static_cast<float>(group.size());
}

float plain_sum_between(const PlainCohort& cohort, const PlainGroup& rows, const PlainGroup& columns) {
  double sum = 0.0;
  for (const std::size_t r : rows) {
    for (const std::size_t c : columns) sum += static_cast<double>(cohort.matrix[r][c]);
  }
  return static_cast<float>(sum);
}

float plain_kinship_without_self(const PlainCohort& cohort, const PlainGroup& group, TakenFirst first) {
  const float total = plain_sum_between(cohort, group, group);
  const float f_sum = plain_inbreeding_sum(cohort, group);
  const float m = static_cast<float>(group.size());
  const float pairs = static_cast<float>(group.size() * (group.size() - 1));
  const float different = first == TakenFirst::inbreeding ? (total - f_sum) - m : (total - m) - f_sum;
  return different / pairs * 0.5F;
}

void expect_close(const std::vector<float>& got, const std::vector<float>& want, std::int32_t year) {
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t i = 0; i < want.size(); ++i) {
    EXPECT_NEAR(got[i], want[i], 4e-7F + 4e-6F * std::abs(want[i])) << "year " << year << ", column " << i + 1;
  }
}

}  // namespace pedigreewatch::test
