// What is decided about an export, and the two files that are made of it.
#include "intake/prepared_file.h"

#include <gtest/gtest.h>

#include <string>

#include "intake/console_words.h"
#include "support/prepared_export.h"

namespace pedigreewatch::test {
namespace {

TEST(MakeDataFile, NotesTheLinesThatAreNoAnimals) {
  const Prepared files =
      prepared("id;sire;dam;sex;born\nHS1;;;m;2001\nHS2;;;f;2001\n\nid;sire;dam;sex;born\nHS3;HS1;HS2;m;2003\n");
  ASSERT_EQ(files.lines.left_out.size(), 1U);
  EXPECT_EQ(files.lines.left_out[0].export_line, 5);
  EXPECT_EQ(files.lines.left_out[0].text, "id;sire;dam;sex;born");
}

TEST(MakeDataFile, OneLineForEachAnimalWithTheColumnsInUse) {
  const Prepared files = prepared(
      "Weight;Dam;Sire;ID;Sex;Born\n"
      "1,5;NA;unknown;rex;Male;31/12/2001\n"
      "\n"
      "2;saar;rex;\"br;am\";female;1/1/2003\n");
  EXPECT_EQ(files.data, "id|sex|birthdate|sire|dam\nrex|m|31-12-2001||\nbr;am|f|01-01-2003|rex|saar\n");
  EXPECT_EQ(files.steer, "herd\nherd.txt\n|\nn\ndd-mm-yyyy\nsheep\nm\nen\ny\n0\n0\n");
}

TEST(MakeDataFile, TextsAreWindows1252CutToTheirWidths) {
  const Prepared files =
      prepared("id;sire;dam;sex;born;name;breeder\nrex;;;m;2001;Zo\xC3\xAB  ;" + std::string(25, 'b') + "\n");
  EXPECT_EQ(files.data, "id;name;sex;birthdate;sire;dam;breeder\nrex;Zo\xEB;m;2001;;;" + std::string(20, 'b') + "\n");
}

TEST(MakeDataFile, ImportsThatMeanNoBecomeEmpty) {
  const Prepared files = prepared("id;sire;dam;sex;born;import\na;;;m;2001;no\nb;;;m;2001;Germany\nc;;;m;2001;0\n");
  EXPECT_EQ(files.data, "id;sex;birthdate;sire;dam;Import\na;m;2001;;;\nb;m;2001;;;Germany\nc;m;2001;;;\n");
}

TEST(MakeDataFile, WithoutHeaderTheSteerFileListsTheColumns) {
  PrepareOptions options;
  options.columns = {
      {id_column, "1"}, {sire_column, "2"}, {dam_column, "3"}, {sex_column, "4"}, {birthdate_column, "5"}};
  const Prepared files = prepared("rex;0;0;m;2001\nbram;rex;0;m;2003\n", options);
  EXPECT_EQ(files.data, "rex;m;2001;;\nbram;m;2003;rex;\n\n") << "the program never reads the last line";
  EXPECT_EQ(files.steer,
            "herd\nherd.txt\n;\nn\ndd-mm-yyyy\nsheep\nm\nen\nn\nnumber of columns\n5\ncolumns\n5 1 7 8 2 3\n0\n0\n");
}

TEST(MakeDataFile, TheDelimiterOccursInNoText) {
  const Prepared files = prepared("id,sire,dam,sex,born,name\nrex,,,m,2001,a;b|c\n", {}, ',');
  EXPECT_EQ(files.plan.delimiter, ',');
  const Prepared all = prepared("id,sire,dam,sex,born,name\nrex,,,m,2001,\"a;b|c,d\"\n", {}, ',');
  EXPECT_EQ(all.plan.delimiter, '\t');
}

TEST(PlanPreparation, NamesAreListedWithTheMostFrequentFirst) {
  const std::string lines =
      "id;sire;dam;sex;born;herd;colour\na;;;m;2001;North;grey\nb;;;m;2001;South;grey\nc;;;m;2001;South;\n";
  const Prepared files = prepared(lines);
  EXPECT_EQ(files.plan.subpopulations, (std::vector<std::string>{"South", "North"}));
  EXPECT_TRUE(files.steer.ends_with("y\n2\nSouth\nNorth\n1\ngrey\n"));
  PrepareOptions options;
  options.subpopulations = {.is_given = true, .leaves_out = false, .names = {"West", "North"}};
  options.colours.is_given = options.colours.leaves_out = true;
  EXPECT_TRUE(prepared(lines, options).steer.ends_with("y\n2\nWest\nNorth\n0\n"));
  EXPECT_EQ(prepared(lines, options).data.find("grey"), std::string::npos);
}

TEST(PlanPreparation, ColoursThatTheReportAddsAreNotListed) {
  const std::string lines =
      "id;sire;dam;sex;born;colour\na;;;m;2001;Onbekend\nb;;;m;2001;grey\nc;;;m;2001;niet "
      "erkend\nd;;;m;2001;onbekend\n";
  EXPECT_EQ(prepared(lines).plan.colours, (std::vector<std::string>{"grey", "onbekend"}));
  PrepareOptions options;
  options.colours = {.is_given = true, .leaves_out = false, .names = {"grey", "Onbekend"}};
  EXPECT_EQ(prepared(lines, options).plan.colours, std::vector<std::string>{"grey"});
  EXPECT_NE(prepared(lines).data.find(";Onbekend\n"), std::string::npos) << "what the animals have stays";
}

TEST(PlanPreparation, TooManyNamesAreAskedFor) {
  std::string lines = "id;sire;dam;sex;born;herd\n";
  for (int i = 0; i < 31; ++i) lines += std::to_string(i) + ";;;m;2001;herd " + std::to_string(i) + "\n";
  const Prepared asked = prepared(lines);
  ASSERT_EQ(asked.plan.questions.size(), 1U);
  EXPECT_NE(words_of(asked.plan.questions[0], ToolLanguage::english).find("holds 31 different texts"),
            std::string::npos);
  PrepareOptions options;
  options.subpopulations.is_given = true;
  EXPECT_EQ(prepared(lines, options).plan.subpopulations.size(), 31U);
}

TEST(PlanPreparation, MoreNamesThanTheProgramTakesAreNeverListed) {
  std::string lines = "id;sire;dam;sex;born;herd\n";
  for (int i = 0; i < 5001; ++i) lines += std::to_string(i) + ";;;m;2001;herd " + std::to_string(i) + "\n";
  PrepareOptions options;
  options.subpopulations.is_given = true;
  EXPECT_EQ(prepared(lines, options).plan.questions.size(), 1U);
}

TEST(PlanPreparation, AWordForUnknownThatIsAnAnimalStaysAParent) {
  const std::string one = "id;sire;dam;sex;born\nNil;;;m;2001\nbram;Nil;NA;m;2003\n";
  EXPECT_TRUE(prepared(one).data.ends_with("bram;m;2003;Nil;\n"));
  PrepareOptions options;
  options.unknown = {"Nil"};
  EXPECT_TRUE(prepared(one, options).data.ends_with("bram;m;2003;;\n"));
  // Twice it is no id but the lack of one.
  EXPECT_TRUE(prepared("id;sire;dam;sex;born\nNil;;;m;2001\nNil;;;m;2001\nbram;Nil;NA;m;2003\n")
                  .data.ends_with("bram;m;2003;;\n"));
}

TEST(PlanPreparation, TheMaleOptionIsALetterOrAWord) {
  const std::string lines = "id;sire;dam;sex;born\na;;;Reu;2001\nb;;;r;2001\nc;;;T;2001\nd;;;?;2001\n";
  PrepareOptions options;
  options.male = {"R"};
  EXPECT_EQ(prepared(lines, options).data,
            "id;sex;birthdate;sire;dam\na;m;2001;;\nb;m;2001;;\nc;f;2001;;\nd;;2001;;\n");
  options.male = {"reu"};
  EXPECT_EQ(prepared(lines, options).data,
            "id;sex;birthdate;sire;dam\na;m;2001;;\nb;f;2001;;\nc;f;2001;;\nd;;2001;;\n");
}

TEST(PlanPreparation, TheSpeciesIsToldByTheSexesOrAskedFor) {
  PrepareOptions options;
  options.species = "";
  options.export_name = "x.csv";
  const auto plan_of = [&](const std::string& sexes) {
    const std::string text = "id;sire;dam;sex;born\na;;;" + sexes + ";2001\nb;;;m;2001\n";
    const ColumnChoice columns = choose_columns(std::vector<std::string>{"id", "sire", "dam", "sex", "born"}, options);
    ProgressLine unwatched;
    return plan_preparation(survey_export(text, ';', columns, {}, unwatched), columns, options);
  };
  EXPECT_EQ(plan_of("ooi").species, "sheep");
  EXPECT_TRUE(plan_of("ooi").questions.empty());
  ASSERT_EQ(plan_of("f").questions.size(), 1U);
  EXPECT_NE(words_of(plan_of("f").questions[0], ToolLanguage::english).find("--species"), std::string::npos);
  options.language = ToolLanguage::dutch;
  EXPECT_EQ(plan_of("ooi").species, "schaap");
}

TEST(StemOf, LettersAndDigitsOfTheName) {
  EXPECT_EQ(stem_of("/data/My herd (2024).csv"), "Myherd2024");
  EXPECT_EQ(stem_of("C:\\data\\Zo\xC3\xAB.export.csv"), "Zoexport");
  EXPECT_EQ(stem_of("..."), "herd");
  EXPECT_EQ(stem_of("con.csv"), "con_data");
  EXPECT_EQ(stem_of("--x.csv"), "x");
  EXPECT_EQ(stem_of(std::string(80, 'a') + ".csv"), std::string(26, 'a'));
}

TEST(MakeDataFile, ImportsOf20LettersAreWhole) {
  const auto line_of = [](const std::string& import) {
    const Prepared files = prepared("id;sire;dam;sex;born;import\na;;;m;2001;" + import + "\n");
    return files.data.substr(files.data.find('\n') + 1);
  };
  const std::string twenty(20, 'k');
  EXPECT_EQ(line_of(twenty), "a;m;2001;;;" + twenty + "\n");
  EXPECT_EQ(line_of(twenty + "k"), "a;m;2001;;;" + twenty + "\n");
}

TEST(MakeDataFile, ThousandsSignsOfIdentificationsAreLeftOut) {
  const std::string text = "id;sire;dam;sex;born\n1.200;;;m;2001\n999;;;f;2001\n12.345.678;1.200;999;m;2003\n";
  const Prepared result = prepared(text);
  EXPECT_EQ(result.data, "id;sex;birthdate;sire;dam\n1200;m;2001;;\n999;f;2001;;\n12345678;m;2003;1200;999\n");
  PrepareOptions options;
  options.ids = IdRules{};
  EXPECT_NE(prepared(text, options).data.find("\n12.345.678;m;2003;1.200;999\n"), std::string::npos);
  const std::string mixed = "id;sire;dam;sex;born\n1.200;;;m;2001\nNL1;;;f;2001\n";
  EXPECT_NE(prepared(mixed).data.find("\n1.200;"), std::string::npos);
}

TEST(PlannedId, IsThatOfTheAnimalThatARuleHasFound) {
  PreparePlan plan;
  plan.parent_ids.emplace("NL 12", "NL-12");
  std::string rewritten;
  EXPECT_EQ(planned_id(plan, "NL 12", rewritten), "NL-12");
  EXPECT_EQ(planned_id(plan, "NL 13", rewritten), "NL 13");
}

TEST(PlanPreparation, TheNameOfAPopulationHasFortyLetters) {
  PrepareOptions options;
  options.population_name = std::string(39, 'h') + "\xC3\xAB" + "x";
  const Prepared files = prepared("id;sire;dam;sex;born\na;;;m;2001\n", options);
  EXPECT_EQ(files.plan.population_name, std::string(39, 'h') + "\xEB");
}

}  // namespace
}  // namespace pedigreewatch::test
