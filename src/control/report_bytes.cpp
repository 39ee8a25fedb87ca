// Every subpopulation that has animals gets a block, with parents as old as its own.

#include "control/report_bytes.h"

#include <vector>

#include "pedigree/subpopulation_scan.h"
#include "statistics/parent_ages.h"

namespace pedigreewatch {
namespace {

ParentAges ages_of(const OldestParents& oldest) {
  return {oldest.of(male), oldest.of(female)};
}

}  // namespace

ReportShape shape_of_report(const PopulationStore& store, const DataFileLayout& layout, const BreederList& breeders) {
  return {.years = store.birth_years.dated_row_count(),
          .names = layout.subpopulations.count(),
          .colours = store.has_colour ? layout.colours.count() : 0,
          .breeders = store.has_breeder ? breeders.top_breeder_count + 1 : 0,
          .has_imports = store.has_import};
}

ReportBytes most_report_bytes(const ReportShape& shape, const OldestParents& oldest) {
  ReportBytes bytes = bytes_without_blocks(shape, ages_of(oldest));
  for (std::int64_t k = 1; shape.names > 1 && k <= shape.names; ++k) add_block(bytes, shape, ages_of(oldest));
  return bytes;
}

ReportBytes count_report_bytes(const PopulationStore& store, const DataFileLayout& layout, const BreederList& breeders,
                               const OldestParents& oldest) {
  const ReportShape shape = shape_of_report(store, layout, breeders);
  ReportBytes bytes = bytes_without_blocks(shape, ages_of(oldest));
  if (shape.names <= 1) return bytes;
  const bool has_ages = oldest.of(male) > 0 || oldest.of(female) > 0;
  const auto members = animals_by_subpopulation(store, layout.subpopulations);
  for (std::int32_t k = 1; k <= layout.subpopulations.count(); ++k) {
    const std::vector<std::int32_t>& animals = members[layout.subpopulations.first_numbers.at(k)];
    if (animals.empty()) continue;
    add_block(bytes, shape, has_ages ? ages_of(find_oldest_parents(store, animals)) : ages_of(oldest));
  }
  return bytes;
}

}  // namespace pedigreewatch
