// What the first screen says: how many animals it names, over how many years it counts, and no zero for what nobody
// knows.
#include <gtest/gtest.h>

#include <string>

#include "page/page_sections.h"
#include "page/standing_pictures.h"
#include "support/analysed_population.h"
#include "support/lines.h"
#include "support/page_reading.h"

namespace pedigreewatch::test {
namespace {

/// Births in 2001 to 2010, two males and three females a year, without parents.
const AnalysedPopulation& herd_of_ten_years() {
  static const AnalysedPopulation herd = analysed(animals_by_year({5, 5, 5, 5, 5, 5, 5, 5, 5, 5}));
  return herd;
}

std::string first_screen(const Standing& standing, const AnalysedPopulation& population = herd_of_ten_years()) {
  PageInput input{population};
  input.standing = &standing;
  std::string page;
  write_standing(page, make_frame(input));
  return page;
}

/// The same of twelve animals, numbered from 1.
std::string screen_of(const Standing& standing) {
  return first_screen(standing, analysed(animals_by_year({12})));
}

TEST(WriteStanding, FiveSiresToUseLessAreNamed) {
  const auto screen = [](std::int32_t sires) {
    Standing standing;
    for (std::int32_t k = 1; k <= sires; ++k) standing.sires_to_rest.push_back({k, 1, 0.06});
    standing.sires.parents = standing.sires_to_rest;
    standing.overused_sires = sires;
    return screen_of(standing);
  };
  EXPECT_EQ(times_in(screen(5), "<td>6.0\xC2\xA0%</td></tr>"), 5U);
  EXPECT_FALSE(has(screen(5), " more, in the table"));
  EXPECT_EQ(times_in(screen(6), "<td>6.0\xC2\xA0%</td></tr>"), 5U);
  EXPECT_TRUE(has(screen(6), "and 1 more, in the table"));
}

TEST(WriteStanding, TwoCarriersOfALineAreNamed) {
  const auto screen = [](std::int32_t carriers) {
    Standing standing;
    RareLine line;
    line.founder = 12;
    for (std::int32_t k = 1; k <= carriers; ++k) line.carriers.push_back({k, 0.01});
    standing.rare_lines.lines = {line};
    return screen_of(standing);
  };
  EXPECT_TRUE(has(screen(2), "2001_0\xC2\xA0\xE2\x99\x82, 2001_1\xC2\xA0\xE2\x99\x80"));
  EXPECT_FALSE(has(screen(2), "\xE2\x99\x80 and "));
  EXPECT_TRUE(has(screen(3), "2001_1\xC2\xA0\xE2\x99\x80 and 1 more"));
}

// Fifty births in five years are ten a year.
TEST(WriteStanding, BirthsAreThoseOfAYear) {
  Standing standing;
  standing.years.last = 2024;
  standing.years.recent_first = 2020;
  standing.young.births = 50;
  standing.young.births_before = 60;
  const std::string screen = screen_of(standing);
  EXPECT_TRUE(has(screen, "10 a year"));
  EXPECT_TRUE(has(screen, "12 a year in the five years before."));
}

TEST(WriteStanding, UnknownParentsAreThoseOfTheYearsThatAreCounted) {
  Standing standing;
  standing.years.last = 2024;
  standing.years.known_first = 2015;
  standing.obstacles = obstacle_unknown_parents;
  standing.data.both_known = 0.5;
  standing.data.known_young = 100;
  EXPECT_TRUE(has(screen_of(standing),
                  "50 of 100 young of 2015\xE2\x80\x93"
                  "2024 have both parents known"));
}

// Between 5 and 1000, which are 328 units apart, 10 stands at ln 2 / ln 200 of them.
TEST(DrawGauge, GoesFromFiveToAThousand) {
  const AnalysedPopulation population = analysed(animals_by_year({12}));
  Standing standing;
  standing.now[by_kinship].rate = 0.01;
  PageInput input{population};
  input.standing = &standing;
  std::string page;
  draw_gauge(page, make_frame(input), standing);
  EXPECT_TRUE(has(page, "<text x=\"48.9\" y=\"98.0\" class=\"p\">10</text>")) << page;
}

// The line of F has a point for each of the last thirty years.
TEST(DrawTrend, ShowsThirtyYears) {
  const auto steps = [](std::size_t years) {
    const AnalysedPopulation population = analysed(animals_by_year(std::vector<int>(years, 1)));
    Standing standing;
    standing.years.last = static_cast<std::int32_t>(2000 + years);
    PageInput input{population};
    input.standing = &standing;
    std::string page;
    draw_trend(page, make_frame(input), standing);
    const std::size_t begin = page.find("class=\"l l1\"");
    return times_in(page.substr(begin, page.find("/>", begin) - begin), "L");
  };
  EXPECT_EQ(steps(29), 28U);
  EXPECT_EQ(steps(30), 29U);
  EXPECT_EQ(steps(31), 29U);
}

/// A breed of which all is known.
Standing known_standing() {
  Standing standing;
  standing.years = {2010, 2006, 2008, 2002, 3.0, 2001};
  standing.obstacles = no_obstacle;
  standing.pace = Pace::on_the_edge;
  standing.now[by_kinship] = {0.008, 0.1, 3.0};
  standing.sires.parents = {{1, 10, 0.4}, {3, 10, 0.4}, {5, 5, 0.2}};
  standing.sires.effective = 2.8;
  standing.dams.parents = {{2, 25, 1.0}};
  standing.dams.effective = 1.0;
  standing.young.births = standing.young.births_before = 25;
  standing.young.judged = 25;
  standing.young.shallow = 5;
  standing.data.equivalents = 5.5;
  standing.data.both_known = 1.0;
  standing.data.known_young = 50;
  standing.data.unknown_parents = 0.02;
  standing.data.cohort = 25;
  return standing;
}

/// The same where no age of a parent is known.
Standing standing_without_interval() {
  Standing standing = known_standing();
  standing.years = {2010, 2006, 2010, 2010, 0.0, 2001};
  standing.obstacles = obstacle_no_interval;
  standing.pace = Pace::cannot_be_judged;
  standing.now = {};
  standing.ages.parents = {50, 50};
  standing.ages.ages = {0, 20};
  return standing;
}

TEST(FirstScreen, WithoutAnIntervalNoLimitIsJudgedAndTheFiguresStand) {
  const std::string known = first_screen(known_standing());
  EXPECT_TRUE(has(known, "They make"));
  EXPECT_TRUE(has(known, "Dotted: 1"));
  EXPECT_EQ(times_in(known, "not judged"), 0U);
  const std::string page = first_screen(standing_without_interval());
  EXPECT_TRUE(has(page, "No generation interval is known"));
  EXPECT_TRUE(has(page, "births at which that of the sire is known: 0, that of the dam: 20."));
  EXPECT_TRUE(has(page, "<p class=\"fig\">3, as good as 3</p>"));
  EXPECT_TRUE(has(page, "<p class=\"fig\">5 a year</p>"));
  EXPECT_EQ(times_in(page, "not judged"), 2U) << "of the board";
  EXPECT_FALSE(has(page, "They make")) << "no rise is known";
  EXPECT_FALSE(has(page, "Dotted: 1"));
  EXPECT_FALSE(has(page, "Too few animals"));
  EXPECT_FALSE(has(page, "No single animal stands out"));
  EXPECT_TRUE(has(page, "Find the dates of birth of the parents first"));
}

TEST(FirstScreen, TellsAnIntervalThatCannotBe) {
  Standing standing = standing_without_interval();
  standing.ages.ages = {50, 50};
  standing.ages.impossible_interval = -1.5;
  const std::string page = first_screen(standing);
  EXPECT_TRUE(has(page, "the generation interval would be -1.5 years"));
  EXPECT_TRUE(has(page, "Mend the dates of birth of parents and young first"));
  standing.ages.impossible_interval.reset();
  standing.years.generation_interval = 3.0;
  EXPECT_FALSE(has(first_screen(standing), "Find the dates of birth")) << "there is an interval";
}

TEST(FirstScreen, ParentsThatNobodyRecordedAreADash) {
  Standing standing = known_standing();
  standing.dams = {};
  standing.young.judged = 0;
  const std::string page = first_screen(standing);
  EXPECT_TRUE(has(page,
                  "Of no young of 2006\xE2\x80\x93"
                  "2010 is the dam known."));
  EXPECT_FALSE(has(page, "is the sire known."));
  EXPECT_TRUE(has(page, "are both parents known."));
  standing.sires = {};
  EXPECT_TRUE(has(first_screen(standing), "is the sire known."));
  EXPECT_EQ(times_in(first_screen(standing), "not judged"), 2U) << "share and F";
}

TEST(FirstScreen, InbreedingThatCannotBeSeenIsADash) {
  Standing standing = known_standing();
  standing.young.shallow = 24;
  EXPECT_TRUE(has(first_screen(standing), "0 of 25"));
  standing.young.shallow = 25;
  const std::string page = first_screen(standing);
  EXPECT_TRUE(has(page, "have fewer than two generations known: inbreeding cannot be seen"));
  EXPECT_FALSE(has(page, "0 of 25"));
  EXPECT_EQ(times_in(page, "not judged"), 1U);
}

TEST(FirstScreen, BirthsAreOfTheYearsThatThereAre) {
  const auto births = [](const std::vector<int>& counts, std::int64_t recent, std::int64_t before) {
    const AnalysedPopulation population = analysed(animals_by_year(counts));
    Standing standing = known_standing();
    standing.years.last = population.store.birth_years.last;
    standing.years.recent_first = standing.years.last - 4;
    standing.young.births = recent;
    standing.young.births_before = before;
    return first_screen(standing, population);
  };
  const std::string one = births({3}, 3, 0);
  EXPECT_TRUE(has(one, "3 a year</p><p class=\"s\">Nothing is recorded before."));
  const std::string six = births({4, 5, 5, 5, 5, 5}, 25, 4);
  EXPECT_TRUE(has(six, "5 a year</p><p class=\"s\">4 a year in 2001; nothing is recorded before."));
  const std::string few = births({1, 0, 0, 0, 1, 0, 0, 0, 0, 1}, 1, 2);
  EXPECT_TRUE(has(few, "0.2 a year</p><p class=\"s\">0.4 a year in the five years before."));
}

TEST(FirstScreen, AnImportIsCountedInGenerationsUpToAHundred) {
  Standing standing = known_standing();
  standing.settings.most_sire_share = 0.1;
  standing.young.chance_inbreeding = 0.5;  // an import would take 0.05 off it
  const auto page_at = [&](double rate) {
    standing.now[by_kinship].rate = rate;
    return first_screen(standing);
  };
  EXPECT_TRUE(has(page_at(0.05 / 0.5 / 99.9), "F rises by as much in 99.9 generations"));
  const std::string slow = page_at(0.05 / 0.5 / 100.1);
  EXPECT_FALSE(has(slow, "100.1"));
  EXPECT_TRUE(has(slow, "takes more than 100 generations"));
}

TEST(FirstScreen, AsksForAncestorsWhereOnlyThoseOfFoundersAreUnknown) {
  Standing standing = known_standing();
  standing.obstacles = obstacle_unknown_parents;
  standing.pace = Pace::cannot_be_judged;
  standing.data.both_known = 0.5;
  EXPECT_TRUE(has(first_screen(standing), "Find the unknown parents first"));
  standing.data.unknown_parents = 0.0;
  EXPECT_TRUE(has(first_screen(standing), "Find more ancestors first"));
}

TEST(FirstScreen, NamesCarriersOfARareLineWithTheirIdentification) {
  const AnalysedPopulation population =
      analysed("id;name;sire;dam;sex;birthdate\nA1;Jip;;;m;02-05-2001\nA2;Jip;;;f;02-05-2001\nA3;;;;f;02-05-2002\n");
  Standing standing = known_standing();
  standing.rare_lines = {{{1, 0.001, {{2, 0.01}, {3, 0.02}}}}, 12, 3};
  const std::string page = first_screen(standing, population);
  EXPECT_TRUE(has(page, "Jip (A1)"));
  EXPECT_TRUE(has(page, "Jip (A2)"));
  EXPECT_TRUE(has(page, "A3\xC2\xA0")) << "without a name the identification alone";
}

TEST(FirstScreen, NamesTheTablesAsTheyAreCalled) {
  Standing standing = known_standing();
  standing.sires = {};
  standing.dams = {};
  const std::string page = first_screen(standing);
  EXPECT_TRUE(has(page, "low mean kinship (table ")) << page;
  EXPECT_TRUE(has(page, "_animals)."));
  EXPECT_FALSE(has(page, "NAME_"));
}

TEST(FirstScreen, SaysWhyTheYearsBeforeCannotBeCompared) {
  Standing standing = known_standing();
  standing.lacking_before = LackingParents{{1993, 1997}, {2007, 2020}, 0.6, 0.99, true};
  EXPECT_TRUE(
      has(first_screen(standing), "It cannot be compared with before 2007: of the parents of the animals born 1993"));
  standing.lacking_before->has_births = false;
  EXPECT_FALSE(has(first_screen(standing), "It cannot be compared"));
  standing.lacking_before.reset();
  standing.rule = RuleEffect{2007, {}, {}, false, {}};
  EXPECT_TRUE(has(first_screen(standing), "it takes 3 years before and after"));
  standing.rule->lacking_before = LackingParents{{1993, 1997}, {2007, 2020}, 0.6, 0.99, true};
  EXPECT_TRUE(has(first_screen(standing), "It cannot be compared with before 2007"));
  standing.years.generation_interval = 0.0;
  EXPECT_TRUE(has(first_screen(standing), "cannot be told without a generation interval"));
}

}  // namespace
}  // namespace pedigreewatch::test
