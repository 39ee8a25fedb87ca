#include "intake/parent_names.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/animal_lines.h"
#include "support/lines.h"
#include "support/prepared_run.h"
#include "support/run_folder.h"

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

// The first three have a father that nobody can look up; "?" is no name, and where an id stands nothing is lost.
TEST(ParentNames, WithoutAnIdAreTold) {
  const std::string export_text =
      "ID;Name;Sex;Born;Sire ID;Dam ID;Sire name;Dam name\n"
      "r1;Rex;m;31-1-2000;;;;\nq1;Queen;f;31-1-2000;;;;\ny1;Young;f;31-1-2003;;q1;Max of Hill;Queen\n"
      "y2;Younger;m;31-1-2003;unknown;;Max of Hill;Bea\ny3;Youngest;m;31-1-2003;r1;q1;Rex;Queen\n"
      "y4;Last;f;31-1-2003;;q1;?;Queen\n";
  const RunFolder folder(Files{{"dogs.csv", export_text}});
  const WholeRun run = run_program_in(folder, prepare_with({"--species", "dog"}, "dogs.csv"));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console,
                  "              fathers that have a name and no id, and stay unknown: 2: line 4 \"Max of Hill\", line "
                  "5 \"Max of Hill\"\n"
                  "              mothers that have a name and no id, and stay unknown: 1: line 5 \"Bea\"\n"))
      << run.console;
}

TEST(ParentNames, TwoThousandLinesTellWhetherTheColumnAgrees) {
  EXPECT_EQ(contradictions_in(herd_with_names({{"Rex7", 199}, {"Rex0", 1801}, {"Rex7"}, {"Rex0", 100}})).size(), 200U);
  EXPECT_TRUE(contradictions_in(herd_with_names({{"Rex7", 199}, {"Rex0", 1800}, {"Rex7"}, {"Rex0", 100}})).empty())
      << "one in ten of the first two thousand";
}

}  // namespace
}  // namespace pedigreewatch::test
