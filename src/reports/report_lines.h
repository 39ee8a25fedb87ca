// The lines that many tables of the report share: blank lines, rules, headings, and tables of counts with a column
// for each colour, age, litter size, breeder or subpopulation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/line_writer.h"
#include "core/wording.h"
#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "reports/species_nouns.h"
#include "statistics/breeder_list.h"

namespace pedigreewatch {

/// What the writers need to know of the run besides the figures of their table.
struct ReportFrame {
  TextOutput& report;
  const PopulationStore& store;
  const SpeciesNouns& nouns;
  std::span<const SubpopulationName> subpopulation_names;
  std::span<const ColourName> colour_names;  ///< the last one stands for all colours that are not counted
  const BreederList& breeders;

  const BirthYears& years() const { return store.birth_years; }
};

/// The form of a noun that each language has in one place; where English has the plural, Dutch often has the singular.
struct NounForms {
  SpeciesWord SpeciesNouns::*english;
  SpeciesWord SpeciesNouns::*dutch;
};
inline constexpr NounForms young_noun = {&SpeciesNouns::youngs, &SpeciesNouns::young};
inline constexpr NounForms male_noun = {&SpeciesNouns::males, &SpeciesNouns::male};
inline constexpr NounForms female_noun = {&SpeciesNouns::females, &SpeciesNouns::female};

/// The noun in the form of the report's language, with its trailing blanks.
const SpeciesWord& noun_of(const ReportFrame& frame, const NounForms& forms);

/// A line of blanks, behind the blank with which every free-form line begins.
void write_blank_line(TextOutput& report, std::size_t blanks = 11);

/// A free-form rule of underscores.
void write_rule(TextOutput& report, std::size_t length);

/// A rule of 86 plus signs, without a leading blank.
void write_plus_rule(TextOutput& report);

/// One free-form line for each wording.
void write_headings(const ReportFrame& frame, std::span<const Wording> headings);
void write_heading(const ReportFrame& frame, const Wording& heading);

/// The sum of each column over all years.
std::vector<std::int64_t> column_sums(const YearTable<std::int32_t>& table);

/// A heading row: the label in 8 columns, then the numbers 1 to `count` in 8 columns each.
void write_column_numbers(TextOutput& report, std::string_view label, std::int64_t count);

/// A row for each year from first to last: the year, then `count` columns of the table from `first` on, each by the
/// field `column_field`. Years without animals all show the same zeros: those are made once, so that a long span of
/// empty years is written as fast as the disk takes it.
template <typename Cell>
void write_year_rows(const ReportFrame& frame, const YearTable<Cell>& table, std::int64_t first, std::int64_t count,
                     std::string_view column_field) {
  const std::string fields = row_fields("I8", count, column_field);
  constexpr std::size_t year_width = 8;
  std::string zeros;
  std::vector<LineItem> items;
  for (Row row = 1; row <= frame.years().dated_row_count(); ++row) {
    const std::int32_t year = frame.years().year_of(row);
    if (!table.is_stored(row) && !zeros.empty()) {
      TextOutput year_field;
      write_format_line(year_field, "I8", {year});
      append(frame.report, std::string_view(year_field.pending).substr(0, year_width));
      append(frame.report, zeros);
      end_line(frame.report);
      continue;
    }
    items.assign(1, year);
    for (std::int64_t column = first; column < first + count; ++column) items.emplace_back(table.value(row, column));
    TextOutput line;
    write_format_line(line, fields, items);
    line.pending.pop_back();  // the line feed
    append(frame.report, line.pending);
    end_line(frame.report);
    if (!table.is_stored(row)) zeros = line.pending.substr(year_width);
  }
}

/// The same for all columns of a table of counts, in 8 columns each.
void write_count_rows(const ReportFrame& frame, const YearTable<std::int32_t>& table);

/// A total row: the label, then the values, in 8 columns each.
void write_count_total(TextOutput& report, const LineItem& label, std::span<const std::int64_t> totals);

}  // namespace pedigreewatch
