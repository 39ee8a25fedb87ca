// A value that is not known is no value: the line is interrupted, and the table shows a dash.

#include "page/chart_making.h"

#include <algorithm>
#include <numeric>

namespace pedigreewatch {
namespace {

constexpr Wording year_heading = {"Year", "Jaar"};
constexpr Wording animals_heading = {"Animals", "Dieren"};
constexpr Wording rule_word = {"your year {1}", "uw jaar {1}"};
constexpr std::size_t few_animals = 10;

std::int64_t sum_of(const std::vector<std::int64_t>& counts) {
  return std::accumulate(counts.begin(), counts.end(), std::int64_t{0});
}

/// The layers themselves, or the `most` - 1 largest of them and the rest as a last one.
CountLayers largest_layers(const CountLayers& layers, std::size_t most, std::string_view rest) {
  if (layers.names.size() <= most) return layers;
  std::vector<std::size_t> order(layers.names.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return sum_of(layers.counts[a]) > sum_of(layers.counts[b]); });
  std::sort(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(most) - 1);
  CountLayers largest;
  const auto years = static_cast<std::int64_t>(layers.counts.front().size());
  for (std::size_t k = 0; k < order.size(); ++k) {
    const std::size_t layer = order[k];
    if (k < most) largest.add(k + 1 < most ? layers.names[layer] : std::string(rest), years);
    std::vector<std::int64_t>& counts = largest.counts.back();
    for (std::size_t year = 0; year < counts.size(); ++year) counts[year] += layers.counts[layer][year];
  }
  return largest;
}

/// Neighbours taken together, so that at most `most` are left.
CountLayers classes_of(const CountLayers& sizes, std::size_t most) {
  const std::size_t count = sizes.names.size();
  const std::size_t width = (count + most - 1) / most;
  if (width <= 1) return sizes;
  CountLayers classes;
  for (std::size_t k = 0; k < count; ++k) {
    const std::size_t last = std::min(k - k % width + width, count);
    const std::string name = k + 1 == last ? std::to_string(last) : std::to_string(k + 1) + "-" + std::to_string(last);
    if (k % width == 0) classes.add(name, std::ssize(sizes.counts[k]));
    std::vector<std::int64_t>& counts = classes.counts.back();
    for (std::size_t year = 0; year < counts.size(); ++year) counts[year] += sizes.counts[k][year];
  }
  return classes;
}

std::vector<Value> values_of(const std::vector<std::int64_t>& counts) {
  std::vector<Value> values;
  values.reserve(counts.size());
  for (const std::int64_t count : counts) values.emplace_back(static_cast<double>(count));
  return values;
}

constexpr std::size_t most_drawn = 8, most_listed = 16;

void add_drawn(Chart& chart, const CountLayers& layers, Palette palette) {
  const bool is_few = 2 * layers.names.size() <= most_drawn;  // then every other step of the order
  for (std::size_t k = 0; k < layers.names.size(); ++k) {
    chart.series.push_back({layers.names[k],
                            values_of(layers.counts[k]),
                            {palette, palette == Palette::ordered && is_few ? 2 * k + 1 : k}});
  }
}

void add_listed(Chart& chart, const CountLayers& layers) {
  for (std::size_t k = 0; k < layers.names.size(); ++k) {
    add_column(chart, layers.names[k], values_of(layers.counts[k]), 0);
  }
}

}  // namespace

Chart make_chart(const PageFrame& frame, ChartKind kind, const ChartTexts& texts, const Wording& place_heading) {
  Chart chart;
  chart.language = frame.language;
  chart.kind = kind;
  chart.id = "pw-" + std::string(texts.id);
  chart.title = frame.text(texts.title);
  chart.reading = frame.text(texts.reading);
  chart.unit = frame.text(texts.unit);
  chart.figures.headings.push_back(frame.text(place_heading));
  return chart;
}

