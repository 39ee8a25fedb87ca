// docs/page.md names every chart by its id and title, and no chart that there is not. A page has every id once.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "support/files.h"
#include "support/lines.h"
#include "support/page_reading.h"
#include "support/places.h"
#include "support/program_run.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

/// A page of twelve years with every column there is: it has all charts.
std::string page_with_everything() {
  SteerLines steer;
  steer.subpopulations = "2\nNorth\nSouth";
  steer.colours = "1\nblack";
  std::string data = "id;sire;dam;sex;birthdate;colour;breeder;breedtype;Import\n";
  for (int year = 2001; year <= 2012; ++year) {
    for (int k = 0; k < 8; ++k) {
      const auto id = [&](int birth, int number) { return std::to_string(birth) + "_" + std::to_string(number); };
      const std::string parents = year < 2003 ? ";" : id(year - 2, k / 4 * 2) + ";" + id(year - 2, k / 2 * 2 % 8 + 1);
      data += id(year, k) + ";" + parents + (k % 2 == 0 ? ";m;" : ";f;") + "02-05-" + std::to_string(year) +
              ";black;Vos;" + (k < 4 ? "North;" : "South;") + (k == 7 && year < 2003 ? "DE" : "") + "\n";
    }
  }
  const WholeRun run = run_program_on(files_of(data, steer), tools_with({"page"}));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  return run.file("dogs.html");
}

/// What stands between two texts, for all of them.
std::vector<std::string> pieces_between(std::string_view text, std::string_view begin, std::string_view end) {
  std::vector<std::string> pieces;
  for (std::size_t at = text.find(begin); at != std::string_view::npos; at = text.find(begin, at)) {
    at += begin.size();
    pieces.emplace_back(text.substr(at, text.find(end, at) - at));
  }
  return pieces;
}

using Titles = std::map<std::string, std::string>;

Titles charts_of_page(const std::string& page) {
  Titles titles;
  for (const std::string& figure : pieces_between(page, "<figure id=\"", "</h3>")) {
    titles[figure.substr(0, figure.find('"'))] = figure.substr(figure.find("<h3>") + 4);
  }
  return titles;
}

/// Of the rows "| `pw-id` | Title |".
Titles documented_charts() {
  Titles titles;
  for (const std::string& line : lines_of(bytes_of(source_folder() + "/docs/page.md"))) {
    if (!line.starts_with("| `pw-")) continue;
    const std::vector<std::string> ids = pieces_between(line, "| `", "`"), cells = pieces_between(line, "` | ", " |");
    EXPECT_TRUE(titles.emplace(ids.at(0), cells.at(0)).second) << line;
  }
  return titles;
}

TEST(ChartDocumentation, NamesExactlyTheChartsThatThereAre) {
  EXPECT_EQ(documented_charts(), charts_of_page(page_with_everything()));
}

TEST(PageIds, StandOnceEach) {
  const std::string page = page_with_everything();
  std::set<std::string> seen;
  for (const std::string& id : pieces_between(page, " id=\"", "\"")) {
    EXPECT_TRUE(seen.insert(id).second) << id;
  }
  EXPECT_GT(seen.size(), charts_of_page(page).size());
  for (const auto& chart : charts_of_page(page)) EXPECT_EQ(times_in(page, "<figure id=\"" + chart.first + "\""), 1U);
}

}  // namespace
}  // namespace pedigreewatch::test
