// Tables with one figure a row: of the diversity of a reference population, and of how the breed stands.
#pragma once

#include "diversity/diversity.h"
#include "pedigree/population_store.h"
#include "standing/standing.h"
#include "tables/table_writer.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// A header and the rows of diversity_rows.
void write_diversity_table(const PopulationStore& store, const Diversity& diversity, ToolLanguage language,
                           TableWriter& writer);

/// A header and the rows of standing_rows.
void write_standing_table(const PopulationStore& store, const Standing& standing, ToolLanguage language,
                          TableWriter& writer);

}  // namespace pedigreewatch
