// The form of a text is the order of its letters, digits and signs, whatever their number. Forms are compared first, on
// some of the lines; only where a column passes are all texts compared.

#include "intake/rare_young.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>

#include "intake/animal_lines.h"
#include "intake/heading_words.h"
#include "intake/value_words.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr auto twin_words = std::to_array<std::string_view>(
    {"twin",    "twins",    "triplet",  "triplets",  "second",   "third",     "tweeling", "tweelingen", "drieling",
     "tweede",  "derde",    "zwilling", "zwillinge", "drilling", "drillinge", "zweites",  "zweite",     "drittes",
     "jumeau",  "jumelle",  "jumeaux",  "triple",    "deuxieme", "troisieme", "gemelo",   "gemela",     "mellizo",
     "melliza", "trillizo", "segundo",  "segunda",   "gemello",  "gemella",   "secondo",  "seconda"});

/// Of so many texts one may be written otherwise, come again, or be an id.
constexpr std::int64_t tolerated_odd_texts = 50;
/// A column that is filled in more than nine of ten lines holds a further number of each animal.
constexpr std::int64_t tenths_of_most_lines = 9;
/// Fewer texts tell nothing where none of them is a parent, nor do more than one for so many ids.
constexpr std::int64_t fewest_rare_young = 3, ids_for_each = 2;
constexpr std::size_t most_forms = 20;

/// The kinds of the bytes in their order, each run of one kind once: "a0" of "NL20001".
std::string form_of(std::string_view text) {
  std::string form;
  for (const char byte : text) {
    const auto value = static_cast<unsigned char>(byte | 0x20);
    const bool is_letter = value >= 0x80 || (value >= 'a' && value <= 'z');
    const char kind = is_letter ? 'a' : (byte >= '0' && byte <= '9') ? '0' : byte;
    if (form.empty() || form.back() != kind) form.push_back(kind);
  }
  return form;
}

/// How the texts of a column are written.
struct ColumnForms {
  std::map<std::string, std::int64_t> forms;
  std::int64_t filled = 0;
  std::size_t shortest = SIZE_MAX, longest = 0;
};

void note_form(ColumnForms& column, std::string_view text) {
  if (text.empty() || means_unknown_parent(text) || means_stillborn(text)) return;
  ++column.filled;
  if (column.forms.size() > most_forms) return;  // it has too many to be compared
  ++column.forms[form_of(text)];
  column.shortest = std::min(column.shortest, text.size());
  column.longest = std::max(column.longest, text.size());
}

/// Whether texts are written as the ids are.
bool is_like(const ColumnForms& column, const ColumnForms& ids) {
  if (column.filled == 0 || column.forms.size() > most_forms || ids.forms.size() > most_forms) return false;
  if (column.shortest < ids.shortest || column.longest > ids.longest) return false;
  std::int64_t alike = 0;
  for (const auto& [form, count] : column.forms) alike += ids.forms.contains(form) ? count : 0;
  return (column.filled - alike) * tolerated_odd_texts <= column.filled;
}

/// Whether the heading leaves open that the column holds ids of animals.
bool may_hold_ids(const ColumnChoice& columns, std::size_t place) {
  if (!columns.has_header) return true;
  const std::string& heading = columns.headings[place];
  if (names_further_young(heading)) return true;
  const HeadingMeaning meaning = read_heading(heading);
  if (meaning.owner != HeadingOwner::animal) return false;
  if (meaning.thing == HeadingThing::identification) return true;
  return meaning.thing == HeadingThing::none && (!meaning.is_understood || meaning.names_young);
}

std::vector<std::size_t> open_places(const ColumnChoice& columns) {
  std::vector<std::size_t> open;
  for (std::size_t place = 0; place < columns.headings.size(); ++place) {
    if (!holds_field(columns, place) && may_hold_ids(columns, place)) open.push_back(place);
  }
  return open;
}

