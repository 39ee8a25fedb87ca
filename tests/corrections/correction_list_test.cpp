// Lists of corrections as text, and how corrections of one field add up.
#include "corrections/correction_list.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch::test {
namespace {

Correction value(std::string id, FieldCode field, std::string was, std::string becomes) {
  return {std::move(id), CorrectionKind::value, field, std::move(was), std::move(becomes), "", ""};
}

TEST(CorrectionList, IsReadAsItWasWritten) {
  const std::vector<Correction> corrections = {
      {"HS1", CorrectionKind::value, birthdate_column, "1-1-1890", "1-1-1980", "typing error", "2026-11-22"},
      {"HS2", CorrectionKind::value, sire_column, "HS9", "", "", ""},
      {"HS3", CorrectionKind::leave_out, unused_column, "HS3 | m", "", "twice", ""},
      {"\"Zo\xC3\xAB\" x", CorrectionKind::same_as, unused_column, "", "\"A\"", "", ""},
      {"\"B\"", CorrectionKind::value, sex_column, "", "m", "", ""}};
  const std::string text = corrections_text(corrections);
  EXPECT_EQ(text,
            "id\tfield\twas\tbecomes\twhy\twhen\n"
            "HS1\tbirthdate\t1-1-1890\t1-1-1980\ttyping error\t2026-11-22\n"
            "HS2\tsire\tHS9\t\t\t\n"
            "HS3\tleave out\tHS3 | m\t\ttwice\t\n"
            "\"Zo\xC3\xAB\" x\tsame as\t\t\"\"\"A\"\"\"\t\t\n"
            "\"\"\"B\"\"\"\tsex\t\tm\t\t\n");
  const CorrectionList list = read_corrections(text);
  EXPECT_TRUE(list.faults.empty());
  EXPECT_EQ(list.corrections, corrections);
}

TEST(CorrectionList, ReadsWhatASpreadsheetMakesOfIt) {
  const CorrectionList list = read_corrections(
      "\xEF\xBB\xBFid\tfield\twas\tbecomes\r\n\r\n\"HS1\"\tname\t\"a \"\"b\"\"\"\tc\r\n  \t \r\nHS2\tsex\tx\t\r\n");
  EXPECT_TRUE(list.faults.empty());
  ASSERT_EQ(list.corrections.size(), 2U);
  EXPECT_EQ(list.corrections[0], value("HS1", name_column, "a \"b\"", "c"));
  EXPECT_EQ(list.corrections[1], value("HS2", sex_column, "x", ""));
}

TEST(CorrectionList, ListsThatWereJoinedAreOne) {
  const std::string one = corrections_text(std::vector{value("A", sire_column, "x", "y")});
  const CorrectionList list = read_corrections(one + one);
  EXPECT_TRUE(list.faults.empty());
  EXPECT_EQ(list.corrections.size(), 2U);
}

TEST(CorrectionList, NamesTheLinesThatCannotBeRead) {
  const CorrectionList list = read_corrections("HS1\tweight\t1\t2\nHS2\tsex\tx\n\tsex\tx\ty\nHS4\tsex\tx\ty\n");
  ASSERT_EQ(list.faults.size(), 3U);
  EXPECT_EQ(list.faults[0].line, 1);
  EXPECT_EQ(list.faults[0].text, "weight");
  EXPECT_TRUE(list.faults[0].is_field);
  EXPECT_EQ(list.faults[1].line, 2);
  EXPECT_FALSE(list.faults[1].is_field);
  EXPECT_EQ(list.faults[2].line, 3) << "no identification";
  EXPECT_EQ(list.corrections.size(), 1U);
}

TEST(AddCorrection, ASecondOneOfAFieldTakesThePlaceOfTheFirst) {
  std::vector<Correction> corrections = {value("A", sire_column, "x", "y"), value("B", sire_column, "x", "y")};
  add_correction(corrections, value("A", sire_column, "y", "z"));
  EXPECT_EQ(corrections, (std::vector{value("A", sire_column, "x", "z"), value("B", sire_column, "x", "y")}));
  add_correction(corrections, value("A", dam_column, "", "q"));
  EXPECT_EQ(corrections.size(), 3U);
}

TEST(AddCorrection, WhatComesBackToWhereItWasIsDropped) {
  std::vector<Correction> corrections = {value("A", sire_column, "x", "y")};
  add_correction(corrections, value("A", sire_column, "y", "x"));
  EXPECT_TRUE(corrections.empty());
}

TEST(AddCorrection, OneThatDoesNotFollowTheFirstStandsBesideIt) {
  std::vector<Correction> corrections = {value("A", sire_column, "x", "y")};
  add_correction(corrections, value("A", sire_column, "q", "z"));
  EXPECT_EQ(corrections.size(), 2U) << "two lines have the identification";
  corrections = {value("A", id_column, "A", "B")};
  add_correction(corrections, value("A", id_column, "B", "C"));
  EXPECT_EQ(corrections.size(), 2U);
}

TEST(CorrectionCell, HasNoTabsAndLineEnds) {
  EXPECT_EQ(correction_cell("  a\tb\r\nc  "), "a b  c");
  EXPECT_EQ(correction_cell(" \t"), "");
}

}  // namespace
}  // namespace pedigreewatch::test
