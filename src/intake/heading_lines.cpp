// Looks at the first lines below the header, the lowest of them first, and compares each with those below it.

#include "intake/heading_lines.h"

#include <algorithm>
#include <set>
#include <unordered_set>

#include "intake/animal_lines.h"
#include "intake/date_shapes.h"
#include "intake/value_words.h"
#include "sheets/sheet_table.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

enum Place : std::size_t { id_place, sire_place, dam_place, sex_place, date_place };

constexpr std::size_t fewest_numbered_columns = 5;

/// What so many say of sexes and dates is enough; relatives are looked for in all.
constexpr int most_animals_compared = 500;

HeadingTexts texts_of(const ExportRecord& record, const ColumnChoice& columns) {
  HeadingTexts texts;
  for (std::size_t k = 0; k < texts.size(); ++k) texts[k] = trimmed(field_of(record, columns, pedigree_fields[k]));
  return texts;
}

/// A record of the first lines.
struct TopAnimal {
  std::int64_t line = 0;
  HeadingTexts texts;
  bool has_name = false, numbers_columns = false;
};

/// What the records below say.
struct TextsBelow {
  std::int64_t with_date = 0, dates = 0, with_sex = 0;
  std::set<std::string, std::less<>> sexes;
  std::unordered_set<std::string> animals, parents;
};

bool is_date(std::string_view text) {
  const DateShape shape = cut_date(text).shape;
  return shape != DateShape::empty && shape != DateShape::unreadable;
}

void add_animal(TextsBelow& below, const HeadingTexts& texts) {
  const std::string& date = texts[date_place];
  below.with_date += means_unknown(date) ? 0 : 1;
  below.dates += is_date(date) ? 1 : 0;
  if (!texts[sex_place].empty()) below.sexes.insert(texts[sex_place]);
  below.with_sex += texts[sex_place].empty() ? 0 : 1;
  below.animals.insert(texts[id_place]);
  below.parents.insert(texts[sire_place]);
  below.parents.insert(texts[dam_place]);
}

bool is_known_text(std::string_view text) {
  return !means_unknown(text) && !means_unknown_parent(text);
}

/// No date, where those below have dates.
bool has_other_date(const TextsBelow& below, std::string_view text) {
  constexpr std::int64_t fewest_dates = 3;
  const bool are_dates = below.dates >= fewest_dates && below.dates * 10 >= below.with_date * 9;
  return are_dates && is_known_text(text) && !is_date(text);
}

/// No sex, where those below have a few words for it.
bool has_other_sex(const TextsBelow& below, std::string_view text) {
  constexpr std::int64_t fewest_sexes = 3;
  constexpr std::size_t most_words = 8;
  const bool are_sexes = below.with_sex >= fewest_sexes && below.sexes.size() <= most_words;
  return are_sexes && is_known_text(text) && !below.sexes.contains(text);
}

/// Whether the texts are those of an animal: its date, its sex, its place in the pedigree.
bool looks_like_animal(const TextsBelow& below, const HeadingTexts& texts) {
  if (is_date(texts[date_place]) || below.sexes.contains(texts[sex_place])) return true;
  if (!is_sex_letter(texts[sex_place]) && sex_named(texts[sex_place]) != SexMeaning::unknown) return true;
  if (is_known_text(texts[id_place]) && below.parents.contains(texts[id_place])) return true;
  return std::any_of(texts.begin() + sire_place, texts.begin() + sex_place, [&](const std::string& parent) {
    return is_known_text(parent) && (below.animals.contains(parent) || below.parents.contains(parent));
  });
}

bool has_number(const HeadingTexts& texts) {
  return std::any_of(texts.begin(), texts.end(), has_digit);
}

bool is_heading(const TextsBelow& below, const TopAnimal& line, const TextStyle& ids) {
  const HeadingTexts& texts = line.texts;
  if (line.numbers_columns) return true;
  if (looks_like_animal(below, texts)) return false;
  const std::string &id = texts[id_place], &sire = texts[sire_place], &dam = texts[dam_place];
  const bool has_no_date = has_other_date(below, texts[date_place]);
  const bool has_no_sex = has_other_sex(below, texts[sex_place]);
  if (!has_no_date && !has_no_sex) return false;
  if (!id.empty() && id == sire && id == dam) return true;
  // An animal of a strange office may have an odd id and an odd date; one digit at least it has.
  if (has_number(texts)) return false;
  if (id.empty() && sire.empty() && dam.empty() && !line.has_name) return true;
  const bool is_odd_id = is_unlike(ids, id) || !says_something(id);
  const bool has_parents = is_known_text(sire) && is_known_text(dam);
  const bool is_neither = has_no_date && has_no_sex && texts[sex_place] != texts[date_place];
  if (is_odd_id) return has_parents || is_neither;
  return is_neither && has_parents && sire != dam && !(ids.is_known && ids.needs_digit);
}

