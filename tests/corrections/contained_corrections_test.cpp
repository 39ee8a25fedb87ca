#include "corrections/contained_corrections.h"

#include <gtest/gtest.h>

#include <vector>

namespace pedigreewatch::test {
namespace {

using Lines = std::vector<std::string>;

TEST(ContainedCorrections, AreToldByTheLastLineOfTheSteerFile) {
  EXPECT_EQ(corrections_line(3, 4812), "corrections=3 bytes=4812\n");
  EXPECT_EQ(corrections_told(Lines{"Sheep", "0", "corrections=3 bytes=4812"}, 4812), 3);
  EXPECT_EQ(corrections_told(Lines{"0", "corrections=12 bytes=7\r", "", ""}, 7), 12);
}

TEST(ContainedCorrections, NoneLeaveNoLine) {
  EXPECT_EQ(corrections_line(0, 4812), "");
  EXPECT_EQ(corrections_told({}, 0), 0);
  EXPECT_EQ(corrections_told(Lines{"Sheep", "0"}, 4812), 0);
}

TEST(ContainedCorrections, OfAnotherDataFileNothingIsTold) {
  const Lines lines = {"corrections=3 bytes=4812"};
  EXPECT_EQ(corrections_told(lines, 4811), 0);
  EXPECT_EQ(corrections_told(lines, -1), 0);
}

TEST(ContainedCorrections, WhatIsNoSuchLineTellsNothing) {
  for (const char* const line :
       {"corrections=x bytes=7", "corrections=3 bytes=7 more", "corrections=-3 bytes=7", "corrections=3",
        "bytes=7 corrections=3", " corrections=3 bytes=7", "corrections=99999999999999999999 bytes=7"}) {
    EXPECT_EQ(corrections_told(Lines{line}, 7), 0) << line;
  }
  EXPECT_EQ(corrections_told(Lines{"corrections=3 bytes=7", "white"}, 7), 0) << "a name stands behind it";
}

TEST(ContainedCorrections, TheirLineIsTheLastOne) {
  EXPECT_EQ(place_of_corrections_line(Lines{"Sheep", "0", "corrections=3 bytes=7"}), 2U);
  EXPECT_EQ(place_of_corrections_line(Lines{"Sheep", "corrections=3 bytes=7\r", "\r", ""}), 1U);
  EXPECT_EQ(place_of_corrections_line(Lines{"corrections=3 bytes=7", "white"}), 2U);
  EXPECT_EQ(place_of_corrections_line(Lines{"0", "corrections=3"}), 2U);
  EXPECT_EQ(place_of_corrections_line({}), 0U);
}

TEST(ContainedCorrections, AreSaidInBothLanguages) {
  EXPECT_EQ(contained_corrections(3, ToolLanguage::english),
            "Corrections that these results contain and the export does not: 3.");
  EXPECT_EQ(contained_corrections(3, ToolLanguage::dutch),
            "Correcties die in deze resultaten zitten en niet in de export: 3.");
}

}  // namespace
}  // namespace pedigreewatch::test
