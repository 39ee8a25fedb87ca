// A report kept in memory, with the nouns of cattle, and the lines from which expected reports are put together.
// The nouns differ in all six forms, so that a singular in place of a plural shows.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/year_table.h"
#include "reports/report_lines.h"
#include "support/lines.h"
#include "support/store_builder.h"
#include "support/streams.h"

namespace pedigreewatch::test {

inline SpeciesNouns cattle_nouns(bool english) {
  if (english) {
    return {SpeciesWord("bull"),  SpeciesWord("cow"),  SpeciesWord("calf"),
            SpeciesWord("bulls"), SpeciesWord("cows"), SpeciesWord("calves")};
  }
  return {SpeciesWord("stier"),   SpeciesWord("koe"),    SpeciesWord("kalf"),
          SpeciesWord("stieren"), SpeciesWord("koeien"), SpeciesWord("kalveren")};
}

/// The years from `first` on, `count` of them.
inline BirthYears years_from(std::int32_t first, std::int32_t count) {
  return {.first = first, .last = first + count - 1, .count = count};
}

/// The years of a population without animals.
inline BirthYears no_years() {
  return {};
}

/// What a table writer prints into, and what it knows of the run. The names are empty unless a test puts some in.
struct ReportSheet {
  TextOutput output;
  PopulationStore store;
  SpeciesNouns nouns;
  std::vector<SubpopulationName> subpopulation_names;
  std::vector<ColourName> colour_names;
  BreederList breeders;

  ReportSheet(const BirthYears& years, bool english) : output(output_in(english)), nouns(cattle_nouns(english)) {
    store.birth_years = years;
  }
  /// Puts these animals into the store; its years stay.
  void hold(std::span<const AnimalRecord> animals) {
    const BirthYears years = store.birth_years;
    store = finished_store_of(animals);
    store.birth_years = years;
  }
  ReportFrame frame() { return {output, store, nouns, subpopulation_names, colour_names, breeders}; }
  std::vector<std::string> lines() const { return lines_of(output); }
};

inline ReportSheet english_sheet(const BirthYears& years) {
  return {years, true};
}
inline ReportSheet dutch_sheet(const BirthYears& years) {
  return {years, false};
}

/// A table from its rows; a row without cells takes no memory, like a year without animals.
template <typename Cell>
YearTable<Cell> table_of(std::int64_t columns, std::initializer_list<std::vector<Cell>> rows) {
  YearTable<Cell> table(static_cast<std::int64_t>(rows.size()), columns);
  std::int64_t row = 0;
  for (const std::vector<Cell>& cells : rows) {
    ++row;
    for (std::size_t i = 0; i < cells.size(); ++i) table.at(row, static_cast<std::int64_t>(i) + 1) = cells[i];
  }
  return table;
}

/// A table of `row_count` years from the records of some of them; the others are years without animals.
template <typename Record>
YearRows<Record> rows_of(Row row_count, std::initializer_list<std::pair<Row, Record>> records) {
  YearRows<Record> rows(row_count);
  for (const auto& [row, record] : records) rows.at(row) = record;
  return rows;
}

// ---- expected lines --------------------------------------------------------------------------------------------

/// A free-form line of blanks: one more than its text.
inline std::string blank(std::size_t blanks = 11) {
  return std::string(blanks + 1, ' ');
}
/// A free-form rule: a blank and the underscores.
inline std::string rule(std::size_t length) {
  return " " + std::string(length, '_');
}
inline std::string pluses() {
  return std::string(86, '+');
}
/// Compares line by line, so that a difference names its line; then all bytes.
inline void expect_lines(const TextOutput& output, const std::vector<std::string>& expected) {
  const std::vector<std::string> printed = lines_of(output);
  for (std::size_t i = 0; i < std::min(printed.size(), expected.size()); ++i) {
    EXPECT_EQ(printed[i], expected[i]) << "line " << i + 1;
  }
  EXPECT_EQ(printed.size(), expected.size());
  EXPECT_TRUE(output.pending == joined(expected)) << "the bytes differ";
}

}  // namespace pedigreewatch::test
