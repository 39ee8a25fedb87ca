// How many animals the lists show that people act on.
#include <gtest/gtest.h>

#include <string>

#include "page/page_sections.h"
#include "support/analysed_population.h"
#include "support/page_reading.h"

namespace pedigreewatch::test {
namespace {

/// The animals of the list by mean kinship, of so many females.
std::size_t females_shown(int females) {
  const AnalysedPopulation population = analysed(animals_by_year({2 * females}));
  PopulationFigures figures;
  for (std::int32_t i = 1; i <= population.store.animal_count; ++i) {
    if (population.store.sex[i] != male) figures.lists.females.push_back(i);
  }
  figures.animals.lines = ByNumber<KnownLine>(population.store.size());
  figures.animals.mean_kinship = ByNumber<float>(population.store.size());
  const Diversity diversity;
  PageInput input{population};
  input.figures = &figures;
  input.diversity = &diversity;
  std::string page;
  write_lists(page, make_frame(input));
  return table_in(page.substr(page.find("Females with the lowest"))).rows.size();
}

TEST(WriteLists, TwentyFemalesAreShown) {
  EXPECT_EQ(females_shown(19), 19U);
  EXPECT_EQ(females_shown(20), 20U);
  EXPECT_EQ(females_shown(21), 20U);
}

}  // namespace
}  // namespace pedigreewatch::test
