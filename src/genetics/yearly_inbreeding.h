// Mean inbreeding and mean kinship of the animals of each birth year, of the whole population and of its
// subpopulations.
#pragma once

#include "core/text_output.h"
#include "core/year_table.h"
#include "genetics/ancestor_pedigree.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// The means of one birth year: F, and the kinships f of each two animals of the year or of those of them that became
/// parents. 0 where there are too few animals.
struct InbreedingRow {
  float F = 0.0F;
  float f_with_self = 0.0F;  ///< every animal with itself included
  float f_without_self = 0.0F;
  float f_of_parents = 0.0F;
  float f_of_fathers = 0.0F;
  float f_of_mothers = 0.0F;
};

/// What the report calls the InbreedingTable and the KinshipTable. The second one is empty when there are fewer than
/// two subpopulations.
struct YearlyInbreeding {
  YearRows<InbreedingRow> whole;
  YearTable<float> by_subpopulation;  ///< its columns: see subpopulation_kinship.h
};

/// Computes both, year by year. F of all animals must be final.
YearlyInbreeding compute_kinship_by_year(const PopulationStore& store, const AncestorPedigree& ancestors,
                                         const YearGroups& years, const Subpopulations& subpopulations,
                                         TextOutput& console);

/// Shows F and the mean relationship, twice the kinship, of each year on the console. The lines carry no year.
void echo_inbreeding(const YearRows<InbreedingRow>& rows, TextOutput& console);

}  // namespace pedigreewatch
