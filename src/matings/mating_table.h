// The matings as a table: a line for each pair, for spreadsheets and for R. UTF-8 with a heading, decimal points, and
// empty cells for what is not known.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "core/new_files.h"
#include "matings/ranking.h"

namespace pedigreewatch {

enum class MatingTableForm : std::uint8_t { tabs, commas };

/// What is written; one entry of `parts` for each pair.
struct MatingTable {
  const MatingWork& work;
  std::span<const MatingPair> pairs;
  std::span<const KinshipParts> parts;
  MatingTableForm form = MatingTableForm::tabs;
  bool is_plain = false;                         ///< identifications that begin like a formula are written as they are
  double most_inbreeding = double{usual_bound};  ///< the limit of the board
  std::int64_t corrections = 0;  ///< of the export, that the data contain: above 0 a last column tells how many
};

/// The names of the columns, and one line, both without their end.
std::string mating_heading(MatingTableForm form, std::int64_t corrections = 0);
std::string mating_row(const MatingTable& table, std::size_t pair);

/// Writes the table, completely or not at all. Yields false when it cannot be written, with `problem`, or when it was
/// stopped, without.
bool write_matings(const MatingTable& table, const std::string& name, const MatingWatch& watch, FileProblem& problem);

}  // namespace pedigreewatch
