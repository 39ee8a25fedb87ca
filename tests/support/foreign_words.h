// The words that offices of six languages write into their exports: headings, sexes, texts for unknown, months, names.
// Those that a program is likely to know stand beside those that it has to find out by what they head or mean.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace pedigreewatch::test {

enum class Tongue { english, dutch, german, french, spanish, italian };
inline constexpr std::size_t tongue_count = 6;

/// Headings of one kind of column.
enum class Heading {
  id,           ///< plain: "ID", "Nummer"
  odd_id,       ///< told by their content only: "Ear tag", "ZB-Nr."
  name,         ///< of the animal
  sire,         ///< plain, which may head an id or a name
  dam,          ///< likewise
  sire_id,      ///< tell that it is an id
  dam_id,       ///< likewise
  odd_sire_id,  ///< tell so in a word of the office
  odd_dam_id,   ///< likewise
  sire_name,    ///< tell that it is a name
  dam_name,     ///< likewise
  sex,
  birth,
  odd_birth,
  colour,
  breeder,
  owner,
  herd,
  weight,
  death,
  registered,
  status,
  notes,
  grandsire,
  chip,  ///< a second number of each animal
  sire_chip,
  dam_chip,
  row,  ///< a running number of the office's program
};

/// The headings of that kind in that language, in UTF-8.
std::span<const std::string_view> headings_of(Heading heading, Tongue tongue);

/// How sexes are written: the words of one export.
struct SexStyle {
  std::string_view name;                         ///< for the table of the measurement
  std::string_view species;                      ///< the species option that it belongs to
  std::array<std::string_view, 3> male, female;  ///< first the usual word, then those of some animals; or empty
  bool is_odd = false;                           ///< letters or numbers that say nothing by themselves
};

std::span<const SexStyle> sex_styles_of(Tongue tongue);

/// Texts that stand for an unknown parent.
std::span<const std::string_view> unknown_words_of(Tongue tongue);

/// What a spreadsheet and offices of any language write for it.
std::span<const std::string_view> shared_unknown_words();

/// The months, 12 of them; short as in "Mar", or in full.
std::span<const std::string_view> months_of(Tongue tongue, bool in_full);

/// Names of animals and of people in that language, most of them without accents as they are in life.
std::span<const std::string_view> names_of(Tongue tongue);

/// Names of Poland, Bohemia and Hungary, for exports in their encoding.
std::span<const std::string_view> eastern_names();

std::span<const std::string_view> titles_of(Tongue tongue);

/// Remarks below the last animal; "#" stands for the number of animals.
std::span<const std::string_view> footers_of(Tongue tongue);

}  // namespace pedigreewatch::test
