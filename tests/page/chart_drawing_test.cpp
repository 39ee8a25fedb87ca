// The picture is 720 by 250 units; values lie between 222 (low) and 24 (high), places between 62 and 708.
#include "page/chart_drawing.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

/// Two places: 62 + 323 / 2 = 223.5 and 546.5.
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
    "<text x=\"56\" y=\"226\" class=\"e\">0</text><text x=\"56\" y=\"127\" class=\"e\">1</text>"
    "<text x=\"56\" y=\"28\" class=\"e\">2</text><path class=\"g\" d=\"M62 222H708M62 123H708M62 24H708\"/>"
    "<text x=\"62\" y=\"14\" class=\"u\">n</text>";
constexpr std::string_view places =
    "<text x=\"223.5\" y=\"240\" class=\"p\">2001</text><text x=\"546.5\" y=\"240\" class=\"p\">2002</text>"
    "<path class=\"a\" d=\"M62 222H708M223.5 222v4M546.5 222v4\"/>";

TEST(DrawChart, LineWithPointsAndMark) {
  Chart chart = two_years(ChartKind::lines);
  chart.series = {{"s", {1.0, 2.0}}};
  chart.is_hollow = {false, true};
  chart.marks = {{1, 2.0, "m"}};
  EXPECT_EQ(drawn(chart), std::string(frame_start) + std::string(places) +
                              "<path class=\"l l1\" d=\"M223.5 123L546.5 24\"/>"
                              "<path class=\"o l1\" d=\"M223.5 123h0\"/>"
                              "<path class=\"q l1\" d=\"M546.5 24h0\"/><path class=\"i\" d=\"M546.5 24h0\"/>"
                              "<path class=\"m\" d=\"M546.5 18l-4.5-8h9z\"/></svg>");
}

TEST(DrawChart, BarsStandUponOneAnother) {
  Chart chart = two_years(ChartKind::stacked_bars);
  chart.series = {{"s", {1.0, std::nullopt}}, {"t", {1.0, 2.0}}};
  // A bar is 0.84 of 323 wide, 271.3, and begins 135.66 left of its place.
  EXPECT_EQ(drawn(chart), std::string(frame_start) +
                              "<path class=\"b b1\" d=\"M87.8 123h271.3V222h-271.3z\"/>"
                              "<path class=\"b b2\" d=\"M87.8 24h271.3V123h-271.3zM410.8 24h271.3V222h-271.3z\"/>" +
                              std::string(places) + "</svg>");
}

TEST(DrawChart, YearWithoutValueInterruptsTheLine) {
  Chart chart = two_years(ChartKind::lines);
  chart.places.emplace_back("2003");
  chart.series = {{"s", {2.0, std::nullopt, 2.0}}};
  EXPECT_NE(drawn(chart).find("<path class=\"l l1\" d=\"M169.7 24M600.3 24\"/>"), std::string::npos);
}

TEST(DrawChart, ReferenceLineHasItsText) {
  Chart chart = two_years(ChartKind::lines);
  chart.series = {{"s", {2.0, 2.0}}};
  chart.references = {{1.0, "1 %"}};
  EXPECT_NE(
      drawn(chart).find("<path class=\"r\" d=\"M62 123H708\"/><text x=\"706\" y=\"119\" class=\"e v\">1 %</text>"),
      std::string::npos);
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
