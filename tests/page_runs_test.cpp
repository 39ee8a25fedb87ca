// Whole runs of `pedigreewatch-tools page`: what a page must be like whatever stands in the data.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "page/page.h"
#include "support/lines.h"
#include "support/page_reading.h"
#include "support/program_run.h"
#include "support/sha256.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

constexpr std::string_view dash = "\xE2\x80\x93";
constexpr std::string_view head = "id;sire;dam;sex;birthdate\n";

std::string page_of(const Files& files, std::vector<std::string> arguments = {}) {
  arguments.insert(arguments.begin(), "page");
  const WholeRun run = run_program_on(files, tools_with(arguments));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  return run.file("dogs.html");
}

std::string page_of_data(const std::string& data) {
  return page_of(files_of(data));
}

/// A population of `years` birth years from 1700 on, each with so many animals of the year before's parents.
std::string many_years(int years, int animals) {
  std::string data(head);
  for (int year = 0; year < years; ++year) {
    for (int k = 0; k < animals; ++k) {
      const std::string before = std::to_string(year - 1) + "_";
      data += std::to_string(year) + "_" + std::to_string(k) + ";";
      data += year == 0 ? ";;"
                        : before + std::to_string(k / 4 * 2 % animals) + ";" + before +
                              std::to_string(k / 2 * 2 % animals + 1) + ";";
      data += (k % 2 == 0 ? "m;" : "f;") + std::string("01-06-") + std::to_string(1700 + year) + "\n";
    }
  }
  return data;
}

void expect_sound(const std::string& page) {
  EXPECT_EQ(times_in(page, "<h1>"), 1U);
  EXPECT_EQ(times_in(page, "<main>"), 1U);
  EXPECT_EQ(times_in(page, "<script"), 1U);
  EXPECT_EQ(times_in(page, "<style"), 1U);
  EXPECT_EQ(times_in(page, "<table"), times_in(page, "</table>"));
  EXPECT_EQ(times_in(page, "<figure"), times_in(page, "</figure>"));
  EXPECT_EQ(times_in(page, " style="), 0U) << "the policy allows no style in an element";
  for (const std::string_view request : {"http:", "https:", "<img", "<link", "<iframe", "@import", "url(\"", "url(h"}) {
    EXPECT_EQ(times_in(page, request), 0U) << request;
  }
  for (const std::string_view never : {">nan", ">-nan", ">inf", ">-inf", "NaN", "Infinity", "***"}) {
    EXPECT_EQ(times_in(page, never), 0U) << never;
  }
}

TEST(Sha256, OfTheExampleOfItsStandard) {
  // "abc" has ba7816bf 8f01cfea 414140de 5dae2223 b00361a3 96177a9c b410ff61 f20015ad.
  EXPECT_EQ(sha256_in_base64("abc"), "ungWv48Bz+pBQUDeXa4iI7ADYaOWF3qctBD/YfIAFa0=");
}

/// S and D have a, b and c; d is of the full sibs a and b, e of S and its daughter b.
const std::string close_family = std::string(head) +
                                 "S;;;m;01-01-2000\nD;;;f;02-01-2000\na;S;D;m;03-03-2002\nb;S;D;f;04-03-2002\n"
                                 "c;S;D;f;04-03-2002\nd;a;b;f;05-05-2004\ne;S;b;m;06-05-2004\n";

TEST(PageDiversity, ShowsWhatIsLeftOfTheFoundersByYear) {
  const std::string page = page_of_data(close_family);
  const PageTable diversity = table_in(chart_of(page, "gene-diversity"));
  ASSERT_EQ(diversity.rows.size(), 5U);
  // Of three full sibs the mean kinship is (3/2 + 6/4) / 9 = 1/3; two founders alike: 1/4 is lost with them.
  EXPECT_EQ(diversity.rows[2].cells, (std::vector<std::string>{"3", "66.67", "25.00", "8.33"}));
  EXPECT_EQ(diversity.rows[3].cells[1], dash);
}

