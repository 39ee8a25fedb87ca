// The yearly tables of the whole population.
#pragma once

#include "control/steer_settings.h"
#include "core/text_output.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"
#include "statistics/breeder_list.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// Fills all tables but the pedigree completeness, year by year. Mean ages are in days afterwards.
void monitor_population(const PopulationStore& store, const SteerSettings& settings, const YearGroups& years,
                        const BreederList& breeders, MonitorTables& tables, TextOutput& console);

/// Fills the two tables of pedigree completeness from the values of the records.
void summarise_completeness(const PopulationStore& store, const YearGroups& years, MonitorTables& tables);

/// The rows of `colour_names` that are looked up: all but the last, which gathers the animals of no listed colour.
std::vector<std::string_view> listed_colours(const SteerSettings& settings);

}  // namespace pedigreewatch
