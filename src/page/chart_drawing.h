// A chart as an inline picture of lines and texts (SVG).
#pragma once

#include <string>

#include "page/chart.h"
#include "page/chart_axis.h"

namespace pedigreewatch {

inline constexpr std::size_t drawing_styles = 8;  ///< colours, with their dashes and fillings; more series repeat them

inline constexpr int picture_width = 720, panel_width = 360;  ///< in units of the picture

/// Adds the picture. It is named by its title and by how it is to be read; the colours come from the style of the page.
void draw_chart(std::string& page, const Chart& chart);

/// The same of another width, on an axis that other pictures may have too.
void draw_chart(std::string& page, const Chart& chart, int width, const ValueAxis& axis);

/// Adds the sample of a series beside its name.
void draw_sample(std::string& page, const Chart& chart, std::size_t series);

/// Adds the fillings that bars refer to: once a page.
void define_fillings(std::string& page);

/// The attributes by which the script of the page finds the places of a picture: how many, where they begin
/// and how wide they are together.
std::string place_attributes(const Chart& chart);

}  // namespace pedigreewatch
