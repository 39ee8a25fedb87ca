// How many bytes a report will have, known from counts before anything is written. A table has a row for each birth
// year and a column for each subpopulation, pair of them, colour, breeder or year of a parent's age.
#pragma once

#include <cstdint>
#include <string>

namespace pedigreewatch {

/// What makes a report large.
struct ReportShape {
  std::int64_t years = 0;                  ///< from the first to the last birth year
  std::int64_t names = 0;                  ///< of subpopulations in the steer file
  std::int64_t colours = 0, breeders = 0;  ///< that have columns of their own
  bool has_imports = false;
};

/// The ages of the oldest father and mother in whole years; 0 or less where none is known.
struct ParentAges {
  std::int64_t fathers = 0, mothers = 0;
};

struct ReportBytes {
  std::int64_t all = 0;           ///< within one percent where subpopulations make it large
  std::int64_t longest_line = 0;  ///< the line end included; exact where subpopulations make it
  std::int64_t blocks = 0;        ///< of subpopulations that have animals
};

/// The pairs of so many subpopulations.
constexpr std::int64_t pairs_of(std::int64_t names) {
  return names * (names - 1) / 2;
}

/// The report without the blocks of subpopulations. With one of them, or none, there are no such blocks.
ReportBytes bytes_without_blocks(const ReportShape& shape, const ParentAges& ages);

/// Adds the block of a subpopulation that has animals.
void add_block(ReportBytes& bytes, const ReportShape& shape, const ParentAges& ages);

/// Whether the report would have more than 1 GB, or a line of more than 1 MB.
bool is_too_large(const ReportBytes& bytes);

/// "12 MB", rounded up; below 10 MB with two decimals, without zeros at their end: "1.01 MB", "2 MB".
std::string in_megabytes(std::int64_t bytes, char decimal_sign = '.');

}  // namespace pedigreewatch
