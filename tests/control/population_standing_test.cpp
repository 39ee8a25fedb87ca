// Which findings of the check bear on the verdict.
#include "control/population_standing.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

VerdictFaults faults_with(std::initializer_list<Finding> findings) {
  CheckResult check;
  check.findings.list = findings;
  return faults_of_verdict(check);
}

TEST(FaultsOfVerdict, ThoseOfALineAreOfAnAnimalOthersOfTheFile) {
  const VerdictFaults faults = faults_with({{.code = FindingCode::born_before_parent, .line = 7},
                                            {.code = FindingCode::born_before_parent, .line = 9},
                                            {.code = FindingCode::column_twice}});
  EXPECT_EQ(faults.of_animals, 2);
  EXPECT_EQ(faults.of_file, 1);
}

TEST(FaultsOfVerdict, AFindingOfManyLinesIsOfAsManyAnimals) {
  const VerdictFaults faults = faults_with({{.code = FindingCode::unknown_word, .line = 7, .line_count = 40}});
  EXPECT_EQ(faults.of_animals, 40);
  EXPECT_EQ(faults.of_file, 0);
}

TEST(FaultsOfVerdict, WhatIsWorthALookIsNone) {
  EXPECT_EQ(faults_with({{.code = FindingCode::parent_old, .line = 7}}).count(), 0);
}

// Genes are followed through parents and birth years.
TEST(FaultsOfVerdict, SexesImportsAndEmptyYearsAreNone) {
  EXPECT_EQ(faults_with({{.code = FindingCode::sex_text, .line = 7},
                         {.code = FindingCode::parent_sex, .line = 7},
                         {.code = FindingCode::male_letter},
                         {.code = FindingCode::import_text},
                         {.code = FindingCode::year_gap}})
                .count(),
            0);
}

}  // namespace
}  // namespace pedigreewatch::test
