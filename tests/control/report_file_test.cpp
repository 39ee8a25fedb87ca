#include "control/report_file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/run_streams.h"
#include "support/lines.h"
#include "support/program_run.h"
#include "support/run_folder.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

constexpr std::string_view old_report = "last year's report\n";
constexpr auto kept = "dogs.out.last-complete";
constexpr std::string_view kept_message =
    "dogs.out: the report is not complete; the last complete report is dogs.out.last-complete\n";
constexpr std::string_view good_lines = "a1;0;0;m;01-01-2000\na2;0;0;f;01-01-2000\na3;a1;a2;m;01-01-2002\n";
constexpr std::string_view bad_lines = "a1;0;0;m;31-o2-1998\n";
constexpr std::string_view loop_lines = "a1;a1;0;m;01-01-2000\n";

Files files_of_lines(std::string_view lines, const std::string& data_file_name = "dogs.txt") {
  const SteerLines steer = {.data_file_name = data_file_name, .subpopulations = "1\nNoord"};
  return {{"pedigreewatch.ini", steer.text()}, {data_file_name, "id;sire;dam;sex;birthdate\n" + std::string(lines)}};
}

Files with_old_report(std::string_view lines) {
  Files files = files_of_lines(lines);
  files["dogs.out"] = old_report;
  return files;
}

std::string complete_report() {
  return run_program_on(files_of_lines(good_lines)).file("dogs.out");
}

/// Whether the run went no further than to the banner, behind which the report is opened.
bool ended_at_the_opening(const WholeRun& run) {
  return lines_of(run.console).back() == "            ";  // the banner's last line
}

// ---- a report that cannot be opened ----------------------------------------------------------------------------

TEST(OpenReport, NeverOverwritesTheDataFile) {
  for (const std::string name : {"dogs.out", "./dogs.out", "out"}) {
    const std::string file_name = name == "out" ? "out" : "dogs.out";
    Files files = files_of_lines(good_lines, name);
    const std::string data = files[name];
    files.erase(name);
    files[file_name] = data;
    const WholeRun run = run_program_on(files);
    EXPECT_EQ(run.exit_status, 1) << name;
    EXPECT_EQ(run.file(file_name), data) << name;
    EXPECT_EQ(run.files.size(), 2U) << name;
    EXPECT_EQ(run.messages, name + ": the report would overwrite an input file of the run\n");
    EXPECT_TRUE(ended_at_the_opening(run)) << name;
  }
}

TEST(OpenReport, NeverTakesAnInputFileForTheLastCompleteReport) {
  for (const std::string input : {"dogs.txt", "pedigreewatch.ini"}) {
    const RunFolder folder(with_old_report(good_lines));
    std::filesystem::create_hard_link(folder.path(input), folder.path(kept));
    const WholeRun run = run_program_in(folder);
    EXPECT_EQ(run.exit_status, 1) << input;
    EXPECT_EQ(run.messages, "dogs.out.last-complete: the report would overwrite an input file of the run\n") << input;
    EXPECT_EQ(run.file("dogs.out"), old_report) << input;
    EXPECT_EQ(run.file(kept), run.file(input)) << input;
  }
}

TEST(OpenReport, DataFileNamedLikeALastCompleteReportIsOnlyRead) {
  const std::string data_file = "dogs.out.last-complete";
  const Files files = files_of_lines(good_lines, data_file);
  const WholeRun run = run_program_on(files);
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.file(data_file), files.at(data_file));
  EXPECT_EQ(run.file("dogs.out.last-complout"), complete_report());
}

bool report_was_there = true;

TEST(OpenReport, BeginsTheReportWhenSignalsAreWatchedFor) {
  const RunFolder folder(Files{{"dogs.txt", ""}});
  static std::string begun;
  begun = folder.path("dogs.out.pedigreewatch-new");
  RunStreams streams;
  streams.before_report_is_begun = [] { report_was_there = std::filesystem::exists(begun); };
  open_report(folder.path("dogs.out"), {}, streams);
  EXPECT_FALSE(report_was_there) << "a signal would end the program then, and leave it";
  EXPECT_TRUE(std::filesystem::exists(begun));
}

TEST(OpenReport, StopsTheRunWhenTheReportCannotBeCreated) {
  Files files = files_of_lines(good_lines);
  files["dogs.out/"] = "";
  const WholeRun run = run_program_on(files);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "dogs.out: " + error_text(EISDIR) + "\n");
  EXPECT_TRUE(ended_at_the_opening(run));
}

// ---- the last complete report ----------------------------------------------------------------------------------

TEST(LastCompleteReport, IsGoneWhenTheNewOneIsComplete) {
  const WholeRun run = run_program_on(with_old_report(good_lines));
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.messages, "");
  EXPECT_EQ(run.file("dogs.out"), complete_report());
  EXPECT_EQ(run.files.size(), 3U);
}

