// Whole runs of `pedigreewatch-tools prepare` followed by the program itself: what an office exports gives the report
// of the population that it was made from.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "support/lines.h"
#include "support/office_export.h"
#include "support/prepared_run.h"
#include "support/program_run.h"
#include "support/sanitizers.h"

namespace pedigreewatch::test {
namespace {

constexpr int animal_count = 240;

const std::string subpopulations =
    "North,Zu\xC3\xAF"
    "d,West";

/// What every preparation of the population is told, and what else a test wants.
std::vector<std::string> settings_and(const std::vector<std::string>& options) {
  std::vector<std::string> all = {"--species",        "sheep",        "--name",    "Moorland",
                                  "--subpopulations", subpopulations, "--colours", "black,white"};
  all.insert(all.end(), options.begin(), options.end());
  return all;
}

/// The report of the program on its own form of the population.
const std::string& expected_report() {
  static const std::string report = [] {
    const auto animals = make_office_population(animal_count, 5);
    const WholeRun run =
        run_program_on({{"pedigreewatch.ini", write_steer_file("herd.txt")}, {"herd.txt", write_data_file(animals)}});
    EXPECT_EQ(run.exit_status, 0) << run.messages;
    return run.file("herd.out");
  }();
  return report;
}

/// Prepares the export and runs the program on what comes out.
WholeRun prepare_and_run(const std::string& bytes, const std::vector<std::string>& options = {}) {
  return run_prepared("herd.csv", bytes, settings_and(options));
}

const std::vector<std::string> layouts = {"yyyy-mm-dd", "time",       "yyyy-dd-mm", "dd-mm-yyyy",
                                          "d/m/yyyy",   "dd.mm.yyyy", "mm/dd/yyyy", "ddmmyyyy",
                                          "yyyymmdd",   "mmddyyyy",   "yyyyddmm",   "d mon yyyy"};

class ExportForms : public testing::TestWithParam<std::tuple<const char*, char>> {};

TEST_P(ExportForms, GiveTheReportOfThePopulation) {
  const auto [encoding, delimiter] = GetParam();
  const auto animals = make_office_population(animal_count, 5);
  // With sanitizers each form has every fourth layout, and each layout a quarter of the forms.
  const auto step = static_cast<std::size_t>(cases(1, 4));
  const std::size_t first = (std::string_view(encoding).size() + static_cast<std::size_t>(delimiter)) % step;
  for (std::size_t k = first; k < layouts.size(); k += step) {
    const std::string& layout = layouts[k];
    const WholeRun run =
        prepare_and_run(write_export(animals, {.encoding = encoding, .delimiter = delimiter, .layout = layout}));
    EXPECT_EQ(run.exit_status, 0) << layout;
    EXPECT_EQ(run.messages, "") << layout;
    EXPECT_EQ(run.file("herd.out"), expected_report()) << layout;
  }
}

INSTANTIATE_TEST_SUITE_P(WholeRun, ExportForms,
                         testing::Combine(testing::Values("utf-8", "utf-8-mark", "utf-16le", "utf-16be",
                                                          "utf-16le-bare", "1252"),
                                          testing::Values(';', ',', '\t', '|')));

TEST(PreparedExport, LineEndsMakeNoDifference) {
  const auto animals = make_office_population(animal_count, 5);
  for (const std::string line_end : {"\n", "\r\n", "\r"}) {
    const WholeRun run = prepare_and_run(write_export(animals, {.line_end = line_end}));
    ASSERT_EQ(run.exit_status, 0) << run.messages;
    EXPECT_EQ(run.file("herd.out"), expected_report());
  }
}

TEST(PreparedExport, QuotationMarksAroundEverythingMakeNoDifference) {
  const auto animals = make_office_population(animal_count, 5);
  const WholeRun run = prepare_and_run(write_export(animals, {.quotes_all = true}));
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("herd.out"), expected_report());
}

TEST(PreparedExport, WithoutHeaderGivesTheSameReport) {
  const auto animals = make_office_population(animal_count, 5);
  const WholeRun run = prepare_and_run(
      write_export(animals, {.delimiter = ';', .has_header = false}),
      {"--column=id=2", "--column=name=3", "--column=sex=4", "--column=birthdate=5", "--column=sire=6",
       "--column=dam=7", "--column=colour=8", "--column=breeder=9", "--column=subpopulation=10", "--column=import=11"});
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("herd.out"), expected_report());
}

TEST(PreparedExport, NumbersForSexesAreDecidedByTheParents) {
  const auto animals = make_office_population(animal_count, 5);
  const std::string bytes = write_export(animals, {.male = "1", .female = "2"});
  EXPECT_EQ(prepare_and_run(bytes).file("herd.out"), expected_report());
  EXPECT_EQ(prepare_and_run(bytes, {"--male", "1"}).file("herd.out"), expected_report());
  EXPECT_NE(prepare_and_run(bytes, {"--female", "1"}).file("herd.out"), expected_report());
}

