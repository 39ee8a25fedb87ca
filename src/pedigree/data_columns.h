// Which field of an animal each column of the data file feeds: from the steer file's list, or from the header line.
#pragma once

#include <string>
#include <string_view>

#include "core/line_reader.h"
#include "core/run_streams.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

struct DataColumns {
  ColumnMap codes = {};     ///< the field code of each column
  std::string header_line;  ///< as it stands in the data file; empty when the steer file gives the codes
};

/// Yields the columns and sets the `has_` flags of the store. When the steer file gives no codes
/// (their sum is 0) the first line of `data` is read as a header; otherwise `data` stays where it is. Announces each
/// field on the console; stops the run when a required column is missing or the file has no header line.
DataColumns read_columns(LineReader& data, const DataFileLayout& layout, PopulationStore& store, RunStreams& streams);

/// Splits a header line at the delimiter and looks its words up. Reports every word on the console.
ColumnMap read_header_line(std::string_view line, const DataFileLayout& layout, TextOutput& console);

}  // namespace pedigreewatch
