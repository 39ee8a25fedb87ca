// What makes the report of a population large, and how many bytes it will have.
#pragma once

#include "core/report_shape.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"
#include "statistics/breeder_list.h"
#include "statistics/parent_ages.h"

namespace pedigreewatch {

/// The counts that the size of the report depends on.
ReportShape shape_of_report(const PopulationStore& store, const DataFileLayout& layout, const BreederList& breeders);

/// Counts what the tables of the report will hold, without those of the parents' ages where `oldest` is 0.
ReportBytes count_report_bytes(const PopulationStore& store, const DataFileLayout& layout, const BreederList& breeders,
                               const OldestParents& oldest);

/// The same without a look at the animals: as if all subpopulations had some, and parents as old as any.
ReportBytes most_report_bytes(const ReportShape& shape, const OldestParents& oldest);

}  // namespace pedigreewatch
