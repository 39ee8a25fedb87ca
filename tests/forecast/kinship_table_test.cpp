// The table against the relationships of the tabular method, with rows that are used again.
#include "forecast/kinship_table.h"

#include <gtest/gtest.h>

#include <vector>

#include "forecast/random_stream.h"

namespace pedigreewatch::test {
namespace {

/// Kinships of a pedigree that grows by generations, in double precision: entry (i, j), 0 the unknown animal.
using Kinships = std::vector<std::vector<double>>;

void add_animal(Kinships& kinships, std::size_t sire, std::size_t dam) {
  std::vector<double> row;
  for (std::size_t j = 0; j < kinships.size(); ++j) row.push_back(0.5 * (kinships[sire][j] + kinships[dam][j]));
  row[0] = 0.0;
  const double own = 0.5 * (1.0 + kinships[sire][dam]);
  for (std::size_t j = 0; j < kinships.size(); ++j) kinships[j].push_back(row[j]);
  row.push_back(own);
  kinships.push_back(row);
}

std::int32_t any_of(RandomStream& random, std::int32_t first, std::int32_t count) {
  return first + random.below(count);
}

TEST(KinshipTable, HasTheKinshipsOfTheTabularMethod) {
  Kinships kinships(1, std::vector<double>(1, 0.0));
  constexpr std::int32_t herd = 30, generations = 12;
  std::vector<std::int32_t> founders;
  std::vector<float> cells(herd * herd, 0.0F);
  for (std::int32_t k = 0; k < herd; ++k) {
    add_animal(kinships, 0, 0);
    founders.push_back(k + 1);
    cells[static_cast<std::size_t>(k * herd + k)] = 0.5F;
  }
  KinshipTable table = make_kinship_table(founders, cells, herd);
  RandomStream random = make_stream(3);
  for (std::int32_t generation = 1; generation <= generations; ++generation) {
    const std::int32_t parents = (generation - 1) * herd + 1;
    std::vector<NewRow> born;
    for (std::int32_t k = 0; k < herd; ++k) {
      const std::int32_t sire = k == 0 ? 0 : any_of(random, parents, herd), dam = any_of(random, parents, herd);
      const double f = kinships[static_cast<std::size_t>(sire)][static_cast<std::size_t>(dam)];
      born.push_back({generation * herd + k + 1, sire, dam, static_cast<float>(f)});
      EXPECT_FLOAT_EQ(table.between(sire, dam), static_cast<float>(f));
      add_animal(kinships, static_cast<std::size_t>(sire), static_cast<std::size_t>(dam));
    }
    add_rows(table, born);
    for (std::int32_t old = parents; old < parents + herd; ++old) free_row(table, old);
    for (const NewRow& a : born) {
      for (const NewRow& b : born) {
        const double expected = kinships[static_cast<std::size_t>(a.animal)][static_cast<std::size_t>(b.animal)];
        ASSERT_NEAR(table.between(a.animal, b.animal), expected, 1e-6) << generation;
      }
      EXPECT_EQ(table.between(a.animal, 0), 0.0F);
    }
  }
  EXPECT_LT(table.capacity, 5 * herd);  // rows were used again
}

}  // namespace
}  // namespace pedigreewatch::test
