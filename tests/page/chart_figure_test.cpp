#include "page/chart_figure.h"

#include <gtest/gtest.h>

#include <string>

#include "page/chart_making.h"
#include "support/lines.h"

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

TEST(WriteChart, TwelveMarksAreToldInWords) {
  EXPECT_TRUE(has(chart_with_marks(12), "m11; m12."));
  EXPECT_TRUE(has(chart_with_marks(13), "m11; m12; "));
  EXPECT_FALSE(has(chart_with_marks(13), "m13"));
}

TEST(WriteChart, OneSeriesNeedsNoLegend) {
  EXPECT_FALSE(has(chart_with_marks(0), "class=\"legend\""));
}

}  // namespace
}  // namespace pedigreewatch::test
