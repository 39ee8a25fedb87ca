// The columns are gathered first; then each row asks all of them for its year.

#include "tables/year_tables.h"

#include <algorithm>

namespace pedigreewatch {
namespace {

void write_header(std::span<const YearColumn> columns, TableWriter& writer) {
  add_text(writer, "year");
  for (const YearColumn& column : columns) add_text(writer, column.name);
  end_row(writer);
}

void write_year(Row row, std::int32_t year, std::span<const YearColumn> columns, TableWriter& writer) {
  add_integer(writer, year);
  for (const YearColumn& column : columns) add_cell(writer, column.cell(row));
  end_row(writer);
}

/// Columns for the ages of the oldest parents of any block.
BySex<std::int64_t> age_columns_of(std::span<const Block> blocks) {
  BySex<std::int64_t> columns;
  for (const Block& block : blocks) {
    for (const Sex sex : {male, female}) {
      columns.of(sex) = std::max(columns.of(sex), block.tables.age_classes.of(sex).column_count);
    }
  }
  return columns;
}

/// The numbers of the subpopulations that have a block: those with animals.
std::vector<std::int32_t> numbers_with_block(const AnalysedPopulation& population) {
  const Subpopulations& subpopulations = population.settings.layout.subpopulations;
  const auto members = animals_by_subpopulation(population.store, subpopulations);
  std::vector<std::int32_t> numbers;
  for (std::int32_t k = 1; k <= subpopulations.count(); ++k) {
    if (!members[subpopulations.first_numbers.at(k)].empty()) numbers.push_back(k);
  }
  return numbers;
}

/// The columns of a file without any animal of a subpopulation.
std::vector<YearColumn> columns_without_block(const AnalysedPopulation& population,
                                              std::span<const GroupCounts> groups) {
  return columns_of_subpopulation({population, population.analysis.whole, groups, 1, {}});
}

}  // namespace

void write_years(const AnalysedPopulation& population, std::span<const GroupCounts> groups, TableWriter& writer) {
  const Block& whole = population.analysis.whole;
  const BlockView view{population, whole, groups, 0, age_columns_of({&whole, 1})};
  const std::vector<YearColumn> columns = columns_of_whole(view);
  const BirthYears& years = population.store.birth_years;
  write_header(columns, writer);
  for (Row row = 1; row <= years.dated_row_count(); ++row) write_year(row, years.year_of(row), columns, writer);
}

void write_subpopulations(const AnalysedPopulation& population, std::span<const GroupCounts> groups,
                          TableWriter& writer) {
  TextOutput unseen;
  const std::vector<Block> blocks = analyse_subpopulations(population, unseen);
  const std::vector<std::int32_t> numbers = numbers_with_block(population);
  const BirthYears& years = population.store.birth_years;
  const Subpopulations& subpopulations = population.settings.layout.subpopulations;
  add_text(writer, "subpopulation");
  if (blocks.empty()) write_header(columns_without_block(population, groups), writer);
  for (std::size_t b = 0; b < blocks.size(); ++b) {
    const std::int32_t group = subpopulations.first_numbers.at(numbers[b]);
    const BlockView view{population, blocks[b], groups, group, age_columns_of(blocks)};
    const std::vector<YearColumn> columns = columns_of_subpopulation(view);
    if (b == 0) write_header(columns, writer);
    for (Row row = 1; row <= years.dated_row_count(); ++row) {
      add_text(writer, subpopulations.names.at(numbers[b]).trimmed());
      write_year(row, years.year_of(row), columns, writer);
    }
  }
}

}  // namespace pedigreewatch
