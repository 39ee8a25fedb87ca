// The fifth step of the desk: which matings to make.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// Adds the fields of an animal to an object: position, id, name, isMale, year, f; of one that has gone also gone: what
/// the export says of it, "Date of death: 12-03-2021", or nothing where it is only left out of a list.
void add_animal(JsonText& json, const DeskResults& results, std::int32_t position);

/// What tables say of an animal that has gone, "no longer there (Date of death: 12-03-2021)", in UTF-8 on one line;
/// empty of all others. And the heading above it.
std::string gone_text(const Desk& desk, std::int32_t position);
std::string_view heading_of_gone(ToolLanguage language);

/// Animals of one sex, or of both, in whose identification or name the words of the text stand, in the order of
/// `find_animals`. Yields an object: animals (position, id, name, isMale, year, f), at most 30, and count, of all.
std::string find_in_results(const Desk& desk, std::string_view text, std::optional<Sex> sex = {});

/// The offspring of two animals. Yields an object: f, kinship, dam and sire (as above, with meanKinship), ancestors
/// (id, name, contribution).
std::string describe_pair(const Desk& desk, std::int32_t sire, std::int32_t dam);

/// Birth years, and whether males that have gone count too.
struct MalesWished {
  std::int32_t first_year = 0, last_year = 0;
  bool takes_all = false;
};

/// All such males for one female but those that are left out, kept for `list_males` and `males_table`. Yields an
/// object: count.
std::string rank_males(Desk& desk, std::int32_t dam, const MalesWished& wished);

/// Orders the males at hand by F of the offspring, or by their mean kinship with the youngest animals.
std::string order_males(Desk& desk, bool by_mean_kinship);

/// `count` of them from the one at `first` on. Yields an object: rows (as above, with offspringF and meanKinship).
std::string list_males(const Desk& desk, std::size_t first, std::size_t count);

/// All of them as a table, with tabs between the columns; where some have gone, with a column that says so.
std::string males_table(const Desk& desk);

}  // namespace pedigreewatch
