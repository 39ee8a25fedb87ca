// Coordinates have at most one decimal, and everything of one kind is a single path: a page stays small.

#include "page/chart_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "page/chart_axis.h"
#include "page/page_text.h"

namespace pedigreewatch {
namespace {

// Pictures in their own units. The values stand at the right, beside the newest year: on a narrow screen that end is in
// view.
constexpr int height = 250, left = 12, beside_axis = 62, top = 24, bottom = 222;

/// Where the values of a chart lie in the picture.
struct Plane {
  ValueAxis axis;
  int right = 0;
  double place_width = 1.0;

  double x(std::size_t place) const { return left + (static_cast<double>(place) + 0.5) * place_width; }
  double y(double value) const { return bottom - (value - axis.low) / (axis.high - axis.low) * (bottom - top); }
};

Plane plane_of(const Chart& chart, int width, const ValueAxis& axis) {
  const int right = width - beside_axis;
  return {axis, right, static_cast<double>(right - left) / static_cast<double>(chart.places.size())};
}

/// A coordinate: at most one decimal, none when it is 0.
std::string units(double value) {
  const std::int64_t tenths = std::llround(value * 10.0);
  const std::int64_t size = tenths < 0 ? -tenths : tenths;
  std::string text = tenths < 0 ? "-" : "";
  text += std::to_string(size / 10);
  if (size % 10 != 0) text += "." + std::to_string(size % 10);
  return text;
}

std::string point(double x, double y) {
  return units(x) + " " + units(y);
}

std::string style_of(std::string_view kind, std::size_t series) {
  return std::string(kind) + std::to_string(series % drawing_styles + 1);
}

std::size_t number_of(const Chart& chart, std::size_t series) {
  return chart.series[series].paint.number.value_or(series);
}

/// The style of a bar. Narrow bars have no fillings, which would flicker.
std::string bar_style(const Chart& chart, std::size_t series, double place_width) {
  constexpr double narrow = 20.0;
  const bool is_narrow = place_width < narrow;
  constexpr std::array<std::string_view, 3> kinds = {"b b", "b u", "b co"};
  const Palette palette = chart.series[series].paint.palette;
  const std::size_t number = number_of(chart, series);
  if (palette == Palette::coat) return "b co" + std::to_string(number + 1);
  if (palette == Palette::apart && is_narrow) return style_of("b c", number);
  return style_of(kinds[static_cast<std::size_t>(palette)], number);
}

/// A path; none when it would be empty.
void draw_path(std::string& page, const std::string& style, const std::string& path) {
  if (!path.empty()) page += "<path class=\"" + style + "\" d=\"" + path + "\"/>";
}

void draw_text(std::string& page, double x, double y, std::string_view style, std::string_view text) {
  page += "<text x=\"" + units(x) + "\" y=\"" + units(y) + "\" class=\"" + std::string(style) + "\">" + escaped(text) +
          "</text>";
}

void draw_value_axis(std::string& page, const Chart& chart, const Plane& plane) {
  constexpr double gap = 6.0, half_letter = 4.0;
  std::string lines;
  for (int tick = 0; tick < plane.axis.tick_count(); ++tick) {
    const double value = plane.axis.tick(tick), y = plane.y(value);
    lines += "M" + point(left, y) + "H" + std::to_string(plane.right);
    const bool is_zero = std::abs(value) < plane.axis.step / 2.0;
    draw_text(page, plane.right + gap, y + half_letter, "y",
              report_figure(is_zero ? 0.0 : value, plane.axis.decimals, chart.language));
  }
  draw_path(page, "g", lines);
  draw_text(page, plane.right + beside_axis - 2, top - 10, "e", chart.unit);
}

void draw_place_axis(std::string& page, const Chart& chart, const Plane& plane) {
  constexpr double tick_length = 4.0, text_below = 18.0;
  const double zero = plane.y(0.0);
  std::string ticks = "M" + point(left, zero) + "H" + std::to_string(plane.right);
  for (const std::size_t place : labelled_places(chart, plane.right - left)) {
    ticks += "M" + point(plane.x(place), bottom) + "v" + units(tick_length);
    draw_text(page, plane.x(place), bottom + text_below, "p", chart.places[place]);
  }
  draw_path(page, "a", ticks);
}

void draw_references(std::string& page, const Chart& chart, const Plane& plane) {
  std::string lines;
  for (const ReferenceLine& reference : chart.references) {
    lines += "M" + point(left, plane.y(reference.value)) + "H" + std::to_string(plane.right);
  }
  draw_path(page, "r", lines);
}

/// Over all lines, so that none goes through a text; at the left, where a chart is older and emptier.
void draw_reference_texts(std::string& page, const Chart& chart, const Plane& plane) {
  constexpr double above = 4.0;
  for (const ReferenceLine& reference : chart.references) {
    draw_text(page, left + 2, plane.y(reference.value) - above, "v", reference.text);
  }
}

void draw_events(std::string& page, const Chart& chart, const Plane& plane) {
  constexpr double gap = 4.0, text_y = top + 10.0;
  for (const Event& event : chart.events) {
    const double x = plane.x(event.place);
    draw_path(page, "a", "M" + point(x, top) + "V" + std::to_string(bottom));
    draw_text(page, x - gap, text_y, "e v", event.text);
  }
}

void draw_slopes(std::string& page, const Chart& chart, const Plane& plane) {
  constexpr double above = 10.0;
  std::string lines;
  for (const Slope& slope : chart.slopes) {
    lines += "M" + point(plane.x(slope.first), plane.y(slope.first_value)) + "L" +
             point(plane.x(slope.last), plane.y(slope.last_value));
  }
  draw_path(page, "w", lines);
  for (const Slope& slope : chart.slopes) {
    const double x = 0.5 * (plane.x(slope.first) + plane.x(slope.last));
    const double y = plane.y(0.5 * (slope.first_value + slope.last_value));
    draw_text(page, x, y - above, "p v t", slope.text);
  }
}

/// The line through the values; a place without a value interrupts it.
std::string line_through(const Series& series, const Plane& plane) {
  std::string path;
  bool is_drawing = false;
  for (std::size_t place = 0; place < series.values.size(); ++place) {
    const Value& value = series.values[place];
    if (value) path += (is_drawing ? "L" : "M") + point(plane.x(place), plane.y(*value));
    is_drawing = value.has_value();
  }
  return path;
}

/// A line without length at each place that is wanted: its round ends make it a point.
std::string points_of(const Series& series, const Plane& plane, const Chart& chart, bool hollow) {
  std::string path;
  for (std::size_t place = 0; place < series.values.size(); ++place) {
    const Value& value = series.values[place];
    const bool is_hollow = !chart.is_hollow.empty() && chart.is_hollow[place];
    if (value && is_hollow == hollow) path += "M" + point(plane.x(place), plane.y(*value)) + "h0";
  }
  return path;
}

/// The bands lie below all lines, and let each other through.
void draw_bands(std::string& page, const Chart& chart, const Plane& plane) {
  for (std::size_t s = 0; s < chart.series.size(); ++s) {
    const Series& series = chart.series[s];
    std::string there, back;
    for (std::size_t place = 0; place < series.low.size(); ++place) {
      if (!series.low[place] || !series.high[place]) continue;
      there.append(there.empty() ? "M" : "L").append(point(plane.x(place), plane.y(*series.high[place])));
      back.insert(0, "L" + point(plane.x(place), plane.y(*series.low[place])));
    }
    if (there.empty()) continue;
    page +=
        "<path class=\"" + style_of("c", number_of(chart, s)) + "\" fill-opacity=\".16\" d=\"" + there + back + "z\"/>";
  }
}

void draw_lines(std::string& page, const Chart& chart, const Plane& plane) {
  draw_bands(page, chart, plane);
  for (std::size_t s = 0; s < chart.series.size(); ++s) {
    const std::size_t number = number_of(chart, s);
    draw_path(page, style_of("l l", number), line_through(chart.series[s], plane));
    draw_path(page, style_of("o l", number), points_of(chart.series[s], plane, chart, false));
    const std::string hollow = points_of(chart.series[s], plane, chart, true);
    draw_path(page, style_of("q l", number), hollow);
    draw_path(page, "i", hollow);
  }
}

void draw_bars(std::string& page, const Chart& chart, const Plane& plane) {
  const double bar = plane.place_width * 0.84;
  std::vector<double> reached(chart.places.size(), 0.0);
  for (std::size_t s = 0; s < chart.series.size(); ++s) {
    std::string path;
    for (std::size_t place = 0; place < chart.places.size(); ++place) {
      const double value = chart.series[s].values[place].value_or(0.0);
      if (value <= 0.0) continue;
      const double y = plane.y(reached[place] + value), base = plane.y(reached[place]);
      path +=
          "M" + point(plane.x(place) - bar / 2.0, y) + "h" + units(bar) + "V" + units(base) + "h" + units(-bar) + "z";
      reached[place] += value;
    }
    draw_path(page, bar_style(chart, s, plane.place_width), path);
  }
}

void draw_marks(std::string& page, const Chart& chart, const Plane& plane) {
  constexpr double above = 6.0;
  std::string path;
  for (std::size_t m = 0; m < std::min(most_marks, chart.marks.size()); ++m) {
    const Mark& mark = chart.marks[m];
    path += "M" + point(plane.x(mark.place), plane.y(mark.value) - above) + "l-4.5-8h9z";
  }
  draw_path(page, "m", path);
}

}  // namespace

void draw_chart(std::string& page, const Chart& chart, int width, const ValueAxis& axis) {
  const Plane plane = plane_of(chart, width, axis);
  page += "<svg viewBox=\"0 0 " + std::to_string(width) + " " + std::to_string(height) +
          "\" role=\"img\" aria-labelledby=\"" + chart.id + "-t " + chart.id + "-d\"><title id=\"" + chart.id +
          "-t\">" + escaped(chart.title) + "</title><desc id=\"" + chart.id + "-d\">" + escaped(chart.reading) +
          "</desc>";
  draw_value_axis(page, chart, plane);
  if (chart.kind == ChartKind::stacked_bars) draw_bars(page, chart, plane);
  draw_place_axis(page, chart, plane);
  draw_references(page, chart, plane);
  draw_events(page, chart, plane);
  if (chart.kind == ChartKind::lines) draw_lines(page, chart, plane);
  draw_slopes(page, chart, plane);
  draw_reference_texts(page, chart, plane);
  draw_marks(page, chart, plane);
  page += "</svg>";
}

void draw_chart(std::string& page, const Chart& chart) {
  draw_chart(page, chart, picture_width, value_axis_of(chart));
}

void draw_sample(std::string& page, const Chart& chart, std::size_t series) {
  page += "<svg viewBox=\"0 0 40 14\" class=\"s\" aria-hidden=\"true\">";
  if (chart.kind == ChartKind::stacked_bars) {
    const double place =
        static_cast<double>(picture_width - beside_axis - left) / static_cast<double>(chart.places.size());
    draw_path(page, bar_style(chart, series, place), "M2 1h36v12h-36z");
  } else {
    const std::size_t number = number_of(chart, series);
    draw_path(page, style_of("l l", number), "M1 7H39");
    draw_path(page, style_of("o l", number), "M20 7h0");
  }
  page += "</svg>";
}

void define_fillings(std::string& page) {
  // What lies upon the colour of each filling, in a square of 8 units: nothing, strokes of several directions, dots.
  constexpr std::string_view strokes[drawing_styles] = {"",
                                                        "M-2 10L10-2M-2 2L2-2M6 10L10 6",
                                                        "M4 4h0",
                                                        "M0 4h8",
                                                        "M-2-2L10 10M-2 6L2 10M6-2L10 2",
                                                        "M4 0v8",
                                                        "M0 4h8M4 0v8",
                                                        "M2 2h0M6 6h0"};
  page += "<svg width=\"0\" height=\"0\" class=\"f\" aria-hidden=\"true\" focusable=\"false\"><defs>";
  for (std::size_t s = 0; s < drawing_styles; ++s) {
    page += "<pattern id=\"pw-" + style_of("f", s) +
            "\" width=\"8\" height=\"8\" patternUnits=\"userSpaceOnUse\"><rect width=\"8\" height=\"8\" class=\"" +
            style_of("c", s) + "\"/>";
    draw_path(page, "h", std::string(strokes[s]));
    page += "</pattern>";
  }
  page += "</defs></svg>";
}

std::string place_attributes(const Chart& chart) {
  return " data-n=\"" + std::to_string(chart.places.size()) + "\" data-a=\"" + std::to_string(left) + "\" data-w=\"" +
         std::to_string(picture_width - beside_axis - left) + "\"";
}

}  // namespace pedigreewatch
