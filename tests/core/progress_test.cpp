#include "core/progress.h"

#include <gtest/gtest.h>

#include <vector>

namespace pedigreewatch::test {
namespace {

TEST(ProgressInterval, GrowsWithThePopulation) {
  EXPECT_EQ(progress_interval(0, 100, 200, 500), 100);
  EXPECT_EQ(progress_interval(10000, 100, 200, 500), 100);
  EXPECT_EQ(progress_interval(10001, 100, 200, 500), 200);
  EXPECT_EQ(progress_interval(25000, 100, 200, 500), 200);
  EXPECT_EQ(progress_interval(25001, 100, 200, 500), 500);
}

/// The animals before which a line is due, in a pass over `animal_count` animals.
std::vector<int> animals_with_a_line(std::int32_t interval, int animal_count) {
  ProgressCounter progress{interval};
  std::vector<int> animals;
  for (int animal = 1; animal <= animal_count; ++animal) {
    if (progress.is_due()) animals.push_back(animal);
  }
  return animals;
}

TEST(ProgressCounter, ExactlyOneIntervalShowsNothing) {
  EXPECT_TRUE(animals_with_a_line(100, 100).empty());
  EXPECT_TRUE(animals_with_a_line(100, 0).empty());
}

TEST(ProgressCounter, OneAnimalMoreShowsOneLine) {
  EXPECT_EQ(animals_with_a_line(100, 101), std::vector<int>{101});
}

TEST(ProgressCounter, LinesAreOneIntervalApart) {
  EXPECT_EQ(animals_with_a_line(100, 401), (std::vector<int>{101, 201, 301, 401}));
  EXPECT_EQ(animals_with_a_line(100, 400), (std::vector<int>{101, 201, 301}));
}

}  // namespace
}  // namespace pedigreewatch::test
