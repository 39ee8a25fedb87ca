#include "page/standing_pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "page/page_text.h"
#include "page/standing_words.h"

namespace pedigreewatch {
namespace {

constexpr Wording gauge_label = {"Effective size now {1}, limits 50 and 100",
                                 "Effectieve grootte nu {1}, grenzen 50 en 100"};
constexpr Wording now_is = {"now {1}", "nu {1}"};
constexpr Wording before_was = {"before {1}", "eerder {1}"};
constexpr Wording zone_names[] = {{"\xE2\x96\xB2 too fast", "\xE2\x96\xB2 te snel"},
                                  {"\xE2\x97\x86 edge", "\xE2\x97\x86 grens"},
                                  {"\xE2\x97\x8F within the limit", "\xE2\x97\x8F binnen de grens"}};
constexpr Wording trend_label = {"Inbreeding and kinship by year of birth, in per cent",
                                 "Inteelt en verwantschap per geboortejaar, in procenten"};
constexpr Wording inbreeding_word = {"inbreeding", "inteelt"};
constexpr Wording kinship_word = {"kinship", "verwantschap"};

std::string number(double value) {
  return report_figure(value, 1, ToolLanguage::english);  // coordinates have a point everywhere
}

void draw_text(std::string& page, double x, double y, std::string_view style, const std::string& text) {
  page += "<text x=\"" + number(x) + "\" y=\"" + number(y) + "\" class=\"" + std::string(style) + "\">" +
          escaped(text) + "</text>";
}

void draw_line(std::string& page, double x1, double y1, double x2, double y2, std::string_view style) {
  page += "<path class=\"" + std::string(style) + "\" d=\"M" + number(x1) + " " + number(y1) + "L" + number(x2) + " " +
          number(y2) + "\"/>";
}

void draw_circle(std::string& page, double x, double y, double radius, std::string_view style) {
  page += "<circle cx=\"" + number(x) + "\" cy=\"" + number(y) + "\" r=\"" + number(radius) + "\" class=\"" +
          std::string(style) + "\"/>";
}

void draw_box(std::string& page, double x, double y, double width, double height, std::string_view style) {
  page += "<rect x=\"" + number(x) + "\" y=\"" + number(y) + "\" width=\"" + number(std::max(0.0, width)) +
          "\" height=\"" + number(height) + "\" class=\"" + std::string(style) + "\"/>";
}

// The scale of the gauge, in units of its picture.
constexpr double gauge_width = 340.0, gauge_left = 6.0, gauge_right = 334.0;
constexpr double smallest_size = 5.0, largest_size = 1000.0;

/// Where an effective size stands; one beyond the scale at its end.
double place_of(double size) {
  const double inside = std::clamp(size, smallest_size, largest_size);
  return gauge_left +
         (gauge_right - gauge_left) * std::log(inside / smallest_size) / std::log(largest_size / smallest_size);
}

void draw_zones(std::string& page, const PageFrame& frame) {
  const std::array<double, 4> ends = {smallest_size, least_size, safe_size, largest_size};
  constexpr double top = 58.0, height = 26.0, text_y = 75.0, tick_y = 98.0;
  for (std::size_t zone = 0; zone < std::size(zone_names); ++zone) {
    const double x = place_of(ends[zone]), end = place_of(ends[zone + 1]);
    draw_box(page, x, top, end - x, height, "z" + std::to_string(zone));
    draw_text(page, 0.5 * (x + end), text_y, "p t", frame.text(zone_names[zone]));
  }
  for (const int size : {10, 20, 50, 100, 200, 500}) draw_text(page, place_of(size), tick_y, "p", std::to_string(size));
}

/// From the lowest to the highest of the estimates and of the margin.
void draw_range(std::string& page, const Standing& standing) {
  const Margin margin = margin_of(standing.rate());
  double low = effective_size_of(margin.high), high = effective_size_of(margin.low);
  for (const RateEstimate& estimate : standing.now) {
    if (!estimate.rate) continue;
    low = std::min(low, effective_size_of(*estimate.rate));
    high = std::max(high, effective_size_of(*estimate.rate));
  }
  constexpr double top = 33.0, height = 8.0;
  draw_box(page, place_of(low), top, place_of(high) - place_of(low), height, "k");
}

/// The frame of a trend, in units of its picture.
struct TrendPlane {
  double width = 0.0, height = 0.0, right = 0.0;
  std::int32_t first_year = 0, last_year = 0;
  double highest = 0.0;  ///< per cent