TEST(LastCompleteReport, IsKeptByARunThatBadDataStops) {
  const WholeRun run = run_program_on(with_old_report(bad_lines));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(run.messages.starts_with("dogs.txt, line 2, field 5 (birthdate)")) << run.messages;
  EXPECT_TRUE(run.messages.ends_with("was expected\n" + std::string(kept_message))) << run.messages;
  EXPECT_EQ(run.file("dogs.out"), "");
  EXPECT_EQ(run.file(kept), old_report);
}

TEST(LastCompleteReport, IsKeptByARunThatALoopStops) {
  const WholeRun run = run_program_on(with_old_report(loop_lines));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, kept_message);
  EXPECT_EQ(lines_of(run.file("dogs.out")).back(), " program stopped");
  EXPECT_EQ(run.file(kept), old_report);
}

TEST(LastCompleteReport, OutlivesAnyNumberOfStoppedRuns) {
  Files files = with_old_report(bad_lines);
  for (const std::string_view lines : {bad_lines, loop_lines, bad_lines}) {
    files["dogs.txt"] = files_of_lines(lines)["dogs.txt"];
    files = run_program_on(files).files;
    EXPECT_EQ(files[kept], old_report);
  }
  files["dogs.txt"] = files_of_lines(good_lines)["dogs.txt"];
  const WholeRun run = run_program_on(files);
  EXPECT_EQ(run.messages, "");
  EXPECT_EQ(run.file("dogs.out"), complete_report());
  EXPECT_EQ(run.files.count(kept), 0U);
}

// What stands under the report's own name beside a kept one is of a later run that came to no end: of one that was
// stopped behind its first lines, which nothing shows.
TEST(LastCompleteReport, IsNotReplacedByOneThatOnlyLooksComplete) {
  Files files = with_old_report(bad_lines);
  files["dogs.out"] = "the first lines of a report\n";
  files[kept] = old_report;
  const WholeRun run = run_program_on(files);
  EXPECT_TRUE(run.messages.ends_with(kept_message)) << run.messages;
  EXPECT_EQ(run.file("dogs.out"), "");
  EXPECT_EQ(run.file(kept), old_report);
}

TEST(LastCompleteReport, StaysWhereItStandsWithoutAReport) {
  Files files = files_of_lines(bad_lines);
  files[kept] = old_report;
  const WholeRun run = run_program_on(files);
  EXPECT_TRUE(run.messages.ends_with(kept_message)) << run.messages;
  EXPECT_EQ(run.file(kept), old_report);
}

TEST(LastCompleteReport, IsNotSpokenOfWhereThereIsNone) {
  const WholeRun run = run_program_on(files_of_lines(loop_lines));
  EXPECT_EQ(run.messages, "");
  EXPECT_EQ(run.files.size(), 3U);
}

TEST(LastCompleteReport, IsNoEmptyFile) {
  Files files = files_of_lines(loop_lines);
  files["dogs.out"] = "";  // what a run that bad data stopped may have left
  const WholeRun run = run_program_on(files);
  EXPECT_EQ(run.messages, "");
  EXPECT_EQ(run.files.count(kept), 0U);
}

/// The report of a run that a loop stopped.
std::string report_of_a_loop(const std::string& language) {
  Files files = files_of_lines(loop_lines);
  files["pedigreewatch.ini"] = SteerLines{.language = language}.text();
  return run_program_on(files).file("dogs.out");
}

TEST(LastCompleteReport, IsNoReportOfALoop) {
  for (const std::string language : {"en", "nl"}) {
    Files files = files_of_lines(bad_lines);
    files["dogs.out"] = report_of_a_loop(language);
    ASSERT_GT(files["dogs.out"].size(), 100U);
    const WholeRun run = run_program_on(files);
    EXPECT_TRUE(run.messages.ends_with("was expected\n")) << run.messages;
    EXPECT_EQ(run.file("dogs.out"), "") << language;
    EXPECT_EQ(run.files.count(kept), 0U) << language;
  }
}

TEST(LastCompleteReport, MayEndInTheWordsOfALoop) {
  for (const std::string end : {"x program stopped\n", " program stopped\n\n", "xprogramma is gestopt\n"}) {
    Files files = files_of_lines(bad_lines);
    files["dogs.out"] = std::string(old_report) + end;
    EXPECT_EQ(run_program_on(files).file(kept), std::string(old_report) + end);
  }
}

TEST(LastCompleteReport, TakesThePlaceOfOneThatIsNotComplete) {
  for (const std::string& not_complete : {std::string(), report_of_a_loop("en"), report_of_a_loop("nl")}) {
    Files files = with_old_report(bad_lines);
    files[kept] = not_complete;
    const WholeRun run = run_program_on(files);
    EXPECT_TRUE(run.messages.ends_with(kept_message)) << run.messages;
    EXPECT_EQ(run.file(kept), old_report) << not_complete;
  }
}

TEST(LastCompleteReport, IsNotAnEmptyFileOfItsName) {
  Files files = files_of_lines(bad_lines);
  files[kept] = "";
  const WholeRun run = run_program_on(files);
  EXPECT_TRUE(run.messages.ends_with("was expected\n")) << run.messages;
}

