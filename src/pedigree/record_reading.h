// From the lines of the data file to the records of the store.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "core/line_reader.h"
#include "core/run_streams.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Where a field stands, for messages.
struct FieldPlace {
  std::string_view file;
  std::int64_t line = 0;
  std::int64_t column = 0;  ///< place of the field's first character, counted from 1
  std::int32_t record_number = 0;
  std::int64_t field = 0;             ///< counted from 1
  std::string_view header_line = {};  ///< empty: the data file has none
};

/// Yields the store as the data file gives it. `line_count` is the number of its lines, of which one less is read,
/// whether there is a header or not.
PopulationStore read_population(LineReader& data, std::int32_t line_count, const DataFileLayout& layout,
                                RunStreams& streams);

/// Settles the columns, then fills the store with `record_count` records, one from each line of `data`.
/// Texts that are too long are cut with a warning; a subpopulation that is not allowed gets an error line on console
/// and report and stays; a date that is no number stops the run.
void read_data_file(LineReader& data, std::int32_t record_count, const DataFileLayout& layout, PopulationStore& store,
                    RunStreams& streams);

/// Cuts `line` at the delimiter and stores the columns up to the last one that has a code. The texts of `record` lie in
/// the line.
void store_line(std::string_view line, std::span<const std::int32_t> columns, const DataFileLayout& layout,
                const FieldPlace& start, LineRecord& record, RunStreams& streams);

/// Stores one column's text in `record`. Codes without a field of their own do nothing.
void store_field(std::string_view field, std::int32_t field_code, const DataFileLayout& layout, const FieldPlace& place,
                 LineRecord& record, RunStreams& streams);

}  // namespace pedigreewatch
