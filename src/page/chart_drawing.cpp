// Coordinates have at most one decimal, and everything of one kind is a single path: a page stays small.

#include "page/chart_drawing.h"

#include <cmath>
#include <cstdint>

#include "page/chart_axis.h"
#include "page/page_text.h"

namespace pedigreewatch {
namespace {

// The picture in its own units.
constexpr int width = 720, height = 250, left = 62, right = 708, top = 24, bottom = 222;

/// Where the values of a chart lie in the picture.
struct Plane {
  ValueAxis axis;
  double place_width = 1.0;

  double x(std::size_t place) const { return left + (static_cast<double>(place) + 0.5) * place_width; }
  double y(double value) const {
    return bottom - (value - axis.low) / (axis.high - axis.low) * static_cast<double>(bottom - top);
  }
};

Plane plane_of(const Chart& chart) {
  return {value_axis_of(chart), static_cast<double>(right - left) / static_cast<double>(chart.places.size())};
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
    lines += "M" + point(left, y) + "H" + std::to_string(right);
    const bool is_zero = std::abs(value) < plane.axis.step / 2.0;
    draw_text(page, left - gap, y + half_letter, "e",
              report_figure(is_zero ? 0.0 : value, plane.axis.decimals, chart.language));
  }
  draw_path(page, "g", lines);
  draw_text(page, left, top - 10, "u", chart.unit);
}

void draw_place_axis(std::string& page, const Chart& chart, const Plane& plane) {
  constexpr double tick_length = 4.0, text_below = 18.0;
  const double zero = plane.y(0.0);
  std::string ticks = "M" + point(left, zero) + "H" + std::to_string(right);
  for (const std::size_t place : labelled_places(chart, right - left)) {
    ticks += "M" + point(plane.x(place), bottom) + "v" + units(tick_length);
    draw_text(page, plane.x(place), bottom + text_below, "p", chart.places[place]);
  }
  draw_path(page, "a", ticks);
}

/// Their texts stand at the right and at the left in turn: lines may lie close together.
void draw_references(std::string& page, const Chart& chart, const Plane& plane) {
  bool is_at_right = true;
  for (const ReferenceLine& reference : chart.references) {
    const double y = plane.y(reference.value);
    draw_path(page, "r", "M" + point(left, y) + "H" + std::to_string(right));
    draw_text(page, is_at_right ? right - 2 : left + 2, y - 4, is_at_right ? "e v" : "v", reference.text);
    is_at_right = !is_at_right;
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

void draw_lines(std::string& page, const Chart& chart, const Plane& plane) {
  for (std::size_t s = 0; s < chart.series.size(); ++s) {
    draw_path(page, style_of("l l", s), line_through(chart.series[s], plane));
    draw_path(page, style_of("o l", s), points_of(chart.series[s], plane, chart, false));
    const std::string hollow = points_of(chart.series[s], plane, chart, true);
    draw_path(page, style_of("q l", s), hollow);
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
    draw_path(page, style_of("b b", s), path);
  }
}

void draw_marks(std::string& page, const Chart& chart, const Plane& plane) {
  constexpr double above = 6.0;
  std::string path;
  for (const Mark& mark : chart.marks) {
    path += "M" + point(plane.x(mark.place), plane.y(mark.value) - above) + "l-4.5-8h9z";
  }
  draw_path(page, "m", path);
}

}  // namespace

void draw_chart(std::string& page, const Chart& chart) {
  const Plane plane = plane_of(chart);
  page += "<svg viewBox=\"0 0 " + std::to_string(width) + " " + std::to_string(height) +
          "\" role=\"img\" aria-labelledby=\"" + chart.id + "-t " + chart.id + "-d\"><title id=\"" + chart.id +
          "-t\">" + escaped(chart.title) + "</title><desc id=\"" + chart.id + "-d\">" + escaped(chart.reading) +
          "</desc>";
  draw_value_axis(page, chart, plane);
  if (chart.kind == ChartKind::stacked_bars) draw_bars(page, chart, plane);
  draw_place_axis(page, chart, plane);
  draw_references(page, chart, plane);  // their texts never cover a point
  if (chart.kind == ChartKind::lines) draw_lines(page, chart, plane);
  draw_marks(page, chart, plane);
  page += "</svg>";
}

void draw_sample(std::string& page, ChartKind kind, std::size_t series) {
  page += "<svg viewBox=\"0 0 40 14\" class=\"s\" aria-hidden=\"true\">";
  if (kind == ChartKind::stacked_bars) {
    draw_path(page, style_of("b b", series), "M2 1h36v12h-36z");
  } else {
    draw_path(page, style_of("l l", series), "M1 7H39");
    draw_path(page, style_of("o l", series), "M20 7h0");
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
         std::to_string(right - left) + "\"";
}

}  // namespace pedigreewatch
