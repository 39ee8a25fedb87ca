// Lays a drawn population out in a drawn form, line by line, and notes what each line means.

#include "support/foreign_export.h"

#include <iconv.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <set>
#include <utility>

#include "support/foreign_form.h"
#include "support/foreign_litters.h"
#include "support/foreign_population.h"

namespace pedigreewatch::test {
namespace {

/// One export while it is written.
struct Office {
  Dice dice;
  ForeignForm form;
  std::vector<ForeignAnimal> animals;
  std::map<std::string, std::string> names, sires;  ///< of each id
  std::set<std::string> males, females, unknowns;   ///< texts that occur
  std::string text;                                 ///< so far, in UTF-8
  int line = 0;                                     ///< the last one written
};

/// UTF-8 in that encoding of the system; empty where it lacks a letter.
std::string converted(const std::string& utf_8, const std::string& iconv_name) {
  iconv_t converter = iconv_open(iconv_name.c_str(), "UTF-8");
  std::string input = utf_8, bytes(4 * utf_8.size() + 16, '\0');
  char *from = input.data(), *to = bytes.data();
  std::size_t left = input.size(), room = bytes.size();
  const bool has_failed = iconv(converter, &from, &left, &to, &room) == static_cast<std::size_t>(-1);
  iconv_close(converter);
  if (has_failed) return {};
  bytes.resize(bytes.size() - room);
  return bytes;
}

std::string digits(int value, std::size_t width) {
  std::string text = std::to_string(value);
  return std::string(width - std::min(width, text.size()), '0') + text;
}

int days_between(const ForeignAnimal& animal, int year, unsigned month, unsigned day) {
  using namespace std::chrono;
  const sys_days birth = std::chrono::year{animal.year} / static_cast<int>(animal.month) / animal.day;
  const sys_days start = std::chrono::year{year} / static_cast<int>(month) / static_cast<int>(day);
  return static_cast<int>((birth - start).count());
}

std::string date_piece(const ForeignAnimal& animal, char piece, Tongue tongue) {
  const auto month = static_cast<std::size_t>(animal.month - 1);
  switch (piece) {
    case 'd': return std::to_string(animal.day);
    case 'D': return digits(animal.day, 2);
    case 'm': return std::to_string(animal.month);
    case 'M': return digits(animal.month, 2);
    case 'Y': return std::to_string(animal.year);
    case 'y': return digits(animal.year % 100, 2);
    case 'b': return std::string(months_of(tongue, false)[month]);
    case 'B': return std::string(months_of(tongue, true)[month]);
    case 's': return std::to_string(days_between(animal, 1899, 12, 30));
    default: return std::to_string(days_between(animal, 1904, 1, 1));
  }
}

std::string written_date(const ForeignAnimal& animal, std::string_view pattern, Tongue tongue) {
  std::string text;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == '%') {
      text += date_piece(animal, pattern[++i], tongue);
    } else {
      text.push_back(pattern[i]);
    }
  }
  return text;
}

/// The date of birth as the export has it; the animal keeps what can be known of it.
std::string birth_text(Office& office, ForeignAnimal& animal) {
  if (office.form.has_rough_dates && office.dice.one_in(25)) {
    animal.month = animal.day = 0;
    const std::string year = std::to_string(animal.year);
    const std::array<std::string, 3> forms = {"~ " + year, "circa " + year, year + "?"};
    return forms[static_cast<std::size_t>(office.dice.below(3))];
  }
  const std::string_view pattern = office.form.dates.pattern;
  std::string text = written_date(animal, pattern, office.form.tongue);
  const bool has_no_day = pattern.find_first_of("dDsS") == std::string_view::npos;
  if (has_no_day) animal.day = 0;
  if (pattern == "%Y") animal.month = 0;
  return text;
}

std::string sex_text(Office& office, const ForeignAnimal& animal) {
  const SexStyle& style = office.form.sexes;
  const auto& words = animal.is_male ? style.male : style.female;
  const bool is_parent = std::any_of(office.animals.begin(), office.animals.end(), [&](const ForeignAnimal& other) {
    return other.sire == animal.id || other.dam == animal.id;
  });
  std::size_t place = 0;
  // Castrated males and young animals are the parents of none.
  if (!is_parent && office.dice.one_in(3)) place = static_cast<std::size_t>(office.dice.below(3));
  if (words[place].empty()) place = 0;
  (animal.is_male ? office.males : office.females).emplace(words[place]);
  return std::string(words[place]);
}

