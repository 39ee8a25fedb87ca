// What a chart is made of: plain values and texts, not yet escaped. The writer draws whatever stands here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "text/phrases.h"

namespace pedigreewatch {

/// A value of a chart; none where there is nothing to draw.
using Value = std::optional<double>;

/// What the colours of a chart say: nothing but which series it is, how far along an order it stands, or the colour of
/// a coat.
enum class Palette : std::uint8_t { apart, ordered, coat };

/// The colour of a series. A class has the same one in every breed when it is numbered.
struct Paint {
  Palette palette = Palette::apart;
  std::optional<std::size_t> number = std::nullopt;  ///< in the palette, from 0; none: the place of the series
};

/// A line, or a layer of the bars, with a value for each place along the horizontal axis.
struct Series {
  std::string name;
  std::vector<Value> values;
  Paint paint = {};
  std::vector<Value> low = {}, high = {};  ///< by place: a band around a line; empty: none
};

/// Something that happened at a place: a vertical line across the chart.
struct Event {
  std::size_t place = 0;
  std::string text;
};

/// A straight line from one place to another: how fast something rose between them.
struct Slope {
  std::size_t first = 0, last = 0;
  double first_value = 0.0, last_value = 0.0;
  std::string text;  ///< at its middle
};

/// A horizontal line across the chart that values are held against.
struct ReferenceLine {
  double value = 0.0;
  std::string text;
};

/// Something unusual: a triangle above a point, and a text below the chart.
struct Mark {
  std::size_t place = 0;
  double value = 0.0;
  std::string text;
};

/// The figures in words and numbers. A row of a chart's figures belongs to a place of the chart.
struct FigureTable {
  std::vector<std::string> headings;  ///< of the columns; the first one is that of the row headings
  struct FigureRow {
    std::string heading;
    std::vector<std::string> cells;
  };
  std::vector<FigureRow> rows;
  bool is_of_words = false;  ///< its cells are texts more than numbers
};

enum class ChartKind : std::uint8_t { lines, stacked_bars };

struct Chart {
  ToolLanguage language = ToolLanguage::english;  ///< of its figures
  ChartKind kind = ChartKind::lines;
  std::string id;                            ///< of the element, unique in the page
  std::string title;                         ///< what it shows
  std::string reading;                       ///< one sentence: how to read it
  std::string unit;                          ///< of the vertical axis
  std::vector<std::string> places;           ///< along the horizontal axis
  std::optional<std::int64_t> first_number;  ///< of the places, when they are numbers one apart: years, ages
  std::vector<bool> is_hollow;               ///< by place: a point of few animals; empty: none
  std::vector<Series> series;
  std::vector<ReferenceLine> references;
  std::vector<Event> events;
  std::vector<Slope> slopes;
  std::vector<Mark> marks;
  FigureTable figures;
  std::vector<Chart> panels = {};  ///< small pictures beside one another instead of one; their figures stand here
  bool is_folded = false;          ///< behind its title, until somebody opens it
  bool shows_figures = false;      ///< open from the start, and printed: what its points are is not on the axis
};

/// A reader acts on few marks: so many are drawn and told.
inline constexpr std::size_t most_marks = 5;

/// Whether there is anything to draw.
bool has_values(const Chart& chart);

}  // namespace pedigreewatch
