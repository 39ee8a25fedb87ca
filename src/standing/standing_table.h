// How a breed stands as a table for R and spreadsheets: one figure a row, each with its margin, its limit and where it
// comes from.
#pragma once

#include <string>
#include <vector>

#include "standing/standing.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Texts in UTF-8. Numbers have a decimal point and up to six digits; what is not known is empty. Shares and rates are
/// parts of 1, years are years. A place of an animal is its identification.
struct StandingRow {
  std::string figure;     ///< its name, the same in both languages; the first one is "verdict"
  std::string value;      ///< a number, a word or an identification
  std::string low, high;  ///< margin of 95 in 100
  std::string limit;      ///< that it is compared with
  std::string source;     ///< what it is seen from, and whose the limit is
  bool is_id = false;     ///< the value is an identification, whatever it looks like
};

/// The names of the columns, in the order of the fields.
StandingRow standing_header();

/// "too_fast", "on_the_edge", "within_limit", "cannot_be_judged".
std::string_view name_of(Pace pace);

/// All rows. Sires, lines and a rule have rows only where there are any. `store` is the one the figures come from.
std::vector<StandingRow> standing_rows(const PopulationStore& store, const Standing& standing, ToolLanguage language);

}  // namespace pedigreewatch
