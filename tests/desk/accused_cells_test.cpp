// What is given up of each kind of finding: the cells that it accuses and no others; without them it is gone.
#include "desk/accused_cells.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "checks/finding_kinds.h"
#include "support/check_runs.h"

namespace pedigreewatch {
namespace {

using Texts = std::vector<std::string>;

constexpr std::string_view head = "id;sex;birthdate;sire;dam\n";

struct AccusedCase {
  std::string_view kind;
  bool dates = false;
  std::string_view name;    ///< tells cases of one kind apart
  std::string animals;      ///< behind the header
  Texts cells;              ///< "line id field" of what is given up; "*" for all animals of the line
  ExportLines origin = {};  ///< notes of the export, where the finding comes from one
};

void PrintTo(const AccusedCase& each, std::ostream* stream) {
  *stream << each.kind << ' ' << each.name;
}

const std::string parent_lines = "a;m;01-01-2000;;\nb;f;01-02-2000;;\n";

ExportLines export_with(ExportNoteKind kind, std::int32_t line, std::string text) {
  return ExportLines{"herd.csv", 0, line, {}, {{kind, line, std::move(text)}}};
}

std::vector<AccusedCase> date_cases() {
  return {
      {"date-unreadable", true, "", parent_lines + "c;m;31-o2-2001;a;b\n", {"4 c birthdate"}},
      {"date-impossible", true, "", parent_lines + "c;m;31-02-2001;a;b\n", {"4 c birthdate"}},
      {"date-text",
       true,
       "",
       parent_lines + "c;m;;a;b\n",
       {"4 c birthdate"},
       export_with(ExportNoteKind::date, 4, "soon")},
      {"year-placeholder",
       true,
       "_of_two",
       parent_lines + "c;m;01-01-1900;a;b\nd;f;01-01-1900;;\n",
       {"4 * birthdate", "5 * birthdate"}},
      {"year-future", true, "", parent_lines + "c;m;01-03-2091;a;b\n", {"4 c birthdate"}},
      {"year-far-out",
       true,
       "_of_two",
       parent_lines + "c;m;01-03-2001;a;b\nd;f;01-01-1801;;\ne;f;01-02-1801;;\n",
       {"5 d birthdate", "6 e birthdate"}},
      {"year-lone", true, "", parent_lines + "c;m;01-03-2001;a;b\nd;f;01-01-1960;;\n", {"5 d birthdate"}},
      {"year-two-digits", true, "", parent_lines + "c;m;01-03-01;a;b\n", {"4 c birthdate"}},
      {"date-contradicted", true, "", parent_lines + "c;m;01-12-1999;a;b\n", {"4 c birthdate"}},
      {"born-before-parent", true, "", parent_lines + "c;m;01-12-1999;a;\n", {"4 c birthdate"}},
      {"parent-too-young", true, "", parent_lines + "c;m;01-06-2000;;b\n", {"4 c birthdate"}},
      {"age-figures",
       true,
       "_of_two",
       parent_lines + "c;m;01-03-52000;a;b\nd;m;02-03-52000;a;b\n",
       {"4 c birthdate", "5 d birthdate"}},
  };
}

/// Each with another parent or animal that is right and keeps what it has.
std::vector<AccusedCase> parent_cases() {
  const std::string fathers = "a;m;01-01-2000;;\nb;f;01-02-2000;;\nr;m;01-03-1999;;\n";
  return {
      {"born-before-parent", false, "_sire", "a;m;01-01-2000;;\nb;f;01-02-1998;;\nc;m;01-12-1999;a;b\n", {"4 c sire"}},
      {"born-before-parent", false, "_dam", "a;m;01-01-1998;;\nb;f;01-02-2000;;\nc;m;01-12-1999;a;b\n", {"4 c dam"}},
      {"parent-too-young", false, "_dam", "a;m;01-01-1998;;\nb;f;01-02-2000;;\nc;m;01-06-2000;a;b\n", {"4 c dam"}},
      // The older of the two is the wrong one of the loop, whichever stands first.
      {"loop", false, "_first", "c;m;01-02-2001;d;e\nd;m;01-02-2003;c;e\ne;f;01-02-1999;;\n", {"2 c sire"}},
      {"loop", false, "_second", "d;m;01-02-2003;c;e\nc;m;01-02-2001;d;e\ne;f;01-02-1999;;\n", {"3 c sire"}},
      {"loop", false, "_dam", "d;f;01-02-2003;r;c\nc;f;01-02-2001;r;d\nr;m;01-02-1999;;\n", {"3 c dam"}},
      {"loop", false, "_without_dates", "a;m;;r;b\nb;f;;a;\nr;m;01-02-1999;;\n", {"2 a dam"}},
      {"loop", false, "_of_one", "a;f;01-02-1999;r;a\nr;m;01-02-1998;;\n", {"2 a dam"}},
      {"same-parents", false, "_rare_sire", parent_lines + "c;m;01-03-2001;b;b\nd;m;01-03-2002;a;b\n", {"4 c sire"}},
      {"same-parents", false, "_rare_dam", parent_lines + "c;m;01-03-2001;a;a\nd;m;01-03-2002;a;b\n", {"4 c dam"}},
      {"same-parents", false, "_ewe", parent_lines + "c;m;01-03-2001;b;b\n", {"4 c sire"}},
      {"same-parents", false, "_ram", parent_lines + "c;m;01-03-2001;a;a\n", {"4 c dam"}},
      {"both-roles",
       false,
       "_dam_once",
       fathers + "c;m;01-03-2001;a;b\nd;m;01-03-2002;a;b\ne;f;01-03-2003;r;a\n",
       {"7 e dam"}},
      {"both-roles",
       false,
       "_sire_twice",
       fathers + "c;m;01-03-2001;r;b\nd;m;01-03-2002;b;\ne;m;01-03-2003;b;\nf;m;01-03-2004;r;b\ng;m;01-03-2005;r;b\n",
       {"6 d sire", "7 e sire"}},
      {"unknown-word", false, "", parent_lines + "c;m;01-03-2001;NA;b\nd;m;01-03-2002;a;NA\n", {"4 c sire", "5 d dam"}},
      {"unknown-perhaps",
       false,
       "",
       "a1;m;01-01-2000;;\nb1;f;01-02-2000;;\nc1;m;01-03-2001;Hok;b1\nd1;m;01-03-2002;a1;Hok\n",
       {"4 c1 sire", "5 d1 dam"}},
  };
}

CheckResult checked_case(const AccusedCase& each, const std::string& data) {
  CheckSettings settings = test::check_settings(test::sheep_steer());
  if (!each.origin.notes.empty()) settings.export_lines = each.origin;
  return test::checked(data, settings);
}

std::vector<AccusedCell> cells_of_kind(const CheckResult& check, std::string_view kind, bool dates) {
  std::vector<const Finding*> findings;
  for (const Finding& finding : check.findings.list) {
    if (kind_of(finding.code).name == kind) findings.push_back(&finding);
  }
  return accused_cells(check, findings, dates);
}

std::string_view name_of(FieldCode field) {
  return field == birthdate_column ? "birthdate" : field == sire_column ? "sire" : "dam";
}

Texts texts_of(const std::vector<AccusedCell>& cells) {
  Texts texts;
  for (const AccusedCell& cell : cells) {
    texts.push_back(std::to_string(cell.line) + " " + (cell.id.empty() ? "*" : cell.id) + " " +
                    std::string(name_of(cell.field)));
  }
  std::sort(texts.begin(), texts.end());
  return texts;
}

/// The data with these cells empty.
std::string without(const std::string& data, const std::vector<AccusedCell>& cells) {
  std::string kept;
  std::int64_t line = 1;
  std::size_t column = 0;
  const auto is_accused = [&](const AccusedCell& cell) {
    const std::size_t place = cell.field == birthdate_column ? 2 : cell.field == sire_column ? 3 : 4;
    return cell.line == line && place == column;
  };
  for (const char letter : data) {
    if (letter == ';' || letter == '\n') {
      column = letter == ';' ? column + 1 : 0;
      line += letter == '\n' ? 1 : 0;
    } else if (std::any_of(cells.begin(), cells.end(), is_accused)) {
      continue;
    }
    kept += letter;
  }
  return kept;
}

class AccusedCells : public testing::TestWithParam<AccusedCase> {};

TEST_P(AccusedCells, AreThoseThatTheFindingIsAboutAndItIsGoneWithoutThem) {
  const AccusedCase& each = GetParam();
  const std::string data = std::string(head) + each.animals;
  const std::vector<AccusedCell> cells = cells_of_kind(checked_case(each, data), each.kind, each.dates);
  EXPECT_EQ(texts_of(cells), each.cells);
  AccusedCase after = each;
  after.origin = {};
  for (const Finding& finding : checked_case(after, without(data, cells)).findings.list) {
    EXPECT_NE(kind_of(finding.code).name, each.kind);
  }
}

std::vector<AccusedCase> all_cases() {
  std::vector<AccusedCase> cases = date_cases();
  for (AccusedCase& each : parent_cases()) cases.push_back(std::move(each));
  cases.push_back({"parent-name",
                   false,
                   "",
                   parent_lines + "c;m;01-03-2001;a;b\n",
                   {"4 c sire"},
                   export_with(ExportNoteKind::sire_name, 4, "Cor")});
  return cases;
}

INSTANTIATE_TEST_SUITE_P(All, AccusedCells, testing::ValuesIn(all_cases()), [](const auto& each) {
  std::string name =
      std::string(each.param.kind) + (each.param.dates ? "_dates" : "_parents") + std::string(each.param.name);
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

TEST(WaysOn, EveryKindWithOneHasACase) {
  std::set<std::string> expected, tested;
  for (std::size_t k = 0; k < finding_code_count; ++k) {
    const FindingKind& kind = kind_of(static_cast<FindingCode>(k));
    const WaysOn ways = ways_on(kind.code);
    if (ways.dates) expected.insert(std::string(kind.name) + " dates");
    if (ways.parents) expected.insert(std::string(kind.name) + " parents");
  }
  for (const AccusedCase& each : all_cases()) {
    tested.insert(std::string(each.kind) + (each.dates ? " dates" : " parents"));
  }
  EXPECT_EQ(tested, expected);
}

TEST(WaysOn, OfAFindingThatCannotTellTheWrongParentThereIsNone) {
  const auto ways_of = [](const std::string& animals, FindingCode code) {
    const CheckResult check = test::checked_sheep(std::string(head) + animals);
    Texts texts;
    for (const Finding& finding : check.findings.list) {
      if (finding.code == code) texts.emplace_back(ways_on(finding).parents ? "parents" : "none");
    }
    return texts;
  };
  const std::string once = parent_lines + "c;m;01-03-2001;a;b\n";
  EXPECT_EQ(ways_of(once + "d;f;01-04-2001;;a\n", FindingCode::both_roles), Texts{"none"});
  EXPECT_EQ(ways_of(once + "d;f;01-04-2001;;a\ne;f;01-04-2002;a;\n", FindingCode::both_roles), Texts{"parents"});
  EXPECT_EQ(ways_of("c;m;01-03-2001;x1;x1\n", FindingCode::same_parents), Texts{"none"});
  EXPECT_EQ(ways_of("a;f;01-01-2000;;\nb;f;01-02-2000;;\nc;m;01-03-2001;a;b\n", FindingCode::parent_sex),
            Texts{"none"});
}

TEST(ParentsExchanged, AreOfOneLineThatFitsNeitherAndOfNoOther) {
  const auto is_exchanged = [](const std::string& animals, std::int32_t line) {
    return are_parents_exchanged(test::checked_sheep(std::string(head) + animals).findings, line);
  };
  const std::string often = parent_lines + "c;m;01-03-2001;a;b\nd;m;01-03-2002;a;b\n";
  EXPECT_TRUE(is_exchanged(often + "e;f;01-03-2003;b;a\n", 6)) << "each is known twice in the other role";
  EXPECT_FALSE(is_exchanged(often + "e;f;01-03-2003;b;a\n", 4));
  EXPECT_FALSE(is_exchanged(often + "e;f;01-03-2003;b;a\nf;f;01-03-2004;b;a\n", 6)) << "as often as not";
  EXPECT_FALSE(is_exchanged(often + "e;f;01-03-2003;b;\n", 6)) << "there is but one parent";
  // Another family shows which sex fathers have.
  const std::string others = "p;m;01-01-2000;;\nq;f;01-01-2000;;\nr;m;01-03-2001;p;q\ns;m;01-03-2002;p;q\n";
  const std::string once = others + parent_lines + "c;m;01-03-2001;b;a\n";
  EXPECT_TRUE(is_exchanged(once, 8)) << "both are of the other sex";
  EXPECT_FALSE(is_exchanged(once + "d;m;01-03-2002;b;a\n", 8)) << "twice: perhaps the sexes are wrong";
  EXPECT_FALSE(is_exchanged(others + "a;f;01-01-2000;;\nb;f;01-02-2000;;\nc;m;01-03-2001;a;b\n", 8)) << "one fits";
}

}  // namespace
}  // namespace pedigreewatch
