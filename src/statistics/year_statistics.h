// What is counted for the animals of one birth year. The passes over the whole population and over each
// subpopulation call the same procedures; each is given the animals of the year in store order and fills one row.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "control/steer_settings.h"
#include "core/text_index.h"
#include "pedigree/population_store.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// The animals of one year: positions in the store, ascending.
using YearAnimals = std::span<const std::int32_t>;

/// A row of a year table, counted from 1.
using Row = std::int64_t;

/// Working lists over all positions, kept between years so that a year costs no more than its own animals.
/// All entries are 0 between two calls.
struct LitterScratch {
  std::vector<std::int32_t> litter_size;  ///< by position of the mother
  std::vector<char> is_seen;              ///< by position of the father or mother

  explicit LitterScratch(const PopulationStore& store)
      : litter_size(store.animals.size() + 1, 0), is_seen(store.animals.size() + 1, 0) {}
};

/// Fills a row of the parent counts and of the offspring per parent.
void parent_year_statistics(const PopulationStore& store, YearAnimals animals, Row row,
                            YearTable<std::int32_t>& parent_counts, YearTable<float>& parent_offspring);

/// Fills a row of the import pairs.
void import_pair_statistics(const PopulationStore& store, YearAnimals animals, Row row,
                            YearTable<std::int32_t>& import_pairs);

/// Fills a row of the litters. The father of the first animal is never counted, and counts as seen for the others.
void litter_statistics(const PopulationStore& store, YearAnimals animals, Row row, LitterScratch& scratch,
                       YearTable<std::int32_t>& litters);

/// Fills a row of the parents' age classes and of their mean ages in days.
void parent_age_statistics(const PopulationStore& store, YearAnimals animals, Row row, MonitorTables& tables);

/// Finds the columns of a text among the rows of a list; a text may stand there more than once.
struct ColumnFinder {
  TextIndex index;
  std::vector<std::string_view> texts;                      ///< by column, counted from 1
  std::vector<std::vector<std::int32_t>> columns_of_first;  ///< by first column of a text: all its columns
};

/// A finder for `texts`, which must outlive it. The first text is column 1; all have the same width.
ColumnFinder make_column_finder(std::span<const std::string_view> texts);

/// The columns of `text`, none when it is not in the list.
std::span<const std::int32_t> find_columns(const ColumnFinder& finder, std::string_view text);

/// Fills a row of the colours: one column for each row of the list but the last, which gathers all other animals.
void colour_statistics(const PopulationStore& store, YearAnimals animals, Row row, const ColumnFinder& colours,
                       YearTable<std::int32_t>& colour_counts);

/// Fills a row of the top breeders: their animals and those of them that became parents; the rest in the last two
/// columns. `breeders` finds a breeder's name of 20 characters; `parent_counts` holds the row of the same year.
void breeder_statistics(const PopulationStore& store, YearAnimals animals, Row row, const ColumnFinder& breeders,
                        const YearTable<std::int32_t>& parent_counts, YearTable<std::int32_t>& top_breeders);

}  // namespace pedigreewatch
