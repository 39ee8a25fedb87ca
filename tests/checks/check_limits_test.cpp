// The limits of each species as docs/check.md has them, and the lines that change them.
#include "checks/check_limits.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "support/files.h"
#include "support/places.h"

namespace pedigreewatch::test {
namespace {

std::vector<std::int32_t> numbers_of(const CheckLimits& limits) {
  return {limits.youngest_parent_days, limits.young_parent_days,      limits.oldest_dam_years, limits.oldest_sire_years,
          limits.births_apart_days,    limits.births_apart_look_days, limits.largest_litter};
}

TEST(LimitsOfSpecies, AreThoseOfEachSpeciesInBothLanguages) {
  const std::array<std::vector<std::int32_t>, 8> expected = {{{210, 423, 8, 14, 110, 110, 15},
                                                              {170, 300, 12, 15, 80, 80, 10},
                                                              {400, 600, 20, 15, 210, 273, 3},
                                                              {270, 330, 15, 13, 130, 130, 5},
                                                              {600, 1000, 25, 30, 300, 300, 2},
                                                              {130, 150, 10, 10, 0, 0, 0},
                                                              {220, 290, 8, 8, 110, 125, 22},
                                                              {0, 100, 60, 80, 0, 0, 20}}};
  for (std::int32_t species = 1; species <= 8; ++species) {
    EXPECT_EQ(numbers_of(limits_of_species(species)), expected[static_cast<std::size_t>(species) - 1]) << species;
    EXPECT_EQ(numbers_of(limits_of_species(species + 8)), expected[static_cast<std::size_t>(species) - 1]) << species;
  }
  EXPECT_EQ(numbers_of(limits_of_species(0)), expected[0]);
  EXPECT_EQ(numbers_of(limits_of_species(17)), expected[7]);
}

/// A row of the table in docs/check.md.
std::string documented(const std::string& species, const CheckLimits& limits) {
  const auto pair = [](std::int32_t a, std::int32_t b) { return std::to_string(a) + " / " + std::to_string(b); };
  std::string apart = std::to_string(limits.births_apart_days);
  if (limits.births_apart_days == 0) apart = "any";
  if (limits.births_apart_look_days > limits.births_apart_days) {
    apart += ", worth a look to " + std::to_string(limits.births_apart_look_days);
  }
  return "| " + species + " | " + pair(limits.youngest_parent_days, limits.young_parent_days) + " | " +
         pair(limits.oldest_dam_years, limits.oldest_sire_years) + " | " + apart + " | " +
         (limits.largest_litter == 0 ? "any" : std::to_string(limits.largest_litter)) + " |\n";
}

TEST(LimitsOfSpecies, AreDocumented) {
  const std::string page = bytes_of(source_folder() + "/docs/check.md");
  std::int32_t row = 0;
  for (const char* const species : {"dog", "cat", "cattle", "sheep", "horse", "poultry", "pig", "other"}) {
    EXPECT_NE(page.find(documented(species, limits_of_species(++row))), std::string::npos) << species;
  }
}

std::string problem_with(const std::string& line) {
  CheckLimits limits;
  return read_limits(line, "limits.txt", limits);
}

TEST(ReadLimits, NumbersGoFromNothingToAMillion) {
  EXPECT_EQ(problem_with("largest_litter = 0"), "");
  EXPECT_EQ(problem_with("largest_litter = 1000000"), "");
  EXPECT_NE(problem_with("largest_litter = -1"), "");
  EXPECT_NE(problem_with("largest_litter = 1000001"), "");
  EXPECT_NE(problem_with("largest_litter = 5x"), "");
}

TEST(ReadLimits, EachNameChangesItsOwnLimit) {
  CheckLimits limits;
  EXPECT_EQ(read_limits("youngest_parent_days=1\nyoung_parent_days=2\noldest_dam_years=3\noldest_sire_years=4\n"
                        "births_apart_days=5\nbirths_apart_look_days=6\nlargest_litter=7",
                        "limits.txt", limits),
            "");
  EXPECT_EQ(numbers_of(limits), (std::vector<std::int32_t>{1, 2, 3, 4, 5, 6, 7}));
}

}  // namespace
}  // namespace pedigreewatch::test
