// Draws how an export is written. Most draws are usual ones, so that the odd ones of one export can be told apart.

#include "support/foreign_form.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace pedigreewatch::test {
namespace {

constexpr auto usual_dates = std::to_array<DateForm>({
    {"dd-mm-yyyy", "%D-%M-%Y", "dd-mm-yyyy"},
    {"dd/mm/yyyy", "%D/%M/%Y", "dd/mm/yyyy"},
    {"yyyy-mm-dd", "%Y-%M-%D", "yyyy-mm-dd"},
    {"dd.mm.yyyy", "%D.%M.%Y", "dd-mm-yyyy"},
    {"mm/dd/yyyy", "%M/%D/%Y", "mm/dd/yyyy"},
    {"d-m-yyyy", "%d-%m-%Y", "dd-mm-yyyy"},
    {"yyyy/mm/dd", "%Y/%M/%D", "yyyy/mm/dd"},
    {"yyyymmdd", "%Y%M%D", "yyyymmdd"},
    {"yyyy-mm-ddThh:mm", "%Y-%M-%DT00:00:00", "yyyy-mm-dd"},
});

constexpr auto odd_dates = std::to_array<DateForm>({
    {"d mon yyyy", "%d %b %Y", "dd-mm-yyyy"},
    {"d-mon-yy", "%d-%b-%y", "dd-mm-yyyy"},
    {"d month yyyy", "%d %B %Y", "dd-mm-yyyy"},
    {"mon yyyy", "%b %Y", "dd-mm-yyyy"},
    {"dd-mm-yy", "%D-%M-%y", "dd-mm-yyyy"},
    {"dd.mm.yy", "%D.%M.%y", "dd-mm-yyyy"},
    {"ddmmyyyy", "%D%M%Y", "ddmmyyyy"},
    {"serial 1900", "%s", "serial-1900"},
    {"serial 1904", "%S", "serial-1904"},
    {"yyyy", "%Y", "yyyy"},
});

constexpr auto rare_dates = std::to_array<DateForm>({
    {"mm/dd/yy", "%M/%D/%y", "mm-dd-yyyy"},
    {"yy-mm-dd", "%y-%M-%D", "yyyy-mm-dd"},
    {"d.m.yy", "%d.%m.%y", "dd-mm-yyyy"},
    {"month d, yyyy", "%B %d, %Y", "dd-mm-yyyy"},
    {"d de month de yyyy", "%d de %B de %Y", "dd-mm-yyyy"},
    {"dmonyyyy", "%D%b%Y", "dd-mm-yyyy"},
    {"mon-yy", "%b-%y", "dd-mm-yyyy"},
    {"mm/yyyy", "%M/%Y", "dd-mm-yyyy"},
    {"serial 1900 with a time", "%s.75", "serial-1900"},
    {"yyyy-mm-dd hh:mm", "%Y-%M-%D 12:30", "yyyy-mm-dd"},
});

struct FileForm {
  std::string_view name, option, iconv_name, mark;
};

constexpr auto western_files = std::to_array<FileForm>({
    {"windows-1252", "windows-1252", "WINDOWS-1252", ""},
    {"utf-8", "utf-8", "UTF-8", ""},
    {"utf-8 with mark", "utf-8", "UTF-8", "\xEF\xBB\xBF"},
    {"utf-16", "utf-16", "UTF-16LE", "\xFF\xFE"},
    {"windows-1252", "windows-1252", "WINDOWS-1252", ""},
    {"utf-8", "utf-8", "UTF-8", ""},
    {"macroman", "macroman", "MACINTOSH", ""},
    {"cp850", "cp850", "CP850", ""},
    {"cp437", "cp437", "CP437", ""},
    {"iso-8859-15", "iso-8859-15", "ISO-8859-15", ""},
});

constexpr auto eastern_files = std::to_array<FileForm>({
    {"windows-1250", "windows-1250", "CP1250", ""},
    {"utf-8", "utf-8", "UTF-8", ""},
});

constexpr std::array<std::string_view, tongue_count> tongue_names = {"English", "Dutch",   "German",
                                                                     "French",  "Spanish", "Italian"};

void note(ForeignForm& form, std::string_view kind, std::string_view which) {
  form.shapes.push_back(std::string(kind) + ": " + std::string(which));
}

template <typename Entry, std::size_t size>
const Entry& draw(Dice& dice, const std::array<Entry, size>& entries) {
  return entries[static_cast<std::size_t>(dice.below(static_cast<int>(size)))];
}

void draw_texts(Dice& dice, ForeignForm& form) {
  form.tongue = static_cast<Tongue>(dice.below(static_cast<int>(tongue_count)));
  if (dice.one_in(3)) form.tongue = static_cast<Tongue>(dice.below(4));
  note(form, "language", tongue_names[static_cast<std::size_t>(form.tongue)]);
  const auto styles = sex_styles_of(form.tongue);
  form.sexes = styles[static_cast<std::size_t>(dice.below(static_cast<int>(styles.size())))];
  if (dice.one_in(3)) form.sexes = styles.front();
  note(form, "sexes", form.sexes.is_odd ? "letters or numbers that say nothing" : "letters or words of the language");
  if (!form.sexes.male[1].empty()) note(form, "sexes", "several words a sex");
  constexpr std::array<std::string_view, 6> usual_unknown = {"", "", "0", "NA", "-", "?"};
  form.unknown.emplace_back(draw(dice, usual_unknown));
  if (dice.one_in(6)) form.unknown[0] = dice.one_of(shared_unknown_words());
  if (dice.one_in(6)) form.unknown[0] = dice.one_of(unknown_words_of(form.tongue));
  if (dice.one_in(12)) form.unknown.emplace_back(dice.one_of(unknown_words_of(form.tongue)));
  for (const std::string& word : form.unknown) note(form, "unknown", word.empty() ? "empty" : "\"" + word + "\"");
}

void draw_dates(Dice& dice, ForeignForm& form) {
  form.dates = dice.one_in(4) ? draw(dice, odd_dates) : draw(dice, usual_dates);
  form.has_rough_dates = dice.one_in(15);
  note(form, "dates", form.dates.name);
  if (form.has_rough_dates) note(form, "dates", "some as \"~ 1972\"");
}

void draw_file(Dice& dice, ForeignForm& form) {
  const bool is_eastern = dice.one_in(12);
  const FileForm& file = is_eastern ? draw(dice, eastern_files) : draw(dice, western_files);
  form.encoding = file.option;
  form.iconv_name = file.iconv_name;
  form.mark = file.mark;
  note(form, "encoding", file.name);
  if (is_eastern) note(form, "language", "names of Poland, Bohemia, Hungary");
  constexpr std::string_view delimiters = ";;;,,\t|";
  form.delimiter = delimiters[static_cast<std::size_t>(dice.below(static_cast<int>(delimiters.size())))];
  note(form, "delimiter", form.delimiter == '\t' ? "tab" : std::string(1, form.delimiter));
  form.line_end = dice.one_in(3) ? "\n" : "\r\n";
  form.quotes_all = dice.one_in(6);
  form.has_header = !dice.one_in(25);
  if (!form.has_header) note(form, "header", "none");
}

void draw_extra_lines(Dice& dice, ForeignForm& form) {
  form.title_count = dice.one_in(15) && form.has_header ? 1 + dice.below(2) : 0;
  form.has_separator_line = dice.one_in(20) && (form.delimiter == ';' || form.delimiter == ',');
  form.has_blank_lines = dice.one_in(8);
  form.footer_count = dice.one_in(12) ? 1 + dice.below(2) : 0;
  form.header_again_after = dice.one_in(20) && form.has_header ? 50 : 0;
  form.leaves_founders_out = dice.one_in(6);
  if (form.title_count > 0) note(form, "lines", "titles above the header");
  if (form.has_separator_line) note(form, "lines", "sep= above the header");
  if (form.has_blank_lines) note(form, "lines", "blank ones between");
  if (form.footer_count > 0) note(form, "lines", "remarks below");
  if (form.header_again_after > 0) note(form, "lines", "headers in the middle");
  if (form.leaves_founders_out) note(form, "parents", "some without a line");
}

void draw_damage(Dice& dice, ForeignForm& form) {
  constexpr std::array<std::string_view, static_cast<std::size_t>(Damage::count)> names = {
      "", "shifted lines", "cut lines", "joined lines", "days and months exchanged in a block"};
  if (dice.one_in(8)) form.damage = static_cast<Damage>(1 + dice.below(static_cast<int>(Damage::count) - 1));
  if (form.damage == Damage::exchanged_dates && form.dates.pattern.find("%D/%M/") != 0) form.damage = Damage::none;
  if (form.damage != Damage::none) note(form, "damage", names[static_cast<std::size_t>(form.damage)]);
}

void draw_ids(Dice& dice, ForeignForm& form) {
  form.ids = static_cast<IdStyle>(dice.below(static_cast<int>(IdStyle::count)));
  // What only a spreadsheet makes of them is rarer.
  if (form.ids >= IdStyle::formula && !dice.one_in(3)) form.ids = static_cast<IdStyle>(dice.below(5));
  note(form, "ids", name_of(form.ids));
}

void add(Dice& dice, ForeignForm& form, ColumnContent content, Heading heading) {
  form.columns.push_back({content, std::string(dice.one_of(headings_of(heading, form.tongue)))});
}

/// The columns of the pedigree, with the traps that the names of parents are.
void draw_pedigree_columns(Dice& dice, ForeignForm& form) {
  constexpr std::array<std::string_view, 6> names = {"plain headings",
                                                     "headings that tell id from name",
                                                     "unknown headings of ids beside plain ones of names",
                                                     "unknown headings, no names",
                                                     "a running number beside the tags of animal and parents",
                                                     "plain headings of ids beside the names"};
  const int drawn = dice.below(2 * static_cast<int>(names.size()));
  const int kind = drawn < static_cast<int>(names.size()) ? drawn : drawn % 2;  // half of them are no trap

  note(form, "columns", names[static_cast<std::size_t>(kind)]);
  const bool has_odd_ids = kind == 2 || kind == 3;
  const bool has_parent_names = kind == 1 || kind == 2 || kind == 5;
  if (kind == 4) add(dice, form, ColumnContent::row_number, Heading::row);
  add(dice, form, ColumnContent::id, kind == 4 || (has_odd_ids && dice.one_in(2)) ? Heading::odd_id : Heading::id);
  add(dice, form, ColumnContent::name, Heading::name);
  const Heading sire_id = has_odd_ids ? Heading::odd_sire_id : kind == 1 ? Heading::sire_id : Heading::sire;
  const Heading dam_id = has_odd_ids ? Heading::odd_dam_id : kind == 1 ? Heading::dam_id : Heading::dam;
  add(dice, form, ColumnContent::sire, sire_id);
  if (has_parent_names) {
    add(dice, form, ColumnContent::sire_name, kind == 2 ? Heading::sire : Heading::sire_name);
  }
  add(dice, form, ColumnContent::dam, dam_id);
  if (has_parent_names) {
    add(dice, form, ColumnContent::dam_name, kind == 2 ? Heading::dam : Heading::dam_name);
  }
  add(dice, form, ColumnContent::sex, Heading::sex);
  const bool has_odd_birth = dice.one_in(4);
  add(dice, form, ColumnContent::birth, has_odd_birth ? Heading::odd_birth : Heading::birth);
  if (has_odd_birth) note(form, "columns", "unknown heading of the date of birth");
}

void draw_further_columns(Dice& dice, ForeignForm& form) {
  constexpr auto further =
      std::to_array<std::pair<ColumnContent, Heading>>({{ColumnContent::colour, Heading::colour},
                                                        {ColumnContent::breeder, Heading::breeder},
                                                        {ColumnContent::herd, Heading::herd},
                                                        {ColumnContent::owner, Heading::owner},
                                                        {ColumnContent::weight, Heading::weight},
                                                        {ColumnContent::death, Heading::death},
                                                        {ColumnContent::registered, Heading::registered},
                                                        {ColumnContent::status, Heading::status},
                                                        {ColumnContent::notes, Heading::notes},
                                                        {ColumnContent::grandsire, Heading::grandsire}});
  const int share = dice.below(4);
  for (const auto& [content, heading] : further) {
    if (dice.below(4) < share) add(dice, form, content, heading);
  }
  const int filler_count = dice.one_in(6) ? dice.below(61 - static_cast<int>(form.columns.size())) : 0;
  for (int i = 1; i <= filler_count; ++i) {
    form.columns.push_back({ColumnContent::filler, "Index " + std::to_string(i)});
  }
  if (!dice.one_in(3)) return;
  note(form, "columns", "in any order");
  for (std::size_t i = form.columns.size() - 1; i > 0; --i) {
    std::swap(form.columns[i], form.columns[static_cast<std::size_t>(dice.below(static_cast<int>(i) + 1))]);
  }
}

}  // namespace

