// `pedigreewatch-tools prepare` on exports and folders that are not as they should be: a clear message, no file harmed.
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "intake/prepare.h"
#include "support/lines.h"
#include "support/prepared_run.h"
#include "support/program_run.h"
#include "text/encoding.h"

namespace pedigreewatch::test {
namespace {

using namespace std::string_literals;

const std::string sound = "id;sire;dam;sex;born\nrex;;;m;2001\nbram;rex;;m;2003\n";

/// The start of `prepare` on an export of dogs.
ProgramStart prepare_dogs(std::vector<std::string> options, const std::string& export_name) {
  options.insert(options.end(), {"--species", "dog"});
  return prepare_with(std::move(options), export_name);
}

WholeRun prepare_bytes(const std::string& bytes, const std::vector<std::string>& options = {}) {
  return run_program_on({{"export.csv", bytes}}, prepare_dogs(options, "export.csv"));
}

/// Refused with this message, and nothing written.
void expect_refused(const WholeRun& run, const std::string& message) {
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages, message));
  EXPECT_EQ(run.files.size(), 1U) << "only the export";
}

TEST(HostilePrepareRefuses, AnEmptyFile) {
  expect_refused(prepare_bytes(""), "export.csv: the file is empty\n");
  expect_refused(prepare_bytes("\xEF\xBB\xBF"), "export.csv: ");
  expect_refused(prepare_bytes("\n\n\n"), "export.csv: ");
}

TEST(HostilePrepareRefuses, AHeaderWithoutAnimals) {
  expect_refused(prepare_bytes("id;sire;dam;sex;born\n"), "export.csv: there is no animal in it\n");
}

TEST(HostilePrepareRefuses, FilesThatAreNoText) {
  expect_refused(prepare_bytes("PK\x03\x04"
                               "whatever"),
                 "export.csv: this workbook is not complete. Copy or export it again.\n");
  expect_refused(prepare_bytes("%PDF-1.7"), "a file of another kind (PDF)");
  expect_refused(prepare_bytes("id;sire\n1;2\n3;\0\0x\n"s),
                 "it holds bytes that no text has (zeros): 2, the first in line 3");
  std::string noise;
  for (int i = 0; i < 5000; ++i) noise.push_back(static_cast<char>(static_cast<unsigned char>(i * 131 % 251 + 1)));
  EXPECT_EQ(prepare_bytes(noise).exit_status, 1);
}

TEST(HostilePrepareRefuses, AQuotationMarkThatIsNeverClosed) {
  expect_refused(
      prepare_bytes("id;sire;dam;sex;born\nrex;;;m;2001\n\"bram;rex;;m;2003\nsaar;;;f;2003\n"),
      "export.csv, line 3: a quotation mark opens a text and is never closed. Mend this line in the export.\n");
  expect_refused(prepare_bytes("\"id;sire;dam;sex;born\nrex;;;m;2001\n"), "export.csv, line 1: ");
  expect_refused(
      prepare_bytes("id;sire;dam;sex;born;name\nrex;;;m;2001;\"Rex\nbram;;;m;2003;\"Bram\"\ntess;;;f;2004;\"Tess\n"),
      "export.csv, line 2: a quotation mark opens a text and is never closed.");
}

TEST(HostilePrepareRefuses, LettersInTwoEncodings) {
  expect_refused(
      prepare_bytes("id;sire;dam;sex;born;name\nrex;;;m;2001;Zo\xC3\xAB\nmax;;;m;2001;Zo\xEB\n"),
      "1 as UTF-8, the first in line 2, and 1 in another way, the first in line 3. Say which encoding to read: "
      "--encoding utf-8");
}

TEST(HostilePrepareRefuses, MoreThanAThousandColumns) {
  std::string header = "id;sire;dam;sex;born", animal = "rex;;;m;2001";
  for (int i = 0; i < 2000; ++i) header += ";x" + std::to_string(i), animal += ";y";
  expect_refused(prepare_bytes(header + "\n" + animal + "\n"), "the first line has more than 1000 columns");
}

TEST(HostilePrepareRefuses, IdsThatWouldBecomeEqual) {
  const std::string start(30, 'x');
  expect_refused(prepare_bytes("id;sire;dam;sex;born\n" + start + "1;;;m;2001\n" + start + "2;;;m;2001\n"),
                 "export.csv, line 3: the ids \"" + start + "2\" and \"" + start + "1\" would both become \"" + start);
}

