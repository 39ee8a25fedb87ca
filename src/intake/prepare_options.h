// What the user says about an export. Whatever is said overrules what would be recognised.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "corrections/correction_list.h"
#include "intake/date_layout_recognition.h"
#include "intake/id_rules.h"
#include "pedigree/header_words.h"
#include "text/encoding.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// The column of a field: by its heading, by its number, or "none".
struct ColumnWish {
  FieldCode code = unused_column;
  std::string column;
};

/// Which names of a column go into the steer file.
struct NameWish {
  bool is_given = false;
  bool leaves_out = false;         ///< "none": the column is left out
  std::vector<std::string> names;  ///< empty: all
  std::int64_t least_animals = 0;  ///< names that fewer animals have are one together; 0: none are
};

struct PrepareOptions {
  std::string export_name;
  std::string answers_name;  ///< a file of answers; empty: one about the same headings, if there is one
  std::string sheet;         ///< of a workbook, by its name or number; empty: the first one with a table
  std::optional<char> delimiter;
  std::optional<Encoding> encoding;
  std::optional<DateOrder> dates;
  std::optional<DateSystem> serials;    ///< how numbers of days are counted
  std::optional<std::int32_t> century;  ///< the first year of the hundred that years of two digits mean
  std::optional<IdRules> ids;           ///< what does not count when parents are compared with identifications
  std::int32_t this_year = 0;           ///< in which nobody is born later; 0: not known
  std::optional<bool> has_header;
  std::vector<std::string> male, female;  ///< texts of the sexes
  std::vector<std::string> unknown;       ///< texts that stand for unknown parents
  std::vector<std::string> known;         ///< texts of parents that are animals; "all": all that nobody knows
  std::vector<ColumnWish> columns;
  std::string species;
  ToolLanguage language = ToolLanguage::english;
  bool is_language_said = false;  ///< else it is the usual one
  std::string population_name;
  NameWish subpopulations, colours;
  NameWish availability;                   ///< the columns that tell which animals have gone; "none": no column does
  std::vector<std::string> gone, present;  ///< texts in them: of animals that have gone, of others; "all": all others
  NameWish young;                          ///< the columns of several animals a line; "none": a line is one animal
  std::string folder;
  std::string corrections_file;  ///< its name; empty: none
  std::vector<Correction> corrections;
  bool may_overwrite = false;
  bool is_dry_run = false;
};

}  // namespace pedigreewatch
