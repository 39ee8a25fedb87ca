// Steps that the charts have in common: a place for each year, series with a column of figures, layers from tables.
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "page/chart.h"
#include "page/page_frame.h"
#include "page/page_text.h"

namespace pedigreewatch {

/// What is said of a chart.
struct ChartTexts {
  std::string_view id;
  Wording title, reading, unit;
};

/// A chart without places.
Chart make_chart(const PageFrame& frame, ChartKind kind, const ChartTexts& texts, const Wording& place_heading);

/// A chart with a place for each year of the page, and a column with the number of animals born.
Chart make_year_chart(const PageFrame& frame, ChartKind kind, const ChartTexts& texts);

/// Adds a place that has no figures yet.
void add_place(Chart& chart, std::string place);

/// Adds a column of figures, each value with so many decimals.
void add_column(Chart& chart, std::string_view heading, const std::vector<Value>& values, int decimals);

/// Adds a column of texts, one for each place.
void add_text_column(Chart& chart, std::string_view heading, const std::vector<std::string>& texts);

/// Adds a series and its column of figures.
void add_series(Chart& chart, std::string_view name, const std::vector<Value>& values, int decimals, Paint paint = {});

/// Marks the year of the board's rule, where there is one among the years of the page.
void add_rule_year(Chart& chart, const PageFrame& frame);

/// The parts of 1 in per cent.
std::vector<Value> in_percent(std::vector<Value> values);

/// A small picture of the chart with the same places and no figures of its own.
Chart make_panel(const Chart& chart, ChartKind kind, std::string title, std::string unit);

/// A value for each year of the page.
template <typename ValueOfRow>
std::vector<Value> by_year(const PageFrame& frame, ValueOfRow&& value_of) {
  std::vector<Value> values;
  for (Row row = frame.years.first; row <= frame.years.last; ++row) values.push_back(value_of(row));
  return values;
}

/// A value, or none when it is not known or no number.
template <typename Number>
Value known_if(bool is_known, Number value) {
  const double real_value = static_cast<double>(value);
  return is_known && std::isfinite(real_value) ? Value(real_value) : Value();
}

/// Counts by year in layers, each with its name.
struct CountLayers {
  std::vector<std::string> names;
  std::vector<std::vector<std::int64_t>> counts;  ///< of each layer, by year of the page

  /// Adds a layer of zeros and yields its number.
  std::size_t add(std::string name, std::int64_t years);
};

/// The columns `first` to `first + count - 1` of a table as layers named "1", "2", ...
CountLayers layers_of(const PageFrame& frame, const YearTable<std::int32_t>& table);

/// Adds the layers as series and columns. Of more than eight the seven largest are drawn in their order, and what is
/// left as the eighth by the name of `rest`; of more than sixteen the figures have the fifteen largest and the rest.
void add_layers(Chart& chart, const CountLayers& layers, std::string_view rest);

/// Adds layers that stand for sizes from 1 on. More than eight are drawn in classes of equal width, "1-3", "4-6"; more
/// than sixteen are listed so too. Their colours are ordered.
void add_sizes(Chart& chart, const CountLayers& layers);

}  // namespace pedigreewatch