Chart make_year_chart(const PageFrame& frame, ChartKind kind, const ChartTexts& texts) {
  Chart chart = make_chart(frame, kind, texts, year_heading);
  chart.figures.headings.push_back(frame.text(animals_heading));
  chart.first_number = frame.store().birth_years.year_of(frame.years.first);
  for (Row row = frame.years.first; row <= frame.years.last; ++row) {
    const std::size_t animals = frame.animals(row).size();
    add_place(chart, frame.year(row));
    chart.is_hollow.push_back(animals < few_animals);
    chart.figures.rows.back().cells.push_back(std::to_string(animals));
  }
  return chart;
}

void add_place(Chart& chart, std::string place) {
  chart.figures.rows.push_back({place, {}});
  chart.places.push_back(std::move(place));
}

void add_column(Chart& chart, std::string_view heading, const std::vector<Value>& values, int decimals) {
  chart.figures.headings.emplace_back(heading);
  for (std::size_t place = 0; place < values.size(); ++place) {
    const Value& value = values[place];
    chart.figures.rows[place].cells.push_back(value ? report_figure(*value, decimals, chart.language)
                                                    : std::string(no_figure));
  }
}

void add_series(Chart& chart, std::string_view name, const std::vector<Value>& values, int decimals, Paint paint) {
  add_column(chart, name, values, decimals);
  chart.series.push_back({std::string(name), values, paint});
}

void add_rule_year(Chart& chart, const PageFrame& frame) {
  if (frame.input.standing == nullptr || !frame.input.standing->rule) return;
  const std::int32_t year = frame.input.standing->rule->year;
  const BirthYears& years = frame.store().birth_years;
  if (year < years.year_of(frame.years.first) || year > years.last) return;
  chart.events.push_back({static_cast<std::size_t>(years.row_of(year) - frame.years.first),
                          phrase(rule_word, frame.language, {std::to_string(year)})});
}

std::vector<Value> in_percent(std::vector<Value> values) {
  constexpr double hundred = 100.0;
  for (Value& value : values) {
    if (value) *value *= hundred;
  }
  return values;
}

Chart make_panel(const Chart& chart, ChartKind kind, std::string title, std::string unit) {
  Chart panel;
  panel.language = chart.language;
  panel.kind = kind;
  panel.title = std::move(title);
  panel.reading = chart.reading;
  panel.unit = std::move(unit);
  panel.places = chart.places;
  panel.first_number = chart.first_number;
  panel.is_hollow = chart.is_hollow;
  return panel;
}

std::size_t CountLayers::add(std::string name, std::int64_t years) {
  names.push_back(std::move(name));
  counts.emplace_back(static_cast<std::size_t>(years), 0);
  return names.size() - 1;
}

CountLayers layers_of(const PageFrame& frame, const YearTable<std::int32_t>& table) {
  CountLayers layers;
  for (std::int64_t column = 1; column <= table.column_count; ++column) {
    std::vector<std::int64_t>& counts = layers.counts[layers.add(std::to_string(column), frame.years.count())];
    for (std::size_t k = 0; k < counts.size(); ++k) {
      counts[k] = table.value(frame.years.first + static_cast<Row>(k), column);
    }
  }
  return layers;
}

void add_text_column(Chart& chart, std::string_view heading, const std::vector<std::string>& texts) {
  chart.figures.headings.emplace_back(heading);
  for (std::size_t place = 0; place < texts.size(); ++place) chart.figures.rows[place].cells.push_back(texts[place]);
}

void add_layers(Chart& chart, const CountLayers& layers, std::string_view rest) {
  add_drawn(chart, largest_layers(layers, most_drawn, rest), Palette::apart);
  add_listed(chart, largest_layers(layers, most_listed, rest));
}

void add_sizes(Chart& chart, const CountLayers& layers) {
  const CountLayers drawn = classes_of(layers, most_drawn);
  add_drawn(chart, drawn, Palette::ordered);
  add_listed(chart, layers.names.size() > most_listed ? drawn : layers);
}

}  // namespace pedigreewatch