TEST(HostilePrepareRefuses, AFileThatIsNotThereOrAFolder) {
  const RunFolder folder(Files{{"folder/", ""}});
  EXPECT_EQ(run_program_in(folder, prepare_dogs({}, "missing.csv")).messages,
            "missing.csv: it cannot be read: No such file or directory\n");
  EXPECT_EQ(run_program_in(folder, prepare_dogs({}, "folder")).messages,
            "folder: this is a folder; the export is a file\n");
}

TEST(HostilePrepareRefuses, ToWriteOverAFileUnlessForced) {
  const RunFolder folder({{"export.csv", sound}, {"pedigreewatch.ini", "mine"}});
  const WholeRun run = run_program_in(folder, prepare_dogs({}, "export.csv"));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages,
            "pedigreewatch.ini exists already. To write over it say --force, or choose a folder with --out.\n");
  EXPECT_EQ(run.file("pedigreewatch.ini"), "mine");
  EXPECT_EQ(run.files.count("export.txt"), 0U);
  const WholeRun forced = run_program_in(folder, prepare_dogs({"--force"}, "export.csv"));
  EXPECT_EQ(forced.exit_status, 0);
  EXPECT_NE(forced.file("pedigreewatch.ini"), "mine");
  EXPECT_EQ(forced.files.size(), 5U) << "no temporary files";
}

TEST(HostilePrepareRefuses, ToWriteOverTheExportEvenWhenForced) {
  for (const std::string name : {"export.txt", "export.out"}) {
    const RunFolder folder(Files{{name, sound}});
    const WholeRun run = run_program_in(folder, prepare_dogs({"--force"}, name));
    EXPECT_EQ(run.exit_status, 1) << name;
    EXPECT_EQ(run.messages, "The new files, or the report, would overwrite your export (" + name +
                                "). Choose another folder: --out FOLDER.\n");
    EXPECT_EQ(run.file(name), sound);
    EXPECT_EQ(run.files.size(), 1U);
  }
  const RunFolder folder(Files{{"export.csv", sound}});
  std::filesystem::create_hard_link(folder.path("export.csv"), folder.path("export.txt"));
  const WholeRun linked = run_program_in(folder, prepare_dogs({"--force"}, "export.csv"));
  EXPECT_EQ(linked.exit_status, 1);
  EXPECT_EQ(linked.file("export.csv"), sound);
  const WholeRun dutch = run_program_in(folder, prepare_dogs({"--force", "--language=nl"}, "export.csv"));
  EXPECT_EQ(
      dutch.messages,
      "De nieuwe bestanden, of het rapport, zouden uw export overschrijven (export.txt). Kies een andere map: --out "
      "MAP.\n");
}

TEST(HostilePrepareRefuses, ASpeciesThatThereIsNot) {
  for (const auto& [word, exit_status] : {std::pair("hound", 2), {"Dog", 0}, {"dog", 0}, {"hond", 0}}) {
    const WholeRun run =
        run_program_on({{"export.csv", sound}}, tools_with({"prepare", "--species", word, "export.csv"}));
    EXPECT_EQ(run.exit_status, exit_status) << word;
    EXPECT_EQ(run.files.size(), exit_status == 0 ? 5U : 1U) << word;
    if (exit_status == 0) continue;
    EXPECT_TRUE(has(run.messages, "dog, cat, cattle, sheep, horse, poultry, pig, other was expected")) << run.messages;
  }
}

TEST(HostilePrepareRefuses, AFolderThatIsNotThere) {
  const RunFolder folder(Files{{"export.csv", sound}});
  const WholeRun run = run_program_in(folder, prepare_dogs({"--out", "nowhere/at/all"}, "export.csv"));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "nowhere/at/all: there is no such folder; make it first, or choose another one with --out\n");
}

TEST(HostilePrepareRefuses, AFolderThatMayNotBeWritten) {
  const RunFolder folder({{"export.csv", sound}, {"locked/", ""}});
  if (!can_drop_rights(folder)) GTEST_SKIP() << "the rights of root cannot be dropped here";
  std::filesystem::permissions(folder.path("locked"), std::filesystem::perms::owner_read);
  ProgramStart start = prepare_dogs({"--out", "locked"}, "export.csv");
  start.has_rights = false;
  const WholeRun run = run_program_in(folder, start);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages, "Permission denied"));
}

