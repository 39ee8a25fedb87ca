// The picture is 720 by 250 units; values lie between 222 (low) and 24 (high), places between 12 and 658.
#include "page/chart_drawing.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

/// Two places: 12 + 323 / 2 = 173.5 and 496.5.
Chart two_years(ChartKind kind) {
  Chart chart;
  chart.kind = kind;
  chart.id = "c";
  chart.title = "T & U";
  chart.reading = "R";
  chart.unit = "n";
  chart.places = {"2001", "2002"};
  chart.first_number = 2001;
  return chart;
}

std::string drawn(const Chart& chart) {
  std::string page;
  draw_chart(page, chart);
  return page;
}

constexpr std::string_view frame_start =
    "<svg viewBox=\"0 0 720 250\" role=\"img\" aria-labelledby=\"c-t c-d\"><title id=\"c-t\">T &amp; U</title>"
    "<desc id=\"c-d\">R</desc>"
    // 0, 1 and 2 at 222, 123 and 24; the numbers 4 lower
    "<text x=\"664\" y=\"226\" class=\"y\">0</text><text x=\"664\" y=\"127\" class=\"y\">1</text>"
    "<text x=\"664\" y=\"28\" class=\"y\">2</text><path class=\"g\" d=\"M12 222H658M12 123H658M12 24H658\"/>"
    "<text x=\"718\" y=\"14\" class=\"e\">n</text>";
constexpr std::string_view places =
    "<text x=\"173.5\" y=\"240\" class=\"p\">2001</text><text x=\"496.5\" y=\"240\" class=\"p\">2002</text>"
    "<path class=\"a\" d=\"M12 222H658M173.5 222v4M496.5 222v4\"/>";

TEST(DrawChart, LineWithPointsAndMark) {
  Chart chart = two_years(ChartKind::lines);
  chart.series = {{"s", {1.0, 2.0}}};
  chart.is_hollow = {false, true};
  chart.marks = {{1, 2.0, "m"}};
  EXPECT_EQ(drawn(chart), std::string(frame_start) + std::string(places) +
                              "<path class=\"l l1\" d=\"M173.5 123L496.5 24\"/>"
                              "<path class=\"o l1\" d=\"M173.5 123h0\"/>"
                              "<path class=\"q l1\" d=\"M496.5 24h0\"/><path class=\"i\" d=\"M496.5 24h0\"/>"
                              "<path class=\"m\" d=\"M496.5 18l-4.5-8h9z\"/></svg>");
}

TEST(DrawChart, BarsStandUponOneAnother) {
  Chart chart = two_years(ChartKind::stacked_bars);
  chart.series = {{"s", {1.0, std::nullopt}}, {"t", {1.0, 2.0}}};
  // A bar is 0.84 of 323 wide, 271.3, and begins 135.66 left of its place.
  EXPECT_EQ(drawn(chart), std::string(frame_start) +
                              "<path class=\"b b1\" d=\"M37.8 123h271.3V222h-271.3z\"/>"
                              "<path class=\"b b2\" d=\"M37.8 24h271.3V123h-271.3zM360.8 24h271.3V222h-271.3z\"/>" +
                              std::string(places) + "</svg>");
}

TEST(DrawChart, YearWithoutValueInterruptsTheLine) {
  Chart chart = two_years(ChartKind::lines);
  chart.places.emplace_back("2003");
  chart.series = {{"s", {2.0, std::nullopt, 2.0}}};
  EXPECT_NE(drawn(chart).find("<path class=\"l l1\" d=\"M119.7 24M550.3 24\"/>"), std::string::npos);
}

TEST(DrawChart, ReferenceLineHasItsText) {
  Chart chart = two_years(ChartKind::lines);
  chart.series = {{"s", {2.0, 2.0}}};
  chart.references = {{1.0, "1 %"}};
  EXPECT_NE(drawn(chart).find("<path class=\"r\" d=\"M12 123H658\"/>"), std::string::npos);
  EXPECT_GT(drawn(chart).find("<text x=\"14\" y=\"119\" class=\"v\">1 %</text>"), drawn(chart).find("class=\"l l1\""))
      << "no line goes through the text";
}

TEST(DrawChart, SlopesAndEventsHaveTheirTexts) {
  Chart chart = two_years(ChartKind::lines);
  chart.series = {{"s", {2.0, 2.0}}};
  chart.slopes = {{0, 1, 0.0, 2.0, "1 %"}};
  chart.events = {{1, "rule"}};
  const std::string page = drawn(chart);
  EXPECT_NE(page.find("<path class=\"w\" d=\"M173.5 222L496.5 24\"/>"), std::string::npos);
  EXPECT_NE(page.find("<text x=\"335\" y=\"113\" class=\"p v t\">1 %</text>"), std::string::npos);
  EXPECT_NE(page.find("<path class=\"a\" d=\"M496.5 24V222\"/>"), std::string::npos);
  EXPECT_NE(page.find("<text x=\"492.5\" y=\"34\" class=\"e v\">rule</text>"), std::string::npos);
}

// 646 units: 32 bars are 20.19 wide, 33 are 19.58.
TEST(DrawChart, NarrowBarsHaveNoFillings) {
  const auto bars = [](std::size_t count) {
    Chart chart = two_years(ChartKind::stacked_bars);
    chart.places.assign(count, "1");
    chart.series = {{"s", std::vector<Value>(count, 1.0)}};
    return drawn(chart);
  };
  EXPECT_NE(bars(32).find("class=\"b b1\""), std::string::npos);
  EXPECT_NE(bars(33).find("class=\"b c1\""), std::string::npos);
}

TEST(DrawChart, ColoursSayWhatTheyStandFor) {
  Chart chart = two_years(ChartKind::stacked_bars);
  chart.series = {{"s", {1.0, 1.0}, {Palette::ordered, 3}}, {"t", {1.0, 1.0}, {Palette::coat, 7}}};
  const std::string page = drawn(chart);
  EXPECT_NE(page.find("class=\"b u4\""), std::string::npos);
  EXPECT_NE(page.find("class=\"b co8\""), std::string::npos);
}

TEST(DrawChart, FiveMarksAreDrawn) {
  Chart chart = two_years(ChartKind::lines);
  chart.series = {{"s", {1.0, 2.0}}};
  const auto triangles = [&](std::size_t count) {
    chart.marks.assign(count, {1, 2.0, "m"});
    const std::string page = drawn(chart);
    std::size_t found = 0;
    for (std::size_t at = page.find("h9z"); at != std::string::npos; at = page.find("h9z", at + 1)) ++found;
    return found;
  };
  EXPECT_EQ(triangles(5), 5U);
  EXPECT_EQ(triangles(6), 5U);
}

TEST(DrawChart, NinthSeriesHasTheStyleOfTheFirst) {
  Chart chart = two_years(ChartKind::lines);
  for (int k = 0; k < 9; ++k) chart.series.push_back({"s", {1.0, 2.0}});
  const std::string page = drawn(chart);
  EXPECT_NE(page.find("\"l l8\""), std::string::npos);
  EXPECT_EQ(page.find("\"l l9\""), std::string::npos);
}

}  // namespace
}  // namespace pedigreewatch::test
