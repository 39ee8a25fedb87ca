// Exports that hold several animals a line, as books of litters do: parents and date once, then young 1, young 2, ...
// Their columns are told by headings that differ in a number, and by the parents: those of later litters stand among
// the young of earlier ones.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "intake/column_choice.h"
#include "intake/column_profiles.h"

namespace pedigreewatch {

/// Columns whose headings differ in a number only ("Lamb 1 sex", "Lamb 2 sex"), or not at all.
struct ColumnGroup {
  std::vector<std::size_t> places;  ///< in the order of their numbers
  FieldCode code = unused_column;   ///< what the rest of the heading names; the id where it names young and no more
  bool names_young = false;         ///< the heading says young, lamb, pup, ...
  bool is_open = false;             ///< it may hold the ids of young: nothing else is said
};

/// The groups of two columns or more.
std::vector<ColumnGroup> find_column_groups(std::span<const std::string> headings);

/// The young of a line.
struct YoungColumns {
  std::vector<std::size_t> ids;     ///< the columns of their ids; empty: a line is one animal
  std::vector<LineAnimal> animals;  ///< with all that each has for itself
  std::vector<FieldCode> fields;    ///< what the moves of an animal are about, in their order
  bool is_certain = false;
  std::vector<Question> questions;  ///< one where it is not certain
};

/// The young whose ids stand in these columns, with the sexes, names, ... of as many columns: those of the group in
/// which the chosen column stands, or that its headings tell.
YoungColumns young_in(std::span<const std::size_t> ids, std::span<const ColumnGroup> groups,
                      const ColumnChoice& columns);

/// Finds the group of which the texts nearly all differ and that holds the parents, where the column of the id does
/// not.
YoungColumns find_young(std::span<const ColumnGroup> groups, std::span<const ColumnProfile> profiles,
                        const ColumnChoice& columns);

/// What the user says of the young, or what stands in the columns, put into the choice: the columns of the first young
/// as wishes in `wishes`. A column of the user's that is not there becomes a question of `columns`.
YoungColumns choose_young(std::string_view text, char delimiter, ColumnChoice& columns, PrepareOptions& wishes);

}  // namespace pedigreewatch
