// How the letters of an export are read.

#include "intake/export_preparation.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "core/run_streams.h"
#include "support/run_folder.h"
#include "support/workbook_files.h"

namespace pedigreewatch::test {
namespace {

Preparation read_bytes(const std::string& bytes) {
  const RunFolder folder(Files{{"herd.csv", bytes}});
  PrepareOptions options;
  options.export_name = folder.path("herd.csv");
  Preparation read;
  EXPECT_FALSE(read_and_recognise(options, read));
  return read;
}

/// The word by which people see how its letters are read.
std::string example_in(const std::string& word) {
  return read_bytes("id;name\n1;" + word + "\n2;Rex\n").reading.letter_example;
}

TEST(ReadAndRecognise, ShowsFortyBytesOnEachSideOfALetter) {
  const std::string letter = "\xC3\xAB", forty(40, 'a');
  EXPECT_EQ(example_in("Zo" + letter), "Zo" + letter);
  EXPECT_EQ(example_in(forty + letter), forty + letter);
  EXPECT_EQ(example_in("a" + forty + letter), letter);
  EXPECT_EQ(example_in(letter + std::string(38, 'b')), letter + std::string(38, 'b'));
  EXPECT_EQ(example_in(letter + std::string(39, 'b')), letter + std::string(38, 'b'));
}

TEST(ReadAndRecognise, MendsLettersThatWereTurnedThreeTimes) {
  // The sign of a degree comes back as often as that; most letters are asked about the third time.
  const std::string text = "id;name\n1;Rex 5\xC2\xB0\n2;Max 6\xC2\xB0\n";
  const auto turned = [&](int times) {
    std::string bytes = text;
    for (int k = 0; k < times; ++k) bytes = decode(bytes, Encoding::windows_1252).text;
    return bytes;
  };
  EXPECT_EQ(read_bytes(turned(1)).text, text);
  EXPECT_EQ(read_bytes(turned(3)).text, text);
}

/// A workbook of a sheet for each name, each with one dog.
std::string workbook_of_dogs(const std::vector<std::string>& names) {
  std::string rows;
  const std::vector<std::string> cells = {"id", "sire", "dam", "sex", "born", "rex", "", "", "m", "2001-02-03"};
  for (std::size_t row = 0; row < 2; ++row) {
    rows += "<row>";
    for (std::size_t k = 0; k < 5; ++k) {
      rows += "<c t=\"inlineStr\"><is><t>" + cells[row * 5 + k] + "</t></is></c>";
    }
    rows += "</row>";
  }
  WorkbookPieces pieces;
  pieces.names = names;
  pieces.sheets.assign(names.size(), "<sheetData>" + rows + "</sheetData>");
  return workbook_of(pieces);
}

TEST(Decide, AsksWhichOfTheSheetsWithTheSameHeadingsIsMeant) {
  const auto questions_on = [](const std::vector<std::string>& names, const std::string& sheet) {
    const RunFolder folder(Files{{"dogs.xlsx", workbook_of_dogs(names)}});
    PrepareOptions options;
    options.export_name = folder.path("dogs.xlsx");
    options.species = "dog";
    options.sheet = sheet;
    Preparation read;
    ProgressLine unwatched;
    EXPECT_FALSE(read_and_recognise(options, read));
    EXPECT_FALSE(survey_columns(options, unwatched, read));
    decide(options, read);
    return read.plan.questions;
  };
  const std::vector<Question> asked = questions_on({"2001", "2002"}, "");
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_EQ(asked[0].kind, QuestionKind::sheets_alike);
  EXPECT_EQ(asked[0].setting, Setting::sheet);
  EXPECT_EQ(std::get<std::string>(asked[0].values.at(0)), "2001");
  EXPECT_EQ(std::get<CountedList>(asked[0].values.at(1)).texts.at(0).text, "2002");
  ASSERT_EQ(asked[0].answers.size(), 2U);
  EXPECT_EQ(asked[0].answers[1].value, "2002");
  EXPECT_TRUE(questions_on({"2001", "2002"}, "2001").empty());
  EXPECT_TRUE(questions_on({"2001"}, "").empty());
}

// Whoever writes the pipe puts a file in its place before he ends.
TEST(ReadFileBytes, AFileThatIsAnotherAfterwardsHasChanged) {
  const RunFolder folder(Files{{"other", "id;sex\n"}});
  const std::string name = folder.path("list");
  ASSERT_EQ(mkfifo(name.c_str(), 0600), 0);
  std::thread writer([&] {
    const int pipe = ::open(name.c_str(), O_WRONLY | O_CLOEXEC);
    EXPECT_EQ(::write(pipe, "id\n", 3), 3);
    std::filesystem::rename(folder.path("other"), name);
    ::close(pipe);
  });
  std::string bytes;
  EXPECT_EQ(read_file_bytes(name, bytes), input_has_changed);
  writer.join();
  EXPECT_EQ(bytes, "id\n");
  EXPECT_EQ(read_file_bytes(name, bytes), 0);
  EXPECT_EQ(bytes, "id;sex\n");
}

}  // namespace
}  // namespace pedigreewatch::test