std::string parent_text(Office& office, const std::string& id, bool is_sire) {
  if (!id.empty()) return written_parent(written_id(id, office.form.ids), office.form.parents);
  const std::string& word = office.form.unknown[is_sire || office.form.unknown.size() == 1 ? 0 : 1];
  if (!word.empty()) office.unknowns.insert(word);
  if (word.empty() && office.form.ids == IdStyle::formula) return "=\"\"";
  return word;
}

std::string drawn_date(Office& office, const ForeignAnimal& animal, int years) {
  ForeignAnimal later = animal;
  later.year += years;
  later.month = 1 + office.dice.below(12);
  later.day = 1 + office.dice.below(28);
  return written_date(later, office.form.dates.pattern, office.form.tongue);
}

std::string further_text(Office& office, const ForeignAnimal& animal, ColumnContent content) {
  const auto one_of = [&](std::initializer_list<const char*> words) {
    return std::string(words.begin()[office.dice.below(static_cast<int>(words.size()))]);
  };
  const auto names = names_of(office.form);
  switch (content) {
    case ColumnContent::colour: return one_of({"black", "white", "grey", ""});
    case ColumnContent::breeder:
    case ColumnContent::owner: return std::string(office.dice.one_of(names)) + ", " + one_of({"Hill", "Dale", "Moor"});
    case ColumnContent::herd: return one_of({"North", "South", "West"});
    case ColumnContent::weight: return std::to_string(40 + office.dice.below(30)) + "," + one_of({"5", "0", "25"});
    case ColumnContent::death: return office.dice.one_in(3) ? drawn_date(office, animal, 8) : "";
    case ColumnContent::registered: return drawn_date(office, animal, 1);
    case ColumnContent::status: return office.form.has_states ? one_of({"A", "D", "V"}) : one_of({"A", "B", "C"});
    case ColumnContent::notes: return one_of({"", "", "seen", "to be weighed; later", "\"champion\" 2010"});
    case ColumnContent::grandsire: {
      const auto found = office.sires.find(animal.sire);
      return found == office.sires.end() || found->second.empty() ? "" : written_id(found->second, office.form.ids);
    }
    default: return std::to_string(office.dice.below(200));
  }
}

/// The chip of an animal: no id of any export. Some animals have none.
std::string chip_of(const Office& office, const std::string& id) {
  const auto found = office.names.find(id);
  if (found == office.names.end()) return {};
  const auto place = static_cast<int>(std::distance(office.names.begin(), found));
  constexpr int one_without = 9;
  return place % one_without == 0 ? "" : "9810981" + digits(place * 3571 + 104729, 8);
}

std::string cell_text(Office& office, ForeignAnimal& animal, ColumnContent content) {
  const auto name_of_parent = [&](const std::string& id) { return id.empty() ? std::string() : office.names.at(id); };
  switch (content) {
    case ColumnContent::row_number: return std::to_string(4000 + office.line);
    case ColumnContent::id: return written_id(animal.id, office.form.ids);
    case ColumnContent::name: return animal.name;
    case ColumnContent::sire: return parent_text(office, animal.sire, true);
    case ColumnContent::dam: return parent_text(office, animal.dam, false);
    case ColumnContent::chip: return chip_of(office, animal.id);
    case ColumnContent::sire_chip: return chip_of(office, animal.sire);
    case ColumnContent::dam_chip: return chip_of(office, animal.dam);
    case ColumnContent::sire_name: return name_of_parent(animal.sire);
    case ColumnContent::dam_name: return name_of_parent(animal.dam);
    case ColumnContent::sex: return animal.has_sex ? sex_text(office, animal) : "";
    case ColumnContent::birth: return birth_text(office, animal);
    default: return further_text(office, animal, content);
  }
}

std::string written_field(const Office& office, const std::string& field) {
  const bool is_formula = field.starts_with("=\"");
  const bool needs_quotes =
      !is_formula && field.find_first_of(std::string("\"\r\n") + office.form.delimiter) != std::string::npos;
  if (!needs_quotes && !office.form.quotes_all) return field;
  std::string result = "\"";
  for (const char byte : field) result += byte == '"' ? "\"\"" : std::string(1, byte);
  return result + "\"";
}

