// What a cell of a workbook shows, from the number that is stored and the format of the cell: numbers without an
// exponent, dates as yyyy-mm-dd.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pedigreewatch {

/// What the format of a cell makes of its number.
enum class CellKind {
  number,
  date,   ///< a day
  month,  ///< month and year: the first day of a month stands for the whole of it
  year,   ///< the year alone: the first of January stands for it
  time,   ///< a time of day or a duration
  date_time
};

struct CellFormat {
  CellKind kind = CellKind::number;
  std::size_t digits = 0;  ///< of a format of zeros alone ("00000"): how many are shown at least
};

/// The format of a code such as "dd/mm/yyyy", "00000" or "#,##0.00;[Red]-#,##0.00".
CellFormat format_of_code(std::string_view code);

/// The format of a number that stands for one in every workbook (14: a date); a number otherwise.
CellFormat format_of_number(std::int32_t number);

/// From which day a workbook counts its days.
enum class DateSystem { since_1900, since_1904 };

/// Adds the day of that number: "1987-03-14", with "T08:30:00" behind it where the kind has a time. The day that a
/// spreadsheet takes for the 29th of February 1900 is that of its number, 1900-02-29. False for a number that is no day
/// of the years up to 9999.
bool append_date_of_serial(std::string& text, double serial, CellKind kind, DateSystem system);

/// Adds a number as people write it: "528000000001234", "0.5", never "5.28E+14". Of what was computed, 15 digits
/// count, as in the spreadsheet; whole numbers keep all of theirs. False when `raw` is no number.
bool append_number(std::string& text, std::string_view raw, const CellFormat& format);

/// The number that `raw` is; false when it is none.
bool number_of(std::string_view raw, double& value);

}  // namespace pedigreewatch