TEST(PageDiversity, ShowsCloseMatingsAndClassesOfInbreeding) {
  const std::string page = page_of_data(close_family);
  const PageTable matings = table_in(chart_of(page, "close-matings")),
                  classes = table_in(chart_of(page, "inbreeding-classes"));
  EXPECT_EQ(matings.rows[4].cells, (std::vector<std::string>{"2", "2", "50.00", "50.00", "0.00", "0.00"}));
  EXPECT_EQ(classes.rows[4].cells, (std::vector<std::string>{"2", "0", "0", "0", "2", "0"}));
}

TEST(PageLists, NameTheAnimalsThatPeopleActOn) {
  const std::string page = page_of_data(close_family);
  const auto list = [&](std::string_view caption) {
    const std::size_t place = page.find(caption);
    EXPECT_NE(place, std::string::npos) << caption;
    return table_in(std::string_view(page).substr(place));
  };
  const PageTable sires = list("The most used sires, and the breed without them");
  ASSERT_EQ(sires.rows.size(), 2U);
  EXPECT_EQ(sires.rows[0].heading, "S");
  // Of the five animals with two known parents S has four, and none is left without him.
  EXPECT_EQ(sires.rows[0].cells, (std::vector<std::string>{"2000", "4", "80.0", "5", std::string(dash)}));
  const PageTable inbred = list("The most inbred animals");
  ASSERT_EQ(inbred.rows.size(), 2U);
  EXPECT_EQ(inbred.rows[0].cells[1], "0.2500");
  EXPECT_EQ(list("Females with the lowest mean kinship").rows.size(), 4U);
  EXPECT_EQ(list("Males with the lowest mean kinship").rows.size(), 3U);
}

/// The card of what to do.
std::string to_do(const std::string& page, std::string_view heading) {
  const std::size_t begin = page.find(heading), end = page.find("</div>", begin);
  EXPECT_NE(begin, std::string::npos) << heading;
  return page.substr(std::min(begin, page.size()), end - begin);
}

TEST(PageStanding, ALoneBirthBehindTheOthersIsMendedFirst) {
  // Twenty years of forty, the last 1719; line 802 is the first behind them.
  const std::string herd = many_years(20, 40), parents = "19_0;19_1;m;";
  const std::string whole = page_of_data(herd + "late;" + parents + "01-06-1720\n");
  EXPECT_FALSE(has(whole, "Mend these dates of birth first"));
  const std::string page = page_of_data(herd + "late;" + parents + "01-06-1721\n");
  EXPECT_TRUE(has(page, "<p class=\"verdict\">Cannot be judged</p>"));
  EXPECT_FALSE(has(page, "too few to change it"));
  EXPECT_FALSE(has(page, "Find the unknown parents first"));
  const std::string card = to_do(page, "<h3>What to do</h3>");
  EXPECT_TRUE(has(card,
                  "<ol><li><strong>Mend these dates of birth first</strong> They lie after today, or alone after "
                  "years without births. The last year of birth, 1721, and all that this page"));
  const std::string without_parents = page_of_data(herd + "late;;;m;01-06-1740\n");
  EXPECT_TRUE(has(without_parents, "Mend these dates of birth first"));
  EXPECT_FALSE(has(without_parents, "Find the unknown parents first"));
  EXPECT_TRUE(has(card, "<td>line 802</td><td>1721</td>"));
}

// Nobody's parents are unknown but those of the founders.
TEST(PageStanding, UnknownParentsAreNoReasonWhereAllAreKnown) {
  const std::string shallow = page_of_data(many_years(3, 40)), deep = page_of_data(many_years(20, 40));
  EXPECT_FALSE(has(shallow, "100 of 100 young of"));
  EXPECT_FALSE(has(deep, "Find the unknown parents first"));
}

