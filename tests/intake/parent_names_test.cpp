#include "intake/parent_names.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/animal_lines.h"

namespace pedigreewatch::test {
namespace {

struct NamedYoung {
  std::string father;  ///< as the line names him
  int count = 1;
};

/// Ten sires r0 to r9 called Rex0 to Rex9, and young of r0 with these names of their father.
std::string herd_with_names(const std::vector<NamedYoung>& young) {
  std::string text = "ID;Name;Sex;Born;Sire ID;Dam ID;Sire name;Dam name\n";
  for (int k = 0; k < 10; ++k) text += "r" + std::to_string(k) + ";Rex" + std::to_string(k) + ";m;1-1-2000;;;;\n";
  int number = 0;
  for (const NamedYoung& each : young) {
    for (int k = 0; k < each.count; ++k) {
      text += "y" + std::to_string(++number) + ";Young;f;1-1-2003;r0;;" + each.father + ";\n";
    }
  }
  return text;
}

/// The names of fathers that contradict, in the order of the lines.
std::vector<std::string> contradictions_in(const std::string& text) {
  const ColumnChoice columns = choose_columns(
      std::vector<std::string>{"ID", "Name", "Sex", "Born", "Sire ID", "Dam ID", "Sire name", "Dam name"}, {});
  const ParentNames names = find_parent_names(text, ';', columns);
  std::vector<std::string> found;
  RecordReader reader = read_animals(text, ';', columns);
  ExportRecord record;
  while (next_animal(reader, record, columns)) {
    const std::string_view name = contradicting_name(names, record, columns, 0);
    if (!name.empty()) found.emplace_back(name);
    EXPECT_EQ(contradicting_name(names, record, columns, 1), "");
  }
  return found;
}

using Found = std::vector<std::string>;

TEST(ParentNames, ContradictWhereTheyAreThoseOfAnotherAnimal) {
  EXPECT_EQ(contradictions_in(herd_with_names({{"Rex0", 30}, {"Rex7", 2}})), (Found{"Rex7", "Rex7"}));
  // Capitals and blanks do not matter; a name that nobody has may be his other one; so may a part of it.
  EXPECT_TRUE(contradictions_in(herd_with_names({{"REX 0", 30}, {"Max"}, {"Rex"}, {"Rex0 of Hill"}, {"?"}})).empty());
}

TEST(ParentNames, AreComparedWhereTheColumnMostlyAgrees) {
  EXPECT_EQ(contradictions_in(herd_with_names({{"Rex0", 19}, {"Rex7"}})), Found{"Rex7"});
  EXPECT_TRUE(contradictions_in(herd_with_names({{"Rex0", 18}, {"Rex7"}})).empty()) << "too few";
  EXPECT_EQ(contradictions_in(herd_with_names({{"Rex0", 19}, {"Rex7", 2}})), (Found{"Rex7", "Rex7"}));
  EXPECT_TRUE(contradictions_in(herd_with_names({{"Rex0", 18}, {"Rex7", 2}})).empty()) << "one in ten";
}

}  // namespace
}  // namespace pedigreewatch::test
