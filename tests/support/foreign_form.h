// How one export of an office is written: everything that is drawn before its first line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/foreign_population.h"
#include "support/foreign_words.h"

namespace pedigreewatch::test {

/// What a column holds, whatever stands above it.
enum class ColumnContent {
  row_number,
  id,
  name,
  sire,
  dam,
  sire_name,
  dam_name,
  sex,
  birth,
  colour,
  breeder,
  herd,
  owner,
  weight,
  death,
  registered,
  status,
  notes,
  grandsire,
  chip,       ///< a second number of each animal
  sire_chip,  ///< that of the father
  dam_chip,
  filler
};

struct ForeignColumn {
  ColumnContent content = ColumnContent::filler;
  std::string heading;
  int young = 0;  ///< of which young of a litter, counted from 1; 0: of the whole line
};

/// A layout of dates: %d %m day and month, %D %M with two digits, %Y %y year, %b %B month in short or in full, %s the
/// number of days of a spreadsheet since 1900, %S since 1904.
struct DateForm {
  std::string_view name, pattern;
  std::string_view option;  ///< what the option calls it
};

/// How parents are written where that is not as their own line has it.
enum class ParentWriting { as_ids, without_signs, in_small_letters, without_zeros, without_prefix };

enum class Damage { none, shifted_lines, cut_lines, joined_lines, exchanged_dates, count };

struct ForeignForm {
  Tongue tongue = Tongue::english;
  IdStyle ids = IdStyle::numbers;
  SexStyle sexes;
  std::vector<std::string> unknown;  ///< the texts for unknown parents
  DateForm dates;
  bool has_rough_dates = false;  ///< some as "~ 1972"
  ParentWriting parents = ParentWriting::as_ids;
  char delimiter = ';';
  std::string encoding;    ///< as the option names it
  std::string iconv_name;  ///< as the system names it
  std::string mark;        ///< bytes at the start of the file
  std::vector<ForeignColumn> columns;
  bool has_header = true, quotes_all = false, has_separator_line = false, has_blank_lines = false;
  bool leaves_founders_out = false;  ///< some founders have no line of their own
  int title_count = 0, footer_count = 0;
  int header_again_after = 0;  ///< lines from one header to the next; 0: one header only
  std::string line_end;
  Damage damage = Damage::none;
  int units_below = 0;      ///< below the header: 1 units, 2 kinds of fields, 3 numbers of the columns; 0: none
  bool has_states = false;  ///< codes of a status that may say who has gone
  bool has_twins = false;   ///< a line is an animal and, rarely, its twin
  bool has_changed_footers = false;  ///< counts alone, totals with dates, and headers again in capitals
  int young_a_line = 0;              ///< a line is a litter of so many at most; 0: it is an animal
  std::vector<std::string> shapes;   ///< what was drawn, each as "kind: which"
};

/// Draws everything.
ForeignForm draw_form(Dice& dice);

/// Changes some forms into rarer ones: of dates, and of parents. `dice` are others than those of the rest, so that all
/// other exports stay the same.
void draw_rare_forms(Dice& dice, ForeignForm& form);

/// Gives some forms a second number, beside the id of the animal and those of its parents, or of its parents alone.
/// Older animals have none. `dice` likewise.
void draw_chips(Dice& dice, ForeignForm& form);

/// Gives some forms a second line of headings. `dice` likewise.
void draw_units(Dice& dice, ForeignForm& form);

/// The rule that the option calls these parents' writing; "keep" for none.
std::string_view rule_of(ParentWriting parents);

/// The id of a parent, written so.
std::string written_parent(const std::string& id, ParentWriting parents);

/// The names of animals in that form's language and letters.
std::span<const std::string_view> names_of(const ForeignForm& form);

}  // namespace pedigreewatch::test
