// Which files of answers are looked at.

#include "intake/kept_answers.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/run_folder.h"

namespace pedigreewatch::test {
namespace {

constexpr const char* some_export = "id;sex\n1;m\n2;f\n";

const std::string answers_about_it = "headings: " + headings_text(std::vector<std::string>{"id", "sex"}) + "\n";

/// The file whose answers are used for "herd.csv", of these beside it and of so many about other headings in the folder
/// of the new files.
std::string used_answers(Files beside, int others) {
  beside["herd.csv"] = some_export;
  beside["new/"] = "";
  for (int k = 0; k < others; ++k) beside["new/other" + std::to_string(k) + ".answers"] = "headings: another\n";
  const RunFolder folder(beside);
  PrepareOptions options;
  options.export_name = folder.path("herd.csv");
  options.folder = folder.path("new");
  Preparation read;
  EXPECT_FALSE(read_with_answers(options, read));
  return std::filesystem::path(read.answers.file).filename().string();
}

TEST(ReadWithAnswers, FiftyFilesAreLookedAt) {
  const Files last_year = {{"last-year.answers", answers_about_it}};
  EXPECT_EQ(used_answers(last_year, 49), "last-year.answers");
  EXPECT_EQ(used_answers(last_year, 50), "");
}

TEST(ReadWithAnswers, ThatOfTheExportItselfIsAlwaysLookedAt) {
  EXPECT_EQ(used_answers({{"herd.answers", answers_about_it}}, 60), "herd.answers");
}

TEST(ReadWithAnswers, AFileOfMoreThanAMillionBytesHoldsNone) {
  const auto used_of_size = [](std::size_t size) {
    std::string bytes = answers_about_it + "#";
    bytes.resize(size, 'x');
    return used_answers({{"herd.answers", bytes}}, 0);
  };
  EXPECT_EQ(used_of_size(1'000'000), "herd.answers");
  EXPECT_EQ(used_of_size(1'000'001), "");
}

}  // namespace
}  // namespace pedigreewatch::test
