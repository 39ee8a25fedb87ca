// The columns of the tables by birth year: what the report shows of each year, under names of their own.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "control/population_analysis.h"
#include "core/year_table.h"
#include "pedigree/sex.h"
#include "tables/table_writer.h"

namespace pedigreewatch {

struct YearColumn {
  std::string name;
  std::function<Cell(Row)> cell;  ///< the value of a year; an empty cell where it has none
};

/// On how many animals the means of a year rest: where there are none the report shows 0.
struct YearCounts {
  std::int32_t animals = 0;
  std::int32_t known_sire_ages = 0, known_dam_ages = 0;
};

/// The animals of a population or subpopulation. Of a subpopulation also where the parents of its animals come from, a
/// column for each subpopulation; as in the report a mating counts only when both parents belong to one.
struct GroupCounts {
  YearRows<YearCounts> years;
  YearTable<std::int32_t> parents_from;
};

/// The counts of the whole population (entry 0) and of each subpopulation, by its number.
std::vector<GroupCounts> count_groups(const AnalysedPopulation& population);

/// What the columns of a block are made from; it outlives them.
struct BlockView {
  const AnalysedPopulation& population;
  const Block& block;
  std::span<const GroupCounts> groups;
  std::int32_t group = 0;           ///< whose block it is: 0 the whole population, else the number of a subpopulation
  BySex<std::int64_t> age_columns;  ///< as many as the oldest parents of all blocks of the table ask for

  const GroupCounts& counts() const { return groups[static_cast<std::size_t>(group)]; }
};

/// The columns of the whole population, in the order of the report.
std::vector<YearColumn> columns_of_whole(const BlockView& view);

/// The columns of a subpopulation: its name and the year are not among them.
std::vector<YearColumn> columns_of_subpopulation(const BlockView& view);

}  // namespace pedigreewatch