/// The records of the first lines, and what is said below them.
std::vector<TopAnimal> read_top_animals(std::string_view text, char delimiter, const ColumnChoice& columns,
                                        TextsBelow& below) {
  std::vector<TopAnimal> top;
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  std::size_t lines = 0;
  for (int i = 0; i < most_animals_compared && next_animal(reader, record, columns); ++i) {
    lines += record.is_further ? 0 : 1;
    const HeadingTexts texts = texts_of(record, columns);
    if (lines > most_heading_lines) {
      const bool comes_again =
          std::any_of(top.begin(), top.end(), [&](const TopAnimal& animal) { return animal.texts == texts; });
      if (!comes_again) add_animal(below, texts);
      continue;
    }
    std::vector<std::string> fields;
    for (const std::string_view field : record.fields) fields.emplace_back(trimmed(field));
    const bool has_name = says_something(trimmed(field_of(record, columns, name_column)));
    top.push_back({record.line, texts, has_name, number_columns(fields)});
  }
  return top;
}

/// Whether one of the lines names an animal that is father or mother somewhere in the export, or parents that have a
/// line: it is an animal itself then.
bool have_relatives(std::string_view text, char delimiter, const ColumnChoice& columns,
                    const std::vector<HeadingTexts>& lines) {
  std::unordered_set<std::string_view> ids, parents;
  for (const HeadingTexts& line : lines) {
    if (is_known_text(line[id_place])) ids.insert(line[id_place]);
    if (is_known_text(line[sire_place])) parents.insert(line[sire_place]);
    if (is_known_text(line[dam_place])) parents.insert(line[dam_place]);
  }
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  const auto is_among_them = [&](const std::unordered_set<std::string_view>& texts, FieldCode code) {
    return texts.contains(trimmed(field_of(record, columns, code)));
  };
  while (next_animal(reader, record, columns)) {
    const bool is_relative =
        is_among_them(ids, sire_column) || is_among_them(ids, dam_column) || is_among_them(parents, id_column);
    if (!is_relative) continue;
    const HeadingTexts texts = texts_of(record, columns);
    if (std::find(lines.begin(), lines.end(), texts) == lines.end()) return true;
  }
  return false;
}

}  // namespace

std::vector<HeadingTexts> find_heading_lines(std::string_view text, char delimiter, const ColumnChoice& columns) {
  const bool has_id = columns.place[id_column].has_value();
  if (!columns.has_header || !has_id) return {};
  TextsBelow below;
  std::vector<TopAnimal> top = read_top_animals(text, delimiter, columns, below);
  // The animals of a line stand behind each other, and the first one decides.
  std::vector<HeadingTexts> headings, numbers;
  for (std::size_t end = top.size(); end > 0;) {
    std::size_t first = end - 1;
    while (first > 0 && top[first - 1].line == top[first].line) --first;
    const bool is_one = is_heading(below, top[first], columns.id_style);
    // Below an animal nothing is a heading any more.
    if (!is_one) {
      headings.clear();
      numbers.clear();
    }
    for (std::size_t k = first; k < end; ++k) {
      if (!is_one) add_animal(below, top[k].texts);
      if (is_one) (top[first].numbers_columns ? numbers : headings).push_back(top[k].texts);
    }
    end = first;
  }
  if (!headings.empty() && have_relatives(text, delimiter, columns, headings)) headings.clear();
  headings.insert(headings.end(), numbers.begin(), numbers.end());
  return headings;
}

bool is_heading_line(const ExportRecord& record, const ColumnChoice& columns) {
  const auto is_said = [&](const HeadingTexts& texts) {
    for (std::size_t k = 0; k < texts.size(); ++k) {
      if (trimmed(field_of(record, columns, pedigree_fields[k])) != texts[k]) return false;
    }
    return true;
  };
  return std::any_of(columns.heading_lines.begin(), columns.heading_lines.end(), is_said);
}

bool number_columns(std::span<const std::string> fields) {
  while (!fields.empty() && fields.back().empty()) fields = fields.first(fields.size() - 1);
  if (fields.size() < fewest_numbered_columns) return false;
  const auto all = [&](auto names_place) {
    for (std::size_t k = 0; k < fields.size(); ++k) {
      if (!names_place(std::string_view(fields[k]), k)) return false;
    }
    return true;
  };
  if (all([](std::string_view field, std::size_t k) { return field == column_letters(k); })) return true;
  // What stands around the number of the first column stands around all of them.
  const std::string_view start = fields.front();
  const std::size_t digit = start.find_first_of("01");
  if (digit == std::string_view::npos) return false;
  const std::string_view before = start.substr(0, digit), behind = start.substr(digit + 1);
  const std::size_t from = start[digit] == '0' ? 0 : 1;
  return all([&](std::string_view field, std::size_t k) {
    if (field.size() <= before.size() + behind.size() || !field.starts_with(before) || !field.ends_with(behind)) {
      return false;
    }
    const std::string_view number = field.substr(before.size(), field.size() - before.size() - behind.size());
    return number == std::to_string(k + from);
  });
}

}  // namespace pedigreewatch