/// The forms in each column, in all records of a small export and in some at ten places of a large one.
std::vector<ColumnForms> read_forms(std::string_view text, char delimiter, const ColumnChoice& columns,
                                    std::span<const std::size_t> places) {
  constexpr std::size_t small_export = std::size_t{1} << 22, pieces = 10;
  constexpr std::int64_t records_of_piece = 2000;
  std::vector<ColumnForms> forms(columns.headings.size());
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  const bool is_small = text.size() <= small_export;
  for (std::size_t piece = 0; piece < (is_small ? 1 : pieces); ++piece) {
    if (piece > 0) {
      const std::size_t begin = text.find(reader.line_end, text.size() / pieces * piece);
      if (begin == std::string_view::npos || begin < reader.next) break;
      reader.next = begin + 1;
    }
    for (std::int64_t k = 0; (is_small || k < records_of_piece) && next_animal(reader, record, columns); ++k) {
      for (const std::size_t place : places) {
        if (place < record.fields.size()) note_form(forms[place], trimmed(record.fields[place]));
      }
    }
  }
  return forms;
}

}  // namespace

bool names_further_young(std::string_view heading) {
  const HeadingMeaning meaning = read_heading(heading);
  const bool is_of_animal = meaning.owner == HeadingOwner::animal;
  const bool may_be_id = meaning.thing == HeadingThing::none || meaning.thing == HeadingThing::identification;
  if (is_of_animal && may_be_id && meaning.names_young) return true;
  std::string rest;
  bool names_twin = false;
  for (const std::string& word : words_of_heading(heading)) {
    const bool is_twin = is_among(word, twin_words);
    names_twin = names_twin || is_twin;
    if (!is_twin) rest += (rest.empty() ? "" : " ") + word;
  }
  if (!names_twin || rest.empty()) return names_twin;
  const HeadingMeaning beside = read_heading(rest);
  return beside.owner == HeadingOwner::animal &&
         (beside.thing == HeadingThing::none || beside.thing == HeadingThing::identification);
}

std::vector<std::size_t> columns_like_ids(std::string_view text, char delimiter, const ColumnChoice& columns) {
  const auto& id = columns.place[id_column];
  std::vector<std::size_t> places = open_places(columns);
  if (!id || places.empty()) return {};
  places.push_back(*id);
  const std::vector<ColumnForms> forms = read_forms(text, delimiter, columns, places);
  places.pop_back();
  std::erase_if(places, [&](std::size_t place) {
    const bool is_of_most = forms[place].filled * 10 > forms[*id].filled * tenths_of_most_lines;
    return is_of_most || !is_like(forms[place], forms[*id]);
  });
  return places;
}

RareYoung find_rare_young(std::span<const std::size_t> candidates, std::span<const ColumnProfile> profiles,
                          const ColumnChoice& columns) {
  RareYoung found;
  const auto& id = columns.place[id_column];
  if (!id || *id >= profiles.size()) return found;
  found.are_named = true;
  // Columns of names look alike.
  const bool have_digits = profiles[*id].with_digit * 2 > profiles[*id].judged;
  for (const std::size_t place : candidates) {
    if (place >= profiles.size()) continue;
    const ColumnProfile& column = profiles[place];
    const TextSet texts = texts_of_living(column);
    const std::int64_t read = count_read_of_living(column), different = size_of(texts);
    const std::int64_t odd = read - different + count_common(texts, profiles[*id].texts);
    if (odd * tolerated_odd_texts > read) continue;
    const std::int64_t parents = count_parents(texts, profiles, columns);
    const bool is_named = columns.has_header && names_further_young(columns.headings[place]);
    const bool are_enough = different >= fewest_rare_young || (is_named && different > 0);
    const bool are_rare = are_enough && different * ids_for_each <= size_of(profiles[*id].texts);
    if (parents == 0 && !(are_rare && have_digits)) continue;
    found.places.push_back(place);
    found.parents += parents;
    found.are_named = found.are_named && is_named;
  }
  return found;
}

}  // namespace pedigreewatch
