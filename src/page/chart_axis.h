// The axes of a chart: round numbers along the vertical one, places along the horizontal one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "page/chart.h"

namespace pedigreewatch {

/// The vertical axis: from `low` to `high`, both multiples of `step`, which is 1, 2 or 5 times a power of ten.
struct ValueAxis {
  double low = 0.0, high = 1.0, step = 1.0;
  int decimals = 0;  ///< that the numbers at the ticks need

  int tick_count() const;
  double tick(int number) const { return low + number * step; }  ///< counted from 0
};

/// An axis with 3 to 7 ticks that holds 0 and all values. `counts_only` keeps the ticks whole.
ValueAxis make_value_axis(double lowest, double highest, bool counts_only);

/// The axis of everything that the chart draws.
ValueAxis value_axis_of(const Chart& chart);

/// The one axis of all panels of a chart that have this unit: they can be compared.
ValueAxis value_axis_of_panels(const Chart& chart, std::string_view unit);

/// The places that get a label: as many as fit into `width` without touching one another, years at round numbers.
std::vector<std::size_t> labelled_places(const Chart& chart, double width);

}  // namespace pedigreewatch
