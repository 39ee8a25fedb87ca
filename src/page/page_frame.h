// What all parts of a page need: its input, its language, and the years that it shows.
#pragma once

#include <cstdint>
#include <string>

#include "core/year_table.h"
#include "page/page.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// The rows of the yearly tables that a page shows: all, or the last 300.
struct PageYears {
  Row first = 1, last = 0;
  bool is_cut = false;

  std::int64_t count() const { return last - first + 1; }
};

struct PageFrame {
  const PageInput& input;
  ToolLanguage language;
  PageYears years;

  const AnalysedPopulation& population() const { return input.population; }
  const PopulationStore& store() const { return input.population.store; }
  const Block& whole() const { return input.population.analysis.whole; }
  const WholeExtras& extras() const { return input.population.analysis.extras; }
  std::string year(Row row) const { return std::to_string(store().birth_years.year_of(row)); }
  /// The animals born in the year of a row.
  YearAnimals animals(Row row) const { return population().analysis.years.of_row(row); }
  std::string text(const Wording& wording) const { return std::string(words_of(wording, language)); }
};

PageFrame make_frame(const PageInput& input);

}  // namespace pedigreewatch