TEST(HostilePrepareRefuses, ADiskThatIsFullAndLeavesNothing) {
  std::string lines = sound;
  for (int i = 0; i < 20000; ++i) lines += "a" + std::to_string(i) + ";rex;;m;2004\n";
  ProgramStart start = prepare_dogs({}, "export.csv");
  start.limits.file_bytes = 51200;
  const WholeRun run = run_program_on({{"export.csv", lines}}, start);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages, "File too large. Nothing was changed."));
  EXPECT_EQ(run.files.size(), 1U);
}

TEST(HostilePrepareStops, WhenTheUserWantsItToAndLeavesNothing) {
  const RunFolder folder(Files{{"export.csv", sound}});
  PrepareOptions options;
  options.export_name = folder.path("export.csv");
  options.folder = folder.path();
  options.species = "dog";
  const volatile std::sig_atomic_t is_stopped = 1;
  ToolStreams streams;
  streams.stop_request = &is_stopped;
  EXPECT_EQ(prepare(options, streams), 1);
  EXPECT_EQ(streams.messages.pending, "stopped from outside; nothing was written\n");
  EXPECT_EQ(files_in(folder.path()), (Files{{"export.csv", sound}}));
}

TEST(HostilePrepareAccepts, FoldersAndStrangeNames) {
  const std::string name = "in/My \xC3\xABxport; 2024 (final).csv";
  const RunFolder folder({{"in/", ""}, {"out/", ""}, {name, sound}});
  const WholeRun run = run_program_in(folder, prepare_dogs({"--out", "out"}, name));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  const Files written = files_in(folder.path("out"));
  ASSERT_EQ(written.size(), 4U);
  EXPECT_EQ(written.count("Myxport2024final.answers"), 1U);
  EXPECT_EQ(written.count("Myxport2024final.txt"), 1U);
  EXPECT_EQ(written.count("Myxport2024final.lines"), 1U);
  ASSERT_EQ(written.count("pedigreewatch.ini"), 1U);
  EXPECT_TRUE(written.at("pedigreewatch.ini").starts_with("My \xEBxport; 2024 (final)\nMyxport2024final.txt\n"));
}

TEST(HostilePrepareAccepts, AThousandColumnsAndVeryLongLines) {
  std::string header = "id;sire;dam;sex;born", animal = "rex;;;m;2001";
  for (int i = 5; i < 1000; ++i) header += ";x" + std::to_string(i), animal += ";" + std::string(3000, 'y');
  const WholeRun run = prepare_bytes(header + "\n" + animal + "\n");
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("export.txt"), "id;sex;birthdate;sire;dam\nrex;m;2001;;\n");
}

TEST(HostilePrepareAccepts, BytesThatAreNoUtf8WhereAMarkOrTheUserSaysSo) {
  const std::string lines = "id;sire;dam;sex;born;name\nrex;;;m;2001;Zo\xC3\xAB\nmax;;;m;2001;Zo\xEB\n";
  const std::string expected = "id;name;sex;birthdate;sire;dam\nrex;Zo\xEB;m;2001;;\nmax;Zo\xEB;m;2001;;\n";
  const WholeRun marked = prepare_bytes("\xEF\xBB\xBF" + lines);
  EXPECT_EQ(marked.file("export.txt"), expected);
  EXPECT_TRUE(has(marked.console, "bytes that are not UTF-8 and were read as Windows-1252: 1."));
  EXPECT_EQ(prepare_bytes(lines, {"--encoding", "utf-8"}).file("export.txt"), expected);
}

TEST(HostilePrepareAccepts, DatesAtWhichTheProgramWouldStopAndLeavesThemEmpty) {
  std::string bytes = "id;sire;dam;sex;born\n";
  for (int i = 0; i < 150; ++i) bytes += "dog" + std::to_string(i) + ";;;m;13-04-2001\n";
  const WholeRun run = prepare_bytes(bytes + "rex;;;m;03-04-2014NL031\nbram;;;m;03-04-20145\nmax;;;m;0\n");
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console,
                  "left empty, because they cannot be read: 2: line 152 \"03-04-2014NL031\", line 153 "
                  "\"03-04-20145\"\n"))
      << run.console;
  EXPECT_TRUE(has(run.console, "unknown: \"0\" (1)\n")) << run.console;
  EXPECT_TRUE(has(run.file("export.txt"), "\nrex;m;;;\nbram;m;;;\nmax;m;;;\n")) << run.file("export.txt");
  EXPECT_TRUE(has(run.file("export.lines"), "\ndate\t152\t03-04-2014NL031\ndate\t153\t03-04-20145\n"))
      << run.file("export.lines");
}