TEST(PagePolicy, NamesTheHashesOfStyleAndScriptAndNothingElse) {
  const std::string page = page_of_data(std::string(head) + "a;;;m;01-01-2001\n");
  const std::string policy = "content=\"default-src 'none'; style-src 'sha256-" + sha256_in_base64(page_style()) +
                             "'; script-src 'sha256-" + sha256_in_base64(page_script()) +
                             "'; base-uri 'none'; form-action 'none'\"";
  EXPECT_TRUE(has(page, policy));
  EXPECT_TRUE(has(page, "<style>" + std::string(page_style()) + "</style>"));
  EXPECT_TRUE(has(page, "<script>" + std::string(page_script()) + "</script>"));
}

TEST(PagePolicy, ScriptIsBelowTwoKilobytes) {
  EXPECT_LT(page_script().size(), 2000U);
}

TEST(PageSize, SixtyYearsFitInto300Kilobytes) {
  const std::string page = page_of_data(many_years(60, 40));
  expect_sound(page);
  EXPECT_EQ(table_in(chart_of(page, "inbreeding")).rows.size(), 60U);
  EXPECT_LT(page.size(), 300'000U);
}

TEST(PageYears, OfMoreThan300TheLast300AreShown) {
  const std::string page = page_of_data(many_years(303, 4));
  expect_sound(page);
  const PageTable table = table_in(chart_of(page, "births"));
  ASSERT_EQ(table.rows.size(), 300U);
  EXPECT_EQ(table.rows.front().heading, "1703");
  EXPECT_EQ(table.rows.back().heading, "2002");
  EXPECT_TRUE(has(page, "The charts show the last 300 years."));
  EXPECT_EQ(table_in(chart_of(page_of_data(many_years(300, 4)), "births")).rows.front().heading, "1700");
}

TEST(PageOfHostileNames, AreTextAndNeverMarkup) {
  SteerLines steer;
  steer.population_name = "<script>alert(1)</script>\"'&";
  steer.subpopulations = "2\n<b>x</b>\n\xE2\x80\xAE\" onload=";
  const std::string data =
      "id;sire;dam;sex;birthdate;breeder;breedtype;name\n"
      "<img src=x>;;;m;01-01-2001;</table><h1>;<b>x</b>;&amp;\n"
      "b\x01\";;;f;01-01-2001;\xD7\x90\xD7\x91;\xE2\x80\xAE\" onload=;';--\n"
      "c;<img src=x>;b\x01\";m;01-01-2002;</script>;<b>x</b>;\xFF\xFE\n"
      "d;<img src=x>;b\x01\";f;01-01-2002;</script>;<b>x</b>;]]>\n";
  const std::string page = page_of(files_of(data, steer));
  expect_sound(page);
  EXPECT_TRUE(has(page, "<title>&lt;script&gt;alert(1)&lt;/script&gt;&quot;&#39;&amp;</title>"));
  EXPECT_EQ(times_in(page, "<img"), 0U);
  EXPECT_EQ(times_in(page, "<b>"), 0U);
  EXPECT_EQ(times_in(page, "\xE2\x80\xAE"), 0U) << "the mark that turns the text is named";
  EXPECT_EQ(times_in(page, "\x01"), 0U);
}

TEST(PageOfFewData, HeaderOnlyHasASentenceInPlaceOfCharts) {
  const std::string page = page_of_data(std::string(head));
  expect_sound(page);
  EXPECT_EQ(times_in(page, "<figure"), 0U);
  EXPECT_TRUE(has(page, "there is nothing to show by year"));
}

TEST(PageOfFewData, NoDatesHasASentenceInPlaceOfCharts) {
  const std::string page = page_of_data(std::string(head) + "a;;;m;\nb;;;f;\nc;a;b;m;\n");
  expect_sound(page);
  EXPECT_TRUE(has(page, "3 animals, of none of which the year of birth is known."));
}

TEST(PageOfFewData, OneYearHasNoEffectiveSize) {
  const std::string page = page_of_data(std::string(head) + "a;;;m;01-01-2001\nb;;;f;01-01-2001\n");
  expect_sound(page);
  EXPECT_EQ(times_in(page, "<td>not estimable"), 10U);  // six in the summary, four with the rates
  EXPECT_TRUE(has(page, "cannot be estimated"));
}

TEST(PageOfFewData, OneSexOnlyHasNoLitters) {
  const std::string page = page_of_data(std::string(head) + "a;;;m;01-01-2001\nb;a;;m;01-01-2003\nc;b;;m;01-01-2005\n");
  expect_sound(page);
  EXPECT_TRUE(has(chart_of(page, "litters"), "There are no figures for this in the data."));
}

// Rex and Saar are founders; Bram and Tess are full sibs, whose young Puck has F = 0.25; nothing is born in 2005.
constexpr std::string_view full_sibs =
    "rex;;;m;01-01-2001\nsaar;;;f;01-01-2001\nbram;rex;saar;m;01-01-2003\ntess;rex;saar;f;01-01-2003\n"
    "kees;rex;saar;m;01-01-2004\npuck;bram;tess;f;01-01-2006\n";

TEST(PageFigures, YearsWithoutAnimalsAreGaps) {
  const std::string page = page_of_data(std::string(head) + std::string(full_sibs));
  const PageTable table = table_in(chart_of(page, "inbreeding"));
  ASSERT_EQ(table.rows.size(), 6U);
  EXPECT_EQ(table.rows[4].heading, "2005");
  EXPECT_EQ(table.rows[4].cells[0], "0");
  EXPECT_EQ(table.rows[4].cells[1], dash);
  EXPECT_EQ(table.rows[5].cells[1], "25.00");
  EXPECT_EQ(table.rows[5].cells[3], dash) << "one animal has no kinship with others";
}

TEST(PageFigures, ParentsOfAgeZeroAreNoGap) {
  // c is born on the day of its parents; of a and b, born in the same year, no parents are known; d has neither.
  const std::string page =
      page_of_data(std::string(head) + "a;;;m;01-01-2001\nb;;;f;01-01-2001\nc;a;b;m;01-01-2001\nd;;;m;01-01-2002\n");
  const PageTable table = table_in(chart_of(page, "interval"));
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_EQ(table.rows[0].cells, (std::vector<std::string>{"3", "0.00", "0.00", "0.00"}));
  EXPECT_EQ(table.rows[1].cells,
            (std::vector<std::string>{"1", std::string(dash), std::string(dash), std::string(dash)}));
}

TEST(PageFigures, PathsAreShownWithoutAReferencePopulation) {
  // No animal has two known parents, but b is a sire itself and was born when its sire was three.
  const std::string page = page_of_data(std::string(head) + "a;;;m;01-01-2001\nb;a;;m;01-01-2004\nc;b;;m;01-01-2007\n");
  EXPECT_TRUE(has(page, "The reference population has no animals"));
  EXPECT_TRUE(has(page, "sire to son</th><td>1<td>3.00"));
}

TEST(PageMarks, LoneFirstYearIsNamed) {
  const std::string page = page_of_data(std::string(head) + std::string(full_sibs));
  EXPECT_TRUE(has(chart_of(page, "births"), "2001: the first year stands alone"));
  EXPECT_FALSE(has(chart_of(page, "inbreeding"), ": F rose from")) << "years of a few animals";
}

TEST(PageMarks, IntervalBelowZeroIsNamed) {
  const std::string page =
      page_of_data(std::string(head) + "a;;;m;01-01-2004\nb;;;f;01-01-2004\nc;a;b;m;01-01-2001\nd;;;m;01-01-2002\n");
  EXPECT_TRUE(has(chart_of(page, "interval"), "2001: the mean age of sires is below 0 (-3.00)"));
}

TEST(PageOfSubpopulations, PairsAreHalvedAndStandUnderTheirNames) {
  // In 2003 North has no animal: the report moves the pair of South and West to the left, the page does not.
  SteerLines steer;
  steer.subpopulations = "3\nNorth\nSouth\nWest";
  const std::string data =
      "id;sire;dam;sex;birthdate;breedtype\n"
      "s;;;m;01-01-2001;South\nd;;;f;01-01-2001;West\n"
      // full sibs, two in the South and two in the West: a relationship of 0.5 between any two
      "e;s;d;m;01-01-2003;South\nf;s;d;f;01-01-2003;South\ng;s;d;m;01-01-2003;West\nh;s;d;f;01-01-2003;West\n";
  const std::string page = page_of(files_of(data, steer));
  const PageTable table = table_in(chart_of(page, "between"));
  ASSERT_EQ(table.headings.size(), 5U);
  EXPECT_EQ(table.headings[4], "South - West");
  ASSERT_EQ(table.rows.size(), 3U);
  EXPECT_EQ(table.rows[2].cells, (std::vector<std::string>{"4", std::string(dash), std::string(dash), "25.00"}));
  EXPECT_EQ(table.rows[0].cells[3], dash) << "one animal a subpopulation";
}

TEST(PageOfBreeders, AreCountedByWholeNames) {
  const std::string page = page_of_data(
      "id;sire;dam;sex;birthdate;breeder\n"
      "a;;;m;01-01-2001;Kennel of the Long Name\nb;;;f;01-01-2001;Kennel of the Long Name\nc;a;b;m;01-01-2012;Vos\n"
      "d;;;m;01-01-2012;\n");
  const PageTable table = table_in(chart_of(page, "breeders"));
  EXPECT_EQ(table.rows.front().cells[1], "2");
  EXPECT_TRUE(has(page, "</th><td>2<td>0<td>2\n")) << "two animals, none of the last ten years, both with offspring";
  EXPECT_TRUE(has(page, "Vos</th><td>1<td>1<td>0\n"));
}

TEST(PageFile, DataFileIsNeverReplaced) {
  Files files = files_of(std::string(head) + "a;;;m;01-01-2001\n", {.data_file_name = "dogs.html"});
  files["dogs.html"] = files["dogs.txt"];
  const WholeRun run = run_program_on(files, tools_with({"page"}));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages, "would replace a file that this run reads"));
  EXPECT_EQ(run.files, files);
}

