// The order of the tables never changes: reports are read by programs too. A subpopulation has no head, no litter
// sizes, no top sires and no summary, and its imports stand before its litters.

#include "reports/report.h"

#include <iterator>

#include "reports/breeders.h"
#include "reports/colours.h"
#include "reports/completeness.h"
#include "reports/generation_interval.h"
#include "reports/imports.h"
#include "reports/litters.h"
#include "reports/offspring.h"
#include "reports/parent_ages.h"
#include "reports/population_size.h"
#include "reports/population_summary.h"
#include "reports/subpopulation_kinship.h"
#include "reports/subpopulation_scan.h"
#include "reports/top_sires.h"
#include "reports/yearly_inbreeding.h"

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

void write_counts(const ReportFrame& frame) {
  constexpr std::int64_t added_colours = 2;
  write_free_line(frame.report, {number_of_varieties, std::int64_t{std::ssize(frame.subpopulation_names)}});
  if (frame.store.has_colour) {
    write_free_line(frame.report, {number_of_colours, std::int64_t{std::ssize(frame.colour_names) - added_colours}});
  } else {
    write_heading(frame, no_colours);
  }
  write_heading(frame, frame.store.has_breeder ? with_breeders : without_breeders);
  if (!frame.report.is_english) write_blank_line(frame.report);  // the English report has no blank line here
}

}  // namespace

void write_report(const ReportFrame& frame, const Block& block, const WholeExtras& extras) {
  const bool has_subpopulations = frame.subpopulation_names.size() > 1;
  write_title(frame.report, block.name);
  write_blank_line(frame.report);
  write_counts(frame);
  write_population_size(frame, block);
  if (has_subpopulations) write_subpopulation_tables(frame, extras.subpopulations);
  write_parents_and_litters(frame, block);
  write_blank_line(frame.report);
  write_litter_sizes(frame, block.litter_sizes);
  write_offspring(frame, block);
  if (frame.store.has_import) write_imports(frame, block.tables.import_pairs);
  write_age_tables(frame, block.tables.age_classes);
  write_generation_interval(frame, block);
  write_completeness(frame, block.tables.completeness);
  write_top_sires(frame, extras.top_sires);
  if (frame.store.has_colour) write_colours(frame, block.tables.colour_counts);
  if (frame.store.has_breeder) write_breeders(frame, block.tables.top_breeders);
  write_inbreeding(frame, block);
  write_summary(frame, extras.summary);
  if (has_subpopulations) write_subpopulation_kinship(frame, extras.kinship);
}

void write_type_report(const ReportFrame& frame, const Block& block) {
  constexpr std::size_t title_blanks = 10;
  write_blank_line(frame.report, title_blanks);
  write_title(frame.report, block.name);
  write_blank_line(frame.report, title_blanks);
  write_population_size(frame, block);
  if (frame.store.has_import) write_imports(frame, block.tables.import_pairs);
  write_parents_and_litters(frame, block);
  write_offspring(frame, block);
  write_age_tables(frame, block.tables.age_classes);
  write_generation_interval(frame, block);
  write_completeness(frame, block.tables.completeness);
  if (frame.store.has_colour) write_colours(frame, block.tables.colour_counts);
  if (frame.store.has_breeder) write_breeders(frame, block.tables.top_breeders);
  write_inbreeding(frame, block);
}

}  // namespace pedigreewatch
