// What the files of all programs go through: windows that are closed, disks that are full, memory that runs out, names
// that lead elsewhere, inputs that somebody writes meanwhile. Older files stand then, and nothing else is left.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "support/files.h"
#include "support/lines.h"
#include "support/program_run.h"
#include "support/run_folder.h"
#include "support/sanitizers.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

constexpr std::string_view header = "id;sire;dam;sex;birthdate\n";
const std::string family =
    std::string(header) + "S;;;m;21-01-2000\nD;;;f;22-01-2000\na;S;D;m;23-03-2002\nb;S;D;f;24-03-2002\n";

std::vector<std::string> names_of(const WholeRun& run) {
  std::vector<std::string> names;
  for (const auto& [name, bytes] : run.files) names.push_back(name);
  return names;
}

/// A shell script in which "$TOOLS" is the program.
ProgramStart tools_script(const std::string& script) {
  return shell_script("TOOLS='" + tools_path() + "'; " + script);
}

// ---- windows that are closed ------------------------------------------------------------------------------------

/// Prepares an export that comes through a pipe, so that the signal arrives before its last byte.
std::string prepare_stopped_by(const std::string& signal) {
  return "mkfifo dogs.csv; \"$TOOLS\" prepare dogs.csv --species dog --force & tool=$!; exec 3>dogs.csv; kill -" +
         signal + " $tool; cat source >&3; exec 3>&-; wait $tool; status=$?; rm dogs.csv; exit $status";
}

TEST(ClosedWindow, LeavesTheOlderFilesOfPrepare) {
  for (const std::string signal : {"HUP", "TERM"}) {
    const WholeRun run =
        run_program_on({{"source", family}, {"dogs.txt", "old data"}, {"pedigreewatch.ini", "old steer file"}},
                       tools_script(prepare_stopped_by(signal)));
    EXPECT_EQ(run.exit_status, 1) << signal << run.console << run.messages;
    EXPECT_TRUE(has(run.messages, "stopped from outside; nothing was written")) << run.messages;
    EXPECT_EQ(run.file("dogs.txt"), "old data") << signal;
    EXPECT_EQ(run.file("pedigreewatch.ini"), "old steer file") << signal;
    EXPECT_EQ(run.files.size(), 3U) << signal;
  }
}

TEST(ClosedWindow, IsNotHeededUnderNohup) {
  const WholeRun run = run_program_on({{"source", family}}, tools_script("trap '' HUP; " + prepare_stopped_by("HUP")));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(names_of(run),
            (std::vector<std::string>{"dogs.answers", "dogs.lines", "dogs.txt", "pedigreewatch.ini", "source"}));
}

/// Parents whose identifications and subpopulations look like formulas, and their young.
Files files_like_formulas() {
  std::string lines = "id;sire;dam;sex;birthdate;subpopulation\n=S;;;m;01-01-2000;=X\n@D;;;f;02-01-2000;+Y\n";
  for (int k = 0; k < 12; ++k) {
    const std::string sign(1, "=+-@"[k % 4]);
    lines += sign + "a" + std::to_string(k) + ";=S;@D;" + (k % 2 == 0 ? "m" : "f") + ";03-03-200" +
             std::to_string(2 + k / 4) + (k % 3 == 0 ? ";=X\n" : ";+Y\n");
  }
  lines += "=inbred;=a0;+a1;m;04-04-2005;=X\n";
  Files files = files_of(lines, {.subpopulations = "2\n=X\n+Y"});
  files["f"] = "@D\n";
  files["m"] = "=S\n";
  files["rules.ini"] = "[=no rule]\nmost-litters-a-year = 5\n";
  return files;
}

/// Whether the process sleeps, at two looks one after the other: it waits for somebody.
bool waits(int process) {
  const auto is_asleep = [&] {
    const std::string status = bytes_if_present("/proc/" + std::to_string(process) + "/stat").value_or("");
    return status.find(") S ") != std::string::npos;
  };
  if (!is_asleep()) return false;
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  return is_asleep();
}

