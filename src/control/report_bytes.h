// How many bytes a report will have, known from counts before anything is written. A table has a row for each birth
// year and a column for each subpopulation, pair of them, colour, breeder or year of a parent's age.
#pragma once

#include <cstdint>

#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"
#include "statistics/breeder_list.h"
#include "statistics/parent_ages.h"

namespace pedigreewatch {

struct ReportBytes {
  std::int64_t all = 0;           ///< within one percent where subpopulations make it large
  std::int64_t longest_line = 0;  ///< the line end included; exact where subpopulations make it
  std::int32_t birth_years = 0;
  std::int32_t names = 0;   ///< of subpopulations in the steer file
  std::int32_t blocks = 0;  ///< of subpopulations that have animals
};

/// Counts what the tables of the report will hold, without those of the parents' ages where `oldest` is 0.
ReportBytes count_report_bytes(const PopulationStore& store, const DataFileLayout& layout, const BreederList& breeders,
                               const OldestParents& oldest);

/// The same without a look at the animals: as if all subpopulations had some, and parents as old as any.
ReportBytes most_report_bytes(const PopulationStore& store, const DataFileLayout& layout, const BreederList& breeders,
                              const OldestParents& oldest);

}  // namespace pedigreewatch
