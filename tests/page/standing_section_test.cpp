// How many animals the first screen names, and over how many years it counts.
#include <gtest/gtest.h>

#include <string>

#include "page/page_sections.h"
#include "page/standing_pictures.h"
#include "support/analysed_population.h"
#include "support/lines.h"
#include "support/page_reading.h"

namespace pedigreewatch::test {
namespace {

/// The first screen of twelve animals, numbered from 1, with that standing.
std::string screen_of(const Standing& standing) {
  const AnalysedPopulation population = analysed(animals_by_year({12}));
  PageInput input{population};
  input.standing = &standing;
  std::string page;
  write_standing(page, make_frame(input));
  return page;
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

}  // namespace
}  // namespace pedigreewatch::test
