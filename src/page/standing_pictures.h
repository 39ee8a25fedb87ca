// The pictures of the first screen: the sign of the verdict, the gauge of the effective size, the trend by year.
#pragma once

#include <string>

#include "page/page_frame.h"

namespace pedigreewatch {

/// Triangle, diamond, dot or ring: a shape of its own for each pace.
void draw_sign(std::string& page, Pace pace);

/// A logarithmic scale with three zones, with the size now, its margin and the other estimates, and before.
void draw_gauge(std::string& page, const PageFrame& frame, const Standing& standing);

/// F and f without self of the last years in per cent, 1 % per generation from the board's year on; twice, for wide and
/// for narrow screens.
void draw_trend(std::string& page, const PageFrame& frame, const Standing& standing);

}  // namespace pedigreewatch