void write_line(Office& office, const std::vector<std::string>& cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) office.text.push_back(office.form.delimiter);
    office.text += written_field(office, cells[i]);
  }
  office.text += office.form.line_end;
  ++office.line;
}

void write_plain_line(Office& office, const std::string& text) {
  office.text += text + office.form.line_end;
  ++office.line;
}

void write_header(Office& office) {
  std::vector<std::string> cells;
  for (const ForeignColumn& column : office.form.columns) cells.push_back(column.heading);
  write_line(office, cells);
}

std::string unit_of(ColumnContent content) {
  switch (content) {
    case ColumnContent::birth:
    case ColumnContent::death:
    case ColumnContent::registered: return "(dd.mm.yyyy)";
    case ColumnContent::sex: return "(M/F)";
    case ColumnContent::weight: return "(kg)";
    case ColumnContent::notes:
    case ColumnContent::filler: return "";
    default: return "(no.)";
  }
}

std::string kind_of_field(ColumnContent content) {
  const bool is_date =
      content == ColumnContent::birth || content == ColumnContent::death || content == ColumnContent::registered;
  return is_date ? "date" : content == ColumnContent::weight ? "number" : "text";
}

/// Units, kinds of fields or numbers of the columns.
void write_units(Office& office, ExportTruth& truth) {
  std::vector<std::string> cells;
  for (const ForeignColumn& column : office.form.columns) {
    const std::string number = std::to_string(cells.size() + 1);
    const int which = office.form.units_below;
    cells.push_back(which == 1 ? unit_of(column.content) : which == 2 ? kind_of_field(column.content) : number);
  }
  write_line(office, cells);
  truth.header_lines.push_back(office.line);
}

void write_above(Office& office) {
  if (office.form.has_separator_line) write_plain_line(office, std::string("sep=") + office.form.delimiter);
  for (int i = 0; i < office.form.title_count; ++i) {
    write_plain_line(office, std::string(titles_of(office.form.tongue)[static_cast<std::size_t>(i)]));
  }
  if (office.form.title_count > 0 && office.dice.one_in(2)) write_plain_line(office, "");
  if (office.form.has_header) write_header(office);
}

/// A line with a count in the column of the sex and a date in that of the birth, or with a count alone.
void write_changed_footer(Office& office, bool is_total, ExportTruth& truth) {
  std::vector<std::string> cells;
  const std::string count = std::to_string(truth.animals.size());
  for (const ForeignColumn& column : office.form.columns) {
    const bool is_id = column.content == ColumnContent::id && column.young < 2;
    if (is_id) {
      cells.push_back(is_total ? "Total" : count);
    } else if (is_total && column.young < 2 && column.content == ColumnContent::sex) {
      cells.push_back(count);
    } else if (is_total && column.content == ColumnContent::birth) {
      cells.emplace_back("22-11-2026");
    } else {
      cells.emplace_back();
    }
  }
  write_line(office, cells);
  truth.remark_lines.push_back(office.line);
}

void write_below(Office& office, ExportTruth& truth) {
  if (office.form.has_changed_footers && office.form.young_a_line == 0) {
    return write_changed_footer(office, office.animals.size() % 2 == 0, truth);
  }
  const auto footers = footers_of(office.form.tongue);
  for (int i = 0; i < office.form.footer_count; ++i) {
    std::string text(footers[(static_cast<std::size_t>(i) + office.animals.size()) % footers.size()]);
    const std::size_t sign = text.find('#');
    if (sign != std::string::npos) text.replace(sign, 1, std::to_string(truth.animals.size()));
    write_plain_line(office, text);
    truth.remark_lines.push_back(office.line);
  }
}

/// Every fiftieth line or so suffers.
bool is_damaged(Office& office, Damage damage) {
  return office.form.damage == damage && office.dice.one_in(40);
}

