// The figures of a population, and the bytes of its tables, do not depend on the number of threads.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "diversity/diversity.h"
#include "diversity/figures.h"
#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"
#include "tables/animal_table.h"
#include "tables/cohort_table.h"
#include "tables/figure_tables.h"
#include "tables/list_tables.h"

namespace pedigreewatch::test {
namespace {

/// Two hundred animals a year, which descend from those of the three years before.
PopulationStore herd(int animals) {
  constexpr int of_a_year = 200;
  std::mt19937 random(7);
  std::string pedigree;
  for (int k = 0; k < animals; ++k) {
    const int year = k / of_a_year;
    const auto parent = [&](unsigned count) {
      return std::to_string(1 + std::max(year - 3, 0) * of_a_year + static_cast<int>(random() % count));
    };
    std::string line = std::to_string(1950 + year) + (k % 2 == 0 ? " m" : "");
    if (year > 0) line += " s=" + parent(20) + " d=" + parent(static_cast<unsigned>(std::min(year, 3) * of_a_year));
    pedigree += line + "\n";
  }
  return with_inbreeding(numbered_store(pedigree));
}

/// All tables that many animals have to do with, one behind the other.
std::string tables_of(const PopulationStore& store, std::int32_t threads) {
  const Diversity diversity = compute_diversity(store, youngest_animals(store), threads);
  const PopulationFigures figures = compute_figures(store, diversity, {}, true, threads);
  const ByNumber<std::int32_t> offspring = count_offspring(store);
  const ListedPopulation listed{store, diversity, figures, offspring};
  TableWriter writer;
  writer.threads = threads;
  write_animals(store, figures.animals, writer);
  write_diversity_table(store, diversity, ToolLanguage::english, writer);
  write_cohorts(store, figures.cohorts, writer);
  write_kinship_list(listed, writer);
  write_most_inbred(listed, writer);
  write_used_sires(listed, writer);
  return writer.text;
}

TEST(Tables, AreTheSameWithAnyNumberOfThreads) {
  const PopulationStore store = herd(9'000);
  const std::string alone = tables_of(store, 1);
  EXPECT_GT(std::count(alone.begin(), alone.end(), '\n'), 9'000 + 2'000);
  for (const std::int32_t threads : {2, 4}) EXPECT_TRUE(tables_of(store, threads) == alone) << threads;
}

}  // namespace
}  // namespace pedigreewatch::test