struct PipeRun {
  std::vector<std::string> arguments;  ///< of the tools; none: the program itself
  std::string pipe;                    ///< stands in the place of this file
  int exit_status = 1;
};

/// Has the run wait for `pipe`, which nobody opens for writing or which somebody has open and never writes, and sends a
/// signal.
WholeRun stopped_at_pipe(const PipeRun& wish, int signal, bool has_writer) {
  Files files = files_like_formulas();
  files["dogs.csv"] = family;
  files.erase(wish.pipe);
  const RunFolder folder(files);
  const std::string pipe = folder.path(wish.pipe);
  EXPECT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int writer = has_writer ? open(pipe.c_str(), O_RDWR | O_CLOEXEC) : -1;
  ProgramStart start = wish.arguments.empty() ? ProgramStart{} : tools_with(wish.arguments);
  StartedRun run = start_program_in(folder, start);
  const auto latest = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  const auto look = [&](auto holds) {
    while (is_running(run) && !holds() && std::chrono::steady_clock::now() < latest) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  };
  look([&] { return waits(run.process); });
  EXPECT_TRUE(is_running(run)) << wish.pipe << " is not waited for";
  kill(run.process, signal);
  look([] { return false; });
  EXPECT_FALSE(is_running(run)) << wish.pipe << ": signal " << signal << " does not end it";
  if (is_running(run)) kill(run.process, SIGKILL);
  if (writer >= 0) close(writer);
  std::filesystem::remove(pipe);
  WholeRun end = finish(run);
  EXPECT_EQ(end.exit_status, wish.exit_status) << wish.pipe << signal << has_writer << end.messages;
  EXPECT_EQ(end.files, files) << wish.pipe;
  return end;
}

TEST(SilentPipe, IsNotWaitedForOnceTheToolsAreStopped) {
  const std::vector<PipeRun> runs = {
      {{"prepare", "dogs.csv", "--species", "dog", "--force"}, "dogs.csv"},
      {{"prepare", "dogs.csv", "--corrections", "list", "--species", "dog", "--force"}, "list"},
      {{"check"}, "dogs.txt", 2},
      {{"check"}, "pedigreewatch.ini", 2},
      {{"check", "--limits", "limits"}, "limits", 2},
      {{"tables"}, "dogs.txt"},
      {{"page"}, "pedigreewatch.ini"},
      {{"matings", "--females", "list", "--best", "1"}, "list"},
      {{"plan", "--matings", "2", "--females", "list"}, "list"},
      {{"forecast", "--rules", "rules.ini"}, "rules.ini"},
      {{"animal", "a"}, "dogs.txt"}};
  for (const PipeRun& wish : runs) {
    const WholeRun run = stopped_at_pipe(wish, SIGTERM, false);
    EXPECT_TRUE(has(run.messages, "stopped")) << wish.arguments.front() << wish.pipe << run.messages;
  }
  for (const PipeRun& wish : {runs[0], runs[2]}) {
    EXPECT_TRUE(has(stopped_at_pipe(wish, SIGTERM, true).messages, "stopped")) << wish.arguments.front();
  }
  for (const int signal : {SIGINT, SIGHUP}) stopped_at_pipe(runs.front(), signal, false);
}

TEST(SilentPipe, IsNotWaitedForOnceARunIsStopped) {
  for (const bool has_writer : {false, true}) {
    const WholeRun run = stopped_at_pipe({{}, "dogs.txt", has_writer ? 1 : 128 + SIGTERM}, SIGTERM, has_writer);
    EXPECT_EQ(has(run.messages, "the run was stopped from outside"), has_writer) << run.messages;
  }
}

// ---- disks and memory -------------------------------------------------------------------------------------------