ForeignForm draw_form(Dice& dice) {
  ForeignForm form;
  draw_texts(dice, form);
  draw_ids(dice, form);
  draw_dates(dice, form);
  draw_file(dice, form);
  draw_extra_lines(dice, form);
  draw_damage(dice, form);
  draw_pedigree_columns(dice, form);
  draw_further_columns(dice, form);
  return form;
}

void draw_rare_forms(Dice& dice, ForeignForm& form) {
  if (dice.one_in(12) && form.damage == Damage::none) {
    form.dates = draw(dice, rare_dates);
    std::erase_if(form.shapes,
                  [](const std::string& shape) { return shape.starts_with("dates: ") && shape[7] != 's'; });
    note(form, "dates", form.dates.name);
  }
  if (!dice.one_in(15)) return;
  const bool has_signs = form.ids == IdStyle::hyphens || form.ids == IdStyle::blanks || form.ids == IdStyle::slashes;
  if (form.ids == IdStyle::leading_zeros) form.parents = ParentWriting::without_zeros;
  if (form.ids == IdStyle::prefix)
    form.parents = dice.one_in(2) ? ParentWriting::without_prefix : ParentWriting::in_small_letters;
  if (has_signs) form.parents = ParentWriting::without_signs;
  if (form.parents == ParentWriting::as_ids) return;
  form.leaves_founders_out = false;  // nobody could tell how those that have no line are written
  std::erase(form.shapes, "parents: some without a line");
  note(form, "parents", "written otherwise: " + std::string(rule_of(form.parents)));
}

