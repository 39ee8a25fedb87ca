// The widths are those of the field lists of the writers, with the line end. What stands above and below the rows of a
// table is the same for every population, but for lists of names.

#include "core/report_shape.h"

#include <algorithm>

#include "core/report_limits.h"

namespace pedigreewatch {
namespace {

/// The year or label in front of a row, and the line end.
constexpr std::int64_t row_ends = 9;

/// A row for a year in each table of a block that has the same columns for every population: population size, parents
/// and litters, offspring, generation interval, completeness, F and f; of the periods of about nine years a part.
constexpr std::int64_t block_row = 57 + 49 + 57 + 33 + 63 + 57 + 5;
/// The columns of imports in the table of the population size, and their own table.
constexpr std::int64_t import_row = 24 + 51;
/// The tables that only the whole population has: litter sizes, top sires.
constexpr std::int64_t whole_row = 57 + 120;
/// Titles, headings, rules, totals and rates.
constexpr std::int64_t block_frame = 5000, whole_frame = 9600;

/// The rows of one table of counts, its column numbers and its totals.
std::int64_t count_table(std::int64_t columns, std::int64_t years, std::int64_t width = 8) {
  return columns < 1 ? 0 : (years + 2) * (row_ends + width * columns);
}

std::int64_t block_bytes(const ReportShape& shape, const ParentAges& ages) {
  constexpr std::int64_t colour_line = 51, breeder_line = 18;
  const std::int64_t row = block_row + (shape.has_imports ? import_row : 0);
  return shape.years * row + count_table(shape.colours, shape.years) + shape.colours * colour_line +
         count_table(shape.breeders, shape.years, 16) + shape.breeders * breeder_line +
         count_table(ages.fathers, shape.years) + count_table(ages.mothers, shape.years);
}

/// The tables of the whole population that set subpopulations beside each other.
std::int64_t bytes_beside_each_other(std::int64_t names, std::int64_t years) {
  constexpr std::int64_t legend_line = 36;
  return count_table(names, years) + count_table(names, names) + count_table(names, years, 20) +
         count_table(pairs_of(names), years, 10) + names * legend_line;
}

std::int64_t widest_line(const ReportShape& shape, std::int64_t names, const ParentAges& ages) {
  const std::int64_t oldest = std::max(ages.fathers, ages.mothers);
  return row_ends + std::max({pairs_of(names) * 10, names * 20, shape.colours * 8, shape.breeders * 16, oldest * 8});
}

}  // namespace

ReportBytes bytes_without_blocks(const ReportShape& shape, const ParentAges& ages) {
  const bool has_subpopulations = shape.names > 1;
  ReportBytes bytes;
  bytes.all = whole_frame + shape.years * whole_row + block_bytes(shape, ages);
  bytes.longest_line = widest_line(shape, has_subpopulations ? shape.names : 0, ages);
  if (has_subpopulations) bytes.all += bytes_beside_each_other(shape.names, shape.years);
  return bytes;
}

void add_block(ReportBytes& bytes, const ReportShape& shape, const ParentAges& ages) {
  ++bytes.blocks;
  bytes.all += block_frame + block_bytes(shape, ages);
}

bool is_too_large(const ReportBytes& bytes) {
  return bytes.all > report_byte_limit || bytes.longest_line > line_byte_limit;
}

std::string in_megabytes(std::int64_t bytes, char decimal_sign) {
  constexpr std::int64_t mega = 1'000'000, part = mega / 100, with_decimals = 1000;
  const std::int64_t hundredths = (bytes + part - 1) / part;
  if (hundredths >= with_decimals) return std::to_string((bytes + mega - 1) / mega) + " MB";
  std::string text = std::to_string(hundredths / 100);
  if (hundredths % 100 != 0) {
    text += decimal_sign + std::to_string(100 + hundredths % 100).substr(1);
    if (text.back() == '0') text.pop_back();
  }
  return text + " MB";
}

}  // namespace pedigreewatch
