// Litters and fathers are counted over one year's animals with working lists that span the whole store, and that each
// count leaves as it found them: only entries of that year's parents are touched.

#include "statistics/litters.h"

#include <algorithm>

#include "core/integers.h"

namespace pedigreewatch {
namespace {

/// A litter belongs to the first animal of its mother; it counts unless that animal is an import.
void count_litters(const PopulationStore& store, YearAnimals animals, LitterScratch& scratch, LitterCounts& counts) {
  for (const std::int32_t position : animals) {
    if (const std::int32_t dam = store.dam_no[position]; dam != 0) ++scratch.litter_size[dam];
  }
  for (const std::int32_t position : animals) {
    std::int32_t& size = scratch.litter_size[store.dam_no[position]];
    if (size == 0) continue;  // an unknown mother, or a litter that was met before
    if (store.is_import[position] == 0) {
      ++counts.litters;
      ++counts.of_size(std::min(size, largest_litter));
    }
    size = 0;
  }
}

void count_fathers(const PopulationStore& store, YearAnimals animals, LitterScratch& scratch, LitterCounts& counts) {
  bool is_first = true;
  for (const std::int32_t position : animals) {
    if (const std::int32_t sire_no = store.sire_no[position]; sire_no != 0) {
      char& is_seen = scratch.is_seen[sire_no];
      if (is_seen == 0 && !is_first && store.is_import[position] == 0) ++counts.fathers;
      is_seen = 1;
    }
    is_first = false;
  }
  for (const std::int32_t position : animals) scratch.is_seen[store.sire_no[position]] = 0;
}

std::int64_t young_in_litters(const LitterCounts& counts) {
  std::int64_t young = 0;
  for (std::int32_t size = 1; size <= largest_litter; ++size) young += std::int64_t{size} * counts.of_size(size);
  return young;
}

LitterMeans means_of_litters(const LitterCounts& counts) {
  const std::int64_t young = young_in_litters(counts);
  LitterMeans means;
  means.litters = counts.litters;
  means.fathers = counts.fathers;
  if (counts.litters != 0) means.young_per_litter = quotient(young, counts.litters);
  if (counts.fathers == 0) return means;
  means.litters_per_father = quotient(counts.litters, counts.fathers);
  means.young_per_father = quotient(young, counts.fathers);
  return means;
}

std::int32_t largest_size_of(const YearRows<LitterCounts>& litters) {
  std::int32_t largest = 0;
  for (const LitterCounts& counts : litters.records) {
    for (std::int32_t size = largest + 1; size <= largest_litter; ++size) {
      if (counts.of_size(size) > 0) largest = size;
    }
  }
  return largest;
}

}  // namespace

LitterCounts litter_statistics(const PopulationStore& store, YearAnimals animals, LitterScratch& scratch) {
  LitterCounts counts;
  count_litters(store, animals, scratch, counts);
  count_fathers(store, animals, scratch, counts);
  return counts;
}

YearRows<LitterMeans> means_of_years(const YearRows<LitterCounts>& litters) {
  YearRows<LitterMeans> means(litters.row_count());
  for (Row row = 1; row <= litters.row_count(); ++row) {
    if (litters.rows.place_of(row) != 0) means.at(row) = means_of_litters(litters.of(row));
  }
  return means;
}

LitterMeans means_of_all_litters(const YearRows<LitterCounts>& litters, const ReportTotals& totals) {
  std::int64_t litter_count = 0;
  for (const LitterCounts& counts : litters.records) litter_count += counts.litters;
  const ParentCount<std::int64_t>& males = totals.of(male);
  const std::int64_t young = males.unused + totals.of(female).unused;
  const std::int64_t fathers = males.native_parents + males.imported_parents;
  return {.litters = litter_count,
          .young_per_litter = quotient(young, litter_count),
          .fathers = fathers,
          .litters_per_father = quotient(litter_count, fathers),
          .young_per_father = quotient(young, fathers)};
}

YearTable<std::int32_t> litter_sizes_of(const YearRows<LitterCounts>& litters) {
  YearTable<std::int32_t> sizes(litters.row_count(), largest_size_of(litters));
  for (Row row = 1; row <= litters.row_count(); ++row) {
    const LitterCounts counts = litters.of(row);
    for (std::int32_t size = 1; size <= sizes.column_count; ++size) {
      if (counts.of_size(size) != 0) sizes.at(row, size) = counts.of_size(size);
    }
  }
  return sizes;
}

}  // namespace pedigreewatch