void draw_chips(Dice& dice, ForeignForm& form) {
  const bool is_usual = form.has_header && form.young_a_line == 0 && !form.has_twins;
  if (!dice.one_in(6) || !is_usual) return;
  const bool have_animals = dice.one_in(2), stand_before = dice.one_in(2);
  note(form, "columns", have_animals ? "a chip of animals and parents" : "a chip of parents alone");
  const auto add = [&](ColumnContent beside, ColumnContent chip, Heading heading) {
    const auto found = std::find_if(form.columns.begin(), form.columns.end(),
                                    [&](const ForeignColumn& column) { return column.content == beside; });
    if (found == form.columns.end()) return;
    form.columns.insert(stand_before ? found : found + 1,
                        {chip, std::string(dice.one_of(headings_of(heading, form.tongue))), 0});
  };
  if (have_animals) add(ColumnContent::id, ColumnContent::chip, Heading::chip);
  add(ColumnContent::sire, ColumnContent::sire_chip, Heading::sire_chip);
  add(ColumnContent::dam, ColumnContent::dam_chip, Heading::dam_chip);
}

void draw_units(Dice& dice, ForeignForm& form) {
  static constexpr auto names = std::to_array<std::string_view>({"units", "kinds of fields", "numbers of the columns"});
  const int which = dice.below(static_cast<int>(names.size()));
  if (!dice.one_in(8) || !form.has_header) return;
  form.units_below = which + 1;
  note(form, "lines", std::string(names[static_cast<std::size_t>(which)]) + " below the header");
}

