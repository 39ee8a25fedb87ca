// Which findings of the check bear on the verdict.
#include "control/population_standing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/check_runs.h"

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
  const VerdictFaults faults = faults_with({{.code = FindingCode::year_two_digits, .line = 7, .line_count = 40}});
  EXPECT_EQ(faults.of_animals, 40);
  EXPECT_EQ(faults.of_file, 0);
}

// The lines are those of the relatives.
TEST(FaultsOfVerdict, ADateThatRelativesContradictIsOfOneAnimal) {
  const CheckResult check = checked_sheep(
      "id;sex;birthdate;sire;dam\n"
      "ram;m;01-03-2015;;\n"
      "ewe;f;01-03-2010;;\n"
      "x;f;01-03-2011;;\n"
      "y;f;01-03-2012;;\n"
      "a;f;01-03-2013;ram;ewe\n"
      "b;m;01-03-2014;ram;ewe\n"
      "c;m;02-03-2015;ram;ewe\n");
  ASSERT_EQ(count_of(check, FindingCode::date_contradicted), 1);
  const auto contradicted =
      std::find_if(check.findings.list.begin(), check.findings.list.end(),
                   [](const Finding& each) { return each.code == FindingCode::date_contradicted; });
  EXPECT_EQ(contradicted->line_count, 3U);
  EXPECT_EQ(faults_of_verdict(check).of_animals, 1);
}

TEST(FaultsOfVerdict, AParentThatIsNotFoundIsAFaultOfEachOfItsYoung) {
  const CheckResult check = checked_sheep(
      "id;sex;birthdate;sire;dam\n"
      "ram;m;01-03-2010;;\n"
      "ewe;f;01-03-2010;;\n"
      "a;f;01-03-2013;ram;ewe\n"
      "b;m;01-03-2014;unk.;ewe\n"
      "c;m;01-03-2015;unk.;ewe\n"
      "d;m;01-03-2016;unk.;ewe\n");
  ASSERT_EQ(count_of(check, FindingCode::unknown_word), 1);
  EXPECT_EQ(faults_of_verdict(check).of_animals, 3);
  for (const FindingCode code : {FindingCode::quotes, FindingCode::parent_spelling, FindingCode::parent_one_letter,
                                 FindingCode::unknown_perhaps}) {
    EXPECT_EQ(faults_with({{.code = code, .line = 7, .number = 40}}).of_animals, 40) << static_cast<int>(code);
  }
  EXPECT_EQ(faults_with({{.code = FindingCode::line_cut, .line = 7, .number = 5000}}).of_animals, 1);
}

TEST(FaultsOfVerdict, AFaultOfTheFileMayNameALine) {
  for (const FindingCode code : {FindingCode::header_unread, FindingCode::column_twice, FindingCode::date_layout}) {
    EXPECT_EQ(faults_with({{.code = code, .line = 1}}).of_file, 1) << static_cast<int>(code);
  }
}

TEST(FaultsOfVerdict, AFaultWithoutALineIsOneOfTheFile) {
  const VerdictFaults of_file = faults_with({{.code = FindingCode::line_cut}});
  EXPECT_EQ(of_file.of_file, 1);
  EXPECT_EQ(of_file.of_animals, 0);
  EXPECT_EQ(faults_with({{.code = FindingCode::line_cut, .line = 7}}).of_file, 0);
}

/// Four years of ten animals each with a parent, 2020 to 2023, and the lines of `more`.
CheckResult herd_with(const std::string& more, CheckScope scope = CheckScope::everything) {
  std::string data = "id;sex;birthdate;sire;dam\n";
  for (int k = 0; k < 40; ++k) {
    data += "s" + std::to_string(k) + (k % 2 == 0 ? ";m" : ";f") + ";01-03-" + std::to_string(2020 + k / 10) + ";;\n";
  }
  CheckSettings settings = check_settings(sheep_steer());
  settings.scope = scope;
  return checked(data + more, settings);
}

