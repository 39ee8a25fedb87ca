#include "page/chart_figure.h"

#include <gtest/gtest.h>

#include <string>

#include "page/chart_making.h"
#include "support/lines.h"
#include "support/page_reading.h"

namespace pedigreewatch::test {
namespace {

/// A chart with so many marks, "m1", "m2", ...
std::string chart_with_marks(std::size_t count) {
  Chart chart;
  add_place(chart, "2001");
  add_series(chart, "F", {1.0}, 0);
  for (std::size_t k = 1; k <= count; ++k) chart.marks.push_back({0, 1.0, "m" + std::to_string(k)});
  std::string page;
  write_chart(page, chart, ToolLanguage::english);
  return page;
}

TEST(WriteChart, FiveMarksAreToldInWords) {
  EXPECT_TRUE(has(chart_with_marks(5), "m4; m5."));
  EXPECT_TRUE(has(chart_with_marks(6), "m4; m5; and 1 more."));
  EXPECT_FALSE(has(chart_with_marks(6), "m6"));
}

TEST(WriteChart, FoldedOnesStandBehindTheirTitle) {
  Chart chart;
  chart.title = "T";
  add_place(chart, "2001");
  add_series(chart, "F", {1.0}, 0);
  chart.is_folded = true;
  std::string page;
  write_chart(page, chart, ToolLanguage::english);
  EXPECT_TRUE(page.starts_with("<details class=\"fold\"><summary>T</summary>"));
}

// The first panel ends at 2, the second at 4: both are drawn up to 4. The third has another unit.
TEST(WriteChart, PanelsOfOneUnitHaveOneAxis) {
  Chart chart;
  chart.id = "c";
  add_place(chart, "2001");
  for (const double value : {2.0, 4.0, 100.0}) {
    chart.panels.push_back(make_panel(chart, ChartKind::lines, "p", value < 100.0 ? "%" : "years"));
    chart.panels.back().series = {{"s", {value}}};
  }
  std::string page;
  write_chart(page, chart, ToolLanguage::english);
  EXPECT_EQ(times_in(page, "viewBox=\"0 0 360 250\""), 3U);
  EXPECT_EQ(times_in(page, "class=\"y\">4</text>"), 2U);
  EXPECT_EQ(times_in(page, "class=\"y\">100</text>"), 1U);
  EXPECT_TRUE(has(page, "id=\"c-3-t\""));
}

TEST(WriteNamedBars, MoreThanTheLimitHasAnotherColour) {
  NamedBars bars{"b", "T", "R", {{"Sire", "Drawn"}, {{"a", {}}, {"b", {}}}}, {0.10, 0.05}, 0.05};
  std::string page;
  write_named_bars(page, bars);
  EXPECT_TRUE(has(page, "class=\"c2\" d=\"M0 0h100v8H0z\""));
  EXPECT_TRUE(has(page, "class=\"c1\" d=\"M0 0h50v8H0z\""));
}

TEST(WriteChart, OneSeriesNeedsNoLegend) {
  EXPECT_FALSE(has(chart_with_marks(0), "class=\"legend\""));
}

}  // namespace
}  // namespace pedigreewatch::test
