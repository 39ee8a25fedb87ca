#include "forecast/model_pedigree.h"

#include <gtest/gtest.h>

#include <vector>

namespace pedigreewatch::test {
namespace {

ModelPedigree empty_pedigree() {
  ModelPedigree pedigree;
  pedigree.sire.values = pedigree.dam.values = {0};
  pedigree.f.values = {-1.0F};
  pedigree.variance.values = {0.0};
  return pedigree;
}

// 1 to 4 are unrelated; 5 and 6 are full sibs, 7 is their half sib; 8 is the young of the full sibs.
ModelPedigree family() {
  ModelPedigree pedigree = empty_pedigree();
  for (int founder = 0; founder < 4; ++founder) add_parent(pedigree, 0, 0, 0.0F);
  add_parent(pedigree, 1, 2, 0.0F);
  add_parent(pedigree, 1, 2, 0.0F);
  add_parent(pedigree, 1, 3, 0.0F);
  add_parent(pedigree, 5, 6, 0.25F);
  return pedigree;
}

TEST(DescribeYear, WorksOutMeansByHand) {
  const ModelPedigree pedigree = family();
  ByNumber<double> weights(8);
  // Two young of 5 and 7 (half sibs, F 1/8), one of 4 and an unknown parent.
  const std::vector<YoungOf> families = {{5, 7, 2, 0.125F}, {0, 4, 1, 0.0F}};
  const YearKinship year = describe_year(pedigree, families, weights);
  EXPECT_EQ(year.animals, 3);
  EXPECT_DOUBLE_EQ(year.mean_f, 0.25 / 3.0);
  // The kinship of full sibs of half sib parents: (1/2 + 1/2 + 2/8) / 4 = 5/16; of an animal with itself (1 + F) / 2.
  EXPECT_DOUBLE_EQ(year.without_self, (2.0 * 5.0 / 16.0) / 6.0);
  EXPECT_DOUBLE_EQ(year.with_self, (2.0 * 9.0 / 16.0 + 0.5 + 2.0 * 5.0 / 16.0) / 9.0);
  EXPECT_EQ(weights.values, std::vector<double>(9, 0.0));
}

TEST(DescribeYear, OfOneAnimalHasNoKinshipWithOthers) {
  const ModelPedigree pedigree = family();
  ByNumber<double> weights(8);
  const YearKinship year = describe_year(pedigree, std::vector<YoungOf>{{1, 2, 1, 0.0F}}, weights);
  EXPECT_DOUBLE_EQ(year.with_self, 0.5);
  EXPECT_EQ(year.without_self, 0.0);
}

TEST(MeanKinshipWithYoung, IsThatOfEachAnimal) {
  const ModelPedigree pedigree = family();
  const ByNumber<double> kinship =
      mean_kinship_with_young(pedigree, std::vector<YoungOf>{{5, 3, 1, 0.0F}, {6, 4, 3, 0.0F}});
  EXPECT_DOUBLE_EQ(kinship[1], 0.125);                       // a grandparent of all of them
  EXPECT_DOUBLE_EQ(kinship[3], 0.25 / 4.0);                  // parent of one of four
  EXPECT_DOUBLE_EQ(kinship[5], (0.25 + 3.0 * 0.125) / 4.0);  // parent of one, full sib of the parent of three
}

TEST(NearKinship, KnowsNearRelatives) {
  const ModelPedigree pedigree = family();
  EXPECT_FLOAT_EQ(near_kinship(pedigree, 5, 6), 0.25F);
  EXPECT_FLOAT_EQ(near_kinship(pedigree, 5, 7), 0.125F);
  EXPECT_FLOAT_EQ(near_kinship(pedigree, 5, 1), 0.25F);
  EXPECT_FLOAT_EQ(near_kinship(pedigree, 7, 8), 0.125F);
  EXPECT_EQ(near_kinship(pedigree, 4, 8), 0.0F);
  EXPECT_EQ(near_kinship(pedigree, 0, 8), 0.0F);
}

}  // namespace
}  // namespace pedigreewatch::test