std::string_view rule_of(ParentWriting parents) {
  switch (parents) {
    case ParentWriting::as_ids: return "keep";
    case ParentWriting::without_signs: return "separators";
    case ParentWriting::in_small_letters: return "capitals";
    case ParentWriting::without_zeros: return "zeros";
    case ParentWriting::without_prefix: return "prefix";
  }
  return "keep";
}

std::string written_parent(const std::string& id, ParentWriting parents) {
  std::string text;
  switch (parents) {
    case ParentWriting::as_ids: return id;
    case ParentWriting::without_signs:
      std::copy_if(id.begin(), id.end(), std::back_inserter(text),
                   [](char byte) { return byte != '-' && byte != ' ' && byte != '/'; });
      return text;
    case ParentWriting::in_small_letters:
      for (const char byte : id) text += byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
      return text;
    case ParentWriting::without_zeros: return id.substr(id.find_first_not_of('0'));
    case ParentWriting::without_prefix: return id.substr(id.find_first_of("0123456789"));
  }
  return id;
}

std::span<const std::string_view> names_of(const ForeignForm& form) {
  const std::string eastern = "language: names of Poland, Bohemia, Hungary";
  const bool is_eastern = std::find(form.shapes.begin(), form.shapes.end(), eastern) != form.shapes.end();
  return is_eastern ? eastern_names() : names_of(form.tongue);
}

}  // namespace pedigreewatch::test
