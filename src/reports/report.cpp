#include "reports/report.h"

#include <algorithm>

#include "reports/breeder_colour_tables.h"
#include "reports/import_table.h"
#include "reports/inbreeding_tables.h"
#include "reports/offspring_litter_tables.h"
#include "reports/parent_age_tables.h"
#include "reports/population_size_table.h"
#include "reports/population_summary.h"
#include "reports/subpopulation_tables.h"
#include "reports/top_sire_table.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view star_rule = "          ******************************************";

constexpr Wording number_of_varieties = {"Number of varieties: ",
                                         "Aantal vari\xEB"
                                         "teiten: "};
constexpr Wording number_of_colours = {"number of colours: ", "aantal kleurslagen: "};
constexpr Wording no_colours = {"no colours analysed", "geen kleurslagen geanalyseerd"};
constexpr Wording with_breeders = {"breeders analysed", "wel fokkers geanalyseerd"};
constexpr Wording without_breeders = {"no breeders analysed", "geen fokkers geanalyseerd"};

void write_title(TextOutput& report, std::string_view name) {
  write_free_line(report, {star_rule});
  write_free_line(report, {"          *", name, "*"});
  write_free_line(report, {star_rule});
}

void write_counts(const ReportFrame& frame, const PopulationStore& store, const SteerSettings& settings) {
  constexpr std::int32_t added_colours = 2;
  write_free_line(frame.report, {number_of_varieties, settings.subpopulation_count});
  if (store.has_colour) {
    write_free_line(frame.report, {number_of_colours, settings.colour_count - added_colours});
  } else {
    write_heading(frame, no_colours);
  }
  write_heading(frame, store.has_breeder ? with_breeders : without_breeders);
  if (!frame.report.is_english) write_blank_line(frame.report);  // the English report has no blank line here
}

/// The record at a position; one of blanks and zeros when the store has none there.
AnimalRecord record_at(const PopulationStore& store, std::int32_t position) {
  const std::int32_t place = std::max(position, 1);
  return static_cast<std::size_t>(place) <= store.animals.size() ? store.at(place) : AnimalRecord{};
}

}  // namespace

void write_report(const ReportFrame& frame, const PopulationStore& store, const SteerSettings& settings,
                  MonitorTables& monitor, const BreederList& breeders, const OverallParentAges& overall_ages,
                  const BusiestParents& busiest, WholePopulationTables& whole) {
  const bool has_subpopulations = settings.subpopulation_count > 1;
  write_title(frame.report, settings.population_name.full());
  write_blank_line(frame.report);
  write_counts(frame, store, settings);
  const ReportTotals totals = write_population_size(frame, store.has_import, store.animal_count, monitor.parent_counts);
  if (has_subpopulations) {
    write_subpopulation_tables(frame, settings.subpopulation_names, whole.subpopulation_years, whole.overlap);
  }
  write_parents_and_litters(frame, monitor.litters, totals);
  write_blank_line(frame.report);
  write_litter_sizes(frame, monitor.litters);
  write_offspring(frame, monitor.parent_offspring, record_at(store, busiest.sire), record_at(store, busiest.dam));
  if (store.has_import) write_imports(frame, monitor.import_pairs);
  write_age_tables(frame, monitor.sire_age_classes, monitor.dam_age_classes);
  const float generation_interval =
      write_generation_interval(frame, monitor.mean_sire_age, monitor.mean_dam_age, overall_ages);
  write_completeness(frame, monitor.equivalent_generations, monitor.complete_generation_shares);
  write_top_sires(frame, store, whole.top_sires);
  if (store.has_colour) write_colours(frame, settings.colour_names, monitor.colour_counts);
  if (store.has_breeder) write_breeders(frame, breeders, monitor.top_breeders);
  write_inbreeding(frame, whole.inbreeding, whole.rates, generation_interval);
  write_summary(frame, monitor, whole.top_sires.shares);
  if (has_subpopulations) write_subpopulation_kinship(frame, settings.subpopulation_names, whole.kinship);
}

void write_type_report(const ReportFrame& frame, const PopulationStore& store, const SteerSettings& settings,
                       const SubpopulationName& name, MonitorTables& monitor, const BreederList& breeders,
                       const OverallParentAges& overall_ages, const BusiestParents& busiest,
                       const YearTable<float>& trend, const RateSummary& rates) {
  constexpr std::size_t title_blanks = 10;
  write_blank_line(frame.report, title_blanks);
  write_title(frame.report, name.full());
  write_blank_line(frame.report, title_blanks);
  const ReportTotals totals = write_population_size(frame, store.has_import, store.animal_count, monitor.parent_counts);
  if (store.has_import) write_imports(frame, monitor.import_pairs);
  write_parents_and_litters(frame, monitor.litters, totals);
  write_offspring(frame, monitor.parent_offspring, record_at(store, busiest.sire), record_at(store, busiest.dam));
  write_age_tables(frame, monitor.sire_age_classes, monitor.dam_age_classes);
  const float generation_interval =
      write_generation_interval(frame, monitor.mean_sire_age, monitor.mean_dam_age, overall_ages);
  write_completeness(frame, monitor.equivalent_generations, monitor.complete_generation_shares);
  if (store.has_colour) write_colours(frame, settings.colour_names, monitor.colour_counts);
  if (store.has_breeder) write_breeders(frame, breeders, monitor.top_breeders);
  write_inbreeding(frame, trend, rates, generation_interval);
}

}  // namespace pedigreewatch