TEST(FullDisk, LeavesTheOlderTablesAllOfThem) {
  Files files = files_of(family);
  const RunFolder folder(files);
  const WholeRun first = run_program_in(folder, tools_with({"tables"}));
  ASSERT_EQ(first.exit_status, 0) << first.messages;
  ProgramStart start = tools_with({"tables", "--csv"});
  for (const std::uint64_t room : {0U, 100U, 700U}) {
    for (const std::string option : {"", "--csv"}) {
      start = option.empty() ? tools_with({"tables"}) : tools_with({"tables", option});
      start.limits.file_bytes = room;
      start.keeps_console = false;
      const WholeRun run = run_program_in(folder, start);
      EXPECT_EQ(run.exit_status, 1) << room << option;
      EXPECT_EQ(run.files, first.files) << room << option;
    }
  }
}

TEST(FullDisk, LeavesTheOlderTableOfCheck) {
  Files files = files_of(family);
  files["dogs_check.tsv"] = "old findings";
  const RunFolder folder(files);
  ProgramStart start = tools_with({"check"});
  start.limits.file_bytes = 10;
  start.keeps_console = false;
  const WholeRun run = run_program_in(folder, start);
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.files, files);
}

/// Animals enough that a run does not fit into a small address space.
Files files_of_many() {
  std::string lines;
  for (int i = 1; i <= 60000; ++i) {
    lines += "N" + std::to_string(i) + (i <= 10 ? ";;" : ";N" + std::to_string(i / 2) + ";N" + std::to_string(i / 3)) +
             (i % 2 == 0 ? ";m" : ";f") + ";01-01-" + std::to_string(2000 + i / 4000) + "\n";
  }
  return files_of(std::string(header) + lines);
}

TEST(LittleMemory, LeavesNoPartOfAnyFile) {
  if (has_address_sanitizer) GTEST_SKIP() << "the address sanitizer needs more room than such a limit leaves";
  Files files = files_of_many();
  files["dogs_check.tsv"] = files["dogs_years.tsv"] = files["dogs.html"] = "of an earlier run";
  for (const std::string subcommand : {"check", "tables", "page"}) {
    const RunFolder folder(files);
    int refused = 0;
    for (std::uint64_t kilobytes = 6000; kilobytes <= 30000; kilobytes += 1500) {
      ProgramStart start = tools_with({subcommand});
      start.limits.memory_bytes = kilobytes * 1024;
      const WholeRun run = run_program_in(folder, start);
      if (run.exit_status > 2) continue;  // not enough to start the program
      if (!has(run.messages, "not enough memory")) break;
      ++refused;
      EXPECT_EQ(run.exit_status, subcommand == "check" ? 2 : 1) << subcommand << kilobytes;
      EXPECT_TRUE(run.files == files) << subcommand << kilobytes;  // a list of the differences would be very long
    }
    EXPECT_GT(refused, 0) << subcommand;
  }
}

TEST(LostConsole, IsToldByTheToolsWithTheirFilesComplete) {
  for (const std::string lost : {">&-", ">/dev/full"}) {
    const WholeRun run = run_program_on(files_of(family), tools_script("\"$TOOLS\" tables " + lost));
    EXPECT_EQ(run.exit_status, 1) << lost;
    EXPECT_TRUE(run.messages.starts_with("the console could not be written: ")) << run.messages;
    EXPECT_TRUE(run.messages.ends_with("; the files are complete\n")) << run.messages;
    EXPECT_EQ(run.files.count("dogs_years.tsv"), 1U) << lost;
  }
}

// What a check found is shown; a script must not take a check that nobody saw for one that has found something.
TEST(LostConsole, IsOfACheckThatCouldNotBeMade) {
  const std::string clean = std::string(header) +
                            "rex;;;m;01-01-2001\nsaar;;;f;01-01-2001\nmies;;;f;01-01-2002\n"
                            "puk;rex;saar;f;01-01-2003\n";
  for (const std::string& data : {clean, family}) {  // a year without animals falsifies figures
    const WholeRun shown = run_program_on(files_of(data), tools_with({"check"}));
    ASSERT_EQ(shown.exit_status, data == clean ? 0 : 1) << shown.console;
    const WholeRun lost = run_program_on(files_of(data), tools_script("\"$TOOLS\" check >/dev/full"));
    EXPECT_EQ(lost.exit_status, 2);
    EXPECT_EQ(lost.messages, "the console could not be written: No space left on device" +
                                 std::string(data == clean ? "; the files are complete\n" : "\n"));
    EXPECT_EQ(lost.file("dogs_check.tsv"), shown.file("dogs_check.tsv"));
  }
}

