// Sexes that no column tells.

#include "intake/concluded_sexes.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch {
namespace {

ColumnChoice columns_without_sexes() {
  ColumnChoice columns;
  columns.has_header = true;
  columns.headings = {"ID", "Sire", "Dam", "Twin"};
  columns.place[id_column] = 0;
  columns.place[sire_column] = 1;
  columns.place[dam_column] = 2;
  return columns;
}

TEST(ConcludeSexes, FathersAreMaleAndMothersFemale) {
  const std::string text = "ID;Sire;Dam;Twin\na;;;\nb;;;\nc;a;b;\nd;c;NL-1;\ne;0;c;\nNL1;;;\n";
  const ConcludedSexes sexes = conclude_sexes(text, ';', columns_without_sexes(), {{"NL-1", "NL1"}});
  EXPECT_EQ(concluded_sex(sexes, "a"), SexMeaning::male);
  EXPECT_EQ(concluded_sex(sexes, "b"), SexMeaning::female);
  EXPECT_EQ(concluded_sex(sexes, "c"), SexMeaning::unknown) << "father and mother";
  EXPECT_EQ(concluded_sex(sexes, "d"), SexMeaning::unknown);
  EXPECT_EQ(concluded_sex(sexes, "NL1"), SexMeaning::female) << "written otherwise as a mother";
  EXPECT_FALSE(sexes.sires.contains("0"));
  EXPECT_EQ(sexes.males, 1);
  EXPECT_EQ(sexes.females, 2);
  EXPECT_EQ(sexes.contradicted, 1);
  EXPECT_EQ(sexes.unknown, 2);
}

TEST(LackSexes, WithoutAColumnOrWithoutOneForTheFurtherYoung) {
  ColumnChoice columns = columns_without_sexes();
  EXPECT_TRUE(lack_sexes(columns));
  EXPECT_TRUE(lacks_sex(columns, false));
  columns.headings.emplace_back("Sex");
  columns.place[sex_column] = 4;
  EXPECT_FALSE(lack_sexes(columns));
  constexpr std::size_t nowhere = SIZE_MAX;
  columns.animals_of_line = {{{0, 0}, {4, 4}}, {{3, 0}, {nowhere, 4}}};
  EXPECT_TRUE(lack_sexes(columns));
  EXPECT_FALSE(lacks_sex(columns, false));
  EXPECT_TRUE(lacks_sex(columns, true));
  columns.animals_of_line[1][1].from = 3;
  EXPECT_FALSE(lack_sexes(columns));
}

TEST(ConcludeSexes, OfTheFurtherYoungOnly) {
  ColumnChoice columns = columns_without_sexes();
  columns.headings.emplace_back("Sex");
  columns.place[sex_column] = 4;
  columns.animals_of_line = {{{0, 0}, {4, 4}}, {{3, 0}, {SIZE_MAX, 4}}};
  const ConcludedSexes sexes = conclude_sexes("ID;Sire;Dam;Twin;Sex\na;;;b;m\nc;a;b;;f\n", ';', columns, {});
  EXPECT_EQ(sexes.males, 0);
  EXPECT_EQ(sexes.females, 1);
  EXPECT_EQ(sexes.unknown, 0);
}

}  // namespace
}  // namespace pedigreewatch
