#include "control/subpopulation_blocks.h"

#include "pedigree/subpopulation_scan.h"
#include "reports/report.h"
#include "statistics/type_pass.h"

namespace pedigreewatch {

void report_subpopulations(const ReportFrame& frame, const DataFileLayout& layout,
                           const YearTable<float>& kinship_table, TextOutput& console) {
  const Subpopulations& subpopulations = layout.subpopulations;
  if (subpopulations.count() <= 1) return;
  const auto members = animals_by_subpopulation(frame.store, subpopulations);
  for (std::int32_t s = 1; s <= subpopulations.count(); ++s) {
    const BreedType type = {s, subpopulations.names.at(s), members[subpopulations.first_numbers.at(s)]};
    const auto block = run_type_pass(frame.store, type, layout.colours, frame.breeders, kinship_table, console);
    if (block) write_type_report(frame, *block);
  }
}

}  // namespace pedigreewatch
