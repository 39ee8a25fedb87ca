#include "tables/column_names.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(NamePart, KeepsSmallLettersAndDigits) {
  EXPECT_EQ(name_part("Rood-bont 2"), "rood_bont_2");
  EXPECT_EQ(name_part("  black & white  "), "black_white");
  EXPECT_EQ(name_part("niet erkend"), "niet_erkend");
}

TEST(NamePart, WritesAccentsWithPlainLetters) {
  EXPECT_EQ(name_part("Caf\xE9"), "cafe");      // Windows-1252
  EXPECT_EQ(name_part("Caf\xC3\xA9"), "cafe");  // UTF-8
  EXPECT_EQ(name_part("Stra\xDF"
                      "e"),
            "strasse");
}

TEST(NamePart, IsEmptyWhenNothingIsLeft) {
  EXPECT_EQ(name_part("???"), "");
  EXPECT_EQ(name_part(""), "");
}

TEST(TakenNames, GiveEachNameOnceWhateverTheCaseOfItsLetters) {
  TakenNames taken;
  EXPECT_EQ(take_name(taken, "F_mean"), "F_mean");
  EXPECT_EQ(take_name(taken, "f_mean"), "f_mean_2");
  EXPECT_EQ(take_name(taken, "colour_red_2"), "colour_red_2");
  EXPECT_EQ(take_name(taken, "colour_red"), "colour_red");
  EXPECT_EQ(take_name(taken, "colour_red"), "colour_red_3");  // "_2" is the name of another column
}

TEST(TakenNames, CountOnWhereAnEqualNameStoodBefore) {
  TakenNames taken;
  constexpr int columns = 100'000;  // as many as a steer file may name colours: looking again from 2 on takes minutes
  for (int k = 1; k < columns; ++k) take_name(taken, "colour_red");
  EXPECT_EQ(take_name(taken, "Colour_Red"), "Colour_Red_100000");
}

}  // namespace
}  // namespace pedigreewatch::test
