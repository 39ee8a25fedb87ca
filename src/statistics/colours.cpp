// The last column is what is left of the year's animals when all listed colours are taken away.

#include "statistics/colours.h"

namespace pedigreewatch {

void colour_statistics(const PopulationStore& store, YearAnimals animals, const Colours& colours, Row row,
                       YearTable<std::int32_t>& colour_counts) {
  if (animals.empty()) return;
  const std::int64_t rest = colour_counts.column_count;
  for (const std::int32_t position : animals) {
    const std::int32_t colour = store.colour_no[position];
    if (colour > 0 && colour < rest) ++colour_counts.at(row, colour);
  }
  // A colour that stands in the list again gets the same count, which is then taken off the rest again.
  std::int32_t listed = 0;
  for (std::int32_t column = 1; column < rest; ++column) {
    const std::int32_t count = colour_counts.value(row, colours.first_numbers.at(column));
    colour_counts.at(row, column) = count;
    listed += count;
  }
  colour_counts.at(row, rest) = static_cast<std::int32_t>(animals.size()) - listed;
}

}  // namespace pedigreewatch
