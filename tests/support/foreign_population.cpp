// The first quarter are founders; all others descend from animals that are at least two years older.

#include "support/foreign_population.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace pedigreewatch::test {
namespace {

std::string digits(int value, int width) {
  std::array<char, 24> text{};
  std::snprintf(text.data(), text.size(), "%0*d", width, value);
  return text.data();
}

std::string plain_id(int number, IdStyle style) {
  switch (style) {
    case IdStyle::leading_zeros:
    case IdStyle::formula:
    case IdStyle::apostrophe: return digits(number, 5);
    case IdStyle::prefix: return "NL" + std::to_string(10000 + 7 * number);
    case IdStyle::hyphens: return "HS-" + digits(number, 5);
    case IdStyle::blanks: return "DE 09 " + digits(100 + number % 7, 3) + " " + digits(number, 5);
    case IdStyle::slashes:
      return digits(number % 19, 2) + "/" + std::string(1, static_cast<char>('A' + number % 5)) + "/" +
             digits(number, 4);
    case IdStyle::tags:
    case IdStyle::destroyed_tags: return "5280000" + digits(number, 5) + digits(number * 37 % 1000, 3);
    case IdStyle::thousands: return std::to_string(1200000 + 13 * number);
    case IdStyle::numbers:
    case IdStyle::count: break;
  }
  return std::to_string(number);
}

/// The place of a parent of that sex among the animals that are old enough.
int draw_parent(Dice& dice, const std::vector<ForeignAnimal>& animals, int young, bool is_male) {
  const int year = animals[static_cast<std::size_t>(young)].year;
  for (int attempt = 0; attempt < 40; ++attempt) {
    // Half of the young have one of the animals that came first in their decade.
    const int place = dice.one_in(2) ? dice.below(young) : dice.below(young) / 10 * 10;
    const ForeignAnimal& parent = animals[static_cast<std::size_t>(place)];
    if (parent.is_male == is_male && parent.year + 2 <= year && parent.year + 20 >= year) return place;
  }
  return -1;
}

}  // namespace

std::string_view name_of(IdStyle style) {
  static constexpr std::array<std::string_view, static_cast<std::size_t>(IdStyle::count)> names = {
      "1",         "00012",      "NL10012", "HS-00012",  "DE 09 123 00012", "12/B/0012",
      "15 digits", "=\"00012\"", "'00012",  "1.200.012", "5.28E+14"};
  return names[static_cast<std::size_t>(style)];
}

std::vector<ForeignAnimal> make_foreign_population(Dice& dice, int count, IdStyle style,
                                                   std::span<const std::string_view> names) {
  std::vector<ForeignAnimal> animals(static_cast<std::size_t>(count));
  constexpr int first_year = 1985, year_count = 34;
  for (int i = 0; i < count; ++i) {
    ForeignAnimal& animal = animals[static_cast<std::size_t>(i)];
    animal.id = plain_id(i + 1, style);
    animal.name = std::string(dice.one_of(names)) + " " + std::string(dice.one_of(names));
    animal.is_male = dice.one_in(2);
    animal.year = first_year + i * year_count / count;
    animal.month = 1 + dice.below(12);
    animal.day = 1 + dice.below(28);
  }
  for (int i = count / 4; i < count; ++i) {
    ForeignAnimal& animal = animals[static_cast<std::size_t>(i)];
    const int sire = draw_parent(dice, animals, i, true), dam = draw_parent(dice, animals, i, false);
    if (sire >= 0 && !dice.one_in(20)) animal.sire = animals[static_cast<std::size_t>(sire)].id;
    if (dam >= 0 && !dice.one_in(25)) animal.dam = animals[static_cast<std::size_t>(dam)].id;
  }
  return animals;
}

std::string written_id(const std::string& id, IdStyle style) {
  if (style == IdStyle::formula) return "=\"" + id + "\"";
  if (style == IdStyle::apostrophe) return "'" + id;
  if (style == IdStyle::thousands) return id.substr(0, 1) + "." + id.substr(1, 3) + "." + id.substr(4);
  if (style == IdStyle::destroyed_tags) return id.substr(0, 1) + "," + id.substr(1, 5) + "E+14";
  return id;
}

}  // namespace pedigreewatch::test
