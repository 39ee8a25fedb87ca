// The table of matings, cell by cell.
#include "matings/mating_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "genetics/inbreeding.h"
#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"
#include "support/run_folder.h"

namespace pedigreewatch::test {
namespace {

/// The row of a mating in the store, with bars in place of tabs.
std::string row_of_mating(std::string_view pedigree, std::string_view dam, std::string_view sire,
                          MatingTableForm form = MatingTableForm::tabs) {
  PopulationStore store = pedigree_from_text(pedigree);
  TextOutput console;
  compute_inbreeding(store, make_ancestor_pedigree(store), console);
  const MatingPlan plan = {{animal_named(store, dam).number}, {animal_named(store, sire).number}, {}, {}};
  const MatingWork work = make_mating_work(store, candidates_of(plan));
  const MatingChoice choice = choose_matings(work, plan);
  const std::vector<KinshipParts> parts = describe_matings(work, choice.pairs);
  std::string row = mating_row({work, choice.pairs, parts, form}, 0);
  std::replace(row.begin(), row.end(), '\t', '|');
  return row;
}

constexpr std::string_view half_sibs =
    "rex  0   0    m 2001\n"
    "saar 0   0    f 2001\n"
    "mies 0   0    f 2001\n"
    "bram rex saar m 2003\n"
    "puck rex mies f 2003\n";

TEST(MatingRow, HasFKinshipAndTheShareOfEachAncestor) {
  // The youngest are Bram and Puck: of each (0.5 + 0.125) / 2.
  EXPECT_EQ(row_of_mating(half_sibs, "puck", "bram"),
            "puck|bram|0.125|0.125|0.3125|0.3125|rex|0.125|100.00|||||||||||||0|0|0|1|0|1");
  EXPECT_EQ(row_of_mating(half_sibs, "mies", "bram"), "mies|bram|0|0|0.125|0.3125||||||||||||||||0|0|0|0|0|0");
  EXPECT_EQ(row_of_mating(half_sibs, "saar", "bram"),
            "saar|bram|0.25|0.25|0.125|0.3125|saar|0.25|100.00|||||||||||||0|0|0|1|0|1");
}

TEST(MatingRow, TellsHowMuchIsKnownOfBothAndWhetherFIsBeyondTheBoardsLimit) {
  PopulationStore store = with_inbreeding(pedigree_from_text(half_sibs));
  store.generation_equivalents = ByNumber<float>(store.size());
  store.generation_equivalents[4] = 1.5F;
  store.generation_equivalents[5] = 2.25F;
  const MatingPlan plan = {{5}, {4}, {}, {}};
  const MatingWork work = make_mating_work(store, candidates_of(plan));
  const MatingChoice choice = choose_matings(work, plan);
  const std::vector<KinshipParts> parts = describe_matings(work, choice.pairs);
  const auto row = [&](double most_inbreeding) {
    return mating_row({work, choice.pairs, parts, MatingTableForm::tabs, false, most_inbreeding}, 0);
  };
  EXPECT_TRUE(row(0.125).ends_with("\t1.5\t0\t0\t1\t2.25\t0")) << row(0.125);  // F is the limit itself
  EXPECT_TRUE(row(0.1249).ends_with("\t1.5\t0\t0\t1\t2.25\t1")) << row(0.1249);
}

TEST(MatingRow, LeavesMeanKinshipEmptyWhereThereAreNoYoungestAnimals) {
  EXPECT_EQ(row_of_mating("a 0 0 m 0\nb 0 0 f 0\n", "b", "a"), "b|a|0|0||||||||||||||||||0|0||0|0|0");
}

TEST(MatingRow, QuotesCellsWithQuotationMarksAndThoseThatCommasWouldCut) {
  constexpr std::string_view odd = "a,1 0 0 m 0\nb\"x 0 0 f 0\n";
  EXPECT_EQ(row_of_mating(odd, "b\"x", "a,1", MatingTableForm::commas),
            "\"b\"\"x\",\"a,1\",0,0,,,,,,,,,,,,,,,,,,0,0,,0,0,0");
  EXPECT_EQ(row_of_mating(odd, "b\"x", "a,1").substr(0, 13), "\"b\"\"x\"|a,1|0|");
}

TEST(MatingRow, IsUtf8WithoutControlCharacters) {
  EXPECT_EQ(row_of_mating("Zo\xEB 0 0 m 0\nb\x1B[x 0 0 f 0\n", "b\x1B[x", "Zo\xEB").substr(0, 21),
            "b<U+001B>[x|Zo\xC3\xAB|0|0|");
}

TEST(WriteMatings, LeavesNothingBehindWhenItIsStopped) {
  const RunFolder folder(Files{});
  const PopulationStore store = pedigree_from_text("a 0 0 m 0\nb 0 0 f 0\n");
  const MatingWork work{store, {}, {}, {}};
  const std::vector<MatingPair> pairs = {{2, 1, 0.0F}};
  const std::vector<KinshipParts> parts(1);
  const volatile std::sig_atomic_t stop = 1;
  FileProblem problem;
  const std::string name = folder.path("dogs_matings.tsv");
  EXPECT_FALSE(write_matings({work, pairs, parts}, name, {nullptr, &stop}, problem));
  EXPECT_EQ(problem.name, "");
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
  EXPECT_TRUE(write_matings({work, pairs, parts}, name, {}, problem));
  EXPECT_TRUE(is_taken(name));
}

TEST(MatingHeading, NamesEveryColumn) {
  const std::string heading = mating_heading(MatingTableForm::commas);
  EXPECT_EQ(heading,
            "female,male,F,kinship,female_mean_kinship,male_mean_kinship,ancestor_1,contribution_1,percent_1,"
            "ancestor_2,contribution_2,percent_2,ancestor_3,contribution_3,percent_3,ancestor_4,contribution_4,"
            "percent_4,ancestor_5,contribution_5,percent_5,male_equivalent_generations,male_offspring,male_age,"
            "beyond_6_25_percent,female_equivalent_generations,beyond_limit");
  const std::string row = row_of_mating(half_sibs, "puck", "bram", MatingTableForm::commas);
  EXPECT_EQ(std::count(row.begin(), row.end(), ','), std::count(heading.begin(), heading.end(), ','));
}

TEST(MatingRow, FHasTheDigitsThatYieldItAgain) {
  // Nine generations between the two: 1 / 2^10, which six digits do not tell.
  std::string pedigree = "a0 0 0 m 0\n";
  for (int k = 1; k <= 9; ++k) {
    pedigree += "a" + std::to_string(k) + " a" + std::to_string(k - 1) + (k == 9 ? " 0 f 0\n" : " 0 m 0\n");
  }
  EXPECT_EQ(row_of_mating(pedigree, "a9", "a0").substr(0, 52), "a9|a0|0.0009765625|0.0009765625|||a0|0.0009765625|10");
}

}  // namespace
}  // namespace pedigreewatch::test