void write_animal(Office& office, ForeignAnimal animal, ExportTruth& truth) {
  std::vector<std::string> cells;
  const bool is_exchanged = office.form.damage == Damage::exchanged_dates && office.line > 60 && office.line < 90;
  for (const ForeignColumn& column : office.form.columns) cells.push_back(cell_text(office, animal, column.content));
  if (is_exchanged && animal.day > 0) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (office.form.columns[i].content == ColumnContent::birth) {
        cells[i] = written_date(animal, "%M/%D/%Y", office.form.tongue);
      }
    }
  }
  if (is_damaged(office, Damage::shifted_lines)) {
    cells.insert(cells.begin() + 1 + office.dice.below(static_cast<int>(cells.size()) - 1), "x");
    animal.is_spoilt = true;
  } else if (is_damaged(office, Damage::cut_lines)) {
    cells.resize(1 + static_cast<std::size_t>(office.dice.below(static_cast<int>(cells.size()) - 1)));
    animal.is_spoilt = true;
  }
  const bool joins_last = is_damaged(office, Damage::joined_lines) && !truth.animals.empty();
  if (joins_last) {
    office.text.resize(office.text.size() - office.form.line_end.size());
    --office.line;
    truth.animals.back().is_spoilt = true;
  }
  write_line(office, cells);
  animal.line = office.line;
  animal.is_spoilt = animal.is_spoilt || is_exchanged;
  if (joins_last) {
    truth.lost_ids.push_back(animal.id);
  } else {
    truth.animals.push_back(animal);
  }
}

void write_animals(Office& office, ExportTruth& truth) {
  const std::size_t founder_count = office.animals.size() / 4;
  int written = 0;
  for (std::size_t i = 0; i < office.animals.size(); ++i) {
    if (office.form.leaves_founders_out && i < founder_count && office.dice.one_in(4)) continue;
    if (office.form.header_again_after > 0 && written > 0 && written % office.form.header_again_after == 0) {
      write_header(office);
      truth.header_lines.push_back(office.line);
    }
    if (office.form.has_blank_lines && office.dice.one_in(30)) write_plain_line(office, "");
    write_animal(office, office.animals[i], truth);
    ++written;
  }
}

/// A line of a book of litters: what all young share once, and each with its own columns.
void write_litter(Office& office, std::span<ForeignAnimal> litter, ExportTruth& truth) {
  std::vector<std::string> cells;
  for (const ForeignColumn& column : office.form.columns) {
    const auto young = static_cast<std::size_t>(std::max(column.young - 1, 0));
    cells.push_back(young < litter.size() ? cell_text(office, litter[young], column.content) : "");
  }
  write_line(office, cells);
  for (ForeignAnimal& animal : litter) {
    animal.month = litter.front().month;
    animal.day = litter.front().day;
    animal.line = office.line;
    const bool is_twin = office.form.has_twins && &animal != &litter.front();
    const bool has_sex = std::any_of(office.form.columns.begin(), office.form.columns.end(), [](const auto& column) {
      return column.young == 2 && column.content == ColumnContent::sex;
    });
    if (is_twin) animal.name.clear();
    if (is_twin && !has_sex) animal.has_sex = false;
    truth.animals.push_back(animal);
  }
}

void write_litters(Office& office, std::span<const std::size_t> firsts, ExportTruth& truth) {
  for (std::size_t i = 0; i < firsts.size(); ++i) {
    const std::size_t end = i + 1 < firsts.size() ? firsts[i + 1] : office.animals.size();
    if (office.form.has_blank_lines && office.dice.one_in(30)) write_plain_line(office, "");
    // Later animals look their parents' sexes up in `office.animals`: what is written is a copy.
    std::vector<ForeignAnimal> litter(office.animals.begin() + static_cast<std::ptrdiff_t>(firsts[i]),
                                      office.animals.begin() + static_cast<std::ptrdiff_t>(end));
    write_litter(office, litter, truth);
  }
}

std::string columns_of_young(const ForeignForm& form) {
  std::string numbers;
  for (std::size_t i = 0; i < form.columns.size(); ++i) {
    if (form.columns[i].content != ColumnContent::id || form.columns[i].young == 0) continue;
    numbers += (numbers.empty() ? "" : ",") + std::to_string(i + 1);
  }
  return numbers.empty() ? "none" : numbers;
}

int column_of(const ForeignForm& form, ColumnContent content) {
  const auto found = std::find_if(form.columns.begin(), form.columns.end(),
                                  [&](const ForeignColumn& column) { return column.content == content; });
  return found == form.columns.end() ? 0 : static_cast<int>(found - form.columns.begin()) + 1;
}