/// Today is 30 June 2026.
TEST(LateBirths, BeginTheDayAfterToday) {
  const std::string until_now = "t;m;01-03-2024;;\nu;m;01-03-2025;;\n";
  EXPECT_EQ(find_late_births(herd_with(until_now + "v;f;30-06-2026;;\n")).count, 0);
  const VerdictFaults faults = faults_of_verdict(herd_with(until_now + "v;f;01-07-2026;;\n"));
  ASSERT_EQ(faults.late_births.count, 1);
  EXPECT_EQ(faults.late_births.first, (std::vector<LateBirth>{{"v", 44, "01-07-2026"}}));
  EXPECT_EQ(faults.of_animals, 0);
  EXPECT_EQ(faults.count(), 1);
}

TEST(LateBirths, AreThoseAloneAfterEmptyYears) {
  EXPECT_EQ(find_late_births(herd_with("v;f;01-03-2024;;\n")).count, 0);
  const VerdictFaults after = faults_of_verdict(herd_with("v;f;01-03-2025;;\n"));
  ASSERT_EQ(after.late_births.count, 1);
  EXPECT_EQ(after.late_births.first.front(), (LateBirth{"v", 42, "2025"}));
  const VerdictFaults before = faults_of_verdict(herd_with("v;f;01-03-2018;;\n"));
  EXPECT_EQ(before.late_births.count, 0);
  EXPECT_EQ(before.of_animals, 1);
}

TEST(LateBirths, AreDatesBehindAllOthersThatStandForUnknown) {
  EXPECT_EQ(find_late_births(herd_with("v;f;31-12-9999;;\n")).first, (std::vector<LateBirth>{{"v", 42, "9999"}}));
  const VerdictFaults before = faults_of_verdict(herd_with("v;f;01-01-1900;;\n"));
  EXPECT_EQ(before.late_births.count, 0);
  EXPECT_EQ(before.of_animals, 1);
}

TEST(LateBirths, AreThoseACenturyBehindTheOthers) {
  std::string old = "id;sex;birthdate;sire;dam\n";
  for (int k = 0; k < 10; ++k) old += "o" + std::to_string(k) + ";m;01-03-1850;;\n";
  EXPECT_EQ(find_late_births(checked_sheep(old + "v;f;01-03-1990;;\n")).first,
            (std::vector<LateBirth>{{"v", 12, "1990"}}));
  EXPECT_EQ(find_late_births(checked_sheep(old + "v;f;01-03-1700;;\n")).count, 0);
}

TEST(LateBirths, AreNamedUpToFive) {
  std::string more;
  for (int k = 0; k < 5; ++k) more += "v" + std::to_string(k) + ";f;01-03-2027;;\n";
  EXPECT_EQ(find_late_births(herd_with(more)).first.size(), 5U);
  const LateBirths births = find_late_births(herd_with(more + "w;f;01-03-2028;;\n"));
  EXPECT_EQ(births.count, 6);
  EXPECT_EQ(births.first.size(), 5U);
}

TEST(LateBirths, AreFoundAlsoWhereOnlyYearsAreWanted) {
  for (const std::string more : {"v;f;01-03-2025;;\n", "v;f;01-07-2026;;\n", "v;f;31-12-9999;;\n", "v;f;2300;;\n"}) {
    const LateBirths all = find_late_births(herd_with(more));
    const LateBirths years = find_late_births(herd_with(more, CheckScope::years));
    EXPECT_EQ(all.count, 1) << more;
    EXPECT_EQ(years.count, 1) << more;
    EXPECT_EQ(years.first, all.first) << more;
  }
  const std::string again = "s0;m;01-03-2020;;\n";
  EXPECT_EQ(count_of(herd_with(again), FindingCode::duplicate_line), 1);
  EXPECT_EQ(count_of(herd_with(again, CheckScope::years), FindingCode::duplicate_line), 0);
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