TEST(LostConsole, OfAHelpMakesNoPromiseOfFiles) {
  const std::string reason = "the console could not be written: No space left on device\n";
  for (const std::string command :
       {"\"$TOOLS\" help", "\"$TOOLS\" plan --help", "\"$TOOLS\" --version",
        "\"$TOOLS\" prepare dogs.txt --species dog --dry-run", "\"$PROGRAM\" --help", "\"$PROGRAM\" --version"}) {
    const WholeRun run = run_program_on(files_of(family), tools_script(command + " >/dev/full"));
    EXPECT_EQ(run.exit_status, 1) << command;
    EXPECT_EQ(run.messages, reason) << command;
    EXPECT_EQ(run.files, files_of(family)) << command;
  }
}

TEST(LostConsole, IsNoPlaceForAFile) {
  const std::string expected = run_program_on(files_of(family), tools_with({"check"})).file("dogs_check.tsv");
  const WholeRun run = run_program_on(files_of(family), tools_script("\"$TOOLS\" check <&- >&- 2>&-"));
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.file("dogs_check.tsv"), expected);
}

// ---- names that lead elsewhere ----------------------------------------------------------------------------------

TEST(CheckTable, NeverReplacesWhatTheRunReads) {
  Files files = files_of(family);
  files["dogs_check.tsv"] = "largest_litter = 3\n";
  const WholeRun run = run_program_on(files, tools_with({"check", "--limits", "dogs_check.tsv"}));
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(
      run.messages,
      "dogs_check.tsv: a table of this name would replace a file that this run reads; the table was not written\n");
  EXPECT_EQ(run.files, files);
}

TEST(CheckTable, NeverReplacesALinkAPipeOrAFolder) {
  const std::vector<std::pair<std::string, std::string>> names = {
      {"ln -s archive dogs_check.tsv", "this is a link to something else, which is not replaced; remove it first"},
      {"ln -s nowhere dogs_check.tsv", "this is a link to something else, which is not replaced; remove it first"},
      {"ln -s dogs.txt dogs_check.tsv", "a table of this name would replace a file that this run reads"},
      {"mkfifo dogs_check.tsv", "there is something of this name that is no file"},
      {"mkdir dogs_check.tsv", "there is something of this name that is no file"}};
  for (const auto& [make, reason] : names) {
    Files files = files_of(family);
    files["archive"] = "kept";
    const WholeRun run =
        run_program_on(files, tools_script(make + "; \"$TOOLS\" check; status=$?; rm -r dogs_check.tsv; exit $status"));
    EXPECT_EQ(run.exit_status, 2) << make;
    EXPECT_EQ(run.messages, "dogs_check.tsv: " + reason + "; the table was not written\n") << make;
    EXPECT_EQ(run.files, files) << make;
  }
}

TEST(PreparedFiles, NeverReplaceALinkOrAPipe) {
  for (const std::string make : {"ln -s archive dogs.txt", "ln -s nowhere pedigreewatch.ini", "mkfifo dogs.txt",
                                 "mkfifo dogs.answers", "ln -s nowhere dogs.lines"}) {
    const std::string name = make.substr(make.rfind(' ') + 1);
    const Files files = {{"dogs.csv", family}, {"archive", "kept"}};
    const WholeRun run = run_program_on(
        files, tools_script(make + "; \"$TOOLS\" prepare dogs.csv --species dog --force; status=$?; rm " + name +
                            "; exit $status"));
    EXPECT_EQ(run.exit_status, 1) << make;
    EXPECT_EQ(
        run.messages,
        name + ": this is a link, a pipe or a device, which is not replaced; remove it first. Nothing was changed.\n");
    EXPECT_EQ(run.files, files) << make;
  }
}