constexpr std::string_view no_plain_file =
    "dogs.out.last-complete: this is no plain file, and the last complete report is kept under that name\n";

TEST(LastCompleteReport, NeedsANameThatNoFolderHas) {
  for (const Files& files : {files_of_lines(good_lines), with_old_report(good_lines)}) {
    const RunFolder folder(files);
    std::filesystem::create_directory(folder.path(kept));
    const WholeRun run = run_program_in(folder);
    EXPECT_EQ(run.exit_status, 1);
    EXPECT_EQ(run.messages, no_plain_file);
    EXPECT_TRUE(std::filesystem::is_directory(folder.path(kept)));
    EXPECT_EQ(run.files.count("dogs.out"), files.count("dogs.out"));
    EXPECT_TRUE(ended_at_the_opening(run));
  }
}

TEST(LastCompleteReport, NeedsANameThatNoLinkHas) {
  for (const Files& files : {files_of_lines(good_lines), with_old_report(good_lines)}) {
    for (const std::string target : {"no such file", "notes.txt", "dogs.txt"}) {
      const RunFolder folder(files);
      std::filesystem::create_symlink(target, folder.path(kept));
      const WholeRun run = run_program_in(folder);
      EXPECT_EQ(run.exit_status, 1) << target;
      EXPECT_EQ(run.messages, no_plain_file) << target;
      EXPECT_TRUE(std::filesystem::is_symlink(folder.path(kept))) << target;
      EXPECT_EQ(run.file("dogs.txt"), files.at("dogs.txt")) << target;
      EXPECT_EQ(run.files.count("dogs.out"), files.count("dogs.out")) << target;
    }
  }
}

TEST(LastCompleteReport, OfALinkIsNotTouched) {
  Files files = with_old_report(good_lines);
  files.erase("dogs.out");
  files["archive.out"] = old_report;
  files[kept] = "of another time\n";
  const RunFolder folder(files);
  std::filesystem::create_symlink("archive.out", folder.path("dogs.out"));
  const WholeRun run = run_program_in(folder);
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("dogs.out")));
  EXPECT_EQ(run.file("archive.out"), complete_report());
  EXPECT_EQ(run.file(kept), "of another time\n");
}

TEST(LastCompleteReport, HandsItsRightsOn) {
  const RunFolder folder(with_old_report(good_lines));
  constexpr auto owner_alone = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
  std::filesystem::permissions(folder.path("dogs.out"), owner_alone);
  EXPECT_EQ(run_program_in(folder).exit_status, 0);
  EXPECT_EQ(std::filesystem::status(folder.path("dogs.out")).permissions(), owner_alone);
}

// ---- a report that is not complete -----------------------------------------------------------------------------

TEST(RemoveIncompleteReport, SaysWhyAndThatAFileWhichIsNotThereCannotBeRemoved) {
  RunStreams streams;
  streams.report.name = "no such folder/dogs.out";
  remove_incomplete_report("a reason", streams);
  EXPECT_EQ(
      streams.messages.pending,
      "no such folder/dogs.out: the report could not be written: a reason; what there is of it is not complete\n");
  const RunFolder folder(Files{{"kept", std::string(old_report)}});
  streams.messages.pending.clear();
  streams.last_complete_report = folder.path("kept");
  remove_incomplete_report("a reason", streams);
  EXPECT_EQ(streams.messages.pending,
            "no such folder/dogs.out: the report could not be written: a reason; what there is of it is not complete; "
            "the last complete report is " +
                folder.path("kept") + "\n");
}

TEST(LeaveIncompleteReport, NamesTheLastCompleteOneOnlyWhereItIs) {
  const RunFolder folder(Files{{"kept", std::string(old_report)}, {"folder/", ""}});
  RunStreams streams;
  streams.report.name = "dogs.out";
  for (const std::string none : {"gone", "folder"}) {
    streams.last_complete_report = folder.path(none);
    leave_incomplete_report(streams);
    EXPECT_EQ(streams.messages.pending, "") << none;
  }
  streams.last_complete_report = folder.path("kept");
  leave_incomplete_report(streams);
  EXPECT_EQ(streams.messages.pending,
            "dogs.out: the report is not complete; the last complete report is " + folder.path("kept") + "\n");
}

TEST(RemoveLastCompleteReport, ThatCannotBeRemovedIsTold) {
  const RunFolder folder(Files{{"kept/", ""}});
  std::filesystem::create_directory(folder.path("kept/full"));
  RunStreams streams;
  streams.last_complete_report = folder.path("kept");
  remove_last_complete_report(streams);
  EXPECT_EQ(streams.messages.pending,
            folder.path("kept") + ": this report of an earlier run could not be removed: " + error_text(ENOTEMPTY) +
                "; remove it, or the next run takes it for the last complete one\n");
}

}  // namespace
}  // namespace pedigreewatch::test
