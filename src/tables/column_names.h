// Names of columns that any program for statistics takes as they are: lower-case letters, digits and underscores behind
// a letter, and each name once.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace pedigreewatch {

/// The part of a column's name that a text of the steer file becomes: accents are left away, letters are made small,
/// and all else becomes an underscore, one for several ("Rood-bont" gives "rood_bont"). Empty when nothing is left.
std::string name_part(std::string_view bytes);

/// Names that are taken, in small letters: programs differ in whether they tell "F" from "f". A name that stood behind
/// many others that were the same is not looked for from 2 on again.
struct TakenNames {
  std::set<std::string> names;
  std::map<std::string, int> last_numbers;  ///< of names that were wanted more than once
};

/// The name, or with "_2", "_3", ... behind it when it is taken. It is taken from then on.
std::string take_name(TakenNames& taken, const std::string& wanted);

}  // namespace pedigreewatch