TEST(UnreadableFile, IsToldWithTheReason) {
  Files files = files_of(family);
  files.erase("dogs.txt");
  const WholeRun english = run_program_on(files, tools_with({"check"}));
  EXPECT_EQ(english.exit_status, 2);
  EXPECT_EQ(english.messages,
            "\"dogs.txt\": the data file that line 2 of pedigreewatch.ini names could not be opened: No such file or "
            "directory\n");
  const WholeRun limits = run_program_on(files_of(family), tools_with({"check", "--limits", "none.txt"}));
  EXPECT_EQ(limits.messages, "none.txt: the file of --limits could not be opened: No such file or directory\n");
  SteerLines dutch;
  dutch.language = "nl";
  const WholeRun in_dutch = run_program_on(files_of(family, dutch), tools_with({"check", "--limits", "none.txt"}));
  EXPECT_EQ(in_dutch.messages,
            "none.txt: het bestand van --limits kon niet geopend worden: dit bestand of deze map bestaat niet\n");
}

// ---- cells that a spreadsheet would work out ----------------------------------------------------------------------

/// The cells of a table that begin like a formula, and those behind an apostrophe.
struct FormulaCount {
  int bare = 0, guarded = 0;
};

FormulaCount count_formulas(std::string_view table) {
  FormulaCount count;
  for (const std::string& line : lines_of(table)) {
    for (std::size_t begin = 0; begin <= line.size();) {
      const std::size_t end = std::min(line.find_first_of("\t,", begin), line.size());
      std::string_view cell = std::string_view(line).substr(begin, end - begin);
      begin = end + 1;
      const bool is_guarded = cell.starts_with('\'');
      if (is_guarded) cell.remove_prefix(1);
      constexpr std::string_view number = "0123456789.";
      const bool is_formula = !cell.empty() && std::string_view("=+-@").find(cell.front()) != std::string_view::npos &&
                              cell.find_first_of(number) != 1;
      count.bare += is_formula && !is_guarded;
      count.guarded += is_formula && is_guarded;
    }
  }
  return count;
}

TEST(FormulaCells, StandBehindAnApostropheInEveryTableOfEveryCommand) {
  const Files files = files_like_formulas();
  const std::vector<std::vector<std::string>> commands = {
      {"check", "--today", "2004-01-01"},
      {"tables", "--founders"},
      {"tables", "--founders", "--csv"},
      {"matings", "--females", "f", "--males", "m"},
      {"matings", "--females", "f", "--males", "m", "--csv"},
      {"plan", "--females", "f", "--males", "m", "--matings", "1"},
      {"forecast", "--rules", "rules.ini", "--replicates", "2", "--years", "2"}};
  int tables_with_formulas = 0;
  for (const std::vector<std::string>& command : commands) {
    std::vector<std::string> plain = command;
    plain.push_back("--plain");
    const WholeRun safe = run_program_on(files, tools_with(command)), bare = run_program_on(files, tools_with(plain));
    EXPECT_LE(safe.exit_status, 1) << command.front() << safe.messages;
    EXPECT_EQ(safe.files.size(), bare.files.size()) << command.front() << bare.messages;
    EXPECT_GT(safe.files.size(), files.size()) << command.front() << safe.messages;
    for (const auto& [name, table] : safe.files) {
      if (!name.ends_with(".tsv") && !name.ends_with(".csv")) continue;
      const FormulaCount in_safe = count_formulas(table), in_bare = count_formulas(bare.file(name));
      EXPECT_EQ(in_safe.bare, 0) << name << table;
      EXPECT_EQ(in_bare.guarded, 0) << name;
      EXPECT_EQ(in_bare.bare, in_safe.guarded) << name;
      tables_with_formulas += in_bare.bare > 0;
    }
  }
  // Findings; all eleven tables, with tabs and with commas; matings likewise; the two of a plan and of a forecast.
  EXPECT_EQ(tables_with_formulas, 1 + 2 * 11 + 2 + 2 + 2);
}

// ---- inputs that somebody writes meanwhile ----------------------------------------------------------------------