TEST(PreparedExport, OtherWordsForUnknownParentsNeedTheOption) {
  const auto animals = make_office_population(animal_count, 5);
  const std::string bytes = write_export(animals, {.unknown_parent = "stray"});
  EXPECT_NE(prepare_and_run(bytes, {"--known", "all"}).file("herd.out"), expected_report());
  EXPECT_EQ(prepare_and_run(bytes, {"--unknown", "stray"}).file("herd.out"), expected_report());
}

TEST(PreparedDataFile, ThatIsInTheProgramsFormChangesNoByteOfTheReport) {
  const auto animals = make_office_population(animal_count, 5);
  const WholeRun run = prepare_and_run(write_data_file(animals));
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("herd.out"), expected_report());
}

// What was prepared once is prepared again, in a folder of its own.
TEST(PreparedDataFile, IsTheSameWhenItIsPreparedAgain) {
  const auto animals = make_office_population(animal_count, 5);
  const RunFolder folder({{"herd.csv", write_export(animals, {})}, {"again/", ""}});
  const WholeRun once = run_program_in(folder, prepare_with(settings_and({}), "herd.csv"));
  ASSERT_EQ(once.exit_status, 0) << once.messages;
  const WholeRun twice = run_program_in(folder, prepare_with(settings_and({"--out", "again"}), "herd.txt"));
  ASSERT_EQ(twice.exit_status, 0) << twice.messages;
  const Files expected = {{"herd.txt", once.file("herd.txt")}, {"pedigreewatch.ini", once.file("pedigreewatch.ini")}};
  Files again = files_in(folder.path("again"));
  EXPECT_EQ(again["herd.lines"],
            "# lines of the export 1\nexport\therd.txt\ndata\t" + std::to_string(again["herd.txt"].size()) + "\t10\n");
  again.erase("herd.lines");
  again.erase("herd.answers");
  EXPECT_EQ(again, expected);
}

TEST(PreparedExport, IsShownAndNotWrittenInADryRun) {
  const WholeRun run = run_program_on({{"export.csv", "id;sire;dam;sex;born\nrex;;;m;2001\nbram;rex;;m;2003\n"}},
                                      prepare_with({"--species", "dog", "--dry-run"}, "export.csv"));
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.files.size(), 1U) << "only the export";
  EXPECT_TRUE(
      has(run.console, "Nothing was written (--dry-run). It would have been export.txt and pedigreewatch.ini.\n"));
}

TEST(PreparedExport, IsAskedAllQuestionsAtOnce) {
  const WholeRun run =
      run_program_on({{"export.csv", "key;sire;father;dam;sex;born\n1;;;;1;04-05-2001\n2;1;1;;2;06-07-2003\n"}},
                     prepare_with({}, "export.csv"));
  EXPECT_EQ(run.exit_status, 1);
  for (const char* const option : {"--column id=", "--column sire=NUMBER", "--dates dd-mm-yyyy or --dates mm-dd-yyyy",
                                   "--male TEXT", "--species dog"}) {
    EXPECT_TRUE(has(run.messages, option));
  }
  EXPECT_EQ(run.files.size(), 1U) << "only the export";
}

TEST(PreparedExport, InDutchHasDutchHeadingsAndLayout) {
  const WholeRun run =
      run_program_on({{"schapen.csv", "Diernummer,Vader,Moeder,Geslacht,Geboren\nA,onbekend,,ram,2001-02-28\n"}},
                     prepare_with({"--language", "nl"}, "schapen.csv"));
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("schapen.txt"), "id;sekse;geboortedatum;vader;moeder\nA;m;2001-02-28;;\n");
  EXPECT_EQ(run.file("pedigreewatch.ini"), "schapen\nschapen.txt\n;\nn\njjjj-mm-dd\nschaap\nm\nnl\ny\n0\n0\n");
}

/// Three rams and sixteen ewes of which the young name the ear tags; the id is a running number.
std::string herd_of_ear_tags() {
  std::string text = "ID;Ear tag;Sire;Dam;Sex;Born\n";
  for (int i = 1; i <= 39; ++i) {
    const auto tag = [](int number) { return "NL0" + std::to_string(10 + number); };
    const bool is_young = i > 19;
    text += std::to_string(i) + ";" + tag(i + 5) + ";" + (is_young ? tag(i % 3 + 6) : "") + ";" +
            (is_young ? tag(i % 16 + 9) : "") + ";" + (i <= 3 ? "M" : "F") + ";13-04-20" + (is_young ? "13" : "10") +
            "\n";
  }
  return text;
}