// "Zoë" and "Björn" of UTF-8 read as Windows-1252, and saved as UTF-8 again.
const std::string doubled_names =
    "id;name;sire;dam;sex;born\n1;Zo\xC3\x83\xC2\xAB;;;f;2001\n2;Bj\xC3\x83\xC2\xB6rn;;1;m;2003\n";

TEST(HostilePrepareAccepts, LettersThatWereTurnedIntoUtf8TwiceAndSaysSo) {
  const WholeRun run = prepare_bytes(doubled_names);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console,
                  "letters that were turned into UTF-8 twice, written as they are meant: 2: line 2 "
                  "\"Zo\xC3\x83\xC2\xAB\" -> \"Zo\xC3\xAB\", line 3 \"Bj\xC3\x83\xC2\xB6rn\" -> \"Bj\xC3\xB6rn\" (as "
                  "they stand: --encoding utf-8)\n"))
      << run.console;
  EXPECT_TRUE(has(run.file("export.txt"), "Bj\xF6rn")) << "Windows-1252";
  // Where that was done once more, too.
  const WholeRun again = prepare_bytes(decode(doubled_names, Encoding::windows_1252).text);
  EXPECT_TRUE(has(again.file("export.txt"), "Bj\xF6rn")) << again.messages;
  const WholeRun kept = prepare_bytes(doubled_names, {"--encoding", "utf-8"});
  EXPECT_TRUE(has(kept.file("export.txt"), "Bj\xC3\xB6rn")) << "two letters of Windows-1252";
  EXPECT_TRUE(has(kept.console, "Look at this: letters that may have been turned into UTF-8 twice, and are left"));
}

TEST(HostilePrepareRefuses, LettersOfWhichOnlySomeWereTurnedIntoUtf8Twice) {
  const std::string mixed = doubled_names + "3;Andr\xC3\xA9;;;m;2003\n";
  expect_refused(
      prepare_bytes(mixed),
      "export.csv: letters that look as if they had been turned into UTF-8 twice: 2: line 2 \"Zo\xC3\x83\xC2\xAB\" "
      "-> \"Zo\xC3\xAB\", line 3 \"Bj\xC3\x83\xC2\xB6rn\" -> \"Bj\xC3\xB6rn\". Other letters with accents or "
      "signs: 1. Say whether the former are written as they are probably meant (--encoding utf-8-twice) or "
      "stay as they stand (--encoding utf-8).\n");
  const WholeRun mended = prepare_bytes(mixed, {"--encoding", "utf-8-twice"});
  EXPECT_EQ(mended.exit_status, 0) << mended.messages;
  EXPECT_TRUE(has(mended.file("export.txt"), "Bj\xF6rn")) << mended.file("export.txt");
  EXPECT_TRUE(has(mended.file("export.txt"), "Andr\xE9"));
}

TEST(HostilePrepareAccepts, Utf16OfAnOddNumberOfBytesAndSaysSo) {
  std::string bytes = "\xFF\xFE"s;
  for (const char byte : sound) bytes += {byte, '\0'};
  const WholeRun run = prepare_bytes(bytes + "x");
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "The file ends in half a letter"));
  EXPECT_EQ(run.file("export.txt"), "id;sex;birthdate;sire;dam\nrex;m;2001;;\nbram;m;2003;rex;\n");
}

TEST(HostilePrepareAccepts, ControlCharactersWithoutShowingThem) {
  const WholeRun run = prepare_bytes("id;sire;dam;sex;born;herd\nrex;;;m;2001;\x1B[31mred\x07\n");
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.console.find('\x1B'), std::string::npos);
  EXPECT_EQ(run.file("export.txt").find('\x1B'), std::string::npos);
}

}  // namespace
}  // namespace pedigreewatch::test