TEST(PageArguments, WrongOnesAreRefused) {
  const Files files = files_of(std::string(head) + "a;;;m;01-01-2001\n");
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"page", "x"}, {"page", "--nothing"}, {"page", "--years", "x"}}) {
    const WholeRun run = run_program_on(files, tools_with(arguments));
    EXPECT_EQ(run.exit_status, 2);
    EXPECT_TRUE(has(run.messages, "Try: pedigreewatch-tools page --help"));
    EXPECT_EQ(run.files, files);
  }
}

TEST(PageArguments, ReferencePopulationCanBeChosen) {
  const Files files = files_of(std::string(head) + std::string(full_sibs));
  EXPECT_TRUE(
      has(page_of(files, {"--years", "2003-2004"}), "The figures are about the 3 animals born in 2003 to 2004."));
  EXPECT_TRUE(has(page_of(files), "The figures are about 4 of the 6 animals born in"));
}

// One style serves charts and first screen: what one of them draws hollow must not empty the letters of the other.
TEST(PageStyle, LettersOfTheUnitsAreNotDrawnInTheColourOfThePaper) {
  const std::string style(page_style());
  EXPECT_EQ(style.find(".u{fill:var(--b)"), std::string::npos);
  EXPECT_NE(style.find(".hole{fill:var(--b)"), std::string::npos);
}

}  // namespace
}  // namespace pedigreewatch::test
