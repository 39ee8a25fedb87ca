// Several females against several males in the desk, and the animals that nobody is to be mated with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// Females, and males, of one table: more are not taken in at a glance.
inline constexpr std::size_t most_mates = 100;

/// The animals that a list names, an identification a line. Yields an object: animals, one for each line that is not
/// blank (position, id, name, isMale, year, f; position 0 and the text of the line where no animal has it).
std::string find_listed(const Desk& desk, std::string_view ids);

/// Animals of a sex by their birth years, and whether those that have gone count too.
struct BornWished {
  Sex sex = female;
  std::int32_t first_year = 0, last_year = 0;
  bool takes_all = false;
};

/// All such animals but those that are left out. Yields an object: count, most (that a table takes), animals (as above;
/// none where they are more than that).
std::string find_born(const Desk& desk, const BornWished& wished);

/// Leaves animals out of the rankings and plans that are made from now on, by their positions, with commas between
/// them; those that were left out before are not any longer. Yields an object: count.
std::string leave_out(Desk& desk, std::string_view positions);

/// F of the offspring of each female with each male, by their positions, with commas between them; kept for the tables.
/// Yields an object: messages, females and males (as above, with meanKinship, equivalents, isShallow), f (row by row, a
/// row for each female), classes (those of `inbreeding_class`), beyond (places in f of what is above the board's
/// limit), limit.
std::string compare_mates(Desk& desk, std::string_view females, std::string_view males);

/// The same as a table: a row for each female, a column for each male. Those that have gone are marked, females in a
/// second column, males in a last row, where there are any.
std::string mates_table(const Desk& desk);
std::string mates_workbook(const Desk& desk);

}  // namespace pedigreewatch
