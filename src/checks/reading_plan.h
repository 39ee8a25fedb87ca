// How the lines of the data file are cut. Where the steer file or the headings are wrong and it is clear what is meant,
// a finding says so and the plan is what it will be once that is mended: one check finds everything.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "checks/check_settings.h"
#include "checks/findings.h"
#include "core/line_reader.h"
#include "intake/column_recognition.h"

namespace pedigreewatch {

struct ReadingPlan {
  DataFileLayout layout;                                  ///< with the columns as they are meant
  std::size_t counted_columns = 0;                        ///< columns up to the last one in use
  std::size_t header_columns = 0;                         ///< columns of the header line; 0: there is none
  std::array<std::uint16_t, field_count> column_of = {};  ///< for each field code its column from 1; 0: none
  std::string header_line;                                ///< empty: the file has none
  bool strips_quotes = false;         ///< the headings stand in quotation marks, so texts are taken without them
  bool first_line_is_header = false;  ///< the first line is no animal
  bool counts_names = true;           ///< subpopulations, colours and breeders are counted
  bool can_be_read = false;           ///< the columns that are required are there
  const ExportLines* export_lines = nullptr;  ///< what is known of the export behind the data file; null: nothing
};

/// Looks at the start of the file, which is read from its first line again afterwards. Yields a plan that cannot be
/// read when nothing further can be found.
ReadingPlan plan_reading(LineReader& data, const CheckSettings& settings, Findings& findings);

/// What a column, counted from 0, holds by the numbers of the plan; `unused_column` also for a number without a
/// meaning.
inline FieldCode field_of_column(const ReadingPlan& plan, std::size_t column) {
  const std::int32_t code = plan.layout.column_codes[column];
  return code > 0 && std::cmp_less(code, field_count) ? static_cast<FieldCode>(code) : unused_column;
}

/// The heading of a field in the language of the run, as the program knows it.
std::string_view heading_of_field(FieldCode code, ToolLanguage language);

}  // namespace pedigreewatch