TEST(Prepare, AColumnThatHoldsTheParentsGoesBeforeARule) {
  const ProgramStart start = prepare_with({"--species", "sheep"}, "export.csv");
  const WholeRun run = run_program_on({{"export.csv", herd_of_ear_tags()}}, start);
  EXPECT_FALSE(has(run.messages, "--ids")) << run.messages;
  EXPECT_TRUE(has(run.messages, "Columns in which most of them stand: \"Ear tag\" (column 2: 19 of 19)"))
      << run.messages;
}

TEST(Prepare, TheColumnInUseIsNotAmongThoseNotUsed) {
  const ProgramStart start = prepare_with({"--species", "sheep", "--column", "id=Ear tag"}, "export.csv");
  const WholeRun run = run_program_on({{"export.csv", herd_of_ear_tags()}}, start);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_FALSE(has(run.console, "not used: \"Ear tag\"")) << run.console;
}

// A ram and three ewes: too few parents to tell that hardly any of them has a line.
TEST(Prepare, AColumnThatHoldsFewParentsGoesBeforeARuleToo) {
  std::string text = "ID;Ear tag;Sire;Dam;Sex;Born\n";
  const auto tag = [](int id) { return "NL0" + std::to_string(15 + id); };
  for (int i = 1; i <= 30; ++i) {
    const bool is_young = i > 4;
    text += std::to_string(i) + ";" + tag(i) + ";" + (is_young ? tag(1) + ";" + tag(i % 3 + 2) : ";") + ";" +
            (i == 1 ? "M" : "F") + ";13-04-20" + (is_young ? "13" : "10") + "\n";
  }
  const WholeRun run = run_program_on({{"export.csv", text}}, prepare_with({"--species", "sheep"}, "export.csv"));
  EXPECT_FALSE(has(run.messages, "--ids")) << run.messages;
  EXPECT_TRUE(has(run.messages,
                  "Several columns could hold the id of the animal: \"ID\" (column 1), \"Ear tag\" "
                  "(column 2). Choose one: --column id=NUMBER."))
      << run.messages;
}

/// Three rams, sixteen ewes, twenty young. Ids are running numbers, and so are the ear tags that the young name: those
/// of the parents are the ids of young, all of them ewes.
std::string herd_of_numeric_ear_tags() {
  constexpr int animals = 39, parents = 19;
  std::string text = "ID;Ear tag;Sire;Dam;Sex;Born\n";
  const auto tag = [](int id) { return std::to_string((id + parents) % animals + 1); };
  for (int i = 1; i <= animals; ++i) {
    const bool is_young = i > parents;
    text += std::to_string(i) + ";" + tag(i) + ";" + (is_young ? tag(i % 3 + 1) + ";" + tag(i % 16 + 4) : ";") + ";" +
            (i <= 3 ? "M" : "F") + ";13-04-20" + (is_young ? "13" : "10") + "\n";
  }
  return text;
}

TEST(Prepare, ParentsThatAreNumbersOfTwoColumnsAreAskedAboutWithTheirSexes) {
  const std::string text = herd_of_numeric_ear_tags();
  const WholeRun run = run_program_on({{"export.csv", text}}, prepare_with({"--species", "sheep"}, "export.csv"));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages,
                  "Several columns could hold the id of the animal: \"ID\" (column 1), \"Ear tag\" "
                  "(column 2). Choose one: --column id=NUMBER."))
      << run.messages;
  EXPECT_TRUE(has(run.messages,
                  "\"ID\" (column 1): 39 texts, 39 different, of the first 39 are dates: 0; such as \"1\", \"2\", "
                  "\"3\"; of 16 texts of \"Dam\" (column 4) stand in \"ID\" (column 1): 16; if it is the id of the "
                  "animals, 3 of 19 parents whose sex is known are of the wrong sex\n"))
      << run.messages;
  EXPECT_TRUE(has(run.messages,
                  "\"Ear tag\" (column 2): 16; if it is the id of the animals, 0 of 19 parents whose sex "
                  "is known are of the wrong sex"))
      << run.messages;
  EXPECT_FALSE(has(run.messages, "--column sire=")) << "the ids are the cause";
}

TEST(Prepare, AChosenIdIsAskedForNoMore) {
  const ProgramStart start = prepare_with({"--species", "sheep", "--column", "id=Ear tag"}, "export.csv");
  const WholeRun run = run_program_on({{"export.csv", herd_of_numeric_ear_tags()}}, start);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.file("export.txt"), "\n21;m;13-04-2010;;\n")) << run.file("export.txt");
}

}  // namespace
}  // namespace pedigreewatch::test
