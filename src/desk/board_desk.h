// What the board of a breed says of it: the year of its rule and its own limits.
#pragma once

#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// As they are typed; empty ones are not said.
struct BoardTexts {
  std::string_view rule_year, sire_share, most_f;
};

/// Takes what the board says, and judges the results anew when there are any. Answers { "problem": "" }, or with what
/// cannot be understood; then nothing changes.
std::string set_board(Desk& desk, const BoardTexts& texts);

/// How the breed of the results stands, with what the check found so far.
void judge_results(Desk& desk);

/// The table NAME_standing; empty without results.
std::string standing_table(const Desk& desk);

}  // namespace pedigreewatch
