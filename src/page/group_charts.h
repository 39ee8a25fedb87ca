// Animals by the names of the data: colours, breeders, subpopulations, and the kinship between those.
#pragma once

#include <vector>

#include "page/chart.h"
#include "page/page_frame.h"

namespace pedigreewatch {

Chart colours_chart(const PageFrame& frame);

/// Counted from the animals themselves: the list of main breeders in the report sees names in pieces.
Chart breeders_chart(const PageFrame& frame);

/// The breeders with the most animals, at most twenty: animals, those of the last ten birth years, those with native
/// offspring.
FigureTable breeders_table(const PageFrame& frame);

Chart subpopulations_chart(const PageFrame& frame);

/// F and kinship within each subpopulation, a panel each.
Chart within_chart(const PageFrame& frame);

/// Kinships: half the relationships of the report's table, each with its pair also in years in which a subpopulation is
/// passed over.
Chart kinship_between_chart(const PageFrame& frame);

/// A row for each subpopulation that has animals: interval and effective sizes.
FigureTable subpopulation_sizes_table(const PageFrame& frame);

}  // namespace pedigreewatch