void note_answers(const Office& office, ExportTruth& truth) {
  const ForeignForm& form = office.form;
  constexpr std::array<ColumnContent, asked_field_count - 1> contents = {
      ColumnContent::id,   ColumnContent::sire,   ColumnContent::dam,     ColumnContent::sex, ColumnContent::birth,
      ColumnContent::name, ColumnContent::colour, ColumnContent::breeder, ColumnContent::herd};
  for (std::size_t i = 0; i < contents.size(); ++i) truth.columns[i] = column_of(form, contents[i]);
  truth.male.assign(office.males.begin(), office.males.end());
  truth.female.assign(office.females.begin(), office.females.end());
  truth.unknown.assign(office.unknowns.begin(), office.unknowns.end());
  truth.delimiter = form.delimiter == '\t' ? "tab" : std::string(1, form.delimiter);
  truth.encoding = form.encoding;
  truth.has_header = form.has_header;
  truth.species = form.sexes.species;
  truth.dates = form.dates.option;
  truth.century = "1920";
  truth.young = columns_of_young(form);
  if (form.ids != IdStyle::destroyed_tags) truth.ids = rule_of(form.parents);
}

/// The bytes of the export. A letter that the encoding lacks makes it UTF-8, as an office would find out too.
void encode_export(Office& office, ForeignExport& result) {
  std::string bytes = converted(office.text, office.form.iconv_name);
  if (bytes.empty()) {
    office.form.encoding = "utf-8";
    office.form.mark.clear();
    std::replace_if(
        office.form.shapes.begin(), office.form.shapes.end(),
        [](const std::string& shape) { return shape.starts_with("encoding: "); }, "encoding: utf-8");
    bytes = office.text;
  }
  result.bytes = office.form.mark + bytes;
}

}  // namespace

ForeignExport make_foreign_export(std::uint32_t seed) {
  Office office;
  office.dice.random.seed(seed);
  office.form = draw_form(office.dice);
  constexpr std::uint32_t other_draws = 0x9E3779B9U;
  Dice rare;
  rare.random.seed(seed ^ other_draws);
  draw_rare_forms(rare, office.form);
  constexpr std::uint32_t draws_of_litters = 0x51ED270BU;
  Dice litters;
  litters.random.seed(seed ^ draws_of_litters);
  draw_litters(litters, office.form);
  constexpr std::uint32_t draws_of_twins = 0x7F4A7C15U;
  Dice twins;
  twins.random.seed(seed ^ draws_of_twins);
  draw_twins(twins, office.form);
  office.form.has_changed_footers = office.form.footer_count > 0 && twins.one_in(2);
  office.form.has_states = twins.one_in(4);
  if (office.form.has_states && column_of(office.form, ColumnContent::status) > 0) {
    office.form.shapes.push_back("columns: codes of a status");
  }
  if (office.form.has_changed_footers) office.form.shapes.push_back("lines: counts and totals of other forms below");
  constexpr std::uint32_t draws_of_chips = 0x2545F491U;
  Dice chips;
  chips.random.seed(seed ^ draws_of_chips);
  draw_chips(chips, office.form);
  draw_units(chips, office.form);
  const int animal_count = 120 + office.dice.below(80);
  office.animals = make_foreign_population(office.dice, animal_count, office.form.ids, names_of(office.form));
  std::vector<std::size_t> firsts;
  if (office.form.young_a_line > 0) firsts = join_litters(litters, office.form.young_a_line, office.animals);
  if (office.form.has_twins) firsts = join_twins(twins, office.animals);
  const bool lacks_sexes = office.dice.one_in(8);
  for (ForeignAnimal& animal : office.animals) {
    animal.has_sex = !lacks_sexes || !office.dice.one_in(60);
    office.names[animal.id] = animal.name;
    office.sires[animal.id] = animal.sire;
  }
  ForeignExport result;
  write_above(office);
  if (office.form.units_below > 0) write_units(office, result.truth);
  if (firsts.empty()) {
    write_animals(office, result.truth);
  } else {
    write_litters(office, firsts, result.truth);
  }
  write_below(office, result.truth);
  encode_export(office, result);
  note_answers(office, result.truth);
  result.shapes = office.form.shapes;
  result.is_spoilt = office.form.damage != Damage::none || office.form.ids == IdStyle::destroyed_tags;
  return result;
}

}  // namespace pedigreewatch::test
