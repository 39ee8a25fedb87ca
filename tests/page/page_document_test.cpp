// docs/page.md names every chart and table of the page by its title, and none that there is not; no two elements of the
// page have one id. The page is that of the example, which has everything that a page can have.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "support/case_folder.h"
#include "support/lines.h"
#include "support/places.h"
#include "support/program_run.h"

namespace pedigreewatch::test {
namespace {

namespace fs = std::filesystem;

std::string page_of_example() {
  const fs::path example = fs::path(source_folder()) / "examples" / "moorland-en";
  const WholeRun run = run_program_on({{"pedigreewatch.ini", bytes_of(example / "pedigreewatch.ini")},
                                       {"moorland.txt", bytes_of(example / "moorland.txt")}},
                                      tools_with({"page"}));
  return run.files.at("moorland.html");
}

/// What stands between `begin` and `end`, each time; `begin` may stop within a tag, which the next ">" ends.
std::vector<std::string> texts_between(const std::string& page, const std::string& begin, const std::string& end) {
  std::vector<std::string> texts;
  for (std::size_t at = page.find(begin); at != std::string::npos; at = page.find(begin, at + 1)) {
    const std::size_t from = begin.ends_with('"') ? at + begin.size() : page.find('>', at) + 1;
    texts.push_back(page.substr(from, page.find(end, from) - from));
  }
  return texts;
}

std::set<std::string> titles_of(const std::string& page) {
  std::set<std::string> titles;
  for (const std::string tag : {"h3", "caption"}) {
    for (const std::string& title : texts_between(page, "<" + tag, "</" + tag + ">")) titles.insert(title);
  }
  return titles;
}

/// The first cells of the table of charts.
std::set<std::string> documented_titles() {
  std::set<std::string> titles;
  bool is_here = false;
  for (const std::string& line : lines_of(bytes_of(fs::path(source_folder()) / "docs" / "page.md"))) {
    if (line.starts_with("## ")) is_here = line == "## The charts";
    if (!is_here || !line.starts_with("| ") || line.starts_with("| Chart or table ")) continue;
    titles.insert(line.substr(2, line.find(" | ") - 2));
  }
  return titles;
}

TEST(PageDocument, NamesExactlyTheChartsAndTablesThatThereAre) {
  const std::set<std::string> titles = titles_of(page_of_example());
  EXPECT_GT(titles.size(), 20U);
  EXPECT_EQ(documented_titles(), titles);
}

TEST(PageOfExample, HasNoTwoElementsOfOneId) {
  const std::vector<std::string> ids = texts_between(page_of_example(), " id=\"", "\"");
  EXPECT_GT(ids.size(), 40U);
  std::set<std::string> different;
  for (const std::string& id : ids) EXPECT_TRUE(different.insert(id).second) << id << " stands twice";
}

// A chart of one population may be missing in another one; their ids must differ all the same.
TEST(PageOfExample, HasChartsOfEveryFunctionThatMakesOne) {
  std::size_t makers = 0;
  for (const std::string file : {"animal_charts.h", "diversity_charts.h", "group_charts.h", "inbreeding_charts.h"}) {
    for (const std::string& line : lines_of(bytes_of(fs::path(source_folder()) / "src" / "page" / file))) {
      makers += line.starts_with("Chart ") ? 1U : 0U;
    }
  }
  const std::size_t named_bars = 2;  // the ancestors that contribute most, the sires of the last five years
  EXPECT_EQ(texts_between(page_of_example(), "<figure id=\"", "\"").size(), makers + named_bars);
}

/// The effective size of the example is 46, its rate 1.1 %, and its most used sire has 11 % of the young.
TEST(PageLimits, AreMissedFromEitherSide) {
  const std::string page = page_of_example();
  const auto row = [&](const std::string& begin) {
    const std::size_t place = page.find("<th scope=\"row\">" + begin);
    return page.substr(place, page.find("</tr>", place) - place);
  };
  EXPECT_NE(row("Rise of inbreeding").find("class=\"over\">\xE2\x96\xB2 beyond<"), std::string::npos);
  EXPECT_NE(row("Effective size (FAO").find("class=\"over\">\xE2\x96\xB2 below<"), std::string::npos);
  EXPECT_NE(row("Most used sire").find("class=\"over\">\xE2\x96\xB2 beyond<"), std::string::npos);
}

}  // namespace
}  // namespace pedigreewatch::test