/// Identifications of 36 letters, of which a run tells each that it cuts it: more than a pipe holds.
Files files_with_long_ids() {
  std::string lines;
  for (int i = 0; i < 5000; ++i) lines += std::to_string(100000 + i) + std::string(30, 'x') + ";;;m;01-01-2000\n";
  Files files = files_of(std::string(header) + lines);
  files["dogs.out"] = "last year's report\n";
  return files;
}

TEST(ChangedInput, IsToldAndTheOlderReportStands) {
  const std::string start =
      "mkfifo console; \"$PROGRAM\" >console & program=$!; exec 3<console; head -c 9000 <&3 >/dev/null; ";
  const std::string end = "; cat <&3 >/dev/null; rm console; wait $program";
  for (const std::string change : {"echo 'a;;;m;01-01-2001' >>dogs.txt", "rm dogs.txt; echo id >dogs.txt"}) {
    const WholeRun run = run_program_on(files_with_long_ids(), shell_script(start + change + end));
    EXPECT_EQ(run.exit_status, 1) << change;
    EXPECT_EQ(
        run.messages,
        "dogs.txt: the file has changed while it was read; run again when nobody writes it\n"
        "dogs.out: the report could not be written: an input file has changed while it was read; the last complete "
        "report still stands there\n")
        << change;
    EXPECT_EQ(run.file("dogs.out"), "last year's report\n") << change;
    EXPECT_EQ(run.files.size(), 3U) << change;
  }
  const WholeRun unchanged = run_program_on(files_with_long_ids(), shell_script(start + "true" + end));
  EXPECT_EQ(unchanged.exit_status, 0) << unchanged.messages;
}

/// Corrections that fit nothing: `prepare` tells each of them, more than two pipes hold.
std::string corrections_of_nobody() {
  std::string list = "id\tfield\twas\tbecomes\twhy\twhen\n";
  for (int i = 0; i < 4000; ++i) list += "nobody" + std::to_string(i) + "\tsex\tm\tf\ta slip\t2020-01-01\n";
  return list;
}

// Whoever writes the pipe puts a file in its place before he ends.
TEST(ChangedExport, IsToldBeforeAnythingElseIsSaidOfIt) {
  const WholeRun run =
      run_program_on({{"other", family}}, tools_script("mkfifo dogs.csv; { cat other; mv other dogs.csv; } >dogs.csv & "
                                                       "\"$TOOLS\" prepare dogs.csv --species dog"));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(
      run.messages,
      "dogs.csv: the export has changed while it was read; nothing was written; run again when nobody writes it\n");
  EXPECT_EQ(names_of(run), std::vector<std::string>{"dogs.csv"});
}

TEST(ChangedExport, IsToldAndTheOlderFilesStand) {
  const Files files = {{"dogs.csv", family},
                       {"list.tsv", corrections_of_nobody()},
                       {"dogs.txt", "old data"},
                       {"pedigreewatch.ini", "old steer file"}};
  const std::string start =
      "mkfifo console; \"$TOOLS\" prepare dogs.csv --species dog --force --corrections list.tsv >console & tool=$!; "
      "exec 3<console; head -c 9000 <&3 >/dev/null; ";
  const std::string end = "; cat <&3 >/dev/null; rm console; wait $tool";
  for (const std::string change : {"echo 'z;;;m;01-01-2001' >>dogs.csv", "touch -d 2001-01-01 dogs.csv"}) {
    const WholeRun run = run_program_on(files, tools_script(start + change + end));
    EXPECT_EQ(run.exit_status, 1) << change;
    EXPECT_EQ(run.messages,
              "dogs.csv: the export has changed while it was read; nothing was written; run again when nobody writes "
              "it\n")
        << change;
    EXPECT_EQ(names_of(run), (std::vector<std::string>{"dogs.csv", "dogs.txt", "list.tsv", "pedigreewatch.ini"}))
        << change;
    EXPECT_EQ(run.file("dogs.txt"), "old data") << change;
  }
  const WholeRun unchanged = run_program_on(files, tools_script(start + "true" + end));
  EXPECT_EQ(unchanged.exit_status, 0) << unchanged.messages;
}

}  // namespace
}  // namespace pedigreewatch::test
