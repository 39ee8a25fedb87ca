#include "page/chart_making.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

/// A chart of one year, and layers "1", "2", ... of which layer k has k animals.
Chart one_year() {
  Chart chart;
  add_place(chart, "2001");
  return chart;
}

CountLayers growing_layers(std::int64_t count) {
  CountLayers layers;
  for (std::int64_t k = 1; k <= count; ++k) layers.counts[layers.add(std::to_string(k), 1)][0] = k;
  return layers;
}

std::vector<std::string> names_of(const Chart& chart) {
  std::vector<std::string> names;
  for (const Series& series : chart.series) names.push_back(series.name);
  return names;
}

TEST(AddLayers, EightAreAllDrawn) {
  Chart chart = one_year();
  add_layers(chart, growing_layers(8), "rest");
  EXPECT_EQ(chart.series.size(), 8U);
  EXPECT_EQ(chart.series.back().name, "8");
}

TEST(AddLayers, OfMoreTheSevenLargestAndTheRestAreDrawn) {
  Chart chart = one_year();
  add_layers(chart, growing_layers(10), "rest");
  EXPECT_EQ(names_of(chart), (std::vector<std::string>{"4", "5", "6", "7", "8", "9", "10", "rest"}));
  EXPECT_EQ(chart.series.back().values, (std::vector<Value>{6.0}));  // 1 + 2 + 3
  EXPECT_EQ(chart.figures.rows[0].cells.size(), 10U) << "all are listed";
}

TEST(AddLayers, FiguresListAtMostSixteen) {
  Chart chart = one_year();
  add_layers(chart, growing_layers(20), "rest");
  ASSERT_EQ(chart.figures.rows[0].cells.size(), 16U);
  EXPECT_EQ(chart.figures.rows[0].cells.front(), "6");
  EXPECT_EQ(chart.figures.rows[0].cells.back(), "15");  // 1 + 2 + 3 + 4 + 5
}

TEST(AddSizes, MoreThanEightBecomeClassesOfEqualWidth) {
  Chart chart = one_year();
  add_sizes(chart, growing_layers(10));
  EXPECT_EQ(names_of(chart), (std::vector<std::string>{"1-2", "3-4", "5-6", "7-8", "9-10"}));
  EXPECT_EQ(chart.series.back().values, (std::vector<Value>{19.0}));
  EXPECT_EQ(chart.figures.rows[0].cells.size(), 10U);
}

TEST(AddSizes, LastClassMayBeNarrower) {
  Chart chart = one_year();
  add_sizes(chart, growing_layers(17));
  EXPECT_EQ(names_of(chart), (std::vector<std::string>{"1-3", "4-6", "7-9", "10-12", "13-15", "16-17"}));
  EXPECT_EQ(chart.figures.rows[0].cells.size(), 6U) << "more than sixteen are listed in classes too";
}

TEST(AddColumn, ValueThatIsNotThereIsADash) {
  Chart chart = one_year();
  add_column(chart, "c", {std::nullopt}, 2);
  EXPECT_EQ(chart.figures.rows[0].cells.front(), "\xE2\x80\x93");
}

TEST(KnownIf, NoNumberIsNoValue) {
  EXPECT_EQ(known_if(true, std::nan("")), std::nullopt);
  EXPECT_EQ(known_if(false, 1), std::nullopt);
  EXPECT_EQ(known_if(true, 0.5F), Value(0.5));
}

TEST(AddLayers, NineAreOneTooManyToDraw) {
  Chart chart = one_year();
  add_layers(chart, growing_layers(9), "rest");
  EXPECT_EQ(names_of(chart), (std::vector<std::string>{"3", "4", "5", "6", "7", "8", "9", "rest"}));
}

TEST(AddLayers, SixteenAreListedSeventeenAreNot) {
  Chart sixteen = one_year(), seventeen = one_year();
  add_layers(sixteen, growing_layers(16), "rest");
  add_layers(seventeen, growing_layers(17), "rest");
  EXPECT_EQ(sixteen.figures.headings.back(), "16");
  EXPECT_EQ(seventeen.figures.headings.back(), "rest");
}

TEST(AddSizes, EightAreDrawnNineInClasses) {
  Chart eight = one_year(), nine = one_year();
  add_sizes(eight, growing_layers(8));
  add_sizes(nine, growing_layers(9));
  EXPECT_EQ(names_of(eight).back(), "8");
  EXPECT_EQ(names_of(nine), (std::vector<std::string>{"1-2", "3-4", "5-6", "7-8", "9"}));
}

TEST(AddSizes, SixteenAreListedOneByOne) {
  Chart chart = one_year();
  add_sizes(chart, growing_layers(16));
  EXPECT_EQ(chart.figures.rows[0].cells.size(), 16U);
}

}  // namespace
}  // namespace pedigreewatch::test