  static constexpr double left = 34.0, top = 14.0, below = 24.0;
  double x(double year) const {
    const double years = std::max(1, last_year - first_year);
    return left + (right - left) * (year - first_year) / years;
  }
  double y(double percentage) const { return height - below - (height - below - top) * percentage / highest; }
};

struct TrendPoint {
  std::int32_t year = 0;
  double percentage = 0.0;
};

/// The points of one figure of the years that have enough animals for it.
std::vector<TrendPoint> points_of(const PageFrame& frame, float InbreedingRow::*figure, std::int32_t first_year,
                                  std::int64_t least_animals) {
  constexpr double hundred = 100.0;
  std::vector<TrendPoint> points;
  for (Row row = frame.years.first; row <= frame.years.last; ++row) {
    const std::int32_t year = frame.store().birth_years.year_of(row);
    if (year < first_year || std::ssize(frame.animals(row)) < least_animals) continue;
    points.push_back({year, std::max(0.0, hundred * (frame.whole().inbreeding.of(row).*figure))});
  }
  return points;
}

/// A step of 1, 2 or 5 times a power of ten that divides the height in at most five.
double step_of(double highest) {
  double step = 0.1;
  for (int i = 0; step * 5.0 < highest; ++i) step *= i % 3 == 1 ? 2.5 : 2.0;
  return step;
}

void draw_trend_axes(std::string& page, const TrendPlane& plane, ToolLanguage language) {
  constexpr double gap = 5.0, half_letter = 4.0, below = 16.0;
  const double step = step_of(plane.highest);
  double value = 0.0;
  while (value <= plane.highest * 1.001) {
    draw_line(page, TrendPlane::left, plane.y(value), plane.right, plane.y(value), value == 0.0 ? "a" : "g");
    const bool is_last = value + step > plane.highest * 1.001;
    const std::string text = report_figure(value, step < 1.0 ? 1 : 0, language) + (is_last ? " %" : "");
    draw_text(page, TrendPlane::left - gap, plane.y(value) + half_letter, "e", text);
    value += step;
  }
  const int years = std::max(1, plane.last_year - plane.first_year);
  const int every = std::max(1, static_cast<int>(std::ceil(years / (plane.width > gauge_width ? 6.0 : 4.0))));
  for (int year = plane.last_year; year >= plane.first_year; year -= every) {
    draw_text(page, plane.x(year), plane.height - plane.below + below, "p", std::to_string(year));
  }
}

/// The last year apart, with an open circle: it may not be complete.
void draw_points(std::string& page, const TrendPlane& plane, const std::vector<TrendPoint>& points,
                 const std::string& colour) {
  std::string path;
  const TrendPoint* before = nullptr;
  for (const TrendPoint& point : points) {
    const bool is_next = before != nullptr && point.year == before->year + 1;
    path += (is_next ? "L" : "M") + number(plane.x(point.year)) + " " + number(plane.y(point.percentage));
    if (!is_next) path += "h0";
    before = &point;
  }
  page += "<path class=\"l " + colour + "\" d=\"" + path + "\"/>";
  if (before == nullptr || before->year != plane.last_year) return;
  constexpr double radius = 3.5;
  draw_circle(page, plane.x(before->year), plane.y(before->percentage), radius, "hole " + colour);
}

struct Trend {
  std::vector<TrendPoint> inbreeding, kinship;
  std::int32_t limit_from = 0;  ///< where 1 % per generation begins
  double limit_height = 0.0, limit_rise = 0.0;
};

Trend make_trend(const PageFrame& frame, const Standing& standing, std::int32_t first_year) {
  Trend trend;
  trend.inbreeding = points_of(frame, &InbreedingRow::F, first_year, 1);
  trend.kinship = points_of(frame, &InbreedingRow::f_without_self, first_year, 2);
  trend.limit_from = standing.rule ? standing.rule->year : standing.years.now_first;
  trend.limit_from = std::max(first_year, std::min(trend.limit_from, standing.years.last));
  for (const TrendPoint& point : trend.kinship) {
    if (point.year <= trend.limit_from) trend.limit_height = point.percentage;
  }
  if (standing.years.generation_interval > 0.0) {
    trend.limit_rise = (standing.years.last - trend.limit_from) / standing.years.generation_interval;
  }
  return trend;
}

/// Labels at the newest points, moved apart where they would cover each other.
void draw_names(std::string& page, const PageFrame& frame, const TrendPlane& plane, const Trend& trend) {
  if (trend.inbreeding.empty() || trend.kinship.empty()) return;
  constexpr double apart = 14.0, half_letter = 4.0, gap = 8.0;
  double of_f = plane.y(trend.inbreeding.back().percentage), of_kinship = plane.y(trend.kinship.back().percentage);
  if (std::abs(of_f - of_kinship) < apart)
    (of_f <= of_kinship ? of_kinship : of_f) = std::min(of_f, of_kinship) + apart;
  draw_text(page, plane.right + gap, of_f + half_letter, "n1", frame.text(inbreeding_word));
  draw_text(page, plane.right + gap, of_kinship + half_letter, "n2", frame.text(kinship_word));
}

void draw_trend_of_width(std::string& page, const PageFrame& frame, const Standing& standing, double width) {
  constexpr int most_years = 30;
  constexpr double height = 230.0, names = 106.0;
  const std::int32_t first =
      std::max(standing.years.last - most_years + 1, frame.store().birth_years.year_of(frame.years.first));
  const Trend trend = make_trend(frame, standing, first);
  TrendPlane plane{width, height, width - names, first, standing.years.last, 1.0};
  double highest = trend.limit_height + trend.limit_rise;
  for (const auto* const points : {&trend.inbreeding, &trend.kinship}) {
    for (const TrendPoint& point : *points) highest = std::max(highest, point.percentage);
  }
  const double step = step_of(highest);
  plane.highest = step * std::ceil(highest / step);
  page += std::string("<svg class=\"") + (width > gauge_width ? "ww" : "wn") + "\" viewBox=\"0 0 " + number(width) +
          " " + number(height) + "\" role=\"img\" aria-label=\"" + frame.text(trend_label) + "\">";
  draw_trend_axes(page, plane, frame.language);
  if (standing.rule && standing.rule->year > first && standing.rule->year <= standing.years.last) {
    const double x = plane.x(standing.rule->year);
    draw_line(page, x, TrendPlane::top, x, plane.y(0.0), "a");
    draw_text(page, x - 4.0, TrendPlane::top + 8.0, "e", std::to_string(standing.rule->year));
  }
  if (trend.limit_rise > 0.0) {
    draw_line(page, plane.x(trend.limit_from), plane.y(trend.limit_height), plane.x(standing.years.last),
              plane.y(trend.limit_height + trend.limit_rise), "r");
  }
  draw_points(page, plane, trend.inbreeding, "l1");
  draw_points(page, plane, trend.kinship, "l2");
  draw_names(page, frame, plane, trend);
  page += "</svg>";
}

}  // namespace

void draw_sign(std::string& page, Pace pace) {
  constexpr std::array<std::string_view, 4> shapes = {
      R"(<path class="y0" d="M30 4 58 55H2Z"/><path class="yw" d="M30 21v17M30 44v6"/>)",
      R"(<path class="y1" d="M30 3 57 30 30 57 3 30Z"/><path class="yw" d="M30 15v20M30 42v6"/>)",
      R"(<circle class="y2" cx="30" cy="30" r="26"/><path class="yw" d="M18 31l9 9 16-19"/>)",
      R"(<circle class="y3" cx="30" cy="30" r="23"/>)"};
  page += "<svg class=\"sign\" viewBox=\"0 0 60 60\" aria-hidden=\"true\">";
  page += shapes[static_cast<std::size_t>(pace)];
  page += "</svg>";
}

void draw_gauge(std::string& page, const PageFrame& frame, const Standing& standing) {
  const double now = effective_size_of(standing.rate().rate.value_or(0.0));
  const std::string size = size_text(now, frame.language);
  page += "<svg class=\"gauge\" viewBox=\"-4 0 348 104\" role=\"img\" aria-label=\"" +
          phrase(gauge_label, frame.language, {size}) + "\">";
  draw_zones(page, frame);
  draw_range(page, standing);
  constexpr double middle = 37.0, text_y = 20.0, radius = 8.0, edge = 40.0;
  const auto text_place = [&](double x) { return std::clamp(x, edge, gauge_width - edge); };
  double label = text_place(place_of(now));
  if (standing.before.rate) {
    const double before = effective_size_of(*standing.before.rate);
    draw_circle(page, place_of(before), middle, radius - 1.0, "hole k2");
    constexpr double apart = 88.0;
    double of_before = text_place(place_of(before));
    if (std::abs(of_before - label) < apart) {
      const double centre = std::clamp(0.5 * (of_before + label), edge + 0.5 * apart, gauge_width - edge - 0.5 * apart);
      const double side = before < now ? -0.5 : 0.5;
      of_before = centre + side * apart;
      label = centre - side * apart;
    }
    draw_text(page, of_before, text_y, "p", phrase(before_was, frame.language, {size_text(before, frame.language)}));
  }
  draw_circle(page, place_of(now), middle, radius, "k1");
  draw_text(page, label, text_y, "p t big", phrase(now_is, frame.language, {size}));
  page += "</svg>";
}

void draw_trend(std::string& page, const PageFrame& frame, const Standing& standing) {
  constexpr double wide = 560.0;
  draw_trend_of_width(page, frame, standing, wide);
  draw_trend_of_width(page, frame, standing, gauge_width);
}

}  // namespace pedigreewatch
